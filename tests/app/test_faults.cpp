// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

// Starts the program as it was built in folders where something is wrong, and uses it.

#include "db/basdatabase.h"
#include "db/bastovarin.h"
#include "platform/access/connection.h"
#include "tests/app/builtprogram.h"
#include "tests/support/brokendisks.h"
#include "tests/support/faulttable.h"

#include <QDir>
#include <QFile>
#include <QTest>
#include <QUrl>

#include <functional>
#include <random>

#include <sys/mount.h>
#include <unistd.h>

namespace {

using Break = std::function<void(const ProgramFolder &)>;

constexpr const char *pageFiles[] = {"things.htm", "popular.htm", "tovarinhelp.htm", "about.htm",
                                     "terms.htm",  "tovarin.css", "logocust.jpg",    "report.css"};

/// Through all that reads or writes: the pages, a search, a tick, the lists and a report. What does
/// not come to be seen is left out.
const QString usualPass = QStringLiteral(
    "click cmdOK;maybe page dhtmThings;tab 1;maybe page dhtmPopular;tab 4;maybe page dhtmHelp;"
    "tab 5;maybe page dhtmlAbout;tab 2;click optSearch_2;paste txtSearchName anna;"
    "click cmdSearch;print lblRecStatus;tick msSearchList 0;print lblRecSelected;click cmdSave;"
    "tab 3;maybe rows msfPrevTopN;maybe rows msfResult;maybe click cmdPrintTopN;maybe page "
    "WebBrowser1;"
    "maybe close frmPrintTopN;maybe click cmdNext;maybe rows msfInitial;"
    "maybe click cmdPrintInitial;maybe page WebBrowser1;maybe close frmPrintTopN;answer yes;"
    "close frmInfo");

/// Runs a statement on the database of a folder.
/// @return the first value it yields
QString run(const QString &folder, const QString &query)
{
    basTovarin::SetProgramFolder(folder);
    dbaccess::Connection connection;
    connection.open(basDatabase::ConnectionText(basTovarin::ReadPassword()));
    const dbaccess::Recordset rows = connection.openRecordset(query);
    return rows.isAtEnd() ? QString() : rows.text(0);
}

/// What a user has in the database, as one text.
QString userRows(const ProgramFolder &folder)
{
    return run(
        folder.path(),
        QStringLiteral(
            "select (select group_concat(name_desc || name_sex || name_orgid) from tblmaster "
            "where name_select = 'Y') || '/' || (select group_concat(name_desc) from "
            "tblresult) || '/' || (select group_concat(t10_id || t10_name) from tbltopn) || "
            "'/' || (select group_concat(init_first || init_third) from tblinitial)"));
}

/// A program folder whose user has ticked, saved, ranked and composed names.
ProgramFolder &used(ProgramFolder &folder)
{
    for (const char *statement :
         {"update tblmaster set name_select = 'Y' where name_desc in ('Ben', 'Odin')",
          "insert into tblresult select name_desc, org_desc, name_sex, meaning_name, name_first, "
          "'Y' from tblmaster, tblorg, tblmeaning where name_orgid = org_id and name_mid = "
          "meaning_id and name_select = 'Y'",
          "insert into tbltopn select '01', name_desc, name_orgid, name_sex, name_meaning from "
          "tblresult where name_desc = 'Ben' and name_orgid = 'Hebrew'",
          "insert into tblinitial values('Ben', '', 'Okonkwo', '', 'BO')"})
        run(folder.path(), QString::fromLatin1(statement));
    return folder;
}

Break withoutFile(const char *name)
{
    return [name](const ProgramFolder &folder) { QFile::remove(folder.file(name)); };
}

Break content(const char *name, const QByteArray &bytes)
{
    return [=](const ProgramFolder &folder) { folder.replace(name, bytes); };
}

Break change(const char *name, const std::function<void(QByteArray &)> &edit)
{
    return [=](const ProgramFolder &folder) {
        QFile file(folder.file(name));
        if (!file.open(QIODevice::ReadOnly))
            qFatal("can't read %s", name);
        QByteArray bytes = file.readAll();
        file.close();
        edit(bytes);
        folder.replace(name, bytes);
    };
}

Break folderInPlaceOf(const char *name)
{
    return [name](const ProgramFolder &folder) {
        QFile::remove(folder.file(name));
        QDir().mkdir(folder.file(name));
    };
}

Break ofAllPages(const std::function<Break(const char *)> &makeBreak)
{
    return [makeBreak](const ProgramFolder &folder) {
        for (const char *page : pageFiles)
            makeBreak(page)(folder);
    };
}

Break statement(const char *sql)
{
    return [sql](const ProgramFolder &folder) { run(folder.path(), QString::fromLatin1(sql)); };
}

/// What a run comes to, in words: its error messages, and how it ends.
QString outcomeOf(const Run &run, const QStringList &usual)
{
    if (run.exitCode == -1)
        return QStringLiteral("HANGS");
    if (run.exitCode < -1)
        return QStringLiteral("CRASHES");
    QStringList messages = run.said.filter(QStringLiteral("box: [Error] "));
    messages.replaceInStrings(QStringLiteral("box: [Error] "), QString());
    messages.removeDuplicates();
    const QString said =
        messages.isEmpty() ? QString() : QString(u"says “" % messages.join(u"”, “") % u"” and ");
    if (run.exitCode != 0)
        return said % u"ends";
    if (!said.isEmpty())
        return said % u"goes on";
    return run.said == usual ? QStringLiteral("works as ever")
                             : QStringLiteral("works: ") % run.said.join(u" / ");
}

const QString couldNotConnect = QStringLiteral("says “Failed to connect database!” and ends");
const QString isCorrupted = QStringLiteral("says “Database is corrupted!” and ends");
const QString worksAsEver = QStringLiteral("works as ever");

/// What is said of a report of the ranking that can't be made, the engine's text first.
QString noRankingReport(const char *number, const QString &text)
{
    return u"says “" % text % u"”, “Failed to print top 10 report!”, “" % QLatin1String(number)
           % u" : " % text % u"” and goes on";
}

/// A small file system of its own, for a program folder.
class SmallDisk
{
public:
    explicit SmallDisk(const char *size)
    {
        m_isMounted = mount("tmpfs", m_folder.path().toLocal8Bit().constData(), "tmpfs", 0,
                            qPrintable(QStringLiteral("size=%1").arg(QLatin1String(size))))
                      == 0;
    }
    ~SmallDisk()
    {
        if (m_isMounted)
            umount(m_folder.path().toLocal8Bit().constData());
    }
    SmallDisk(const SmallDisk &) = delete;
    SmallDisk &operator=(const SmallDisk &) = delete;

