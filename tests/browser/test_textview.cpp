// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

// What is shown where there is no browser, and where pages may lead.

#include "platform/browser/browserpane.h"
#include "platform/browser/localhtml.h"
#include "platform/browser/textview.h"
#include "tests/support/boxes.h"
#include "tests/support/sampledatabase.h"

#include <QClipboard>
#include <QFileDialog>
#include <QPrinterInfo>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBlock>
#include <QTextBrowser>

#include <vector>

using browser::PrintResult;
using browser::TextView;

namespace {

class PageFolder
{
public:
    PageFolder()
    {
        browser::setPageFolder(m_folder.path());
        QFile::copy(QStringLiteral(DATA_FOLDER "/pictures/logocust.jpg"), file("logo.jpg"));
        support::writeFile(file("a.htm"),
                           "<title>A</title><figure>\n<svg><text>drawn</text></svg>\n"
                           "<figcaption>Chart</figcaption></figure>"
                           "<ul class=\"jump\">\n<li><a href=\"#end\">End</a>"
                           "</li>\n</ul><h2 id=\"end\">Zo\xC3\xAB</h2>"
                           "<a href=\"b.htm\">next</a>");
        support::writeFile(file("b.htm"), "second");
    }

    QString file(const char *name) const { return m_folder.filePath(QLatin1String(name)); }
    QString path() const { return m_folder.path(); }

private:
    QTemporaryDir m_folder {QDir::tempPath() % u"/Zo\u00EB's pages XXXXXX"};
};

QTextBrowser &textOf(const TextView &view)
{
    return *view.findChild<QTextBrowser *>();
}

void follow(const TextView &view, const QString &address)
{
    Q_EMIT textOf(view).anchorClicked(QUrl(address));
}

/// The pictures of a page that are there, as they are shown.
std::vector<QTextImageFormat> picturesIn(const TextView &view)
{
    std::vector<QTextImageFormat> pictures;
    const QTextDocument &document = *textOf(view).document();
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        for (auto part = block.begin(); !part.atEnd(); ++part) {
            const QTextImageFormat image = part.fragment().charFormat().toImageFormat();
            if (image.isValid()
                && document.resource(QTextDocument::ImageResource, QUrl(image.name())).isValid())
                pictures.push_back(image);
        }
    }
    return pictures;
}

} // namespace

