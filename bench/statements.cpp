// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "bench/statements.h"

#include "db/basdatabase.h"
#include "search/criteria.h"
#include "search/pagequeries.h"

#include <array>

namespace statements {

namespace {

constexpr char pageColumns[] = "select name_first, name_desc, name_sex, org_desc, meaning_name, "
                               "name_select from tblmaster, tblmeaning, tblorg ";
constexpr char joins[] = "name_mid = meaning_id and name_orgid = org_id ";
constexpr char pageOrder[] = "order by name_desc, name_sex, org_desc, meaning_name limit 100";
constexpr char backwardOrder[] =
    "order by name_desc desc, name_sex, org_desc, meaning_name limit 100";
constexpr char lastOrder[] =
    "order by name_desc desc, name_sex desc, org_desc desc, meaning_name desc ";
constexpr char countColumns[] =
    "select count(*) from tblmaster, tblmeaning, tblorg where name_mid = meaning_id and "
    "name_orgid = org_id ";

QByteArray barePage(const QByteArray &condition, const char *order = pageOrder)
{
    return QByteArray(pageColumns) + "where " + condition + joins + order;
}

const QString &everything()
{
    static const QString clause =
        search::criteriaClause(search::SearchCriteria {.sex = search::Sex::Both});
    return clause;
}

/// What lies beyond a key, as one would write it by hand.
QByteArray rowValue(const search::PageKey &key, const char *comparison)
{
    const auto text = [](const QString &value) {
        return QString(u'\'' % basDatabase::QuoteSQL(value) % u'\'').toUtf8();
    };
    return QByteArray("(name_desc, name_sex, org_desc, meaning_name) ") + comparison + " ("
           + text(key.name) + ", " + text(key.sex) + ", " + text(key.origin) + ", "
           + text(key.meaning) + ") and ";
}

/// The key at a place within the names that a hand-written condition finds.
search::PageKey keyAt(const BareEngine &bare, const QByteArray &condition, int percent)
{
    const qint64 names =
        bare.fetch(countColumns + QByteArray("and ") + condition + "1")[0][0].toLongLong();
    const auto row = bare.fetch(
        "select name_desc, name_sex, org_desc, meaning_name from tblmaster, tblmeaning, tblorg "
        "where "
        + condition + joins + pageOrder + " offset "
        + QByteArray::number(names * percent / 100))[0];
    return {row[0], row[1], row[2], row[3]};
}

} // namespace

std::vector<Pair> starts()
{
    using search::SearchCriteria;
    const auto clause = [](const SearchCriteria &criteria) {
        return search::criteriaClause(criteria);
    };
    const auto first = [](const QString &text) { return search::firstPageQuery(text); };
    const QString prefix = clause({.sex = search::Sex::Both,
                                   .name = QStringLiteral("Ma"),
                                   .nameRule = search::NameRule::StartsWith});
    const QString contains = clause({.sex = search::Sex::Both,
                                     .name = QStringLiteral("lur"),
                                     .nameRule = search::NameRule::Contains});
    const QString origin =
        clause({.sex = search::Sex::Both, .origin = QStringLiteral("Origin 07")});
    const QString boys = clause({.sex = search::Sex::Boy});
    const QByteArray prefixRange = "name_desc >= 'Ma' and name_desc < 'Mb' ";
    const auto row = [](const char *name, const QString &ours, const QByteArray &bare) {
        return Pair {QString::fromLatin1(name), {ours}, {bare}};
    };
    return {
        row("first page, all", first(everything()), barePage("")),
        row("first page, boys", first(boys), barePage("name_sex = 'B' and ")),
        row("first page, prefix", first(prefix), barePage(prefixRange + "and ")),
        row("first page, contains", first(contains), barePage("name_desc like '%lur%' and ")),
        row("first page, origin", first(origin), barePage("org_desc = 'Origin 07' and ")),
        row("count, all", search::countQuery(everything()), countColumns),
        row("count, prefix", search::countQuery(prefix),
            countColumns + QByteArray("and ") + prefixRange),
        row("count, contains", search::countQuery(contains),
            countColumns + QByteArray("and name_desc like '%lur%'")),
        row("count, origin", search::countQuery(origin),
            countColumns + QByteArray("and org_desc = 'Origin 07'")),
        row("count, ticks", search::tickCountQuery(),
            "select count(*) from tblmaster where name_select = 'Y'"),
    };
}

std::vector<Pair> moves(const BareEngine &bare)
{
    struct Browse
    {
        QString name;
        QString clause;
        QByteArray condition;
        std::array<int, 3> places; ///< in percent, with a full page on either side
    };
    const Browse browses[] = {{QStringLiteral("all"), everything(), "", {2, 50, 98}},
                              {QStringLiteral("M, boys"),
                               search::criteriaClause(search::ListCriteria {
                                   .letter = QStringLiteral("M"), .sex = search::Sex::Boy}),
                               "name_desc >= 'M' and name_desc < 'N' and name_sex = 'B' and ",
                               {35, 50, 65}}};
    std::vector<Pair> pairs;
    for (const Browse &browse : browses) {
        for (const int percent : browse.places) {
            const search::PageKey key = keyAt(bare, browse.condition, percent);
            const QString where = QStringLiteral(", %1, %2%").arg(browse.name).arg(percent);
            pairs.push_back({u"next" % where,
                             {search::pageAfterQuery(browse.clause, key) % search::forwardOrder()},
                             {barePage(browse.condition + rowValue(key, ">"))}});
            pairs.push_back(
                {u"previous" % where,
                 {search::pageBeforeQuery(browse.clause, key) % search::backwardOrder()},
                 {barePage(browse.condition + rowValue(key, "<"), backwardOrder)}});
        }
        // A plain number as the limit would have the engine sort everything for a small one.
        for (const int rows : {50, 2}) {
            const QByteArray limit = "limit " + QByteArray::number(rows) + " + 0";
            pairs.push_back(
                {QStringLiteral("last %1, %2").arg(rows).arg(browse.name),
                 {search::lastPageInsert(browse.clause, QString::number(rows)),
                  search::lastPageQuery(), search::lastPageDelete()},
                 {"insert into tbltemp select name_desc, name_orgid, name_sex, name_mid, "
                  "name_first, name_select from tblmaster, tblmeaning, tblorg where "
                      + browse.condition + joins + lastOrder + limit,
                  QByteArray("select name_first, name_desc, name_sex, org_desc, meaning_name, "
                             "name_select from tbltemp, tblmeaning, tblorg where ")
                      + joins + pageOrder,
                  "delete from tbltemp"}});
        }
    }
    return pairs;
}

} // namespace statements
