// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/browser/printresult.h"

#include <QWidget>

namespace browser {

struct BlankDocument;

/// What a pane shows its pages with. Each system has its own.
class PaneView : public QWidget
{
    Q_OBJECT

public:
    using QWidget::QWidget;

    /// Shows a file of the page folder, from which links may lead to others of the folder; in the
    /// place of one that can't be read, a page that says so.
    virtual void showFile(const QString &path) = 0;
    /// Shows an empty document, from which nothing leads anywhere.
    virtual void showBlank(const BlankDocument &document) = 0;
    /// Fills the body of the document.
    virtual void setInnerHtml(const QString &html) = 0;

    /// Asks where to, and prints the page. Does nothing while isPrinting().
    virtual void print(const QString &documentName) = 0;
    virtual bool isPrinting() const = 0;

Q_SIGNALS:
    void documentComplete();
    /// What was shown is gone and can be shown once more.
    void documentLost();
    /// This kind of view shows nothing on this computer; makePaneView() makes another kind now.
    void unusable();
    void printRequested();
    void printStarted();
    void printFinished(const browser::PrintResult &result);
};

PaneView *makePaneView(QWidget *parent);

} // namespace browser
