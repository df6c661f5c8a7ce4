// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/browser/printjob.h"

#include "platform/browser/pdffile.h"
#include "platform/browser/pdftitle.h"

#include <QPointer>
#include <QPrintDialog>
#include <QPrinter>
#include <QWebEngineView>

#include <utility>

namespace browser {

namespace {

/// On paper the page is drawn dot by dot. So many to the inch are sharp to the eye, and take less
/// than a tenth of the time of the printers' own 1200.
constexpr int dotsPerInch = 300;

constexpr double pageMargin = 15; // millimetres, unless the dialog is told otherwise

using Outcome = PrintResult::Outcome;

} // namespace

PrintJob::PrintJob(QWebEngineView *view) : QObject(view), m_view(view)
{
    connect(view, &QWebEngineView::printFinished, this, [this](bool success) {
        end({.outcome = success ? Outcome::Printed : Outcome::Failed});
    });
    connect(view, &QWebEngineView::renderProcessTerminated, this, [this] {
        if (!m_isUnderWay)
            return;
        end({.outcome = Outcome::Failed, .file = m_printer->outputFileName()});
        m_dialog->close();
    });
}

PrintJob::~PrintJob() = default;

void PrintJob::start(const QString &documentName)
{
    if (m_isUnderWay)
        return;
    m_isUnderWay = true;
    m_dialog.reset();
    m_printer = std::make_unique<QPrinter>();
    m_printer->setDocName(documentName);
    m_printer->setResolution(dotsPerInch);
    m_printer->setPageMargins({pageMargin, pageMargin, pageMargin, pageMargin},
                              QPageLayout::Millimeter);
    m_dialog = std::make_unique<QPrintDialog>(m_printer.get(), m_view);
    connect(m_dialog.get(), &QDialog::rejected, this,
            [this] { end({.outcome = Outcome::Cancelled}); });
    connect(m_dialog.get(), qOverload<>(&QDialog::accepted), this, [this] {
        Q_EMIT started();
        if (m_printer->outputFormat() == QPrinter::PdfFormat)
            writePdf();
        else
            printOnPaper();
    });
    m_dialog->open();
}

void PrintJob::printOnPaper()
{
    m_view->print(m_printer.get());
}

/// Not through the printer, which would make pictures of the letters.
void PrintJob::writePdf()
{
    const auto save = [job = QPointer(this), path = m_printer->outputFileName(),
                       title = m_printer->docName()](const QByteArray &pdf) {
        if (job && job->m_isUnderWay)
            job->end(savePdf(path, pdf.isEmpty() ? pdf : withTitle(pdf, title)));
    };
    m_view->page()->printToPdf(save, m_printer->pageLayout(), m_printer->pageRanges());
}

void PrintJob::end(const PrintResult &result)
{
    if (std::exchange(m_isUnderWay, false))
        Q_EMIT finished(result);
}

} // namespace browser
