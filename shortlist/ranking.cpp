// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "shortlist/ranking.h"

#include "db/basdatabase.h"

#include <algorithm>
#include <limits>

namespace shortlist {

QStringList ranksUpTo(const QString &topN)
{
    // The place of a rank in its list is a number of 16 bits.
    constexpr qint64 most = std::numeric_limits<std::int16_t>::max();
    const qint64 count = std::min(basDatabase::NumericValue(topN), most);
    QStringList ranks;
    for (qint64 rank = 1; rank <= count; ++rank)
        ranks.append(QStringLiteral("%1").arg(rank, 2, 10, QLatin1Char('0')));
    return ranks;
}

QString rankingFormat(const QString &topN)
{
    const auto blanks = [](int count) { return QString(count, u' '); };
    return u"^No" % blanks(7) % u"|<Name" % blanks(23) % u"|<Boy/Girl    |<Origin" % blanks(28)
           % u"|<Meaning" % blanks(76) % u"|>Top " % topN % blanks(9);
}

QString rankQuery(const QString &name, const QString &origin, const QString &sex)
{
    return u"select t10_id from tbltopn where t10_name = '" % name % u"' and t10_orgid = '" % origin
           % u"' and t10_sex = '" % sex % u"' ";
}

QString rankInsert(const RankedName &ranked)
{
    return u"insert into tbltopn(t10_id, t10_name, t10_orgid, t10_sex, t10_mid) values('"
           % ranked.rank % u"', '" % basDatabase::QuoteSQL(ranked.name) % u"', '"
           % basDatabase::QuoteSQL(ranked.origin) % u"', '" % ranked.sex % u"', '"
           % basDatabase::QuoteSQL(ranked.meaning) % u"') ";
}

QString fullNamesDelete(const QString &name)
{
    return u"delete from tblinitial where init_first = '" % basDatabase::QuoteSQL(name) % u"' ";
}

} // namespace shortlist
