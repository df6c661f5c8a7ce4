// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

/// The page files, and the picture that goes with the reports, in the program's folder, each with
/// the separator that leads to it.
namespace pagefiles {

inline constexpr QStringView things = u"\\things.htm";
inline constexpr QStringView popular = u"\\popular.htm";
inline constexpr QStringView help = u"\\tovarinhelp.htm";
inline constexpr QStringView terms = u"\\terms.htm";
inline constexpr QStringView about = u"\\about.htm";
inline constexpr QStringView logo = u"\\logocust.jpg"; ///< the picture over the reports

/// Where a page file lies on this system.
QString path(QStringView page);

} // namespace pagefiles
