// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/access/collation.h"

#include "platform/access/letterfolding.h"

#include <algorithm>

namespace dbaccess {

namespace {

int compareElements(std::string_view a, std::string_view b)
{
    ElementReader readerA(a);
    ElementReader readerB(b);
    Element elementA;
    Element elementB;
    bool hasA = readerA.next(elementA);
    bool hasB = readerB.next(elementB);
    int accents = 0;
    const auto noteAccents = [&accents](std::span<const std::uint8_t> x,
                                        std::span<const std::uint8_t> y) {
        if (accents == 0 && !std::ranges::equal(x, y))
            accents = std::ranges::lexicographical_compare(x, y) ? -1 : 1;
    };
    // Marks with no letter before them weigh nothing among the letters.
    if ((hasA && elementA.primary == 0) || (hasB && elementB.primary == 0)) {
        const bool leadsA = hasA && elementA.primary == 0;
        const bool leadsB = hasB && elementB.primary == 0;
        noteAccents(leadsA ? elementA.markList() : std::span<const std::uint8_t>(),
                    leadsB ? elementB.markList() : std::span<const std::uint8_t>());
        hasA = leadsA ? readerA.next(elementA) : hasA;
        hasB = leadsB ? readerB.next(elementB) : hasB;
    }
    while (hasA && hasB) {
        if (elementA.primary != elementB.primary)
            return elementA.primary < elementB.primary ? -1 : 1;
        noteAccents(elementA.markList(), elementB.markList());
        hasA = readerA.next(elementA);
        hasB = readerB.next(elementB);
    }
    if (hasA != hasB)
        return hasA ? 1 : -1;
    return accents;
}

} // namespace

int compareTexts(std::string_view a, std::string_view b)
{
    // Most comparisons end within plain ASCII, where a difference of letters decides at once. At
    // the first other byte, or an ignored control character, the full comparison takes over from
    // the letter before it, which a following mark may belong to.
    const std::size_t shorter = std::min(a.size(), b.size());
    const std::array<std::uint32_t, 128> &primaries = asciiPrimaries();
    std::size_t i = 0;
    for (; i < shorter; ++i) {
        const auto byteA = static_cast<unsigned char>(a[i]);
        const auto byteB = static_cast<unsigned char>(b[i]);
        if ((byteA | byteB) >= 0x80)
            break;
        const std::uint32_t primaryA = primaries[byteA];
        const std::uint32_t primaryB = primaries[byteB];
        if (primaryA == 0 || primaryB == 0)
            break;
        if (primaryA != primaryB)
            return primaryA < primaryB ? -1 : 1;
    }
    if (i == a.size() && i == b.size())
        return 0;
    const std::size_t from = i > 0 ? i - 1 : 0;
    return compareElements(a.substr(from), b.substr(from));
}

int compareTexts(const QString &a, const QString &b)
{
    const QByteArray utf8A = a.toUtf8();
    const QByteArray utf8B = b.toUtf8();
    return compareTexts(
        std::string_view(utf8A.constData(), static_cast<std::size_t>(utf8A.size())),
        std::string_view(utf8B.constData(), static_cast<std::size_t>(utf8B.size())));
}

QChar firstPlainLetter(const QString &text)
{
    const QByteArray utf8 = text.toUtf8();
    ElementReader reader({utf8.constData(), static_cast<std::size_t>(utf8.size())});
    Element first;
    return reader.next(first) ? QChar::fromLatin1(plainLetter(first.primary)) : QChar();
}

} // namespace dbaccess
