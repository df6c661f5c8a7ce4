// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

// What is left of the work of programs that are killed, or that share their file.

#include "db/basdatabase.h"
#include "db/bastovarin.h"
#include "platform/access/connection.h"
#include "tests/app/builtprogram.h"
#include "tests/support/faulttable.h"

#include <QFile>
#include <QSet>
#include <QTest>

#include <algorithm>
#include <random>

namespace {

using Names = QSet<QString>; ///< "name|sex|origin"

/// The file of a program folder, read from outside the program.
class File
{
public:
    explicit File(const ProgramFolder &folder)
    {
        basTovarin::SetProgramFolder(folder.path());
        m_connection.open(basDatabase::ConnectionText(basTovarin::ReadPassword()));
    }

    QString soundness()
    {
        return m_connection.openRecordset(QStringLiteral("pragma integrity_check")).text(0);
    }
    Names ticked()
    {
        return names(QStringLiteral("select name_desc, name_sex, org_desc from tblmaster, tblorg "
                                    "where name_orgid = org_id and name_select = 'Y'"));
    }
    Names shortlist()
    {
        return names(QStringLiteral("select name_desc, name_sex, name_orgid from tblresult"));
    }
    /// In the order in which they were saved: "name|sex|origin|meaning|rank".
    QStringList ranking()
    {
        return lines(QStringLiteral("select t10_name, t10_sex, t10_orgid, t10_mid, t10_id from "
                                    "tbltopn"));
    }
    /// "first|middle|last|other|initials".
    QStringList fullNames() { return lines(QStringLiteral("select * from tblinitial")); }

private:
    QStringList lines(const QString &query)
    {
        QStringList found;
        for (auto rows = m_connection.openRecordset(query); !rows.isAtEnd(); rows.moveNext()) {
            QStringList fields;
            for (qsizetype i = 0; i < rows.fieldCount(); ++i)
                fields.append(rows.text(i));
            found.append(fields.join(u'|'));
        }
        return found;
    }
    Names names(const QString &query)
    {
        const QStringList found = lines(query);
        return {found.begin(), found.end()};
    }

    dbaccess::Connection m_connection;
};

/// What a program has told of its work: each line came when the click had returned.
struct Work
{
    Names ticked;
    Names saved;
    int ticks = 0;

    void follow(const QStringList &lines)
    {
        for (const QString &line : lines) {
            if (line.startsWith(u"tick: ")) {
                // tick: number|first letter|name|sex|origin|meaning|mark
                const QString name = line.section(u'|', 2, 4);
                line.endsWith(u"|_") ? (void)ticked.insert(name) : (void)ticked.remove(name);
                ++ticks;
            } else if (line == u"box: [Tovarin] Record selected saved!") {
                saved = ticked;
            }
        }
    }
};

/// A table that is emptied and filled again whenever it is saved, each statement by itself.
struct Rewritten
{
    QStringList saved {};   ///< as the last save that was told to be done has left it
    QStringList pending {}; ///< what is saved next
    bool isPending = false;

    void done()
    {
        saved = pending;
        isPending = false;
    }
    bool canBe(const QStringList &found) const
    {
        const auto begun = pending.first(std::min(found.size(), pending.size()));
        return found == saved || (isPending && found == begun);
    }
};

/// What a program has told of the Worksheet tab: the rows before each save, and that it is done.
struct Worksheet
{
    Rewritten ranking;
    Rewritten fullNames;
    int saves = 0;

    void follow(const QStringList &lines)
    {
        for (const QString &line : lines) {
            const QStringList rows = line.split(u'\t');
            if (rows.first() == u"rows: msfPrevTopN")
                ranking.pending = ranked(rows, 5);
            else if (rows.first() == u"rows: msfResult")
                ranking.pending += ranked(rows, 6);
            else if (rows.first() == u"rows: msfInitial")
                fullNames.pending = composed(rows);
            else if (line == u"box: [Tovarin] Top 10 record saved!")
                ranking.done();
            else if (line == u"box: [Tovarin] Record saved!")
                fullNames.done();
            ranking.isPending = ranking.isPending || line.startsWith(u"rows: msfResult");
            fullNames.isPending = fullNames.isPending || line.startsWith(u"rows: msfInitial");
            saves += line.endsWith(u"ecord saved!");
        }
    }

