// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "db/schema.h"

#include <QFile>

QString databaseSchema()
{
    Q_INIT_RESOURCE(schema);
    QFile file(QStringLiteral(":/db/schema.sql"));
    const bool isOpen = file.open(QIODevice::ReadOnly);
    Q_ASSERT(isOpen);
    return QString::fromUtf8(isOpen ? file.readAll() : QByteArray());
}
