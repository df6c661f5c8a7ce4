// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "upgrade/placement.h"

#include <QDir>
#include <QStringList>

#include <algorithm>

namespace upgrade {

namespace {

constexpr std::size_t mostNamesTold = 8; // in a message; the text file has all of them

QString described(const TickedName &name)
{
    const QString sex = name.sex == u"B" ? QStringLiteral("boy") : QStringLiteral("girl");
    return name.origin.isEmpty() ? QString(name.name % u" (" % sex % u')')
                                 : QString(name.name % u" (" % sex % u", " % name.origin % u')');
}

QString describeGone(const Placement &placement)
{
    const std::vector<TickedName> &gone = placement.carried.gone;
    QString text = QStringLiteral("Your shortlist, ranking and full names are as before, and so "
                                  "are your ticks. Only these names you had ticked are not in "
                                  "the new dictionary:\n\n")
                   % listOf(gone, mostNamesTold);
    if (gone.size() > mostNamesTold)
        text += QStringLiteral("\nand %1 more").arg(gone.size() - mostNamesTold);
    return text
           % QStringLiteral("\n\nThe list is kept in\n%1")
                 .arg(QDir::toNativeSeparators(placement.list));
}

QString describeCarriedOver(const Placement &placement)
{
    return QStringLiteral("Tovarin has a new dictionary. ")
           % (placement.carried.gone.empty()
                  ? QStringLiteral("Your ticks, shortlist, ranking and full names are as before.")
                  : describeGone(placement))
           % QStringLiteral("\n\nA copy of your names from before is kept in\n%1")
                 .arg(QDir::toNativeSeparators(placement.backup));
}

} // namespace

QString listOf(const std::vector<TickedName> &names, std::size_t most)
{
    QStringList lines;
    for (std::size_t i = 0; i < std::min(most, names.size()); ++i)
        lines.append(described(names[i]));
    return lines.join(u'\n');
}

QString describe(const Placement &placement)
{
    switch (placement.outcome) {
    case Outcome::CarriedOver:
        return describeCarriedOver(placement);
    case Outcome::KeptUnknown:
        return QStringLiteral("The file with your names can't be read. ") % placement.problem;
    default:
        return {};
    }
}

} // namespace upgrade
