// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "reports/frmterms.h"

#include "reports/pagefiles.h"

#include <QPushButton>

frmTerms::frmTerms()
    : PageWindow(QStringLiteral("frmTerms"), QStringLiteral("Terms and Conditions"),
                 pagefiles::terms, WhileOpen::Reload)
{
    auto *ok = new QPushButton(QStringLiteral("OK"), this);
    ok->setObjectName(QStringLiteral("cmdOK"));
    connect(ok, &QPushButton::clicked, this, &QWidget::close);
    addBelow(ok, Qt::AlignRight);
}
