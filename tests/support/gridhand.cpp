// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "tests/support/gridhand.h"

#include "platform/grid/flexgrid.h"

#include <QComboBox>
#include <QTest>

namespace support {

namespace {

QComboBox *openCombo(const grid::FlexGrid &page)
{
    for (auto *combo : page.viewport()->findChildren<QComboBox *>()) {
        if (combo->isVisible() && combo->view()->isVisible())
            return combo;
    }
    return nullptr;
}

} // namespace

void clickCell(grid::FlexGrid &page, int row, int column)
{
    const QModelIndex cell = page.model()->index(row - 1, column);
    page.scrollTo(cell);
    QTest::mouseClick(page.viewport(), Qt::LeftButton, {}, page.visualRect(cell).center());
}

QStringList rows(const grid::FlexGrid &page)
{
    QStringList texts;
    for (int row = 1; row < page.rowCount(); ++row)
        texts.append(page.rowTexts(row).join(u'|'));
    return texts;
}

QStringList offered(const grid::FlexGrid &page)
{
    QStringList items;
    const QComboBox *combo = openCombo(page);
    for (int i = 0; combo && i < combo->count(); ++i)
        items.append(combo->itemText(i));
    return items;
}

void choose(grid::FlexGrid &page, int item)
{
    QAbstractItemView *list = openCombo(page)->view();
    const QModelIndex index = list->model()->index(item, 0);
    list->scrollTo(index);
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualRect(index).center());
    if (!QTest::qWaitFor([&page] { return !page.isEditing(); }))
        qFatal("the list stays open");
}

void type(grid::FlexGrid &page, const QString &text)
{
    for (const QChar character : text) {
        const QComboBox *combo = openCombo(page);
        QWidget *target =
            combo ? static_cast<QWidget *>(combo->view()) : page.window()->focusWidget();
        const Qt::Key key = character == u'\t'     ? Qt::Key_Tab
                            : character == u'\n'   ? Qt::Key_Return
                            : character == u'\x1b' ? Qt::Key_Escape
                                                   : Qt::Key_unknown;
        if (key == Qt::Key_unknown)
            QTest::sendKeyEvent(QTest::Click, target, Qt::Key_unknown, QString(character), {});
        else
            QTest::keyClick(target, key);
    }
}

} // namespace support
