// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "db/basdatabase.h"
#include "platform/dialogs/messagebox.h"
#include "platform/grid/flexgrid.h"
#include "shortlist/topnframe.h"
#include "ui_topnframe.h"

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

bool TopNFrame::saveRanking()
{
    QStringList statements;
    for (const Ranks *ranks : {&m_previous, &m_result}) {
        for (int row = 1; row < ranks->grid->rowCount(); ++row) {
            const RankedName ranked = rankedName(*ranks, row);
            if (ranked.rank != noRank)
                statements.append(rankInsert(ranked));
            else if (ranks->offersNone)
                statements.append(fullNamesDelete(ranked.name));
        }
    }
    return basDatabase::RewriteTable(QStringLiteral("tbltopn"), statements);
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
