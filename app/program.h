// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>

#include <memory>

class frmInfo;
class frmSplash;
class frmTerms;
class frmTovarinHelp;

/// The windows of the program and the way from one to the next: splash, main window, end.
class Program final : public QObject
{
    Q_OBJECT

public:
    Program();
    ~Program() override;

    /// Shows the splash window.
    /// @throws ProgramEnd if the database can't be opened
    void start();

private:
    void showMainWindow();
    void showTerms();
    void showHelp();
    void end();

    std::unique_ptr<frmSplash> m_splash;
    std::unique_ptr<frmInfo> m_info;
    std::unique_ptr<frmTerms> m_terms;      ///< made when first asked for
    std::unique_ptr<frmTovarinHelp> m_help; ///< made when first asked for
};
