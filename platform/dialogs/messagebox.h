// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <functional>

class QObject;
class QWidget;

namespace dialogs {

enum class Icon { Information, Critical };

/// Shows a text with an OK button over the active window and waits until it is closed. The text
/// is plain: what looks like markup is shown as it stands.
void showMessage(const QString &text, Icon icon, const QString &title);

/// Asks a question with Yes and No over the given window, if any; No is the default and what Escape
/// answers.
bool askYesNo(const QString &text, const QString &title, QWidget *window);

/// Calls a function when the events that are under way have been dealt with and no mouse button is
/// down: a box that opened before would swallow half of a click. Never, if the context is gone by
/// then.
void afterClick(QObject *context, const std::function<void()> &function);

} // namespace dialogs
