// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/grid/typedtext.h"

#include <QKeyEvent>

namespace grid {

QString typedText(const QKeyEvent &event)
{
    const QString text = event.text();
    const QList<uint> characters = text.toUcs4();
    if (characters.isEmpty() || !QChar::isPrint(characters.front()))
        return {};
    // Both together are AltGr on some keyboards.
    const Qt::KeyboardModifiers commands =
        event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    const bool typing = !commands || commands == (Qt::ControlModifier | Qt::AltModifier);
    return typing ? text : QString();
}

} // namespace grid
