// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "db/basdatabase.h"
#include "platform/grid/flexgrid.h"
#include "platform/grid/redrawlock.h"
#include "search/pagequeries.h"
#include "search/pages.h"
#include "search/searchframe.h"
#include "ui_searchframe.h"

#include <QKeyEvent>

namespace search {

static bool hasName(const grid::FlexGrid &page, int row)
{
    return page.rowCount() > 1 && !page.text(row, NameColumn).isEmpty();
}

void SearchFrame::goToFirstPage()
{
    if (m_browseMode != BrowseMode::None)
        runBrowse(m_browseMode);
}

void SearchFrame::goToNextPage()
{
    const grid::FlexGrid &page = *m_ui->msSearchList;
    if (m_browseMode == BrowseMode::None || !hasName(page, page.rowCount() - 1))
        return;
    m_currentPage = pageNumber(+1);
    ActivatePageButtons(m_currentPage, m_totalPages);
    if (m_browseMode == BrowseMode::Search)
        TransferNextSearchToCurrent();
    else
        TransferNextListToCurrent();
    RefreshSelectCount();
}

void SearchFrame::goToPreviousPage()
{
    if (m_browseMode == BrowseMode::None || !hasName(*m_ui->msSearchList, 1))
        return;
    m_currentPage = pageNumber(-1);
    ActivatePageButtons(m_currentPage, m_totalPages);
    if (m_browseMode == BrowseMode::Search)
        TransferPreviousSearchToCurrent();
    else
        TransferPreviousListToCurrent();
    RefreshSelectCount();
}

void SearchFrame::goToLastPage()
{
    m_currentPage = m_totalPages;
    const QString rows = QString::number(m_lastPageRows);
    if (m_browseMode == BrowseMode::Search) {
        DisplayLastPageSearch(rows);
        DisplayPreviousSearch(queryBeforePage(searchClause()), pageNumber(-1));
        DisplayNextSearch({}, pageNumber(+1));
    } else if (m_browseMode == BrowseMode::List) {
        DisplayLastPageList(rows);
        DisplayPreviousList(queryBeforePage(listClause()), pageNumber(-1));
        DisplayNextList({}, pageNumber(+1));
    }
    RefreshSelectCount();
    ActivatePageButtons(m_currentPage, m_totalPages);
}

void SearchFrame::TransferNextListToCurrent()
{
    rebuildPage([this] {
        shiftForward();
        DisplayNextList(queryAfterPage(listClause()), pageNumber(+1));
    });
}

void SearchFrame::TransferNextSearchToCurrent()
{
    rebuildPage([this] {
        shiftForward();
        DisplayNextSearch(queryAfterPage(searchClause()), pageNumber(+1));
    });
}

void SearchFrame::TransferPreviousListToCurrent()
{
    rebuildPage([this] {
        shiftBack();
        DisplayPreviousList(queryBeforePage(listClause()), pageNumber(-1));
    });
}

void SearchFrame::TransferPreviousSearchToCurrent()
{
    rebuildPage([this] {
        shiftBack();
        DisplayPreviousSearch(queryBeforePage(searchClause()), pageNumber(-1));
    });
}

QString SearchFrame::queryAfterPage(const QString &clause) const
{
    return pageAfterQuery(clause, keyOfNextPage(*m_ui->msSearchList));
}

QString SearchFrame::queryBeforePage(const QString &clause) const
{
    return pageBeforeQuery(clause, keyOfPreviousPage(*m_ui->msSearchList));
}

void SearchFrame::shiftForward()
{
    copyPage(*m_ui->msSearchList, *m_ui->msSearchListP_0, m_tickPictures);
    formatPage(*m_ui->msSearchList);
    copyPage(*m_ui->msSearchListN, *m_ui->msSearchList, m_tickPictures);
}

void SearchFrame::shiftBack()
{
    copyPage(*m_ui->msSearchList, *m_ui->msSearchListN, m_tickPictures);
    formatPage(*m_ui->msSearchList);
    copyPage(*m_ui->msSearchListP_0, *m_ui->msSearchList, m_tickPictures);
}

void SearchFrame::DisplayNextList(const QString &inpSQL, std::int16_t inpPageNo)
{
    grid::FlexGrid &next = *m_ui->msSearchListN;
    const grid::RedrawLock lock(&next);
    clearPage(next);
    if (m_totalPages == m_currentPage)
        return;
    if (auto records = basDatabase::OpenRecordset(inpSQL % forwardOrder()))
        appendRecords(next, *records, inpPageNo);
    markFromDatabase(next, m_tickPictures);
}

void SearchFrame::DisplayNextSearch(const QString &inpSQL, std::int16_t inpPageNo)
{
    DisplayNextList(inpSQL, inpPageNo);
}

void SearchFrame::DisplayPreviousList(const QString &inpSQL, std::int16_t inpPageNo)
{
    grid::FlexGrid &backwards = *m_ui->msSearchListP_1;
    clearPage(*m_ui->msSearchListP_0);
    const grid::RedrawLock lock(&backwards);
    clearPage(backwards);
    // A browse that found nothing stands on page 0.
    if (m_currentPage == 0 || m_currentPage == 1)
        return;
    if (auto records = basDatabase::OpenRecordset(inpSQL % backwardOrder()))
        appendRecords(backwards, *records, inpPageNo);
    markFromDatabase(backwards, m_tickPictures);
    TransferPrevDescToAsc(inpPageNo);
}

void SearchFrame::DisplayPreviousSearch(const QString &inpSQL, std::int16_t inpPageNo)
{
    DisplayPreviousList(inpSQL, inpPageNo);
}

void SearchFrame::TransferPrevDescToAsc(std::int16_t inpPageNo)
{
    copyPageReversed(*m_ui->msSearchListP_1, *m_ui->msSearchListP_0, inpPageNo, m_tickPictures);
}

void SearchFrame::DisplayLastPageList(const QString &inpLPageRemain)
{
    displayLastPage(listClause(), inpLPageRemain);
}

/// The end of a Search is that of all names that it describes, ticked or not.
void SearchFrame::DisplayLastPageSearch(const QString &inpLPageRemain)
{
    SearchCriteria criteria = searchCriteria();
    criteria.tickedOnly = false;
    displayLastPage(criteriaClause(criteria) % u' ', inpLPageRemain);
}

void SearchFrame::displayLastPage(const QString &clause, const QString &rows)
{
    basDatabase::ExecuteSQL(lastPageInsert(clause, rows));
    DisplaySearchResult(lastPageQuery());
    basDatabase::ExecuteSQL(lastPageDelete());
}

std::int16_t SearchFrame::pageNumber(int step) const
{
    return to16Bit(m_currentPage + step);
}

void SearchFrame::ActivatePageButtons(std::int16_t inpCurrPageNo, std::int16_t inpTotalPageNo)
{
    const auto setEnabled = [this](QPushButton *button, bool enabled) {
        // Else the focus would go on to whatever comes next, which in the end is saving.
        if (!enabled && button->hasFocus())
            m_ui->msSearchList->setFocus();
        button->setEnabled(enabled);
    };
    const PageMoves moves = pageMoves(inpCurrPageNo, inpTotalPageNo);
    setEnabled(m_ui->cmdFirstPage, moves.back);
    setEnabled(m_ui->cmdPageDown, moves.back);
    setEnabled(m_ui->cmdPageUp, moves.forward);
    setEnabled(m_ui->cmdLastPage, moves.forward);
    m_ui->lblPage->setText(pageLabel(inpCurrPageNo, inpTotalPageNo));
}

bool SearchFrame::turnPage(const QKeyEvent &key)
{
    const bool isBack = key.matches(QKeySequence::MoveToPreviousPage);
    if (!isBack && !key.matches(QKeySequence::MoveToNextPage))
        return false;
    const std::int16_t page = m_currentPage;
    (isBack ? m_ui->cmdPageDown : m_ui->cmdPageUp)->click();
    // Whoever leafs back in the grid comes in from below.
    if (isBack && m_currentPage != page && m_ui->msSearchList->hasFocus())
        m_ui->msSearchList->setCurrentCell(m_ui->msSearchList->rowCount() - 1, NameColumn);
    return true;
}

void SearchFrame::keyPressEvent(QKeyEvent *event)
{
    const bool isTickKey =
        event->key() == Qt::Key_Insert && !(event->modifiers() & ~Qt::KeypadModifier);
    if (isTickKey && m_ui->msSearchList->hasFocus()) {
        const int row = m_ui->msSearchList->currentRow();
        m_ui->msSearchList->setCurrentCell(row, TickColumn);
        toggleTick(row, TickColumn);
    } else if (!turnPage(*event)) {
        QWidget::keyPressEvent(event);
    }
}

} // namespace search
