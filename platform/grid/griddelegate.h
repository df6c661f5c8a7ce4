// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QPointer>
#include <QStyledItemDelegate>

namespace grid {

/// Paints the cells of a grid and connects the editor that the grid has made to the edited cell.
class GridDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    /// Pixels between the cell's edge and its content at the left and at the right.
    static constexpr int padding = 5;
    static constexpr int gridLine = 1;

    using QStyledItemDelegate::QStyledItemDelegate;

    bool pictureHidesText() const;
    void setPictureHidesText(bool hides);

    /// The widget that the next edit uses, already filled.
    void setNextEditor(QWidget *editor);

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override;
    void setEditorData(QWidget *editor, const QModelIndex &index) const override;
    void setModelData(QWidget *editor, QAbstractItemModel *model,
                      const QModelIndex &index) const override;
    void updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
                              const QModelIndex &index) const override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void paintFrame(QPainter *painter, const QStyleOptionViewItem &option,
                    const QModelIndex &index) const;
    void paintContent(QPainter *painter, const QRect &content, const QModelIndex &index) const;

    QPointer<QWidget> m_nextEditor;
    bool m_pictureHidesText = true;
};

} // namespace grid
