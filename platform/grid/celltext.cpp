// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/grid/celltext.h"

#include <QFontMetrics>
#include <QPainter>
#include <QTextLayout>
#include <QtMath>

#include <algorithm>

namespace grid {

/// The text layout knows line separators only.
static QString layoutText(QString text)
{
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    text.replace(u'\n', QChar::LineSeparator);
    return text;
}

/// Breaks the text into lines, each at its place, and answers the height of all lines. Leading is
/// counted between lines only, as the font metrics do for wrapped text.
static int layOut(QTextLayout *layout, const QFontMetrics &metrics, int width)
{
    QTextOption option = layout->textOption();
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout->setTextOption(option);

    qreal height = -metrics.leading();
    layout->beginLayout();
    for (QTextLine line = layout->createLine(); line.isValid(); line = layout->createLine()) {
        line.setLineWidth(std::max(1, width));
        height += metrics.leading();
        line.setPosition(QPointF(0, height));
        height += line.height();
    }
    layout->endLayout();
    return qCeil(height);
}

static int fittingLines(const QTextLayout &layout, int height)
{
    int lines = 1;
    while (lines < layout.lineCount() && layout.lineAt(lines).rect().bottom() <= height)
        ++lines;
    return lines;
}

int wrappedTextHeight(const QString &text, const QFont &font, int width)
{
    const QFontMetrics metrics(font);
    QTextLayout layout(layoutText(text), font);
    return std::max(layOut(&layout, metrics, width), metrics.height());
}

void drawWrappedText(QPainter *painter, const QRect &rect, Qt::Alignment alignment,
                     const QString &text)
{
    const QFontMetrics metrics = painter->fontMetrics();
    const QString whole = layoutText(text);
    QTextLayout layout(whole, painter->font());
    layout.setTextOption(QTextOption(alignment & Qt::AlignHorizontal_Mask));
    layOut(&layout, metrics, rect.width());
    if (layout.lineCount() == 0)
        return;

    const int lines = fittingLines(layout, rect.height());
    const bool cut = lines < layout.lineCount();
    const int used = qCeil(layout.lineAt(lines - 1).rect().bottom());
    const QPoint origin(rect.left(), rect.top() + std::max(0, (rect.height() - used) / 2));
    for (int i = 0; i < (cut ? lines - 1 : lines); ++i)
        layout.lineAt(i).draw(painter, origin);
    if (!cut)
        return;

    const QTextLine last = layout.lineAt(lines - 1);
    QString rest = whole.sliced(last.textStart());
    rest.replace(QChar::LineSeparator, u' ');
    const QRect lastRect(origin.x(), origin.y() + qRound(last.y()), rect.width(),
                         qCeil(last.height()));
    painter->drawText(lastRect,
                      static_cast<int>(alignment & Qt::AlignHorizontal_Mask) | Qt::TextSingleLine,
                      metrics.elidedText(rest, Qt::ElideRight, rect.width()));
}

} // namespace grid
