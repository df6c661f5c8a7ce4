// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "db/basdatabase.h"
#include "platform/access/connection.h"
#include "platform/browser/browserpane.h"
#include "reports/reportdata.h"
#include "tests/reports/reportfolder.h"
#include "tests/support/boxes.h"
#include "tests/support/brokendisks.h"

#include <QTest>

#include <optional>

using support::Box;
using support::BoxReader;

class TestReportData : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void texts_areWrittenPieceByPiece()
    {
        const QString beginning =
            QStringLiteral("<script language='JavaScript1.2'>function disabletext(e){return false "
                           "} \rfunction reEnable(){return true }\r//if the browser is IE4+\r"
                           "document.onselectstart=new Function ('return false')\r//if the browser "
                           "is NS6 \rif (window.sidebar){ Document.onmousedown = disabletext;"
                           "Document.onclick = reEnable;}</script><html><body><center>"
                           "<img src='file:///P/logocust.jpg'><br><h2>");
        const QString end = QStringLiteral(
            "</table></center><br><center><input type=button "
            "onclick='javascript:window.print()' value='Print'><br><br>Made with Tovarin, the "
            "names dictionary for expectant parents.</center></body></html>");
        const QString names = QStringLiteral(
            "<table border=1 cellpadding=0 cellspacing=0><tr bgcolor='Silver'><td>No.</td><td>Name"
            "</td><td>Origin</td><td>Boy/Girl</td><td>Meaning</td></tr>");
        const QString logo = QStringLiteral("file:///P/logocust.jpg");

        const ReportFolder folder(sampleRows());
        QVERIFY(reports::FillTempTopN(QStringLiteral("10")));
        QCOMPARE(reports::topNReport(logo, QStringLiteral("10"), reports::rankedNames(),
                                     reports::unrankedNames()),
                 beginning % u"Your Top 10 Selected Tovarin Names</h2><br>" % names
                     % u"<tr><td>1</td><td>Gone</td><td>Old Norse</td><td>B</td><td></td></tr>"
                       u"<tr><td>2</td><td>D'Arcy</td><td>Irish</td><td>B</td><td>dark</td></tr>"
                       u"</table><br><h2>Your Selected Tovarin Names</h2><br>"
                     % names
                     % u"<tr><td>1</td><td>Anna</td><td>Hebrew</td><td>G</td><td></td></tr>"
                       u"<tr><td>2</td><td>Ben <i>x</i></td><td>Hebrew</td><td>B</td><td></td></tr>"
                       u"<tr><td>3</td><td>Zoë</td><td>Greek</td><td>G</td><td>life</td></tr>"
                     % end);
        QCOMPARE(
            reports::initialReport(logo, reports::savedFullNames()),
            beginning
                % u"Your Tovarin Full Name and Initials</h2><br>"
                  u"<table border=0 cellpadding=1 cellspacing=1><tr bgcolor='Silver'><td>No.</td>"
                  u"<td>First</td><td>Middle</td><td>Last</td><td>Other</td><td>Initial</td></tr>"
                  u"<tr><td>1</td><td>Zoë</td><td>Ann</td><td>O'Neil</td><td>K.L.</td>"
                  u"<td>ZAOK.L.</td></tr><tr><td>2</td><td>Ben</td><td>&nbsp;</td><td></td>"
                  u"<td><b>y</b></td><td>&nbsp;</td></tr>"
                % end);
    }

    void logo_isFoundInAnyFolder()
    {
        QCOMPARE(browser::fileAddress(QStringLiteral("/O'Neil 100%/é#?/logo.jpg")),
                 QStringLiteral("file:///O%27Neil%20100%25/é%23%3F/logo.jpg"));
    }

    void tempTopN_isFilledAnewFromTheShortlist()
    {
        const ReportFolder folder(sampleRows());
        const QString all = QStringLiteral("select * from TEMPTOPN");
        QVERIFY(reports::FillTempTopN(QStringLiteral("10")));
        QCOMPARE(support::table(all), QStringList({QStringLiteral("Zoë|Greek|G|1|Y"),
                                                   QStringLiteral("D'Arcy|Irish|B|02|T"),
                                                   QStringLiteral("Anna|Hebrew|G|2|Y"),
                                                   QStringLiteral("Ben <i>x</i>|Hebrew|B|3|Y")}));
        // Blanks go only where there is no rank, and a namesake has a rank of his own.
        for (const char *statement :
             {"delete from tblresult", "insert into tblresult(name_desc, name_orgid, name_sex) "
                                       "values(' Gone', 'Old Norse', 'B'), (' New', 'Irish', 'B'), "
                                       "('D''Arcy', 'Irish', 'G')"})
            basDatabase::ExecuteSQL(QLatin1String(statement));
        QVERIFY(reports::FillTempTopN(QStringLiteral("10")));
        QCOMPARE(support::table(all), QStringList({QStringLiteral(" Gone|Old Norse|B|01|T"),
                                                   QStringLiteral("New|Irish|B|1|Y"),
                                                   QStringLiteral("D'Arcy|Irish|G|2|Y")}));
    }

    void tempTopN_thatCannotBeEmptied_printsNothing_data()
    {
        QTest::addColumn<QString>("fault");
        QTest::addColumn<QString>("told");
        QTest::addRow("missing") << "missing"
                                 << "1 : There is no table named \"TEMPTOPN\".";
        QTest::addRow("locked")
            << "locked"
            << "5 : The database is in use by another program, so nothing was changed. "
               "Please try again in a moment.";
        QTest::addRow("read-only")
            << "read-only"
            << "8 : The database is read-only, so nothing was changed. Please check "
               "that you may write to the program's folder.";
    }

    void tempTopN_thatCannotBeEmptied_printsNothing()
    {
        QFETCH(QString, fault);
        QFETCH(QString, told);
        const ReportFolder folder(sampleRows());
        dbaccess::Connection other;
        std::optional<support::ReadOnlyFolder> readOnly;
        if (fault == u"missing") {
            QVERIFY(basDatabase::ExecuteSQL(QStringLiteral("drop table TEMPTOPN")));
        } else if (fault == u"locked") {
            basDatabase::ExecuteSQL(QStringLiteral("pragma busy_timeout = 1"));
            other.open(basDatabase::ConnectionText(support::samplePassword()));
            other.execute(QStringLiteral("begin immediate"));
        } else {
            basDatabase::CloseDatabase();
            readOnly.emplace(folder.folder());
            basDatabase::OpenDatabase();
        }
        BoxReader reader;
        QVERIFY(!reports::FillTempTopN(QStringLiteral("10")));
        const auto error = [](const QString &text) {
            return Box {QMessageBox::Critical, QStringLiteral("Error"), text};
        };
        QCOMPARE(
            reader.boxes(),
            (std::vector {error(told.mid(4)),
                          error(QStringLiteral("Failed to print top 10 report!")), error(told)}));
    }
};

QTEST_MAIN(TestReportData)
#include "test_reportdata.moc"
