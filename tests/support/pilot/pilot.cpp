// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "tests/support/pilot/pilot.h"

#include <QApplication>
#include <QClipboard>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTabWidget>
#include <QTableView>
#include <QTest>
#include <QTextBrowser>
#include <QUrl>

#include <cstdio>
#include <utility>

namespace pilot {

namespace {

constexpr int stepInterval = 1; // milliseconds
constexpr int patience = 1000;  // milliseconds until an optional line is left out
constexpr int longWait = 10000; // milliseconds until a line that waits is told
constexpr QStringView optional = u"maybe ";

void say(const QString &text)
{
    std::fputs(QString(text % u'\n').toUtf8().constData(), stderr);
    std::fflush(stderr);
}

QString textOf(const QWidget *widget)
{
    if (const auto *label = qobject_cast<const QLabel *>(widget))
        return label->text();
    if (const auto *table = qobject_cast<const QTableView *>(widget))
        return QString::number(table->model()->rowCount());
    return widget->windowTitle();
}

void click(QAbstractItemView *view, const QModelIndex &item)
{
    view->scrollTo(item);
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, view->visualRect(item).center());
}

QString rowText(const QAbstractItemModel &model, int row)
{
    QStringList cells;
    for (int column = 0; column < model.columnCount(); ++column)
        cells.append(model.index(row, column).data().toString());
    return cells.join(u'|');
}

/// Clicks into the last column of a row.
/// @return the row; -1 if there is none
int clickLastCell(QTableView *table, int row)
{
    const QAbstractItemModel &model = *table->model();
    if (model.rowCount() == 0)
        return -1;
    row %= model.rowCount();
    click(table, model.index(row, model.columnCount() - 1));
    return row;
}

void tick(QTableView *table, int row)
{
    row = clickLastCell(table, row);
    if (row >= 0)
        say(u"tick: " % rowText(*table->model(), row));
}

void pick(QTableView *table, int row, int item)
{
    clickLastCell(table, row);
    QWidget *popup = QApplication::activePopupWidget();
    if (auto *list = popup ? popup->findChild<QAbstractItemView *>() : nullptr)
        click(list, list->model()->index(item % list->model()->rowCount(), 0));
}

void press(QWidget *widget, const QStringList &keys)
{
    widget->activateWindow(); // shortcuts are those of the active one
    while (widget->focusProxy())
        widget = widget->focusProxy();
    for (const QString &name : keys) {
        const QKeyCombination key = QKeySequence::fromString(name)[0];
        QTest::keyClick(widget, key.key(), key.keyboardModifiers());
    }
}

/// A text as a script has it: what would end it there, or can't stand there, is written as %xx.
QString decoded(const QString &text)
{
    return QUrl::fromPercentEncoding(text.toUtf8());
}

void paste(QWidget *widget, const QString &text)
{
    auto *line = qobject_cast<QLineEdit *>(widget);
    QGuiApplication::clipboard()->setText(text);
    line->selectAll();
    line->paste();
}

void pasteIntoCell(QTableView *table, int row, int column, const QString &text)
{
    click(table, table->model()->index(row % table->model()->rowCount(), column));
    if (auto *editor = qobject_cast<QLineEdit *>(QApplication::focusWidget())) {
        paste(editor, text);
        QTest::keyClick(editor, Qt::Key_Return);
    }
}

/// Whether the page within a pane is there, or what is shown in its place.
bool isLoaded(const QWidget *pane)
{
    for (const QObject *part : pane->findChildren<QObject *>()) {
        if (part->inherits("QWebEnginePage"))
            return !part->property("loading").toBool();
        if (const auto *text = qobject_cast<const QTextBrowser *>(part))
            return !text->document()->isEmpty();
    }
    return false;
}

QString rowsOf(const QTableView *table)
{
    QString rows;
    for (int row = 0; row < table->model()->rowCount(); ++row)
        rows += u'\t' % rowText(*table->model(), row);
    return rows;
}

void act(const QString &verb, QWidget *widget, const QString &text)
{
    if (verb == u"click")
        QTest::mouseClick(widget, Qt::LeftButton, {}, QPoint(8, widget->height() / 2));
    else if (verb == u"close")
        widget->close();
    else if (verb == u"tab")
        qobject_cast<QTabWidget *>(widget)->setCurrentIndex(text.toInt());
    else if (verb == u"type")
        QTest::keyClicks(widget, text);
    else if (verb == u"press")
        press(widget, text.split(u' '));
    else if (verb == u"paste")
        paste(widget, decoded(text));
    else if (verb == u"fill")
        pasteIntoCell(qobject_cast<QTableView *>(widget), text.section(u' ', 0, 0).toInt(),
                      text.section(u' ', 1, 1).toInt(), decoded(text.section(u' ', 2)));
    else if (verb == u"enter")
        QTest::keyClick(widget, Qt::Key_Return);
    else if (verb == u"tick")
        tick(qobject_cast<QTableView *>(widget), text.toInt());
    else if (verb == u"pick")
        pick(qobject_cast<QTableView *>(widget), text.section(u' ', 0, 0).toInt(),
             text.section(u' ', 1).toInt());
    else if (verb == u"rows")
        say(u"rows: " % widget->objectName() % rowsOf(qobject_cast<QTableView *>(widget)));
    else if (verb == u"print")
        say(widget->objectName() % u": " % textOf(widget));
}

} // namespace

