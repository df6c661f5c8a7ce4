// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>

namespace browser {

/// A PDF document with a title, which viewers show and some of Qt's engines leave out. What can't
/// be read as PDF is handed back as it is.
QByteArray withTitle(const QByteArray &pdf, const QString &title);

} // namespace browser
