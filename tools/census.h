// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "tools/dictionary.h"

#include <QMap>

/// The dictionary as a whole: how much there is of what, what is missing, and what can't be right.
namespace dictionary {

/// The fewest boys' and the fewest girls' names of an origin: with less, a parent who looks for
/// names of that language finds a sample rather than a list.
inline constexpr int fewestOfASex = 35;

/// The most entries, over all origins, that one meaning can have. John, with a form in every
/// language of Europe and beyond, comes nearest.
inline constexpr int mostOfAMeaning = 120;

/// The most entries of one origin that share a meaning, those aside that own up to not knowing it.
inline constexpr int mostOfAMeaningInAnOrigin = 12;

/// Numbers of names, of births or of anything else that is counted by sex.
struct BySex
{
    qint64 boys = 0;
    qint64 girls = 0;

    qint64 &of(QChar sex) { return sex == u'B' ? boys : girls; }
    qint64 of(QChar sex) const { return sex == u'B' ? boys : girls; }
};

QMap<QString, BySex> countByOrigin(const std::vector<Entry> &entries);

/// What no single line shows: origins with too few names, meanings with too many.
QStringList wholeProblems(const std::vector<Entry> &entries);

/// A name that parents gave, and how often.
struct GivenName
{
    QString name;
    QChar sex; ///< B or G
    qint64 births = 0;
};

/// Reads lines of name, sex and births; "#" begins a comment.
/// @throws std::runtime_error naming file and line
std::vector<GivenName> readGivenNames(const QString &path);

/// How many of the children find their name, in their spelling (capitals aside) and for their sex.
struct Coverage
{
    BySex births;
    BySex found;                    ///< births
    std::vector<GivenName> missing; ///< the commonest first

    double share(QChar sex) const; ///< from 0 to 1; 1 of no births at all
};

Coverage coverage(const std::vector<Entry> &entries, const std::vector<GivenName> &given);

/// What the second reader of an origin's entries did.
struct Review
{
    int read = 0;
    int changed = 0;
    int dropped = 0;
};

/// Reads lines of origin, and entries read, changed and dropped.
/// @throws std::runtime_error naming file and line
QMap<QString, Review> readReviews(const QString &path);

/// All of this as Markdown: totals, coverage, the commonest missing names, a table of the origins.
QString report(const std::vector<Entry> &entries, const std::vector<GivenName> &given,
               const QMap<QString, Review> &reviews);

/// Draws entries without repeats; the same seed draws the same from the same dictionary.
std::vector<Entry> sample(const std::vector<Entry> &entries, std::size_t count, quint32 seed);

} // namespace dictionary
