// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "upgrade/backup.h"

#include "platform/access/databaserenewal.h"
#include "upgrade/placement.h"
#include "upgrade/stagedfile.h"

#include <QDir>
#include <QFile>
#include <QSaveFile>

namespace upgrade {

Backup::Backup(const QDir &folder, const dbaccess::DatabaseRenewal &renewal)
    : m_copy(freePath(folder, QStringLiteral("Tovarin-backup"), QStringLiteral(".mdb"))),
      m_growing(m_copy % u".new"), m_unwanted {m_growing}
{
    renewal.backUp(m_growing);
}

Backup::~Backup()
{
    for (const QString &file : std::as_const(m_unwanted))
        QFile::remove(file);
}

void Backup::finish(const std::vector<TickedName> &gone)
{
    if (!QFile::rename(m_growing, m_copy))
        refuseToWrite(m_copy, QStringLiteral("the copy can't get this name"));
    m_unwanted = QStringList {m_copy};
    if (gone.empty())
        return;
    m_list = m_copy.chopped(4) % u".txt";
    m_unwanted.append(m_list);
    const QString text = u"These names were ticked and are not in the dictionary any more:\n\n"
                         % listOf(gone, gone.size()) % u'\n';
    const QByteArray content = text.toUtf8();
    QSaveFile file(m_list);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size() || !file.commit())
        refuseToWrite(m_list, file.errorString());
}

} // namespace upgrade
