// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "search/criteria.h"
#include "search/resultgrid.h"

#include <QWidget>

#include <cstdint>
#include <memory>

namespace Ui {
class SearchFrame;
}

namespace search {

/// The Search tab: the criteria of a List browse and of a Search, and the page of names found.
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

protected:
    /// Enter in a control of the criteria starts the browse that it belongs to.
    bool eventFilter(QObject *watched, QEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    enum class BrowseMode { None = 0, Search = 1, List = 2 };

    void setUpBrowseKeys();
    void setUpResultGrid();
    void runBrowse(BrowseMode mode);

    SearchCriteria searchCriteria() const;
    ListCriteria listCriteria() const;
    /// Counts the names of a clause, shows the first page of them and the page count.
    void ShowFirstPage(const QString &clause);
    /// Fills the grid with the rows of a page query, numbered as the current page.
    void DisplaySearchResult(const QString &inpSQL);

    std::unique_ptr<Ui::SearchFrame> m_ui;
    TickPictures m_tickPictures;

    BrowseMode m_browseMode = BrowseMode::None;
    std::int16_t m_currentPage = 0;
    std::int16_t m_totalPages = 0;
    QString m_searchCriteria; ///< the clause of the last Search
};

} // namespace search
