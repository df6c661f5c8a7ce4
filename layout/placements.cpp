// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "layout/placements.h"

#include "layout/basapi.h"
#include "layout/twips.h"

#include <QHash>
#include <QWidget>

#include <algorithm>

namespace layout {

namespace {

const Placement &placementOf(std::string_view control, const std::vector<Placement> &placements)
{
    const auto found = std::ranges::find(placements, control, &Placement::control);
    Q_ASSERT_X(found != placements.end(), "layout", std::string(control).c_str());
    return *found;
}

int measured(const Measure &measure, int designed, const std::vector<Placement> &placements)
{
    switch (measure.kind) {
    case Measure::Kind::Keep:
        return designed;
    case Measure::Kind::Fixed:
        return measure.twips;
    case Measure::Kind::Grow:
        return designed + measure.twips;
    case Measure::Kind::WidthOf:
        return placementOf(measure.control, placements).width + measure.twips;
    case Measure::Kind::HeightOf:
        return placementOf(measure.control, placements).height + measure.twips;
    case Measure::Kind::TopOf:
        return placementOf(measure.control, placements).top + measure.twips;
    }
    Q_UNREACHABLE();
}

} // namespace

ScreenClass screenClassOf(int widthPixels, int heightPixels)
{
    if (widthPixels >= 1024 && heightPixels >= 768)
        return ScreenClass::Large;
    return heightPixels < 600 ? ScreenClass::Small : ScreenClass::Designed;
}

ScreenClass currentScreenClass()
{
    std::int16_t width = 0;
    std::int16_t height = 0;
    basAPI::GetScreenResolution(width, height);
    return screenClassOf(width, height);
}

QSize sizeForScreen(const SizesByScreen &twips)
{
    switch (currentScreenClass()) {
    case ScreenClass::Large:
        return pixelsFromTwips(twips.large);
    case ScreenClass::Small:
        return pixelsFromTwips(twips.small);
    case ScreenClass::Designed:
        break;
    }
    return pixelsFromTwips(twips.designed);
}

std::vector<Placement> changed(std::span<const Placement> designed, std::span<const Change> changes)
{
    std::vector<Placement> placements(designed.begin(), designed.end());
    for (const Change &change : changes) {
        const auto found = std::ranges::find(placements, change.control, &Placement::control);
        Q_ASSERT_X(found != placements.end(), "layout", std::string(change.control).c_str());
        const Placement old = *found;
        *found = {old.control, measured(change.left, old.left, placements),
                  measured(change.top, old.top, placements),
                  measured(change.width, old.width, placements),
                  measured(change.height, old.height, placements)};
    }
    return placements;
}

void place(QWidget &window, std::span<const Placement> placements)
{
    QHash<QString, QWidget *> controls;
    for (QWidget *control : window.findChildren<QWidget *>())
        controls.insert(control->objectName(), control);
    QHash<QWidget *, QPoint> corners; // in twips, from the corner of the outermost frame
    for (const Placement &placement : placements) {
        QWidget *control = controls.value(
            QString::fromLatin1(placement.control.data(), qsizetype(placement.control.size())));
        if (!control)
            continue;
        const QPoint origin = corners.value(control->parentWidget());
        const QPoint corner = origin + QPoint(placement.left, placement.top);
        corners.insert(control, corner);
        // Edges are rounded, not sizes, so that what ends where its frame ends is not cut off.
        const QPoint topLeft = pixelsFromTwips(corner);
        const QPoint end = pixelsFromTwips(corner + QPoint(placement.width, placement.height));
        control->setGeometry(QRect(topLeft - pixelsFromTwips(origin),
                                   QSize(end.x() - topLeft.x(), end.y() - topLeft.y())));
        if (placement.height == 0)
            control->hide();
    }
}

void fixSize(QWidget &window, QSize pixels)
{
    window.setWindowFlags(Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint
                          | Qt::WindowSystemMenuHint | Qt::WindowMinimizeButtonHint
                          | Qt::WindowCloseButtonHint);
    window.setFixedSize(pixels);
}

} // namespace layout
