// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <string>

namespace SQLite {
class Database;
}

namespace dbaccess {

/// Who may open a database: an access check, as of a door with a name on it, not encryption.
struct Account
{
    QString user;
    QString password;
};

/// Registers what every connection needs: the collation, and "like" as this dialect means it.
void registerFunctions(SQLite::Database &database);

/// Marks a new, empty file as a database of this program and stores the account (its password as
/// a salted hash) and the version of the collation.
void stampNewFile(SQLite::Database &database, const Account &account);

/// Refuses a file that is not ours, or was written by a newer program.
/// @param schema  the engine's name of the file: "main", or the one it is attached by
/// @throws EngineError
void verifyFile(SQLite::Database &database, const std::string &schema = "main");

/// @throws EngineError if the user or the password is not the one stored
void verifyAccount(SQLite::Database &database, const Account &account);

/// Whether the indexes of a file were built under the collation of this program.
bool hasCurrentCollation(SQLite::Database &database);

/// Rebuilds the indexes of a file whose texts were ordered by another version of the collation.
/// @throws EngineError if the file can't be written
void refreshCollation(SQLite::Database &database);

/// What tells the tables and rows that a file was made with from those of other files; empty for
/// a file that does not say.
std::string edition(SQLite::Database &database, const std::string &schema = "main");
void setEdition(SQLite::Database &database, const std::string &edition);

} // namespace dbaccess
