// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace browser {

/// HTML without what could make a browser ask for anything that it may not load, see isAllowed():
/// for a browser that is not asked before it loads a picture, and runs no scripts. Texts and tags
/// stay, but for scripts, style sheets and comments; of the attributes only those stay that a table
/// or a button needs, and the address of a picture in the page folder.
///
/// `<b onclick=x>A</b><img src="file://host/share/x.png">` gives `<b>A</b><img>`.
QString localHtml(const QString &html);

} // namespace browser
