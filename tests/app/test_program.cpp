// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

// Starts the program as it was built, in folders of its own, and uses it through its windows.

#include "tests/app/builtprogram.h"

#include <QFile>
#include <QTest>

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
