// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "search/pagequeries.h"

#include "db/basdatabase.h"

namespace search {

namespace {

constexpr QStringView pageColumns =
    u"name_first, name_desc, name_sex, org_desc, meaning_name, name_select ";
constexpr QStringView dictionaryTables = u"from tblmaster, tblmeaning, tblorg ";

/// What lies beyond a key: "greater" in all of its parts from left to right, or "less".
QString beyond(const PageKey &key, const QString &clause, QStringView comparison)
{
    const QString name = basDatabase::QuoteSQL(key.name);
    const QString origin = basDatabase::QuoteSQL(key.origin);
    const QString meaning = basDatabase::QuoteSQL(key.meaning);
    const QString sameName = u" or (name_desc = '" % name % u'\'';
    const QString sameSex = sameName % u" and name_sex = '" % key.sex % u'\'';
    const QString sameOrigin = sameSex % u" and org_desc = '" % origin % u'\'';
    const QString is = u' ' % comparison % u" '";
    return (clause.isEmpty() ? u" where ((name_desc" : u" and ((name_desc") % is % name % u"') "
           % sameName % u" and name_sex" % is % key.sex % u"') " % sameSex % u" and org_desc" % is
           % origin % u"') " % sameOrigin % u" and meaning_name" % is % meaning % u"')) ";
}

QString pageQuery(const QString &clause)
{
    return u"select top 100 " % pageColumns % dictionaryTables % clause;
}

} // namespace

QString countQuery(const QString &clause)
{
    return u"select count(*) " % dictionaryTables % clause;
}

QString tickCountQuery()
{
    return QStringLiteral("select count(*) from tblmaster where name_select = 'Y' ");
}

QString firstPageQuery(const QString &clause)
{
    return pageQuery(clause) % u' ' % forwardOrder();
}

QString pageAfterQuery(const QString &clause, const PageKey &key)
{
    return pageQuery(clause) % beyond(key, clause, u">");
}

QString pageBeforeQuery(const QString &clause, const PageKey &key)
{
    return pageQuery(clause) % beyond(key, clause, u"<");
}

QString forwardOrder()
{
    return QStringLiteral("order by name_desc, name_sex, org_desc, meaning_name ");
}

QString backwardOrder()
{
    return QStringLiteral("order by name_desc desc, name_sex, org_desc, meaning_name ");
}

QString lastPageInsert(const QString &clause, const QString &rows)
{
    return u"INSERT INTO tbltemp select top " % rows
           % u" name_desc, name_orgid, name_sex, name_mid, name_first, name_select "
           % dictionaryTables % clause
           % u"order by name_desc desc, name_sex desc, org_desc desc, meaning_name desc ";
}

QString lastPageQuery()
{
    return u"select " % pageColumns
           % u"from tbltemp, tblmeaning, tblorg where name_mid = meaning_id and name_orgid = "
             u"org_id "
           % forwardOrder();
}

QString lastPageDelete()
{
    return QStringLiteral("delete from tbltemp ");
}

} // namespace search
