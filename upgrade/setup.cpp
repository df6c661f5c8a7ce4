// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "upgrade/setup.h"

#include "platform/dialogs/messagebox.h"
#include "upgrade/programfolder.h"

#include <QDir>

#include <utility>

namespace upgrade {

namespace {

constexpr char title[] = "Tovarin";

} // namespace

Setup::Setup(QString shippedFolder, QString programFolder)
    : m_shipped(std::move(shippedFolder)), m_program(std::move(programFolder))
{
    tryToPlace();
}

void Setup::tryToPlace()
{
    m_placement = {};
    m_failure.clear();
    try {
        m_placement = place(m_shipped, m_program);
    } catch (const PlaceError &error) {
        m_failure = error.text();
    }
}

bool Setup::hasSomethingToTell() const
{
    return !m_failure.isEmpty() || !describe(m_placement).isEmpty();
}

QString Setup::executable() const
{
    return QDir(m_program).filePath(executableName());
}

/// Whether the user wants a fresh database in the place of one that can't be read.
bool Setup::startAfresh() const
{
    if (!dialogs::askYesNo(describe(m_placement)
                               % QStringLiteral("\n\nDo you want to start afresh? The file is "
                                                "kept under another name."),
                           QString::fromLatin1(title), nullptr))
        return false;
    try {
        setDatabaseAside(m_program);
        return true;
    } catch (const PlaceError &error) {
        tellUser(error.text(), true);
        return false;
    }
}

bool Setup::settle()
{
    if (m_placement.outcome == Outcome::KeptUnknown) {
        if (!startAfresh())
            return false;
        tryToPlace();
    }
    const bool canStart = isComplete(m_program);
    if (m_failure.isEmpty()) {
        const QString text = describe(m_placement);
        if (!text.isEmpty())
            tellUser(text, false);
    } else {
        tellUser((canStart ? QStringLiteral("Tovarin could not be brought up to date, so you go on "
                                            "with the version that you had.")
                           : QStringLiteral("Tovarin could not be set up."))
                     % u"\n\n" % m_failure,
                 true);
    }
    return canStart;
}

void tellUser(const QString &text, bool isFailure)
{
    dialogs::showMessage(text, isFailure ? dialogs::Icon::Critical : dialogs::Icon::Information,
                         QString::fromLatin1(title));
}

} // namespace upgrade
