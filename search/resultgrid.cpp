// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "search/resultgrid.h"

#include "layout/columnwidths.h"
#include "layout/twips.h"
#include "platform/grid/flexgrid.h"
#include "platform/grid/redrawlock.h"
#include "search/pages.h"

#include <QPainter>
#include <QPainterPath>
#include <QWidget>

namespace search {

namespace {

constexpr QStringView tickMark = u"_";

constexpr int tickSize = 15; // of the drawing, and in pixels where texts have their usual size
constexpr int tickTwips = 225;

QPixmap drawTick(const QWidget &widget, bool ticked)
{
    const qreal ratio = widget.devicePixelRatioF();
    const double scale = double(layout::pixelsFromTwips(tickTwips)) / tickSize;
    QPixmap picture(QSize(tickSize, tickSize) * scale * ratio);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(scale, scale);

    const QPalette &palette = widget.palette();
    const QRectF box(1.5, 1.5, tickSize - 3, tickSize - 3);
    const QColor accent = palette.color(QPalette::Active, QPalette::Highlight);
    const QColor ink = palette.color(QPalette::Active, QPalette::Text);
    painter.setPen(QPen(ticked ? accent : QColor(ink.red(), ink.green(), ink.blue(), 150), 1.2));
    painter.setBrush(ticked ? accent : palette.color(QPalette::Active, QPalette::Base));
    painter.drawRoundedRect(box, 2.5, 2.5);
    if (ticked) {
        QPainterPath tick(QPointF(4.2, 7.8));
        tick.lineTo(6.6, 10.2);
        tick.lineTo(10.9, 4.9);
        painter.setPen(QPen(palette.color(QPalette::Active, QPalette::HighlightedText), 1.8,
                            Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.setBrush(Qt::NoBrush);
        painter.drawPath(tick);
    }
    return picture;
}

} // namespace

TickPictures drawTickPictures(const QWidget &widget)
{
    return {drawTick(widget, true), drawTick(widget, false)};
}

QString resultFormat()
{
    const auto blanks = [](int count) { return QString(count, u' '); };
    return u"^No" % blanks(7) % u"|<First Char|<Name" % blanks(28) % u"|<Boy/Girl|<Origin"
           % blanks(28) % u"|<Meaning" % blanks(106) % u"|<Select" % blanks(6);
}

void formatPage(grid::FlexGrid &page)
{
    page.setStretchColumn(MeaningColumn);
    page.setFormatString(resultFormat());
    clearPage(page);
    layout::makeRoomForStretchColumn(page, MeaningColumn, {NameColumn, OriginColumn}, 0.286);
}

void clearPage(grid::FlexGrid &page)
{
    page.setColumnCount(ResultColumnCount);
    page.setRowCount(1);
    page.setColumnPixelWidth(FirstLetterColumn, 1);
}

void appendRecords(grid::FlexGrid &page, dbaccess::Recordset &records, std::int16_t pageNumber)
{
    for (; !records.isAtEnd(); records.moveNext()) {
        QStringList row {QString::number(rowNumber(pageNumber, page.rowCount()))};
        for (const QStringView name : {u"name_first", u"name_desc", u"name_sex", u"org_desc",
                                       u"meaning_name", u"name_select"})
            row.append(records.text(name));
        page.addRow(row);
    }
}

namespace {

/// Shows the rows whose tick column holds a text as ticked, the others as not ticked.
void markTicks(grid::FlexGrid &page, QStringView ticked, const TickPictures &pictures)
{
    for (int row = 1; row < page.rowCount(); ++row)
        setTick(page, row, page.text(row, TickColumn) == ticked, pictures);
}

} // namespace

void copyPage(const grid::FlexGrid &from, grid::FlexGrid &to, const TickPictures &pictures)
{
    const grid::RedrawLock lock(&to);
    clearPage(to);
    for (int row = 1; row < from.rowCount(); ++row)
        to.addRow(from.rowTexts(row));
    markTicks(to, tickMark, pictures);
}

void copyPageReversed(const grid::FlexGrid &from, grid::FlexGrid &to, std::int16_t pageNumber,
                      const TickPictures &pictures)
{
    const grid::RedrawLock lock(&to);
    clearPage(to);
    for (int row = from.rowCount() - 1; row > 0; --row) {
        const int newRow = to.rowCount();
        to.addRow(from.rowTexts(row));
        to.setText(newRow, NumberColumn, QString::number(rowNumber(pageNumber, newRow)));
    }
    markTicks(to, tickMark, pictures);
}

PageKey keyOfNextPage(const grid::FlexGrid &page)
{
    const auto text = [&page](int column) {
        return page.text(page.rowCount() - 1, column).trimmed();
    };
    return {text(NameColumn), text(SexColumn), text(OriginColumn), text(MeaningColumn)};
}

PageKey keyOfPreviousPage(const grid::FlexGrid &page)
{
    PageKey key = keyOfNextPage(page);
    key.name = page.text(1, NameColumn).trimmed();
    return key;
}

void markFromDatabase(grid::FlexGrid &page, const TickPictures &pictures)
{
    markTicks(page, u"Y", pictures);
}

bool isTicked(const grid::FlexGrid &page, int row)
{
    return page.text(row, TickColumn) == tickMark;
}

void setTick(grid::FlexGrid &page, int row, bool ticked, const TickPictures &pictures)
{
    page.setText(row, TickColumn, ticked ? tickMark.toString() : QString());
    page.setPicture(row, TickColumn, ticked ? pictures.checked : pictures.unchecked);
    page.setAccessibleText(row, TickColumn,
                           ticked ? QStringLiteral("ticked") : QStringLiteral("not ticked"));
}

} // namespace search