    /// While the ranking is saved, the full names of names that have lost their rank go.
    bool canHaveFullNames(const QStringList &found) const
    {
        const auto wasSaved = [this](const QString &name) {
            return fullNames.saved.contains(name);
        };
        return fullNames.canBe(found) || std::ranges::all_of(found, wasSaved);
    }

    /// The ranked names in the rows of a grid, as File::ranking() gives them.
    static QStringList ranked(const QStringList &rows, int rankColumn)
    {
        QStringList names;
        for (const QString &row : rows.sliced(1)) {
            const QString rank = row.section(u'|', rankColumn);
            if (rank != u"--")
                names.append(row.section(u'|', 1, 4) % u'|' % rank);
        }
        return names;
    }

    /// The full names in the rows of the worksheet, as File::fullNames() gives them.
    static QStringList composed(const QStringList &rows)
    {
        QStringList names;
        for (const QString &row : rows.sliced(1)) {
            if (!row.section(u'|', 2, 2).isEmpty())
                names.append(row.section(u'|', 2));
        }
        return names;
    }
};

QString startOfWork()
{
    return QStringLiteral("click cmdOK;tab 2;click optSearch_2;click cmdSearch;");
}

/// Ticks all over the dictionary, and now and then saves.
QString busyScript(std::mt19937 &random, int steps)
{
    QString script = startOfWork();
    for (int i = 0; i < steps; ++i) {
        const auto dice = random() % 20;
        if (dice < 15)
            script += QStringLiteral("tick msSearchList %1;").arg(random() % 100);
        else if (dice < 17)
            script += QStringLiteral("click cmdPageUp;");
        else if (dice == 17)
            script += QStringLiteral("click cmdLastPage;");
        else
            script += QStringLiteral("click cmdSave;tab 2;");
    }
    return script;
}

/// Ranks names, takes them out of the ranking, and saves ranking and full names.
QString rankingScript(std::mt19937 &random, int saves)
{
    QString script = startOfWork();
    for (int row = 0; row < 12; ++row)
        script += QStringLiteral("tick msSearchList %1;").arg(random() % 100);
    script += QStringLiteral("click cmdSave;");
    for (int i = 0; i < saves; ++i) {
        for (int change = 0; change < 4; ++change)
            script +=
                QStringLiteral("pick %1 %2 %3;")
                    .arg(random() % 4 ? QStringLiteral("msfResult") : QStringLiteral("msfPrevTopN"))
                    .arg(random() % 12)
                    .arg(random() % 12);
        script += QStringLiteral("rows msfPrevTopN;rows msfResult;click cmdSaveTopN;"
                                 "rows msfInitial;click cmdSaveInitial;click cmdBack;");
    }
    return script;
}

} // namespace

