// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/browser/printresult.h"

#include <QObject>

#include <memory>

class QPrintDialog;
class QPrinter;
class QWebEngineView;

namespace browser {

/// Prints the page of a view, one job at a time: asks where to, then sends it to the printer or
/// writes a PDF file.
class PrintJob final : public QObject
{
    Q_OBJECT

public:
    explicit PrintJob(QWebEngineView *view);
    ~PrintJob() override;

    /// Opens the system's print dialog. Does nothing while a job is under way.
    void start(const QString &documentName);
    /// From the opening of the dialog until finished().
    bool isUnderWay() const { return m_isUnderWay; }

Q_SIGNALS:
    /// The dialog is confirmed.
    void started();
    void finished(const browser::PrintResult &result);

private:
    void printOnPaper();
    void writePdf();
    void end(const PrintResult &result);

    QWebEngineView *m_view;
    bool m_isUnderWay = false;
    // Both are kept until the next job: the dialog still looks at the printer after its answer.
    std::unique_ptr<QPrinter> m_printer;
    std::unique_ptr<QPrintDialog> m_dialog;
};

} // namespace browser
