// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

// Files of the dictionary: sorting only moves lines, and what the reader accepts, it accepts
// sorted.

#include "tools/dictionary.h"

#include <QtGlobal>

#include <algorithm>
#include <cstdint>

namespace {

QByteArrayList linesOf(const QByteArray &content)
{
    QByteArrayList lines = content.split('\n');
    lines.removeAll(QByteArray());
    std::ranges::sort(lines);
    return lines;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray content(reinterpret_cast<const char *>(data), qsizetype(size));
    const QString name = QStringLiteral("names.tsv");
    const dictionary::Source read = dictionary::readText(content, name);
    for (const QString &problem : read.problems) {
        if (!problem.startsWith(u"names.tsv:"))
            qFatal("a problem without its line");
    }
    const QByteArray sorted = dictionary::sortedText(content);
    if (linesOf(sorted) != linesOf(content))
        qFatal("sorting loses or changes a line");
    if (dictionary::sortedText(sorted) != sorted)
        qFatal("sorting twice is not sorting once");
    if (read.problems.isEmpty()) {
        const dictionary::Source again = dictionary::readText(sorted, name);
        if (again.entries != read.entries || !again.problems.isEmpty())
            qFatal("what is in order is changed by sorting");
    }
    return 0;
}
