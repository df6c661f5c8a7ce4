// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QAccessible>
#include <QPointer>
#include <QTableView>

#include <optional>
#include <span>
#include <vector>

namespace grid {

class GridDelegate;
class GridModel;

/// A table of texts and small pictures. Row 0 is the header, the data rows count from 1; columns
/// count from 0. Reading a cell that does not exist gives an empty text, writing one does nothing.
class FlexGrid : public QTableView
{
    Q_OBJECT

public:
    explicit FlexGrid(QWidget *parent = nullptr);
    ~FlexGrid() override;

    /// Columns, headings, alignments and widths, see parseFormatString(). The data rows stay.
    void setFormatString(const QString &format);
    int columnCount() const;
    void setColumnCount(int count);
    /// Includes the header row, so it is at least 1.
    int rowCount() const;
    void setRowCount(int count);
    /// Empties all cells and headings. Rows, columns and their sizes stay.
    void clear();

    QString text(int row, int col) const;
    void setText(int row, int col, const QString &text);
    /// The header has no pictures. A null picture removes the one that is there.
    QPixmap picture(int row, int col) const;
    void setPicture(int row, int col, const QPixmap &picture);
    /// Whether a picture stands in for the text of its cell (it does at first). Where it does
    /// not, it stands beside the text unless that is "_".
    void setPictureHidesText(bool hides);
    /// What a screen reader says for the cell, at once if it is the current one; if empty it says
    /// the cell's text.
    void setAccessibleText(int row, int col, const QString &text);
    /// What a screen reader says for the heading; if empty it says the heading's text.
    void setAccessibleHeading(int col, const QString &text);
    /// Appends a row; the first text goes to column 0 and surplus texts are dropped.
    void addItem(const QString &tabSeparated);
    /// The same from a list, whose texts may have tabs in them.
    void addRow(const QStringList &texts);
    void removeItem(int row);
    /// The row's texts as addRow() takes them.
    QStringList rowTexts(int row) const;

    /// 0 when no cell is the current one.
    int currentRow() const;
    /// -1 when no cell is the current one.
    int currentCol() const;
    void setCurrentCell(int row, int col);

    /// Calls count: the view is brought up to date when each false has met its true. The first
    /// false commits an open edit, and no edit starts until the last true. See RedrawLock.
    void setRedraw(bool redraw);

    int columnPixelWidth(int col) const;
    /// A column of 1 pixel or less is kept but not shown.
    void setColumnPixelWidth(int col, int pixels);
    /// The pixels that the columns share, which leaves room for the vertical scroll bar.
    int widthOfColumns() const;
    /// The column that takes the width which the others leave, -1 for none. It may be set before
    /// the column exists.
    void setStretchColumn(int col);
    int rowPixelHeight(int row) const;
    void setRowPixelHeights(int firstRow, std::span<const int> heights);
    int defaultRowPixelHeight() const;
    QFont cellFont(int row, int col) const;
    /// The pixels of a column's width that are not available to its texts. With the rest of the
    /// width wrappedTextHeight() tells how high a text gets.
    int cellTextMargin() const;

    bool isEditable() const;
    /// Switching off commits an open edit.
    void setEditable(bool editable);
    /// The texts that the edits to come offer, separated by "|"; empty for free text. The list of
    /// one edit can be set as late as in beforeEdit().
    void setComboList(const QString &items);
    /// Edits the current cell. Typed characters replace its text, or select in its list the first
    /// item that begins with them.
    void editCell(const QString &typed = {});
    void commitEdit();
    bool isEditing() const;

Q_SIGNALS:
    void cellClicked(int row, int col);
    /// A character was typed, or one of the keys that ask for an edit without typing anything,
    /// Enter and F2; the text is then empty.
    void keyPressed(const QString &text);
    /// The handler may set the combo list, go to another cell, which is then the one edited, or
    /// refuse the edit by setEditable(false).
    void beforeEdit(int row, int col);
    /// Once for each edit, committed or not, when the cell has its text and the editor is gone.
    /// The step is +1 after Tab or a choice from a list, -1 after Shift+Tab, else 0: so many
    /// columns further is the next current cell if the handler leaves the current cell alone.
    void afterEdit(int row, int col, int step);

protected:
    void changeEvent(QEvent *event) override;
    void closeEditor(QWidget *editor, QAbstractItemDelegate::EndEditHint hint) override;
    void commitData(QWidget *editor) override;
    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override;
    void focusInEvent(QFocusEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void inputMethodEvent(QInputMethodEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyboardSearch(const QString &search) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    struct ColumnWidth
    {
        int pixels = 0;
        std::optional<QString> measured; ///< the text that the width comes from, if it does
    };

    struct Position
    {
        int row = 0;
        int col = -1;
    };

    QModelIndex cellIndex(int row, int col) const;
    void keepCurrentInside();
    void measureFont();
    int formatWidth(const QString &text) const;
    int stretchWidth() const;
    bool isStretched(int col) const;
    void applyColumnWidths();
    void applyRowHeights(int firstRow, int lastRow);
    void takeUserWidth(int col, int pixels);
    void tellScreenReader(const QModelIndex &index, QAccessible::Event change);
    QWidget *makeEditor(const QString &typed);
    void finishEdit(QWidget *editor, bool commit,
                    QAbstractItemDelegate::EndEditHint hint = QAbstractItemDelegate::NoHint);
    void stepColumn(int step);

    GridModel *m_model;
    GridDelegate *m_delegate;
    std::vector<ColumnWidth> m_widths;
    int m_stretchColumn = -1;
    int m_redrawLocks = 0;
    Position m_lockedCurrent; ///< the current cell while redraw is off
    bool m_sizing = false;
    bool m_startingEdit = false;
    QString m_comboList;
    QPointer<QWidget> m_editor;
    QPersistentModelIndex m_editedCell;
};

} // namespace grid
