// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <vector>

namespace dbaccess {
class DatabaseRenewal;
}

namespace upgrade {

/// A ticked name, as it is shown.
struct TickedName
{
    QString name;
    QString origin;
    QString sex; ///< "B" or "G"

    bool operator==(const TickedName &) const = default;
};

/// What a user's own rows became under a newer dictionary.
struct CarriedOver
{
    int ticks = 0;                ///< carried over, by name, origin and sex
    std::vector<TickedName> gone; ///< ticks whose entries the newer dictionary does not have
};

/// Whether a user has ticked, saved, ranked or composed anything in the file.
/// @throws dbaccess::EngineError
bool holdsUserData(const dbaccess::DatabaseRenewal &renewal);

/// Takes the newer tables, and what the user has ticked, saved, ranked and composed into them. The
/// shortlist, the ranking and the full names stay word for word, also where an entry is gone.
/// @throws dbaccess::EngineError
CarriedOver carryOver(dbaccess::DatabaseRenewal &renewal);

} // namespace upgrade
