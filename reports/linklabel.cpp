// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "reports/linklabel.h"

#include <QKeyEvent>
#include <QStyleOptionFocusRect>
#include <QStylePainter>

LinkLabel::LinkLabel(QWidget *parent) : QLabel(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::PointingHandCursor);
    QFont underlined = font();
    underlined.setUnderline(true);
    setFont(underlined);
    setForegroundRole(QPalette::Link);
}

void LinkLabel::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton && rect().contains(event->pos()))
        Q_EMIT clicked();
}

void LinkLabel::keyPressEvent(QKeyEvent *event)
{
    const int key = event->key();
    if (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space)
        Q_EMIT clicked();
    else
        QLabel::keyPressEvent(event);
}

void LinkLabel::paintEvent(QPaintEvent *event)
{
    QLabel::paintEvent(event);
    if (!hasFocus())
        return;
    QStylePainter painter(this);
    QStyleOptionFocusRect option;
    option.initFrom(this);
    painter.drawPrimitive(QStyle::PE_FrameFocusRect, option);
}
