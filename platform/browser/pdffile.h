// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/browser/printresult.h"

namespace browser {

/// Keeps a printed page as a file. Empty content stands for a page that could not be printed.
PrintResult savePdf(const QString &path, const QByteArray &pdf);

} // namespace browser
