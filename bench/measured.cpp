// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "bench/measured.h"

#include "bench/table.h"
#include "db/basdatabase.h"
#include "db/bastovarin.h"
#include "platform/access/dialect.h"

namespace {

/// Runs statements one by one; answers how many rows there were.
int runOurs(const QStringList &texts)
{
    int rows = 0;
    for (const QString &sql : texts) {
        if (sql.startsWith(u"select"))
            rows += int(basDatabase::OpenRecordset(sql)->rowCount());
        else
            basDatabase::ExecuteSQL(sql);
    }
    return rows;
}

int runBare(const BareEngine &bare, const QByteArrayList &statements)
{
    int rows = 0;
    for (const QByteArray &sql : statements)
        rows += int(bare.fetch(sql).size());
    return rows;
}

/// The statements that an action runs, in the words of the engine.
QByteArrayList statementsOf(const timing::Action &action)
{
    // The columns of the searches that db/schema.sql orders by the collation.
    const QSet<QString> texts {QStringLiteral("name_desc"), QStringLiteral("org_desc"),
                               QStringLiteral("meaning_name")};
    QByteArrayList statements;
    basDatabase::WatchStatements([&](const QString &sql) {
        statements.append(dbaccess::translateStatement(sql, texts).sql.toUtf8());
    });
    action();
    basDatabase::WatchStatements({});
    return statements;
}

} // namespace

Measured::Measured(Table &table, int names)
    : m_table(table), m_names(names), m_bare(basTovarin::ProgramFolder() % u"/Tovarin.mdb")
{
    m_bare.makePrivate("tbltemp");
}

void Measured::statements(const statements::Pair &pair) const
{
    const int runs = m_names > 100000 ? 15 : 41;
    if (runOurs(pair.ours) != runBare(m_bare, pair.bare))
        qFatal("\"%s\": the bare engine finds other rows", qPrintable(pair.name));
    const auto [ours, theirs] = timing::mediansOf(
        runs, [&] { runOurs(pair.ours); }, [&] { runBare(m_bare, pair.bare); });
    m_table.add(pair.name, m_names, {ours, theirs});
}

void Measured::action(const char *name, int runs, const timing::Action &action,
                      const timing::Action &before) const
{
    before();
    const QByteArrayList statements = statementsOf(action);
    const auto [ours, theirs] = timing::mediansOf(
        runs, action, [&] { runBare(m_bare, statements); }, before);
    m_table.add(QString::fromLatin1(name), m_names, {ours, theirs});
}
