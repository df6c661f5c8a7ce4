// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringList>

/// How long the built program takes to come up, and what memory it takes, beside windows of the
/// same kind with nothing in them. Prints a table.
/// @param worlds  folders of databases to search everything in, by which memory is measured
void benchStartup(const QStringList &worlds);
