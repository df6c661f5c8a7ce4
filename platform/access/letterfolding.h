// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

namespace dbaccess {

/// One step of a character's folding: a base letter, or a mark that belongs to the base before it.
struct Atom
{
    std::uint32_t primary = 0; ///< place of the base letter, digit or sign in the order; 0 = a mark
    std::uint8_t mark = 0;     ///< rank of the mark; 0 = none
    std::uint8_t combiningClass = 0; ///< of a mark, for the canonical order of several marks

    bool operator==(const Atom &) const = default;
};

/// The places of the plain ASCII characters in the order; 0 = ignored.
const std::array<std::uint32_t, 128> &asciiPrimaries();

/// The capital letter A to Z that a place in the order belongs to; '\0' for signs, digits and
/// letters of other scripts.
char plainLetter(std::uint32_t primary);

/// A base with its marks, in canonical order: what the comparison and the patterns work on.
struct Element
{
    static constexpr std::size_t maxMarks = 6; ///< more on one letter are not told apart

    std::uint32_t primary = 0;   ///< 0 only for marks at the very start of a text
    bool startsCharacter = true; ///< false for the e of æ
    std::uint8_t markCount = 0;
    std::array<std::uint8_t, maxMarks> marks {};

    std::span<const std::uint8_t> markList() const { return {marks.data(), markCount}; }
};

/// Reads a UTF-8 text element by element. Malformed bytes read as U+FFFD, never past the end.
class ElementReader
{
public:
    explicit ElementReader(std::string_view utf8) : m_rest(utf8) { }
    ElementReader(const ElementReader &) = delete;
    ElementReader &operator=(const ElementReader &) = delete;

    /// Fills the element and returns true, or returns false at the end of the text.
    bool next(Element &element);

private:
    std::span<const Atom> fold(char32_t character);
    bool nextAtom(Atom &atom, bool &startsCharacter);

    std::string_view m_rest;
    std::span<const Atom> m_pending;
    Atom m_unknown; ///< that of a character that the table does not have
    bool m_pendingStartsCharacter = true;
    bool m_hasAhead = false;
    bool m_aheadStartsCharacter = true;
    Atom m_ahead;
};

} // namespace dbaccess
