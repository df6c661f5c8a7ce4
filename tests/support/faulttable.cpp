// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "tests/support/faulttable.h"

#include <QCoreApplication>
#include <QFile>

namespace support {

void noteOutcome(const QString &fault, const QString &outcome)
{
    // The first row of a run replaces the table of the last one.
    static QFile file(QCoreApplication::applicationFilePath() % u".md");
    if (!file.isOpen() && !file.open(QIODevice::WriteOnly))
        qFatal("can't write %s", qPrintable(file.fileName()));
    file.write(QString(u"| " % fault % u" | " % outcome % u" |\n").toUtf8());
    file.flush();
}

bool isLongRun()
{
    return qEnvironmentVariableIsSet("TOVARIN_LONG");
}

} // namespace support
