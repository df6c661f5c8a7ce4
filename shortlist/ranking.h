// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringList>

namespace shortlist {

/// What stands in the place of the rank of a name that has none.
inline const QString noRank = QStringLiteral("--");

/// The ranks from 1 to a whole number, as texts of at least two digits, so that their order as
/// texts is that of their numbers: "10" gives "01" to "10". There are never more than 32767.
QStringList ranksUpTo(const QString &topN);

/// Headings, alignments and widths of the columns that both grids of the ranking share.
QString rankingFormat(const QString &topN);

/// The columns that both grids of the ranking share. In the grid of the shortlist two more follow:
/// the first letter, which is not shown and stands under the heading of the ranks, and the ranks.
enum RankingColumn {
    NumberColumn,
    NameColumn,
    SexColumn,
    OriginColumn,
    MeaningColumn,
    FirstFreeColumn
};

/// A name as the ranking keeps it. Origin and meaning are the texts, not the keys.
struct RankedName
{
    QString name;
    QString origin;
    QString sex;
    QString meaning;
    QString rank;
};

/// Finds the rank of a name as it was last saved. The texts have their apostrophes doubled.
QString rankQuery(const QString &name, const QString &origin, const QString &sex);

/// Saves the rank of one name.
QString rankInsert(const RankedName &ranked);

/// Takes the full names that begin with a first name off the worksheet.
QString fullNamesDelete(const QString &name);

} // namespace shortlist
