// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/dialogs/messagebox.h"

#include <QApplication>
#include <QMessageBox>
#include <QTimer>

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

bool askYesNo(const QString &text, const QString &title, QWidget *window)
{
    QMessageBox box(QMessageBox::Question, title, text, QMessageBox::Yes | QMessageBox::No, window);
    box.setDefaultButton(QMessageBox::No);
    box.setEscapeButton(QMessageBox::No);
    return run(box) == QMessageBox::Yes;
}

void afterClick(QObject *context, const std::function<void()> &function)
{
    constexpr int wait = 10; // milliseconds
    const auto isMouseDown = [] { return QGuiApplication::mouseButtons() != Qt::NoButton; };
    QTimer::singleShot(isMouseDown() ? wait : 0, context, [=] {
        if (isMouseDown())
            afterClick(context, function);
        else
            function();
    });
}

} // namespace dialogs
