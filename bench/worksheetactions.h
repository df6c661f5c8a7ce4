// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

class Measured;

/// Measures the steps of the Worksheet tab with 20 shortlisted names of which 10 are
/// ranked: opening the ranking, saving it and the
/// full names, with and without the disk's syncs, and making the report of the ranking.
void benchWorksheet(const Measured &measured);
