// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "upgrade/carryover.h"

#include <QStringList>

class QDir;

namespace upgrade {

/// The copy of a database as it was, "Tovarin-backup-1.mdb" or with the next free number, and the
/// list of the ticks that are gone. Both are removed again unless they are kept.
class Backup
{
public:
    /// @throws PlaceError, dbaccess::EngineError
    Backup(const QDir &folder, const dbaccess::DatabaseRenewal &renewal);
    ~Backup();
    Backup(const Backup &) = delete;
    Backup &operator=(const Backup &) = delete;

    /// Gives the copy its name, and writes the list if there is anything to list.
    /// @throws PlaceError
    void finish(const std::vector<TickedName> &gone);
    void keep() { m_unwanted.clear(); }

    QString copy() const { return m_copy; }
    /// Empty if nothing is gone.
    QString list() const { return m_list; }

private:
    QString m_copy;
    QString m_growing;
    QString m_list;
    QStringList m_unwanted;
};

} // namespace upgrade
