// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/access/databaserenewal.h"

#include "platform/access/engineerror.h"
#include "platform/access/filestamp.h"
#include "platform/access/openedfile.h"

#include <QFileInfo>

#include <SQLiteCpp/Backup.h>
#include <SQLiteCpp/Column.h>
#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>
#include <sqlite3.h>

namespace dbaccess {

namespace {

/// What the newer file has besides the engine's own tables and that of this layer.
std::string newerObjects(const char *columns, const char *condition)
{
    return std::string("select ") + columns
           + " from newer.sqlite_schema where name not glob 'sqlite_*' and tbl_name <> "
             "'sys_properties' and "
           + condition + " order by rowid";
}

/// Runs a function of the engine's, its refusals as this layer's.
template <typename Function>
auto translated(const Function &function)
{
    try {
        return function();
    } catch (const SQLite::Exception &exception) {
        throw EngineError(exception);
    }
}

std::vector<QStringList> fetch(SQLite::Database &engine, const std::string &sql)
{
    SQLite::Statement query(engine, sql);
    std::vector<QStringList> rows;
    while (query.executeStep()) {
        QStringList &row = rows.emplace_back();
        for (int i = 0; i < query.getColumnCount(); ++i)
            row.append(QString::fromStdString(query.getColumn(i).getString()));
    }
    return rows;
}

} // namespace

struct DatabaseRenewal::Work
{
    explicit Work(const QString &connectionString)
        : opened(openFile(connectionString)), engine(*opened)
    {
    }

    std::unique_ptr<SQLite::Database> opened;
    SQLite::Database &engine;
};

DatabaseRenewal::DatabaseRenewal(const QString &connectionString, const QString &newerFile)
{
    if (!QFileInfo::exists(newerFile))
        throw EngineError(EngineError::Reason::MissingFile,
                          QStringLiteral("Could not find the file \"%1\".").arg(newerFile));
    translated([&] {
        m_work = std::make_unique<Work>(connectionString);
        SQLite::Statement attach(m_work->engine, "attach ? as newer");
        attach.bind(1, newerFile.toStdString());
        attach.exec();
        verifyFile(m_work->engine, "newer");
        m_work->engine.exec("begin immediate");
    });
}

// What was not committed, the engine takes back when it closes the file.
DatabaseRenewal::~DatabaseRenewal() = default;

bool DatabaseRenewal::isSameEdition() const
{
    return translated(
        [this] { return edition(m_work->engine) == edition(m_work->engine, "newer"); });
}

void DatabaseRenewal::backUp(const QString &copy) const
{
    translated([&] {
        // The connection that writes can't be copied from; one that reads beside it can.
        SQLite::Database source(m_work->engine.getFilename(), SQLite::OPEN_READONLY);
        SQLite::Database target(copy.toStdString(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
        if (SQLite::Backup(target, source).executeStep() != SQLITE_DONE)
            throw EngineError(
                EngineError::Reason::Locked,
                QStringLiteral("The copy \"%1\" is in use by another program.").arg(copy));
    });
}

void DatabaseRenewal::execute(const QString &sql)
{
    translated([&] { m_work->engine.exec(sql.toStdString()); });
}

std::vector<QStringList> DatabaseRenewal::rows(const QString &sql) const
{
    return translated([&] { return fetch(m_work->engine, sql.toStdString()); });
}

void DatabaseRenewal::takeNewerTables()
{
    translated([this] {
        SQLite::Database &engine = m_work->engine;
        // All tables come before their indexes, which are made quicker when the rows are there.
        for (const QStringList &table :
             fetch(engine, newerObjects("name, sql", "type = 'table'"))) {
            const std::string name = '"' + table[0].toStdString() + '"';
            engine.exec("drop table if exists main." + name);
            engine.exec(table[1].toStdString());
            std::string copy = "insert into main.";
            copy.append(name).append(" select * from newer.").append(name);
            engine.exec(copy);
        }
        for (const QStringList &object :
             fetch(engine, newerObjects("sql", "type <> 'table' and sql is not null")))
            engine.exec(object[0].toStdString());
        engine.exec("pragma main.user_version = "
                    + engine.execAndGet("pragma newer.user_version").getString());
        setEdition(engine, edition(engine, "newer"));
    });
}

void DatabaseRenewal::commit()
{
    translated([this] {
        m_work->engine.exec("analyze main");
        m_work->engine.exec("commit");
    });
}

} // namespace dbaccess
