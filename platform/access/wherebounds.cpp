// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/access/wherebounds.h"

#include "platform/access/likepattern.h"

#include <algorithm>
#include <optional>

namespace dbaccess {

namespace {

using Tokens = std::span<const SqlToken>;

/// column (=, <, <=, >, >=, like) 'literal'
struct Comparison
{
    QString column;         ///< lower case, with its table if one is given
    QStringView columnText; ///< as written
    QStringView sign;
    const SqlToken *literal = nullptr;
};

int depthChange(const SqlToken &token)
{
    return token.isSign(u"(") ? 1 : token.isSign(u")") ? -1 : 0;
}

bool hasAtTop(Tokens tokens, QStringView keyword)
{
    int depth = 0;
    for (const SqlToken &token : tokens) {
        depth += depthChange(token);
        if (depth == 0 && token.isWord(keyword))
            return true;
    }
    return false;
}

std::vector<Tokens> splitAtTop(Tokens tokens, QStringView keyword)
{
    std::vector<Tokens> parts;
    int depth = 0;
    std::size_t start = 0;
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        depth += depthChange(tokens[i]);
        if (depth == 0 && tokens[i].isWord(keyword)) {
            parts.push_back(tokens.subspan(start, i - start));
            start = i + 1;
        }
    }
    parts.push_back(tokens.subspan(start));
    return parts;
}

/// Removes brackets that enclose the whole: ((a) or (b)) gives (a) or (b).
Tokens withoutBrackets(Tokens tokens)
{
    while (tokens.size() >= 2 && tokens.front().isSign(u"(") && tokens.back().isSign(u")")) {
        int depth = 0;
        for (std::size_t i = 0; i + 1 < tokens.size(); ++i) {
            depth += depthChange(tokens[i]);
            if (depth == 0)
                return tokens;
        }
        tokens = tokens.subspan(1, tokens.size() - 2);
    }
    return tokens;
}

std::optional<Comparison> comparisonIn(Tokens tokens)
{
    tokens = withoutBrackets(tokens);
    const bool isQualified = tokens.size() == 5 && tokens[1].isSign(u".") && tokens[2].isName();
    if (!isQualified && tokens.size() != 3)
        return std::nullopt;
    const SqlToken &lastName = tokens[isQualified ? 2 : 0];
    const SqlToken &sign = tokens[tokens.size() - 2];
    const SqlToken &literal = tokens.back();
    if (!tokens.front().isName() || literal.kind != SqlToken::Kind::Literal)
        return std::nullopt;
    const qsizetype length = lastName.end() - tokens.front().position;
    const QStringView columnText(tokens.front().text.data(), length);
    return Comparison {columnText.toString().toLower(), columnText, sign.text, &literal};
}

std::optional<Comparison> comparisonOn(const QString &column, Tokens branch)
{
    for (const Tokens part : splitAtTop(withoutBrackets(branch), u"and")) {
        const std::optional<Comparison> comparison = comparisonIn(part);
        if (comparison && comparison->column == column)
            return comparison;
    }
    return std::nullopt;
}

/// '>' if the chain bounds its first column from below, '<' from above, nothing otherwise.
std::optional<QChar> directionOf(const std::vector<Tokens> &branches, const Comparison &first)
{
    std::optional<QChar> direction;
    for (const Tokens branch : branches) {
        if (hasAtTop(withoutBrackets(branch), u"or") || hasAtTop(withoutBrackets(branch), u"not"))
            return std::nullopt;
        const std::optional<Comparison> comparison = comparisonOn(first.column, branch);
        if (!comparison || comparison->literal->text != first.literal->text)
            return std::nullopt;
        if (comparison->sign == u"=")
            continue;
        const QChar sign = comparison->sign.front();
        const bool isOrder = (sign == u'<' || sign == u'>') && comparison->sign != u"<>";
        if (!isOrder || (direction && *direction != sign))
            return std::nullopt;
        direction = sign;
    }
    return direction;
}

std::optional<Bound> keysetBound(Tokens conjunct)
{
    const std::vector<Tokens> branches = splitAtTop(withoutBrackets(conjunct), u"or");
    if (branches.size() < 2)
        return std::nullopt;
    const std::vector<Tokens> firstParts = splitAtTop(withoutBrackets(branches.front()), u"and");
    const std::optional<Comparison> first = comparisonIn(firstParts.front());
    const std::optional<QChar> direction = first ? directionOf(branches, *first) : std::nullopt;
    if (!direction)
        return std::nullopt;
    const QString bound = u" and " % first->columnText.toString() % u' ' % *direction % u"= "
                          % sqlLiteral(first->literal->literalText()) % u' ';
    return Bound {conjunct.back().end(), 0, bound};
}

std::optional<Bound> prefixBound(Tokens conjunct, const QSet<QString> &textColumns)
{
    const std::optional<Comparison> comparison = comparisonIn(conjunct);
    if (!comparison || comparison->sign.compare(u"like", Qt::CaseInsensitive) != 0)
        return std::nullopt;
    if (!textColumns.contains(comparison->column.section(u'.', -1)))
        return std::nullopt;
    const QString pattern = comparison->literal->literalText();
    const qsizetype length =
        std::ranges::find_if(pattern, [](QChar c) { return c == u'%' || c == u'_'; })
        - pattern.begin();
    if (length == 0)
        return std::nullopt;
    const QString prefix = pattern.first(length);
    const QString column = comparison->columnText.toString();
    const QString beyond = prefix + QString::fromUcs4(U"\U0010ffff", 1);
    const QString range =
        column % u" >= " % sqlLiteral(prefix) % u" and " % column % u" < " % sqlLiteral(beyond);
    if (pattern.sliced(length) == u"%" && isPlainText(prefix.toStdString())) {
        const qsizetype start = conjunct.front().position;
        return Bound {start, conjunct.back().end() - start, range};
    }
    return Bound {conjunct.back().end(), 0, QString(u" and " % range % u' ')};
}

} // namespace

std::vector<Bound> impliedBounds(Tokens condition, const QSet<QString> &textColumns)
{
    std::vector<Bound> bounds;
    // "between x and y" has an "and" of its own; no statement of ours needs a bound there.
    if (hasAtTop(condition, u"or") || hasAtTop(condition, u"between"))
        return bounds;
    for (const Tokens conjunct : splitAtTop(condition, u"and")) {
        if (conjunct.empty())
            continue;
        std::optional<Bound> bound = keysetBound(conjunct);
        if (!bound)
            bound = prefixBound(conjunct, textColumns);
        if (bound)
            bounds.push_back(*bound);
    }
    return bounds;
}

} // namespace dbaccess
