// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringList>

#include <array>
#include <optional>
#include <span>

/// The texts of the printable reports. What comes from the user or the database goes in as it is,
/// markup included.
namespace reports {

/// A name of the ranking or of the shortlist.
struct ReportName
{
    QString name;
    QString origin;
    QString sex;
    QString meaning;

    bool operator==(const ReportName &) const = default;
};

/// A row of the worksheet: first, middle and last name, other initials, initials. What is null
/// shows as a blank, what is empty as nothing.
using ReportFullName = std::array<std::optional<QString>, 5>;

/// The scripts of a report, as they stand in it: what keeps its text from being selected, and what
/// its Print button does.
QStringList reportScripts();

/// The ranking, then the other names of the shortlist.
/// @param logo  the address of a picture, without apostrophes
/// @param topN  how many names are ranked, as text
QString topNReport(const QString &logo, const QString &topN, std::span<const ReportName> ranked,
                   std::span<const ReportName> others);

/// The worksheet.
/// @param logo  the address of a picture, without apostrophes
QString initialReport(const QString &logo, std::span<const ReportFullName> names);

} // namespace reports
