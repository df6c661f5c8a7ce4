// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "db/basdatabase.h"
#include "platform/browser/browserpane.h"
#include "reports/frmprinttopn.h"
#include "reports/reportdata.h"
#include "tests/reports/reportfolder.h"
#include "tests/support/boxes.h"
#include "tests/support/brokendisks.h"
#include "tests/support/sampledatabase.h"

#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPrintDialog>
#include <QProcess>
#include <QPushButton>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTcpServer>
#include <QTest>
#include <QWebEnginePage>
#include <QWebEngineScript>
#include <QWebEngineView>

#include <csignal>
#include <memory>
#include <optional>

using support::Box;
using support::BoxReader;

namespace {

constexpr int pageTimeout = 20000; // milliseconds

/// What a script answers in a page. Pages without scripts run it in a world of its own.
QVariant answerOf(QWebEnginePage &page, const char *script,
                  QWebEngineScript::ScriptWorldId world = QWebEngineScript::MainWorld)
{
    const auto answer = std::make_shared<std::optional<QVariant>>();
    page.runJavaScript(QLatin1String(script), world,
                       [answer](const QVariant &result) { *answer = result; });
    const bool isThere = QTest::qWaitFor([answer] { return answer->has_value(); }, pageTimeout);
    return isThere ? **answer : QVariant();
}

/// The report window as its buttons open it.
class Report
{
public:
    explicit Report(PrintReportType type = PrintReportType::TopN)
    {
        show(type);
        waitForPage();
    }

    void show(PrintReportType type) { window.showReport(type, QStringLiteral("10")); }
    void waitForPage()
    {
        QSignalSpy complete(&pane(), &browser::BrowserPane::documentComplete);
        QVERIFY(complete.wait(pageTimeout));
    }

    browser::BrowserPane &pane() { return *window.findChild<browser::BrowserPane *>(); }
    QWebEngineView *view() { return window.findChild<QWebEngineView *>(); }
    QString note() { return window.findChild<QLabel *>(QStringLiteral("lblPrintNote"))->text(); }

    /// What a script answers in the page.
    QVariant run(const char *script) { return answerOf(*view()->page(), script); }

    /// The tables of the page, a line for each row, "|" between the cells.
    QStringList tables()
    {
        return run("[...document.querySelectorAll('tr')].map(row => "
                   "[...row.cells].map(cell => cell.textContent).join('|'))")
            .toStringList();
    }

    /// Presses the button in the page and answers the print dialog.
    /// @param file  where to print to; empty to cancel
    void print(const QString &file)
    {
        run("document.querySelector('input[type=button]').click()");
        QPrintDialog *dialog = waitForDialog();
        QVERIFY(dialog);
        // The last printer is the one that writes a file.
        auto *printers = dialog->findChild<QComboBox *>(QStringLiteral("printers"));
        printers->setCurrentIndex(printers->count() - 1);
        dialog->findChild<QLineEdit *>(QStringLiteral("filename"))->setText(file);
        const auto button = file.isEmpty() ? QDialogButtonBox::Cancel : QDialogButtonBox::Ok;
        dialog->findChild<QDialogButtonBox *>()->button(button)->click();
        QVERIFY(QTest::qWaitFor(
            [this] { return !note().startsWith(u"The Print") && !note().startsWith(u"Printing…"); },
            pageTimeout));
    }

    static QPrintDialog *waitForDialog()
    {
        QPrintDialog *dialog = nullptr;
        const bool isThere = QTest::qWaitFor([&dialog] {
            dialog = qobject_cast<QPrintDialog *>(QApplication::activeModalWidget());
            return dialog != nullptr;
        });
        return isThere ? dialog : nullptr;
    }

    frmPrintTopN window;
};

QString pdfText(const QString &file)
{
    QProcess reader;
    reader.start(QStringLiteral("pdftotext"),
                 {QStringLiteral("-layout"), file, QStringLiteral("-")});
    reader.waitForFinished();
    return QString::fromUtf8(reader.readAllStandardOutput());
}

} // namespace

