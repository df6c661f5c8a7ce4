// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "db/programend.h"

#include "platform/dialogs/messagebox.h"

#include <QCoreApplication>

#include <exception>

std::optional<int> exitCodeOf(const std::function<void()> &function)
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

void endOnFailure(const std::function<void()> &handler)
{
    if (const std::optional<int> exitCode = exitCodeOf(handler))
        QCoreApplication::exit(*exitCode);
}
