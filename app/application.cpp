// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "app/application.h"

#include "db/programend.h"
#include "platform/dialogs/messagebox.h"

#include <QIcon>

#include <optional>

namespace {

/// Calls the function; answers the exit code if it threw, else nothing.
template <typename Function>
std::optional<int> exitCodeOf(const Function &function)
{
    try {
        function();
        return std::nullopt;
    } catch (const ProgramEnd &end) {
        return end.exitCode;
    } catch (const std::exception &error) {
        dialogs::showMessage(QString::fromUtf8(error.what()), dialogs::Icon::Critical,
                             QStringLiteral("Error"));
        return 1;
    }
}

} // namespace

Application::Application(int &argc, char **argv) : QApplication(argc, argv)
{
    setApplicationName(QStringLiteral("tovarin"));
    // The program ends when a window says so, not because one gives way to the next.
    setQuitOnLastWindowClosed(false);
    QIcon icon;
    for (const int size : {16, 24, 32, 48, 64, 128, 256})
        icon.addFile(QStringLiteral(":/app/tovarin-%1.png").arg(size), QSize(size, size));
    setWindowIcon(icon);
}

bool Application::notify(QObject *receiver, QEvent *event)
{
    bool handled = true;
    const std::optional<int> exitCode =
        exitCodeOf([&] { handled = QApplication::notify(receiver, event); });
    if (exitCode)
        exit(*exitCode);
    return handled;
}

int Application::run(const std::function<void()> &start)
{
    if (const std::optional<int> exitCode = exitCodeOf(start))
        return *exitCode;
    return exec();
}
