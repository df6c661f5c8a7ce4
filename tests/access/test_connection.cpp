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

QStringList column(Connection &connection, const QString &sql)
{
    QStringList texts;
    for (dbaccess::Recordset rows = connection.openRecordset(sql); !rows.isAtEnd(); rows.moveNext())
        texts.append(rows.text(0));
    return texts;
}

/// A raw connection of the engine, whose "tovarin" order is that of plain bytes backwards.
class ForeignCollation
{
public:
    explicit ForeignCollation(const QString &file)
    {
        sqlite3_open(qPrintable(file), &m_handle);
        sqlite3_create_collation_v2(
            m_handle, dbaccess::collationName, SQLITE_UTF8, nullptr,
            [](void *, int lengthA, const void *a, int lengthB, const void *b) {
                const int order =
                    std::memcmp(a, b, static_cast<std::size_t>(qMin(lengthA, lengthB)));
                return order != 0 ? -order : lengthB - lengthA;
            },
            nullptr);
    }
    ~ForeignCollation() { sqlite3_close(m_handle); }
    Q_DISABLE_COPY_MOVE(ForeignCollation)

    void execute(const char *sql)
    {
        if (sqlite3_exec(m_handle, sql, nullptr, nullptr, nullptr) != SQLITE_OK)
            qFatal("%s", sqlite3_errmsg(m_handle));
    }

private:
    sqlite3 *m_handle = nullptr;
};

/// A random name of few letters, so that many are alike but for case and accents.
QString randomName(std::mt19937 &random)
{
    static const QStringList letters = {
        QStringLiteral("a"), QStringLiteral("A"), QStringLiteral("á"), QStringLiteral("e"),
        QStringLiteral("É"), QStringLiteral("'"), QStringLiteral("b"), QStringLiteral("æ")};
    QString name;
    for (auto length = 1 + random() % 3; length > 0; --length)
        name += letters[qsizetype(random() % std::size_t(letters.size()))];
    return name;
}

} // namespace

