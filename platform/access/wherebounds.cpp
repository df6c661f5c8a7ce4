// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/access/wherebounds.h"

#include "platform/access/collation.h"
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

/// The key of a page, part by part, and the sign by which rows lie beyond it.
struct Keyset
{
    std::vector<Comparison> parts;
    QStringView sign;
};

bool isSamePart(const Comparison &a, const Comparison &b)
{
    return a.column == b.column && a.literal->literalText() == b.literal->literalText();
}

/// One branch of a key's chain: the parts before it equal, the next one beyond. Adds the next one
/// to the key.
bool readBranch(Tokens branch, Keyset &keyset)
{
    const std::vector<Tokens> conditions = splitAtTop(withoutBrackets(branch), u"and");
    if (conditions.size() != keyset.parts.size() + 1)
        return false;
    for (std::size_t i = 0; i < keyset.parts.size(); ++i) {
        const std::optional<Comparison> same = comparisonIn(conditions[i]);
        if (!same || same->sign != u"=" || !isSamePart(*same, keyset.parts[i]))
            return false;
    }
    const std::optional<Comparison> beyond = comparisonIn(conditions.back());
    if (!beyond || (beyond->sign != u"<" && beyond->sign != u">"))
        return false;
    if (!keyset.parts.empty() && beyond->sign != keyset.sign)
        return false;
    keyset.sign = beyond->sign;
    keyset.parts.push_back(*beyond);
    return true;
}

std::optional<Keyset> keysetIn(Tokens conjunct)
{
    const std::vector<Tokens> branches = splitAtTop(withoutBrackets(conjunct), u"or");
    if (branches.size() < 2)
        return std::nullopt;
    Keyset keyset;
    for (const Tokens branch : branches) {
        if (!readBranch(branch, keyset))
            return std::nullopt;
    }
    return keyset;
}

/// (a, b) > ('x', 'y')
QString rowComparison(const Keyset &keyset)
{
    QStringList columns;
    QStringList literals;
    for (const Comparison &part : keyset.parts) {
        columns.append(part.columnText.toString());
        literals.append(sqlLiteral(part.literal->literalText()));
    }
    return u'(' % columns.join(u", ") % u") " % keyset.sign % u" (" % literals.join(u", ") % u')';
}

/// Whether the rows beyond a key are all on the inner side of a range's end.
bool keepsWithin(const Keyset &keyset, QStringView sign, const QString &column, const QString &end)
{
    const Comparison &first = keyset.parts.front();
    if (keyset.sign != sign || first.column != column)
        return false;
    const int order = compareTexts(first.literal->literalText(), end);
    return sign == u">" ? order >= 0 : order < 0;
}

/// Marks with no letter before them count in the order of texts, but not in a pattern.
bool beginsWithLetter(const std::string &utf8)
{
    ElementReader reader(utf8);
    Element first;
    return reader.next(first) && first.primary != 0;
}

std::optional<Bound> prefixBound(Tokens conjunct, const QSet<QString> &textColumns,
                                 const std::optional<Keyset> &keyset)
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
    const QString prefix = pattern.first(length);
    if (!beginsWithLetter(prefix.toStdString()))
        return std::nullopt;
    const QString beyond = prefix + QString::fromUcs4(U"\U0010ffff", 1);
    const QString column = comparison->columnText.toString();
    // Of two bounds on the same side the engine might read the index from the wider one.
    QStringList range;
    if (!keyset || !keepsWithin(*keyset, u">", comparison->column, prefix))
        range.append(column % u" >= " % sqlLiteral(prefix));
    if (!keyset || !keepsWithin(*keyset, u"<", comparison->column, beyond))
        range.append(column % u" < " % sqlLiteral(beyond));
    const QString bounds = range.join(u" and ");
    if (pattern.sliced(length) == u"%" && isPlainText(prefix.toStdString())) {
        const qsizetype start = conjunct.front().position;
        return Bound {start, conjunct.back().end() - start, bounds};
    }
    return Bound {conjunct.back().end(), 0, QString(u" and " % bounds % u' ')};
}

} // namespace

std::vector<Bound> impliedBounds(Tokens condition, const QSet<QString> &textColumns)
{
    std::vector<Bound> bounds;
    // "between x and y" has an "and" of its own; no statement of ours needs a bound there.
    if (hasAtTop(condition, u"or") || hasAtTop(condition, u"between"))
        return bounds;
    std::vector<Tokens> conjuncts = splitAtTop(condition, u"and");
    std::erase_if(conjuncts, [](Tokens conjunct) { return conjunct.empty(); });
    std::optional<Keyset> keyset;
    for (const Tokens conjunct : conjuncts) {
        if (std::optional<Keyset> found = keyset ? std::nullopt : keysetIn(conjunct)) {
            const qsizetype start = conjunct.front().position;
            bounds.push_back({start, conjunct.back().end() - start, rowComparison(*found)});
            keyset = std::move(found);
        }
    }
    for (const Tokens conjunct : conjuncts) {
        if (const std::optional<Bound> bound = prefixBound(conjunct, textColumns, keyset))
            bounds.push_back(*bound);
    }
    return bounds;
}

} // namespace dbaccess
