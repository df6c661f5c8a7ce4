// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "reports/reporthtml.h"

#include <vector>

/// What the reports show, from the database.
namespace reports {

/// Sorts the shortlist for the report of the ranking: fills TEMPTOPN with its names, each with its
/// saved rank, or else a running number, and whether it is ranked.
/// @return false if the table can't be used; the user has been told
bool FillTempTopN(const QString &inpTopN);

/// The ranking as it was last saved, best first.
std::vector<ReportName> rankedNames();

/// The names that FillTempTopN() found without a rank, in the order of names.
std::vector<ReportName> unrankedNames();

/// The worksheet as it was last saved.
std::vector<ReportFullName> savedFullNames();

} // namespace reports
