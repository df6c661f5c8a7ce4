// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/grid/flexgrid.h"
#include "shortlist/topnframe.h"
#include "tests/support/sampledatabase.h"

#include <QPushButton>
#include <QSignalSpy>

/// The ranking step, in a window of its own, over a shortlist and a saved ranking.
class TopNStep
{
public:
    /// @param shortlist  "name|sex|origin|meaning"
    /// @param ranking  "rank|name|sex|origin|meaning"
    TopNStep(const QStringList &shortlist, const QStringList &ranking);
    ~TopNStep();
    Q_DISABLE_COPY_MOVE(TopNStep)

    static void writeShortlist(const QStringList &shortlist);

    grid::FlexGrid &result() const { return page("msfResult"); }
    grid::FlexGrid &previous() const { return page("msfPrevTopN"); }
    /// What the list of free ranks shows.
    QStringList freeRanks() const;
    void clickFreeRank(int place) const;
    void save() const { button("cmdSaveTopN").click(); }
    void goOn() const { button("cmdNext").click(); }
    QString folder() const { return m_database.folder(); }

private:
    support::SampleDatabase m_database;
    QWidget m_window;

public:
    shortlist::TopNFrame frame;
    QSignalSpy opened;
    QSignalSpy next;

private:
    grid::FlexGrid &page(const char *name) const
    {
        return *m_window.findChild<grid::FlexGrid *>(QLatin1String(name));
    }
    QPushButton &button(const char *name) const
    {
        return *m_window.findChild<QPushButton *>(QLatin1String(name));
    }
};

/// The saved ranking, by rank: "rank|name|origin|sex|meaning".
QStringList savedRanking();
