// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

// Nothing leaves the computer, whatever a name holds and whatever the browser's engine thinks of:
// seen from outside, by the system calls of the program and all its helpers.

#include "db/basdatabase.h"
#include "db/bastovarin.h"
#include "tests/app/builtprogram.h"

#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

namespace {

/// The network's system calls of a program and of all that it starts.
class Trace
{
public:
    /// The command that traces another one.
    QStringList command() const
    {
        return {QStringLiteral("strace"),
                QStringLiteral("-f"),
                QStringLiteral("--seccomp-bpf"),
                QStringLiteral("-qq"),
                QStringLiteral("-e"),
                QStringLiteral("trace=connect,sendto,sendmsg,sendmmsg"),
                QStringLiteral("-o"),
                m_folder.filePath(QStringLiteral("trace")),
                QStringLiteral("timeout"), // a tracer that is killed leaves it running
                QStringLiteral("50")};
    }

    /// Those that go to the network, or ask the system's resolver for a name.
    QStringList callsToNetwork() const
    {
        static const QRegularExpression network(
            QStringLiteral("sa_family=AF_INET|sin_port|sin6_port|io\\.systemd\\.Resolve|mdns"));
        return content().split(u'\n').filter(network);
    }

    bool hasSeenAnything() const { return content().contains(u"connect("); }

private:
    QString content() const
    {
        QFile file(m_folder.filePath(QStringLiteral("trace")));
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }

    QTemporaryDir m_folder;
};

/// All that a document can name addresses with; "URL" is the address.
constexpr char markup[] =
    "<link rel=preconnect href=\"URL\"><link rel=dns-prefetch href=\"URL\">"
    "<link rel=prefetch href=\"URL1\"><link rel=preload as=image href=\"URL2\">"
    "<link rel=prerender href=\"URL3\"><link rel=modulepreload href=\"URL4\">"
    "<link rel=icon href=\"URL5\"><link rel=stylesheet href=\"URL6\">"
    "<meta http-equiv=x-dns-prefetch-control content=on>"
    "<meta http-equiv=refresh content=\"0;url=URL7\"><base href=\"URL\">"
    "<img src=\"URL8\" srcset=\"URL9 2x\" onerror=\"fetch('URL10')\"><img src=based>"
    "<script>new WebSocket('URL11'.replace('http', 'ws')); new Image().src = 'URL12'</script>"
    "<script src=\"URL13\"></script><style>@import \"URL14\"; td { background: url(URL15) }"
    "</style><iframe src=\"URL16\"></iframe><iframe srcdoc=\"<link rel=preconnect href=URL><link "
    "rel=dns-prefetch href=URL><meta http-equiv=refresh content='0;url=URL17'><img src=URL18>\">"
    "</iframe><object data=\"URL19\"></object><embed src=\"URL20\"><video src=\"URL21\" "
    "poster=\"URL22\" autoplay></video><svg><image href=\"URL23\"/><use href=\"URL24#a\"/></svg>"
    "<template><link rel=preconnect href=\"URL\"></template>"
    "<a href=\"URL25\" ping=\"URL26\">a</a><a href=\"URL27\" target=_blank>b</a>"
    "<a href=\"URL28\" download>c</a>"
    "<form action=\"URL29\"><input type=submit></form>";
constexpr int linkCount = 4; // with the button of the form

constexpr const char *addresses[] = {"http://planted.invalid/", "https://127.0.0.1:9/",
                                     "http://[::1]:9/"};
constexpr int addressCount = std::size(addresses);

/// A folder whose user has planted the markup in every list that is printed.
void plant(const ProgramFolder &folder)
{
    QString planted;
    for (const char *address : addresses)
        planted +=
            QString::fromLatin1(markup).replace(QStringLiteral("URL"), QLatin1String(address));
    planted = basDatabase::QuoteSQL(planted);
    basTovarin::SetProgramFolder(folder.path());
    basDatabase::OpenDatabase();
    for (const QString &statement :
         {QStringLiteral("insert into tblresult(name_desc, name_orgid, name_sex, name_meaning) "
                         "values('Ann', 'Hebrew', 'G', '%1')"),
          QStringLiteral("insert into tbltopn(t10_id, t10_name, t10_orgid, t10_sex, t10_mid) "
                         "values('01', 'Bo', 'Danish', 'B', '%1')"),
          QStringLiteral("insert into tblinitial values('Bo', '%1', '', '', 'B')")})
        QVERIFY(basDatabase::ExecuteSQL(statement.arg(planted)));
    basDatabase::CloseDatabase();
}

/// Also looks into the dialog that asks for a file.
QString print(const QString &pdf)
{
    return QStringLiteral("press WebBrowser1 Ctrl+P;click fileBrowser;paste fileNameEdit %1;"
                          "enter fileNameEdit;paste filename %1;enter filename;"
                          "until lblPrintNote The report is saved as %1;")
        .arg(pdf);
}

} // namespace

