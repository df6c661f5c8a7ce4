// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/browser/paneview.h"

#include <QTimer>

#include <memory>
#include <optional>

namespace browser {

class WebBrowserControl;

/// A view through the system's WebBrowser control. It runs no scripts at all: what the scripts of
/// a document are there for, the view does itself.
class WebBrowserView final : public PaneView
{
    Q_OBJECT

public:
    explicit WebBrowserView(QWidget *parent);
    ~WebBrowserView() override;

    /// False once a control has shown nothing, or where there is none.
    static bool isUsable();

    void showFile(const QString &path) override;
    void showBlank(const BlankDocument &document) override;
    void setInnerHtml(const QString &html) override;
    /// Through the control's own dialog.
    void print(const QString &documentName) override;
    bool isPrinting() const override { return m_isPrinting; }

protected:
    void resizeEvent(QResizeEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;

private:
    void showOwn(const QString &html);
    void complete();
    void giveUp();
    void endPrinting(PrintResult::Outcome outcome);

    std::unique_ptr<WebBrowserControl> m_control;
    QTimer m_patience;                ///< with a control that has shown nothing yet
    std::optional<QString> m_ownHtml; ///< to be written when the control is blank
    bool m_isPrinting = false;
    bool m_isPrintPrepared = false; ///< the control has set up its printing, and not ended it yet
};

} // namespace browser
