// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/browser/browserpane.h"

#include "platform/browser/paneview.h"

#include <QVBoxLayout>

#include <utility>

namespace browser {

BrowserPane::BrowserPane(QWidget *parent) : QWidget(parent)
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    setFocusPolicy(Qt::StrongFocus);
}

void BrowserPane::navigate(const QString &path)
{
    m_path = path;
    m_blank.reset();
    m_mayRecover = true;
    loadContent();
}

void BrowserPane::navigateToBlank(const BlankDocument &document)
{
    m_blank = document;
    m_mayRecover = true;
    loadContent();
}

void BrowserPane::takeFocus()
{
    m_isFocusDue = m_isLoading;
    setFocus();
}

void BrowserPane::setInnerHtml(const QString &html)
{
    if (m_view)
        m_view->setInnerHtml(html);
}

void BrowserPane::print(const QString &documentName)
{
    if (m_view)
        m_view->print(documentName);
}

bool BrowserPane::isPrinting() const
{
    return m_view && m_view->isPrinting();
}

void BrowserPane::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    if (!m_view)
        makeView();
}

void BrowserPane::makeView()
{
    m_view = makePaneView(this);
    layout()->addWidget(m_view);
    setFocusProxy(m_view);
    connect(m_view, &PaneView::documentComplete, this, &BrowserPane::complete);
    connect(m_view, &PaneView::documentLost, this, &BrowserPane::recover);
    // The view is still in the middle of something.
    connect(m_view, &PaneView::unusable, this, &BrowserPane::replaceView, Qt::QueuedConnection);
    connect(m_view, &PaneView::printRequested, this, &BrowserPane::printRequested);
    connect(m_view, &PaneView::printStarted, this, &BrowserPane::printStarted);
    connect(m_view, &PaneView::printFinished, this, &BrowserPane::printFinished);
    loadContent();
}

void BrowserPane::complete()
{
    m_isLoading = false;
    if (std::exchange(m_isFocusDue, false) && isVisible() && !hasFocus())
        setFocus();
    Q_EMIT documentComplete();
}

void BrowserPane::replaceView()
{
    const bool hadFocus = hasFocus();
    delete m_view;
    makeView();
    m_view->show();
    if (hadFocus)
        setFocus();
}

void BrowserPane::recover()
{
    if (!std::exchange(m_mayRecover, false))
        return;
    Q_EMIT documentLost();
    loadContent();
}

void BrowserPane::loadContent()
{
    if (!m_view)
        return;
    m_isLoading = true;
    m_view->setAccessibleName(accessibleName());
    if (m_blank)
        m_view->showBlank(*m_blank);
    else if (!m_path.isEmpty())
        m_view->showFile(m_path);
}

} // namespace browser
