// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QLabel>

/// A label that is clicked, with the mouse or, once Tab has reached it, with Enter or the blank.
class LinkLabel final : public QLabel
{
    Q_OBJECT

public:
    explicit LinkLabel(QWidget *parent = nullptr);

Q_SIGNALS:
    void clicked();

protected:
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
};
