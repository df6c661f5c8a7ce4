// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QAbstractTableModel>
#include <QPixmap>

#include <vector>

namespace grid {

/// The cells of a grid. Rows count from 0 and leave the header out; the headings are the model's
/// horizontal header data. A picture is the cell's decoration role.
class GridModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    using QAbstractTableModel::QAbstractTableModel;

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    bool setHeaderData(int section, Qt::Orientation orientation, const QVariant &value,
                       int role) override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    bool insertRows(int row, int count, const QModelIndex &parent = {}) override;
    bool removeRows(int row, int count, const QModelIndex &parent = {}) override;

    /// New columns have no heading and are aligned left; cut columns lose their cells.
    void setColumnCount(int count);
    void appendRow(const QStringList &texts);
    void clearTexts();

    /// The row's height in pixels, 0 for the default one.
    int rowHeight(int row) const;
    void setRowHeight(int row, int pixels);

    bool isEditable() const;
    void setEditable(bool editable);

    /// Between the two calls changes are not announced one by one. endBatch() ends with a single
    /// reset of the model if anything has changed.
    void beginBatch();
    void endBatch();

private:
    struct Cell
    {
        QString text;
        QString accessibleText;
        QPixmap picture;
    };

    struct Row
    {
        std::vector<Cell> cells;
        int height = 0;
    };

    struct Column
    {
        QString heading;
        QString accessibleHeading;
        Qt::Alignment alignment = Qt::AlignLeft;
    };

    const Cell *cellAt(const QModelIndex &index) const;
    bool announces();

    std::vector<Row> m_rows;
    std::vector<Column> m_columns;
    bool m_editable = false;
    bool m_batch = false;
    bool m_resetting = false;
};

} // namespace grid
