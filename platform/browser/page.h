// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QWebEnginePage>

#include <memory>

namespace browser {

struct BlankDocument;

/// The profile that all pages share: off the record, without a network, scripts or storage. It
/// goes with the last who holds it.
std::shared_ptr<QWebEngineProfile> sharedProfile();

/// A page that can only be where the program sends it.
class Page final : public QWebEnginePage
{
    Q_OBJECT

public:
    using QWebEnginePage::QWebEnginePage;

    /// Shows a file of the page folder, from which links may lead to others of the folder; in the
    /// place of one that can't be read, a page that says so.
    void showFile(const QString &path);
    /// Shows an empty document, from which nothing leads anywhere.
    void showBlank(const BlankDocument &document);

protected:
    bool acceptNavigationRequest(const QUrl &url, NavigationType type, bool isMainFrame) override;
    /// What a page refuses to do is told to nobody: there is no log.
    void javaScriptConsoleMessage(JavaScriptConsoleMessageLevel, const QString &, int,
                                  const QString &) override
    {
    }

private:
    void showOwn(const QString &html);

    int m_filesShown = 0;
    bool m_isOwn = false; ///< what is shown is no file, but made here
};

} // namespace browser
