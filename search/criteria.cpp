// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "search/criteria.h"

#include "db/basdatabase.h"

namespace search {

namespace {

/// "where " for the first condition of a clause, "and " for the others.
QString joint(const QString &clause)
{
    return clause.isEmpty() ? QStringLiteral("where ") : QStringLiteral("and ");
}

QString joinConditions(const QString &clause)
{
    return joint(clause) % u"name_mid = meaning_id and name_orgid = org_id ";
}

QString nameCondition(const SearchCriteria &criteria)
{
    const QString text = basDatabase::QuoteSQL(criteria.name);
    switch (criteria.nameRule) {
    case NameRule::Exact:
        return u"name_desc = '" % text % u"' ";
    case NameRule::StartsWith:
        return u"name_desc like '" % text % u"%' ";
    case NameRule::EndsWith:
        return u"name_desc like '%" % text % u"' ";
    case NameRule::Contains:
        return u"name_desc like '%" % text % u"%' ";
    }
    Q_UNREACHABLE();
}

QString sexCondition(Sex sex)
{
    switch (sex) {
    case Sex::Boy:
        return QStringLiteral("name_sex = 'B' ");
    case Sex::Girl:
        return QStringLiteral("name_sex = 'G' ");
    case Sex::Both:
        break;
    }
    return {};
}

QString fieldColumn(ListField field)
{
    switch (field) {
    case ListField::Name:
        return QStringLiteral("name_desc");
    case ListField::Meaning:
        return QStringLiteral("meaning_name");
    case ListField::Origin:
        return QStringLiteral("org_desc");
    }
    Q_UNREACHABLE();
}

} // namespace

QString criteriaClause(const SearchCriteria &criteria)
{
    QString clause;
    const auto add = [&clause](const QString &condition) { clause += joint(clause) % condition; };
    if (criteria.sex != Sex::Both)
        add(sexCondition(criteria.sex));
    if (!criteria.name.isEmpty())
        add(nameCondition(criteria));
    if (!criteria.origin.isEmpty() && criteria.origin != allOrigins)
        add(u"org_desc = '" % basDatabase::QuoteSQL(criteria.origin) % u"' ");
    if (!criteria.meaning.isEmpty())
        add(u"meaning_name like '%" % basDatabase::QuoteSQL(criteria.meaning) % u"%' ");
    clause += joinConditions(clause);
    if (criteria.tickedOnly)
        add(QStringLiteral("name_select = 'Y' "));
    return clause;
}

QString criteriaClause(const ListCriteria &criteria)
{
    QString clause = u"where " % fieldColumn(criteria.field) % u" like '"
                     % basDatabase::QuoteSQL(criteria.letter) % u"%' ";
    if (criteria.sex != Sex::Both)
        clause += u"and " % sexCondition(criteria.sex);
    return clause + joinConditions(clause);
}

} // namespace search
