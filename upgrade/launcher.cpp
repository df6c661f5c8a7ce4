// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

// What people start. It puts the program's folder together, or brings it up to date after a new
// version has been installed, and starts the program in it. It shows itself only if there is
// something to tell.

#include "upgrade/setup.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QIcon>
#include <QProcess>
#include <QStandardPaths>

#include <optional>

namespace {

/// An unpacked archive has everything beside the launcher. What is installed for all users of a
/// computer gets a folder for each of them.
upgrade::Setup setUp()
{
    const QDir here(QCoreApplication::applicationDirPath());
    const QString beside = here.filePath(QStringLiteral("shipped"));
    if (QFileInfo::exists(beside))
        return {beside, here.filePath(QStringLiteral("program"))};
    return {QDir::cleanPath(here.filePath(QStringLiteral(SHIPPED_FOLDER))),
            QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) % u"/tovarin"};
}

class LauncherApplication final : public QApplication
{
public:
    LauncherApplication(int &argc, char **argv) : QApplication(argc, argv)
    {
        QIcon icon;
        for (const char *picture : {":/launcher/tovarin-32.png", ":/launcher/tovarin-64.png"})
            icon.addFile(QLatin1String(picture));
        setWindowIcon(icon);
    }
};

} // namespace

int main(int argc, char *argv[])
{
    std::optional<upgrade::Setup> setup;
    {
        // Most starts have nothing to tell, and are quicker without anything for windows.
        const QCoreApplication application(argc, argv);
        setup = setUp();
    }
    std::optional<LauncherApplication> application;
    if (setup->hasSomethingToTell()) {
        application.emplace(argc, argv);
        if (!setup->settle())
            return 1;
    }
    if (QProcess::startDetached(setup->executable(), {}, setup->programFolder()))
        return 0;
    if (!application)
        application.emplace(argc, argv);
    upgrade::tellUser(
        QStringLiteral("%1 can't be started.").arg(QDir::toNativeSeparators(setup->executable())),
        true);
    return 1;
}