class TestReports : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pane_showsAPageOrThatItIsMissing()
    {
        const ReportFolder folder;
        support::writeFile(folder.file(QStringLiteral("page.htm")),
                           QByteArray("<title>A page</title>")
                               + QByteArray("<p>x</p>").repeated(300));
        browser::BrowserPane pane;
        QSignalSpy complete(&pane, &browser::BrowserPane::documentComplete);
        pane.navigate(folder.file(QStringLiteral("page.htm")));
        pane.show();
        pane.setFocus();
        QVERIFY(complete.wait(pageTimeout));
        auto *page = pane.findChild<QWebEngineView *>()->page();
        QCOMPARE(page->title(), QStringLiteral("A page"));
        // Loaded once more it begins anew, wherever the reader was.
        const auto place = [page] {
            return answerOf(*page, "scrollY", QWebEngineScript::ApplicationWorld);
        };
        QTest::keyClick(pane.focusWidget(), Qt::Key_End);
        QTRY_VERIFY(place().toDouble() > 0);
        pane.navigate(folder.file(QStringLiteral("page.htm")));
        QVERIFY(complete.wait(pageTimeout));
        QCOMPARE(place(), QVariant(0));
        pane.navigate(folder.file(QStringLiteral("none.htm")));
        QVERIFY(complete.wait(pageTimeout));
        QCOMPARE(page->title(), QStringLiteral("This page is missing"));
    }

    void page_showsTheReport()
    {
        const ReportFolder folder(sampleRows());
        reports::FillTempTopN(QStringLiteral("10"));
        QStringList tables;
        basDatabase::WatchStatements(
            [&](const QString &sql) { tables.append(sql.section(u' ', 3, 3)); });
        Report report;
        basDatabase::WatchStatements({});
        QCOMPARE(tables, QStringList({QStringLiteral("tblTopN"), QStringLiteral("TEMPTOPN")}));
        QCOMPARE(report.window.windowTitle(), QStringLiteral("Top 10 Tovarin Names Report"));
        QCOMPARE(frmPrintTopN::paneSizes.large, QSize(14360, 10520));
        QCOMPARE(frmPrintTopN::paneSizes.small, QSize(8600, 6200));
        QCOMPARE(report.pane().size(), layout::sizeForScreen(frmPrintTopN::paneSizes));
        const QPoint offCentre =
            report.window.geometry().center() - report.window.screen()->geometry().center();
        QVERIFY(offCentre.manhattanLength() < 10);
        const QString header = QStringLiteral("No.|Name|Origin|Boy/Girl|Meaning");
        QCOMPARE(report.tables(), QStringList({header, QStringLiteral("1|Gone|Old Norse|B|"),
                                               QStringLiteral("2|D'Arcy|Irish|B|dark"), header,
                                               QStringLiteral("1|Anna|Hebrew|G|"),
                                               QStringLiteral("2|Ben x|Hebrew|B|"),
                                               QStringLiteral("3|Zoë|Greek|G|life")}));
        QCOMPARE(report.run("getComputedStyle(document.body).fontSize").toString(),
                 QStringLiteral("15px")); // the style sheet is there
        QTRY_VERIFY(report.run("document.images[0].naturalWidth").toInt() > 0);
        // Pages know that the desktop is dark, see main().
        QVERIFY(report.run("matchMedia('(prefers-color-scheme: dark)').matches").toBool());

        // Text can't be selected, and no menu opens.
        report.view()->page()->triggerAction(QWebEnginePage::SelectAll);
        QTest::qWait(300);
        QCOMPARE(report.run("String(getSelection())").toString(), QString());
        QTest::mouseClick(report.view()->focusProxy(), Qt::RightButton, {}, QPoint(200, 200));
        QTest::qWait(300);
        QVERIFY(!QApplication::activePopupWidget());
    }

    void window_isLoadedAnewOnlyWhenItWasClosed()
    {
        const ReportFolder folder(sampleRows());
        Report report(PrintReportType::Initial);
        QCOMPARE(report.window.windowTitle(),
                 QStringLiteral("Tovarin Full Name and Initial Report"));
        QCOMPARE(report.tables().value(1), QStringLiteral("1|Zoë|Ann|O'Neil|K.L.|ZAOK.L."));
        basDatabase::ExecuteSQL(QStringLiteral("delete from tblinitial"));
        report.show(PrintReportType::TopN);
        QTest::qWait(300);
        QCOMPARE(report.tables().size(), 3);
        report.window.close();
        report.show(PrintReportType::Initial);
        // Who prints at once gets the report, and not what it is to be put into.
        QVERIFY(QTest::qWaitForWindowActive(&report.window));
        QTest::keyClick(&report.window, Qt::Key_P, Qt::ControlModifier);
        QPrintDialog *dialog = Report::waitForDialog();
        QVERIFY(dialog);
        QCOMPARE(report.tables().size(), 1);
        dialog->reject();
    }

    void lostPage_comesBack()
    {
        const ReportFolder folder(sampleRows());
        Report report(PrintReportType::Initial);
        QSignalSpy lost(&report.pane(), &browser::BrowserPane::documentLost);
        QVERIFY(kill(pid_t(report.view()->page()->renderProcessPid()), SIGKILL) == 0);
        QVERIFY(lost.wait());
        report.waitForPage();
        QCOMPARE(report.tables().size(), 3);
    }

    void printing_writesAPdf_data()
    {
        QTest::addColumn<int>("rows");
        QTest::addRow("nothing") << 0;
        QTest::addRow("several pages") << 500;
    }

    void printing_writesAPdf()
    {
        QFETCH(int, rows);
        const ReportFolder folder;
        for (int i = 1; i <= rows; ++i)
            basDatabase::ExecuteSQL(
                fullName(QStringLiteral("'Name%1','','O''Neil','','NO'").arg(i)));
        Report report(PrintReportType::Initial);
        const QString file = folder.file(QStringLiteral("names.pdf"));
        report.print(file);
        QCOMPARE(report.note(), QString(u"The report is saved as " % file % u'.'));
        const QString text = pdfText(file);
        QVERIFY(text.contains(u"Your Tovarin Full Name and Initials"));
        QCOMPARE(text.count(u'\f') > 3, rows > 0); // pages
        // A new page begins with a form feed.
        static const QRegularExpression line(
            QStringLiteral("(?<=[\\n\\f]) *(\\d+) +Name(\\d+) +O'Neil +NO\\n"));
        int found = 0;
        for (const QRegularExpressionMatch &match : line.globalMatch(text)) {
            ++found;
            QCOMPARE(match.captured(1).toInt(), found);
            QCOMPARE(match.captured(2).toInt(), found);
        }
        QCOMPARE(found, rows);
        QVERIFY(!text.contains(u"Print"));
    }

    /// First names and initials stay whole beside all that people write, and the file has a title.
    void printing_breaksNoNames()
    {
        const QString endless(90, u'q');
        const ReportFolder folder(
            {fullName(QStringLiteral("'Aleksandra','Margaret Elizabeth Josephine','Cholmondeley "
                                     "Featherstonehaugh','K. L. B.','AMCK. L. B.'")),
             fullName(QStringLiteral("'Maaike','Oluwaseun','Van den Broeck','S.J.','MOVS.J.'")),
             fullName(QStringLiteral("'Eva','%1','%1','%1','Eqq%1'").arg(endless))});
        Report report(PrintReportType::Initial);
        const QString file = folder.file(QStringLiteral("names.pdf"));
        report.print(file);
        const QString text = pdfText(file);
        for (const char *whole : {"Aleksandra", "AMCK. L. B.", "Maaike", "MOVS.J.", "Eva",
                                  "Oluwaseun", "Josephine", "Cholmondeley", "Featherstonehaugh"})
            QVERIFY2(text.contains(QLatin1String(whole)), qPrintable(text));
        QCOMPARE(text.count(u'q'), 4 * endless.size() + 2); // nothing beyond the edge
        QProcess reader;
        reader.start(QStringLiteral("pdfinfo"), {file});
        reader.waitForFinished();
        QVERIFY(reader.readAllStandardOutput().contains("Title:           Tovarin Full Name and"));
    }

    void printing_oneJobAtATime_tellsHowItEnded()
    {
        const ReportFolder folder(sampleRows());
        Report report;
        report.window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&report.window));
        QTest::keyClick(&report.window, Qt::Key_P, Qt::ControlModifier);
        const QPointer dialog(Report::waitForDialog());
        QVERIFY(dialog);
        report.pane().print(QStringLiteral("second"));
        QVERIFY(dialog && QApplication::activeModalWidget() == dialog);
        QCOMPARE(report.window.findChildren<QPrintDialog *>().size(), 1);
        dialog->reject();
        QCOMPARE(report.note(), QStringLiteral("Printing was cancelled."));

        // A file that can't be written leaves the one that was there.
        const QString file = folder.file(QStringLiteral("names.pdf"));
        support::writeFile(file, "old");
        BoxReader reader(QMessageBox::Yes);
        std::optional<support::ReadOnlyFolder> readOnly;
        const auto becomeReadOnly = [&] { readOnly.emplace(folder.folder()); };
        const auto connection =
            connect(&report.pane(), &browser::BrowserPane::printStarted, this, becomeReadOnly);
        report.print(file);
        readOnly.reset();
        disconnect(connection);
        QCOMPARE(support::readFile(file), QByteArray("old"));
        const std::vector<Box> boxes = reader.take();
        QCOMPARE(boxes.size(), std::size_t(2)); // the first asks whether to replace it
        QVERIFY(boxes[1].text.startsWith(u"The report could not be saved as " % file));
        report.print(file);
        QVERIFY(pdfText(file).contains(u"D'Arcy"));
    }

    /// What names and texts may hold: the page shows it, but it reaches nothing and leads nowhere.
    void plantedMarkup_loadsNothing()
    {
        QTcpServer server;
        QVERIFY(server.listen(QHostAddress::LocalHost));
        const QString to = QStringLiteral("http://127.0.0.1:%1/").arg(server.serverPort());
        const QString planted =
            QString(QStringLiteral(
                        "<img src=\"URLimg\" onerror=\"document.title=1\"><script>document.title=2;"
                        "fetch(\"URLfetch\")</script><script src=\"URLscript\"></script>"
                        "<link rel=stylesheet href=\"URLsheet\"><link rel=preconnect href=\"URL\">"
                        "<link rel=prefetch href=\"URLpre\"><link rel=icon href=\"URLicon\">"
                        "<style>@import \"URLimport\"; td { background: url(URLback) }</style>"
                        "<iframe src=\"URLframe\"></iframe><iframe src=\"things.htm\"></iframe>"
                        "<iframe srcdoc=\"<img src=URLinner>\"></iframe>"
                        "<object data=\"URLobject\"></object><embed src=\"URLembed\">"
                        "<video src=\"URLvideo\" poster=\"URLposter\" autoplay></video>"
                        "<meta http-equiv=refresh content=\"0;url=URLrefresh\"><base href=\"URL\">"
                        "<img src=\"based\"><svg><image href=\"URLsvg\"/></svg>"
                        "<a href=\"URLlink\" ping=\"URLping\">x</a><a href=\"report.css\">y</a>"
                        "<a href=\"file:///etc/hostname\">z</a><a href=\"data:text/html,d\">d</a>"
                        "<a href=\"javascript:document.title=3\">j</a>"
                        "<form action=\"URLform\"><input type=submit></form><img name=body>"))
                .replace(QStringLiteral("URL"), to);
        const ReportFolder folder({fullName(u"'Ann','" % planted % u"','','',''")});
        Report report(PrintReportType::Initial);
        const QString title = report.window.windowTitle();
        QVERIFY(report.tables().size() > 1);
        QCOMPARE(
            report.run("document.body.querySelectorAll('link, meta, base, iframe').length").toInt(),
            0);
        for (int i = 0; i < 6; ++i) {
            const QString script =
                QStringLiteral("document.querySelectorAll('a, input[type=submit]')[%1].click()");
            report.run(script.arg(i).toLatin1().constData());
            QTest::qWait(50);
        }
        QTest::qWait(500);
        QVERIFY(!server.hasPendingConnections());
        QCOMPARE(report.run("document.title").toString(), title);
        QCOMPARE(report.run("[...document.images].filter(i => i.naturalWidth > 0).length").toInt(),
                 1); // the logo
        QCOMPARE(report.tables().size(), 2);
        // The empty page is the one that opens without asking; the report comes back.
        QSignalSpy lost(&report.pane(), &browser::BrowserPane::documentLost);
        report.run("document.querySelector('a').href = 'about:blank';"
                   "document.querySelector('a').click()");
        QVERIFY(lost.wait());
        QTRY_COMPARE(report.tables().size(), 2);
        // The report's own script lives, whatever the elements are called.
        QVERIFY(report.run("typeof document.onselectstart === 'function'").toBool());
    }
};

int main(int argc, char *argv[])
{
    browser::prepareProcess();
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setPalette(QPalette(QColor(40, 44, 52))); // a dark desktop
    TestReports tests;
    return QTest::qExec(&tests, argc, argv);
}
#include "test_reports.moc"
