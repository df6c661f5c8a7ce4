// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "tests/support/sampledatabase.h"

#include "db/bastovarin.h"

namespace support {

shipped::Settings sampleSettings()
{
    return {QStringLiteral("20"), QStringLiteral("10"), QStringLiteral("1.2"),
            QStringLiteral("2026-03-05")};
}

QString samplePassword()
{
    return QStringLiteral("sesame");
}

SampleDatabase::SampleDatabase(const std::vector<dictionary::Entry> &entries)
{
    shipped::writeDatabase(entries, sampleSettings(), samplePassword(), folder());
    basTovarin::SetProgramFolder(folder());
}

dictionary::Entry entry(const char *fields)
{
    const QStringList parts = QString::fromUtf8(fields).split(u'|');
    return {parts.value(0), parts.value(1).front(), parts.value(2), parts.value(3)};
}

std::vector<dictionary::Entry> entries(std::initializer_list<const char *> list)
{
    std::vector<dictionary::Entry> result;
    for (const char *fields : list)
        result.push_back(entry(fields));
    return result;
}

} // namespace support
