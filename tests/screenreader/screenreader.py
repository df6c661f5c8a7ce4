# SPDX-FileCopyrightText: 2026 The Tovarin developers
# SPDX-License-Identifier: MIT
"""screenreader.py PROGRAM SCREEN PICTURE: from the splash window to saved full names, by keyboard,
knowing only what a screen reader tells. When it fails, the file with the screen is kept as a
picture."""

import sys

import pyatspi

import picture
from checks import (check, message_is_read, page_is_read, parts_are_named, tab_goes_round,
                    tab_goes_through_page)
from reader import PATIENCE, Reader, cell, dump, has, on_screen, text_of

TABS = ["Things to Consider", "Popular", "Search", "Worksheet", "Help", "About"]
NAME, SEX = 2, 3  # columns of the names found
PAGE_BUTTONS = ["First page", "Previous page", "Next page", "Last page"]


def enabled_page_buttons(reader):
    return [name for name in PAGE_BUTTONS
            if has(reader.find("push button", name), pyatspi.STATE_SENSITIVE)]


def current_tabs(reader):
    """What is told as the current tab: in this toolkit, the one that would have the focus."""
    strip = reader.find("page tab list")
    return [tab.name for tab in strip if has(tab, pyatspi.STATE_FOCUSED)]


def go_to_tab(reader, name, key="ctrl+Tab"):
    reader.press(key)
    reader.wait(f"the tab {name}", lambda: current_tabs(reader) == [name])


def pass_splash(reader):
    reader.expect("frame", "Tovarin Names Dictionary")
    reader.expect_focus("push button", "OK")
    parts_are_named(reader)
    for role, name in (("push button", "Exit"), ("link", "(Terms and Conditions Apply)")):
        reader.press("Tab")
        reader.expect_focus(role, name)
    terms_are_read(reader)
    reader.press("Tab")
    reader.expect_focus("push button", "OK")
    reader.press("Return")
    reader.expect_focus("page tab list", TABS[0])
    print("the splash window and the terms are read")


def terms_are_read(reader):
    """The focus is on the link to them, and is there again afterwards."""
    reader.press("Return")
    reader.expect_focus("document web", "Terms and Conditions")
    page_is_read(reader, "Terms", "Terms and Conditions")
    parts_are_named(reader)
    reader.press("Escape")
    reader.expect_focus("link", "(Terms and Conditions Apply)")


def pages_are_read(reader):
    """Round the strip of tabs, with the ways of Tab on the pages that have links."""
    for name, heading in zip(TABS, (TABS[0], "Popular Names", None, None, "Help", "About Tovarin")):
        parts_are_named(reader)
        if heading:
            page = page_is_read(reader, heading, heading)
            if name != "About":
                tab_goes_through_page(reader, page)
        elif name == "Worksheet":
            reader.expect("label", "Here you rank the names")
        if name != "About":
            go_to_tab(reader, TABS[TABS.index(name) + 1])
    print("every page is in the tree, and Tab goes through it and out of it")


def pages_do_not_hold_the_focus(reader):
    """Ctrl+Tab leaves a page that has the focus, and the focus is then where it can be heard of."""
    tab_goes_round(reader)
    reader.press("Tab")
    reader.expect_focus("link", "(Terms and Conditions Apply)")
    terms_are_read(reader)
    go_to_tab(reader, TABS[0])
    reader.expect_focus("document web", TABS[0])
    go_to_tab(reader, "Popular")
    reader.expect_focus("document web", "Popular Names")
    go_to_tab(reader, "Search")
    reader.expect_focus("radio button", "By Name")
    go_to_tab(reader, "Worksheet")
    reader.expect_focus("page tab list", "Worksheet")
    go_to_tab(reader, "Search", "ctrl+shift+Tab")
    reader.expect_focus("page tab", "Search")
    print("Ctrl+Tab leaves every tab, and the focus is never lost")


def help_is_read(reader):
    reader.press("F1")
    window = reader.expect("frame", "Tovarin Help")
    page_is_read(reader, "Help", "Help")
    reader.expect_focus("document web")
    reader.press("Escape")
    reader.wait("the end of help", lambda: not has(window, pyatspi.STATE_SHOWING))
    reader.expect_focus("page tab list", "Search")
    print("help is read, and left again")


def count_of_names(reader):
    return next((int(part.name.split()[0]) for part in on_screen(reader.app)
                 if part.name.endswith(" record(s) found") and not part.name.startswith("0 ")), 0)


def list_names(reader):
    """The names by their first letter; the focus stays where it is all the time."""
    reader.press("Tab")
    by_name = reader.expect_focus("radio button", "By Name")
    check(has(by_name, pyatspi.STATE_CHECKED), "By Name is checked")
    reader.was_focused.clear()
    reader.press("alt+l")
    reader.wait("names", lambda: count_of_names(reader) > 100)
    reader.wait("the first page", lambda: reader.find("label", "Page 1 of"))
    reader.press("shift+Tab")
    reader.expect_focus("page tab list", "Search")
    cells = [name for role, name in reader.was_focused if role == "table cell"]
    check(not cells, f"the focus is said to be on {cells}")
    check(enabled_page_buttons(reader) == PAGE_BUTTONS[2:], "only the buttons ahead are enabled")
    print("names are listed, and the page buttons say which way there is to go")


