// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "tests/support/sampledatabase.h"

#include "db/basdatabase.h"
#include "db/bastovarin.h"

#include <QFile>

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

QStringList table(const QString &query)
{
    QStringList lines;
    for (auto rows = basDatabase::OpenRecordset(query); rows && !rows->isAtEnd();
         rows->moveNext()) {
        QStringList fields;
        for (qsizetype i = 0; i < rows->fieldCount(); ++i)
            fields.append(rows->text(i));
        lines.append(fields.join(u'|'));
    }
    return lines;
}

void writeFile(const QString &path, const QByteArray &content)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("can't write %s", qPrintable(path));
}

QByteArray readFile(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
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
