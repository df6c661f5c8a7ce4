// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/grid/flexgrid.h"
#include "search/searchframe.h"
#include "tests/support/sampledatabase.h"

#include <QAbstractButton>
#include <QLabel>

#include <random>

/// The Search tab on a sample database, ready as after the start of the program.
class Tab
{
public:
    explicit Tab(const std::vector<dictionary::Entry> &entries);
    ~Tab();
    Q_DISABLE_COPY_MOVE(Tab)

    template <typename Control>
    Control *control(const char *name) const
    {
        return m_window.findChild<Control *>(QLatin1String(name));
    }

    void click(const char *button) const { control<QAbstractButton>(button)->click(); }
    bool isEnabled(const char *button) const { return control<QWidget>(button)->isEnabled(); }
    QString label(const char *name) const { return control<QLabel>(name)->text(); }
    grid::FlexGrid &page() const { return *control<grid::FlexGrid>("msSearchList"); }
    search::SearchFrame &frame() { return m_frame; }
    QString folder() const { return m_database.folder(); }

    /// Sets the controls of a Search or of a List browse.
    void choose(const search::SearchCriteria &criteria) const;
    void choose(const search::ListCriteria &criteria) const;
    /// Clicks with the mouse into a cell of the page on screen.
    void clickCell(int row, int column) const;
    /// The rows of a grid, "|" between the cells. A row that has the ticked picture ends in "*".
    QStringList rows(const char *grid = "msSearchList") const;

private:
    support::SampleDatabase m_database;
    QWidget m_window;
    search::SearchFrame m_frame;
};

/// A row as Tab::rows() gives it.
QString rowText(int number, const dictionary::Entry &entry, bool ticked);

/// The order of pages, from left to right: name, sex, origin, meaning.
bool isBefore(const dictionary::Entry &a, const dictionary::Entry &b);

/// Whether a browse finds an entry, by a plain filter.
bool finds(const search::SearchCriteria &criteria, const dictionary::Entry &entry, bool ticked);
bool finds(const search::ListCriteria &criteria, const dictionary::Entry &entry);

/// Small random dictionaries in which much is nearly alike, and criteria that find some of it.
class RandomWorld
{
public:
    explicit RandomWorld(unsigned seed) : m_random(seed) { }

    int below(int limit) { return int(m_random() % unsigned(limit)); }
    QString word(int longest);
    std::vector<dictionary::Entry> dictionary(int size);
    search::SearchCriteria searchCriteria();
    search::ListCriteria listCriteria();

private:
    std::mt19937 m_random;
};
