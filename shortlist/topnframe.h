// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "shortlist/ranking.h"

#include <QWidget>

#include <cstdint>
#include <memory>

namespace Ui {
class TopNFrame;
}

namespace grid {
class FlexGrid;
}

namespace shortlist {

/// The first step of the Worksheet tab: the names of the shortlist get their ranks.
///
/// The upper grid (msfPrevTopN) shows the ranking as it was last saved, the lower one (msfResult)
/// the other names of the shortlist. A name that gets a rank below goes up when the ranking is
/// saved; one that loses its rank above goes down at once.
class TopNFrame final : public QWidget
{
    Q_OBJECT

public:
    explicit TopNFrame(QWidget *parent = nullptr);
    ~TopNFrame() override;

    /// How many names are ranked, as the text of a whole number.
    void setTopN(const QString &topN);
    /// How many names of the shortlist are shown at most, as the text of a number.
    void setMaxSelect(const QString &maxSelect);

    /// Says how many names to choose.
    void DisplayNote();
    /// Opens the step with what the database holds. With neither a shortlist nor a ranking there is
    /// nothing to open.
    void CheckResultTable();

    /// Sets the focus on the names to rank, or on the ranking if there are none left. Not by a
    /// focus proxy: on its way Tab would go through that to the lower grid, past the upper one.
    void takeFocus();

    /// The names in the upper grid, from its first row to its last.
    QStringList topNNames() const;

Q_SIGNALS:
    /// There is something to rank: the step wants to be seen.
    void opened();
    /// The user goes on to the full names; nothing is left unsaved but for ranks that were clicked
    /// in the list of free ranks.
    void nextRequested();
    /// The user wants the ranking printed, and it is saved as far as that is checked for "next".
    void printRequested();

protected:
    /// Enter and Space in the list of free ranks do what a click does.
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    /// What differs between the two grids.
    struct Ranks
    {
        grid::FlexGrid *grid = nullptr;
        int column = 0;          ///< of the ranks
        int rowsThatScroll = 0;  ///< with so many, the header included, there is a scroll bar
        bool offersNone = false; ///< whether a name can lose its rank here
        QString oldValue {};     ///< what the edited cell held before
    };

    void setUpRanks(Ranks &ranks);
    void formatGrid(const Ranks &ranks, int columns) const;
    void DisplayPreviousRecords();
    void DisplayResultRecords();
    void SetRankWidth(const Ranks &ranks) const;
    /// Whether the name is in the saved ranking. The texts have their apostrophes doubled.
    static bool CheckPreviousTopNExist(const QString &inpName, const QString &inpSex,
                                       const QString &inpOrigin);

    void startEdit(const Ranks &ranks, const QString &typed);
    void prepareEdit(Ranks &ranks, int row, int column);
    void finishEdit(Ranks &ranks, int row);
    void moveToShortlist(int row);
    /// Gives the current name of the lower grid the rank at a place of the list of free ranks.
    void takeFreeRank(int place);
    /// Fills the list of free ranks.
    void listFreeRanks();
    /// Fills the list of free ranks, adds "--" if wanted and the old value in any case.
    /// @return the items as the drop-down list of a cell takes them
    QString GetTopNList(bool inpWithEmpty, const QString &inpOldValue);
    /// The place of a rank in the list of free ranks, from 0; -1 if it is not there.
    std::int16_t GetTopNRow(const QString &inpTopN) const;

    void commitEdits();
    static RankedName rankedName(const Ranks &ranks, int row);
    /// Whether the ranking may be saved, which is always so: gaps are allowed, and a ranking
    /// without names is saved as an empty one.
    static bool ErrorFreeTopN();
    void UpdateTopNToDB();
    bool saveRanking();
    /// Ends an open edit; true if the step counts as saved, else the user is told to save before
    /// what they want to do.
    bool isSavedBefore(QStringView action);
    QString topNTitle() const;

    std::unique_ptr<Ui::TopNFrame> m_ui;
    Ranks m_previous;
    Ranks m_result;
    QString m_topN;
    QString m_maxSelect;
    bool m_topNChanged = false;
};

} // namespace shortlist
