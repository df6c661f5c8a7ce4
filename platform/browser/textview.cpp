// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/browser/textview.h"

#include "platform/browser/browserpane.h"
#include "platform/browser/pagefolder.h"
#include "platform/browser/pdffile.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QKeyEvent>
#include <QPdfWriter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QPushButton>
#include <QRegularExpression>
#include <QScrollBar>
#include <QStandardPaths>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextFrame>
#include <QVBoxLayout>

#include <memory>
#include <utility>
#include <vector>

namespace browser {

namespace {

constexpr int logoHeight = 68; // pixels; that of the reports' style sheet

/// The width that a picture has in the page, other than on a narrow screen.
constexpr int ownWidth = QTextFormat::UserProperty;

/// Makes the pictures no wider than that many pixels, and those of which the page does not say how
/// wide they are as high as the logo.
void fitPictures(QTextDocument &document, double mostPixels)
{
    std::vector<std::pair<QTextCursor, QTextImageFormat>> fitted;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        for (auto part = block.begin(); !part.atEnd(); ++part) {
            const QTextFragment fragment = part.fragment();
            QTextImageFormat image = fragment.charFormat().toImageFormat();
            if (!image.isValid())
                continue;
            if (image.width() > 0) {
                if (!image.hasProperty(ownWidth))
                    image.setProperty(ownWidth, image.width());
                const double width = qMin(image.doubleProperty(ownWidth), mostPixels);
                image.setHeight(image.height() * width / image.width());
                image.setWidth(width);
            } else {
                image.setHeight(logoHeight);
            }
            if (image == fragment.charFormat())
                continue;
            QTextCursor cursor(&document);
            cursor.setPosition(fragment.position());
            cursor.setPosition(fragment.position() + fragment.length(), QTextCursor::KeepAnchor);
            fitted.emplace_back(cursor, image);
        }
    }
    for (auto &[cursor, image] : fitted)
        cursor.setCharFormat(image);
}

} // namespace

/// A text that loads nothing but files of the page folder, with pictures that fit in.
class PageText final : public QTextBrowser
{
public:
    using QTextBrowser::QTextBrowser;

    void showText(const QString &html)
    {
        setHtml(html);
        fit();
    }

    QVariant loadResource(int type, const QUrl &name) override
    {
        const QUrl folder = QUrl::fromLocalFile(pageFolder() % u'/');
        const QUrl url = folder.resolved(name);
        if (!isAllowed(url))
            return {};
        QFile file(url.toLocalFile());
        if (!file.open(QIODevice::ReadOnly))
            return {};
        const QByteArray content = file.readAll();
        return type == QTextDocument::StyleSheetResource ? QVariant(QString::fromUtf8(content))
                                                         : QVariant(content);
    }

protected:
    void keyPressEvent(QKeyEvent *event) override
    {
        // These work on a text that can't be selected, too.
        const bool isForSelection =
            event->matches(QKeySequence::SelectAll) || event->matches(QKeySequence::Copy);
        if (isForSelection && !(textInteractionFlags() & Qt::TextSelectableByMouse))
            event->ignore();
        else
            QTextBrowser::keyPressEvent(event);
    }

    void resizeEvent(QResizeEvent *event) override
    {
        QTextBrowser::resizeEvent(event);
        if (event->size().width() != event->oldSize().width())
            fit();
    }

private:
    void fit()
    {
        fitPictures(*document(), width() - 2 * document()->documentMargin()
                                     - verticalScrollBar()->sizeHint().width());
    }
};

