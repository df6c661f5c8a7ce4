// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace support {

/// Adds a row to the table of faults that a test program leaves beside itself, from which
/// tools/render-faults makes docs/faults.md.
void noteOutcome(const QString &fault, const QString &outcome);

/// Whether the tests are to take their time: more kills, more broken files.
bool isLongRun();

} // namespace support
