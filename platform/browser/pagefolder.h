// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

/// What the views of all systems have in common.
namespace browser {

struct BlankDocument;

/// The folder of setPageFolder(), without a separator at its end.
QString pageFolder();

/// The size of the texts of pages, in pixels, at the scale of setTextScale().
int fontSize();

/// A page of the browser's own.
/// @param head, body  what stands between their tags
QString ownHtml(const QString &head, const QString &body = {});

/// What stands in the head of an empty document: its title and its style sheet.
QString blankHead(const BlankDocument &document);

bool isReadable(const QString &path);

/// What is shown in the place of a file that can't be read.
QString notFoundHtml(const QString &path);

} // namespace browser