class TestDurability : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void killedPrograms_loseNoTick()
    {
        const int kills = support::isLongRun() ? 400 : 50;
        constexpr int longestLife = 100; // milliseconds after the first tick
        const ProgramFolder folder;
        std::mt19937 random(std::random_device {}());
        Work work;
        int halfWritten = 0;
        for (int i = 0; i < kills; ++i) {
            QProcess program;
            startProgram(program, folder, busyScript(random, 400));
            QByteArray said;
            while (!said.contains("tick: ") && program.waitForReadyRead(20000))
                said += program.readAllStandardError();
            QTest::qSleep(int(random() % longestLife));
            program.kill();
            QVERIFY(program.waitForFinished());
            said += program.readAllStandardError();
            halfWritten += QFile::exists(folder.file("Tovarin.mdb-journal"));
            work.follow(linesOfPilot(said));

            File file(folder);
            QCOMPARE(file.soundness(), QStringLiteral("ok"));
            // The click that was under way may have come through or not.
            const Names ticked = file.ticked();
            const Names differing = (ticked - work.ticked) + (work.ticked - ticked);
            QVERIFY2(differing.size() <= 1,
                     qPrintable(QStringList(differing.begin(), differing.end()).join(u'\n')));
            work.ticked = ticked;
            // So may the two statements of a save.
            const Names shortlist = file.shortlist();
            QVERIFY(shortlist == work.saved || shortlist.isEmpty() || shortlist == ticked);
            work.saved = shortlist;
        }
        support::noteOutcome(
            QStringLiteral("%1 programs are killed while they tick and save").arg(kills),
            QStringLiteral("%1 ticks, %2 killed in mid-write; no tick lost, the file sound")
                .arg(work.ticks)
                .arg(halfWritten));
        QVERIFY(work.ticks >= kills);
    }

    void killedPrograms_keepWhatTheirStatementsHaveSaved()
    {
        const int kills = support::isLongRun() ? 100 : 12;
        constexpr int longestLife = 150; // milliseconds after the first save begins
        const ProgramFolder folder;
        std::mt19937 random(std::random_device {}());
        Worksheet worksheet;
        int inBetween = 0;
        for (int i = 0; i < kills; ++i) {
            QProcess program;
            startProgram(program, folder, rankingScript(random, 30));
            QByteArray said;
            while (!said.contains("rows: ") && program.waitForReadyRead(20000))
                said += program.readAllStandardError();
            QTest::qSleep(int(random() % longestLife));
            program.kill();
            QVERIFY(program.waitForFinished());
            said += program.readAllStandardError();
            worksheet.follow(linesOfPilot(said));

            QStringList ranking;
            {
                File file(folder);
                QCOMPARE(file.soundness(), QStringLiteral("ok"));
                ranking = file.ranking();
                QVERIFY2(worksheet.ranking.canBe(ranking), qPrintable(ranking.join(u'\n')));
                const QStringList fullNames = file.fullNames();
                QVERIFY2(worksheet.canHaveFullNames(fullNames), qPrintable(fullNames.join(u'\n')));
                inBetween +=
                    ranking != worksheet.ranking.saved || fullNames != worksheet.fullNames.saved;
                worksheet.ranking = {.saved = ranking};
                worksheet.fullNames = {.saved = fullNames};
            }
            // The next start shows exactly that.
            const Run run = runProgram(folder, QStringLiteral("click cmdOK;tab 3;rows msfPrevTopN;"
                                                              "answer yes;close frmInfo"));
            const QStringList shown = run.said.filter(QStringLiteral("rows: msfPrevTopN"));
            QCOMPARE(shown.size(), 1);
            QStringList rows = Worksheet::ranked(shown.first().split(u'\t'), 5);
            std::ranges::sort(rows);
            std::ranges::sort(ranking);
            QCOMPARE(rows, ranking);
        }
        support::noteOutcome(
            QStringLiteral("%1 programs are killed while they save ranks and full names")
                .arg(kills),
            QStringLiteral("%1 saves, %2 killed between their statements; what they had saved is "
                           "there, the file sound")
                .arg(worksheet.saves)
                .arg(inBetween));
        QVERIFY(worksheet.saves > 0);
    }

    void twoPrograms_workOnOneFile()
    {
        const ProgramFolder folder;
        QString work;
        for (int i = 0; i < 50; ++i)
            work += QStringLiteral("tick msSearchList %1;").arg(i);
        work += QStringLiteral("click cmdSave;answer yes;close frmInfo");
        QProcess programs[2];
        startProgram(programs[0], folder, startOfWork() % work);
        startProgram(programs[1], folder, startOfWork() % u"click cmdPageUp;" % work);
        Work done;
        for (QProcess &program : programs) {
            const Run run = finish(program);
            QCOMPARE(run.exitCode, 0);
            QVERIFY2(!run.said.join(u'\n').contains(u"[Error]"), qPrintable(run.said.join(u'\n')));
            done.follow(run.said);
        }
        File file(folder);
        QCOMPARE(file.soundness(), QStringLiteral("ok"));
        QCOMPARE(done.ticked.size(), 100);
        QCOMPARE(file.ticked(), done.ticked);
        QVERIFY(done.ticked.contains(file.shortlist()));
        QVERIFY(file.shortlist().size() >= 50);
        support::noteOutcome(
            QStringLiteral("a second copy ticks and saves at the same time"),
            QStringLiteral("both work as ever; all %1 ticks are there").arg(done.ticked.size()));
    }
};

QTEST_GUILESS_MAIN(TestDurability)
#include "test_durability.moc"