def turn_pages(reader):
    """Tab reaches every control, whatever buttons are enabled."""
    stops = tab_goes_round(reader)
    check(("push button", "Next page") in stops and ("push button", "First page") not in stops,
          "Tab stops at the buttons that are enabled")
    for _ in range(3):
        reader.press("shift+Tab")
    reader.expect_focus("push button", "Next page")
    reader.press("space")
    reader.wait("the second page", lambda: reader.find("label", "Page 2 of"))
    reader.wait("all buttons", lambda: enabled_page_buttons(reader) == PAGE_BUTTONS)
    reader.press("Tab")
    reader.expect_focus("push button", "Last page")
    reader.press("space")
    reader.wait("the way back", lambda: enabled_page_buttons(reader) == PAGE_BUTTONS[:2])
    reader.expect_focus("table cell")
    print("Tab and Shift+Tab reach every control of the search; pages are turned")


def choose_girls(reader):
    """From the grid back to the radio buttons; the choice is told."""
    for role, name in (("push button", "Search"), ("check box", "Selected"),
                       ("radio button", "Search boys")):
        reader.press("shift+Tab")
        boys = reader.expect_focus(role, name)
    check(has(boys, pyatspi.STATE_CHECKED), "Search boys is checked")
    reader.press("Right")
    girls = reader.expect_focus("radio button", "Search girls")
    reader.wait("the check on Search girls", lambda: has(girls, pyatspi.STATE_CHECKED)
                and not has(boys, pyatspi.STATE_CHECKED))


def search(reader):
    choose_girls(reader)
    for role, name in (("text", "Meaning"), ("combo box", "Origin"),
                       ("combo box", "How the name is compared")):
        reader.press("shift+Tab")
        reader.expect_focus(role, name)
    reader.press("S")
    reader.wait("the choice", lambda: reader.focus.name == "Starts With")
    reader.press("shift+Tab")
    reader.expect_focus("text", "Name")
    reader.type("el")
    reader.wait("the text", lambda: text_of(reader.focus) == "el")
    before = count_of_names(reader)
    reader.changes.clear()
    reader.press("Return")
    count = reader.wait("another count", lambda: count_of_names(reader) not in (0, before)
                        and count_of_names(reader))
    check(("label", f"{count} record(s) found") in reader.changes, "the count is told")
    return count


def names_are_read(reader, count):
    grid = reader.expect("table", "Names found")
    table = grid.queryTable()
    check(table.nRows == min(count, 100), f"{table.nRows} rows of {count} names")
    titles = [table.getColumnHeader(column).name.strip() for column in range(table.nColumns)]
    check(titles[NAME:] == ["Name", "Boy/Girl", "Origin", "Meaning", "Select"], f"titles {titles}")
    names = [cell(grid, row, NAME).name for row in range(table.nRows)]
    check(all(name.lower().startswith(("el", "él")) for name in names), f"names {names}")
    sexes = {cell(grid, row, SEX).name for row in range(table.nRows)}
    check(sexes == {"G"}, f"a search for girls finds {sexes}")
    print("a search is made; its", count, "names are read")
    return names


def tick_names(reader, names):
    """From cell to cell; answers the ticked names."""
    for role, name in (("combo box", "How the name is compared"), ("combo box", "Origin"),
                       ("text", "Meaning"), ("radio button", "Search girls"),
                       ("check box", "Selected"), ("push button", "Search"),
                       ("table cell", names[0])):
        reader.press("Tab")
        reader.expect_focus(role, name)
    ticked = []
    for row in (0, 2, 5):
        while row_of_focus(reader) < row:
            step_down(reader, names)
        tick(reader, len(ticked) + 1)
        ticked.append(names[row])
        back_to_name(reader, names[row])
    print("three are ticked:", *ticked)
    return ticked


def row_of_focus(reader):
    grid = reader.focus.parent
    return grid.queryTable().getRowAtIndex(reader.focus.getIndexInParent())


def step_down(reader, names):
    row = row_of_focus(reader)
    reader.press("Down")
    reader.wait("the next row", lambda: row_of_focus(reader) == row + 1)
    check(reader.focus.name == names[row + 1], f"row {row + 1} is {names[row + 1]}")


def tick(reader, count):
    reader.changes.clear()
    reader.press("Insert")
    reader.wait("word of the tick", lambda: ("table cell", "ticked") in reader.changes)
    reader.wait("the count of ticks", lambda: ("label", str(count)) in reader.changes)
    reader.expect_focus("table cell", "ticked")


