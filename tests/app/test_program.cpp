// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

// Starts the program as it was built, in folders of its own, and uses it through its windows.

#include "db/bastovarin.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

namespace {

constexpr int programTimeout = 60000; // milliseconds

/// A program folder like the shipped one.
class ProgramFolder
{
public:
    ProgramFolder()
    {
        const QDir built(QStringLiteral(PROGRAM_FOLDER));
        for (const QString &name : built.entryList(QDir::Files)) {
            const bool isUserFile = name.compare(u"Tovarin.mdb", Qt::CaseInsensitive) == 0
                                    || name.compare(u"tovarin.dll", Qt::CaseInsensitive) == 0;
            const QDir from(isUserFile ? QStringLiteral(SHIPPED_FOLDER) : built.path());
            if (!QFile::copy(from.filePath(name), m_folder.filePath(name)))
                qFatal("can't copy %s", qPrintable(name));
        }
    }

    QString file(const char *name) const { return m_folder.filePath(QLatin1String(name)); }

    void replace(const char *name, const QByteArray &content) const
    {
        QFile out(file(name));
        if (!out.open(QIODevice::WriteOnly) || out.write(content) != content.size())
            qFatal("can't write %s", name);
    }

private:
    QTemporaryDir m_folder;
};

struct Run
{
    int exitCode = -1;
    QStringList said; ///< what the pilot printed
};

/// Starts the program of a folder with a script for the pilot, and waits for its end.
Run runProgram(const ProgramFolder &folder, const QString &script)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_PLUGIN_PATH"), QStringLiteral(PLUGIN_FOLDER));
    environment.insert(QStringLiteral("QT_QPA_GENERIC_PLUGINS"), QStringLiteral("pilot"));
    environment.insert(QStringLiteral("PILOT_SCRIPT"), script);
    QProcess program;
    program.setProcessEnvironment(environment);
    program.start(folder.file("tovarin"), {});
    if (!program.waitForFinished(programTimeout)) {
        program.kill();
        program.waitForFinished();
        qWarning("%s", program.readAllStandardError().constData());
        return {};
    }
    Run run {program.exitStatus() == QProcess::NormalExit ? program.exitCode() : -2, {}};
    for (const QString &line : QString::fromUtf8(program.readAllStandardError()).split(u'\n')) {
        if (line.startsWith(u"box: ") || line.startsWith(u"lbl") || line.startsWith(u"frm")
            || line.startsWith(u"ms"))
            run.said.append(line);
    }
    return run;
}

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

    void brokenFolder_endsTheProgramWithItsMessage_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<QByteArray>("content"); // null: the file is missing
        QTest::addColumn<QString>("message");
        const QString failed = QStringLiteral("box: [Error] Failed to connect database!");
        const QString corrupted = QStringLiteral("box: [Error] Database is corrupted!");
        QTest::addRow("no key file") << QByteArray("tovarin.dll") << QByteArray() << failed;
        QTest::addRow("empty key file") << QByteArray("tovarin.dll") << QByteArray("") << failed;
        QTest::addRow("empty first line")
            << QByteArray("tovarin.dll") << QByteArray("\nx") << corrupted;
        QTest::addRow("wrong password")
            << QByteArray("tovarin.dll") << QByteArray("wrong\n") << failed;
        QTest::addRow("no database") << QByteArray("Tovarin.mdb") << QByteArray() << failed;
        QTest::addRow("empty database") << QByteArray("Tovarin.mdb") << QByteArray("") << failed;
        QTest::addRow("no database at all")
            << QByteArray("Tovarin.mdb") << QByteArray(9999, 'x') << failed;
    }

    void brokenFolder_endsTheProgramWithItsMessage()
    {
        QFETCH(QByteArray, file);
        QFETCH(QByteArray, content);
        QFETCH(QString, message);
        const ProgramFolder folder;
        QVERIFY(QFile::remove(folder.file(file.constData())));
        if (!content.isNull())
            folder.replace(file.constData(), content);
        const Run run = runProgram(folder, QString());
        QCOMPARE(run.said, QStringList(message));
        QCOMPARE(run.exitCode, 1);
        QCOMPARE(QFile::exists(folder.file(file.constData())), !content.isNull());
    }
};

QTEST_GUILESS_MAIN(TestProgram)
#include "test_program.moc"
