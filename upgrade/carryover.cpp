// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "upgrade/carryover.h"

#include "platform/access/databaserenewal.h"

namespace upgrade {

namespace {

/// A table that only the user fills.
struct UserTable
{
    const char *name;
    const char *columns;
};

constexpr UserTable userTables[] = {
    {"tblresult", "name_desc, name_orgid, name_sex, name_meaning, name_first, name_select"},
    {"tbltopn", "t10_id, t10_name, t10_orgid, t10_sex, t10_mid"},
    {"tblinitial", "init_first, init_second, init_third, init_other, init_desc"}};

// Whether an entry is that of a tick. Its own columns come first in the comparisons, so that they
// compare as the dictionary does: a name that has only changed its capitals is still found.
constexpr char isEntryOfTick[] = "org_desc = kept_origin and name_orgid = org_id and "
                                 "name_desc = kept_name and name_sex = kept_sex";

QString latin1(const char *text)
{
    return QString::fromLatin1(text);
}

void keep(dbaccess::DatabaseRenewal &renewal)
{
    renewal.execute(QStringLiteral(
        "create temp table kept_ticks as select name_desc as kept_name, org_desc as kept_origin, "
        "name_sex as kept_sex from main.tblmaster left join main.tblorg on org_id = name_orgid "
        "where name_select = 'Y' order by name_desc, name_sex, org_desc"));
    for (const UserTable &table : userTables)
        renewal.execute(QStringLiteral("create temp table kept_%1 as select %2 from main.%1 "
                                       "order by rowid")
                            .arg(latin1(table.name), latin1(table.columns)));
}

void putBack(dbaccess::DatabaseRenewal &renewal)
{
    renewal.execute(u"update main.tblmaster set name_select = 'Y' where rowid in (select "
                    u"tblmaster.rowid from temp.kept_ticks, main.tblorg, main.tblmaster where "
                    % latin1(isEntryOfTick) % u')');
    for (const UserTable &table : userTables)
        renewal.execute(QStringLiteral("insert into main.%1(%2) select %2 from temp.kept_%1 "
                                       "order by rowid")
                            .arg(latin1(table.name), latin1(table.columns)));
}

std::vector<TickedName> goneTicks(const dbaccess::DatabaseRenewal &renewal)
{
    std::vector<TickedName> gone;
    for (const QStringList &row :
         renewal.rows(u"select kept_name, kept_origin, kept_sex from temp.kept_ticks where not "
                      u"exists (select 1 from main.tblorg, main.tblmaster where "
                      % latin1(isEntryOfTick) % u") order by rowid"))
        gone.push_back({row[0], row[1], row[2]});
    return gone;
}

} // namespace

bool holdsUserData(const dbaccess::DatabaseRenewal &renewal)
{
    QString counts = QStringLiteral("select (select count(*) from main.tblmaster where "
                                    "name_select = 'Y')");
    for (const UserTable &table : userTables)
        counts += u" + (select count(*) from main." % latin1(table.name) % u')';
    return renewal.rows(counts)[0][0] != u"0";
}

CarriedOver carryOver(dbaccess::DatabaseRenewal &renewal)
{
    keep(renewal);
    renewal.takeNewerTables();
    putBack(renewal);
    const int kept =
        renewal.rows(QStringLiteral("select count(*) from temp.kept_ticks"))[0][0].toInt();
    CarriedOver carried {.ticks = kept, .gone = goneTicks(renewal)};
    carried.ticks -= int(carried.gone.size());
    return carried;
}

} // namespace upgrade
