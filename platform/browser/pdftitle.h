// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>

namespace browser {

/// A PDF document of the browser with a title, which viewers show and some of its versions leave
/// out. A document that has one, or that is built otherwise than the browser's, is handed back as
/// it is.
///
/// By hand, since a package serves Debian 12 and 13, and no library that does it has the same name
/// on both. The title comes as an update at the end of the file, as the format has it: ISO 32000-1,
/// 7.5.6.
QByteArray withTitle(const QByteArray &pdf, const QString &title);

} // namespace browser
