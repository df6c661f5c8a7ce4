// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QAbstractItemDelegate>
#include <QComboBox>
#include <QElapsedTimer>

namespace grid {

/// The editor of a cell that takes one text out of a list. It lives only as long as its list is
/// open: choosing an item or leaving the list in any other way ends the edit.
class ComboEditor : public QComboBox
{
    Q_OBJECT

public:
    /// Selects the item that equals the cell's text, none if there is no such item.
    ComboEditor(const QStringList &items, const QString &cellText, QWidget *parent);

    /// Opens the list. Typed characters select the first item that begins with them, or if there
    /// is none, the one that the cell has. Those that are typed soon after go on from there: "0",
    /// then "4" select "04".
    void open(const QString &typed);

Q_SIGNALS:
    /// The user is done with the list; commit is false when the old text is to stay. The hint
    /// says whether the next cell comes, after a choice or Tab, or the one before, after Shift+Tab.
    void finished(bool commit, QAbstractItemDelegate::EndEditHint hint);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool handleListKey(const QKeyEvent &event);
    void search(const QString &typed);

    int m_ownIndex = -1; ///< of the cell's text
    QString m_typed;
    QElapsedTimer m_sinceTyped;
};

} // namespace grid
