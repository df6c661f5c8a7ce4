// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/dialogs/messagebox.h"

#include <QApplication>
#include <QMessageBox>

namespace dialogs {

namespace {

int run(QMessageBox &box)
{
    box.setTextFormat(Qt::PlainText);
    // A box that opens during a long task must not answer with its hourglass.
    const bool isWaiting = QGuiApplication::overrideCursor() != nullptr;
    if (isWaiting)
        QGuiApplication::setOverrideCursor(Qt::ArrowCursor);
    const int answer = box.exec();
    if (isWaiting)
        QGuiApplication::restoreOverrideCursor();
    return answer;
}

} // namespace

void showMessage(const QString &text, Icon icon, const QString &title)
{
    QMessageBox box(icon == Icon::Critical ? QMessageBox::Critical : QMessageBox::Information,
                    title, text, QMessageBox::Ok, QApplication::activeWindow());
    run(box);
}

bool askYesNo(const QString &text, const QString &title)
{
    QMessageBox box(QMessageBox::Question, title, text, QMessageBox::Yes | QMessageBox::No,
                    QApplication::activeWindow());
    box.setDefaultButton(QMessageBox::No);
    box.setEscapeButton(QMessageBox::No);
    return run(box) == QMessageBox::Yes;
}

} // namespace dialogs
