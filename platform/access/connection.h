// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/access/recordset.h"

#include <functional>
#include <memory>

namespace dbaccess {

/// One connection to a database file. See dialect.h for the SQL that it reads, collation.h for how
/// it compares texts.
///
/// Each statement commits by itself and is on the disk when it returns. Another copy of the
/// program may use the same file; a statement waits a few seconds for it.
class Connection
{
public:
    Connection();
    ~Connection();
    Connection(const Connection &) = delete;
    Connection &operator=(const Connection &) = delete;

    /// Opens the file that a connection string (see connectionstring.h) names; never creates one.
    /// @throws EngineError
    void open(const QString &connectionString);
    void close();
    bool isOpen() const { return m_database != nullptr; }

    /// Runs a query and reads all its rows.
    /// @throws EngineError
    Recordset openRecordset(const QString &sql);

    /// Runs a statement that yields no rows, or whose rows are not wanted.
    /// @throws EngineError
    void execute(const QString &sql);

    /// Puts an empty table of this connection's own in the place of the file's table of that name,
    /// with its columns. What goes into it stays in memory until the connection is closed: no disk
    /// is waited for, no other copy of the program sees it, and nothing of it is left behind by a
    /// program that is killed. Where the file has no such table nothing happens.
    /// @throws EngineError
    void makePrivate(const QString &table);

    /// Calls the observer with the text of every statement, as given, before it is run.
    void setStatementObserver(std::function<void(const QString &)> observer);

private:
    struct Database;

    Database &database(const QString &sql);
    Database &openedDatabase();

    std::unique_ptr<Database> m_database;
    std::function<void(const QString &)> m_observer;
};

} // namespace dbaccess
