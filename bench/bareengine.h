// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>

#include <vector>

struct sqlite3;

/// The engine without this program's layer, but for its cache and the collation that the file's
/// indexes need.
class BareEngine
{
public:
    using Rows = std::vector<std::vector<QString>>;

    explicit BareEngine(const QString &file);
    ~BareEngine();
    BareEngine(const BareEngine &) = delete;
    BareEngine &operator=(const BareEngine &) = delete;

    /// Has a table of its own in memory in the place of the file's, as the program has.
    void makePrivate(const QByteArray &table) const;

    /// Runs a statement and takes over its rows as texts.
    Rows fetch(const QByteArray &sql) const;

private:
    sqlite3 *m_handle = nullptr;
};
