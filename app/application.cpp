// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "app/application.h"

#include "app/readablestyle.h"
#include "db/programend.h"

#include <QAccessibleWidget>
#include <QFrame>
#include <QIcon>
#include <QProcess>
#include <QPushButton>
#include <QSettings>

#include <optional>

namespace {

/// What windows and frames of ours are to screen readers. By itself the toolkit takes a window for
/// one of the parts that only hold others, and any frame for what on Linux is called a window.
QAccessibleInterface *accessibleFrame(const QString &className, QObject *object)
{
    auto *widget = qobject_cast<QWidget *>(object);
    if (widget && widget->isWindow() && className.startsWith(u"frm"))
        return new QAccessibleWidget(widget, QAccessible::Window);
    const auto *frame = qobject_cast<QFrame *>(object);
    if (!frame || className != u"QFrame")
        return nullptr;
    const bool isLine =
        frame->frameShape() == QFrame::VLine || frame->frameShape() == QFrame::HLine;
    return new QAccessibleWidget(widget, isLine ? QAccessible::Separator : QAccessible::Grouping);
}

} // namespace

Application::Application(int &argc, char **argv) : QApplication(argc, argv)
{
    setApplicationName(QStringLiteral("tovarin"));
    // What the desktop knows the program by: its icon, its name in lists of windows.
    setDesktopFileName(QStringLiteral("org.tovarin.tovarin"));
    // The program ends when a window says so, not because one gives way to the next.
    setQuitOnLastWindowClosed(false);
    setStyle(new ReadableStyle);
    QAccessible::installFactory(accessibleFrame);
    // Where nothing can be written: dialogs that ask for files would leave a file of their own in
    // the user's settings.
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, QProcess::nullDevice());
    QIcon icon;
    for (const int size : {16, 24, 32, 48, 64, 128, 256})
        icon.addFile(QStringLiteral(":/app/tovarin-%1.png").arg(size), QSize(size, size));
    setWindowIcon(icon);
}

bool Application::notify(QObject *receiver, QEvent *event)
{
    // Enter presses the button that has the focus, in windows as in dialogs.
    if (event->type() == QEvent::Polish) {
        if (auto *button = qobject_cast<QPushButton *>(receiver))
            button->setAutoDefault(true);
    }
    bool handled = true;
    endOnFailure([&] { handled = QApplication::notify(receiver, event); });
    return handled;
}

int Application::run(const std::function<void()> &start)
{
    if (const std::optional<int> exitCode = exitCodeOf(start))
        return *exitCode;
    return exec();
}
