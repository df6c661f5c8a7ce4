// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "db/basdatabase.h"
#include "platform/access/collation.h"
#include "platform/access/connection.h"
#include "platform/access/engineerror.h"
#include "platform/access/likepattern.h"
#include "platform/access/sqltokens.h"
#include "tests/support/brokendisks.h"
#include "tests/support/sampledatabase.h"

#include <QFile>
#include <QTest>

#include <sqlite3.h>

#include <array>
#include <optional>
#include <random>
#include <set>

using dbaccess::Connection;
using dbaccess::EngineError;
using Reason = EngineError::Reason;

namespace {

std::vector<dictionary::Entry> someEntries()
{
    return support::entries({"Anna|G|Hebrew|grace", "Élodie|G|French|riches",
                             "O'Neil|B|Irish|champion", "Elton|B|English|from a place name",
                             "Noah|B|Hebrew|rest"});
}

QString goodText()
{
    return basDatabase::ConnectionText(support::samplePassword());
}

Reason reasonOf(const std::function<void()> &action)
{
    try {
        action();
    } catch (const EngineError &error) {
        if (error.message().isEmpty())
            qFatal("an error without a message");
        return error.reason();
    }
    qFatal("no error");
}

/// Open on the sample database made last.
class Opened : public Connection
{
public:
    Opened() { open(goodText()); }

    void run(const char *sql) { execute(QString::fromUtf8(sql)); }
    Reason refusal(const char *sql)
    {
        return reasonOf([&] { run(sql); });
    }
    /// The first field of all rows, joined by blanks.
    QByteArray column(const QString &sql)
    {
        QStringList texts;
        for (dbaccess::Recordset rows = openRecordset(sql); !rows.isAtEnd(); rows.moveNext())
            texts.append(rows.text(0));
        return texts.join(u' ').toUtf8();
    }
    QByteArray column(const char *sql) { return column(QString::fromUtf8(sql)); }
};

/// Runs statements past the program, with a "tovarin" order that is that of bytes backwards.
void runInForeignOrder(const QString &file, const char *sql)
{
    sqlite3 *handle = nullptr;
    sqlite3_open(qPrintable(file), &handle);
    const auto backwards = [](void *, int lengthA, const void *a, int lengthB, const void *b) {
        const int order = std::memcmp(a, b, static_cast<std::size_t>(qMin(lengthA, lengthB)));
        return order != 0 ? -order : lengthB - lengthA;
    };
    sqlite3_create_collation_v2(handle, dbaccess::collationName, SQLITE_UTF8, nullptr, backwards,
                                nullptr);
    if (sqlite3_exec(handle, sql, nullptr, nullptr, nullptr) != SQLITE_OK)
        qFatal("%s", sqlite3_errmsg(handle));
    sqlite3_close(handle);
}

} // namespace

class TestConnection : public QObject
{
    Q_OBJECT

private:
    std::optional<support::SampleDatabase> m_sample;

    QString file(const char *name) const { return m_sample->file(QLatin1String(name)); }

private Q_SLOTS:
    void init() { m_sample.emplace(someEntries()); }

    void open_refusesWithItsReason()
    {
        support::writeFile(file("text.mdb"), QByteArray(5000, 'x'));
        support::writeFile(file("empty.mdb"), {});
        runInForeignOrder(file("foreign.mdb"), "create table t(a)");
        for (const auto &[good, bad, reason] :
             {std::tuple("DBQ=", "nonsense", Reason::ConnectionString),
              {"Microsoft Access", "Other", Reason::UnknownDriver},
              {"Tovarin.mdb", "None.mdb", Reason::MissingFile},
              {"Tovarin.mdb", "text.mdb", Reason::NotADatabase},
              {"Tovarin.mdb", "empty.mdb", Reason::NotADatabase},
              {"Tovarin.mdb", "foreign.mdb", Reason::NotADatabase},
              {"PWD=sesame", "PWD=Sesame", Reason::AccessDenied},
              {"UID=admin", "UID=root", Reason::AccessDenied}}) {
            const QString text = goodText().replace(QLatin1String(good), QLatin1String(bad));
            Connection connection;
            QVERIFY2(reasonOf([&] { connection.open(text); }) == reason, bad);
            QVERIFY2(!connection.isOpen(), bad);
        }
        QVERIFY(!QFile::exists(file("None.mdb")));
    }

