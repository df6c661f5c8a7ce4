// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace dbaccess {

/// The one driver that this layer answers to.
inline constexpr QStringView driverName = u"Microsoft Access Driver (*.mdb)";

/// What a connection string holds:
/// DBQ=file;DRIVER={driver};UID=user;PWD=password;
struct ConnectionString
{
    QString file;   ///< a path of this system
    QString driver; ///< without its braces
    QString user;
    QString password;

    bool operator==(const ConnectionString &) const = default;
};

/// Reads a connection string. The order of the keys is fixed and their letter case free, so a
/// folder or a password may itself hold a ";".
/// @throws EngineError naming the first key that is missing or out of order
ConnectionString parseConnectionString(const QString &text);

/// A path as the program composes it, folder + "\file", as a path of this system: elsewhere than
/// on Windows the last backslash becomes a "/".
QString systemPath(const QString &path);

} // namespace dbaccess
