// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "reports/frmprinttopn.h"

#include "layout/basresize.h"
#include "platform/browser/browserpane.h"
#include "platform/dialogs/messagebox.h"
#include "reports/pagefiles.h"
#include "reports/reportdata.h"

#include <QDir>
#include <QLabel>
#include <QLayout>
#include <QShortcut>

#include <utility>

frmPrintTopN::frmPrintTopN()
    : PaneWindow(QStringLiteral("frmPrintTopN"), QStringLiteral("Tovarin Report")),
      m_note(new QLabel(this))
{
    m_note->setObjectName(QStringLiteral("lblPrintNote"));
    m_note->setTextFormat(Qt::PlainText);
    // A long path must not widen the window.
    m_note->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    addBelow(m_note);
    connect(&pane(), &browser::BrowserPane::documentComplete, this, &frmPrintTopN::buildReport);
    connect(&pane(), &browser::BrowserPane::documentLost, this, [this] { m_isReportDue = true; });
    connect(&pane(), &browser::BrowserPane::printRequested, this, &frmPrintTopN::print);
    connect(&pane(), &browser::BrowserPane::printStarted, this,
            [this] { note(QStringLiteral("Printing…")); });
    connect(&pane(), &browser::BrowserPane::printFinished, this, &frmPrintTopN::tellPrintResult);
    auto *printKey = new QShortcut(QKeySequence::Print, this);
    connect(printKey, &QShortcut::activated, this, &frmPrintTopN::print);
}

void frmPrintTopN::showReport(PrintReportType printReportType, const QString &topN)
{
    if (!isVisible()) {
        m_printReportType = printReportType;
        m_topN = topN;
        load();
    }
    bringToFront();
}

bool frmPrintTopN::isPrinting() const
{
    return pane().isPrinting();
}

void frmPrintTopN::load()
{
    setWindowTitle(m_printReportType == PrintReportType::TopN
                       ? QString(u"Top " % m_topN % u" Tovarin Names Report")
                       : QStringLiteral("Tovarin Full Name and Initial Report"));
    pane().setAccessibleName(windowTitle());
    note(
        QStringLiteral("The Print button at the end of the report prints it or makes a PDF file."));
    m_rightButtonBlock = browser::blockRightButton();
    m_isReportDue = true;
    m_isPrintDue = false;
    pane().navigateToBlank({.title = windowTitle(),
                            .styleSheet = QStringLiteral("report.css"),
                            .scripts = reports::reportScripts()});

    const QSize paneSize = layout::sizeForScreen(paneSizes);
    const QMargins margins = QWidget::layout()->contentsMargins();
    resize(paneSize.width() + margins.left() + margins.right(),
           paneSize.height() + margins.top() + margins.bottom() + QWidget::layout()->spacing()
               + m_note->sizeHint().height());
    basResize::CentreForm(*this);
}

void frmPrintTopN::closeEvent(QCloseEvent *event)
{
    PaneWindow::closeEvent(event);
    m_rightButtonBlock.reset();
}

/// Whatever else completes later, such as a refused link, is not a new document.
void frmPrintTopN::buildReport()
{
    if (!std::exchange(m_isReportDue, false))
        return;
    pane().setInnerHtml(reportHtml());
    if (m_isPrintDue)
        print();
}

QString frmPrintTopN::reportHtml() const
{
    const QString logo = browser::fileAddress(pagefiles::path(pagefiles::logo));
    if (m_printReportType == PrintReportType::Initial)
        return reports::initialReport(logo, reports::savedFullNames());
    const std::vector<reports::ReportName> ranked = reports::rankedNames();
    return reports::topNReport(logo, m_topN, ranked, reports::unrankedNames());
}

void frmPrintTopN::print()
{
    // A document that is still to be filled would be an empty sheet.
    m_isPrintDue = m_isReportDue;
    if (!m_isPrintDue)
        pane().print(windowTitle());
}

void frmPrintTopN::tellPrintResult(const browser::PrintResult &result)
{
    using Outcome = browser::PrintResult::Outcome;
    const QString file = QDir::toNativeSeparators(result.file);
    switch (result.outcome) {
    case Outcome::Printed:
        note(QStringLiteral("The report has gone to the printer."));
        break;
    case Outcome::SavedAsFile:
        note(QString(u"The report is saved as " % file % u"."));
        break;
    case Outcome::Cancelled:
        note(QStringLiteral("Printing was cancelled."));
        break;
    case Outcome::Failed: {
        const QString what = file.isEmpty()
                                 ? QStringLiteral("The report could not be printed.")
                                 : QString(u"The report could not be saved as " % file % u".");
        note(what);
        const QString reason = result.reason.isEmpty()
                                   ? QStringLiteral("Please try again.")
                                   : QString(u"The system says: " % result.reason);
        dialogs::showMessage(what % u"\n\n" % reason, dialogs::Icon::Critical,
                             QStringLiteral("Error"));
        break;
    }
    }
    Q_EMIT printingEnded();
}

void frmPrintTopN::note(const QString &text)
{
    m_note->setText(text);
    m_note->setToolTip(text);
}