    void statements_areRefusedWithTheirReason()
    {
        Opened connection;
        for (const auto &[sql, reason] :
             {std::pair("selekt 1", Reason::Syntax),
              {"select * from tblmaster where name_desc = 'O'Neil'", Reason::Syntax},
              {"select * from tblmaster where name_desc = 'x", Reason::Syntax},
              {"select * from", Reason::Syntax},
              {"select * from tblnone", Reason::UnknownTable},
              {"select none from tblmaster", Reason::UnknownColumn},
              {"insert into tbltemp(none) values('x')", Reason::UnknownColumn},
              {"select 'x' order by 1 collate none", Reason::NotADatabase}})
            QVERIFY2(connection.refusal(sql) == reason, sql);

        connection.run("pragma max_page_count = 1");
        QCOMPARE(connection.refusal("insert into tbltemp(name_desc) values(hex(zeroblob(99999)))"),
                 Reason::DiskFull);
        QCOMPARE(connection.column("select count(*) from tbltemp"), "0");

        Opened other;
        other.run("pragma busy_timeout = 1");
        connection.run("begin immediate");
        QCOMPARE(other.refusal("delete from tbltemp"), Reason::Locked);
        connection.run("rollback");
        other.run("delete from tbltemp");
        other.close();
        QCOMPARE(other.refusal("select 1"), Reason::NotOpen);
    }

    void privateTable_isSeenByItsConnectionAlone()
    {
        const char *names = "select name_desc from tbltemp order by name_desc";
        Opened connection;
        Opened other;
        other.run("insert into tbltemp(name_desc) values('Noah')");
        connection.makePrivate(QStringLiteral("tbltemp"));
        connection.run("INSERT INTO tbltemp select top 2 name_desc, name_orgid, name_sex, "
                       "name_mid, name_first, name_select from tblmaster order by name_desc ");
        // Its texts compare as in the file.
        connection.run("update tbltemp set name_desc = 'anna' where name_desc = 'ANNA'");
        QCOMPARE(connection.column(names), "anna Élodie");
        QCOMPARE(other.column(names), "Noah");
        connection.makePrivate(QStringLiteral("tblnone"));
        QCOMPARE(connection.refusal("delete from tblnone"), Reason::UnknownTable);
        other.close();
        QCOMPARE(reasonOf([&] { other.makePrivate(QStringLiteral("tbltemp")); }), Reason::NotOpen);
    }

    void readOnlyFile_canBeReadButNotWritten()
    {
        const support::ReadOnlyFolder readOnly(m_sample->folder());
        Opened connection;
        QCOMPARE(connection.column("select count(*) from tblmaster"), "5");
        QCOMPARE(connection.refusal("update tblmaster set name_select = 'Y'"), Reason::ReadOnly);
    }

    void recordset_readsFieldsByPlaceAndName()
    {
        Opened connection;
        dbaccess::Recordset rows = connection.openRecordset(QStringLiteral(
            "SELECT top 1 Name_Desc, null as missing, '' as empty FROM TBLMASTER where name_desc = "
            "'ANNA' "));
        QCOMPARE(rows.text(0), QStringLiteral("Anna"));
        QCOMPARE(rows.text(u"NAME_DESC"), QStringLiteral("Anna"));
        QVERIFY(!rows.field(u"missing").has_value());
        QVERIFY(rows.field(u"empty").has_value());
        QVERIFY_THROWS_EXCEPTION(EngineError, rows.field(u"other"));
        QVERIFY_THROWS_EXCEPTION(EngineError, rows.field(qsizetype(3)));
        rows.moveNext();
        QVERIFY(rows.isAtEnd());
        QVERIFY_THROWS_EXCEPTION(EngineError, rows.field(qsizetype(0)));
        // Nothing stays locked behind an open recordset.
        connection.run("delete from tblmaster");
        QCOMPARE(connection.column("select top 0 * from tblorg"), "");
    }

    void selectInto_makesATableThatComparesAlike()
    {
        Opened connection;
        connection.run("select name_desc, name_sex, 'X' as extra into copy from tblmaster where "
                       "name_sex = 'G'");
        QCOMPARE(connection.column("select name_desc from copy where name_desc = 'élodie' and "
                                   "extra = 'x' and name_sex <> 'g'"),
                 "Élodie");
        QVERIFY_THROWS_EXCEPTION(EngineError,
                                 connection.run("select name_desc into copy from tblmaster"));
        connection.run("drop table copy");
    }

