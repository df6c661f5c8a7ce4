// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <memory>

class QDir;
class QSaveFile;

namespace upgrade {

/// @throws PlaceError
QByteArray contentOf(const QString &path);

/// Says why a file could not be written.
/// @throws PlaceError
[[noreturn]] void refuseToWrite(const QString &path, const QString &reason);

/// A path that nothing has: "folder/stem-1ending", or with the next number that is free.
QString freePath(const QDir &folder, const QString &stem, const QString &ending);

/// A file on its way into the program's folder: written in full under another name, and then put
/// in place at one stroke, for which no space is needed any more.
class StagedFile
{
public:
    /// @throws PlaceError, with nothing written
    StagedFile(const QString &source, const QString &target, bool isExecutable);
    ~StagedFile();
    StagedFile(StagedFile &&) noexcept;

    /// @throws PlaceError, with the target as it was
    void putInPlace();

private:
    std::unique_ptr<QSaveFile> m_file;
};

} // namespace upgrade