class TestConnection : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void open_refusesWithItsReason_data()
    {
        QTest::addColumn<QString>("connectionString"); // %1 is the folder
        QTest::addColumn<int>("reason");
        const auto row = [](const char *text, Reason reason) {
            QTest::addRow("%s", text) << QString::fromLatin1(text) << static_cast<int>(reason);
        };
        row("nonsense%1", Reason::ConnectionString);
        row("DBQ=%1\\Tovarin.mdb;DRIVER={Other (*.x)};UID=admin;PWD=sesame;",
            Reason::UnknownDriver);
        row("DBQ=%1\\None.mdb;DRIVER={Microsoft Access Driver (*.mdb)};UID=admin;PWD=sesame;",
            Reason::MissingFile);
        row("DBQ=%1\\text.mdb;DRIVER={Microsoft Access Driver (*.mdb)};UID=admin;PWD=sesame;",
            Reason::NotADatabase);
        row("DBQ=%1\\empty.mdb;DRIVER={Microsoft Access Driver (*.mdb)};UID=admin;PWD=sesame;",
            Reason::NotADatabase);
        row("DBQ=%1\\foreign.mdb;DRIVER={Microsoft Access Driver (*.mdb)};UID=admin;PWD=sesame;",
            Reason::NotADatabase);
        row("DBQ=%1\\Tovarin.mdb;DRIVER={Microsoft Access Driver (*.mdb)};UID=admin;PWD=Sesame;",
            Reason::AccessDenied);
        row("DBQ=%1\\Tovarin.mdb;DRIVER={Microsoft Access Driver (*.mdb)};UID=root;PWD=sesame;",
            Reason::AccessDenied);
    }

    void open_refusesWithItsReason()
    {
        QFETCH(QString, connectionString);
        QFETCH(int, reason);
        const support::SampleDatabase sample(someEntries());
        for (const auto &[name, content] :
             {std::pair("text.mdb", QByteArray(5000, 'x')), std::pair("empty.mdb", QByteArray())}) {
            QFile file(sample.file(QString::fromLatin1(name)));
            QVERIFY(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
        }
        ForeignCollation(sample.file(QStringLiteral("foreign.mdb"))).execute("create table t(a)");
        Connection connection;
        QCOMPARE(static_cast<int>(
                     reasonOf([&] { connection.open(connectionString.arg(sample.folder())); })),
                 reason);
        QVERIFY(!connection.isOpen());
        QVERIFY(!QFile::exists(sample.file(QStringLiteral("None.mdb"))));
    }

    void statements_areRefusedWithTheirReason()
    {
        const support::SampleDatabase sample(someEntries());
        Connection connection;
        const QString good = basDatabase::ConnectionText(support::samplePassword());
        const auto reason = [&](const char *sql) {
            return reasonOf([&] { connection.execute(QString::fromLatin1(sql)); });
        };
        QCOMPARE(reason("select 1"), Reason::NotOpen);
        connection.open(good);
        QCOMPARE(reason("selekt 1"), Reason::Syntax);
        QCOMPARE(reason("select * from tblmaster where name_desc = 'O'Neil'"), Reason::Syntax);
        QCOMPARE(reason("select * from tblmaster where name_desc = 'x"), Reason::Syntax);
        QCOMPARE(reason("select * from"), Reason::Syntax);
        QCOMPARE(reason("select * from tblnone"), Reason::UnknownTable);
        QCOMPARE(reason("select none from tblmaster"), Reason::UnknownColumn);
        QCOMPARE(reason("insert into tbltemp(none) values('x')"), Reason::UnknownColumn);

        connection.execute(QStringLiteral("pragma max_page_count = 1"));
        QCOMPARE(reason("insert into tbltemp select a.name_desc, a.name_desc, a.name_desc, "
                        "a.name_desc, a.name_desc, a.name_desc from tblmaster a, tblmaster b, "
                        "tblmaster c, tblmaster d, tblmaster e"),
                 Reason::DiskFull);
        QCOMPARE(column(connection, QStringLiteral("select count(*) from tbltemp")),
                 QStringList(QStringLiteral("0")));

        Connection other;
        other.open(good);
        other.execute(QStringLiteral("pragma busy_timeout = 1"));
        connection.execute(QStringLiteral("begin immediate"));
        QCOMPARE(reasonOf([&] { other.execute(QStringLiteral("delete from tbltemp")); }),
                 Reason::Locked);
        connection.execute(QStringLiteral("rollback"));
        other.execute(QStringLiteral("delete from tbltemp"));
    }

    void privateTable_isSeenByItsConnectionAlone()
    {
        const support::SampleDatabase sample(someEntries());
        const QString text = basDatabase::ConnectionText(support::samplePassword());
        const QString names = QStringLiteral("select name_desc from tbltemp order by name_desc");
        const QString insert =
            QStringLiteral("INSERT INTO tbltemp select top 2 name_desc, name_orgid, name_sex, "
                           "name_mid, name_first, name_select from tblmaster order by name_desc ");
        Connection connection;
        Connection other;
        QCOMPARE(reasonOf([&] { connection.makePrivate(QStringLiteral("tbltemp")); }),
                 Reason::NotOpen);
        connection.open(text);
        other.open(text);
        other.execute(insert % u"desc");
        connection.makePrivate(QStringLiteral("tbltemp"));
        connection.execute(insert);
        // Its texts compare as in the file.
        connection.execute(QStringLiteral("update tbltemp set name_desc = 'anna' where "
                                          "name_desc = 'ANNA'"));
        QCOMPARE(column(connection, names),
                 QStringList({QStringLiteral("anna"), QStringLiteral("Élodie")}));
        QCOMPARE(column(other, names),
                 QStringList({QStringLiteral("Noah"), QStringLiteral("O'Neil")}));
        QCOMPARE(reasonOf([&] { connection.makePrivate(QStringLiteral("tblnone")); }),
                 Reason::UnknownTable);
    }

    void readOnlyFile_canBeReadButNotWritten()
    {
        const support::SampleDatabase sample(someEntries());
        const support::ReadOnlyFolder readOnly(sample.folder());
        Connection connection;
        connection.open(basDatabase::ConnectionText(support::samplePassword()));
        QCOMPARE(column(connection, QStringLiteral("select count(*) from tblmaster")),
                 QStringList(QStringLiteral("5")));
        QCOMPARE(reasonOf([&] {
                     connection.execute(QStringLiteral("update tblmaster set name_select = 'Y'"));
                 }),
                 Reason::ReadOnly);
    }

    void recordset_readsFieldsByPlaceAndName()
    {
        const support::SampleDatabase sample(someEntries());
        Connection connection;
        connection.open(basDatabase::ConnectionText(support::samplePassword()));
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
        connection.execute(QStringLiteral("delete from tblmaster"));
        QCOMPARE(connection.openRecordset(QStringLiteral("select top 0 * from tblorg")).rowCount(),
                 0);
    }

    void selectInto_makesATableThatComparesAlike()
    {
        const support::SampleDatabase sample(someEntries());
        Connection connection;
        connection.open(basDatabase::ConnectionText(support::samplePassword()));
        connection.execute(QStringLiteral("select name_desc, name_sex, 'X' as extra into copy from "
                                          "tblmaster where name_sex = 'G'"));
        QCOMPARE(column(connection,
                        QStringLiteral("select name_desc from copy where name_desc = 'élodie' and "
                                       "extra = 'x' and name_sex <> 'g'")),
                 QStringList(QStringLiteral("Élodie")));
        QVERIFY_THROWS_EXCEPTION(EngineError, connection.execute(QStringLiteral(
                                                  "select name_desc into copy from tblmaster")));
        connection.execute(QStringLiteral("drop table copy"));
    }

    void keysAndPatterns_findWhatAPlainFilterFinds()
    {
        std::mt19937 random(4711);
        const auto before = [](const dictionary::Entry &a, const dictionary::Entry &b) {
            const int names = dbaccess::compareTexts(a.name, b.name);
            return names != 0 ? names < 0 : std::tie(a.sex, a.origin) < std::tie(b.sex, b.origin);
        };
        std::set<dictionary::Entry, decltype(before)> sorted(before);
        while (sorted.size() < 400)
            sorted.insert({randomName(random), random() % 2 ? u'B' : u'G',
                           QString::number(random() % 5), QStringLiteral("m")});
        const support::SampleDatabase sample({sorted.begin(), sorted.end()});
        Connection connection;
        connection.open(basDatabase::ConnectionText(support::samplePassword()));

        for (int round = 0; round < 400; ++round) {
            const QString key = randomName(random);
            const QChar sex = random() % 2 ? u'B' : u'G';
            const bool forward = random() % 2;
            QString pattern = random() % 3 ? randomName(random) : QString();
            pattern += QStringList({QStringLiteral("%"), QStringLiteral("_"), QStringLiteral("_%"),
                                    QString()})[qsizetype(random() % 4)];
            QStringList expected;
            for (const dictionary::Entry &entry : sorted) {
                const int order = dbaccess::compareTexts(entry.name, key);
                const bool beyond = forward ? order > 0 || (order == 0 && entry.sex > sex)
                                            : order < 0 || (order == 0 && entry.sex < sex);
                const std::string name = entry.name.toStdString();
                if (beyond && dbaccess::LikePattern(pattern.toStdString()).matches(name))
                    expected.append(entry.name % entry.sex % entry.origin);
            }
            const QString d = dbaccess::sqlLiteral(key);
            const QString sql =
                QStringLiteral("select name_desc || name_sex || org_desc from tblmaster, tblorg "
                               "where name_orgid = org_id and name_desc like %1 and ((name_desc %2 "
                               "%3) or (name_desc = %3 and name_sex %2 '%4')) order by name_desc, "
                               "name_sex, org_desc")
                    .arg(dbaccess::sqlLiteral(pattern), forward ? u">" : u"<", d, sex);
            QCOMPARE(column(connection, sql), expected);
        }
    }

    void pageQuery_readsStraightOffItsIndex()
    {
        const support::SampleDatabase sample(someEntries());
        Connection connection;
        connection.open(basDatabase::ConnectionText(support::samplePassword()));
        for (const auto &[condition, bounds] :
             {std::pair(
                  QStringLiteral("((name_desc > 'An') or (name_desc = 'An' and name_sex > 'G'))"),
                  QStringLiteral("((name_desc,name_sex)>(?,?))")),
              {QStringLiteral("name_desc like 'An%'"),
               QStringLiteral("(name_desc>? AND name_desc<?)")},
              {QStringLiteral("name_desc like 'A%' and ((name_desc < 'An') or (name_desc = 'An' "
                              "and name_sex < 'G'))"),
               QStringLiteral("(name_desc>? AND (name_desc,name_sex)<(?,?))")}}) {
            dbaccess::Recordset plan = connection.openRecordset(
                u"explain query plan select top 100 * from tblmaster where " % condition
                % u" order by name_desc, name_sex");
            QCOMPARE(plan.text(u"detail"), u"SEARCH tblmaster USING INDEX master_page " % bounds);
        }
    }

    void fileOfAnotherOrder_isReindexedWhenOpened()
    {
        const support::SampleDatabase sample(someEntries());
        ForeignCollation(sample.file(QStringLiteral("Tovarin.mdb")))
            .execute("reindex tovarin; update sys_properties set content = 'old' where property = "
                     "'collation'");
        for (int opening = 0; opening < 2; ++opening) {
            Connection connection;
            connection.open(basDatabase::ConnectionText(support::samplePassword()));
            for (const dictionary::Entry &entry : someEntries())
                QCOMPARE(column(connection, u"select name_desc from tblmaster where name_desc = "
                                                % dbaccess::sqlLiteral(entry.name.toUpper())),
                         QStringList(entry.name));
            QCOMPARE(column(connection, QStringLiteral("pragma integrity_check")),
                     QStringList(QStringLiteral("ok")));
        }
    }
};

QTEST_GUILESS_MAIN(TestConnection)
#include "test_connection.moc"
