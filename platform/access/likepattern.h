// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/access/letterfolding.h"

#include <string_view>
#include <vector>

namespace dbaccess {

/// The pattern of SQL's "like": "%" stands for any characters, "_" for one. Letter case never
/// counts; a plain letter in the pattern matches the accented ones as well (elo% finds Élodie),
/// an accented letter matches only itself.
class LikePattern
{
public:
    explicit LikePattern(std::string_view utf8Pattern);

    bool matches(std::string_view utf8Text) const;

private:
    enum class Kind { Letter, OneCharacter, AnyCharacters };

    struct Step
    {
        Kind kind = Kind::Letter;
        Element element;
    };

    template <typename Text>
    bool matchesSteps(const Text &text) const;

    std::vector<Step> m_steps;
};

/// Whether a text has letters, and none with an accent or another mark. Only then do the texts that
/// a pattern of it and a final "%" matches make up one stretch of the order.
bool isPlainText(std::string_view utf8);

} // namespace dbaccess
