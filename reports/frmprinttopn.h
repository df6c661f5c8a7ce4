// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "layout/placements.h"
#include "reports/panewindow.h"

#include <memory>

class QLabel;

namespace browser {
struct PrintResult;
}

/// Which report is printed: the ranking with the shortlist, or the worksheet of full names.
enum class PrintReportType { TopN, Initial };

/// The report window: shows a report as it will be printed. Its page has the button that prints.
class frmPrintTopN final : public PaneWindow
{
    Q_OBJECT

public:
    /// The sizes of the report's browser, in twips.
    static constexpr layout::SizesByScreen paneSizes {
        .large = {14360, 10520}, .designed = {11100, 7500}, .small = {8600, 6200}};

    frmPrintTopN();

    /// Makes a report of what the database holds and shows it. While the window is open it is only
    /// brought to the front, with the report that it has.
    /// @param topN  how many names are ranked, as text
    void showReport(PrintReportType printReportType, const QString &topN);

    /// Whether a report is on its way to the printer or into a file.
    bool isPrinting() const;

Q_SIGNALS:
    void printingEnded();

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void load();
    void buildReport();
    QString reportHtml() const;
    void print();
    void tellPrintResult(const browser::PrintResult &result);
    void note(const QString &text);

    std::shared_ptr<void> m_rightButtonBlock; ///< while the window is loaded
    QLabel *m_note;                           ///< lblPrintNote, says what printing has come to
    PrintReportType m_printReportType = PrintReportType::TopN;
    QString m_topN;
    bool m_isPrintDue = false;  ///< as soon as the report is there
    bool m_isReportDue = false; ///< the document is on its way, and to be filled when it is there
};
