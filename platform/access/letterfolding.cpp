// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/access/letterfolding.h"

#include "platform/access/letterdata.h"

#include <algorithm>
#include <optional>
#include <vector>

namespace dbaccess {

namespace {

// The order of signs, and of the marks below, is that of the Unicode collation's root table
// (CLDR 42), as far as names, meanings and what people type need it. Whoever changes anything here
// raises collationVersion: files are indexed by it.
constexpr std::u16string_view signOrder =
    u"\t\n\v\f\r\u2028\u2029 _\u2017-\u2010\u2012\u2013\u2014\u2015,;:!\u00a1?\u00bf.\u00b7"
    u"'\u2039\u203a\"\u201c\u201d\u201e\u00ab\u00bb()[]{}\u00a7\u00b6@*/\\&#%\u2030\u2020\u2021"
    u"\u2022\u2032`\u00b4\u02dc^\u00af\u00a8\u00b8\u00b0\u00a9\u00ae+\u00b1\u00f7\u00d7<=>\u00ac"
    u"|\u00a6~\u00a4\u00a2$\u00a3\u00a5\u20ac";

constexpr std::u16string_view markOrder =
    u"\u0332\u0313\u0314\u0301\u0300\u0306\u0302\u030c\u030a\u0342\u0308\u030b\u0303\u0307\u0338"
    u"\u0327\u0328\u0304\u0336\u0337\u0335\u0305\u0309\u030f\u0310\u0311\u031b\u0321\u0322\u0323"
    u"\u0324\u0325\u0326\u032d\u032e\u0330\u0331\u0334\u0339\u0345\u0358";

// Marks of the table below that no combining character stands for sort after all that do.
constexpr std::uint8_t firstCombiningMark = 1;
constexpr std::uint8_t unlistedMark = 200;
constexpr std::uint8_t firstOwnMark = 240;

constexpr std::uint32_t firstDigit = 1000;
constexpr std::uint32_t firstLetter = 2000;
constexpr std::uint32_t firstOther = 0x10000;

/// Letters (and apostrophes) that Unicode leaves whole, as base letters and a mark: either a
/// combining character or a number of our own that tells letters of the same base apart.
struct WholeLetter
{
    char16_t letter;
    const char *bases;
    char16_t mark;
};

constexpr WholeLetter wholeLetters[] = {
    {u'ø', "o", 0x0338}, {u'đ', "d", 0x0335}, {u'ħ', "h", 0x0335}, {u'ł', "l", 0x0335},
    {u'æ', "ae", 1},     {u'œ', "oe", 1},     {u'ß', "ss", 1},     {u'ð', "d", 1},
    {u'þ', "th", 1},     {u'ı', "i", 1},      {u'ſ', "s", 2},      {u'ə', "e", 1},
    {u'ɛ', "e", 2},      {u'ǝ', "e", 3},      {u'ɔ', "o", 1},      {u'ŋ', "n", 1},
    {u'ɲ', "n", 2},      {u'ɓ', "b", 1},      {u'ɗ', "d", 2},      {u'ɖ', "d", 3},
    {u'ƒ', "f", 1},      {u'ǥ', "g", 1},      {u'ɣ', "g", 2},      {u'ɨ', "i", 2},
    {u'ɩ', "i", 3},      {u'ƙ', "k", 1},      {u'ŧ', "t", 1},      {u'ʉ', "u", 1},
    {u'ʊ', "u", 2},      {u'ʋ', "v", 1},      {u'ƴ', "y", 1},      {u'ʒ', "z", 1},
    {u'\u2018', "'", 1}, {u'\u2019', "'", 2}, {u'\u02bb', "'", 3}, {u'\u02bc', "'", 4},
};

std::uint8_t markRank(char16_t mark)
{
    const std::size_t place = markOrder.find(mark);
    return place == std::u16string_view::npos
               ? unlistedMark
               : static_cast<std::uint8_t>(firstCombiningMark + place);
}

/// The atom of a character without case that is no mark.
Atom baseAtom(char16_t folded)
{
    if (folded >= u'a' && folded <= u'z')
        return {static_cast<std::uint32_t>(firstLetter + folded - u'a'), 0, 0};
    if (folded >= u'0' && folded <= u'9')
        return {static_cast<std::uint32_t>(firstDigit + folded - u'0'), 0, 0};
    if (const std::size_t place = signOrder.find(folded); place != std::u16string_view::npos)
        return {static_cast<std::uint32_t>(place + 1), 0, 0};
    return {firstOther + folded, 0, 0};
}

void appendWholeLetter(const WholeLetter &whole, std::vector<Atom> &atoms)
{
    for (const char *base = whole.bases; *base != '\0'; ++base) {
        atoms.push_back(baseAtom(static_cast<unsigned char>(*base)));
        if (base == whole.bases) {
            const std::uint8_t rank =
                whole.mark >= 0x0300 ? markRank(whole.mark)
                                     : static_cast<std::uint8_t>(firstOwnMark + whole.mark - 1);
            atoms.push_back({0, rank, 0});
        }
    }
}

/// The combining class of a mark; 0 for what is none.
std::uint8_t combiningClass(char16_t character)
{
    const auto range = std::ranges::lower_bound(marks, character, {}, &MarkRange::last);
    return range != marks.end() && range->first <= character ? range->combiningClass : 0;
}

/// The atom of a character that has been folded already; nothing for one that is ignored.
std::optional<Atom> atomOf(char16_t folded)
{
    const std::uint8_t markClass = combiningClass(folded);
    if (markClass == ignored)
        return std::nullopt;
    return markClass == 0 ? baseAtom(folded) : Atom {0, markRank(folded), markClass};
}

void appendAtoms(char16_t folded, std::vector<Atom> &atoms)
{
    const auto *whole = std::ranges::find(wholeLetters, folded, &WholeLetter::letter);
    if (whole != std::end(wholeLetters))
        appendWholeLetter(*whole, atoms);
    else if (const std::optional<Atom> atom = atomOf(folded))
        atoms.push_back(*atom);
}

/// The atoms of all that folds to something else, and of the characters that names are made of,
/// worked out once.
class FoldTable
{
public:
    FoldTable()
    {
        auto folding = foldings.begin();
        for (char32_t c = 0; c < m_starts.size() - 1; ++c) {
            m_starts[c] = nextStart();
            if (folding != foldings.end() && folding->character == c)
                append(*folding++);
            else
                appendAtoms(static_cast<char16_t>(c), m_atoms);
        }
        m_starts.back() = nextStart();
        for (; folding != foldings.end(); ++folding) {
            const std::uint32_t start = nextStart();
            append(*folding);
            m_rare.push_back({folding->character, start, nextStart()});
        }
    }

