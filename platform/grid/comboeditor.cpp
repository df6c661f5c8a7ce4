// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/grid/comboeditor.h"

#include <QAbstractItemView>
#include <QKeyEvent>
#include <QScrollBar>

namespace grid {

ComboEditor::ComboEditor(const QStringList &items, const QString &cellText, const QString &typed,
                         QWidget *parent)
    : QComboBox(parent)
{
    addItems(items);
    int selected = typed.isEmpty() ? -1 : findText(typed, Qt::MatchStartsWith);
    if (selected < 0)
        selected = findText(cellText, Qt::MatchExactly | Qt::MatchCaseSensitive);
    setCurrentIndex(selected);

    // The list may be wider than a narrow cell.
    view()->setMinimumWidth(view()->sizeHintForColumn(0) + 2 * view()->frameWidth()
                            + view()->verticalScrollBar()->sizeHint().width());
    view()->installEventFilter(this);
    view()->parentWidget()->installEventFilter(this);
    connect(this, &QComboBox::activated, this, [this] { Q_EMIT finished(true); });
}

bool ComboEditor::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == view() && event->type() == QEvent::KeyPress) {
        if (handleListKey(static_cast<QKeyEvent *>(event)->key()))
            return true;
    } else if (watched == view()->parentWidget() && event->type() == QEvent::Hide) {
        // The list also closes just before it reports the chosen item, so look again later.
        const auto leave = [this] {
            if (!view()->isVisible())
                Q_EMIT finished(true);
        };
        QMetaObject::invokeMethod(this, leave, Qt::QueuedConnection);
    }
    return QComboBox::eventFilter(watched, event);
}

bool ComboEditor::handleListKey(int key)
{
    if (key == Qt::Key_Escape) {
        Q_EMIT finished(false);
        return true;
    }
    if (key == Qt::Key_Tab || key == Qt::Key_Backtab) {
        if (view()->currentIndex().isValid())
            setCurrentIndex(view()->currentIndex().row());
        Q_EMIT finished(true);
        return true;
    }
    return false;
}

} // namespace grid
