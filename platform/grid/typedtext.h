// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

class QKeyEvent;

namespace grid {

/// The key's text if it is one that would be typed into an editor, else empty.
QString typedText(const QKeyEvent &event);

} // namespace grid
