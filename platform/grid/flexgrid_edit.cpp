// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/grid/comboeditor.h"
#include "platform/grid/flexgrid.h"
#include "platform/grid/griddelegate.h"
#include "platform/grid/gridmodel.h"
#include "platform/grid/typedtext.h"

#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScopedValueRollback>

namespace grid {

static bool asksForEdit(const QKeyEvent &event)
{
    const Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::KeypadModifier;
    return !modifiers
           && (event.key() == Qt::Key_F2 || event.key() == Qt::Key_Return
               || event.key() == Qt::Key_Enter);
}

void FlexGrid::setComboList(const QString &items)
{
    m_comboList = items;
}

void FlexGrid::editCell(const QString &typed)
{
    if (m_startingEdit)
        return;
    commitEdit();
    if (!isEditable() || m_redrawLocks > 0 || !currentIndex().isValid())
        return;
    {
        const QScopedValueRollback starting(m_startingEdit, true);
        Q_EMIT beforeEdit(currentRow(), currentCol());
    }
    const QModelIndex index = currentIndex();
    if (!isEditable() || m_redrawLocks > 0 || !index.isValid() || isColumnHidden(index.column()))
        return;

    scrollTo(index);
    m_editedCell = index;
    QWidget *editor = makeEditor(typed);
    m_delegate->setNextEditor(editor);
    m_editor = editor;
    if (!edit(index, AllEditTriggers, nullptr)) {
        m_editor.clear();
        delete editor;
        return;
    }
    if (auto *combo = qobject_cast<ComboEditor *>(editor)) {
        combo->open(typed);
    } else if (auto *line = qobject_cast<QLineEdit *>(editor); line && !typed.isEmpty()) {
        line->deselect();
        line->end(false);
    }
}

void FlexGrid::commitEdit()
{
    if (m_editor)
        finishEdit(m_editor, true);
}

bool FlexGrid::isEditing() const
{
    return !m_editor.isNull();
}

QWidget *FlexGrid::makeEditor(const QString &typed)
{
    const QString cellText = m_editedCell.data().toString();
    // A screen reader tells what is edited by the column's heading, or if it has none, by the grid.
    const QString heading =
        m_model->headerData(m_editedCell.column(), Qt::Horizontal, Qt::AccessibleTextRole)
            .toString()
            .trimmed();
    const QString title = heading.isEmpty() ? accessibleName() : heading;
    if (!m_comboList.isEmpty()) {
        auto *combo = new ComboEditor(m_comboList.split(u'|'), cellText, viewport());
        combo->setFont(font());
        combo->setAccessibleName(title);
        combo->view()->setAccessibleName(title);
        connect(combo, &ComboEditor::finished, this,
                [this, combo](bool commit, QAbstractItemDelegate::EndEditHint hint) {
                    finishEdit(combo, commit, hint);
                });
        return combo;
    }
    auto *line = new QLineEdit(typed.isEmpty() ? cellText : typed, viewport());
    line->setFont(font());
    line->setAccessibleName(title);
    line->setFrame(false);
    line->setAlignment(m_editedCell.data(Qt::TextAlignmentRole).value<Qt::Alignment>());
    // With the blank that the editor itself leaves, the text stays where the cell shows it.
    line->setTextMargins(GridDelegate::padding - 3, 0, GridDelegate::padding - 3, 0);
    return line;
}

void FlexGrid::finishEdit(QWidget *editor, bool commit, QAbstractItemDelegate::EndEditHint hint)
{
    if (commit)
        commitData(editor);
    closeEditor(editor, hint);
}

void FlexGrid::commitData(QWidget *editor)
{
    if (editor && editor == m_editor)
        QTableView::commitData(editor);
}

/// Every way out of an edit leads here, several of them sometimes twice: an editor that closes
/// also loses the focus, and a list that closes also reports that it has been left.
void FlexGrid::closeEditor(QWidget *editor, QAbstractItemDelegate::EndEditHint hint)
{
    if (!editor || editor != m_editor)
        return;
    m_editor.clear();
    const Position edited {m_editedCell.row() + 1, m_editedCell.column()};
    m_editedCell = QPersistentModelIndex();
    // The focus of the window, not of the application: another window may be the active one.
    const QWidget *focus = window()->focusWidget();
    const bool hadFocus = focus && (focus == editor || editor->isAncestorOf(focus));

    if (auto *combo = qobject_cast<ComboEditor *>(editor))
        combo->hidePopup();
    // No hint: the base class would open the next editor, in another row if need be.
    QTableView::closeEditor(editor, QAbstractItemDelegate::NoHint);
    if (hadFocus)
        setFocus();
    const int step = hint == QAbstractItemDelegate::EditNextItem       ? +1
                     : hint == QAbstractItemDelegate::EditPreviousItem ? -1
                                                                       : 0;
    Q_EMIT afterEdit(edited.row, edited.col, step);
    const bool hasMoved = currentRow() != edited.row || currentCol() != edited.col;
    if (!hasMoved && step != 0)
        stepColumn(step);
}

/// Makes the nearest shown column to the right (+1) or to the left (-1) the current one, if any.
void FlexGrid::stepColumn(int step)
{
    int col = currentCol() + step;
    while (col >= 0 && col < columnCount() && isColumnHidden(col))
        col += step;
    setCurrentCell(currentRow(), col);
}

void FlexGrid::hideEvent(QHideEvent *event)
{
    if (!event->spontaneous())
        commitEdit();
    QTableView::hideEvent(event);
}

void FlexGrid::keyPressEvent(QKeyEvent *event)
{
    const QString typed = typedText(*event);
    if (typed.isEmpty() && !asksForEdit(*event)) {
        QTableView::keyPressEvent(event);
        return;
    }
    event->accept();
    if (!isEditing())
        Q_EMIT keyPressed(typed);
}

void FlexGrid::inputMethodEvent(QInputMethodEvent *event)
{
    event->accept();
    if (!event->commitString().isEmpty() && !isEditing())
        Q_EMIT keyPressed(event->commitString());
}

void FlexGrid::keyboardSearch(const QString & /*search*/)
{
    // Typed characters are the business of whoever listens to keyPressed().
}

} // namespace grid
