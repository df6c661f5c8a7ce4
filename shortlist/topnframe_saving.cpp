// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "db/basdatabase.h"
#include "platform/dialogs/messagebox.h"
#include "platform/grid/flexgrid.h"
#include "shortlist/topnframe.h"
#include "ui_topnframe.h"

#include <algorithm>

namespace shortlist {

/// A button pressed by its key leaves the focus, and with it an edit, in the grid.
void TopNFrame::commitEdits()
{
    m_previous.grid->commitEdit();
    m_result.grid->commitEdit();
}

RankedName TopNFrame::rankedName(const Ranks &ranks, int row)
{
    const auto text = [&ranks, row](int column) { return ranks.grid->text(row, column); };
    return {.name = text(NameColumn),
            .origin = text(OriginColumn),
            .sex = text(SexColumn),
            .meaning = text(MeaningColumn),
            .rank = text(ranks.column)};
}

bool TopNFrame::ErrorFreeTopN()
{
    return true;
}

void TopNFrame::UpdateTopNToDB()
{
    if (!saveRanking()) {
        // What is on screen is now more than what is saved.
        m_topNChanged = true;
        return;
    }
    dialogs::showMessage(topNTitle() % u" record saved!", dialogs::Icon::Information,
                         QStringLiteral("Tovarin"));
    DisplayPreviousRecords();
    DisplayResultRecords();
    Q_EMIT nextRequested();
}

/// The statements commit one by one. The first that fails has told why, and ends the saving.
bool TopNFrame::saveRanking()
{
    if (!basDatabase::ExecuteSQL(QStringLiteral("delete from tbltopn")))
        return false;
    for (const Ranks *ranks : {&m_previous, &m_result}) {
        for (int row = 1; row < ranks->grid->rowCount(); ++row) {
            const RankedName ranked = rankedName(*ranks, row);
            const bool isRanked = ranked.rank != noRank;
            if (!isRanked && !ranks->offersNone && !isNewlyUnranked(ranked))
                continue;
            if (!basDatabase::ExecuteSQL(isRanked ? rankInsert(ranked)
                                                  : fullNamesDelete(ranked.name)))
                return false;
        }
    }
    return true;
}

/// Whether a name has come down from the ranking and still has no rank, nor has a namesake of
/// other origin or sex, to whom the full names belong as well.
bool TopNFrame::isNewlyUnranked(const RankedName &unranked) const
{
    const auto isThis = [&unranked](const RankedName &moved) { return unranked.isSameName(moved); };
    if (std::ranges::none_of(m_movedDown, isThis))
        return false;
    for (const Ranks *ranks : {&m_previous, &m_result}) {
        for (int row = 1; row < ranks->grid->rowCount(); ++row) {
            const RankedName other = rankedName(*ranks, row);
            if (other.name == unranked.name && other.rank != noRank)
                return false;
        }
    }
    return true;
}

bool TopNFrame::isSavedBefore(QStringView action)
{
    commitEdits();
    if (m_topNChanged)
        dialogs::showMessage(u"Record changed, please save before " % action % u'!',
                             dialogs::Icon::Information, topNTitle());
    return !m_topNChanged;
}

QString TopNFrame::topNTitle() const
{
    return u"Top " % m_topN;
}

} // namespace shortlist
