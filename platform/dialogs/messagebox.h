// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace dialogs {

enum class Icon { Information, Critical };

/// Shows a text with an OK button over the active window and waits until it is closed. The text
/// is plain: what looks like markup is shown as it stands.
void showMessage(const QString &text, Icon icon, const QString &title);

/// Asks a question with Yes and No; No is the default and what Escape answers.
bool askYesNo(const QString &text, const QString &title);

} // namespace dialogs
