// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "tests/support/brokendisks.h"

#include <QDir>

#include <cstdlib>

#include <qt_windows.h>

namespace support {

bool isSuperuser()
{
    return false;
}

ReadOnlyFolder::ReadOnlyFolder(const QString &path)
{
    // Whoever else opens the file may read it; nobody may write, rename or replace it.
    for (const QFileInfo &file : QDir(path).entryInfoList(QDir::Files)) {
        const std::wstring name = QDir::toNativeSeparators(file.filePath()).toStdWString();
        const HANDLE handle = CreateFileW(name.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                          OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
        if (handle == INVALID_HANDLE_VALUE)
            std::abort();
        m_held.push_back(handle);
    }
}

ReadOnlyFolder::~ReadOnlyFolder()
{
    for (void *handle : m_held)
        CloseHandle(handle);
}

bool FullDisk::isPossible()
{
    return false;
}

FullDisk::FullDisk() = default;
FullDisk::~FullDisk() = default;

} // namespace support
