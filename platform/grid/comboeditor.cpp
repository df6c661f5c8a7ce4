// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/grid/comboeditor.h"

#include "platform/grid/typedtext.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QKeyEvent>
#include <QScrollBar>

namespace grid {

ComboEditor::ComboEditor(const QStringList &items, const QString &cellText, QWidget *parent)
    : QComboBox(parent)
{
    addItems(items);
    m_ownIndex = findText(cellText, Qt::MatchExactly | Qt::MatchCaseSensitive);
    setCurrentIndex(m_ownIndex);

    // The list may be wider than a narrow cell.
    view()->setMinimumWidth(view()->sizeHintForColumn(0) + 2 * view()->frameWidth()
                            + view()->verticalScrollBar()->sizeHint().width());
    view()->installEventFilter(this);
    view()->parentWidget()->installEventFilter(this);
    connect(this, &QComboBox::activated, this,
            [this] { Q_EMIT finished(true, QAbstractItemDelegate::EditNextItem); });
}

void ComboEditor::open(const QString &typed)
{
    showPopup();
    if (!typed.isEmpty())
        search(typed);
}

void ComboEditor::search(const QString &typed)
{
    if (m_sinceTyped.isValid() && m_sinceTyped.elapsed() > QApplication::keyboardInputInterval())
        m_typed.clear();
    m_typed += typed;
    m_sinceTyped.start();
    const int found = findText(m_typed, Qt::MatchStartsWith);
    setCurrentIndex(found >= 0 ? found : m_ownIndex);
    view()->setCurrentIndex(model()->index(currentIndex(), modelColumn()));
}

bool ComboEditor::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == view() && event->type() == QEvent::KeyPress) {
        if (handleListKey(*static_cast<QKeyEvent *>(event)))
            return true;
    } else if (watched == view()->parentWidget() && event->type() == QEvent::Hide) {
        // The list also closes just before it reports the chosen item, so look again later.
        const auto leave = [this] {
            if (!view()->isVisible())
                Q_EMIT finished(true, QAbstractItemDelegate::NoHint);
        };
        QMetaObject::invokeMethod(this, leave, Qt::QueuedConnection);
    }
    return QComboBox::eventFilter(watched, event);
}

bool ComboEditor::handleListKey(const QKeyEvent &event)
{
    const int key = event.key();
    if (key == Qt::Key_Escape) {
        Q_EMIT finished(false, QAbstractItemDelegate::NoHint);
        return true;
    }
    if (key == Qt::Key_Tab || key == Qt::Key_Backtab) {
        if (view()->currentIndex().isValid())
            setCurrentIndex(view()->currentIndex().row());
        Q_EMIT finished(true, key == Qt::Key_Tab ? QAbstractItemDelegate::EditNextItem
                                                 : QAbstractItemDelegate::EditPreviousItem);
        return true;
    }
    const QString typed = typedText(event);
    // What has been typed is chosen, also if the list is then left by a click elsewhere.
    if (!typed.isEmpty())
        search(typed);
    return !typed.isEmpty();
}

} // namespace grid
