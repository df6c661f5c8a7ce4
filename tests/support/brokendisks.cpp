// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "tests/support/brokendisks.h"

#include <QDir>

#include <csignal>
#include <cstdlib>

#include <sys/resource.h>
#include <unistd.h>

namespace support {

namespace {

constexpr uid_t ordinaryUser = 65534;

void limitFileSize(bool limited)
{
    rlimit limit {};
    if (getrlimit(RLIMIT_FSIZE, &limit) != 0)
        std::abort();
    limit.rlim_cur = limited ? 0 : limit.rlim_max;
    if (setrlimit(RLIMIT_FSIZE, &limit) != 0)
        std::abort();
}

} // namespace

bool isSuperuser()
{
    return geteuid() == 0;
}

void setWritable(const QString &folder, bool writable)
{
    const QFile::Permissions read = QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther;
    const QFile::Permissions enter = QFile::ExeOwner | QFile::ExeGroup | QFile::ExeOther;
    const QFile::Permissions write = writable ? QFile::WriteOwner : QFile::Permissions();
    for (const QFileInfo &file : QDir(folder).entryInfoList(QDir::Files))
        QFile::setPermissions(file.filePath(),
                              read | write | (file.isExecutable() ? enter : QFile::Permissions()));
    QFile::setPermissions(folder, read | enter | write);
}

ReadOnlyFolder::ReadOnlyFolder(const QString &path) : m_path(path), m_wasSuperuser(isSuperuser())
{
    setWritable(path, false);
    if (m_wasSuperuser && seteuid(ordinaryUser) != 0)
        std::abort();
}

ReadOnlyFolder::~ReadOnlyFolder()
{
    if (m_wasSuperuser && seteuid(0) != 0)
        std::abort();
    setWritable(m_path, true);
}

bool FullDisk::isPossible()
{
    return true;
}

FullDisk::FullDisk()
{
    std::signal(SIGXFSZ, SIG_IGN);
    limitFileSize(true);
}

FullDisk::~FullDisk()
{
    limitFileSize(false);
}

} // namespace support
