// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/browser/localhtml.h"

#include "platform/browser/browserpane.h"

#include <algorithm>

namespace browser {

namespace {

constexpr QStringView plainAttributes[] = {
    u"align",  u"bgcolor", u"border", u"cellpadding", u"cellspacing", u"color", u"colspan",
    u"height", u"rowspan", u"size",   u"type",        u"valign",      u"value", u"width"};

bool isLetter(QChar c)
{
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z');
}

bool isSpace(QChar c)
{
    return c == u' ' || (c >= u'\t' && c <= u'\r');
}

/// Reads tags as browsers do, and writes them anew, so that what stays means to every browser what
/// it means here.
class TagReader
{
public:
    explicit TagReader(QStringView html) : m_rest(html) { }

    QString run()
    {
        while (!m_rest.isEmpty()) {
            m_out += takeUntil([](QChar c) { return c == u'<'; });
            if (m_rest.isEmpty())
                break;
            skip();
            const bool isEnd = peek() == u'/' && m_rest.size() > 1 && isLetter(m_rest[1]);
            if (isEnd)
                skip();
            if (isLetter(peek()))
                readTag(isEnd);
            else if (peek() == u'!' || peek() == u'?' || peek() == u'/')
                skipPast(u">");
            else
                m_out += u"&lt;";
        }
        return m_out;
    }

private:
    QChar peek() const { return m_rest.isEmpty() ? QChar() : m_rest.front(); }
    void skip() { m_rest = m_rest.sliced(1); }
    void skipPast(QStringView end)
    {
        const qsizetype at = m_rest.indexOf(end, 0, Qt::CaseInsensitive);
        m_rest = at < 0 ? QStringView() : m_rest.sliced(at + end.size());
    }
    template <typename Predicate>
    QStringView takeUntil(const Predicate &ends)
    {
        const auto *const end = std::ranges::find_if(m_rest, ends);
        const QStringView taken = m_rest.first(end - m_rest.begin());
        m_rest = m_rest.sliced(taken.size());
        return taken;
    }

    void readTag(bool isEnd)
    {
        const QString name = takeUntil([](QChar c) { return isSpace(c) || c == u'/' || c == u'>'; })
                                 .toString()
                                 .toLower();
        QString attributes;
        while (!m_rest.isEmpty() && peek() != u'>') {
            if (isSpace(peek()) || peek() == u'/')
                skip();
            else
                attributes += readAttribute(name);
        }
        if (m_rest.isEmpty())
            return; // what is never closed is no tag
        skip();
        if (name != u"style" && name != u"script") {
            m_out += u'<' % QStringView(isEnd ? u"/" : u"") % name % attributes % u'>';
        } else if (!isEnd) {
            // Whether what is in these is markup depends on what they are in: nothing of it stays.
            skipPast(QString(u"</" % name));
            skipPast(u">");
        }
    }

    /// Takes one and answers what stays of it.
    QString readAttribute(const QString &tag)
    {
        const auto endsName = [](QChar c) {
            return isSpace(c) || c == u'/' || c == u'>' || c == u'=';
        };
        QString name(peek()); // an equals sign may be the first of a name
        skip();
        name = (name % takeUntil(endsName)).toLower();
        const QStringView beforeSpace = m_rest;
        takeUntil([](QChar c) { return !isSpace(c); });
        if (peek() != u'=') {
            m_rest = beforeSpace;
            return {};
        }
        skip();
        const QString value = readValue().toString();
        const bool stays =
            tag == u"img" && name == u"src"
                ? isAllowed(QUrl(value))
                : std::ranges::find(plainAttributes, name) != std::end(plainAttributes);
        return stays ? QString(u' ' % name % u"=\"" % value.toHtmlEscaped() % u'"') : QString();
    }

    QStringView readValue()
    {
        takeUntil([](QChar c) { return !isSpace(c); });
        const QChar quote = peek();
        if (quote != u'"' && quote != u'\'')
            return takeUntil([](QChar c) { return isSpace(c) || c == u'>'; });
        skip();
        const QStringView value = takeUntil([quote](QChar c) { return c == quote; });
        if (!m_rest.isEmpty())
            skip();
        return value;
    }

    QStringView m_rest;
    QString m_out;
};

} // namespace

QString localHtml(const QString &html)
{
    return TagReader(html).run();
}

} // namespace browser
