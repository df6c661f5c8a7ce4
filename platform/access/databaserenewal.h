// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringList>

#include <memory>
#include <vector>

namespace dbaccess {

/// Gives a database file the tables and rows of another, newer one: in its place and in one
/// transaction, so that the file holds all of the old or all of the new at any moment, whatever
/// interrupts it. Other copies of the program may have it open; they can't write meanwhile, and
/// find the new tables afterwards. The file keeps its account.
///
/// What is to be kept of the old rows goes into temporary tables first, and from there back into
/// the new ones. Statements are the engine's own; "main" is the file, "newer" the other one.
///
/// All functions throw EngineError. Without commit() nothing has changed.
class DatabaseRenewal
{
public:
    /// Opens the file that a connection string names, and from here on nobody else writes to it.
    DatabaseRenewal(const QString &connectionString, const QString &newerFile);
    ~DatabaseRenewal();
    DatabaseRenewal(const DatabaseRenewal &) = delete;
    DatabaseRenewal &operator=(const DatabaseRenewal &) = delete;

    /// Whether the file was made with what the newer one was made with.
    bool isSameEdition() const;

    /// Copies the file, as it was before, to a new file of that name.
    void backUp(const QString &copy) const;

    void execute(const QString &sql);
    std::vector<QStringList> rows(const QString &sql) const;

    /// Puts the tables of the newer file, with their rows, in the place of those of the same names.
    void takeNewerTables();

    void commit();

private:
    struct Work;

    std::unique_ptr<Work> m_work;
};

} // namespace dbaccess
