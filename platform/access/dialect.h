// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QSet>
#include <QString>

namespace dbaccess {

/// A statement of the program in the words of the engine.
struct Translation
{
    QString sql;
    QString intoTable; ///< of "select … into T from …", whose rows sql yields; else empty
};

/// Translates one statement: "select top N" becomes a limit, "into T" is taken out, "text" in
/// double quotes becomes a literal, and implied bounds are added (see wherebounds.h). Everything
/// else passes as it stands; what the engine cannot read it reports itself.
///
/// @param textColumns  the columns ordered by the dictionary's collation, in lower case
/// @throws EngineError for text behind the end of the statement, for a literal without its closing
///                     quote and for a zero character
Translation translateStatement(const QString &statement, const QSet<QString> &textColumns);

} // namespace dbaccess
