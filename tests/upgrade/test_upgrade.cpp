// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

// What becomes of a user's names when a newer dictionary is put into the program's folder.

#include "db/basdatabase.h"
#include "db/bastovarin.h"
#include "tests/support/brokendisks.h"
#include "tests/support/faulttable.h"
#include "tests/support/sampledatabase.h"
#include "upgrade/programfolder.h"

#include <QDir>
#include <QProcess>
#include <QTest>

#include <random>

using upgrade::Outcome;

namespace {

/// The database of a folder, opened as the program does.
class Opened
{
public:
    explicit Opened(const QString &folder)
    {
        basTovarin::SetProgramFolder(folder);
        basDatabase::OpenDatabase();
    }
    ~Opened() { basDatabase::CloseDatabase(); }
    Opened(const Opened &) = delete;
    Opened &operator=(const Opened &) = delete;

    QStringList rows(const char *query) const { return support::table(QString::fromUtf8(query)); }
    QStringList ticked() const
    {
        return rows("select name_desc, name_sex, org_desc from tblmaster, tblorg where "
                    "name_orgid = org_id and name_select = 'Y' order by name_desc, name_sex");
    }
};

void run(const QString &folder, std::initializer_list<const char *> statements)
{
    const Opened database(folder);
    for (const char *statement : statements)
        basDatabase::ExecuteSQL(QString::fromUtf8(statement));
}

QStringList filesOf(const QString &folder)
{
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot,
                                  QDir::Name);
}

/// A folder that its user has worked in: ticks, a shortlist, a ranking and full names.
support::SampleDatabase usedFolder()
{
    support::SampleDatabase used(support::entries(
        {"Anna|G|Hebrew|grace, favour", "Anna|G|Greek|grace", "Anna|B|Frisian|eagle",
         "Bo|G|Danish|to live", "Mckenna|G|Scottish|son of the fair", "Noʻa|G|Hebrew|movement",
         "Odd|B|Norse|a point"}));
    run(used.folder(),
        {"update tblmaster set name_select = 'Y' where name_desc <> 'Anna' or name_sex = 'B'",
         "update tblmaster set name_select = 'Y' where name_mid = '1'",
         "insert into tblresult values('Odd', 'Norse', 'B', 'a point', 'O', 'Y')",
         "insert into tblresult values('Anna', 'Hebrew', 'G', 'grace, favour', 'A', 'Y')",
         "insert into tbltopn values('01', 'Odd', 'Norse', 'B', 'a point')",
         "insert into tblinitial values('Odd', 'O''Neil', null, '', 'O.O.')",
         "insert into tblinitial values('Anna', '', 'Ng', '', 'A.N.')"});
    return used;
}

/// The next edition: origins under other keys, another meaning, other capitals, no Odd, and Bo for
/// boys.
support::SampleDatabase newerFolder()
{
    return support::SampleDatabase(support::entries(
        {"Bo|B|Danish|to live", "Anna|B|Frisian|eagle", "Anna|G|Hebrew|grace", "Anna|G|Greek|grace",
         "McKenna|G|Scottish|son of the fair", "Noʻa|G|Hebrew|movement"}));
}

constexpr const char *userRows[] = {"select * from tblresult", "select * from tbltopn",
                                    "select * from tblinitial"};

} // namespace

