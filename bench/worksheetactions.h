// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

class BareEngine;

/// Prints what the steps of the Worksheet tab cost with 20 shortlisted names of which 10 are
/// ranked, beside the same statements on the bare engine: opening the ranking, saving it and the
/// full names, with and without the disk's syncs, and making the report of the ranking.
/// @param size  how many names the dictionary has
void benchWorksheet(int size, const BareEngine &bare);
