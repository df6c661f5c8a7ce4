// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "upgrade/carryover.h"

#include <stdexcept>

namespace upgrade {

/// Why a folder could not be brought up to date; the text is fit for a user. The folder is as
/// usable as it was before.
class PlaceError : public std::runtime_error
{
public:
    explicit PlaceError(const QString &text) : std::runtime_error(text.toStdString()) { }

    QString text() const { return QString::fromUtf8(what()); }
};

enum class Outcome {
    Unchanged,   ///< the dictionary there was the shipped one already
    New,         ///< the shipped dictionary is there now; nobody had ticked or saved anything
    CarriedOver, ///< the shipped dictionary is there now, with what its user had
    KeptUnknown  ///< the database there can't be read as one of this program; it stays as it is
};

/// What has become of the program's folder.
struct Placement
{
    Outcome outcome = Outcome::Unchanged;
    CarriedOver carried {}; ///< for CarriedOver
    QString backup {};      ///< for CarriedOver: the path of the copy of the file as it was
    QString list {};        ///< the path of the text with the ticks that are gone, if any are
    QString problem {};     ///< for KeptUnknown: what the engine said
};

/// The lines "Anna (girl, Hebrew)" of the first names, so many at most.
QString listOf(const std::vector<TickedName> &names, std::size_t most);

/// What happened, in words for the user; empty where there is nothing to tell.
QString describe(const Placement &placement);

} // namespace upgrade
