"""Walks the accessible tree of a running program through AT-SPI, as a screen reader does.

Fails (exit 1) on every control a person can focus that has no name or no role; a table's cells are
named by their text and may be blank, but the table itself must be named, and every cell must
give its row and column. Exit 2 when the program never shows up on the accessibility bus.
"""
import sys
import time

import pyatspi

NO_ROLE = {pyatspi.ROLE_INVALID, pyatspi.ROLE_UNKNOWN}
CELL_ROLES = {pyatspi.ROLE_TABLE_CELL}


def find_application(name, seconds=60):
    deadline = time.time() + seconds
    while time.time() < deadline:
        desktop = pyatspi.Registry.getDesktop(0)
        for app in desktop:
            if app is not None and name in (app.name or ""):
                # The window has to be there, not just the process.
                if app.childCount > 0:
                    return app
        time.sleep(0.5)
    return None


def is_named(accessible):
    if (accessible.name or "").strip():
        return True
    # Qt names a combo box on Linux by its text and its caption by a "labelled by" relation, as the
    # screen readers there expect.
    for relation in accessible.getRelationSet():
        if relation.getRelationType() == pyatspi.RELATION_LABELLED_BY and relation.getNTargets() > 0:
            return True
    return False


def describe(accessible):
    path = []
    node = accessible
    while node is not None and len(path) < 8:
        path.append("%s '%s'" % (node.getRoleName(), node.name or ""))
        node = node.parent
    return " < ".join(path)


def walk(accessible, problems, counts, depth=0):
    if accessible is None or depth > 60:
        return
    state = accessible.getState()
    role = accessible.getRole()
    if state.contains(pyatspi.STATE_SHOWING):
        counts["shown"] += 1
        # A control a person cannot reach (disabled) is announced when it can be.
        if state.contains(pyatspi.STATE_FOCUSABLE) and state.contains(pyatspi.STATE_SENSITIVE):
            counts["focusable"] += 1
            if role in NO_ROLE:
                problems.append("no role: " + describe(accessible))
            elif role in CELL_ROLES:
                counts["cells"] += 1
                table = accessible.parent
                if table is None or not (table.name or "").strip():
                    problems.append("a cell of an unnamed table: " + describe(accessible))
            elif not is_named(accessible):
                problems.append("no name: " + describe(accessible))
    # Only what is shown is walked: hidden pages are walked when their tab is shown.
    if not state.contains(pyatspi.STATE_SHOWING) and depth > 2:
        return
    for index in range(min(accessible.childCount, 400)):
        try:
            child = accessible.getChildAtIndex(index)
        except Exception:  # a child that went away while walking
            continue
        walk(child, problems, counts, depth + 1)


def page_tabs(accessible, found, depth=0):
    if accessible is None or depth > 40:
        return found
    if accessible.getRole() == pyatspi.ROLE_PAGE_TAB and accessible.getState().contains(pyatspi.STATE_SHOWING):
        found.append(accessible)
    for index in range(min(accessible.childCount, 400)):
        try:
            page_tabs(accessible.getChildAtIndex(index), found, depth + 1)
        except Exception:
            continue
    return found


def press(accessible):
    try:
        action = accessible.queryAction()
    except NotImplementedError:
        return False
    for index in range(action.nActions):
        if action.getName(index) in ("press", "click", "Press", "SetFocus", "setFocus"):
            return action.doAction(index)
    return action.nActions > 0 and action.doAction(0)


def main():
    name = sys.argv[1] if len(sys.argv) > 1 else "zrsim-editor"
    app = find_application(name)
    if app is None:
        print("%s never appeared on the accessibility bus" % name)
        return 2
    time.sleep(1)
    problems = []
    counts = {"shown": 0, "focusable": 0, "cells": 0}
    walk(app, problems, counts)
    # Every tab in turn, as a person would visit them with the screen reader: a tab that shows up on
    # a page (the Population page's inner tabs) is visited before the next outer tab hides it again.
    tabs = []
    pending = [tab.name for tab in page_tabs(app, [])]
    while pending:
        name = pending.pop(0)
        if name in tabs:
            continue
        for tab in page_tabs(app, []):
            if tab.name == name:
                press(tab)
                time.sleep(0.5)
                walk(app, problems, counts)
                break
        tabs.append(name)
        shown = [tab.name for tab in page_tabs(app, []) if tab.name not in tabs and tab.name not in pending]
        pending = shown + pending
    counts["tabs"] = len(tabs)
    print("walked %(tabs)d tabs: %(shown)d shown objects, %(focusable)d focusable, %(cells)d table cells" % counts)
    print("tabs: " + ", ".join(tabs))
    if counts["focusable"] == 0:
        print("nothing focusable was found: the tree was not walked")
        return 1
    for problem in problems:
        print(problem)
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
