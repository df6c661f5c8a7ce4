// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QUrl>
#include <QWidget>

#include <memory>

class QWebEngineProfile;
class QWebEngineView;

namespace browser {

/// Sets up the process for the browser. To be called before the application object is made.
void prepareProcess();

/// The one folder whose files the panes may show. To be called before the first pane is shown.
void setPageFolder(const QString &folder);

/// Whether a pane may load an address: a file of the page folder, or "about:blank".
bool isAllowed(const QUrl &url);

/// A pane that shows a page of the page folder. It knows no network, opens no other window, keeps
/// nothing on the disk, runs no scripts and has no context menu.
///
/// The browser behind it is made when the pane is first seen, because it is costly.
class BrowserPane : public QWidget
{
    Q_OBJECT

public:
    explicit BrowserPane(QWidget *parent = nullptr);
    ~BrowserPane() override;

    /// Shows a file. For a missing one the browser shows its own page that says so.
    void navigate(const QString &path);

Q_SIGNALS:
    /// A page, or the page that tells of a missing one, is complete.
    void documentComplete();

protected:
    void showEvent(QShowEvent *event) override;

private:
    void makeView();

    std::shared_ptr<QWebEngineProfile> m_profile;
    QWebEngineView *m_view = nullptr; ///< null until the pane is first seen
    QUrl m_url;
};

} // namespace browser
