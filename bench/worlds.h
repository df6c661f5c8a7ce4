// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "tools/dictionary.h"

namespace worlds {

/// A made-up dictionary of the given size: names of two to four syllables, one in ten of them with
/// an accent, spread over 60 origins, with about as many meanings as a third of the names. The
/// same size gives the same dictionary.
std::vector<dictionary::Entry> names(int size);

/// The program's database of such a dictionary, in a folder of its own below the given one; made
/// when it is not there yet.
/// @return the folder
QString database(const QString &below, int size);

} // namespace worlds