    bool isMounted() const { return m_isMounted; }
    QString path() const { return m_folder.path(); }

    /// Takes all the space that is left.
    void fill() const
    {
        QFile file(m_folder.filePath(QStringLiteral("filler")));
        if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
            qFatal("can't write the filler");
        for (const qint64 block : {65536, 1}) {
            while (file.write(QByteArray(block, 'x')) == block) { }
        }
    }
    void empty() const { QFile::remove(m_folder.filePath(QStringLiteral("filler"))); }

private:
    QTemporaryDir m_folder;
    bool m_isMounted = false;
};

} // namespace

class TestFaults : public QObject
{
    Q_OBJECT

private:
    QStringList m_usual; ///< what a run without a fault says

private Q_SLOTS:
    void initTestCase()
    {
        ProgramFolder folder;
        const Run run = runProgram(used(folder), usualPass);
        QVERIFY2(run.exitCode == 0 && run.said.size() == 8, qPrintable(run.said.join(u'\n')));
        m_usual = run.said;
        support::noteOutcome(QStringLiteral("nothing is wrong"), outcomeOf(run, m_usual));
    }

    void brokenFolder_data()
    {
        QTest::addColumn<Break>("breakIt");
        QTest::addColumn<QString>("expected");
        const auto row = [](const char *name, const Break &breakIt, const QString &expected) {
            QTest::newRow(name) << breakIt << expected;
        };
        row("no key file", withoutFile("tovarin.dll"), couldNotConnect);
        row("empty key file", content("tovarin.dll", ""), couldNotConnect);
        row("the key file's first line is empty", content("tovarin.dll", "\nx\n"), isCorrupted);
        row("the key file has another password", content("tovarin.dll", "wrong\n"),
            couldNotConnect);
        row("the key file is 1 MB of bytes",
            content("tovarin.dll", QByteArray(1000000, '\xf7') + '\0'), couldNotConnect);
        row("a folder in place of the key file", folderInPlaceOf("tovarin.dll"), couldNotConnect);
        row("no database", withoutFile("Tovarin.mdb"), couldNotConnect);
        row("empty database", content("Tovarin.mdb", ""), couldNotConnect);
        row("a text in place of the database", content("Tovarin.mdb", QByteArray(9999, 'x')),
            couldNotConnect);
        row("a folder in place of the database", folderInPlaceOf("Tovarin.mdb"), couldNotConnect);
        row("a database of another program",
            change("Tovarin.mdb", [](QByteArray &bytes) { bytes.replace(68, 4, "abcd"); }),
            couldNotConnect);
        row("a database of a later version", statement("pragma user_version = 99"),
            couldNotConnect);
        row("the database's first page is gone",
            change("Tovarin.mdb",
                   [](QByteArray &bytes) { bytes.replace(0, 4096, QByteArray(4096, '\0')); }),
            couldNotConnect);
        row("no table for the last page", statement("drop table tbltemp"), worksAsEver);
        row("no table for the report of the ranking", statement("drop table TEMPTOPN"),
            noRankingReport("1", QStringLiteral("There is no table named \"TEMPTOPN\".")));
        row("no page files", ofAllPages([](const char *page) { return withoutFile(page); }),
            worksAsEver);
        row("page files that are no HTML", ofAllPages([](const char *page) {
                return content(page, QByteArray("\x7f"
                                                "ELF\0\xff\xfe<script>",
                                                13)
                                         + QByteArray(50000, '\x80'));
            }),
            worksAsEver);
        row("empty page files", ofAllPages([](const char *page) { return content(page, ""); }),
            worksAsEver);
        row("folders in place of page files",
            ofAllPages([](const char *page) { return folderInPlaceOf(page); }), worksAsEver);
    }