    void keysAndPatterns_findWhatAPlainFilterFinds()
    {
        std::mt19937 random(4711);
        // Of so few letters that many are alike but for case and accents.
        const auto randomName = [&random, letters = QStringLiteral("aAáeÉ'bæ")] {
            QString name;
            for (auto length = 1 + random() % 3; length > 0; --length)
                name += letters[qsizetype(random() % 8)];
            return name;
        };
        const auto before = [](const dictionary::Entry &a, const dictionary::Entry &b) {
            const int names = dbaccess::compareTexts(a.name, b.name);
            return names != 0 ? names < 0 : std::tie(a.sex, a.origin) < std::tie(b.sex, b.origin);
        };
        std::set<dictionary::Entry, decltype(before)> sorted(before);
        while (sorted.size() < 400)
            sorted.insert({randomName(), random() % 2 ? u'B' : u'G', QString::number(random() % 5),
                           QStringLiteral("m")});
        m_sample.emplace(std::vector(sorted.begin(), sorted.end()));
        Opened connection;

        for (int round = 0; round < 400; ++round) {
            const QString key = randomName();
            const QChar sex = random() % 2 ? u'B' : u'G';
            const int direction = random() % 2 ? 1 : -1;
            const QString pattern = (random() % 3 ? randomName() : QString())
                                    % QLatin1String(std::array {"%", "_", "_%", ""}[random() % 4]);
            const dbaccess::LikePattern like(pattern.toStdString());
            QStringList expected;
            for (const dictionary::Entry &entry : sorted) {
                const int names = dbaccess::compareTexts(entry.name, key);
                const int order = names != 0 ? names : entry.sex.unicode() - sex.unicode();
                if (order * direction > 0 && like.matches(entry.name.toStdString()))
                    expected.append(entry.name % entry.sex % entry.origin);
            }
            const QString sql =
                QStringLiteral("select name_desc || name_sex || org_desc from tblmaster, tblorg "
                               "where name_orgid = org_id and name_desc like %1 and ((name_desc %2 "
                               "%3) or (name_desc = %3 and name_sex %2 '%4')) order by name_desc, "
                               "name_sex, org_desc")
                    .arg(dbaccess::sqlLiteral(pattern), direction > 0 ? u">" : u"<",
                         dbaccess::sqlLiteral(key), sex);
            QCOMPARE(connection.column(sql), expected.join(u' ').toUtf8());
        }
    }

    void pageQuery_readsStraightOffItsIndex()
    {
        Opened connection;
        const QString query = QStringLiteral("explain query plan select top 100 * from tblmaster "
                                             "where %1 order by name_desc, name_sex");
        for (const auto &[condition, bounds] :
             {std::pair("((name_desc > 'An') or (name_desc = 'An' and name_sex > 'G'))",
                        "((name_desc,name_sex)>(?,?))"),
              {"name_desc like 'An%'", "(name_desc>? AND name_desc<?)"},
              {"name_desc like 'A%' and ((name_desc < 'An') or (name_desc = 'An' and name_sex < "
               "'G'))",
               "(name_desc>? AND (name_desc,name_sex)<(?,?))"}})
            QCOMPARE(connection.openRecordset(query.arg(QLatin1String(condition))).text(u"detail"),
                     u"SEARCH tblmaster USING INDEX master_page " % QLatin1String(bounds));
    }

    void fileOfAnotherOrder_isReindexedWhenOpened()
    {
        runInForeignOrder(
            file("Tovarin.mdb"),
            "reindex tovarin; update sys_properties set content = 'old' where property = "
            "'collation'");
        for (int opening = 0; opening < 2; ++opening) {
            Opened connection;
            for (const dictionary::Entry &entry : someEntries())
                QCOMPARE(connection.column(u"select name_desc from tblmaster where name_desc = "
                                           % dbaccess::sqlLiteral(entry.name.toUpper())),
                         entry.name.toUtf8());
            QCOMPARE(connection.column("pragma integrity_check"), "ok");
        }
    }
};

QTEST_GUILESS_MAIN(TestConnection)
#include "test_connection.moc"
