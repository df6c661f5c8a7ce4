// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "tools/dictionary.h"

#include <stdexcept>

/// The database and the key file that ship with the program.
namespace shipped {

/// Bad sources or a failure while writing; the text is fit for the terminal.
class BuildError : public std::runtime_error
{
public:
    explicit BuildError(const QString &text) : std::runtime_error(text.toStdString()) { }
};

/// The one row of settings.
struct Settings
{
    QString maxSelect;
    QString topN;
    QString versionNo;
    QString versionDate; ///< yyyy-mm-dd
};

/// Reads "setting <tab> value" lines; "#" begins a comment.
/// @throws BuildError naming file and line
Settings readSettings(const QString &path);

/// Reads the password, the file's only line.
/// @throws BuildError for one that the key file can't hold
QString readPassword(const QString &path);

/// Writes Tovarin.mdb and tovarin.dll into a folder.
/// @throws BuildError
void writeDatabase(const std::vector<dictionary::Entry> &entries, const Settings &settings,
                   const QString &password, const QString &folder);

} // namespace shipped
