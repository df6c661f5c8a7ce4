// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QElapsedTimer>
#include <QGenericPlugin>
#include <QStringList>
#include <QTimer>

class QMessageBox;
class QWidget;

namespace pilot {

/// Sits in the built program like a person and follows the lines of a script, one by one, as soon
/// as the control that a line names is to be seen:
///
///   click NAME     clicks a button or a label      close NAME     closes a window
///   type NAME TEXT types a text                    enter NAME     presses Enter
///   press NAME KEY...      presses keys, such as Tab or Ctrl+P
///   paste NAME TEXT        puts a text into a text box by the clipboard
///   fill NAME R C TEXT     puts a text into a cell, counted from 0 (rows round after the last one)
///                          texts to put have as %xx what a script can't hold
///   page NAME              waits until the page of a pane is loaded
///   until NAME TEXT        waits until its text begins so
///   tab N          goes to the tab N, from 0       print NAME     prints its text or row count
///   tick NAME N    clicks the tick box of a grid's row, from 0 and round after the last one, and
///                  when the click has returned prints "tick: " and the row
///   pick NAME N M  clicks the last cell of a grid's row, from 0 and round after the last one, and
///                  in the list that opens the item M, from 0 and round after the last one
///   rows NAME      prints "rows: ", the name and after a tab each row of a grid
///   maybe LINE             does what the line says, unless its control is missing for a second
///   answer yes|no          how questions are answered from here on
///
/// Message boxes are answered as they come and printed to standard error as "box: [title] text".
class Pilot final : public QObject
{
    Q_OBJECT

public:
    explicit Pilot(QStringList script);

private:
    void step();
    bool answerBox();
    bool run(const QString &line);
    static QWidget *find(const QString &name);

    QStringList m_script;
    bool m_answerYes = false;
    QElapsedTimer m_waited; ///< since the line that comes next was first tried
    bool m_isStuck = false; ///< a line has waited for long, and has been told
    QTimer m_timer;
};

/// Loads the pilot into a program started with QT_QPA_GENERIC_PLUGINS=pilot and the script in
/// PILOT_SCRIPT, its lines separated by ";".
class PilotPlugin final : public QGenericPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "pilot.json")

public:
    QObject *create(const QString &name, const QString &arguments) override;
};

} // namespace pilot
