// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/access/connectionstring.h"
#include "platform/access/dialect.h"
#include "platform/access/engineerror.h"

#include <QDir>
#include <QTest>

using dbaccess::EngineError;

class TestDialect : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void statement_becomesTheEngines_data()
    {
        QTest::addColumn<QString>("statement");
        QTest::addColumn<QString>("sql");
        const auto same = [](const char *statement) {
            QTest::addRow("%s", statement)
                << QString::fromUtf8(statement) << QString::fromUtf8(statement);
        };
        const auto row = [](const char *statement, const char *sql) {
            QTest::addRow("%s", statement)
                << QString::fromUtf8(statement) << QString::fromUtf8(sql);
        };
        row("select top 100 a from t order by a ", "select  a from t order by a limit 100 + 0 ");
        row("SELECT TOP 0 a FROM t", "SELECT  a FROM t limit 0 + 0");
        row("insert into t select top 5 a from u where a = 'x' ",
            "insert into t select  a from u where a = 'x' limit 5 + 0 ");
        row("select a from (select top 3 a from t) where a = 'x'",
            "select a from (select  a from t limit 3 + 0) where a = 'x'");
        // Keywords inside a literal, or as names, are left alone.
        same("select a from t where a = 'select top 5 x into y where b like ''q%'' '");
        same("select top from t");
        same("select a from t where a = 'it''s'");
        row("select a from t where a = \"it's\"", "select a from t where a = 'it''s'");
        row("select 'a'\"b\"'c'", "select 'a' 'b' 'c'");
        // A page's key is a comparison of rows.
        row("select a from t where k = 'm' and ((n > 'd')  or (n = 'd' and s > 'B') ) order by n",
            "select a from t where k = 'm' and (n, s) > ('d', 'B') order by n");
        row("select a from t where ((n < 'O''Neil') or (n = \"O'Neil\" and t.s < 'B') or "
            "(N = 'O''Neil' and t.s = 'B' and o < 'x'))",
            "select a from t where (n, t.s, o) < ('O''Neil', 'B', 'x')");
        same("select a from t where ((n > 'd') or (n = 'e' and s > 'B'))");
        same("select a from t where ((n > 'd') or (n = 'd' and s < 'B'))");
        same("select a from t where ((n > 'd') or (n = 'd' and s > 'B') or (n = 'd' and o > 'x'))");
        same("select a from t where ((n > 'd') or (s = 'B' and n > 'd'))");
        same("select a from t where ((n >= 'd') or (n = 'd' and s >= 'B'))");
        same("select a from t where ((n > 'd') or (s > 'B'))");
        same("select a from t where (n > 'd') or (n = 'd' and s > 'B')");
        same("select a from t where not ((n > 'd') or (n = 'd' and s > 'B'))");
        // The key bounds what the pattern would.
        row("select a from t where n like 'M%' and ((n > 'ma') or (n = 'ma' and s > 'B'))",
            "select a from t where n < 'M\U0010ffff' and (n, s) > ('ma', 'B')");
        row("select a from t where n like 'M%' and ((n < 'ma') or (n = 'ma' and s < 'B'))",
            "select a from t where n >= 'M' and (n, s) < ('ma', 'B')");
        row("select a from t where n like 'M%' and ((n > 'la') or (n = 'la' and s > 'B'))",
            "select a from t where n >= 'M' and n < 'M\U0010ffff' and (n, s) > ('la', 'B')");
        row("select a from t where n like 'M%' and ((o > 'ma') or (o = 'ma' and s > 'B'))",
            "select a from t where n >= 'M' and n < 'M\U0010ffff' and (o, s) > ('ma', 'B')");
        row("select a from t where ((n > 'ma') or (n = 'ma' and s > 'B')) and k = '1' except "
            "select top 2 a from t where k = '2' and n like 'M%' intersect select b from u",
            "select a from t where (n, s) > ('ma', 'B') and k = '1' except select  a from t "
            "where k = '2' and n >= 'M' and n < 'M\U0010ffff' limit 2 + 0 intersect select b from "
            "u");
        // A pattern's fixed beginning is a range, on text columns only.
        row("select a from t where n like 'An%' and k = 'x'",
            "select a from t where n >= 'An' and n < 'An\U0010ffff' and k = 'x'");
        row(R"(select a from t where n like "An%" and k = "x")",
            "select a from t where n >= 'An' and n < 'An\U0010ffff' and k = 'x'");
        row("select a from t where n like 'Än%'",
            "select a from t where n like 'Än%' and n >= 'Än' and n < 'Än\U0010ffff' ");
        row("select a from t where n like 'An%a'",
            "select a from t where n like 'An%a' and n >= 'An' and n < 'An\U0010ffff' ");
        row("select top 2 a from t where t.n like 'O''N_'",
            "select  a from t where t.n like 'O''N_' and t.n >= 'O''N' and t.n < "
            "'O''N\U0010ffff'  limit 2 + 0");
        same("select a from t where n like '%an%'");
        same("select a from t where n like '\u0301An%'");
        same("select a from t where k like 'An%'");
        same("select a from t where n not like 'An%'");
        same("select a from t where n like 'An%' or k = '1'");
        same("update t set n = 'x' where k = '1';");
    }

    void statement_becomesTheEngines()
    {
        QFETCH(QString, statement);
        QFETCH(QString, sql);
        const dbaccess::Translation translation =
            dbaccess::translateStatement(statement, {QStringLiteral("n")});
        QCOMPARE(translation.sql, sql);
        QVERIFY(translation.intoTable.isEmpty());
    }

    void selectInto_namesItsTable()
    {
        const dbaccess::Translation translation = dbaccess::translateStatement(
            QStringLiteral("select a, b into copy from t where a = 'into x from'"), {});
        QCOMPARE(translation.intoTable, QStringLiteral("copy"));
        QCOMPARE(translation.sql, QStringLiteral("select a, b  from t where a = 'into x from'"));
    }

    void unreadableStatement_isRefused()
    {
        for (const QString &statement :
             {QStringLiteral("delete from t; drop table t"),
              QString(QStringLiteral("select 1") % QChar(0)),
              QStringLiteral("select a from t where a = \"x"), QStringLiteral("select 'it''s"),
              QStringLiteral("select '")})
            QVERIFY_THROWS_EXCEPTION(EngineError, dbaccess::translateStatement(statement, {}));
        dbaccess::translateStatement(QStringLiteral("select a from t where a = ';x'; "), {});
    }

    void connectionString_isReadInItsOrder()
    {
        const dbaccess::ConnectionString expected {QStringLiteral("/a;b/c.mdb"),
                                                   QStringLiteral("Some Driver (*.mdb)"),
                                                   QStringLiteral("admin"), QStringLiteral("p;w=")};
        const auto parsed = [](const char *text) {
            dbaccess::ConnectionString result =
                dbaccess::parseConnectionString(QString::fromLatin1(text));
            result.file = QDir::fromNativeSeparators(result.file);
            return result;
        };
        QVERIFY(parsed("DBQ=/a;b\\c.mdb;DRIVER={Some Driver (*.mdb)};UID=admin;PWD=p;w=;")
                == expected);
        QVERIFY(parsed("dbq=/a;b\\c.mdb;Driver={Some Driver (*.mdb)};uid=admin;pwd=p;w=")
                == expected);
        for (const QString &text :
             {QString(), QStringLiteral("DBQ=x"), QStringLiteral("DRIVER={d};DBQ=x;UID=a;PWD=b;"),
              QStringLiteral("DBQ=x;DRIVER=d;UID=a;PWD=b;"),
              QStringLiteral("DBQ=x;DRIVER={d};PWD=b;UID=a;")})
            QVERIFY_THROWS_EXCEPTION(EngineError, dbaccess::parseConnectionString(text));
    }
};

QTEST_GUILESS_MAIN(TestDialect)
#include "test_dialect.moc"
