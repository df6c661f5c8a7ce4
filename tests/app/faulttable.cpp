// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "tests/app/faulttable.h"

#include <QFile>

void noteOutcome(const QString &fault, const QString &outcome)
{
    // The first row of a run replaces the table of the last one.
    static QFile file(QStringLiteral(FAULTS_FILE));
    if (!file.isOpen() && !file.open(QIODevice::WriteOnly))
        qFatal("can't write %s", FAULTS_FILE);
    file.write(QString(u"| " % fault % u" | " % outcome % u" |\n").toUtf8());
    file.flush();
}

bool isLongRun()
{
    return qEnvironmentVariableIsSet("TOVARIN_LONG");
}
