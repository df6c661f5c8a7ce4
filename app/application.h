// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QApplication>

#include <functional>

/// The application object: how windows and buttons behave throughout. It is also the one that
/// catches what no event handler did: it tells the user, and ends the program. What was saved stays
/// saved.
class Application final : public QApplication
{
    Q_OBJECT

public:
    Application(int &argc, char **argv);

    bool notify(QObject *receiver, QEvent *event) override;

    /// Runs the start procedure and then the event loop, and returns the program's exit code.
    int run(const std::function<void()> &start);
};
