// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "upgrade/placement.h"

/// Puts the program's folder together, and brings it up to date without losing anything of its
/// user's.
namespace upgrade {

/// The program's file in its folder.
QString executableName();

/// Whether the folder holds what it takes to start: the program and a database.
bool isComplete(const QString &programFolder);

/// Puts the files of a shipped folder into the program's folder, which is made if it is missing.
/// Other files there stay. A database with anything that its user ticked or saved takes over the
/// shipped dictionary and keeps that; a backup of the file as it was is left beside it.
///
/// May be interrupted at any moment: the database is then the old one or the new one, and the next
/// call does the rest. A copy of the program may be running meanwhile. Nothing is written where
/// there is nothing to do.
/// @throws PlaceError
Placement place(const QString &shippedFolder, const QString &programFolder);

/// Renames the database, so that place() puts a fresh one there.
/// @return its new path
/// @throws PlaceError
QString setDatabaseAside(const QString &programFolder);

} // namespace upgrade
