// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <memory>

namespace SQLite {
class Database;
}

namespace dbaccess {

/// Opens the file that a connection string (see connectionstring.h) names, for its account, with
/// all that a connection needs; never creates one.
/// @throws EngineError, SQLite::Exception
std::unique_ptr<SQLite::Database> openFile(const QString &connectionString);

/// What a file says of itself.
struct FileState
{
    /// The same for all files that DatabaseBuilder was given the same tables and rows for, whatever
    /// has happened to them since. Empty where the file does not say.
    QString edition;
    bool hasCurrentCollation = false; ///< else openFile() has to write to it
};

/// Asks a file. It is only read, so that neither it nor its folder has to be writable.
/// @throws EngineError
FileState stateOfFile(const QString &connectionString);

} // namespace dbaccess
