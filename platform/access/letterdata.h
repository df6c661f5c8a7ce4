// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <span>

namespace dbaccess {

/// What a character is without its case and taken apart: "\u00c9" is e and an acute accent, the
/// sign for "No." the letters n and o.
struct Folding
{
    char16_t character;
    const char16_t *folded;
};

/// In the order of their characters. What is not among them stands for itself.
extern const std::span<const Folding> foldings;

/// The combining class of all of a range that count for nothing.
inline constexpr std::uint8_t ignored = 255; // no combining class is as high

/// Characters, the last one included, that are no letters.
struct MarkRange
{
    char16_t first;
    char16_t last;
    std::uint8_t combiningClass; ///< of marks, or ignored
};

/// In the order of their characters.
extern const std::span<const MarkRange> marks;

} // namespace dbaccess
