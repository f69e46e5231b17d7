#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""Checks every #include and QML import against the table of rooms in cmake/Rooms.cmake.

A file belongs to the room with the longest matching folder. tests/ROOM counts as ROOM and may use ROOM/linux too,
bench/ counts as app.
`layers.py FOLDER` checks another tree than the one it lies in.
"""
import os
import re
import sys

INCLUDE = re.compile(r'^\s*#\s*include\s+"([^"]+)"')
IMPORT = re.compile(r"^\s*import\s+(?:\"([^\"]+)\"|([A-Z][\w.]*))")
URI = re.compile(r"(?:qt_add|quorvane)_qml_module\([^)]*?\bURI\s+([\w.]+)", re.S)
SKIPPED = ("build", ".git", "docs", "packaging")


class Rooms:
    def __init__(self, root):
        self.root = root
        with open(os.path.join(root, "cmake/Rooms.cmake"), encoding="utf-8") as file:
            table = re.search(r"set\(QUORVANE_ROOMS(.*?)\)", file.read(), re.S).group(1)
        self.allowed = {room: set(used.split()) for room, used in re.findall(r'"([^":]+):([^"]*)"', table)}
        self.modules = self._modules()

    def of(self, path):
        """The room of a file by its path from the root; None outside of the rooms."""
        if path.startswith("bench/"):
            return "app"
        parts = path.removeprefix("tests/").split("/")[:-1]
        while parts and "/".join(parts) not in self.allowed:
            parts.pop()
        return "/".join(parts) or None

    def forbids(self, user, used):
        """Why files of the room `user` may not use the room `used`; None where they may."""
        if user == used:
            return None
        if used.endswith("/linux") and user != "app":
            return f"only app/ may use {used}/"
        if used not in self.allowed[user]:
            return f"{user}/ may not use {used}/"
        return None

    def _modules(self):
        modules = {}
        for room in self.allowed:
            try:
                with open(os.path.join(self.root, room, "CMakeLists.txt"), encoding="utf-8") as file:
                    modules.update((uri, room) for uri in URI.findall(file.read()))
            except FileNotFoundError:
                continue
        return modules


def used_rooms(rooms, path, line):
    """The rooms that one line of a file uses, and what is wrong with how it says so."""
    if path.endswith(".qml"):
        found = IMPORT.match(line)
        if not found:
            return None, None
        folder, module = found.groups()
        if folder:
            target = os.path.normpath(os.path.join(os.path.dirname(path), folder))
            return rooms.of(target + "/x"), None
        return rooms.modules.get(module), None
    found = INCLUDE.match(line)
    if not found:
        return None, None
    included = found.group(1)
    if not os.path.exists(os.path.join(rooms.root, included)):
        beside = os.path.join(rooms.root, os.path.dirname(path), included)
        return None, f'"{included}" is not named by its full path' if os.path.exists(beside) else None
    if included.startswith("tests/") and not path.startswith(("tests/", "bench/")):
        return None, "only tests may use tests/"
    return (None if included.startswith("tests/support/") else rooms.of(included)), None


def faults(rooms, path):
    room = rooms.of(path)
    with open(os.path.join(rooms.root, path), encoding="utf-8") as file:
        for number, line in enumerate(file, 1):
            used, fault = used_rooms(rooms, path, line)
            if used and room and not (path.startswith("tests/") and used == f"{room}/linux"):
                fault = fault or rooms.forbids(room, used)
            if fault:
                yield f"{path}:{number}: {fault} (cmake/Rooms.cmake)"


def files(root):
    for folder, folders, names in os.walk(root):
        folders[:] = [name for name in folders if os.path.relpath(os.path.join(folder, name), root) not in SKIPPED]
        for name in names:
            if name.endswith((".h", ".cpp", ".qml")):
                yield os.path.relpath(os.path.join(folder, name), root)


def main():
    root = sys.argv[1] if len(sys.argv) > 1 else os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
    rooms = Rooms(root)
    checked = sorted(files(root))
    found = [fault for path in checked for fault in faults(rooms, path)]
    print("\n".join(found) or f"{len(checked)} files keep to the rooms")
    return 1 if found or not checked else 0


if __name__ == "__main__":
    sys.exit(main())