class TestTextView : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void addresses_areThoseOfThePageFolder()
    {
        const PageFolder folder;
        const QString inFolder = QUrl::fromLocalFile(folder.path()).toString();
        const auto allowed = [](const QString &url) { return browser::isAllowed(QUrl(url)); };
        QVERIFY(allowed(QStringLiteral("about:blank")));
        QVERIFY(allowed(inFolder % u"/things.htm"));
        for (const QString &url :
             {QStringLiteral("http://example.org/"), QStringLiteral("https://example.org/x.png"),
              QStringLiteral("file:///etc/passwd"), QStringLiteral("about:version"),
              QStringLiteral("data:text/html,x"), QStringLiteral("javascript:alert(1)"),
              QString(inFolder % u"/../../etc/passwd"), QString(inFolder % u"/%2e%2e/passwd"),
              QString(u"file://host" % inFolder.mid(7) % u"/things.htm")})
            QVERIFY2(!allowed(url), qPrintable(url));
    }

    void page_isReadableAndLeadsToItsNeighbours()
    {
        const PageFolder folder;
        TextView view(nullptr);
        QSignalSpy complete(&view, &browser::PaneView::documentComplete);
        view.showFile(folder.file("a.htm"));
        QCOMPARE(complete.size(), 0); // the caller is not ready yet
        QVERIFY(complete.wait());
        QCOMPARE(textOf(view).toPlainText().simplified(), QStringLiteral("End Zo\u00EB next"));
        follow(view, QStringLiteral("#end"));
        for (const char *forbidden : {"http://localhost/", "../b.htm", "file:///etc/passwd"})
            follow(view, QLatin1String(forbidden));
        QVERIFY(textOf(view).toPlainText().contains(u"next"));
        follow(view, QStringLiteral("b.htm"));
        QCOMPARE(textOf(view).toPlainText(), QStringLiteral("second"));
        view.showFile(folder.file("none.htm"));
        QVERIFY(textOf(view).toPlainText().startsWith(u"This page is missing"));
    }

    void blankDocument_isFilledAndLeadsNowhere()
    {
        const PageFolder folder;
        TextView view(nullptr);
        view.showBlank({.title = QStringLiteral("Report")});
        const QString logo = browser::fileAddress(folder.file("logo.jpg"));
        view.setInnerHtml(u"<script>run()</script><img src='" % logo
                          % u"'><img src='http://localhost/x.png'><img src='../x.png'>"
                            u"<table><tr><td>1</td><td>Ann</td></tr></table>");
        QCOMPARE(textOf(view).toPlainText().remove(QChar::ObjectReplacementCharacter).simplified(),
                 QStringLiteral("1 Ann"));
        QCOMPARE(picturesIn(view).size(), 1);
        // A report can be printed, but its text not be taken away; with a page it is the other way
        // round.
        auto *button = view.findChild<QPushButton *>(QStringLiteral("cmdPrintPage"));
        const auto copied = [&view] {
            QGuiApplication::clipboard()->clear();
            for (const Qt::Key key : {Qt::Key_A, Qt::Key_C})
                QTest::keyClick(&textOf(view), key, Qt::ControlModifier);
            return QString(QGuiApplication::clipboard()->text()
                           % textOf(view).textCursor().selectedText());
        };
        QVERIFY(!button->isHidden());
        QCOMPARE(copied(), QString());
        view.showFile(folder.file("b.htm"));
        QVERIFY(button->isHidden());
        QVERIFY(copied().startsWith(u"second"));
        view.showBlank({});
        view.setInnerHtml(QStringLiteral("Ann"));
        follow(view, QStringLiteral("b.htm"));
        QVERIFY(textOf(view).toPlainText().contains(u"Ann"));
    }

    void picture_fitsAndHasItsCaptionBelow()
    {
        const PageFolder folder;
        support::writeFile(folder.file("c.htm"),
                           "<h2>Result</h2>\n<figure>\n<img src=\"logo.jpg\" width=\"600\" "
                           "height=\"300\">\n<figcaption>A search</figcaption>\n</figure>");
        TextView view(nullptr);
        view.resize(400, 400);
        view.show();
        view.showFile(folder.file("c.htm"));
        const QTextBlock heading = textOf(view).document()->begin();
        QCOMPARE(heading.text().trimmed(), QStringLiteral("Result"));
        QVERIFY(heading.next().text().contains(u"A search"));
        for (const int width : {400, 300, 1000, 400}) {
            view.resize(width, 400);
            const QTextImageFormat picture = picturesIn(view).at(0);
            QCOMPARE(picture.width() / picture.height(), 2.0);
            if (width == 1000)
                QCOMPARE(picture.width(), 600.0);
            else
                QVERIFY(picture.width() < width && picture.width() > 0.75 * width);
        }
    }

    /// Without a printer, what the button makes is a file.
    void printButton_savesAPdf()
    {
        if (!QPrinterInfo::availablePrinterNames().isEmpty())
            QSKIP("a printer is set up");
        const PageFolder folder;
        TextView view(nullptr);
        view.showBlank({.title = QStringLiteral("Report")});
        view.setInnerHtml(QStringLiteral("<img src='logo.jpg' width='900' height='90'>")
                          % QStringLiteral("<p>Ann</p>").repeated(200));
        QSignalSpy requested(&view, &browser::PaneView::printRequested);
        view.findChild<QPushButton *>(QStringLiteral("cmdPrintPage"))->click();
        QCOMPARE(requested.size(), 1);
        PrintResult result;
        connect(&view, &browser::PaneView::printFinished, this,
                [&result](const PrintResult &told) { result = told; });
        QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
        const auto printTo = [&](const QString &path) {
            view.print(QStringLiteral("Report"));
            auto *dialog = view.findChild<QFileDialog *>();
            QVERIFY(dialog && dialog->isVisible() && view.isPrinting());
            view.print(QStringLiteral("second")); // one at a time
            QCOMPARE(view.findChildren<QFileDialog *>().size(), 1);
            dialog->selectFile(path);
            static_cast<QDialog *>(dialog)->done(path.isEmpty() ? QDialog::Rejected
                                                                : QDialog::Accepted);
        };
        printTo({});
        QVERIFY(result.outcome == PrintResult::Outcome::Cancelled);
        const QString file = folder.file("Report \u00E9.pdf");
        printTo(file);
        QVERIFY(result.outcome == PrintResult::Outcome::SavedAsFile);
        QCOMPARE(QDir::cleanPath(result.file), file);
        const QByteArray pdf = support::readFile(file);
        QVERIFY(pdf.startsWith("%PDF"));
        const QImage picture(folder.file("logo.jpg"));
        QVERIFY(!picture.isNull());
        QVERIFY(pdf.contains(QByteArray("/Width ").append(QByteArray::number(picture.width()))));
        printTo(folder.file("none/Report.pdf"));
        QVERIFY(result.outcome == PrintResult::Outcome::Failed && !result.reason.isEmpty());
    }

    /// For the browser that loads whatever a report names.
    void localHtml_keepsWhatLoadsNothing_data()
    {
        QTest::addColumn<QString>("html");
        QTest::addColumn<QString>("local");
        const auto row = [](const char *html, const char *local) {
            QTest::newRow(html) << QString::fromUtf8(html) << QString::fromUtf8(local);
        };
        row("Zo\u00EB <i>&amp;</i> a < b<br/>", "Zo\u00EB <i>&amp;</i> a &lt; b<br>");
        row("<table border=1 width='9'><tr bgcolor=\"Silver\"><TD>x</TD>",
            R"(<table border="1" width="9"><tr bgcolor="Silver"><td>x</td>)");
        row("<input type=button onclick='javascript:window.print()' value='Print'>",
            R"(<input type="button" value="Print">)");
        row("<script language='JavaScript1.2'>if (a<b) c</script><p>", "<p>");
        row("<xmp><script></xmp><img src=//host/x></script>a", "<xmp>a");
        row("<svg><script><img src=//host/x>", "<svg>");
        row("<img src=\"file://host/share/x.png\">", "<img>");
        row(R"(<img src='\\host\share\x.png'><img/src=//host/x>)", "<img><img>");
        row("<img src=\"file:&#47;&#47;host/x.png\" lowsrc=http://host/x>", "<img>");
        row("<img alt='>' src = file:////host/share/x.png>", "<img>");
        row("<IMG\nSRC=FOLDER/logo.jpg><input type=image src=FOLDER/logo.jpg>",
            R"(<img src="FOLDER/logo.jpg"><input type="image">)");
        row("<td background=http://host/x style=\"background: url(//host/y)\">", "<td>");
        row("<STYLE>@import '//host/x';</STYLE >a<style>b", "a");
        row("<!--[if IE]><img src=//host/x><![endif]-->b", "<img>b");
        row("<?xml:namespace ns=x><link href=//host/x><iframe src='//host/x'>", "<link><iframe>");
        row("a<b c='", "a");
    }

    void localHtml_keepsWhatLoadsNothing()
    {
        const PageFolder folder;
        const auto filled = [&](QString text) {
            return text.replace(QStringLiteral("FOLDER"),
                                QUrl::fromLocalFile(folder.path()).toString(QUrl::FullyEncoded));
        };
        QFETCH(QString, html);
        QFETCH(QString, local);
        QCOMPARE(browser::localHtml(filled(html)), filled(local));
    }
};

QTEST_MAIN(TestTextView)
#include "test_textview.moc"
