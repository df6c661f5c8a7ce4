// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

#include <array>
#include <memory>

class AboutFrame;
class frmPrintTopN;
class QLabel;
class QShortcut;
class QTabWidget;
enum class PrintReportType;

namespace browser {
class BrowserPane;
}

namespace search {
class SearchFrame;
}

namespace shortlist {
class TopNFrame;
}

namespace worksheet {
class WorksheetFrame;
}

/// The main window: six tabs, each showing its frame.
class frmInfo final : public QWidget
{
    Q_OBJECT

public:
    /// Opens the database, which then stays open until the window is closed.
    /// @throws ProgramEnd if it can't be opened
    frmInfo();
    ~frmInfo() override;

Q_SIGNALS:
    void helpRequested();
    void termsRequested();
    /// The user has confirmed leaving; the database is closed.
    void unloaded();

protected:
    void closeEvent(QCloseEvent *event) override;
    /// Keys that the tab strip gets, but has no use for, are meant for the page that it shows.
    void keyPressEvent(QKeyEvent *event) override;

private:
    /// A tab's place on the strip is also the index of its frame.
    enum Tab { ThingsTab, PopularTab, SearchTab, WorksheetTab, HelpTab, AboutTab, TabCount };

    void setUpTabs();
    void setUpTabKeys();
    void addTab(Tab tab, const QString &caption, const QString &key, QWidget *frame);
    QWidget *makePageFrame(Tab tab, browser::BrowserPane *pane, const QString &paneName,
                           const QString &accessibleName);
    QWidget *makeWorksheetFrame();
    void setUpSteps();
    void showStep(QWidget *step);
    void showReport(PrintReportType printReportType);
    void load();
    void tabClicked();
    void focusPage();
    bool isKeyOfPage(const QKeyEvent &key) const;
    QString selectedKey() const;

    QTabWidget *m_tabs;              ///< tabInfo
    browser::BrowserPane *m_things;  ///< dhtmThings
    browser::BrowserPane *m_popular; ///< dhtmPopular
    browser::BrowserPane *m_help;    ///< dhtmHelp
    search::SearchFrame *m_search;
    QLabel *m_worksheetNote; ///< lblWorksheetNote, until there is something to rank
    shortlist::TopNFrame *m_topN;
    worksheet::WorksheetFrame *m_worksheet;
    AboutFrame *m_about;
    QShortcut *m_helpKey;
    std::unique_ptr<frmPrintTopN> m_report; ///< made when first asked for
    QString m_topNText;                     ///< how many names are ranked
};
