// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "worksheet/fullnames.h"

#include <QWidget>

#include <functional>
#include <memory>

namespace Ui {
class WorksheetFrame;
}

namespace worksheet {

/// The second step of the Worksheet tab: full names are tried for the ranked first names, and
/// their initials seen.
///
/// The grid always ends with a blank row for one more name, which is not saved.
class WorksheetFrame final : public QWidget
{
    Q_OBJECT

public:
    /// @param topNNames  gives the ranked names, best first
    explicit WorksheetFrame(std::function<QStringList()> topNNames, QWidget *parent = nullptr);
    ~WorksheetFrame() override;

    /// How many names are ranked, as the text of a whole number.
    void setTopN(const QString &topN);

    /// Fills the grid: the saved rows, then the ranked names that have none, then the blank row.
    /// What was unsaved is gone.
    /// @return true
    bool DisplayInitialRecord();

Q_SIGNALS:
    /// The user goes back to the ranking; what is unsaved stays on screen.
    void backRequested();
    /// The user wants the saved full names printed; nothing is left unsaved.
    void printRequested();

private:
    void startEdit(const QString &typed);
    void prepareEdit(int row, int column);
    void finishEdit(int row, int column, int step);
    void goToNextRow(int row);
    void refuseEdit(int row, int column);
    /// Ends an open edit; false if the user is still to be told that it could not be accepted.
    bool commitEdit();
    /// What the first name of a row can be chosen from, see firstNameList().
    QString GetInitialiseList(bool addBlank, const QString &current) const;
    void addRow(const FullName &name);

    FullName fullName(int row) const;
    /// Whether the rows may be saved; the user is told why not.
    bool ErrorFreeInitial();
    void UpdateInitialToDB();
    bool saveRows();
    void goBack();
    void print();

    std::unique_ptr<Ui::WorksheetFrame> m_ui;
    std::function<QStringList()> m_topNNames;
    QString m_topN;
    QString m_cellOldText;
    bool m_recordChanged = false;
    bool m_isRefusing = false;
};

} // namespace worksheet
