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

} // namespace

std::unique_ptr<SQLite::Database> openFile(const QString &connectionString)
{
    const ConnectionString parsed = checked(connectionString);
    auto opened = std::make_unique<SQLite::Database>(parsed.file.toStdString(),
                                                     SQLite::OPEN_READWRITE, busyTimeout);
    SQLite::Database &engine = *opened;
    registerFunctions(engine);
    verifyFile(engine);
    verifyAccount(engine, {parsed.user, parsed.password});
    // A file from elsewhere may not make the engine run more than its own statements.
    engine.exec("pragma trusted_schema = off");
    engine.exec("pragma journal_mode = delete");
    engine.exec("pragma synchronous = full");
    engine.exec("pragma temp_store = memory");
    // The whole dictionary stays in memory, 32 MB of it at most.
    engine.exec("pragma cache_size = -32768");
    refreshCollation(engine);
    return opened;
}

} // namespace dbaccess
