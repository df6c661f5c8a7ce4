// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QSize>
#include <QString>

#include <span>
#include <string_view>
#include <vector>

class QWidget;

namespace layout {

/// The windows are designed for a screen of 800 x 600; larger and smaller ones have their own.
enum class ScreenClass { Designed, Large, Small };

/// Large from 1024 x 768 pixels on, small below a height of 600, designed otherwise.
ScreenClass screenClassOf(int widthPixels, int heightPixels);

/// The class of the screen that the program runs on.
ScreenClass currentScreenClass();

/// The sizes, in twips, that something has on the three classes of screens.
struct SizesByScreen
{
    QSize large;
    QSize designed;
    QSize small;
};

/// The size for the screen that the program runs on, in pixels.
QSize sizeForScreen(const SizesByScreen &twips);

/// Where a control stands in its parent, in twips.
struct Placement
{
    std::string_view control;
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;

    bool operator==(const Placement &) const = default;
};

/// One measure of a control in another layout than the designed one.
struct Measure
{
    enum class Kind { Keep, Fixed, Grow, WidthOf, HeightOf, TopOf };

    Kind kind = Kind::Keep;
    int twips = 0;               ///< the measure, or what is added to it or to another control's
    std::string_view control {}; ///< of WidthOf, HeightOf and TopOf
};

/// What becomes of a control in another layout. The changes run in their order, so one may take
/// its measure from a control changed before it.
struct Change
{
    std::string_view control;
    Measure left {};
    Measure top {};
    Measure width {};
    Measure height {};
};

/// The designed placements with the changes made to them.
std::vector<Placement> changed(std::span<const Placement> designed,
                               std::span<const Change> changes);

/// Moves and sizes the controls of a window, found by their names. A frame comes before what is in
/// it. A control of height 0 is hidden.
void place(QWidget &window, std::span<const Placement> placements);

/// Gives a window a size, in pixels, for good; it can't be maximised either.
void fixSize(QWidget &window, QSize pixels);

} // namespace layout
