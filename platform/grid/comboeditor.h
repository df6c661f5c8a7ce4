// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QComboBox>

namespace grid {

/// The editor of a cell that takes one text out of a list. It lives only as long as its list is
/// open: choosing an item or leaving the list in any other way ends the edit.
class ComboEditor : public QComboBox
{
    Q_OBJECT

public:
    /// Selects the first item that begins with the typed characters if there are any, else the
    /// item that equals the cell's text. No item is selected if neither is found.
    ComboEditor(const QStringList &items, const QString &cellText, const QString &typed,
                QWidget *parent);

Q_SIGNALS:
    /// The user is done with the list; commit is false when the old text is to stay.
    void finished(bool commit);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool handleListKey(int key);
};

} // namespace grid