    void brokenFolder()
    {
        QFETCH(Break, breakIt);
        QFETCH(QString, expected);
        ProgramFolder folder;
        const QString before = userRows(used(folder));
        const QByteArray database = folder.content("Tovarin.mdb");
        breakIt(folder);
        const QByteArray broken = folder.content("Tovarin.mdb");
        const QString outcome = outcomeOf(runProgram(folder, usualPass), m_usual);
        support::noteOutcome(QString::fromLatin1(QTest::currentDataTag()), outcome);
        QCOMPARE(outcome, expected);
        if (!expected.endsWith(u"ends")) {
            QCOMPARE(userRows(folder).section(u'/', 2), before.section(u'/', 2));
            return;
        }
        // The program has touched nothing, so that what is put right again is all there.
        QCOMPARE(folder.content("Tovarin.mdb"), broken);
        if (broken == database) {
            QDir().rmdir(folder.file("tovarin.dll"));
            folder.place();
            QCOMPARE(userRows(folder), before);
        }
    }

    void damagedDatabase()
    {
        std::mt19937 random(std::random_device {}());
        QMap<QString, int> outcomes;
        const int files = support::isLongRun() ? 300 : 12;
        for (int i = 0; i < files; ++i) {
            ProgramFolder folder;
            used(folder);
            const bool isCut = i % 3 == 0;
            change("Tovarin.mdb", [&](QByteArray &bytes) {
                const auto at = qsizetype(random() % unsigned(bytes.size()));
                if (isCut)
                    bytes.truncate(at);
                for (int flips = isCut ? 0 : 1 << random() % 12; flips > 0; --flips)
                    bytes[qsizetype(random() % unsigned(bytes.size()))] ^= char(1 << random() % 8);
            })(folder);
            const QByteArray broken = folder.content("Tovarin.mdb");
            const Run run = runProgram(folder, usualPass);
            QString outcome = outcomeOf(run, m_usual);
            if (run.exitCode < 0) {
                folder.replace("/../damaged.mdb", broken);
                QFAIL(qPrintable(QString(outcome % u" with the file ../damaged.mdb")));
            }
            if (outcome.startsWith(u"works: "))
                outcome = QStringLiteral("works on what is left");
            ++outcomes[outcome];
        }
        QStringList told;
        for (auto outcome = outcomes.cbegin(); outcome != outcomes.cend(); ++outcome)
            told.append(QStringLiteral("%1 × %2").arg(outcome.value()).arg(outcome.key()));
        support::noteOutcome(
            QStringLiteral("%1 databases that are cut off or have flipped bits").arg(files),
            told.join(u"; "));
    }

