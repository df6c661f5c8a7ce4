// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/access/openedfile.h"

#include "platform/access/connectionstring.h"
#include "platform/access/engineerror.h"
#include "platform/access/filestamp.h"

#include <QFileInfo>

#include <SQLiteCpp/Database.h>

namespace dbaccess {

namespace {

/// How long a statement waits for another copy of the program, in milliseconds.
constexpr int busyTimeout = 5000;

ConnectionString checked(const QString &text)
{
    ConnectionString parsed = parseConnectionString(text);
    if (parsed.driver.compare(driverName, Qt::CaseInsensitive) != 0)
        throw EngineError(
            EngineError::Reason::UnknownDriver,
            QStringLiteral("There is no database driver named \"%1\".").arg(parsed.driver));
    if (!QFileInfo::exists(parsed.file))
        throw EngineError(EngineError::Reason::MissingFile,
                          QStringLiteral("Could not find the file \"%1\".").arg(parsed.file));
    return parsed;
}

/// @param mode  of the engine's, to read or to write
std::unique_ptr<SQLite::Database> openForAccount(const QString &connectionString, int mode)
{
    const ConnectionString parsed = checked(connectionString);
    auto opened = std::make_unique<SQLite::Database>(parsed.file.toStdString(), mode, busyTimeout);
    registerFunctions(*opened);
    verifyFile(*opened);
    verifyAccount(*opened, {parsed.user, parsed.password});
    // A file from elsewhere may not make the engine run more than its own statements.
    opened->exec("pragma trusted_schema = off");
    return opened;
}

} // namespace

std::unique_ptr<SQLite::Database> openFile(const QString &connectionString)
{
    auto opened = openForAccount(connectionString, SQLite::OPEN_READWRITE);
    SQLite::Database &engine = *opened;
    engine.exec("pragma journal_mode = delete");
    engine.exec("pragma synchronous = full");
    engine.exec("pragma temp_store = memory");
    // The whole dictionary stays in memory, 32 MB of it at most.
    engine.exec("pragma cache_size = -32768");
    refreshCollation(engine);
    return opened;
}

FileState stateOfFile(const QString &connectionString)
{
    try {
        const auto opened = openForAccount(connectionString, SQLite::OPEN_READONLY);
        return {.edition = QString::fromStdString(edition(*opened)),
                .hasCurrentCollation = hasCurrentCollation(*opened)};
    } catch (const SQLite::Exception &exception) {
        throw EngineError(exception);
    }
}

} // namespace dbaccess
