// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QMessageBox>
#include <QObject>
#include <QTimer>

#include <vector>

namespace support {

/// What a message box said.
struct Box
{
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    QString title;
    QString text;

    bool operator==(const Box &) const = default;
};

/// A box with the icon that tells of something.
Box information(const QString &title, const QString &text);

/// For a failing comparison: "critical [Error] text", a line for each box.
char *toString(const Box &box);
char *toString(const std::vector<Box> &boxes);

/// Closes every message box that opens while it lives, with the given button or, where a box has
/// no such button, its default one, and remembers what was said.
class BoxReader final : public QObject
{
    Q_OBJECT

public:
    explicit BoxReader(QMessageBox::StandardButton answer = QMessageBox::Ok);

    const std::vector<Box> &boxes() const { return m_boxes; }
    /// What was said since the last call.
    std::vector<Box> take();
    /// The window that the last box belonged to; null if it had none.
    QWidget *lastWindow() const { return m_lastWindow; }

private:
    void answerOpenBox();

    QMessageBox::StandardButton m_answer;
    QTimer m_timer;
    std::vector<Box> m_boxes;
    QWidget *m_lastWindow = nullptr;
};

} // namespace support