    void readOnlyFolder()
    {
        ProgramFolder folder;
        const QString before = userRows(used(folder));
        support::setWritable(folder.path(), false);
        const Run run = runProgram(folder, usualPass, asOrdinaryUser());
        support::setWritable(folder.path(), true);
        const QString outcome = outcomeOf(run, m_usual);
        support::noteOutcome(QStringLiteral("the folder is read-only"), outcome);
        QCOMPARE(outcome,
                 noRankingReport("8", QStringLiteral("The database is read-only, so nothing was "
                                                     "changed. Please check that you may write to "
                                                     "the program's folder.")));
        QCOMPARE(userRows(folder), before);
    }

    void fullDisk()
    {
        const SmallDisk disk("8m");
        if (!disk.isMounted())
            QSKIP("only the superuser can make a small file system");
        ProgramFolder folder(disk.path());
        const QString before = userRows(used(folder));
        disk.fill();
        const QString outcome = outcomeOf(runProgram(folder, usualPass), m_usual);
        support::noteOutcome(QStringLiteral("the disk is full"), outcome);
        QCOMPARE(outcome, noRankingReport("13", QStringLiteral("The disk is full, so nothing was "
                                                               "changed. Please free some space "
                                                               "and try again.")));
        QCOMPARE(userRows(folder), before);
        disk.empty();
        const QString after = outcomeOf(runProgram(folder, usualPass), m_usual);
        support::noteOutcome(QStringLiteral("the disk has space again"), after);
        QCOMPARE(after, worksAsEver);
    }

    void texts_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("10,000 letters in every field") << QString(10000, u'W');
        QTest::newRow("10,000 blanks") << QString(10000, u' ');
        QTest::newRow("right to left")
            << QStringLiteral("אברהם ‏محمد‎ \u202eevil\u202c");
        QTest::newRow("combining marks")
            << QStringLiteral("e\u0301") + QString(2000, QChar(0x0327))
                   + QStringLiteral("👩‍👩‍👧‍👦🇩🇪");
        QTest::newRow("control characters")
            << QStringLiteral("a\tb\rc\nd\u0001e\u001bf\u007fg\u0085h\u2028i\u200bj");
        QTest::newRow("the end of a literal and a second statement")
            << QStringLiteral("'; drop table tblmaster; --");
        QTest::newRow("words and signs of SQL")
            << QStringLiteral("\"') or 1=1 union select * from [tblorg] where a like '%_[x]%' /*");
        QTest::newRow("only a quote") << QStringLiteral("'");
        QTest::newRow("wildcards") << QStringLiteral("%_%_%_%_%_%_%_%_%_%_%_%_%_%_%%%%%%%%%%%%x");
        QTest::newRow("markup") << QStringLiteral(
            "<script>alert(1)</script><img src=x onerror=window.close()>&amp;");
    }

    void texts()
    {
        QFETCH(QString, text);
        const QString pasted = QString::fromLatin1(QUrl::toPercentEncoding(text, " "));
        ProgramFolder folder;
        const QString before = userRows(used(folder));
        const Run run = runProgram(
            folder,
            QStringLiteral("click cmdOK;tab 2;click optSearch_2;"
                           "paste txtSearchName %1;click cmdSearch;paste txtMeaning %1;"
                           "type cboNameCondition C;click cmdSearch;print msSearchList;"
                           "tab 3;click cmdNext;fill msfInitial 0 3 %1;fill msfInitial 0 4 %1;"
                           "fill msfInitial 0 5 %1;click cmdSaveInitial;click cmdPrintInitial;"
                           "page WebBrowser1;close frmPrintTopN;answer yes;close frmInfo")
                .arg(pasted));
        QString outcome = outcomeOf(run, {});
        QCOMPARE(run.exitCode, 0);
        QVERIFY2(!outcome.contains(u"says"), qPrintable(outcome));
        QVERIFY2(run.said.contains(QStringLiteral("box: [Tovarin] Record saved!")),
                 qPrintable(run.said.join(u'\n')));
        for (const char *column : {"init_second", "init_third", "init_other"})
            QCOMPARE(::run(folder.path(), u"select " % QLatin1String(column) % u" from tblinitial"),
                     text);
        QCOMPARE(userRows(folder).section(u'/', 0, 2), before.section(u'/', 0, 2));
        support::noteOutcome(
            QString::fromLatin1(QTest::currentDataTag()),
            QStringLiteral("finds %1 names; kept letter by letter")
                .arg(run.said.filter(QStringLiteral("msSearchList: ")).value(0).section(u' ', 1)));
    }
};

QTEST_GUILESS_MAIN(TestFaults)
#include "test_faults.moc"
