// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "db/basdatabase.h"
#include "db/bastovarin.h"
#include "platform/access/connection.h"
#include "platform/access/databasebuilder.h"
#include "platform/access/engineerror.h"
#include "tests/support/sampledatabase.h"

#include <QDir>
#include <QFile>
#include <QMap>
#include <QProcess>
#include <QTest>

namespace {

void write(const QString &path, const QByteArray &content)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("can't write %s", qPrintable(path));
}

QByteArray read(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void runStatement(const QString &sql)
{
    dbaccess::Connection connection;
    connection.open(basDatabase::ConnectionText(basTovarin::ReadPassword()));
    connection.execute(sql);
}

} // namespace

class TestMkdb : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void badLines_areReportedWithFileAndLine_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QString>("problem");
        const QByteArray head = "# Origin: Irish\n";
        const auto row = [](const QByteArray &content, const char *problem) {
            QTest::addRow("%s", problem) << content << QString::fromUtf8(problem);
        };
        row("", "names.tsv:1: the file is empty");
        row("Anna\tG\tgrace\n",
            "names.tsv:1: the first line has to be \"# Origin: \" and the origin's name");
        row("# Origin: \nAnna\tG\tgrace\n", "names.tsv:1: the origin is empty");
        row(head + "Anna\tG\tgrace\nANNA\tG\tgrace\n",
            "names.tsv:3: \"ANNA\" stands twice for this sex");
        row(head + "Anna\tg\tgrace\n", "names.tsv:2: the sex \"g\" is neither B nor G");
        row(head + "Anna\t\tgrace\n", "names.tsv:2: the sex \"\" is neither B nor G");
        row(head + "Anna\tG\t\n", "names.tsv:2: the meaning is empty");
        row(head + "\tG\tgrace\n", "names.tsv:2: the name is empty");
        row(head + "Anna\tG\tgrace\tand more\n",
            "names.tsv:2: a stray tab: an entry is name, sex and meaning");
        row(head + "# note\nAnna G grace\n",
            "names.tsv:3: an entry is name, sex and meaning with tabs between");
        row(head + "An\xffna\tG\tgrace\n", "names.tsv:2: the line is not UTF-8");
        row(head + "Anna\tG\tgrace\r\n", "names.tsv:2: the line ends with a carriage return");
        row(head + "Anna \tG\tgrace\n", "names.tsv:2: the name \"Anna \" has blanks around it");
        row(head + "A" + QByteArray(40, 'a') + "\tG\tgrace\n",
            "names.tsv:2: the name \"Aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa\" is longer than 40 "
            "characters");
        row(head + "Anne\u0301\tG\tgrace\n",
            "names.tsv:2: the name \"Anne\u0301\" is not in Unicode's composed form");
        row(head + "An\u200bna\tG\tgrace\n",
            "names.tsv:2: the name \"An\u200bna\" holds an invisible character");
        row(head + "'Anna\tG\tgrace\n",
            "names.tsv:2: the name \"'Anna\" begins with no letter from A to Z");
        row(head + "Berta\tG\tbright\nAnna\tG\tgrace\n",
            "names.tsv:3: \"Anna\" is out of order (\"mkdb sort\" mends it)");
    }

    void badLines_areReportedWithFileAndLine()
    {
        QFETCH(QByteArray, content);
        QFETCH(QString, problem);
        const QTemporaryDir folder;
        write(folder.filePath(QStringLiteral("names.tsv")), content);
        QCOMPARE(dictionary::readFile(folder.filePath(QStringLiteral("names.tsv"))).problems,
                 QStringList(problem));
    }

    void twoFilesOfOneOrigin_areRefused()
    {
        const QTemporaryDir folder;
        write(folder.filePath(QStringLiteral("a.tsv")), "# Origin: Irish\nAnna\tG\tgrace\n");
        write(folder.filePath(QStringLiteral("b.tsv")), "# Origin: Irish\nBrian\tB\thigh\n");
        QCOMPARE(
            dictionary::readFolder(folder.path()).problems,
            QStringList(QStringLiteral("b.tsv:1: the origin \"Irish\" has a file already: a.tsv")));
    }

    void sorting_mendsTheOrderAndNothingElse()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("names.tsv"));
        write(path, "# Origin: Irish\nZoe\tG\tlife\nÉda\tG\tx y\n# note\nEda\tG\tx\nEda\tB\tx\n");
        QVERIFY(dictionary::sortFile(path));
        QCOMPARE(read(path),
                 QByteArray("# Origin: Irish\n# note\nEda\tB\tx\nEda\tG\tx\nÉda\tG\tx y\n"
                            "Zoe\tG\tlife\n"));
        QVERIFY(!dictionary::sortFile(path));
        QVERIFY(dictionary::readFile(path).problems.isEmpty());
    }

    void failedBuild_leavesWhatWasThere()
    {
        const support::SampleDatabase sample(support::entries({"Anna|G|Hebrew|grace"}));
        const QString file = sample.file(QStringLiteral("Tovarin.mdb"));
        const QByteArray before = read(file);
        {
            dbaccess::DatabaseBuilder builder(file, {QStringLiteral("admin"), QStringLiteral("x")},
                                              QStringLiteral("create table t(a, b not null)"));
            builder.insert(QStringLiteral("t"), {QStringLiteral("1"), QStringLiteral("2")});
            QVERIFY_THROWS_EXCEPTION(
                dbaccess::EngineError,
                builder.insert(QStringLiteral("t"), {QStringLiteral("1"), QString()}));
        }
        QCOMPARE(read(file), before);
        write(file % u"-journal", "unfinished");
        QVERIFY_THROWS_EXCEPTION(shipped::BuildError,
                                 shipped::writeDatabase({}, support::sampleSettings(),
                                                        support::samplePassword(),
                                                        sample.folder()));
        QCOMPARE(QDir(sample.folder()).entryList(QDir::Files, QDir::Name),
                 QStringList({QStringLiteral("Tovarin.mdb"), QStringLiteral("Tovarin.mdb-journal"),
                              QStringLiteral("tovarin.dll")}));
    }

    void place_keepsWhatAUserHasSaved_data()
    {
        QTest::addColumn<QString>("statement");
        QTest::addColumn<int>("placed");
        const auto row = [](const char *statement, shipped::Placed placed) {
            QTest::addRow("%s", statement) << QString::fromLatin1(statement) << int(placed);
        };
        row("update tblmaster set name_select = 'N'", shipped::Placed::New);
        row("update tblmaster set name_select = 'Y'", shipped::Placed::KeptUserData);
        row("insert into tblresult(name_desc) values('Anna')", shipped::Placed::KeptUserData);
        row("insert into tbltopn(t10_id) values('01')", shipped::Placed::KeptUserData);
        row("insert into tblinitial(init_first) values('Anna')", shipped::Placed::KeptUserData);
        row("drop table tblinitial", shipped::Placed::KeptUnknown);
    }

    void place_keepsWhatAUserHasSaved()
    {
        QFETCH(QString, statement);
        QFETCH(int, placed);
        const support::SampleDatabase newer(
            support::entries({"Anna|G|Hebrew|grace", "Noah|B|Hebrew|rest"}));
        const support::SampleDatabase used(support::entries({"Anna|G|Hebrew|grace"}));
        runStatement(statement);
        const QByteArray before = read(used.file(QStringLiteral("Tovarin.mdb")));
        QCOMPARE(int(shipped::place(newer.folder(), used.folder())), placed);
        const bool isReplaced = read(used.file(QStringLiteral("Tovarin.mdb"))) != before;
        QCOMPARE(isReplaced, placed == int(shipped::Placed::New));
        if (isReplaced)
            QCOMPARE(int(shipped::place(newer.folder(), used.folder())),
                     int(shipped::Placed::Unchanged));
    }

    void tool_buildsTheShippedDatabase()
    {
        const QTemporaryDir folder;
        QProcess mkdb;
        mkdb.start(QStringLiteral(MKDB),
                   {QStringLiteral("build"), QStringLiteral(DATA_FOLDER), folder.path()});
        QVERIFY(mkdb.waitForFinished());
        QVERIFY2(mkdb.exitCode() == 0, mkdb.readAllStandardError().constData());

        basTovarin::SetProgramFolder(folder.path());
        dbaccess::Connection connection;
        connection.open(basDatabase::ConnectionText(basTovarin::ReadPassword()));
        const auto value = [&connection](const char *sql) {
            return connection.openRecordset(QString::fromLatin1(sql)).text(0);
        };
        QCOMPARE(value("pragma integrity_check"), QStringLiteral("ok"));
        QVERIFY(value("select count(*) from tblmaster").toInt() >= 1500);
        QVERIFY(value("select count(*) from tblorg").toInt() >= 30);
        QCOMPARE(value("select count(*) from tblorg where (select count(distinct name_sex) from "
                       "tblmaster where name_orgid = org_id) <> 2"),
                 QStringLiteral("0"));
        QCOMPARE(value("select count(*) from tblmaster, tblmeaning, tblorg where name_mid = "
                       "meaning_id and name_orgid = org_id"),
                 value("select count(*) from tblmaster"));
        QCOMPARE(value("select count(*) from tblsetup"), QStringLiteral("1"));
    }

    void tool_writesNothingFromBadSources()
    {
        const QTemporaryDir data;
        QDir(data.path()).mkdir(QStringLiteral("dictionary"));
        write(data.filePath(QStringLiteral("settings.tsv")),
              "maxselect\t20\ntopn\t10\nversionno\t1\nversiondate\t2026-01-02\n");
        write(data.filePath(QStringLiteral("password.txt")), "sesame\n");
        write(data.filePath(QStringLiteral("dictionary/x.tsv")),
              "# Origin: Irish\nAnna\tX\tgrace\nBrian\tB\t\n");
        QProcess mkdb;
        mkdb.start(QStringLiteral(MKDB),
                   {QStringLiteral("build"), data.path(), data.filePath(QStringLiteral("out"))});
        QVERIFY(mkdb.waitForFinished());
        QCOMPARE(mkdb.exitCode(), 1);
        const QByteArray said = mkdb.readAllStandardError();
        QVERIFY2(said.contains("x.tsv:2: ") && said.contains("x.tsv:3: "), said.constData());
        QVERIFY(!QFile::exists(data.filePath(QStringLiteral("out"))));
    }

    void badSettingsAndPasswords_areRefused()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("file"));
        const QByteArray good = "maxselect\t20\ntopn\t10\nversionno\t1\nversiondate\t2026-01-02\n";
        for (const QByteArray &content :
             {QByteArray("maxselect\t20\n"), QByteArray("maxselect 20\n"),
              QByteArray(good).replace("20\n", "x\n"),
              QByteArray(good).replace("-01-02", "-13-02")}) {
            write(path, content);
            QVERIFY_THROWS_EXCEPTION(shipped::BuildError, shipped::readSettings(path));
        }
        write(path, good);
        QCOMPARE(shipped::readSettings(path).topN, QStringLiteral("10"));
        // The key file is one line of single-byte characters.
        for (const char *password : {"", "日本", "-1", "semi;colon"}) {
            write(path, password);
            QVERIFY_THROWS_EXCEPTION(shipped::BuildError, shipped::readPassword(path));
        }
    }
};

QTEST_GUILESS_MAIN(TestMkdb)
#include "test_mkdb.moc"
