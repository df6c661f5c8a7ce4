// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "reports/frmtovarinhelp.h"

#include "reports/pagefiles.h"

frmTovarinHelp::frmTovarinHelp()
    : PageWindow(QStringLiteral("frmTovarinHelp"), QStringLiteral("Tovarin Help"), pagefiles::help,
                 WhileOpen::Keep)
{
}
