// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "reports/aboutframe.h"

#include "db/basdatabase.h"
#include "platform/browser/browserpane.h"
#include "reports/linklabel.h"
#include "reports/pagefiles.h"

AboutFrame::AboutFrame(QWidget *parent)
    : QWidget(parent), m_version(new QLabel(this)), m_terms(new LinkLabel(this)),
      m_page(new browser::BrowserPane(this))
{
    setObjectName(QStringLiteral("fraInfo_5"));
    m_version->setObjectName(QStringLiteral("lblVersion"));
    m_terms->setObjectName(QStringLiteral("lblTerms"));
    m_terms->setText(QStringLiteral("(Terms and Conditions Apply)"));
    m_terms->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_page->setObjectName(QStringLiteral("dhtmlAbout"));
    m_page->setAccessibleName(QStringLiteral("About Tovarin"));
    connect(m_terms, &LinkLabel::clicked, this, &AboutFrame::termsRequested);
}

void AboutFrame::takeFocus()
{
    m_page->takeFocus();
}

void AboutFrame::DisplayAbout()
{
    m_version->setText(basDatabase::VersionLine(basDatabase::Setting(u"versionno")));
    m_page->navigate(pagefiles::path(pagefiles::about));
}
