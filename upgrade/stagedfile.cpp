// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "upgrade/stagedfile.h"

#include "upgrade/placement.h"

#include <QDir>
#include <QFile>
#include <QSaveFile>

namespace upgrade {

namespace {

constexpr QFile::Permissions forAll =
    QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther;
constexpr QFile::Permissions toStart = QFile::ExeOwner | QFile::ExeGroup | QFile::ExeOther;

} // namespace

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw PlaceError(QStringLiteral("%1 can't be read: %2.")
                             .arg(QDir::toNativeSeparators(path), file.errorString()));
    return file.readAll();
}

void refuseToWrite(const QString &path, const QString &reason)
{
    throw PlaceError(
        QStringLiteral("%1 can't be written: %2.").arg(QDir::toNativeSeparators(path), reason));
}

QString freePath(const QDir &folder, const QString &stem, const QString &ending)
{
    int number = 1;
    const auto path = [&] {
        return folder.filePath(QStringLiteral("%1-%2%3").arg(stem).arg(number).arg(ending));
    };
    while (QFile::exists(path()))
        ++number;
    return path();
}

StagedFile::StagedFile(const QString &source, const QString &target, bool isExecutable)
    : m_file(std::make_unique<QSaveFile>(target))
{
    const QByteArray content = contentOf(source);
    if (!m_file->open(QIODevice::WriteOnly) || m_file->write(content) != content.size()
        || !m_file->flush())
        refuseToWrite(target, m_file->errorString());
    m_file->setPermissions(isExecutable ? forAll | toStart : forAll);
}

StagedFile::~StagedFile() = default;
StagedFile::StagedFile(StagedFile &&) noexcept = default;

void StagedFile::putInPlace()
{
    if (!m_file->commit())
        refuseToWrite(m_file->fileName(), m_file->errorString());
}

} // namespace upgrade
