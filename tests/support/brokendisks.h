// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <vector>

namespace support {

/// Whether the tests are run by a superuser, for whom nothing is read-only.
bool isSuperuser();

/// Not on Windows. Whether a folder and its files can be written by their owner; all can read them.
void setWritable(const QString &folder, bool writable);

/// A folder and its files can't be written while it lives. A superuser acts as an ordinary user
/// meanwhile, for whom read-only counts; files have to be opened in that time. On Windows new files
/// can be made.
class ReadOnlyFolder
{
public:
    explicit ReadOnlyFolder(const QString &path);
    ~ReadOnlyFolder();
    ReadOnlyFolder(const ReadOnlyFolder &) = delete;
    ReadOnlyFolder &operator=(const ReadOnlyFolder &) = delete;

private:
    QString m_path;
    bool m_wasSuperuser = false;
    std::vector<void *> m_held; ///< on Windows
};

/// No file takes another byte while it lives, as if the disk were full.
class FullDisk
{
public:
    /// Not on Windows; nothing happens there.
    static bool isPossible();

    FullDisk();
    ~FullDisk();
    FullDisk(const FullDisk &) = delete;
    FullDisk &operator=(const FullDisk &) = delete;
};

} // namespace support
