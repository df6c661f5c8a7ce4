// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "tools/letters.h"

#include "platform/access/letterdata.h"

#include <QList>
#include <QMap>
#include <QStringList>

#include <algorithm>
#include <stdexcept>

namespace letters {

namespace {

/// A character, as a line of the file tells it.
struct Character
{
    QByteArray category;
    int combiningClass = 0;
    QList<char16_t> parts; ///< what it decomposes into; empty if it stands for itself
    char16_t lower = 0;
};

using Characters = QMap<char16_t, Character>;

struct Range
{
    char16_t first;
    char16_t last;
};

/// The scripts of Europe with their signs and marks, and what is pasted from elsewhere in the place
/// of plain letters: ligatures, the mark of a text's beginning, and the wide forms of East Asia.
constexpr Range covered[] = {{0x0000, 0x214f}, {0x2c60, 0x2c7f}, {0xa720, 0xa7ff}, {0xab30, 0xab6f},
                             {0xfb00, 0xfb06}, {0xfeff, 0xfeff}, {0xff01, 0xff5e}};

bool isCovered(char16_t c)
{
    return std::ranges::any_of(covered,
                               [c](const Range &r) { return c >= r.first && c <= r.last; });
}

/// The number that a field holds in hexadecimal; that of the character itself for an empty one.
uint code(const QByteArray &field, uint ifEmpty)
{
    bool isNumber = true;
    const uint number = field.isEmpty() ? ifEmpty : field.toUInt(&isNumber, 16);
    if (!isNumber)
        throw std::runtime_error("not a line of UnicodeData.txt: \"" + field.toStdString() + '"');
    return number;
}

Character characterOf(const QList<QByteArray> &fields, uint itself)
{
    Character character {.category = fields[2],
                         .combiningClass = fields[3].toInt(),
                         .parts = {},
                         .lower = char16_t(code(fields[13], itself))};
    for (const QByteArray &part : fields[5].split(' ')) {
        // "<compat>" and the like say what kind of decomposition it is.
        if (!part.isEmpty() && !part.startsWith('<'))
            character.parts.append(char16_t(code(part, 0)));
    }
    return character;
}

Characters readCharacters(const QByteArray &unicodeData)
{
    constexpr qsizetype fieldCount = 15;
    Characters characters;
    for (const QByteArray &line : unicodeData.split('\n')) {
        if (line.isEmpty())
            continue;
        const QList<QByteArray> fields = line.split(';');
        if (fields.size() != fieldCount)
            throw std::runtime_error("not a line of UnicodeData.txt: " + line.toStdString());
        const uint itself = code(fields[0], 0);
        if (itself <= 0xffff)
            characters.insert(char16_t(itself), characterOf(fields, itself));
    }
    return characters;
}

/// Control and format characters other than space, and the joiner of graphemes.
bool isIgnored(char16_t c, const Character &character)
{
    const bool isSpaceControl = c >= u'\t' && c <= u'\r';
    return (character.category == "Cc" && !isSpaceControl) || character.category == "Cf"
           || c == 0x034f;
}

/// The order tells it from a plain s.
constexpr char16_t longS = 0x017f;

/// Base letters without case, and marks. A sign that decomposes to a blank and a mark, such as "¨",
/// is one of its own.
QString folded(const Characters &characters, char16_t c)
{
    const Character character =
        characters.value(c, Character {.category {}, .parts {}, .lower = c});
    if (isIgnored(c, character))
        return {};
    if (c == longS || character.parts.isEmpty() || character.parts.first() == u' ')
        return character.combiningClass != 0 ? QString(QChar(c)) : QString(QChar(character.lower));
    QString text;
    for (const char16_t part : character.parts)
        text += folded(characters, part);
    return text;
}

/// A character as it stands in a literal: plain letters and digits as such.
QString literal(char16_t c)
{
    const bool isPlain =
        (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || (c >= u'0' && c <= u'9');
    return isPlain ? QString(QChar(c)) : QStringLiteral("\\u%1").arg(uint(c), 4, 16, QChar(u'0'));
}

QString hex(uint number)
{
    return QStringLiteral("0x%1").arg(number, 4, 16, QChar(u'0'));
}

/// Items in lines of the house's width.
QString inLines(const QStringList &items)
{
    constexpr qsizetype width = 100;
    QString text;
    QString line;
    for (const QString &item : items) {
        if (line.size() + item.size() + 2 > width) {
            text += line % u'\n';
            line.clear();
        }
        line += (line.isEmpty() ? u"    " : u" ") % item % u',';
    }
    return text % line % u'\n';
}

QStringList foldings(const Characters &characters)
{
    QStringList items;
    for (auto it = characters.cbegin(); it != characters.cend(); ++it) {
        const QString text = folded(characters, it.key());
        if (!isCovered(it.key()) || isIgnored(it.key(), *it) || text == QChar(it.key()))
            continue;
        QString escaped;
        for (const QChar c : text)
            escaped += literal(c.unicode());
        items.append(u'{' % hex(it.key()) % u", u\"" % escaped % u"\"}");
    }
    return items;
}

/// The covered characters for which a value is not 0, those that follow each other with the same
/// value as one range: "{first, last, value}".
template <typename Value>
QStringList ranges(const Characters &characters, const Value &valueOf)
{
    struct Stretch
    {
        Range range;
        int value;
    };
    QList<Stretch> found;
    for (auto it = characters.cbegin(); it != characters.cend(); ++it) {
        const int value = isCovered(it.key()) ? valueOf(it.key(), *it) : 0;
        if (value == 0)
            continue;
        if (!found.isEmpty() && found.last().range.last + 1 == it.key()
            && found.last().value == value)
            found.last().range.last = it.key();
        else
            found.append({{it.key(), it.key()}, value});
    }
    QStringList items;
    for (const Stretch &stretch : found)
        items.append(QStringLiteral("{%1, %2, %3}")
                         .arg(hex(stretch.range.first), hex(stretch.range.last))
                         .arg(stretch.value));
    return items;
}

} // namespace

QByteArray letterData(const QByteArray &unicodeData, const QString &version)
{
    const Characters characters = readCharacters(unicodeData);
    const QStringList marks = ranges(characters, [](char16_t c, const Character &character) {
        return isIgnored(c, character) ? dbaccess::ignored : character.combiningClass;
    });
    const QString text = u"// SPDX-FileCopyrightText: 2026 The Tovarin developers\n"
                         u"// SPDX-License-Identifier: MIT\n\n"
                         u"// Made by \"mkdb letters\" from the data of Unicode "
                         % version
                         % u". Files are indexed by the order of texts:\n"
                           u"// whoever changes it raises the version of the collation.\n\n"
                           u"#include \"platform/access/letterdata.h\"\n\n"
                           u"namespace dbaccess {\n\nnamespace {\n\n"
                           u"// clang-format off\n\n"
                           u"constexpr Folding allFoldings[] = {\n"
                         % inLines(foldings(characters))
                         % u"};\n\nconstexpr MarkRange allMarks[] = {\n" % inLines(marks)
                         % u"};\n\n// clang-format on\n\n} // namespace\n\n"
                           u"constinit const std::span<const Folding> foldings = allFoldings;\n"
                           u"constinit const std::span<const MarkRange> marks = allMarks;\n\n"
                           u"} // namespace dbaccess\n";
    return text.toUtf8();
}

} // namespace letters
