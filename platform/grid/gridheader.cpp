// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/grid/gridheader.h"

#include "platform/grid/griddelegate.h"

#include <QPainter>

namespace grid {

GridHeader::GridHeader(QWidget *parent) : QHeaderView(Qt::Horizontal, parent)
{
    setSectionsClickable(false);
    setSectionsMovable(false);
    setHighlightSections(false);
}

QSize GridHeader::sizeHint() const
{
    // Also without columns, so that the rows do not jump when the first ones come.
    const int height = fontMetrics().height() + 2 * GridDelegate::padding;
    return {QHeaderView::sizeHint().width(), height};
}

void GridHeader::initStyleOptionForIndex(QStyleOptionHeader *option, int logicalIndex) const
{
    QHeaderView::initStyleOptionForIndex(option, logicalIndex);
    // The style would put the text elsewhere.
    option->text.clear();
}

void GridHeader::paintSection(QPainter *painter, const QRect &rect, int logicalIndex) const
{
    painter->save();
    QHeaderView::paintSection(painter, rect, logicalIndex);
    painter->restore();

    const QString heading =
        model()->headerData(logicalIndex, Qt::Horizontal, Qt::DisplayRole).toString();
    const auto alignment = model()
                               ->headerData(logicalIndex, Qt::Horizontal, Qt::TextAlignmentRole)
                               .value<Qt::Alignment>();
    const QRect content =
        rect.adjusted(GridDelegate::padding, 0, -GridDelegate::padding - GridDelegate::gridLine, 0);
    // A column as wide as its heading must not lose letters to a fraction of a pixel.
    const bool fits = fontMetrics().horizontalAdvance(heading) <= content.width();
    painter->save();
    painter->setFont(font());
    painter->setPen(palette().color(QPalette::ButtonText));
    painter->drawText(content, static_cast<int>(alignment) | Qt::TextSingleLine | Qt::TextDontClip,
                      fits ? heading
                           : fontMetrics().elidedText(heading, Qt::ElideRight, content.width()));
    painter->restore();
}

} // namespace grid
