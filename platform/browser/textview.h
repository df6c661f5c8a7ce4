// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/browser/paneview.h"

#include <functional>
#include <memory>

class QDialog;
class QPushButton;
class QUrl;

namespace browser {

class PageText;

/// A view for a computer without a browser: the text of the page, with its headings, tables and
/// pictures, and for a blank document a button that prints it. No scripts run, and what a page has
/// for a browser to draw or to click is left out.
class TextView final : public PaneView
{
public:
    explicit TextView(QWidget *parent);
    ~TextView() override;

    void showFile(const QString &path) override;
    void showBlank(const BlankDocument &document) override;
    void setInnerHtml(const QString &html) override;
    /// Asks for a printer or, where there is none, for the name of a PDF file.
    void print(const QString &documentName) override;
    bool isPrinting() const override { return m_isPrinting; }

private:
    void showHtml(const QString &html);
    void setBlank(bool isBlank);
    void setText(const QString &html);
    void followLink(const QUrl &url);
    void askForPrinter(const QString &documentName);
    void askForFile(const QString &documentName);
    void ask(QDialog *dialog, const std::function<PrintResult()> &print);

    PageText *m_text;
    QPushButton *m_print; ///< cmdPrintPage
    QString m_head;       ///< of the document that is to be filled
    bool m_isBlank = false;
    bool m_isPrinting = false;
    std::unique_ptr<QDialog> m_dialog; ///< kept until the next: it is still in use when it answers
};

} // namespace browser
