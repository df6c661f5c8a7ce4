// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>

namespace browser {

/// A PDF document with a title in Latin-1, which viewers show and the browser leaves out in some of
/// its versions. What can't be read as PDF is handed back as it is.
QByteArray withTitle(const QByteArray &pdf, const QString &title);

} // namespace browser
