// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

// What people start. It puts the program's folder together, or brings it up to date after a new
// version has been installed, and starts the program in it. It shows itself only if there is
// something to tell.

#include "platform/dialogs/messagebox.h"
#include "upgrade/programfolder.h"

#include <QApplication>
#include <QDir>
#include <QIcon>
#include <QProcess>
#include <QStandardPaths>

#include <optional>

namespace {

constexpr char title[] = "Tovarin";

struct Places
{
    QString shipped;
    QString program;

    QString executable() const { return QDir(program).filePath(upgrade::executableName()); }
};

/// An unpacked archive has everything beside the launcher. What is installed for all users of a
/// computer gets a folder for each of them.
Places findPlaces()
{
    const QDir here(QCoreApplication::applicationDirPath());
    const QString beside = here.filePath(QStringLiteral("shipped"));
    if (QFileInfo::exists(beside))
        return {beside, here.filePath(QStringLiteral("program"))};
    return {QDir::cleanPath(here.filePath(QStringLiteral("../lib/tovarin"))),
            QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) % u"/tovarin"};
}

struct Try
{
    upgrade::Placement placement;
    QString failure; ///< empty if the folder is up to date
};

Try tryToPlace(const Places &places)
{
    try {
        return {upgrade::place(places.shipped, places.program), {}};
    } catch (const upgrade::PlaceError &error) {
        return {{}, error.text()};
    }
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

void tell(const QString &text, dialogs::Icon icon)
{
    dialogs::showMessage(text, icon, QString::fromLatin1(title));
}

/// Whether the user wants a fresh database in the place of one that can't be read.
bool startAfresh(const Places &places, const Try &tried)
{
    if (!dialogs::askYesNo(upgrade::describe(tried.placement)
                               % QStringLiteral("\n\nDo you want to start afresh? The file is "
                                                "kept under another name."),
                           QString::fromLatin1(title)))
        return false;
    try {
        upgrade::setDatabaseAside(places.program);
        return true;
    } catch (const upgrade::PlaceError &error) {
        tell(error.text(), dialogs::Icon::Critical);
        return false;
    }
}

/// Tells what there is to tell.
/// @return whether the program can be started
bool settle(const Places &places, Try tried)
{
    if (tried.placement.outcome == upgrade::Outcome::KeptUnknown) {
        if (!startAfresh(places, tried))
            return false;
        tried = tryToPlace(places);
    }
    const bool canStart = QFileInfo(places.executable()).isExecutable();
    if (tried.failure.isEmpty()) {
        const QString text = upgrade::describe(tried.placement);
        if (!text.isEmpty())
            tell(text, dialogs::Icon::Information);
    } else {
        tell((canStart ? QStringLiteral("Tovarin could not be brought up to date, so you go on "
                                        "with the version that you had.")
                       : QStringLiteral("Tovarin could not be set up."))
                 % u"\n\n" % tried.failure,
             dialogs::Icon::Critical);
    }
    return canStart;
}

} // namespace

int main(int argc, char *argv[])
{
    Places places;
    Try tried;
    {
        // Most starts have nothing to tell, and are quicker without anything for windows.
        const QCoreApplication application(argc, argv);
        places = findPlaces();
        tried = tryToPlace(places);
    }
    const bool isQuiet = tried.failure.isEmpty() && upgrade::describe(tried.placement).isEmpty();
    std::optional<LauncherApplication> application;
    if (!isQuiet) {
        application.emplace(argc, argv);
        if (!settle(places, tried))
            return 1;
    }
    if (QProcess::startDetached(places.executable(), {}, places.program))
        return 0;
    if (!application)
        application.emplace(argc, argv);
    tell(QStringLiteral("%1 can't be started.").arg(QDir::toNativeSeparators(places.executable())),
         dialogs::Icon::Critical);
    return 1;
}
