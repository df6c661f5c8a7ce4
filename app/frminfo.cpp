// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "app/frminfo.h"

#include "db/basdatabase.h"
#include "layout/basresize.h"
#include "layout/mainlayout.h"
#include "platform/browser/browserpane.h"
#include "platform/dialogs/messagebox.h"
#include "platform/dialogs/waitcursor.h"
#include "platform/grid/typedtext.h"
#include "reports/aboutframe.h"
#include "reports/frmprinttopn.h"
#include "reports/pagefiles.h"
#include "reports/reportdata.h"
#include "search/searchframe.h"
#include "shortlist/topnframe.h"
#include "worksheet/worksheetframe.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QShortcut>
#include <QTabBar>
#include <QTabWidget>
#include <QVBoxLayout>

frmInfo::frmInfo()
    : m_tabs(new QTabWidget(this)), m_things(new browser::BrowserPane),
      m_popular(new browser::BrowserPane), m_help(new browser::BrowserPane),
      m_search(new search::SearchFrame), m_worksheetNote(new QLabel),
      m_topN(new shortlist::TopNFrame),
      m_worksheet(new worksheet::WorksheetFrame([this] { return m_topN->topNNames(); })),
      m_about(new AboutFrame), m_helpKey(new QShortcut(Qt::Key_F1, this))
{
    setObjectName(QStringLiteral("frmInfo"));
    setWindowTitle(QStringLiteral("Tovarin Names Dictionary"));
    setUpTabs();
    connect(m_helpKey, &QShortcut::activated, this, &frmInfo::helpRequested);
    setUpTabKeys();
    setUpSteps();
    connect(m_about, &AboutFrame::termsRequested, this, &frmInfo::termsRequested);
    load();
    connect(m_tabs, &QTabWidget::currentChanged, this, &frmInfo::tabClicked);
}

frmInfo::~frmInfo() = default;

void frmInfo::setUpTabs()
{
    m_tabs->setObjectName(QStringLiteral("tabInfo"));
    m_tabs->setAccessibleName(QStringLiteral("Pages"));
    addTab(ThingsTab, QStringLiteral("Things to Consider"), QStringLiteral("T"),
           makePageFrame(ThingsTab, m_things, QStringLiteral("dhtmThings"),
                         QStringLiteral("Things to consider")));
    addTab(PopularTab, QStringLiteral("Popular"), QStringLiteral("P"),
           makePageFrame(PopularTab, m_popular, QStringLiteral("dhtmPopular"),
                         QStringLiteral("Popular names")));
    addTab(SearchTab, QStringLiteral("Search"), QStringLiteral("S"), m_search);
    addTab(WorksheetTab, QStringLiteral("Worksheet"), QStringLiteral("W"), makeWorksheetFrame());
    addTab(HelpTab, QStringLiteral("Help"), QStringLiteral("H"),
           makePageFrame(HelpTab, m_help, QStringLiteral("dhtmHelp"), QStringLiteral("Help")));
    addTab(AboutTab, QStringLiteral("About"), QStringLiteral("A"), m_about);
}

void frmInfo::setUpTabKeys()
{
    // The strip knows these keys itself, but never gets them while a page has the focus.
    const auto goOnBy = [this](QKeySequence::StandardKey keys, int step) {
        auto *shortcut = new QShortcut(keys, this);
        connect(shortcut, &QShortcut::activated, this, [this, step] {
            m_tabs->setCurrentIndex((m_tabs->currentIndex() + step + TabCount) % TabCount);
            // A page without a control would have the focus itself, and nobody would hear of it.
            if (const QWidget *focus = focusWidget(); focus && focus->focusPolicy() == Qt::NoFocus)
                m_tabs->setFocus();
        });
    };
    // Whoever chooses a tab with the mouse wants to use what it shows; along the strip the focus
    // stays in it.
    connect(m_tabs, &QTabWidget::tabBarClicked, this, &frmInfo::focusPage, Qt::QueuedConnection);
    goOnBy(QKeySequence::NextChild, +1);
    goOnBy(QKeySequence::PreviousChild, -1);
    m_tabs->setFocus();
}

void frmInfo::addTab(Tab tab, const QString &caption, const QString &key, QWidget *frame)
{
    // The strip sizes its pages itself; the frame inside has the size that the layout gives it.
    auto *page = new QWidget;
    frame->setParent(page);
    const int index = m_tabs->addTab(page, caption);
    Q_ASSERT(index == tab);
    m_tabs->tabBar()->setTabData(index, key);
}

QWidget *frmInfo::makePageFrame(Tab tab, browser::BrowserPane *pane, const QString &paneName,
                                const QString &accessibleName)
{
    auto *frame = new QWidget;
    frame->setObjectName(QStringLiteral("fraInfo_%1").arg(tab));
    pane->setParent(frame);
    pane->setObjectName(paneName);
    pane->setAccessibleName(accessibleName);
    return frame;
}

QWidget *frmInfo::makeWorksheetFrame()
{
    auto *frame = new QWidget;
    frame->setObjectName(QStringLiteral("fraInfo_%1").arg(WorksheetTab));
    m_worksheetNote->setParent(frame);
    m_worksheetNote->setObjectName(QStringLiteral("lblWorksheetNote"));
    m_worksheetNote->setText(
        QStringLiteral("Here you rank the names of your shortlist and try out full names.\n\n"
                       "You have no shortlist yet. On the Search tab, tick the names you like and "
                       "click Save: they then come here."));
    m_worksheetNote->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    m_worksheetNote->setWordWrap(true);
    for (QWidget *step : {static_cast<QWidget *>(m_topN), static_cast<QWidget *>(m_worksheet)}) {
        step->setParent(frame);
        step->hide();
    }
    return frame;
}

