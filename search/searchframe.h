// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "search/criteria.h"
#include "search/resultgrid.h"

#include <QWidget>

#include <cstdint>
#include <functional>
#include <memory>

namespace Ui {
class SearchFrame;
}

namespace search {

/// The Search tab: the criteria of a List browse and of a Search, the pages of names found, and the
/// ticks.
///
/// Beside the page on screen, its two neighbours are always held ready in hidden grids: going to
/// one of them shifts the grids and fetches the one page that is then missing. Ticks are in the
/// database as soon as they are made.
class SearchFrame final : public QWidget
{
    Q_OBJECT

public:
    explicit SearchFrame(QWidget *parent = nullptr);
    ~SearchFrame() override;

    /// Fills the rules by which a name is compared, and chooses the first.
    void InitialiseNameCondition();
    /// Fills the letters A to Z, and chooses the first.
    void InitialiseAlphabet();
    /// Fills the origins from the database, and chooses all of them.
    void InitialiseOrigin();
    /// Chooses the first button of each group.
    void InitialiseOptions();
    /// Empties the page label.
    void ClearPageLabel();
    /// Shows how many names are ticked.
    void RefreshSelectCount();

    /// Runs the Search that the controls describe, and shows its first page.
    void SearchRecord();
    /// Runs the List browse that the controls describe, and shows its first page.
    void SearchRecord1();
    /// Unticks every name of the dictionary.
    void InitialiseSelectFlag();

    /// Sets the focus on the name to search for.
    void takeFocus();

    /// Goes to the next or to the previous page if that is what a key asks for, and if there is
    /// one.
    /// @return whether the key is one of those
    bool turnPage(const QKeyEvent &key);

    /// How many names one should tick at most, as the text of a number. Advice, not a limit.
    void setMaxSelect(const QString &maxSelect);

Q_SIGNALS:
    /// The ticked names have been saved as the shortlist, and the user has been told.
    void shortlistSaved();

protected:
    /// Enter in a control of the criteria starts the browse that it belongs to. The wheel leaves a
    /// list that has no focus as it is.
    bool eventFilter(QObject *watched, QEvent *event) override;
    /// The page keys turn pages where the control that has the focus has no use for them. The grid
    /// has none on its first and on its last row. Insert in the grid does what a click on the tick
    /// box of its current row does.
    void keyPressEvent(QKeyEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    enum class BrowseMode { None = 0, Search = 1, List = 2 };

    void setUpBrowseKeys();
    void setUpCriteriaLists();
    void setUpResultGrid();
    void setUpPageButtons();
    void runBrowse(BrowseMode mode);

    SearchCriteria searchCriteria() const;
    ListCriteria listCriteria() const;
    /// The clauses that the controls describe as they stand now, and not as they stood when the
    /// browse was started: what is edited in between takes effect on the next page.
    QString searchClause() const { return criteriaClause(searchCriteria()); }
    QString listClause() const { return criteriaClause(listCriteria()); }

    /// Counts the names of a clause, shows the first page of them and the page count, and readies
    /// the second page.
    void startBrowse(const QString &clause);
    /// Fills the grid with the rows of a page query, numbered as the current page.
    void DisplaySearchResult(const QString &inpSQL);
    /// Hides the grid while it gets its new rows, fits them, and shows it.
    void rebuildPage(const std::function<void()> &fill);

    // The List and the Search form of a page move differ in the clause alone.

    void goToFirstPage();
    void goToPreviousPage();
    void goToNextPage();
    void goToLastPage();
    /// Goes forward to the page held ready, and readies the one behind it.
    void TransferNextListToCurrent();
    void TransferNextSearchToCurrent();
    /// Goes back to the page held ready, and readies the one before it.
    void TransferPreviousListToCurrent();
    void TransferPreviousSearchToCurrent();
    void shiftForward();
    void shiftBack();
    /// The queries of the pages beside the one on screen, yet without their order.
    QString queryAfterPage(const QString &clause) const;
    QString queryBeforePage(const QString &clause) const;
    /// Readies the next page, of the given number, from a query without its order; none if the
    /// last page is on screen.
    void DisplayNextList(const QString &inpSQL, std::int16_t inpPageNo);
    void DisplayNextSearch(const QString &inpSQL, std::int16_t inpPageNo);
    /// Readies the previous page, of the given number, from a query without its order; none if the
    /// first page is on screen.
    void DisplayPreviousList(const QString &inpSQL, std::int16_t inpPageNo);
    void DisplayPreviousSearch(const QString &inpSQL, std::int16_t inpPageNo);
    /// Turns the rows fetched backwards round.
    void TransferPrevDescToAsc(std::int16_t inpPageNo);
    /// Shows the last page of the browse.
    /// @param inpLPageRemain  how many names are on it, as a text
    void DisplayLastPageList(const QString &inpLPageRemain);
    void DisplayLastPageSearch(const QString &inpLPageRemain);
    void displayLastPage(const QString &clause, const QString &rows);
    std::int16_t pageNumber(int step) const;
    /// Enables the buttons that lead to a page, and names the page on screen.
    void ActivatePageButtons(std::int16_t inpCurrPageNo, std::int16_t inpTotalPageNo);

    void toggleTick(int row, int col);
    /// Stores one tick and shows the new count. The texts have their apostrophes doubled.
    /// @return whether it is stored
    bool UpdateSelectCounter(const QString &inpName, const QString &inpOrigin,
                             const QString &inpSex, const QString &inpValue);
    /// Whether there are ticked names to save; the user is told why not, and of too many.
    bool ErrorFree();
    /// Makes the ticked names the shortlist.
    void UpdateToDB();

    std::unique_ptr<Ui::SearchFrame> m_ui;
    TickPictures m_tickPictures;

    BrowseMode m_browseMode = BrowseMode::None;
    std::int16_t m_currentPage = 0;
    std::int16_t m_totalPages = 0;
    std::int16_t m_lastPageRows = 0; ///< 0 for a full page
    QString m_maxSelect;
};

} // namespace search
