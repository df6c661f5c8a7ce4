// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "upgrade/placement.h"

namespace upgrade {

/// What comes before the program: its folder is put together or brought up to date, and its user
/// told about what there is to tell.
class Setup
{
public:
    /// Places the shipped files, see place().
    Setup(QString shippedFolder, QString programFolder);

    /// Nothing, mostly.
    bool hasSomethingToTell() const;
    /// Tells it, and asks what there is to ask. Takes an application with windows.
    /// @return whether the program can be started
    bool settle();

    /// The path of the program.
    QString executable() const;
    QString programFolder() const { return m_program; }

private:
    void tryToPlace();
    bool startAfresh() const;

    QString m_shipped;
    QString m_program;
    Placement m_placement;
    QString m_failure; ///< empty if the folder is up to date
};

/// Tells something in the name of the whole program, before it has a window.
void tellUser(const QString &text, bool isFailure);

} // namespace upgrade