void frmInfo::setUpSteps()
{
    connect(m_search, &search::SearchFrame::shortlistSaved, this, [this] {
        m_tabs->setCurrentIndex(WorksheetTab);
        m_topN->takeFocus();
    });
    connect(m_topN, &shortlist::TopNFrame::opened, this, [this] { showStep(m_topN); });
    connect(m_topN, &shortlist::TopNFrame::nextRequested, this, [this] {
        if (!m_worksheet->DisplayInitialRecord())
            return;
        showStep(m_worksheet);
        m_worksheet->setFocus();
    });
    connect(m_topN, &shortlist::TopNFrame::printRequested, this, [this] {
        if (reports::FillTempTopN(m_topNText))
            showReport(PrintReportType::TopN);
    });
    connect(m_worksheet, &worksheet::WorksheetFrame::printRequested, this,
            [this] { showReport(PrintReportType::Initial); });
    connect(m_worksheet, &worksheet::WorksheetFrame::backRequested, this, [this] {
        showStep(m_topN);
        m_topN->takeFocus();
    });
}

/// One step of the Worksheet tab is to be seen at a time.
void frmInfo::showStep(QWidget *step)
{
    step->show();
    step->raise();
    for (QWidget *other : {static_cast<QWidget *>(m_topN), static_cast<QWidget *>(m_worksheet),
                           static_cast<QWidget *>(m_worksheetNote)}) {
        if (other != step)
            other->hide();
    }
}

void frmInfo::showReport(PrintReportType printReportType)
{
    const dialogs::WaitCursor wait;
    if (!m_report)
        m_report = std::make_unique<frmPrintTopN>();
    m_report->showReport(printReportType, m_topNText);
}

void frmInfo::load()
{
    m_search->InitialiseNameCondition();
    m_tabs->setCurrentIndex(ThingsTab);
    basDatabase::OpenDatabase();
    m_search->InitialiseOrigin();
    m_search->InitialiseOptions();
    m_topNText = QString::number(basDatabase::NumericValue(basDatabase::Setting(u"topn")));
    m_topN->setTopN(m_topNText);
    m_worksheet->setTopN(m_topNText);
    m_search->InitialiseAlphabet();
    const QString maxSelect = basDatabase::Setting(u"maxselect");
    m_search->setMaxSelect(maxSelect);
    m_topN->setMaxSelect(maxSelect);
    setWindowTitle(windowTitle() % u' ' % basDatabase::Setting(u"versionno"));

    m_popular->navigate(pagefiles::path(pagefiles::popular));
    m_help->navigate(pagefiles::path(pagefiles::help));
    m_things->navigate(pagefiles::path(pagefiles::things));

    m_search->ClearPageLabel();
    m_search->RefreshSelectCount();
    layout::layOutMainWindow(*this);
    basResize::CentreForm(*this);
}

QString frmInfo::selectedKey() const
{
    return m_tabs->tabBar()->tabData(m_tabs->currentIndex()).toString().toUpper();
}

void frmInfo::tabClicked()
{
    const QString key = selectedKey();
    // On the Help tab itself F1 is left to whatever has the focus.
    m_helpKey->setEnabled(key != u"H");
    if (key == u"W") {
        m_topN->DisplayNote();
        m_topN->CheckResultTable();
    } else if (key == u"A") {
        m_about->DisplayAbout();
    }
}

void frmInfo::closeEvent(QCloseEvent *event)
{
    if (!dialogs::askYesNo(QStringLiteral("Are you sure you want to exit?"), windowTitle(), this)) {
        event->ignore();
        return;
    }
    event->accept();
    const auto end = [this] {
        basDatabase::CloseDatabase();
        Q_EMIT unloaded();
    };
    // A report that is being printed is not left half done, nor without what it is made of.
    if (m_report && m_report->isPrinting())
        connect(m_report.get(), &frmPrintTopN::printingEnded, this, end);
    else
        end();
}

void frmInfo::focusPage()
{
    switch (m_tabs->currentIndex()) {
    case ThingsTab:
        m_things->takeFocus();
        break;
    case PopularTab:
        m_popular->takeFocus();
        break;
    case SearchTab:
        m_search->takeFocus();
        break;
    case WorksheetTab:
        if (m_topN->isVisible())
            m_topN->takeFocus();
        else if (m_worksheet->isVisible())
            m_worksheet->setFocus();
        break;
    case HelpTab:
        m_help->takeFocus();
        break;
    case AboutTab:
        m_about->takeFocus();
        break;
    default:
        break;
    }
}

/// Whether a key that the tab strip has no use for has one in the page that it shows.
bool frmInfo::isKeyOfPage(const QKeyEvent &key) const
{
    if (m_tabs->currentIndex() == SearchTab)
        return !grid::typedText(key).trimmed().isEmpty();
    switch (key.key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Home:
    case Qt::Key_End:
    case Qt::Key_Space:
        return m_tabs->currentIndex() != WorksheetTab;
    default:
        return false;
    }
}

void frmInfo::keyPressEvent(QKeyEvent *event)
{
    if (m_tabs->currentIndex() == SearchTab && m_search->turnPage(*event))
        return;
    if (!m_tabs->tabBar()->hasFocus() || !isKeyOfPage(*event)) {
        QWidget::keyPressEvent(event);
        return;
    }
    focusPage();
    const std::unique_ptr<QKeyEvent> sameKey(event->clone());
    QCoreApplication::sendEvent(focusWidget(), sameKey.get());
}
