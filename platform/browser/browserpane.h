// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/browser/printresult.h"

#include <QUrl>
#include <QWidget>

#include <memory>
#include <optional>

namespace browser {

class PaneView;

/// Sets up the process for the browser. To be called before the application object is made.
void prepareProcess();

/// For as long as what it returns is kept, the right mouse button opens no menu over a page of the
/// browser control of Windows: the clicks of the thread are seen before its windows get them. Over
/// anything else they go on. Null where there is no such control; pages have no menu there anyway.
std::shared_ptr<void> blockRightButton();

/// The one folder whose files the panes may show. To be called before the first pane is shown.
void setPageFolder(const QString &folder);

/// How large the texts of pages are; 1 is their usual size. To be called before the first pane is
/// shown.
void setTextScale(double scale);

/// Whether a pane may load an address: a file of the page folder, or "about:blank".
bool isAllowed(const QUrl &url);

/// The address of a file as it can stand in a page, also between apostrophes.
QString fileAddress(const QString &path);

/// An empty document for the program to fill. It may show pictures of the page folder and nothing
/// else: whatever the program puts in, it loads nothing, no frame opens and no link leads anywhere.
struct BlankDocument
{
    QString title;
    QString styleSheet {};  ///< the name of a file in the page folder; empty for none
    QStringList scripts {}; ///< the only scripts and event handlers that run in it, as they stand
};

/// A pane that shows a page of the page folder, or a document that the program fills. It knows no
/// network, opens no other window, keeps nothing on the disk, runs no scripts but those that a
/// document allows, and has no context menu.
///
/// The browser behind it is made when the pane is first seen, because it is costly.
class BrowserPane : public QWidget
{
    Q_OBJECT

public:
    explicit BrowserPane(QWidget *parent = nullptr);

    /// Shows a file. For a missing one a page of the browser's own says so.
    void navigate(const QString &path);
    /// Shows an empty document. When documentComplete() comes, it is there to be filled.
    void navigateToBlank(const BlankDocument &document);

    /// Gives the page the focus, and does so again when a page that is being loaded is complete:
    /// the browser may lose the focus with the part of it that had it.
    void takeFocus();

    /// Fills the body of the document. The scripts that it allows then run.
    void setInnerHtml(const QString &html);

    /// Opens the system's print dialog and prints the page, or keeps it as a PDF file if that is
    /// what is chosen there. printFinished() tells how it ended. Does nothing while the dialog is
    /// open or a page is being printed.
    /// @param documentName  what the job, or the file, is called
    void print(const QString &documentName);
    /// From the opening of the dialog until printFinished().
    bool isPrinting() const;

Q_SIGNALS:
    /// A page, or the page that tells of a missing one, is complete.
    void documentComplete();
    /// The browser has lost what it showed, and loads it once more: a document that was filled is
    /// empty when documentComplete() comes.
    void documentLost();
    /// A script of the page wants it printed.
    void printRequested();
    /// The dialog is confirmed and the page goes to the printer, or into a file.
    void printStarted();
    void printFinished(const browser::PrintResult &result);

protected:
    void showEvent(QShowEvent *event) override;

private:
    void makeView();
    void complete();
    void replaceView();
    void loadContent();
    void recover();

    PaneView *m_view = nullptr; ///< null until the pane is first seen
    QString m_path;
    std::optional<BlankDocument> m_blank; ///< what is shown in the place of the file
    bool m_isLoading = false;
    bool m_isFocusDue = false; ///< when the page is complete
    bool m_mayRecover = false; ///< once; a page may be the reason for its own loss
};

} // namespace browser
