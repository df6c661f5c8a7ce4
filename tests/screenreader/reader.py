# SPDX-FileCopyrightText: 2026 The Tovarin developers
# SPDX-License-Identifier: MIT
"""What a screen reader knows of a program: the accessibility tree and its events, nothing else."""

import subprocess
import time

import pyatspi
from gi.repository import GLib

PATIENCE = 25  # seconds until something has to be there
CALM = 0.1     # seconds without an event after which no further one is on its way


class NotThere(Exception):
    """What was waited for did not come."""


class Reader:
    """Follows one program, from its start to its end."""

    def __init__(self, program):
        self.focus = None
        self.was_focused = []  # (role, name) of all that had the focus
        self.changes = []      # (role, name) of all whose name or text has changed
        for event in ("object:state-changed:focused", "object:property-change:accessible-name",
                      "object:text-changed"):
            pyatspi.Registry.registerEventListener(self._hear, event)
        self.process = subprocess.Popen([program])
        self.app = self.wait("the program", self._find_app)

    def _find_app(self):
        for app in pyatspi.Registry.getDesktop(0):
            if app and app.get_process_id() == self.process.pid:
                return app
        return None

    def _hear(self, event):
        try:
            what = (role_of(event.source), event.source.name)
        except GLib.Error:
            return  # it has gone already
        if not event.type.startswith("object:state-changed:focused"):
            self.changes.append(what)
        elif event.detail1:
            self.focus = event.source
            self.was_focused.append(what)

    def wait(self, what, condition):
        """The first true value of a condition, while events are heard."""
        end = time.monotonic() + PATIENCE
        while time.monotonic() < end:
            while GLib.MainContext.default().iteration(False):
                pass
            try:
                value = condition()
                if value:
                    return value
            except (GLib.Error, LookupError, NotImplementedError, AttributeError):
                pass  # what was looked at has gone meanwhile
            time.sleep(0.01)
        raise NotThere(f"{what} does not come; the focus is on {describe(self.focus)}")

    def let_settle(self):
        """Hears until nothing has had the focus for a moment."""
        heard, since = len(self.was_focused), time.monotonic()

        def is_calm():
            nonlocal heard, since
            if len(self.was_focused) > heard:
                heard, since = len(self.was_focused), time.monotonic()
            return time.monotonic() - since > CALM
        self.wait("a moment without a change of the focus", is_calm)

    def find(self, role, name=None, root=None):
        """The first part of that role on the screen, of that name or one that begins with it."""
        def fits(part):
            return role_of(part) == role and (name is None or part.name.startswith(name))
        return next((part for part in on_screen(root or self.app) if fits(part)), None)

    def expect(self, role, name=None, root=None):
        return self.wait(f"the {role} “{name}”", lambda: self.find(role, name, root))

    def expect_focus(self, role, name=None):
        """Waits until the focus is on a part of that role and name."""
        def has_come():
            focus = self.focus
            return (focus is not None and role_of(focus) == role
                    and (name is None or name_of(focus).startswith(name)))
        self.wait(f"the focus on the {role} “{name}”", has_come)
        return self.focus

    def press(self, *keys):
        for key in keys:
            subprocess.run(["xdotool", "key", "--delay", "20", key], check=True)

    def type(self, text):
        subprocess.run(["xdotool", "type", "--delay", "20", text], check=True)


def parts(root, is_wanted):
    """A part and what it holds, but of a table within it only the headings of a grid: tables have
    ways of their own to their cells, and may have very many."""
    yield root
    for index in range(root.childCount):
        child = root[index]
        if child is None or not is_wanted(child):
            continue
        if role_of(child) != "table":
            yield from parts(child, is_wanted)
            continue
        yield child
        if has(child, pyatspi.STATE_FOCUSABLE):
            # They come first, after the corner; without rows the table itself does not give them.
            yield from (child[1 + column] for column in range(child.queryTable().nColumns))


def on_screen(root):
    return parts(root, lambda part: has(part, pyatspi.STATE_SHOWING)
                 or role_of(part) == "application")


def whole(page):
    """All of a page, also what would have to be scrolled to."""
    return parts(page, lambda part: True)


def role_of(part):
    """What a part is. Later versions of the library call a push button a button."""
    role = part.getRoleName()
    return "push button" if role == "button" else role


def has(part, state):
    return part.getState().contains(state)


def label_of(part):
    """The part that is the label of this one, if any."""
    for relation in part.getRelationSet():
        if relation.getRelationType() == pyatspi.RELATION_LABELLED_BY:
            return relation.getTarget(0)
    return None


def name_of(part):
    """What is read out as a part's name: that of its label, if it has one."""
    label = label_of(part)
    return label.name if label else part.name


def text_of(part):
    return part.queryText().getText(0, -1)


def cell(grid, row, column):
    return grid.queryTable().getAccessibleAt(row, column)


def describe(part):
    try:
        return "nothing" if part is None else f"the {role_of(part)} “{name_of(part)}”"
    except GLib.Error:
        return "something that has gone"


def dump(part, depth=0):
    """The tree as it is on the screen, for a test that fails."""
    try:
        states = [pyatspi.stateToString(state) for state in part.getState().getStates()
                  if state in (pyatspi.STATE_FOCUSED, pyatspi.STATE_CHECKED, pyatspi.STATE_ENABLED)]
        print("  " * depth + describe(part), *states)
        is_table = role_of(part) == "table"
        for child in () if is_table else [part[i] for i in range(part.childCount)]:
            if depth == 0 or (child is not None and has(child, pyatspi.STATE_SHOWING)):
                dump(child, depth + 1)
    except (GLib.Error, AttributeError):
        print("  " * depth + "something that has gone")
