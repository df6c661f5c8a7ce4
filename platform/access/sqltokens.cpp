// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/access/sqltokens.h"

namespace dbaccess {

namespace {

bool isWordCharacter(QChar c)
{
    return c.isLetterOrNumber() || c == u'_';
}

qsizetype endOfQuoted(QStringView statement, qsizetype start)
{
    const QChar quote = statement[start];
    qsizetype at = start + 1;
    while (at < statement.size()) {
        if (statement[at] != quote) {
            ++at;
        } else if (at + 1 < statement.size() && statement[at + 1] == quote) {
            at += 2;
        } else {
            return at + 1;
        }
    }
    return at;
}

qsizetype endOfWord(QStringView statement, qsizetype start)
{
    qsizetype at = start;
    while (at < statement.size() && isWordCharacter(statement[at]))
        ++at;
    return at;
}

SqlToken tokenAt(QStringView statement, qsizetype start)
{
    using Kind = SqlToken::Kind;
    const QChar first = statement[start];
    const auto token = [&](Kind kind, qsizetype end) {
        return SqlToken {kind, statement.sliced(start, end - start), start};
    };
    if (first == u'\'' || first == u'"')
        return token(Kind::Literal, endOfQuoted(statement, start));
    if (first == u'[') {
        const qsizetype close = statement.indexOf(u']', start);
        return token(Kind::BracketedName, close < 0 ? statement.size() : close + 1);
    }
    if (isWordCharacter(first))
        return token(first.isDigit() ? Kind::Number : Kind::Word, endOfWord(statement, start));
    const QStringView two = statement.sliced(start).first(qMin(2, statement.size() - start));
    const bool isPair = two == u"<=" || two == u">=" || two == u"<>" || two == u"!=";
    return token(Kind::Sign, start + (isPair ? 2 : 1));
}

} // namespace

bool SqlToken::isWord(QStringView keyword) const
{
    return kind == Kind::Word && text.size() == keyword.size()
           && text.compare(keyword, Qt::CaseInsensitive) == 0;
}

QString SqlToken::literalText() const
{
    const QChar quote = text.front();
    QString inner = text.sliced(1, text.size() - (isClosed() ? 2 : 1)).toString();
    return inner.replace(QString(2, quote), QString(quote));
}

std::vector<SqlToken> tokenizeSql(QStringView statement)
{
    std::vector<SqlToken> tokens;
    qsizetype at = 0;
    while (at < statement.size()) {
        if (statement[at].isSpace()) {
            ++at;
            continue;
        }
        tokens.push_back(tokenAt(statement, at));
        at = tokens.back().end();
    }
    return tokens;
}

QString sqlLiteral(const QString &text)
{
    QString doubled = text;
    doubled.replace(u'\'', QStringLiteral("''"));
    return u'\'' % doubled % u'\'';
}

} // namespace dbaccess
