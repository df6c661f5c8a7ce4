// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QDir>

namespace upgrade {

/// @throws PlaceError
QByteArray contentOf(const QString &path);

/// Says why a file could not be written.
/// @throws PlaceError
[[noreturn]] void refuseToWrite(const QString &path, const QString &reason);

/// A path that nothing has: "folder/stem-1ending", or with the next number that is free.
QString freePath(const QDir &folder, const QString &stem, const QString &ending);

/// Where files wait that are on their way into a program's folder: a folder in it, so that they
/// need no space any more when they are put in place.
QDir stagingFolder(const QDir &programFolder);

/// A file on its way into the program's folder: written in full, and then put in place at one
/// stroke.
class StagedFile
{
public:
    /// @throws PlaceError
    StagedFile(const QString &source, const QDir &programFolder, bool isExecutable);

    /// @throws PlaceError, with the file in the program's folder as it was
    void putInPlace() const;

private:
    QString m_staged;
    QString m_target;
};

} // namespace upgrade
