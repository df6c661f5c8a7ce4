// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/access/dialect.h"

#include "platform/access/engineerror.h"
#include "platform/access/sqltokens.h"
#include "platform/access/wherebounds.h"

#include <algorithm>

namespace dbaccess {

namespace {

using Tokens = std::span<const SqlToken>;

/// A stretch of the statement and what stands there instead.
struct Edit
{
    qsizetype position = 0;
    qsizetype length = 0;
    QString replacement;
};

class Translator
{
public:
    Translator(const QString &statement, const QSet<QString> &textColumns)
        : m_statement(statement), m_textColumns(textColumns), m_tokens(tokenizeSql(m_statement))
    {
    }

    Translation translate()
    {
        refuseUnreadable();
        for (std::size_t i = 0; i < m_tokens.size(); ++i) {
            const SqlToken &token = m_tokens[i];
            if (token.isWord(u"select"))
                translateSelect(i);
            else if (token.isWord(u"where"))
                addBounds(i);
            else if (token.kind == SqlToken::Kind::Literal && token.text.front() == u'"')
                replaceLiteral(token);
        }
        // A limit stands behind every condition added at the same place.
        m_edits.insert(m_edits.end(), m_limits.begin(), m_limits.end());
        return {edited(), m_intoTable};
    }

private:
    void refuseUnreadable() const
    {
        if (m_statement.contains(QChar(u'\0')))
            throw EngineError(EngineError::Reason::Syntax,
                              QStringLiteral("The statement contains a character that cannot be "
                                             "stored."));
        if (!m_tokens.empty() && m_tokens.back().kind == SqlToken::Kind::Literal
            && !m_tokens.back().isClosed())
            throw EngineError(
                EngineError::Reason::Syntax,
                QStringLiteral("Syntax error in the statement near %1.").arg(m_tokens.back().text));
        const auto semicolon = std::ranges::find_if(
            m_tokens, [](const SqlToken &token) { return token.isSign(u";"); });
        if (semicolon != m_tokens.end() && semicolon + 1 != m_tokens.end())
            throw EngineError(EngineError::Reason::Syntax,
                              QStringLiteral("Characters found after the end of the statement."));
    }

    /// The index behind the last token of the part that starts at the given token: up to the
    /// bracket that closes around it, a ";", or one of the keywords that end it.
    std::size_t endOfPart(std::size_t start, std::initializer_list<QStringView> keywords) const
    {
        int depth = 0;
        for (std::size_t i = start; i < m_tokens.size(); ++i) {
            const SqlToken &token = m_tokens[i];
            if (token.isSign(u"("))
                ++depth;
            else if (token.isSign(u")") && --depth < 0)
                return i;
            const bool ends =
                token.isSign(u";")
                || std::ranges::any_of(keywords, [&](QStringView k) { return token.isWord(k); });
            if (depth == 0 && ends)
                return i;
        }
        return m_tokens.size();
    }

    void translateSelect(std::size_t select)
    {
        const std::size_t end = endOfPart(select + 1, {u"union", u"except", u"intersect"});
        const bool hasTop = select + 2 < end && m_tokens[select + 1].isWord(u"top")
                            && m_tokens[select + 2].kind == SqlToken::Kind::Number;
        if (hasTop) {
            const SqlToken &top = m_tokens[select + 1];
            const SqlToken &count = m_tokens[select + 2];
            replace(top.position, count.end() - top.position, QString());
            // Not a plain number: a small one would tempt the planner to sort everything rather
            // than to read the few rows off an index.
            m_limits.push_back(
                {m_tokens[end - 1].end(), 0, u" limit " % count.text.toString() % u" + 0"});
        }
        const std::size_t into = endOfPart(select + 1, {u"into", u"from"});
        if (select == 0 && into + 1 < end && m_tokens[into].isWord(u"into")) {
            const SqlToken &table = m_tokens[into + 1];
            m_intoTable = table.text.toString();
            replace(m_tokens[into].position, table.end() - m_tokens[into].position, QString());
        }
    }

    void addBounds(std::size_t where)
    {
        const std::size_t end =
            endOfPart(where + 1, {u"group", u"order", u"having", u"window", u"limit", u"union",
                                  u"except", u"intersect", u"returning"});
        const Tokens condition = Tokens(m_tokens).subspan(where + 1, end - where - 1);
        for (const Bound &bound : impliedBounds(condition, m_textColumns))
            replace(bound.position, bound.length, bound.condition);
    }

    void replaceLiteral(const SqlToken &token)
    {
        // Two literals that touch would become one.
        const auto isQuote = [this](qsizetype at) { return m_statement.mid(at, 1) == u"'"; };
        const QString gap =
            token.position > 0 && isQuote(token.position - 1) ? QStringLiteral(" ") : QString();
        const QString gapBehind = isQuote(token.end()) ? QStringLiteral(" ") : QString();
        replace(token.position, token.text.size(),
                gap % sqlLiteral(token.literalText()) % gapBehind);
    }

    void replace(qsizetype position, qsizetype length, const QString &replacement)
    {
        m_edits.push_back({position, length, replacement});
    }

    QString edited()
    {
        std::ranges::stable_sort(m_edits, {}, &Edit::position);
        QString result;
        qsizetype at = 0;
        for (const Edit &edit : m_edits) {
            // A pattern that has become a range took the literal within it along.
            if (edit.position < at)
                continue;
            result += QStringView(m_statement).sliced(at, edit.position - at);
            result += edit.replacement;
            at = edit.position + edit.length;
        }
        return result + QStringView(m_statement).sliced(at);
    }

    const QString &m_statement;
    const QSet<QString> &m_textColumns;
    std::vector<SqlToken> m_tokens;
    std::vector<Edit> m_edits;
    std::vector<Edit> m_limits;
    QString m_intoTable;
};

} // namespace

Translation translateStatement(const QString &statement, const QSet<QString> &textColumns)
{
    return Translator(statement, textColumns).translate();
}

} // namespace dbaccess