Pilot::Pilot(QStringList script) : m_script(std::move(script))
{
    // A box may be the first thing to be seen.
    while (m_script.value(0).startsWith(u"answer "))
        run(m_script.takeFirst());
    connect(&m_timer, &QTimer::timeout, this, &Pilot::step);
    m_timer.start(stepInterval);
}

void Pilot::step()
{
    if (answerBox() || m_script.isEmpty())
        return;
    const QString line = m_script.takeFirst();
    const bool isOptional = line.startsWith(optional);
    if (run(isOptional ? line.sliced(optional.size()) : line)) {
        m_waited.invalidate();
        return;
    }
    if (!m_waited.isValid())
        m_waited.start();
    if (isOptional && m_waited.hasExpired(patience)) {
        m_waited.invalidate();
        return;
    }
    m_script.prepend(line);
    if (!m_isStuck && m_waited.hasExpired(longWait)) {
        m_isStuck = true;
        say(u"stuck: " % line);
    }
}

bool Pilot::answerBox()
{
    auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
    if (!box)
        return false;
    say(u"box: [" % box->windowTitle() % u"] " % box->text());
    QAbstractButton *button = box->button(m_answerYes ? QMessageBox::Yes : QMessageBox::No);
    (button ? button : box->buttons().constFirst())->click();
    return true;
}

QWidget *Pilot::find(const QString &name)
{
    for (QWidget *widget : QApplication::allWidgets()) {
        if (widget->objectName() == name && widget->isVisible())
            return widget;
    }
    return nullptr;
}

bool Pilot::run(const QString &line)
{
    const QString verb = line.section(u' ', 0, 0);
    const QString name = line.section(u' ', 1, 1);
    if (verb == u"answer") {
        m_answerYes = name == u"yes";
        return true;
    }
    const bool isTab = verb == u"tab";
    QWidget *widget = find(isTab ? QStringLiteral("tabInfo") : name);
    if (!widget)
        return false;
    if (verb == u"page")
        return isLoaded(widget);
    if (verb == u"until")
        return textOf(widget).startsWith(line.section(u' ', 2));
    // From the event loop, not from the timer: what is done may open a box, and while one is open
    // the timer has to go on.
    QTimer::singleShot(0, widget, [=] { act(verb, widget, line.section(u' ', isTab ? 1 : 2)); });
    return true;
}

QObject *PilotPlugin::create(const QString &, const QString &)
{
    return new Pilot(qEnvironmentVariable("PILOT_SCRIPT").split(u';', Qt::SkipEmptyParts));
}

} // namespace pilot
