// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/access/engineerror.h"

#include <SQLiteCpp/Exception.h>
#include <sqlite3.h>

namespace dbaccess {

namespace {

using Reason = EngineError::Reason;

struct Refusal
{
    Reason reason;
    QString message;
};

/// The part of "no such table: names" behind the colon.
QString subjectOf(const QString &engineText)
{
    return engineText.section(QStringLiteral(": "), 1);
}

Refusal refusalOfStatement(const QString &text)
{
    if (text.startsWith(u"no such table"))
        return {Reason::UnknownTable,
                QStringLiteral("There is no table named \"%1\".").arg(subjectOf(text))};
    if (text.startsWith(u"no such column"))
        return {Reason::UnknownColumn,
                QStringLiteral("There is no column named \"%1\".").arg(subjectOf(text))};
    if (text.contains(u" has no column named "))
        return {Reason::UnknownColumn,
                QStringLiteral("There is no column named \"%1\".")
                    .arg(text.section(QStringLiteral(" has no column named "), 1))};
    // No statement names one; a file does that was not written by this program, or is spoilt.
    if (text.startsWith(u"no such collation sequence"))
        return {Reason::NotADatabase, QStringLiteral("The database is damaged.")};
    if (text.startsWith(u"near ") && text.endsWith(u": syntax error"))
        return {Reason::Syntax,
                QStringLiteral("Syntax error in the statement near %1.")
                    .arg(text.sliced(5).section(QStringLiteral(": syntax error"), 0, 0))};
    if (text.startsWith(u"unrecognized token"))
        return {Reason::Syntax,
                QStringLiteral("Syntax error in the statement near %1.").arg(subjectOf(text))};
    if (text == u"incomplete input")
        return {Reason::Syntax, QStringLiteral("Syntax error: the statement ends too early.")};
    return {Reason::Other, text};
}

Refusal refusalOf(int code, const QString &text)
{
    switch (code) {
    case SQLITE_READONLY:
        return {Reason::ReadOnly,
                QStringLiteral("The database is read-only, so nothing was changed. Please check "
                               "that you may write to the program's folder.")};
    case SQLITE_FULL:
        return {Reason::DiskFull,
                QStringLiteral("The disk is full, so nothing was changed. Please free some space "
                               "and try again.")};
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return {Reason::Locked,
                QStringLiteral("The database is in use by another program, so nothing was changed. "
                               "Please try again in a moment.")};
    case SQLITE_NOTADB:
        return {Reason::NotADatabase, QStringLiteral("The file is not a database.")};
    case SQLITE_CORRUPT:
        return {Reason::NotADatabase, QStringLiteral("The database is damaged.")};
    case SQLITE_CANTOPEN:
        return {Reason::Other,
                QStringLiteral("A file of the database could not be opened. Please check that you "
                               "may write to the program's folder.")};
    case SQLITE_IOERR:
        return {Reason::Other, QStringLiteral("The disk reports an error: %1.").arg(text)};
    default:
        return refusalOfStatement(text);
    }
}

} // namespace

EngineError::EngineError(Reason reason, const QString &message)
    : m_reason(reason), m_message(message), m_what(message.toUtf8())
{
}

EngineError::EngineError(const SQLite::Exception &refused) : EngineError(Reason::Other, QString())
{
    const Refusal refusal =
        refusalOf(refused.getErrorCode() & 0xff, QString::fromUtf8(refused.what()));
    m_reason = refusal.reason;
    m_number = refused.getErrorCode();
    m_message = refusal.message;
    m_what = m_message.toUtf8();
}

} // namespace dbaccess
