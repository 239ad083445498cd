#!/usr/bin/env python3
# SPDX-FileCopyrightText: The Velmora developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""file_managers_test.py PACKAGING - what file managers offer for folders and disc images starts the window on them, in
both languages, and Velmora doesn't offer itself as what opens a folder."""

import configparser
import importlib.util
import re
import sys
import types
import unittest
from pathlib import Path
from unittest import mock

PACKAGING = Path(sys.argv.pop()).resolve()
FOLDER = {"inode/directory"}
IMAGE = {"application/x-cd-image", "application/vnd.efi.iso", "application/x-iso9660-image"}


def entry(place):
    parser = configparser.RawConfigParser(delimiters=("==", "="))
    parser.optionxform = str
    parser.read(PACKAGING / place, encoding="utf-8")
    return parser


def types_of(section):
    return set(re.split(";", section.get("MimeType", section.get("MimeTypes", "")).strip(";")))


class EntriesTest(unittest.TestCase):
    def check(self, place, group, command, wanted_types, types_in=None):
        parser = entry(place)
        self.assertEqual(parser[group]["Exec"], command)
        self.assertEqual(types_of(parser[types_in or group]), wanted_types)
        named = parser[group] if "Name" in parser[group] else parser["Desktop Entry"]
        self.assertEqual((named["Name"], named["Name[fr]"]), ("Burn to a Disc", "Graver sur un disque"))

    def test_every_file_manager_burns_folders_and_images(self):
        for what, command, wanted in (("folder", "velmora %f", FOLDER), ("image", "velmora --burn-iso %f", IMAGE)):
            with self.subTest(what):
                self.check(f"file-managers/kio/org.velmora.burn-{what}.desktop", "Desktop Action burn", command, wanted,
                           "Desktop Entry")
                self.check(f"file-managers/thunar/org.velmora.burn-{what}.desktop", "Desktop Entry", command, wanted)
                self.check(f"file-managers/actions/org.velmora.burn-{what}.desktop", "X-Action-Profile one", command, wanted)
                nemo = entry(f"file-managers/nemo/org.velmora.burn-{what}.nemo_action")["Nemo Action"]
                self.assertEqual(nemo["Exec"], command.replace("%f", "%F"))
                self.assertEqual(nemo["Extensions"], {"folder": "dir;", "image": "iso;"}[what])

    def test_a_blank_disc_opens_the_window_without_a_folder(self):
        parser = entry("file-managers/solid/org.velmora.blank-disc.desktop")
        self.assertEqual(parser["Desktop Action burn"]["Exec"], "velmora")
        self.assertIn("isBlank == true", (PACKAGING / "file-managers/solid/org.velmora.blank-disc.desktop").read_text())

    def test_what_opens_an_image_has_the_name_of_a_program(self):
        for place in (PACKAGING / "desktop").glob("*.desktop"):
            named = entry(place)["Desktop Entry"]
            self.assertEqual((named["Name"], named.get("Name[fr]")), ("Velmora", None), f"to follow \"Open with\": {place.name}")

    def test_nobody_opens_a_folder_in_velmora_by_default(self):
        for place in (PACKAGING / "desktop").glob("*.desktop"):
            self.assertNotIn("inode/directory", types_of(entry(place)["Desktop Entry"]), place.name)
        self.assertNotIn("inode/directory", (PACKAGING / "desktop/org.velmora.Velmora.metainfo.xml.in").read_text())


class File:
    def __init__(self, path, kind):
        self.path, self.kind = path, kind

    def get_location(self):
        return self

    def get_path(self):
        return self.path

    def is_directory(self):
        return self.kind == "inode/directory"

    def get_mime_type(self):
        return self.kind


class Item:
    def __init__(self, **properties):
        self.properties = properties

    def connect(self, signal, handler, command):
        self.command = command


class NautilusTest(unittest.TestCase):
    def setUp(self):
        nautilus = types.SimpleNamespace(MenuItem=Item, MenuProvider=type("MenuProvider", (), {}))
        gobject = types.SimpleNamespace(GObject=type("GObject", (), {}))
        self.started = []
        flags = types.SimpleNamespace(NONE=0)
        gio = types.SimpleNamespace(SubprocessFlags=flags,
                                    Subprocess=types.SimpleNamespace(new=lambda command, _: self.started.append(command)))
        repository = types.SimpleNamespace(Gio=gio, GObject=gobject, Nautilus=nautilus)
        modules = {"gi": types.SimpleNamespace(repository=repository), "gi.repository": repository}
        spec = importlib.util.spec_from_file_location("velmora", PACKAGING / "file-managers/nautilus/velmora.py")
        self.module = importlib.util.module_from_spec(spec)
        with mock.patch.dict(sys.modules, modules):
            spec.loader.exec_module(self.module)

    def offered(self, *files):
        return [item.command for item in self.module.BurnWithVelmora().get_file_items(list(files))]

    def test_it_offers_folders_and_images_and_nothing_else(self):
        self.assertEqual(self.offered(File("/a b", "inode/directory")), [["velmora", "/a b"]])
        self.assertEqual(self.offered(File("/a.iso", "application/x-cd-image")), [["velmora", "--burn-iso", "/a.iso"]])
        self.assertEqual(self.offered(File("/a.txt", "text/plain")), [])
        self.assertEqual(self.offered(File(None, "inode/directory")), [])
        self.assertEqual(self.offered(File("/a", "inode/directory"), File("/b", "inode/directory")), [])

    def test_older_versions_hand_over_the_window_first(self):
        items = self.module.BurnWithVelmora().get_file_items(object(), [File("/a", "inode/directory")])
        self.module.burn(items[0], items[0].command)
        self.assertEqual(self.started, [["velmora", "/a"]])


if __name__ == "__main__":
    unittest.main()
