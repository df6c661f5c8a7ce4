// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "worksheet/fullnames.h"

#include "db/basdatabase.h"

#include <QTextBoundaryFinder>

namespace worksheet {

QString worksheetFormat(const QString &topN)
{
    const auto blanks = [](int count) { return QString(count, u' '); };
    return u"^No   |<Top " % topN % u" |<First" % blanks(32) % u"|<Middle" % blanks(36) % u"|<Last"
           % blanks(36) % u"|<Other Initial" % blanks(21) % u"|<Initials" % blanks(23);
}

QString firstLetter(const QString &text)
{
    QTextBoundaryFinder letters(QTextBoundaryFinder::Grapheme, text);
    return text.first(std::max<qsizetype>(0, letters.toNextBoundary()));
}

QString initials(const QString &first, const QString &middle, const QString &last,
                 const QString &other)
{
    return firstLetter(first) % firstLetter(middle) % firstLetter(last) % other;
}

QString firstNameList(bool withBlank, const QString &current, const QStringList &firstNames)
{
    QStringList items;
    if (withBlank)
        items.append(QStringLiteral(" "));
    for (const QString &name : firstNames) {
        const QString trimmed = name.trimmed();
        if (!trimmed.isEmpty() && trimmed != current)
            items.append(name);
    }
    if (!current.trimmed().isEmpty())
        items.append(current);
    return items.join(u'|');
}

QString savedFirstNameQuery(const QString &name)
{
    return u"select init_first from tblinitial where init_first = '" % name % u"' ";
}

QString fullNameInsert(const FullName &name)
{
    const auto quoted = [](const QString &text) {
        return QString(u'\'' % basDatabase::QuoteSQL(text) % u'\'');
    };
    return u"insert into tblinitial(init_first, init_second, init_third, init_other, init_desc) "
           u"values("
           % quoted(name.first) % u", " % quoted(name.middle) % u", " % quoted(name.last) % u", "
           % quoted(name.other) % u", " % quoted(name.initials) % u") ";
}

} // namespace worksheet
