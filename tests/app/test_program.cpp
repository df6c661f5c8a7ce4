// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

// Starts the program as it was built, in folders of its own, and uses it through its windows.

#include "db/basdatabase.h"
#include "db/bastovarin.h"
#include "tests/app/builtprogram.h"
#include "upgrade/programfolder.h"

#include <QDir>
#include <QFile>
#include <QTest>

namespace {

/// An archive of the program as it was unpacked somewhere: what ships lies beside what is started,
/// which is a launcher or the program itself.
class UnpackedArchive
{
public:
    explicit UnpackedArchive(bool hasLauncher) : m_hasLauncher(hasLauncher)
    {
        const QDir shipped(QStringLiteral(SHIPPED_FOLDER));
        QDir().mkdir(file("shipped"));
        for (const QString &name : shipped.entryList(QDir::Files)) {
            const bool isStarted = !hasLauncher && name == upgrade::executableName();
            QFile::copy(shipped.filePath(name), isStarted ? executable() : file("shipped/") % name);
        }
        if (hasLauncher)
            QFile::copy(QStringLiteral(LAUNCHER), executable());
    }

    QString file(const char *name) const { return m_folder.filePath(QLatin1String(name)); }
    QString programFolder() const { return m_hasLauncher ? file("program") : m_folder.path(); }

    /// Starts it, and waits until the program has ended.
    QStringList start(const QString &script) const
    {
        QProcess pipe;
        pipe.setProcessChannelMode(QProcess::MergedChannels);
        pipe.setProcessEnvironment(pilotEnvironment(script));
        // The program goes on when the launcher has ended; the pipe is open as long as one of them.
        if (m_hasLauncher)
            pipe.start(QStringLiteral("sh"),
                       {QStringLiteral("-c"), QStringLiteral("\"$0\" 2>&1 | cat"), executable()});
        else
            pipe.start(executable(), {});
        pipe.waitForFinished(programTimeout);
        return linesOfPilot(pipe.readAllStandardOutput());
    }

private:
    QString executable() const { return m_folder.filePath(upgrade::executableName()); }

    bool m_hasLauncher;
    QTemporaryDir m_folder {QDir::tempPath() % u"/Zo\u00EB's names XXXXXX"};
};

} // namespace

