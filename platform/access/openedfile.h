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

} // namespace dbaccess
