// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QHeaderView>

namespace grid {

/// The headings of a grid. Their texts keep the same distance from the column's edges as the
/// texts of the cells below, which also is what the format string's widths reckon with.
class GridHeader : public QHeaderView
{
    Q_OBJECT

public:
    explicit GridHeader(QWidget *parent);

    QSize sizeHint() const override;

protected:
    void initStyleOptionForIndex(QStyleOptionHeader *option, int logicalIndex) const override;
    void paintSection(QPainter *painter, const QRect &rect, int logicalIndex) const override;
};

} // namespace grid
