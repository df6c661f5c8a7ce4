// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/browser/paneview.h"

#include <memory>

class QWebEngineProfile;
class QWebEngineView;

namespace browser {

class Page;
class PrintJob;

/// A view through Qt WebEngine.
class WebEngineView final : public PaneView
{
    Q_OBJECT

public:
    explicit WebEngineView(QWidget *parent);
    ~WebEngineView() override;

    void showFile(const QString &path) override;
    void showBlank(const BlankDocument &document) override;
    void setInnerHtml(const QString &html) override;
    void print(const QString &documentName) override;
    bool isPrinting() const override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void tellFocus(bool isNewDocument, int looks);

    std::shared_ptr<QWebEngineProfile> m_profile;
    QWebEngineView *m_view;
    Page *m_page;
    PrintJob *m_printJob;
    bool m_isBlank = false;
};

} // namespace browser
