// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "reports/pagewindow.h"

/// The terms and conditions, with an OK button that closes the window.
class frmTerms final : public PageWindow
{
    Q_OBJECT

public:
    frmTerms();
};
