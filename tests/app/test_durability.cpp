// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

// What is left of the work of programs that are killed, or that share their file.

#include "db/basdatabase.h"
#include "db/bastovarin.h"
#include "platform/access/connection.h"
#include "tests/app/builtprogram.h"

#include <QFile>
#include <QSet>
#include <QTest>

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

private:
    Names names(const QString &query)
    {
        Names found;
        for (auto rows = m_connection.openRecordset(query); !rows.isAtEnd(); rows.moveNext())
            found.insert(rows.text(0) % u'|' % rows.text(1) % u'|' % rows.text(2));
        return found;
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

} // namespace

class TestDurability : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void killedPrograms_loseNoTick()
    {
        constexpr int kills = 50;
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
            work.follow(QString::fromUtf8(said).split(u'\n'));

            File file(folder);
            QCOMPARE(file.soundness(), QStringLiteral("ok"));
            // The click that was under way may have come through or not.
            const Names ticked = file.ticked();
            const Names differing = (ticked - work.ticked) + (work.ticked - ticked);
            QVERIFY2(differing.size() <= 1, qPrintable(differing.values().join(u'\n')));
            work.ticked = ticked;
            // So may the two statements of a save.
            const Names shortlist = file.shortlist();
            QVERIFY(shortlist == work.saved || shortlist.isEmpty() || shortlist == ticked);
            work.saved = shortlist;
        }
        qInfo("%d ticks, %d of %d programs killed in mid-write", work.ticks, halfWritten, kills);
        QVERIFY(work.ticks >= kills);
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
    }
};

QTEST_GUILESS_MAIN(TestDurability)
#include "test_durability.moc"