def back_to_name(reader, name):
    reader.press("Home")
    reader.wait("the row's number", lambda: reader.focus.name.isdigit())
    reader.press("Right")
    reader.expect_focus("table cell", name)


def names_in(grid):
    return [cell(grid, row, 1).name for row in range(grid.queryTable().nRows)]


def save(reader, names):
    reader.press("alt+v")
    message_is_read(reader, "Tovarin", "Record selected saved!", "OK")
    reader.press("Return")
    grid = reader.expect("table", "Your shortlist")
    reader.wait("the shortlist", lambda: sorted(names_in(grid)) == sorted(names))
    reader.expect_focus("table cell", "--")
    check(current_tabs(reader) == ["Worksheet"], "the Worksheet tab is the current one")
    parts_are_named(reader)
    print("the shortlist is saved and arrives at the Worksheet tab")


def ranking_goes_round(reader):
    for role, name in (("list", "Free ranks"), ("push button", "Print preview of the ranking"),
                       ("push button", "Save the ranking"),
                       ("push button", "Next, to the full names"), ("page tab list", "Worksheet")):
        reader.press("Tab")
        reader.expect_focus(role, name)
    tab_goes_round(reader)
    for role, name in (("table", "Your ranking"), ("table cell", "--")):
        reader.press("Tab")
        reader.expect_focus(role, name)


def rank(reader):
    """Gives the first name of the shortlist a rank; answers the name."""
    shortlist = reader.expect("table", "Your shortlist")
    name = cell(shortlist, 0, 1).name
    ranking_goes_round(reader)
    reader.press("F2")
    reader.expect_focus("list", "Top 10")
    reader.press("Down", "Home")
    reader.expect_focus("list item", "01")
    reader.press("Return")
    reader.expect_focus("table cell", "01")
    reader.press("alt+s")
    message_is_read(reader, "Tovarin", "Top 10 record saved!", "OK")
    reader.press("Return")
    print("Tab reaches every control of the ranking;", name, "is ranked, and that is saved")
    return name


def compose(reader, name):
    grid = reader.expect("table", "Full names and their initials")
    reader.wait("the ranked name", lambda: cell(grid, 0, 2).name == name)
    parts_are_named(reader)
    reader.expect_focus("table cell")
    reader.type("Rose")
    reader.expect_focus("text", "Middle")
    reader.wait("the text", lambda: text_of(reader.focus) == "Rose")
    reader.press("Return")
    reader.expect_focus("table cell", "Rose")
    reader.wait("the initials", lambda: cell(grid, 0, 6).name == name[0] + "R")
    reader.press("alt+s")
    message_is_read(reader, "Tovarin", "Record saved!", "OK")
    reader.press("Return")
    reader.expect_focus("table cell", "Rose")
    for control in ("Print preview of the full names", "Back, to the ranking",
                    "Save the full names"):
        reader.press("Tab")
        reader.expect_focus("push button", control)
    reader.press("Tab")
    tab_goes_round(reader)
    print("Tab reaches every control of the full names; one is composed and saved")


def report_is_read(reader, name):
    reader.press("alt+p")
    title = "Tovarin Full Name and Initial Report"
    window = reader.expect("frame", title)
    reader.expect_focus("document web")
    page_is_read(reader, title, "Your Tovarin Full Name and Initials")
    for text in (name, "Rose"):
        reader.expect("label", text, window)
    reader.expect("push button", "Print", window)
    reader.press("Escape")
    reader.wait("the end of the report", lambda: not has(window, pyatspi.STATE_SHOWING))
    reader.expect_focus("page tab list", "Worksheet")
    print("the report is read")


def leave(reader):
    """Asks first; No is the default, and the focus is then where it was."""
    for answer in ("Return", "alt+y"):
        reader.press("alt+F4")
        message_is_read(reader, "Tovarin Names Dictionary", "Are you sure you want to exit?", "No")
        reader.expect("push button", "Yes")
        reader.press(answer)
        if answer == "Return":
            reader.expect_focus("page tab list", "Worksheet")
    check(reader.process.wait(PATIENCE) == 0, "the program ends well")
    print("leaving asks first")


def run(reader):
    pass_splash(reader)
    pages_are_read(reader)
    pages_do_not_hold_the_focus(reader)
    help_is_read(reader)
    list_names(reader)
    turn_pages(reader)
    names = names_are_read(reader, search(reader))
    ticked = tick_names(reader, names)
    save(reader, ticked)
    name = rank(reader)
    compose(reader, name)
    report_is_read(reader, name)
    leave(reader)


def main():
    program, screen, failure = sys.argv[1:]
    sys.stdout.reconfigure(line_buffering=True)
    reader = Reader(program)
    try:
        run(reader)
    except Exception as fault:
        print("FAILED:", fault)
        picture.keep(screen, failure)
        dump(reader.app)
        raise
    finally:
        reader.process.kill()
        reader.process.wait()


main()
