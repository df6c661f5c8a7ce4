// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "tests/support/boxes.h"

#include <QApplication>
#include <QPushButton>
#include <QTest>

#include <utility>

namespace support {

static QString describe(const Box &box)
{
    const QString icon = box.icon == QMessageBox::Critical      ? QStringLiteral("critical")
                         : box.icon == QMessageBox::Information ? QStringLiteral("information")
                         : box.icon == QMessageBox::Question    ? QStringLiteral("question")
                                                                : QStringLiteral("other");
    return icon % u" [" % box.title % u"] " % box.text;
}

Box information(const QString &title, const QString &text)
{
    return {QMessageBox::Information, title, text};
}

char *toString(const Box &box)
{
    return QTest::toString(describe(box));
}

char *toString(const std::vector<Box> &boxes)
{
    QStringList lines;
    for (const Box &box : boxes)
        lines.append(describe(box));
    return QTest::toString(lines.join(u'\n'));
}

BoxReader::BoxReader(QMessageBox::StandardButton answer) : m_answer(answer)
{
    connect(&m_timer, &QTimer::timeout, this, &BoxReader::answerOpenBox);
    m_timer.start(0);
}

std::vector<Box> BoxReader::take()
{
    return std::exchange(m_boxes, {});
}

void BoxReader::answerOpenBox()
{
    auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
    if (!box || !box->isVisible())
        return;
    m_boxes.push_back({box->icon(), box->windowTitle(), box->text()});
    m_lastWindow = box->parentWidget();
    QAbstractButton *button = box->button(m_answer);
    (button                 ? button
     : box->defaultButton() ? box->defaultButton()
                            : box->buttons().constFirst())
        ->click();
}

} // namespace support
