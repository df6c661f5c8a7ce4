// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/access/likepattern.h"

#include <algorithm>

namespace dbaccess {

namespace {

void readElements(std::string_view utf8, std::vector<Element> &elements)
{
    elements.clear();
    ElementReader reader(utf8);
    Element element;
    while (reader.next(element)) {
        // Marks with no letter before them weigh nothing, as in the order of texts.
        if (element.primary != 0)
            elements.push_back(element);
    }
}

/// A text of plain ASCII, read in place: every byte is a letter of its own, without marks.
struct AsciiText
{
    std::string_view bytes;
    const std::uint32_t *primaries = asciiPrimaries().data();

    bool isReadable() const
    {
        return std::ranges::all_of(bytes, [this](char c) {
            const auto byte = static_cast<unsigned char>(c);
            return byte < 0x80 && primaries[byte] != 0;
        });
    }
    std::size_t size() const { return bytes.size(); }
    bool startsCharacter(std::size_t) const { return true; }
    bool letterMatches(const Element &wanted, std::size_t at) const
    {
        return wanted.markCount == 0
               && wanted.primary == primaries[static_cast<unsigned char>(bytes[at])];
    }
};

struct ElementText
{
    const std::vector<Element> &elements;

    std::size_t size() const { return elements.size(); }
    bool startsCharacter(std::size_t at) const { return elements[at].startsCharacter; }
    bool letterMatches(const Element &wanted, std::size_t at) const
    {
        const Element &found = elements[at];
        return wanted.primary == found.primary
               && (wanted.markCount == 0
                   || std::ranges::equal(wanted.markList(), found.markList()));
    }
};

} // namespace

LikePattern::LikePattern(std::string_view utf8Pattern)
{
    // The wildcards split the pattern; neither is part of a longer UTF-8 sequence.
    while (!utf8Pattern.empty()) {
        const std::size_t length = std::min(utf8Pattern.find_first_of("%_"), utf8Pattern.size());
        std::vector<Element> letters;
        readElements(utf8Pattern.substr(0, length), letters);
        for (const Element &letter : letters)
            m_steps.push_back({Kind::Letter, letter});
        if (length < utf8Pattern.size()) {
            const Kind kind = utf8Pattern[length] == '%' ? Kind::AnyCharacters : Kind::OneCharacter;
            m_steps.push_back({kind, {}});
        }
        utf8Pattern.remove_prefix(std::min(length + 1, utf8Pattern.size()));
    }
}

bool isPlainText(std::string_view utf8)
{
    std::vector<Element> elements;
    readElements(utf8, elements);
    return !elements.empty()
           && std::ranges::all_of(elements, [](const Element &e) { return e.markCount == 0; });
}

bool LikePattern::matches(std::string_view utf8Text) const
{
    if (const AsciiText ascii {utf8Text}; ascii.isReadable())
        return matchesSteps(ascii);
    static thread_local std::vector<Element> elements;
    readElements(utf8Text, elements);
    return matchesSteps(ElementText {elements});
}

template <typename Text>
bool LikePattern::matchesSteps(const Text &text) const
{
    constexpr auto none = static_cast<std::size_t>(-1);
    std::size_t step = 0;
    std::size_t at = 0;
    std::size_t stepAfterAny = none; // where to go on after the last "%" when a try fails
    std::size_t anyEnd = 0;

    while (at < text.size() || step < m_steps.size()) {
        if (step < m_steps.size()) {
            const Step &wanted = m_steps[step];
            if (wanted.kind == Kind::AnyCharacters) {
                stepAfterAny = ++step;
                anyEnd = at;
                if (step == m_steps.size())
                    return true;
                continue;
            }
            const bool isOne = wanted.kind == Kind::OneCharacter;
            if (at < text.size() && (isOne || text.letterMatches(wanted.element, at))) {
                ++at;
                while (isOne && at < text.size() && !text.startsCharacter(at))
                    ++at;
                ++step;
                continue;
            }
        }
        if (stepAfterAny == none || anyEnd >= text.size())
            return false;
        // Only where the letter behind the "%" stands is another try worth its while.
        const Step &next = m_steps[stepAfterAny];
        do {
            ++anyEnd;
        } while (next.kind == Kind::Letter && anyEnd < text.size()
                 && !text.letterMatches(next.element, anyEnd));
        at = anyEnd;
        step = stepAfterAny;
    }
    return true;
}

} // namespace dbaccess
