// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "reports/pagewindow.h"

/// The help page in a window of its own, beside the main window.
class frmTovarinHelp final : public PageWindow
{
    Q_OBJECT

public:
    frmTovarinHelp();
};
