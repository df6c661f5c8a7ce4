// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "app/program.h"

#include "app/frminfo.h"
#include "app/frmsplash.h"
#include "db/programend.h"
#include "layout/mainlayout.h"
#include "layout/twips.h"
#include "platform/browser/browserpane.h"
#include "reports/frmterms.h"
#include "reports/frmtovarinhelp.h"

#include <QCoreApplication>

Program::Program()
{
    // Pages scroll, so in them the user's font keeps its size.
    browser::setTextScale(layout::textScale());
    layout::limitTextScale(layout::mainWindowSize(layout::currentScreenClass()));
}

Program::~Program() = default;

void Program::start()
{
    m_splash = std::make_unique<frmSplash>();
    connect(m_splash.get(), &frmSplash::unloaded, this, &Program::showMainWindow);
    connect(m_splash.get(), &frmSplash::termsRequested, this, &Program::showTerms);
    m_splash->show();
}

void Program::showMainWindow()
{
    endOnFailure([this] {
        m_info = std::make_unique<frmInfo>();
        connect(m_info.get(), &frmInfo::helpRequested, this, &Program::showHelp);
        connect(m_info.get(), &frmInfo::termsRequested, this, &Program::showTerms);
        connect(m_info.get(), &frmInfo::unloaded, this, &Program::end);
        m_info->show();
    });
}

void Program::showTerms()
{
    if (!m_terms)
        m_terms = std::make_unique<frmTerms>();
    m_terms->showPage();
}

void Program::showHelp()
{
    if (!m_help)
        m_help = std::make_unique<frmTovarinHelp>();
    m_help->showPage();
}

void Program::end()
{
    // Not quit(): that would ask the main window once more.
    QCoreApplication::exit(0);
}
