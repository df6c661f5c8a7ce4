// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/access/connection.h"

#include "platform/access/collation.h"
#include "platform/access/dialect.h"
#include "platform/access/engineerror.h"
#include "platform/access/filestamp.h"
#include "platform/access/openedfile.h"

#include <SQLiteCpp/Column.h>
#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Savepoint.h>
#include <SQLiteCpp/Statement.h>
#include <sqlite3.h>

namespace dbaccess {

namespace {

QString quotedName(const QString &name)
{
    QString doubled = name;
    return u'"' % doubled.replace(u'"', QStringLiteral("\"\"")) % u'"';
}

/// The collation that a column of a table compares by, as the schema declares it.
std::string collationOf(SQLite::Database &database, const char *table, const char *column)
{
    const char *collation = nullptr;
    sqlite3_table_column_metadata(database.getHandle(), nullptr, table, column, nullptr, &collation,
                                  nullptr, nullptr, nullptr);
    return collation ? collation : std::string();
}

/// The columns of all tables by the way they compare, in lower case.
struct ColumnKinds
{
    QSet<QString> texts; ///< ordered by the dictionary's collation wherever they stand
    QSet<QString> keys;  ///< compared byte by byte in some table
};

ColumnKinds findColumnKinds(SQLite::Database &database)
{
    SQLite::Statement query(database,
                            "select t.name, c.name from sqlite_schema t, pragma_table_info(t.name) "
                            "c where t.type = 'table'");
    ColumnKinds kinds;
    while (query.executeStep()) {
        const std::string table = query.getColumn(0).getString();
        const std::string column = query.getColumn(1).getString();
        const bool isText = collationOf(database, table.c_str(), column.c_str()) == collationName;
        (isText ? kinds.texts : kinds.keys).insert(QString::fromStdString(column).toLower());
    }
    kinds.texts.subtract(kinds.keys);
    return kinds;
}

/// "name collate c" for each column of a query, so that a table made from it compares as the
/// tables it came from; what comes from no column is a text.
QString columnDefinitions(const SQLite::Statement &query, const ColumnKinds &kinds)
{
    QStringList definitions;
    for (int i = 0; i < query.getColumnCount(); ++i) {
        const QString origin = QString::fromUtf8(query.getColumnOriginName(i)).toLower();
        const QString collation = kinds.keys.contains(origin) ? QStringLiteral("binary")
                                                              : QString::fromLatin1(collationName);
        definitions.append(quotedName(QString::fromUtf8(query.getColumnName(i))) % u" text collate "
                           % collation);
    }
    return definitions.join(u", ");
}

} // namespace

struct Connection::Database
{
    explicit Database(const QString &connectionString)
        : opened(openFile(connectionString)), engine(*opened), columns(findColumnKinds(engine))
    {
    }

    std::unique_ptr<SQLite::Database> opened;
    SQLite::Database &engine;
    ColumnKinds columns;
};

Connection::Connection() = default;
Connection::~Connection() = default;

void Connection::open(const QString &connectionString)
{
    close();
    try {
        m_database = std::make_unique<Database>(connectionString);
    } catch (const SQLite::Exception &exception) {
        throw EngineError(exception);
    }
}

void Connection::close()
{
    m_database.reset();
}

Connection::Database &Connection::database(const QString &sql)
{
    if (m_observer)
        m_observer(sql);
    return openedDatabase();
}

Connection::Database &Connection::openedDatabase()
{
    if (!m_database)
        throw EngineError(EngineError::Reason::NotOpen,
                          QStringLiteral("The connection to the database is not open."));
    return *m_database;
}

Recordset Connection::openRecordset(const QString &sql)
{
    Database &opened = database(sql);
    const Translation translation = translateStatement(sql, opened.columns.texts);
    try {
        SQLite::Statement statement(opened.engine, translation.sql.toStdString());
        return Recordset(statement);
    } catch (const SQLite::Exception &exception) {
        throw EngineError(exception);
    }
}

void Connection::execute(const QString &sql)
{
    Database &opened = database(sql);
    const Translation translation = translateStatement(sql, opened.columns.texts);
    try {
        SQLite::Statement statement(opened.engine, translation.sql.toStdString());
        if (translation.intoTable.isEmpty()) {
            while (statement.executeStep()) { }
            return;
        }
        SQLite::Savepoint savepoint(opened.engine, "select_into");
        const QString columns = columnDefinitions(statement, opened.columns);
        const QString create = u"create table " % translation.intoTable % u'(' % columns % u')';
        opened.engine.exec(create.toStdString());
        const QString insert = u"insert into " % translation.intoTable % u' ' % translation.sql;
        opened.engine.exec(insert.toStdString());
        savepoint.release();
    } catch (const SQLite::Exception &exception) {
        throw EngineError(exception);
    }
}

void Connection::makePrivate(const QString &table)
{
    Database &opened = openedDatabase();
    const QString name = quotedName(table);
    try {
        if (!opened.engine.tableExists(table.toStdString()))
            return;
        const QString all = u"select * from main." % name;
        const SQLite::Statement columns(opened.engine, all.toStdString());
        const QString create =
            u"create temp table " % name % u'(' % columnDefinitions(columns, opened.columns) % u')';
        opened.engine.exec(create.toStdString());
    } catch (const SQLite::Exception &exception) {
        throw EngineError(exception);
    }
}

void Connection::setStatementObserver(std::function<void(const QString &)> observer)
{
    m_observer = std::move(observer);
}

} // namespace dbaccess
