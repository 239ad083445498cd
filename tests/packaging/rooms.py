#!/usr/bin/env python3
# SPDX-FileCopyrightText: The Velmora developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""Compares what each room includes with what its CMakeLists.txt links.

rooms.py SOURCES ROOMS

SOURCES is the folder of the sources, ROOMS the rooms.txt that CMake wrote. A room must link by itself every room
that it includes from, PUBLIC if a header does that other rooms reach and PRIVATE otherwise, and link no other room.
Prints each deviation, and fails if there is one.
"""

import collections
import os
import re
import sys

INCLUDE = re.compile(r'^#include "([^"]+)"', re.MULTILINE)
WIDGET_HEADER = re.compile(r"<header>([^<]+)</header>")

PUBLIC, PRIVATE = "PUBLIC", "PRIVATE"


class Room:
    """One target: where its files lie, and how it links others."""

    def __init__(self, line):
        self.name, self.folder, for_users, for_itself, sources = line.rstrip("\n").split("|")
        shown = for_users.split(";")
        self.links = {name: PUBLIC for name in shown if not name.startswith("$")}
        for name in for_itself.split(";"):
            self.links.setdefault(name, PRIVATE)
        self.sources = {os.path.join(self.folder, source) for source in sources.split(";") if source}


def read_rooms(path):
    with open(path, encoding="utf-8") as file:
        return [Room(line) for line in file]


class House:
    """All rooms, and whose a file is."""

    def __init__(self, sources, rooms):
        self.roots = [sources, os.path.join(sources, "platform")]
        self.rooms = rooms
        self.owner_of_source = {source: room for room in rooms for source in room.sources}
        self.owner_of_folder = {room.folder: room for room in rooms}

    def owner(self, path):
        """The room of a file: the one that lists it, or for a header the one in whose folder it lies."""
        if path in self.owner_of_source:
            return self.owner_of_source[path]
        folder = os.path.dirname(path)
        while folder not in self.owner_of_folder and folder != "/":
            folder = os.path.dirname(folder)
        return self.owner_of_folder.get(folder)

    def find(self, header):
        """The file that an include names, or nothing for one that is generated."""
        found = [path for path in (os.path.join(root, header) for root in self.roots) if os.path.exists(path)]
        return found[0] if found else None


def files_below(folder):
    for path, _, names in sorted(os.walk(folder)):
        yield from (os.path.join(path, name) for name in sorted(names) if name.endswith((".h", ".cpp", ".ui")))


def included(path):
    with open(path, encoding="utf-8") as file:
        return (WIDGET_HEADER if path.endswith(".ui") else INCLUDE).findall(file.read())


def all_includes(house, faults):
    """For each file of a room the files of rooms that it includes."""
    includes = {}
    for path in files_below(house.roots[0]):
        if house.owner(path) is None:
            faults.append(f"{path} is of no room")
            continue
        includes[path] = []
        for header in included(path):
            found = house.find(header)
            if found is not None and house.owner(found) is not None:
                includes[path].append(found)
            elif found is None and not header.startswith("ui_"):
                faults.append(f"{path} includes {header}, which doesn't name its room")
    return includes


def reached_headers(house, includes):
    """The headers that a file of another room includes, by itself or through others."""
    reached = set()
    waiting = [header for path, headers in includes.items() for header in headers
               if house.owner(header) is not house.owner(path)]
    while waiting:
        header = waiting.pop()
        if header not in reached:
            reached.add(header)
            waiting += includes[header]
    return reached


def needed_links(house, faults):
    """For each room the rooms that it includes from: how it has to link them, and one file that shows why."""
    needed = collections.defaultdict(dict)
    includes = all_includes(house, faults)
    reached = reached_headers(house, includes)
    for path, headers in includes.items():
        room = house.owner(path)
        for other in sorted({house.owner(header).name for header in headers} - {room.name}):
            if needed[room.name].get(other, (PRIVATE,))[0] != PUBLIC:
                needed[room.name][other] = (PUBLIC if path in reached else PRIVATE, path)
    return needed


def compare(room, needed, rooms_by_name, faults):
    for other, (how, path) in sorted(needed.items()):
        link = room.links.get(other)
        if link is None:
            faults.append(f"{room.name} doesn't link {other}, which {path} includes")
        elif link != how:
            faults.append(f"{room.name} links {other} {link}, but {how} is right: see {path}")
    for other in sorted(room.links):
        if other in rooms_by_name and other not in needed:
            faults.append(f"{room.name} links {other} and includes nothing of it")


def main():
    sources, list_of_rooms = sys.argv[1:]
    rooms = read_rooms(list_of_rooms)
    house = House(os.path.abspath(sources), rooms)
    faults = []
    needed = needed_links(house, faults)
    by_name = {room.name: room for room in rooms}
    for room in rooms:
        compare(room, needed[room.name], by_name, faults)
    print("\n".join(faults) if faults else f"{len(rooms)} rooms link what they include")
    sys.exit(1 if faults or not rooms else 0)


if __name__ == "__main__":
    main()
