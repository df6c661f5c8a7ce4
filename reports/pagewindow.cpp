// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "reports/pagewindow.h"

#include "layout/basresize.h"
#include "layout/placements.h"
#include "layout/twips.h"
#include "platform/browser/browserpane.h"
#include "reports/pagefiles.h"

#include <QKeyEvent>
#include <QVBoxLayout>

namespace {

/// The window's inner size for the screen, in twips.
QSize twipsForScreen()
{
    switch (layout::currentScreenClass()) {
    case layout::ScreenClass::Large:
        return {11400, 9900};
    case layout::ScreenClass::Small:
        return {8700, 5700};
    case layout::ScreenClass::Designed:
        break;
    }
    return {10500, 7500};
}

} // namespace

PageWindow::PageWindow(const QString &name, const QString &title, QStringView pageFile)
    : m_page(new browser::BrowserPane(this)), m_pageFile(pageFile.toString())
{
    setObjectName(name);
    setWindowTitle(title);
    m_page->setObjectName(QStringLiteral("WebBrowser1"));
    m_page->setAccessibleName(title);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(6, 6, 6, 6);
    column->addWidget(m_page, 1);

    const QSize twips = twipsForScreen();
    resize(layout::pixelsFromTwips(twips.width()), layout::pixelsFromTwips(twips.height()));
    basResize::CentreForm(*this);
}

void PageWindow::showPage()
{
    m_page->navigate(pagefiles::path(m_pageFile));
    show();
    raise();
    activateWindow();
}

void PageWindow::addBelow(QWidget *control)
{
    static_cast<QVBoxLayout *>(QWidget::layout())->addWidget(control, 0, Qt::AlignRight);
}

void PageWindow::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape)
        close();
    else
        QWidget::keyPressEvent(event);
}