    /// Nothing for a character that the table does not know.
    std::optional<std::span<const Atom>> find(char32_t c) const
    {
        if (c < m_starts.size() - 1)
            return between(m_starts[c], m_starts[c + 1]);
        const auto rare = std::ranges::lower_bound(m_rare, c, {}, &Rare::character);
        if (rare == m_rare.end() || rare->character != c)
            return std::nullopt;
        return between(rare->start, rare->end);
    }

private:
    struct Rare
    {
        char32_t character;
        std::uint32_t start;
        std::uint32_t end;
    };

    std::uint32_t nextStart() const { return static_cast<std::uint32_t>(m_atoms.size()); }
    std::span<const Atom> between(std::uint32_t start, std::uint32_t end) const
    {
        return std::span(m_atoms).subspan(start, end - start);
    }
    void append(const Folding &folding)
    {
        for (const char16_t folded : std::u16string_view(folding.folded))
            appendAtoms(folded, m_atoms);
    }

    std::vector<Atom> m_atoms;
    std::array<std::uint32_t, 0x2151> m_starts {}; ///< those of U+0000 to U+2150
    std::vector<Rare> m_rare;                      ///< the folded ones beyond
};

const FoldTable &foldTable()
{
    static const FoldTable table;
    return table;
}

std::array<std::uint32_t, 128> makeAsciiPrimaries()
{
    std::array<std::uint32_t, 128> primaries {};
    for (char32_t c = 0; c < primaries.size(); ++c) {
        const std::span<const Atom> atoms = *foldTable().find(c);
        primaries[c] = atoms.empty() ? 0 : atoms.front().primary;
    }
    return primaries;
}

/// Decodes the first character of a UTF-8 text, which is not empty, and removes it from the text.
char32_t takeCharacter(std::string_view &utf8)
{
    constexpr char32_t malformed = 0xfffd;
    const auto lead = static_cast<unsigned char>(utf8.front());
    utf8.remove_prefix(1);
    if (lead < 0x80)
        return lead;
    const std::size_t following = lead >= 0xf0 ? 3 : lead >= 0xe0 ? 2 : 1;
    if (lead < 0xc2 || lead > 0xf4 || utf8.size() < following)
        return malformed;
    char32_t character = lead & (0x3fU >> following);
    for (std::size_t i = 0; i < following; ++i) {
        const auto byte = static_cast<unsigned char>(utf8[i]);
        if ((byte & 0xc0U) != 0x80U)
            return malformed;
        character = (character << 6U) | (byte & 0x3fU);
    }
    utf8.remove_prefix(following);
    return character;
}

} // namespace

const std::array<std::uint32_t, 128> &asciiPrimaries()
{
    static const std::array<std::uint32_t, 128> primaries = makeAsciiPrimaries();
    return primaries;
}

char plainLetter(std::uint32_t primary)
{
    const bool isLetter = primary >= firstLetter && primary < firstLetter + 26;
    return isLetter ? static_cast<char>('A' + (primary - firstLetter)) : '\0';
}

/// The atoms of one character: its letters without case, its accents as marks. "É" gives e and an
/// acute mark, "æ" gives a (with a mark) and e. Control and format characters give nothing.
std::span<const Atom> ElementReader::fold(char32_t character)
{
    if (const auto known = foldTable().find(character))
        return *known;
    const bool mayBeMark = character <= 0xffff; // no mark beyond is known
    const std::optional<Atom> atom =
        mayBeMark ? atomOf(static_cast<char16_t>(character)) : Atom {firstOther + character, 0, 0};
    if (!atom)
        return {};
    m_unknown = *atom;
    return std::span(&m_unknown, 1);
}

bool ElementReader::nextAtom(Atom &atom, bool &startsCharacter)
{
    if (m_hasAhead) {
        m_hasAhead = false;
        atom = m_ahead;
        startsCharacter = m_aheadStartsCharacter;
        return true;
    }
    while (m_pending.empty()) {
        if (m_rest.empty())
            return false;
        m_pending = fold(takeCharacter(m_rest));
        m_pendingStartsCharacter = true;
    }
    atom = m_pending.front();
    startsCharacter = m_pendingStartsCharacter;
    m_pending = m_pending.subspan(1);
    m_pendingStartsCharacter = false;
    return true;
}

bool ElementReader::next(Element &element)
{
    Atom atom;
    bool startsCharacter = true;
    if (!nextAtom(atom, startsCharacter))
        return false;
    element = {};
    std::array<std::uint8_t, Element::maxMarks> classes {};
    const auto addMark = [&](const Atom &mark) {
        if (element.markCount == Element::maxMarks)
            return;
        std::size_t place = element.markCount++;
        for (; place > 0 && mark.combiningClass != 0 && classes[place - 1] > mark.combiningClass;
             --place) {
            classes[place] = classes[place - 1];
            element.marks[place] = element.marks[place - 1];
        }
        classes[place] = mark.combiningClass;
        element.marks[place] = mark.mark;
    };

    element.startsCharacter = startsCharacter;
    if (atom.primary != 0)
        element.primary = atom.primary;
    else
        addMark(atom);
    while (nextAtom(atom, startsCharacter)) {
        if (atom.primary != 0) {
            m_ahead = atom;
            m_aheadStartsCharacter = startsCharacter;
            m_hasAhead = true;
            break;
        }
        addMark(atom);
    }
    return true;
}

} // namespace dbaccess