namespace {

using Outcome = PrintResult::Outcome;

// At the usual 96 dots to the inch. Only sizes in points are the same on paper.
constexpr double pointsPerPixel = 72.0 / 96.0;
constexpr double paperPointSize = 11; // that of the style sheets for paper
constexpr double paperWidth = 640;    // pixels; that of A4 between margins of 2 cm

/// How the texts look, in the colours of the pages.
constexpr char colours[] = R"(
    h1, h2, h3, caption, a { color: #1f5f6b; }
    dt { font-weight: bold; }
    dd { margin-left: 0; -qt-block-indent: 1; }
    th { text-align: left; }
    th, td { padding: 3px 9px; }
    thead th { background-color: #f7f1e5; }
    caption { font-weight: bold; }
)";

/// Without what a browser would draw or run, since the text would only show the inside of that, and
/// without captions of what is not there. Lists that lead into the page, which it can't set in a
/// line, become lines, and pictures with a caption, which it doesn't know, paragraphs.
QString readableHtml(QString html)
{
    constexpr QStringView jumpList = u"<ul class=\"jump\">";
    constexpr QStringView listEnd = u"</ul>";
    static const QRegularExpression items(QStringLiteral("<li>|</li>\\s*"));
    if (const qsizetype start = html.indexOf(jumpList); start >= 0) {
        const qsizetype links = start + jumpList.size();
        const qsizetype end = html.indexOf(listEnd, links);
        const QString line = html.mid(links, end - links)
                                 .replace(items, QStringLiteral(" "))
                                 .replace(QStringLiteral("</a>"), QStringLiteral("</a>&nbsp; "));
        html.replace(start, end + listEnd.size() - start, u"<p>" % line % u"</p>");
    }
    static const QRegularExpression drawings(QStringLiteral("<(svg|script)\\b.*?</\\1\\s*>"),
                                             QRegularExpression::CaseInsensitiveOption
                                                 | QRegularExpression::DotMatchesEverythingOption);
    static const QRegularExpression captionsOnly(
        QStringLiteral("<figure>\\s*<figcaption>.*?</figure>"),
        QRegularExpression::DotMatchesEverythingOption);
    return html.remove(drawings)
        .remove(captionsOnly)
        .replace(QStringLiteral("<figure>"), QStringLiteral("<p>"))
        .replace(QStringLiteral("<figcaption>"), QStringLiteral("<br><small>"))
        .replace(QStringLiteral("</figcaption>"), QStringLiteral("</small>"))
        .replace(QStringLiteral("</figure>"), QStringLiteral("</p>"));
}

/// The document as it goes on paper: black on white, whatever it is on the screen.
std::unique_ptr<QTextDocument> paperDocument(PageText &shown)
{
    // It loads its pictures through the one it belongs to.
    std::unique_ptr<QTextDocument> document(shown.document()->clone(&shown));
    fitPictures(*document, paperWidth);
    QFont font = document->defaultFont();
    font.setPointSizeF(paperPointSize);
    document->setDefaultFont(font);
    QTextCursor cursor(document.get());
    cursor.select(QTextCursor::Document);
    QTextCharFormat format;
    format.setForeground(Qt::black);
    cursor.mergeCharFormat(format);
    QTextFrameFormat frame = document->rootFrame()->frameFormat();
    frame.clearBackground();
    document->rootFrame()->setFrameFormat(frame);
    return document;
}

} // namespace

TextView::TextView(QWidget *parent)
    : PaneView(parent), m_text(new PageText(this)),
      m_print(new QPushButton(QStringLiteral("Print"), this))
{
    m_text->setObjectName(QStringLiteral("txtPage"));
    m_text->setOpenLinks(false);
    m_text->setContextMenuPolicy(Qt::NoContextMenu);
    m_text->setFrameShape(QFrame::NoFrame);
    QFont font = m_text->font();
    font.setPointSizeF(fontSize() * pointsPerPixel);
    m_text->document()->setDefaultFont(font);
    m_text->document()->setDefaultStyleSheet(QString::fromLatin1(colours));
    m_text->document()->setDocumentMargin(fontSize());
    connect(m_text, &QTextBrowser::anchorClicked, this, &TextView::followLink);
    m_print->setObjectName(QStringLiteral("cmdPrintPage"));
    connect(m_print, &QPushButton::clicked, this, &PaneView::printRequested);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins({});
    column->addWidget(m_text);
    column->addWidget(m_print, 0, Qt::AlignRight);
    setFocusProxy(m_text);
}

TextView::~TextView() = default;

void TextView::showFile(const QString &path)
{
    setBlank(false);
    QFile file(path);
    const bool isReadable = file.open(QIODevice::ReadOnly);
    showHtml(isReadable ? QString::fromUtf8(file.readAll()) : notFoundHtml(path));
}

void TextView::showBlank(const BlankDocument &document)
{
    setBlank(true);
    m_head = blankHead(document);
    showHtml(ownHtml(m_head));
}

/// The document that is filled is the one to print, and its text can't be selected.
void TextView::setBlank(bool isBlank)
{
    m_isBlank = isBlank;
    m_print->setVisible(isBlank);
    m_text->setTextInteractionFlags(isBlank ? Qt::LinksAccessibleByMouse
                                            : Qt::TextBrowserInteraction);
}

void TextView::setInnerHtml(const QString &html)
{
    setText(ownHtml(m_head, html));
}

void TextView::setText(const QString &html)
{
    m_text->showText(readableHtml(html));
}

void TextView::showHtml(const QString &html)
{
    m_text->setAccessibleName(accessibleName());
    setText(html);
    // Whoever asked for it is not ready to fill it yet.
    QMetaObject::invokeMethod(this, &PaneView::documentComplete, Qt::QueuedConnection);
}

void TextView::followLink(const QUrl &url)
{
    if (m_isBlank)
        return;
    const QUrl target = QUrl::fromLocalFile(pageFolder() % u'/').resolved(url);
    if (url.isRelative() && url.path().isEmpty())
        m_text->scrollToAnchor(url.fragment());
    else if (isAllowed(target))
        showFile(target.toLocalFile());
}

void TextView::print(const QString &documentName)
{
    if (m_isPrinting)
        return;
    m_isPrinting = true;
    if (QPrinterInfo::availablePrinterNames().isEmpty())
        askForFile(documentName);
    else
        askForPrinter(documentName);
}

void TextView::ask(QDialog *dialog, const std::function<PrintResult()> &print)
{
    m_dialog.reset(dialog);
    connect(dialog, &QDialog::finished, this, [this, print](int answer) {
        PrintResult result {.outcome = Outcome::Cancelled};
        if (answer == QDialog::Accepted) {
            Q_EMIT printStarted();
            result = print();
        }
        m_isPrinting = false;
        Q_EMIT printFinished(result);
    });
    dialog->open();
}

void TextView::askForPrinter(const QString &documentName)
{
    const auto printer = std::make_shared<QPrinter>();
    printer->setDocName(documentName);
    ask(new QPrintDialog(printer.get(), this), [this, printer] {
        paperDocument(*m_text)->print(printer.get());
        const bool hasFailed = printer->printerState() == QPrinter::Error;
        return PrintResult {.outcome = hasFailed ? Outcome::Failed : Outcome::Printed};
    });
}

void TextView::askForFile(const QString &documentName)
{
    auto *dialog =
        new QFileDialog(this, QStringLiteral("No printer is set up: save as a PDF file"),
                        QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation),
                        QStringLiteral("PDF files (*.pdf)"));
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setDefaultSuffix(QStringLiteral("pdf"));
    dialog->selectFile(documentName % u".pdf");
    ask(dialog, [this, dialog, documentName] {
        QBuffer pdf;
        pdf.open(QIODevice::WriteOnly);
        {
            QPdfWriter writer(&pdf);
            writer.setTitle(documentName);
            paperDocument(*m_text)->print(&writer);
        }
        return savePdf(dialog->selectedFiles().constFirst(), pdf.data());
    });
}

} // namespace browser
