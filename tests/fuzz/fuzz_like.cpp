// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

// Patterns and the order of texts, held against plain readings of what they mean. The input is a
// pattern, a line feed, and a text.

#include "platform/access/collation.h"
#include "platform/access/likepattern.h"

#include <QString>
#include <QtGlobal>

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

namespace {

using dbaccess::Element;
using Elements = std::vector<Element>;

Elements elementsOf(std::string_view utf8)
{
    Elements elements;
    dbaccess::ElementReader reader(utf8);
    for (Element element; reader.next(element);)
        elements.push_back(element);
    return elements;
}

bool isLetterFound(const Element &wanted, const Element &found)
{
    return wanted.primary == found.primary
           && (wanted.markCount == 0 || std::ranges::equal(wanted.markList(), found.markList()));
}

/// The places behind a literal stretch of a pattern, from the places before it.
std::vector<bool> behindStretch(const Elements &stretch, const Elements &text,
                                std::vector<bool> places)
{
    for (const Element &wanted : stretch) {
        std::vector<bool> behind(places.size());
        for (std::size_t at = 0; at < text.size(); ++at)
            behind[at + 1] = places[at] && isLetterFound(wanted, text[at]);
        places = std::move(behind);
    }
    return places;
}

std::vector<bool> behindWildcard(char wildcard, const Elements &text,
                                 const std::vector<bool> &places)
{
    std::vector<bool> behind(places.size());
    for (std::size_t from = 0; from < places.size(); ++from) {
        if (!places[from])
            continue;
        std::size_t to = from;
        if (wildcard == '%')
            std::fill(behind.begin() + qptrdiff(from), behind.end(), true);
        else if (from < text.size()) {
            do {
                ++to;
            } while (to < text.size() && !text[to].startsCharacter);
            behind[to] = true;
        }
    }
    return behind;
}

/// The meaning of a pattern without any short cut: all places of the text that it can have reached.
bool matchesByPlaces(std::string_view pattern, std::string_view utf8Text)
{
    const auto weighsNothing = [](const Element &element) { return element.primary == 0; };
    Elements text = elementsOf(utf8Text);
    std::erase_if(text, weighsNothing);
    std::vector<bool> places(text.size() + 1);
    places[0] = true;
    while (!pattern.empty()) {
        const std::size_t length = std::min(pattern.find_first_of("%_"), pattern.size());
        Elements stretch = elementsOf(pattern.substr(0, length));
        std::erase_if(stretch, weighsNothing);
        places = behindStretch(stretch, text, std::move(places));
        if (length < pattern.size())
            places = behindWildcard(pattern[length], text, places);
        pattern.remove_prefix(std::min(length + 1, pattern.size()));
    }
    return places.back();
}

/// Letters first, then the accents from the left; accents without a letter before all.
int compareByElements(std::string_view a, std::string_view b)
{
    const auto split = [](std::string_view utf8) {
        Elements elements = elementsOf(utf8);
        if (elements.empty() || elements.front().primary != 0)
            elements.insert(elements.begin(), Element {});
        return elements;
    };
    const Elements x = split(a);
    const Elements y = split(b);
    const auto letters = std::lexicographical_compare_three_way(
        x.begin(), x.end(), y.begin(), y.end(),
        [](const Element &p, const Element &q) { return p.primary <=> q.primary; });
    const auto accents = std::lexicographical_compare_three_way(
        x.begin(), x.end(), y.begin(), y.end(), [](const Element &p, const Element &q) {
            const auto left = p.markList();
            const auto right = q.markList();
            return std::lexicographical_compare_three_way(left.begin(), left.end(), right.begin(),
                                                          right.end());
        });
    const auto order = letters != 0 ? letters : accents;
    return order < 0 ? -1 : order > 0 ? 1 : 0;
}

/// The range that a where clause gives to the beginning of a pattern (see wherebounds.h).
void checkRange(const std::string &pattern, const std::string &text, bool isMatch)
{
    const std::size_t length = std::min(pattern.find_first_of("%_"), pattern.size());
    const std::string last = "\U0010ffff";
    // A text of the program never holds the character that ends the range.
    const std::string prefix = pattern.substr(0, length);
    const Elements letters = elementsOf(prefix);
    // Only from a letter on is there a range.
    if (letters.empty() || letters.front().primary == 0 || text.find(last) != std::string::npos)
        return;
    const bool isInRange = dbaccess::compareTexts(text, prefix) >= 0
                           && dbaccess::compareTexts(text, std::string_view(prefix + last)) < 0;
    const bool isRangeOnly = pattern.substr(length) == "%" && dbaccess::isPlainText(prefix);
    if ((isMatch && !isInRange) || (isRangeOnly && isInRange && !isMatch))
        qFatal("the range of '%s' is wrong for '%s'", pattern.c_str(), text.c_str());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const std::string input(reinterpret_cast<const char *>(data), size);
    const std::size_t end = std::min(input.find('\n'), size);
    const std::string pattern = input.substr(0, end);
    const std::string text = input.substr(std::min(end + 1, size));

    const bool isMatch = dbaccess::LikePattern(pattern).matches(text);
    if (isMatch != matchesByPlaces(pattern, text))
        qFatal("'%s' like '%s' is not %d", text.c_str(), pattern.c_str(), isMatch);
    if (dbaccess::compareTexts(std::string_view(pattern), text) != compareByElements(pattern, text)
        || dbaccess::compareTexts(std::string_view(text), pattern)
               != compareByElements(text, pattern))
        qFatal("'%s' and '%s' are out of order", pattern.c_str(), text.c_str());
    if (QString::fromStdString(input).toStdString() == input)
        checkRange(pattern, text, isMatch);
    return 0;
}
