// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/access/filestamp.h"

#include <QStringList>

#include <memory>

namespace dbaccess {

/// Makes a new database file. It grows under another name ("<file>.new") in one transaction and
/// takes its own name only in finish(), so that a failure never leaves half a database; without
/// finish() it is removed again.
///
/// All functions throw EngineError.
class DatabaseBuilder
{
public:
    /// @param schema  the "create" statements of the program's tables and indexes
    DatabaseBuilder(const QString &file, const Account &account, const QString &schema);
    ~DatabaseBuilder();
    DatabaseBuilder(const DatabaseBuilder &) = delete;
    DatabaseBuilder &operator=(const DatabaseBuilder &) = delete;

    /// Adds a row; the values are all the table's columns in their order, a null text being null.
    void insert(const QString &table, const QStringList &values);

    /// Gathers the planner's statistics, writes everything to the disk and puts the file in place,
    /// over an older one of that name.
    void finish();

private:
    struct Work;

    QString m_file;
    std::unique_ptr<Work> m_work;
};

} // namespace dbaccess
