// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace browser {

/// How printing a page ended.
struct PrintResult
{
    enum class Outcome { Printed, SavedAsFile, Cancelled, Failed };

    Outcome outcome = Outcome::Failed;
    QString file {};   ///< the PDF file, if one was asked for
    QString reason {}; ///< why it failed, in the system's words; may be empty
};

} // namespace browser
