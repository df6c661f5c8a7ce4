// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <string_view>

namespace dbaccess {

/// The name under which SQL knows the order of texts ("collate tovarin").
inline constexpr char collationName[] = "tovarin";

/// Compares two UTF-8 texts as the dictionary orders them: first their letters without case and
/// without accents (signs before digits before letters), then their accents. Negative, zero or
/// positive as a sorts before, with, or after b. "elodie" < "Élodie" = "élodie" < "Eloise".
int compareTexts(std::string_view a, std::string_view b);
int compareTexts(const QString &a, const QString &b);

/// The plain capital letter under which a text stands in the order: E for "Élodie", A for "Æsir".
/// A null character if it begins with no letter from A to Z.
QChar firstPlainLetter(const QString &text);

/// Names the order itself. It is stamped into every database, because an index built under another
/// order misses rows without any error. To be raised with every change of the order.
inline constexpr char collationVersion[] = "2";

} // namespace dbaccess
