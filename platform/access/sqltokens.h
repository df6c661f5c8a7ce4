// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <vector>

namespace dbaccess {

/// One token of a statement. The text is a view into the statement, quotes included.
struct SqlToken
{
    enum class Kind {
        Word,          ///< keyword or plain name
        BracketedName, ///< [name]
        Literal,       ///< 'text', or "text"
        Number,
        Sign ///< operators and punctuation; "<=", ">=", "<>" are one token
    };

    Kind kind = Kind::Sign;
    QStringView text;
    qsizetype position = 0; ///< of the first character in the statement, from 0

    /// Whether this is the given keyword (lower case) in any letter case.
    bool isWord(QStringView keyword) const;
    bool isSign(QStringView sign) const { return kind == Kind::Sign && text == sign; }
    bool isName() const { return kind == Kind::Word || kind == Kind::BracketedName; }
    qsizetype end() const { return position + text.size(); }
    /// Whether a literal has its closing quote; one that lacks it takes the rest of the statement.
    bool isClosed() const { return text.count(text.front()) % 2 == 0; }
    /// The text that a literal stands for: quotes removed, doubled quotes single.
    QString literalText() const;
};

/// Splits a statement into tokens, blanks left out. A literal that is never closed runs to the
/// end; the engine refuses it. The views are valid as long as the statement.
std::vector<SqlToken> tokenizeSql(QStringView statement);

/// A text as an SQL literal: O'Neil gives 'O''Neil'.
QString sqlLiteral(const QString &text);

} // namespace dbaccess
