// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

#include <memory>

namespace Ui {
class frmSplash;
}

/// The window that the program starts with: its name and version, OK to go on, Exit to leave.
class frmSplash final : public QWidget
{
    Q_OBJECT

public:
    /// Opens the database to read the version.
    /// @throws ProgramEnd if it can't be opened
    frmSplash();
    ~frmSplash() override;

Q_SIGNALS:
    /// The splash window has been closed, and the database with it.
    void unloaded();
    void termsRequested();

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    std::unique_ptr<Ui::frmSplash> m_ui;
};