class TestUpgrade : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void newerDictionary_keepsWhatTheUserHas()
    {
        const auto used = usedFolder();
        const auto newer = newerFolder();
        QList<QStringList> before;
        {
            const Opened database(used.folder());
            for (const char *query : userRows)
                before.append(database.rows(query));
        }
        const upgrade::Placement placement = upgrade::place(newer.folder(), used.folder());

        QVERIFY(placement.outcome == Outcome::CarriedOver);
        QCOMPARE(placement.carried.ticks, 4);
        const std::vector<upgrade::TickedName> gone {
            {QStringLiteral("Bo"), QStringLiteral("Danish"), QStringLiteral("G")},
            {QStringLiteral("Odd"), QStringLiteral("Norse"), QStringLiteral("B")}};
        QVERIFY(placement.carried.gone == gone);
        const QString names = QStringLiteral("\nBo (girl, Danish)\nOdd (boy, Norse)\n");
        const QString told = upgrade::describe(placement);
        QVERIFY2(told.contains(names), qPrintable(told));
        QVERIFY(support::readFile(placement.list).contains(names.toUtf8()));
        {
            const Opened database(used.folder());
            QCOMPARE(database.ticked().join(u' '),
                     QStringLiteral("Anna|B|Frisian Anna|G|Hebrew McKenna|G|Scottish "
                                    "Noʻa|G|Hebrew"));
            for (const char *query : userRows)
                QCOMPARE(database.rows(query), before.takeFirst());
            QCOMPARE(database.rows("select count(*) from tblmaster where name_select = 'N'"),
                     QStringList(QStringLiteral("2")));
            QCOMPARE(database.rows("pragma integrity_check"), QStringList(QStringLiteral("ok")));
            QVERIFY(database.rows("select idx from sqlite_stat1 where tbl = 'tblmaster'").size()
                    > 1);
        }
        QVERIFY(upgrade::place(newer.folder(), used.folder()).outcome == Outcome::Unchanged);

        // The backup is the file as it was: put in place, it is what it was.
        QVERIFY(QFile::remove(used.file(QStringLiteral("Tovarin.mdb"))));
        QVERIFY(QFile::copy(placement.backup, used.file(QStringLiteral("Tovarin.mdb"))));
        QCOMPARE(Opened(used.folder()).ticked().size(), 6);
        QCOMPARE(upgrade::place(newer.folder(), used.folder()).backup,
                 used.file(QStringLiteral("Tovarin-backup-2.mdb")));
    }

    void outcome_isThatOfWhatIsThere_data()
    {
        QTest::addColumn<QByteArray>("statement");
        QTest::addColumn<Outcome>("outcome");
        QTest::newRow("nothing") << QByteArray("delete from tblresult") << Outcome::New;
        QTest::newRow("a tick") << QByteArray("update tblmaster set name_select = 'Y'")
                                << Outcome::CarriedOver;
        QTest::newRow("a shortlist")
            << QByteArray("insert into tblresult(name_desc) values('A')") << Outcome::CarriedOver;
        QTest::newRow("a ranking")
            << QByteArray("insert into tbltopn(t10_id) values('01')") << Outcome::CarriedOver;
        QTest::newRow("a full name")
            << QByteArray("insert into tblinitial(init_first) values('A')") << Outcome::CarriedOver;
        QTest::newRow("a table is missing")
            << QByteArray("drop table tblinitial") << Outcome::KeptUnknown;
        QTest::newRow("from a program of the future")
            << QByteArray("pragma user_version = 99") << Outcome::KeptUnknown;
    }

    void outcome_isThatOfWhatIsThere()
    {
        QFETCH(QByteArray, statement);
        QFETCH(Outcome, outcome);
        const support::SampleDatabase used(support::entries({"Anna|G|Hebrew|grace"}));
        run(used.folder(), {statement.constData()});
        const QByteArray before = support::readFile(used.file(QStringLiteral("Tovarin.mdb")));
        const auto newer = newerFolder();
        const upgrade::Placement placement = upgrade::place(newer.folder(), used.folder());
        QVERIFY(placement.outcome == outcome);
        QCOMPARE(QFile::exists(placement.backup), outcome == Outcome::CarriedOver);
        if (outcome != Outcome::KeptUnknown)
            return;
        QCOMPARE(support::readFile(used.file(QStringLiteral("Tovarin.mdb"))), before);
        QVERIFY(!placement.problem.isEmpty());
        // The user may start afresh, and the old file is still there.
        QCOMPARE(support::readFile(upgrade::setDatabaseAside(used.folder())), before);
        QVERIFY(upgrade::place(newer.folder(), used.folder()).outcome == Outcome::New);
        QCOMPARE(Opened(used.folder()).rows("select count(*) from tblmaster"),
                 QStringList(QStringLiteral("6")));
    }

    void emptyFolder_getsEverythingThatShips()
    {
        const auto shipped = newerFolder();
        support::writeFile(shipped.file(upgrade::executableName()), "a program");
        support::writeFile(shipped.file(QStringLiteral("help.htm")), "a page");
        const QTemporaryDir folder;
        const QString program = folder.filePath(QStringLiteral("its/own"));
        QVERIFY(upgrade::place(shipped.folder(), program).outcome == Outcome::New);
        QCOMPARE(filesOf(program), filesOf(shipped.folder()));
        QVERIFY(QFileInfo(program % u'/' % upgrade::executableName()).isExecutable());
        QVERIFY(!QFileInfo(program % u"/help.htm").isExecutable());

        // A page that was spoilt, a half-written file of a start that was killed, a lost key file.
        run(program, {"update tblmaster set name_select = 'Y'"});
        support::writeFile(program % u"/help.htm", "a rage");
        QVERIFY(QDir(program).mkdir(QStringLiteral("Tovarin.new")));
        support::writeFile(program % u"/Tovarin.new/help.htm", "a p");
        support::writeFile(program % u"/Tovarin.mdb.backup", "a copy of the user's own");
        QVERIFY(QFile::remove(program % u"/tovarin.dll"));
        QVERIFY(upgrade::place(shipped.folder(), program).outcome == Outcome::Unchanged);
        QVERIFY(QFile::remove(program % u"/Tovarin.mdb.backup"));
        QCOMPARE(filesOf(program), filesOf(shipped.folder()));
#ifndef Q_OS_WIN
        // A link in the place of what a killed start leaves.
        const QTemporaryDir elsewhere;
        support::writeFile(elsewhere.filePath(QStringLiteral("mine")), "");
        support::writeFile(program % u"/help.htm", "a rage");
        QVERIFY(QFile::link(elsewhere.path(), program % u"/Tovarin.new"));
        upgrade::place(shipped.folder(), program);
        QCOMPARE(filesOf(program), filesOf(shipped.folder()));
        QCOMPARE(filesOf(elsewhere.path()), QStringList(QStringLiteral("mine")));
#endif
        QCOMPARE(support::readFile(program % u"/help.htm"), QByteArray("a page"));
        QCOMPARE(Opened(program).ticked().size(), 6);
    }

    void folderThatCannotBeWritten_staysAsItIs()
    {
        const auto used = usedFolder();
        const auto newer = newerFolder();
        support::writeFile(newer.file(QStringLiteral("help.htm")), "a page");
        const QStringList files = filesOf(used.folder());
        const QByteArray before = support::readFile(used.file(QStringLiteral("Tovarin.mdb")));
        const auto refuses = [&] {
            try {
                upgrade::place(newer.folder(), used.folder());
                return false;
            } catch (const upgrade::PlaceError &error) {
                return !error.text().isEmpty();
            }
        };
        {
            const support::ReadOnlyFolder readOnly(used.folder());
            QVERIFY(refuses());
            // What is up to date needs no writing.
            QVERIFY(upgrade::place(used.folder(), used.folder()).outcome == Outcome::Unchanged);
        }
        if (support::FullDisk::isPossible()) {
            const support::FullDisk full;
            QVERIFY(refuses());
        }
        QVERIFY(QFile::remove(newer.file(QStringLiteral("tovarin.dll"))));
        QVERIFY(refuses());
        QCOMPARE(filesOf(used.folder()), files);
        QCOMPARE(support::readFile(used.file(QStringLiteral("Tovarin.mdb"))), before);
    }

    /// Made by a version of the program that ordered texts in another way.
    void filesOfAnotherOrder_areReadFromAndBroughtUpToDate()
    {
        constexpr const char *mark =
            "update sys_properties set content = 'old' where property = 'collation'";
        const auto shipped = newerFolder();
        run(shipped.folder(), {mark});
        const QByteArray before = support::readFile(shipped.file(QStringLiteral("Tovarin.mdb")));
        {
            const support::ReadOnlyFolder readOnly(shipped.folder());
            const auto used = usedFolder(); // by one who may not write to the other
            run(used.folder(), {mark});
#ifndef Q_OS_WIN // whoever runs Wine as a superuser may write there all the same
            const QString database = used.file(QStringLiteral("Tovarin.mdb"));
            QFile::setPermissions(database, QFile::ReadOwner);
            try {
                upgrade::place(shipped.folder(), used.folder());
                QFAIL("nobody is told");
            } catch (const upgrade::PlaceError &error) {
                QVERIFY2(error.text().contains(u"another version of this program"), error.what());
            }
            QFile::setPermissions(database, QFile::ReadOwner | QFile::WriteOwner);
#endif
            QVERIFY(upgrade::place(shipped.folder(), used.folder()).outcome
                    == Outcome::CarriedOver);
            QCOMPARE(Opened(used.folder()).ticked().size(), 4);
        }
        // One who may write to it does not, either.
        const auto used = usedFolder();
        upgrade::place(shipped.folder(), used.folder());
        QCOMPARE(support::readFile(shipped.file(QStringLiteral("Tovarin.mdb"))), before);
        QCOMPARE(Opened(used.folder()).ticked().size(), 4);
    }

    void runningProgram_goesOnWithTheNewDictionary()
    {
        const auto used = usedFolder();
        const auto newer = newerFolder();
        const Opened running(used.folder());
        QCOMPARE(
            running
                .rows("select name_desc from tblmaster where name_desc = 'Bo' and name_sex = 'B'")
                .size(),
            0);
        QVERIFY(upgrade::place(newer.folder(), used.folder()).outcome == Outcome::CarriedOver);
        QVERIFY(basDatabase::ExecuteSQL(QStringLiteral(
            "update tblmaster set name_select = 'Y' where name_desc = 'Bo' and name_sex = 'B'")));
        QCOMPARE(running.ticked().size(), 5);
        QCOMPARE(Opened(used.folder()).ticked().size(), 5);
    }

    void killedUpgrades_leaveTheOldOrTheNew()
    {
        const int kills = support::isLongRun() ? 400 : 40;
        std::vector<dictionary::Entry> entries;
        for (int i = 0; i < 8000; ++i)
            entries.push_back({QStringLiteral("Name%1").arg(i), u'B', QStringLiteral("Test"),
                               QStringLiteral("number %1").arg(i)});
        const support::SampleDatabase used(entries);
        run(used.folder(), {"update tblmaster set name_select = 'Y' where name_desc like '%7'",
                            "insert into tblresult select top 9 name_desc, 'Test', name_sex, '', "
                            "'N', 'Y' from tblmaster order by name_desc"});
        const QByteArray before = support::readFile(used.file(QStringLiteral("Tovarin.mdb")));
        entries.erase(entries.begin(), entries.begin() + 100);
        const support::SampleDatabase newer(entries);

        std::mt19937 random(std::random_device {}());
        int renewed = 0;
        int hotJournals = 0;
        for (int i = 0; i < kills; ++i) {
            QProcess mkdb;
            mkdb.start(QStringLiteral(MKDB),
                       {QStringLiteral("place"), newer.folder(), used.folder()});
            QVERIFY2(mkdb.waitForStarted(), qPrintable(mkdb.errorString()));
            QTest::qSleep(int(random() % 120));
            mkdb.kill();
            QVERIFY(mkdb.waitForFinished());
            hotJournals += QFile::exists(used.file(QStringLiteral("Tovarin.mdb-journal")));
            const Opened database(used.folder());
            QCOMPARE(database.rows("pragma integrity_check"), QStringList(QStringLiteral("ok")));
            QCOMPARE(database.rows("select * from tblresult").size(), 9);
            const int names = database.rows("select count(*) from tblmaster").constFirst().toInt();
            QVERIFY(names == 8000 || names == 7900);
            QCOMPARE(database.ticked().size(), names / 10);
            if (names == 8000)
                continue;
            ++renewed;
            // Once more from the beginning.
            basDatabase::CloseDatabase();
            support::writeFile(used.file(QStringLiteral("Tovarin.mdb")), before);
        }
        support::noteOutcome(
            QStringLiteral("%1 upgrades to a newer dictionary are killed").arg(kills),
            QStringLiteral("%1 were through, %2 killed in mid-write; all of the old or all of the "
                           "new is there, no tick lost")
                .arg(renewed)
                .arg(hotJournals));
        upgrade::place(newer.folder(), used.folder());
        QCOMPARE(Opened(used.folder()).ticked().size(), 790);
        QCOMPARE(QDir(used.folder()).entryList({QStringLiteral("*.new"), QStringLiteral("*.lock")}),
                 QStringList());
    }
};

QTEST_MAIN(TestUpgrade)
#include "test_upgrade.moc"
