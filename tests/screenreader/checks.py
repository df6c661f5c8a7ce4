# SPDX-FileCopyrightText: 2026 The Tovarin developers
# SPDX-License-Identifier: MIT
"""What has to be so on every window and tab: names and roles, and the ways of the Tab key."""

import pyatspi

from reader import has, label_of, name_of, on_screen, role_of, whole

# What the focus can be on, but for the parts that only hand it on.
CONTROLS = {"push button", "radio button", "check box", "combo box", "text", "table", "list",
            "list item", "table cell", "page tab list", "page tab", "document web", "link"}


def check(is_true, what):
    if not is_true:
        raise AssertionError(what)


def parts_are_named(reader):
    """Everything that can have the focus says what it is, and so does every column."""
    reader.wait("a tree that stands still", lambda: look_at_parts(reader))


def look_at_parts(reader):
    for part in on_screen(reader.app):
        if role_of(part) == "application":
            continue
        role, place = role_of(part), f"in the {role_of(part.parent)} “{part.parent.name}”"
        if role == "table column header":
            check(part.name.strip(), f"a column without a heading {place}")
        if role == "frame":
            check(role_of(part.parent) == "application", f"a window {place}: “{part.name}”")
        if not has(part, pyatspi.STATE_FOCUSABLE) or is_in_message(part):
            continue
        check(name_of(part).strip() or is_cell(part), f"a {role} without a name {place}")
        check(role in CONTROLS or role == "filler", f"the focus can be on the {role} “{part.name}”")
        if role == "combo box" or (role == "text" and role_of(part.parent) != "combo box"):
            check(label_of(part), f"the {role} “{part.name}” has no label")
    return True


def is_in_message(part):
    return role_of(part.parent) == "alert"


def is_cell(part):
    """An empty cell has nothing to say."""
    return role_of(part) == "table cell"


def stop_of(part):
    """Where Tab is when a part has the focus: in a grid or list as a whole, not on a row of it."""
    role = role_of(part)
    if role in ("table cell", "list item", "page tab"):
        part = part.parent
    return role_of(part), name_of(part)


def stops_in_tree(reader):
    """What Tab has to reach, by the tree: of radio buttons the one that is checked."""
    stops = set()
    for part in on_screen(reader.app):
        role = role_of(part)
        is_inside = role in ("table cell", "list item", "page tab") or (
            role == "text" and role_of(part.parent) == "combo box")
        is_unchecked = role == "radio button" and not has(part, pyatspi.STATE_CHECKED)
        if (role in CONTROLS and has(part, pyatspi.STATE_FOCUSABLE)
                and has(part, pyatspi.STATE_SENSITIVE) and not is_inside and not is_unchecked):
            stops.add((role, name_of(part)))
    return stops


def way_round(reader, key):
    """The stops from the strip of tabs once round, back to it."""
    reader.wait("the strip of tabs", lambda: stop_of(reader.focus)[0] == "page tab list")
    here = strip = stop_of(reader.focus)
    stops = []
    while True:
        reader.press(key)
        last = here
        here = reader.wait(f"what {key} leads to from {last}",
                           lambda: stop_of(reader.focus) != last and stop_of(reader.focus))
        if here == strip:
            return stops
        check(here not in stops, f"{key} leads back to {here} from {last}")
        stops.append(here)


def tab_goes_round(reader):
    """Tab reaches each control, goes on to the strip of tabs, and Shift+Tab is the way back."""
    expected = reader.wait("the stops in the tree", lambda: stops_in_tree(reader))
    there = way_round(reader, "Tab")
    missed = expected - set(there) - {stop for stop in expected if stop[0] == "page tab list"}
    check(not missed, f"Tab does not reach {missed}")
    check(not set(there) - expected, f"Tab reaches {set(there) - expected}, not in the tree")
    back = way_round(reader, "shift+Tab")
    check(back == there[::-1], f"Tab: {there}; Shift+Tab: {back}")
    return there


def tab_goes_through_page(reader, page):
    """Tab reaches each link of a page, and leaves it at its end; Shift+Tab at its beginning."""
    links = reader.wait("the links", lambda: {
        part.name for part in whole(page) if role_of(part) == "link"})
    for key in ("Tab", "shift+Tab"):
        reader.was_focused.clear()
        is_inside = False
        for _ in range(len(links) + 4):
            heard = len(reader.was_focused)
            reader.press(key)
            reader.wait(f"what {key} leads to", lambda: len(reader.was_focused) > heard)
            # The browser tells of the last of several moves only, so not before this one is over.
            reader.let_settle()
            is_outside = stop_of(reader.focus)[0] == "page tab list"
            if is_inside and is_outside:
                break
            is_inside = is_inside or not is_outside
        check(is_outside, f"{key} does not lead out of the page “{page.name}”")
        reached = {name for role, name in reader.was_focused if role == "link"}
        check(links <= reached, f"{key} does not reach the links {links - reached}")


def page_is_read(reader, title, heading):
    """The page in the tree, with its headings and its text; answers it."""
    def has_come():
        # Anew each time: while it is loaded, one document takes the place of another.
        page = reader.find("document web", title)
        headings = [part.name for part in whole(page) if role_of(part) == "heading"]
        texts = [part.name for part in whole(page) if role_of(part) == "label"]
        return heading in headings and max(map(len, texts), default=0) > len(heading) and page
    return reader.wait(f"“{title}” with the heading “{heading}” and its text", has_come)


def message_is_read(reader, title, text, button):
    """The message box that is there; its default button has the focus."""
    box = reader.expect("alert", title)
    reader.expect("label", text, box)
    reader.expect_focus("push button", button)
    check(has(reader.focus, pyatspi.STATE_IS_DEFAULT), f"{button} is not the default of “{text}”")
    parts_are_named(reader)
