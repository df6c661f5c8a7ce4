// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "reports/linklabel.h"

#include <QAccessibleWidget>
#include <QKeyEvent>
#include <QStyleOptionFocusRect>
#include <QStylePainter>

namespace {

/// To a screen reader a label is a text that nobody can click.
class AccessibleLink final : public QAccessibleWidget
{
public:
    explicit AccessibleLink(LinkLabel *label) : QAccessibleWidget(label, QAccessible::Link) { }

    QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Name ? label()->text() : QAccessibleWidget::text(kind);
    }

    QStringList actionNames() const override
    {
        return QStringList(pressAction()) + QAccessibleWidget::actionNames();
    }

    void doAction(const QString &action) override
    {
        if (action == pressAction())
            Q_EMIT label()->clicked();
        else
            QAccessibleWidget::doAction(action);
    }

private:
    LinkLabel *label() const { return static_cast<LinkLabel *>(widget()); }
};

QAccessibleInterface *accessibleLink(const QString & /*className*/, QObject *object)
{
    auto *label = qobject_cast<LinkLabel *>(object);
    return label ? new AccessibleLink(label) : nullptr;
}

} // namespace

LinkLabel::LinkLabel(QWidget *parent) : QLabel(parent)
{
    // Installed once, however many labels there are.
    QAccessible::installFactory(accessibleLink);
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
