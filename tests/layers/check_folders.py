#!/usr/bin/env python3
"""Checks that the folders of dlglib/ stand on each other in one direction only.

    check_folders.py <root of the tree> [--draw]

A node is a folder; an installed header, which shows nothing of what is behind it, is a node of its own. Prints each circle
with the includes that close it, and each include that goes past an entrance; answers 1 when there is one.
--draw prints the arrows instead.
"""
import os
import re
import sys

# The installed headers.
INSTALLED = {
    "dlglib/dlglib.h",
    "dlglib/dlglib_c.h",
    "dlglib/dlglib_c_grid.h",
    "dlglib/dlglib_c_names.h",
    "dlglib/dlglib_c_types.h",
    "dlglib/kept_state.h",
    "dlglib/filsel/CvFilSelDlg.h",
    "dlglib/listcontrol/CvListControl.h",
    "dlglib/modes.h",
    "dlglib/utility/CvUtility.h",
    "dlglib/version.h",
}
# Whoever stands outside sees of these folders only their entrances: the installed headers and the browser.
ENTRANCES = INSTALLED | {"dlglib/filedialog/window/CvFileDialog.h"}
# A balloon may be shown by every window.
BALLOON = "dlglib/utility/toolbar/CvToolTip.h"
# The names of a request and its windows are the same for both ways in which a program asks.
REQUEST = {"dlglib/filsel/request_names.h", "dlglib/filsel/CvRequestWindows.h"}


def node(path):
    return path if path in INSTALLED else os.path.dirname(path)


def includes(root):
    """(file, included file) of everything in dlglib/."""
    for folder, _, names in os.walk(os.path.join(root, "dlglib")):
        for name in sorted(names):
            if not name.endswith((".h", ".cpp")):
                continue
            path = os.path.relpath(os.path.join(folder, name), root).replace(os.sep, "/")
            with open(os.path.join(folder, name), encoding="utf-8") as file:
                for included in re.findall(r'^#include "(dlglib/[^"]+)"', file.read(), re.M):
                    yield path, included


def arrows_of(found):
    arrows = {}
    for path, included in found:
        start, end = node(path), node(included)
        if start != end:
            arrows.setdefault(start, {}).setdefault(end, (path, included))
    return arrows


def find_circle(arrows):
    """The nodes of one circle, or an empty list."""
    done, way = set(), []

    def walk(at):
        if at in way:
            return way[way.index(at):]
        if at in done:
            return []
        way.append(at)
        for following in sorted(arrows.get(at, {})):
            circle = walk(following)
            if circle:
                return circle
        way.pop()
        done.add(at)
        return []

    for start in sorted(arrows):
        circle = walk(start)
        if circle:
            return circle
    return []


def is_below(path, folder):
    return path.startswith("dlglib/" + folder + "/")


def past_an_entrance(path, included):
    """Whether an include goes behind an entrance from outside. The C interface, like the exported classes, stands on all of it."""
    if path.startswith(("dlglib/dlglib_c", "dlglib/c_interface/")) or included in ENTRANCES:
        return False
    if is_below(included, "utility"):
        return not is_below(path, "utility") and included != BALLOON
    if is_below(path, "utility"):
        return included not in REQUEST and (is_below(included, "filedialog") or is_below(included, "filsel"))
    return is_below(included, "listcontrol") and not is_below(path, "listcontrol")


def main():
    found = list(includes(sys.argv[1]))
    if not found:
        print("no sources in " + sys.argv[1])
        return 2
    arrows = arrows_of(found)
    if "--draw" in sys.argv:
        for start in sorted(arrows):
            print(start + " -> " + ", ".join(sorted(arrows[start])))
        return 0
    breaches = [f"{path} includes {included}" for path, included in found if past_an_entrance(path, included)]
    circle = find_circle(arrows)
    for start, end in zip(circle, circle[1:] + circle[:1]):
        path, included = arrows[start][end]
        breaches.append(f"circle: {start} -> {end} ({path} includes {included})")
    for breach in breaches:
        print(breach)
    return 1 if breaches else 0


if __name__ == "__main__":
    sys.exit(main())