class TestProgram : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void typicalPass_searchesAndLeaves()
    {
        const ProgramFolder folder;
        const Run run = runProgram(
            folder,
            QStringLiteral("print frmSplash;click cmdOK;print frmInfo;tab 2;click optSearch_2;"
                           "type cboNameCondition S;type txtSearchName ELO;enter txtSearchName;"
                           "print lblRecStatus;print msSearchList;"
                           "answer no;close frmInfo;print lblPage;answer yes;close frmInfo"));
        QCOMPARE(run.exitCode, 0);
        QCOMPARE(run.said.value(0), QStringLiteral("frmSplash: Tovarin Names Dictionary 0.1.0"));
        QCOMPARE(run.said.value(1), QStringLiteral("frmInfo: Tovarin Names Dictionary 0.1.0"));
        const int found = run.said.value(2).section(u' ', 1, 1).toInt();
        QVERIFY2(found > 0, qPrintable(run.said.join(u'\n')));
        QCOMPARE(run.said.value(2), QStringLiteral("lblRecStatus: %1 record(s) found").arg(found));
        QCOMPARE(run.said.value(3), QStringLiteral("msSearchList: %1").arg(qMin(found, 100)));
        const QString question =
            QStringLiteral("box: [Tovarin Names Dictionary 0.1.0] Are you sure you want to exit?");
        QCOMPARE(run.said.value(4), question);
        QCOMPARE(run.said.value(5), QStringLiteral("lblPage: Page 1 of 1"));
        QCOMPARE(run.said.value(6), question);
        QCOMPARE(run.said.size(), 7);
    }

    void exitOnTheSplash_endsTheProgram()
    {
        const Run run = runProgram(ProgramFolder(), QStringLiteral("click cmdExit"));
        QCOMPARE(run.exitCode, 0);
        QVERIFY(run.said.isEmpty());
    }

    void archive_putsItsFolderTogetherAndStarts_data() { addKindsOfArchives(); }

    void archive_putsItsFolderTogetherAndStarts()
    {
        QFETCH(bool, hasLauncher);
        const UnpackedArchive archive(hasLauncher);
        const auto inProgramFolder = [&](const char *name) {
            return QString(archive.programFolder() % u'/' % QLatin1String(name));
        };
        const QString leave = QStringLiteral("print frmSplash;click cmdExit");
        const QString splash = QStringLiteral("frmSplash: Tovarin Names Dictionary 0.1.0");
        QCOMPARE(archive.start(leave), QStringList(splash));

        // A newer edition comes.
        basTovarin::SetProgramFolder(archive.programFolder());
        basDatabase::OpenDatabase();
        basDatabase::ExecuteSQL(QStringLiteral("update tblmaster set name_select = 'Y' where "
                                               "name_desc = 'Anna'"));
        basDatabase::ExecuteSQL(QStringLiteral("delete from sys_properties where property = "
                                               "'edition'"));
        basDatabase::CloseDatabase();
        const QStringList said = archive.start(leave);
        QCOMPARE(said.size(), 2);
        QVERIFY(said[0].startsWith(u"box: [Tovarin] Tovarin has a new dictionary. Your ticks, "));
        QCOMPARE(said[1], splash);
        QVERIFY(QFile::exists(inProgramFolder("Tovarin-backup-1.mdb")));

        // The user wants to keep a file that can't be read, and then to start afresh.
        QFile broken(inProgramFolder("Tovarin.mdb"));
        QVERIFY(broken.open(QIODevice::WriteOnly) && broken.write("nonsense") > 0);
        broken.close();
        const QString question = QStringLiteral("box: [Tovarin] The file with your names can't be "
                                                "read. The file is not a database.");
        QCOMPARE(archive.start(u"answer no;" % leave), QStringList(question));
        QCOMPARE(broken.size(), 8);
        QCOMPARE(archive.start(u"answer yes;" % leave), QStringList({question, splash}));
        QCOMPARE(QFileInfo(inProgramFolder("Tovarin-put-aside-1.mdb")).size(), 8);
    }

    void spoiltArchive_saysSoAndGoesOnWithWhatIsThere_data() { addKindsOfArchives(); }

    void spoiltArchive_saysSoAndGoesOnWithWhatIsThere()
    {
        QFETCH(bool, hasLauncher);
        const UnpackedArchive archive(hasLauncher);
        const QString leave = QStringLiteral("print frmSplash;click cmdExit");
        QFile shipped(archive.file("shipped/Tovarin.mdb"));
        const QString whole = shipped.fileName() % u".whole";
        QVERIFY(shipped.copy(whole) && shipped.setPermissions(QFile::ReadOwner | QFile::WriteOwner)
                && shipped.resize(5000));
        QCOMPARE(archive.start(leave),
                 QStringList(QStringLiteral("box: [Tovarin] Tovarin could not be set up.")));

        QVERIFY(shipped.remove() && QFile::rename(whole, shipped.fileName()));
        QCOMPARE(archive.start(leave).size(), 1);
        QVERIFY(shipped.setPermissions(QFile::ReadOwner | QFile::WriteOwner)
                && shipped.resize(5000));
        const QStringList said = archive.start(leave);
        QCOMPARE(said.size(), 2);
        QVERIFY(said[0].startsWith(u"box: [Tovarin] Tovarin could not be brought up to date, "));
        QCOMPARE(said[1], QStringLiteral("frmSplash: Tovarin Names Dictionary 0.1.0"));
    }

private:
    static void addKindsOfArchives()
    {
        QTest::addColumn<bool>("hasLauncher");
#ifndef Q_OS_WIN
        QTest::addRow("with a launcher") << true;
#endif
        QTest::addRow("with the program itself") << false;
    }
};

QTEST_GUILESS_MAIN(TestProgram)
#include "test_program.moc"
