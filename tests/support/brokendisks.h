// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace support {

/// Whether a folder and its files can be written by their owner; all can read them.
void setWritable(const QString &folder, bool writable);

/// A folder and its files can't be written while it lives. A superuser acts as an ordinary user
/// meanwhile, for whom read-only counts; files have to be opened in that time.
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
};

/// No file takes another byte while it lives, as if the disk were full.
class FullDisk
{
public:
    FullDisk();
    ~FullDisk();
    FullDisk(const FullDisk &) = delete;
    FullDisk &operator=(const FullDisk &) = delete;
};

} // namespace support