class TestNetwork : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void trace_seesWhoConnects()
    {
        const Trace trace;
        QProcess program;
        program.start(QStringLiteral("strace"),
                      trace.command().sliced(1)
                          << QStringLiteral("bash") << QStringLiteral("-c")
                          << QStringLiteral("(: </dev/tcp/127.0.0.1/9); true"));
        QVERIFY(program.waitForFinished());
        QCOMPARE(trace.callsToNetwork().size(), 1);
    }

    void wholePass_connectsToNobodyAndLeavesNothing_data()
    {
        QTest::addColumn<QString>("toReport");
        QTest::addColumn<int>("links");
        QTest::newRow("ranking") << QStringLiteral("click cmdPrintTopN;")
                                 << 2 * addressCount * linkCount;
        QTest::newRow("full names")
            << QStringLiteral("click cmdNext;click cmdPrintInitial;") << addressCount * linkCount;
    }

    void wholePass_connectsToNobodyAndLeavesNothing()
    {
        QFETCH(QString, toReport);
        QFETCH(int, links);
        const ProgramFolder folder;
        plant(folder);
        // Where no print system is installed, its library would look for one on the port that it
        // has on this computer.
        qputenv("CUPS_SERVER", "/run/cups/cups.sock");
        const QTemporaryDir home;
        qputenv("HOME", home.path().toLocal8Bit());
        const Trace trace;
        // When the report is printed again, the page has dealt with all links. The last ones are
        // left alone: the stop behind them is the page's own button.
        const QString script =
            QStringLiteral("answer yes;click lblTerms;page WebBrowser1;close frmTerms;click cmdOK;"
                           "page dhtmThings;tab 1;page dhtmPopular;tab 2;click cmdSearch;"
                           "tick msSearchList 0;tab 4;page dhtmHelp;tab 5;page dhtmlAbout;tab 3;")
            % toReport % u"page WebBrowser1;" % print(folder.file("before.pdf"))
            % QStringLiteral("press WebBrowser1 Tab Return;").repeated(links - 3)
            % print(folder.file("after.pdf")) % u"close frmInfo";
        QProcess program;
        startProgram(program, folder, script, trace.command());
        const Run run = finish(program);
        QCOMPARE(run.exitCode, 0);
        QVERIFY(folder.content("after.pdf").startsWith("%PDF"));
        QVERIFY(trace.hasSeenAnything());
        QCOMPARE(trace.callsToNetwork().join(u'\n'), QString());
        // Fonts that the system has not listed yet are listed there by its font library, for all
        // programs.
        QStringList left;
        QDirIterator files(home.path(), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            if (const QString file = files.next(); !file.contains(u"/.cache/fontconfig/"))
                left.append(file);
        }
        QCOMPARE(left.join(u'\n'), QString());
    }
};

QTEST_GUILESS_MAIN(TestNetwork)
#include "test_network.moc"
