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
#include <QProcess>
#include <QTest>

#include <memory>
#include <optional>

namespace {

constexpr char goodSettings[] = "maxselect\t20\ntopn\t10\nversionno\t1\nversiondate\t2026-01-02\n";

/// The database in the program's folder.
std::unique_ptr<dbaccess::Connection> openDatabase()
{
    auto connection = std::make_unique<dbaccess::Connection>();
    connection->open(basDatabase::ConnectionText(basTovarin::ReadPassword()));
    return connection;
}

/// Has the tool build a database: its exit code and what it said.
std::pair<int, QByteArray> build(const QString &data, const QString &folder)
{
    QProcess mkdb;
    mkdb.start(QStringLiteral(MKDB), {QStringLiteral("build"), data, folder});
    if (!mkdb.waitForFinished())
        qFatal("mkdb doesn't end");
    return {mkdb.exitCode(), mkdb.readAllStandardError()};
}

} // namespace

class TestMkdb : public QObject
{
    Q_OBJECT

private:
    std::optional<QTemporaryDir> m_folder;

    QString path(const char *name) const { return m_folder->filePath(QLatin1String(name)); }
    void write(const char *name, const QByteArray &content) const
    {
        support::writeFile(path(name), content);
    }

private Q_SLOTS:
    void init() { m_folder.emplace(); }

    void badLines_areReportedWithFileAndLine()
    {
        const QByteArray head = "# Origin: Irish\n";
        const QByteArray longName(41, 'a');
        // "|" stands for a tab.
        for (const auto &[lines, problem] :
             {std::pair(QByteArray(), QByteArray("1: the file is empty")),
              {"Anna", "1: the first line has to be \"# Origin: \" and the origin's name"},
              {"# Origin: \nAnna|G|grace, favour", "1: the origin is empty"},
              {head + "Anna|G|grace, favour\nANNA|G|grace, favour",
               "3: \"ANNA\" stands twice for this sex"},
              {head + "Berta|G|bright, clear\nAnna|G|grace, favour",
               R"(3: "Anna" is out of order ("mkdb sort" mends it))"},
              {head + "Anna|g|grace, favour", "2: the sex \"g\" is neither B nor G"},
              {head + "Anna||grace, favour", "2: the sex \"\" is neither B nor G"},
              {head + "Anna|G|", "2: the meaning is empty"},
              {head + "|G|grace, favour", "2: the name is empty"},
              {head + "Anna|G|in favour|", "2: a stray tab: an entry is name, sex and meaning"},
              {head + "# note\nAnna G grace, favour",
               "3: an entry is name, sex and meaning with tabs between"},
              {head + "An\xffna|G|grace, favour", "2: the line is not UTF-8"},
              {head + "Anna|G|grace, favour\r", "2: the line ends with a carriage return"},
              {head + "Anna |G|grace, favour", "2: the name \"Anna \" has blanks around it"},
              {head + longName + "|G|grace, favour",
               "2: the name \"" + longName + "\" is longer than 40 characters"},
              {head + "Anne\u0301|G|grace, favour",
               "2: the name \"Anne\u0301\" is not in Unicode's composed form"},
              {head + "An\u200bna|G|grace, favour",
               "2: the name \"An\u200bna\" holds an invisible character"},
              {head + "'Anna|G|grace, favour",
               "2: the name \"'Anna\" begins with no letter from A to Z"},
              {head + "anna|G|grace, favour", "2: the name \"anna\" begins with no capital"},
              {head + "Ra'no|G|a flower", "2: the name \"Ra'no\" is written with ’ or ʻ"},
              {head + "Anna|G|grace", "2: the meaning \"grace\" takes 2 to 8 words, not 1"},
              {head + "Anna|G|a b c d e f g h i",
               "2: the meaning \"a b c d e f g h i\" takes 2 to 8 words, not 9"},
              {head + "Anna|G|God is gracious.",
               "2: the meaning \"God is gracious.\" ends with a full stop"},
              {head + "Job|B|uncertain, possibly persecuted\nKim|G|my Cute one",
               R"(3: the meaning "my Cute one" praises: "Cute")"}}) {
            QByteArray content = lines;
            write("names.tsv", content.isEmpty() ? content : content.replace('|', '\t') + '\n');
            QCOMPARE(dictionary::readFile(path("names.tsv")).problems.join(u'\n').toUtf8(),
                     "names.tsv:" + problem);
        }
    }

