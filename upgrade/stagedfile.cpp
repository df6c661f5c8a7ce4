// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "upgrade/stagedfile.h"

#include "upgrade/placement.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <filesystem>

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

QDir stagingFolder(const QDir &programFolder)
{
    return {programFolder.filePath(QStringLiteral("Tovarin.new"))};
}

StagedFile::StagedFile(const QString &source, const QDir &programFolder, bool isExecutable)
{
    const QString name = QFileInfo(source).fileName();
    m_staged = stagingFolder(programFolder).filePath(name);
    m_target = programFolder.filePath(name);
    const QByteArray content = contentOf(source);
    if (!QDir().mkpath(stagingFolder(programFolder).path()))
        refuseToWrite(m_target,
                      QStringLiteral("you may not make files there, or the disk is full"));
    QSaveFile file(m_staged); // for it makes sure that the disk has it all
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()
        || !file.setPermissions(isExecutable ? forAll | toStart : forAll) || !file.commit())
        refuseToWrite(m_target, file.errorString());
}

void StagedFile::putInPlace() const
{
    std::error_code error;
    std::filesystem::rename(QFileInfo(m_staged).filesystemFilePath(),
                            QFileInfo(m_target).filesystemFilePath(), error);
    if (error)
        refuseToWrite(m_target, QString::fromStdString(error.message()));
}

} // namespace upgrade
