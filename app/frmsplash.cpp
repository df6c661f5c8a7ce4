// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "app/frmsplash.h"

#include "db/basdatabase.h"
#include "layout/basresize.h"
#include "layout/placements.h"
#include "layout/twips.h"
#include "ui_frmsplash.h"

#include <QCloseEvent>

frmSplash::frmSplash() : m_ui(std::make_unique<Ui::frmSplash>())
{
    m_ui->setupUi(this);
    const bool isDense = devicePixelRatioF() > 1;
    QPixmap picture(isDense ? QStringLiteral(":/app/splash@2x.png")
                            : QStringLiteral(":/app/splash.png"));
    picture.setDevicePixelRatio(isDense ? 2 : 1);
    m_ui->ImgImage->setPixmap(picture);
    for (QLabel *label : {m_ui->lblProgramName, m_ui->lblNotice_0, m_ui->lblNotice_1}) {
        QFont font = label->font();
        font.setPointSizeF(font.pointSizeF() * layout::textScale());
        label->setFont(font);
    }

    basDatabase::OpenDatabase();
    const QString version = basDatabase::Setting(u"versionno");
    m_ui->lblVersion->setText(basDatabase::VersionLine(version));
    setWindowTitle(windowTitle() % u' ' % version);

    connect(m_ui->cmdOK, &QPushButton::clicked, this, &QWidget::close);
    // Not quit(): that would close this window first, which means going on.
    connect(m_ui->cmdExit, &QPushButton::clicked, this, [] { QCoreApplication::exit(0); });
    connect(m_ui->lblTerms, &LinkLabel::clicked, this, &frmSplash::termsRequested);
    m_ui->cmdOK->setFocus();
    layout::fixSize(*this, sizeHint());
    basResize::CentreForm(*this);
}

frmSplash::~frmSplash() = default;

void frmSplash::closeEvent(QCloseEvent *event)
{
    event->accept();
    basDatabase::CloseDatabase();
    Q_EMIT unloaded();
}