    void twoFilesOfOneOrigin_areRefused()
    {
        write("a.tsv", "# Origin: Irish\nAnna\tG\tgrace, favour\n");
        write("b.tsv", "# Origin: Irish\nBrian\tB\thigh, noble\n");
        QCOMPARE(
            dictionary::readFolder(m_folder->path()).problems,
            QStringList(QStringLiteral("b.tsv:1: the origin \"Irish\" has a file already: a.tsv")));
    }

    void sorting_mendsTheOrderAndNothingElse()
    {
        write("names.tsv",
              "# Origin: Irish\nZoe\tG\tof life\nÉda\tG\tx y\n# note\nEda\tG\tx z\nEda\tB\tx z\n");
        QVERIFY(dictionary::sortFile(path("names.tsv")));
        QCOMPARE(support::readFile(path("names.tsv")),
                 QByteArray("# Origin: Irish\n# note\nEda\tB\tx z\nEda\tG\tx z\nÉda\tG\tx y\n"
                            "Zoe\tG\tof life\n"));
        QVERIFY(!dictionary::sortFile(path("names.tsv")));
        QVERIFY(dictionary::readFile(path("names.tsv")).problems.isEmpty());
        // What is not UTF-8 stays for its owner to mend.
        QCOMPARE(dictionary::sortedText("# Origin: Irish\nZoe\tG\tof life\nAn\xffna\tG\tgrace"),
                 QByteArray("# Origin: Irish\nAn\xffna\tG\tgrace\nZoe\tG\tof life\n"));
    }

    void failedBuild_leavesWhatWasThere()
    {
        const support::SampleDatabase sample(support::entries({"Anna|G|Hebrew|grace"}));
        const QString file = sample.file(QStringLiteral("Tovarin.mdb"));
        const QByteArray before = support::readFile(file);
        {
            dbaccess::DatabaseBuilder builder(file, {QStringLiteral("admin"), QStringLiteral("x")},
                                              QStringLiteral("create table t(a not null)"));
            builder.insert(QStringLiteral("t"), {QStringLiteral("1")});
            QVERIFY_THROWS_EXCEPTION(dbaccess::EngineError,
                                     builder.insert(QStringLiteral("t"), {QString()}));
        }
        QCOMPARE(support::readFile(file), before);
        support::writeFile(file % u"-journal", "unfinished");
        QVERIFY_THROWS_EXCEPTION(shipped::BuildError,
                                 shipped::writeDatabase({}, support::sampleSettings(),
                                                        support::samplePassword(),
                                                        sample.folder()));
        QCOMPARE(QDir(sample.folder()).entryList(QDir::Files, QDir::Name).join(u' '),
                 QStringLiteral("Tovarin.mdb Tovarin.mdb-journal tovarin.dll"));
    }

    void tool_buildsTheShippedDatabase()
    {
        const auto [exitCode, said] = build(QStringLiteral(DATA_FOLDER), m_folder->path());
        QVERIFY2(exitCode == 0, said.constData());

        basTovarin::SetProgramFolder(m_folder->path());
        const auto connection = openDatabase();
        const auto value = [&connection](const char *sql) {
            return connection->openRecordset(QString::fromLatin1(sql)).text(0);
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
        QDir(m_folder->path()).mkdir(QStringLiteral("dictionary"));
        write("settings.tsv", goodSettings);
        write("password.txt", "sesame\n");
        write("dictionary/x.tsv", "# Origin: Irish\nAnna\tX\tgrace\nBrian\tB\t\n");
        const auto [exitCode, said] = build(m_folder->path(), path("out"));
        QCOMPARE(exitCode, 1);
        QVERIFY2(said.contains("x.tsv:2: ") && said.contains("x.tsv:3: "), said.constData());
        QVERIFY(!QFile::exists(path("out")));
    }

    void badSettingsAndPasswords_areRefused()
    {
        const QByteArray good = goodSettings;
        for (const auto &[part, bad] : {std::pair("topn", "other"),
                                        {"\t20\n", " 20\n"},
                                        {"\t20\n", "\tx\n"},
                                        {"-01-", "-13-"}}) {
            write("file", QByteArray(good).replace(part, bad));
            QVERIFY_THROWS_EXCEPTION(shipped::BuildError, shipped::readSettings(path("file")));
        }
        write("file", good);
        QCOMPARE(shipped::readSettings(path("file")).topN, QStringLiteral("10"));
        // The key file is one line of single-byte characters.
        for (const char *password : {"", "日本", "-1", "semi;colon"}) {
            write("file", password);
            QVERIFY_THROWS_EXCEPTION(shipped::BuildError, shipped::readPassword(path("file")));
        }
    }
};

QTEST_GUILESS_MAIN(TestMkdb)
#include "test_mkdb.moc"
