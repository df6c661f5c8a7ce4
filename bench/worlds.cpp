// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "bench/worlds.h"

#include "tools/shippeddatabase.h"

#include <QDir>
#include <QFile>
#include <QSet>

#include <random>

namespace worlds {

namespace {

const QStringList &syllables()
{
    static const QStringList all =
        QStringLiteral("a an ar ba be bo ca da de di do e el en fa fi ga ge ha he i il in ja jo ka "
                       "ke la le li lo lu ma me mi mo na ne ni no o ol or pa ra re ri ro sa se si "
                       "so ta te ti to u va ve vi wa ya ye za zo é á ö")
            .split(u' ');
    return all;
}

QString capitalised(const QString &text)
{
    return text.first(1).toUpper() % text.sliced(1);
}

} // namespace

std::vector<dictionary::Entry> names(int size)
{
    std::mt19937 random(20261122);
    const auto below = [&random](qsizetype limit) { return qsizetype(random() % unsigned(limit)); };
    std::vector<dictionary::Entry> entries;
    entries.reserve(std::size_t(size));
    QSet<QString> seen;
    while (entries.size() < std::size_t(size)) {
        QString name;
        for (qsizetype count = 2 + below(3); count > 0; --count)
            name += syllables()[below(syllables().size())];
        const QString origin = QStringLiteral("Origin %1").arg(below(60), 2, 10, QLatin1Char('0'));
        const QChar sex = below(2) != 0 ? u'B' : u'G';
        const QString key = name % sex % origin;
        if (seen.contains(key))
            continue;
        seen.insert(key);
        entries.push_back({capitalised(name), sex, origin,
                           QStringLiteral("meaning number %1 of the hills").arg(below(size / 3))});
    }
    return entries;
}

QString database(const QString &below, int size)
{
    const QString folder = QDir(below).filePath(QString::number(size));
    if (!QFile::exists(folder % u"/tovarin.dll"))
        shipped::writeDatabase(names(size),
                               {QStringLiteral("20"), QStringLiteral("10"), QStringLiteral("bench"),
                                QStringLiteral("2026-01-01")},
                               QStringLiteral("bench"), folder);
    return folder;
}

} // namespace worlds
