#!/usr/bin/env python3
# SPDX-FileCopyrightText: The Velmora developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""descriptions_test.py PROJECT - the descriptions of an RPM and a Flatpak ask for what the build and the program ask for,
and name sources that can be checked. Ends with 77 where no YAML can be read."""

import re
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

try:
    import yaml
except ImportError:
    print("skipped: no python3-yaml")
    sys.exit(77)

PROJECT = Path(sys.argv.pop()).resolve()
APP = "org.velmora.Velmora"
MANIFEST = PROJECT / f"packaging/flatpak/{APP}.yaml"
SPEC = PROJECT / "packaging/rpm/velmora.spec"
# What the runtime of KDE has, by the names that the build asks for.
IN_RUNTIME = {"libcrypto"}


def build_files():
    return [PROJECT / "CMakeLists.txt", *(PROJECT / "src").glob("**/CMakeLists.txt")]


def libraries():
    """What the build asks pkg-config for: name and least version, or None."""
    asked = [match for file in build_files()
             for match in re.findall(r"IMPORTED_TARGET ([\w-]+)(?:>=([\d.]+))?\)", file.read_text(encoding="utf-8"))]
    return {name: least or None for name, least in asked} | {"libcrypto": None}  # that of OpenSSL


def qt_parts():
    parts = {"Core", "Gui"}
    for file in build_files():
        for words in re.findall(r"find_package\(Qt6 [\d.]+ REQUIRED COMPONENTS ([\w ]+)\)", file.read_text(encoding="utf-8")):
            parts |= set(words.split())
    return parts - {"GLOBAL", "Test"}


def number(version):
    return tuple(int(part) for part in version.split("."))


def filled(path, folder):
    """A description as a release has it."""
    text = path.read_text(encoding="utf-8")
    for word, value in (("VERSION", "1.2.3"), ("HOMEPAGE", "https://velmora.example"), ("MAINTAINER", "A <a@velmora.example>")):
        text = text.replace(f"@{word}@", value)
    (Path(folder) / path.name).write_text(text, encoding="utf-8")
    return str(Path(folder) / path.name)


class FlatpakTest(unittest.TestCase):
    def setUp(self):
        self.text = MANIFEST.read_text(encoding="utf-8")
        self.manifest = yaml.safe_load(self.text)

    def modules(self):
        return [module for module in self.manifest["modules"] if module["name"] != "velmora"]

    def test_it_is_the_application_that_the_desktop_knows(self):
        self.assertEqual(self.manifest["id"], APP)
        entry = (PROJECT / f"packaging/desktop/{APP}.desktop").read_text(encoding="utf-8")
        self.assertIn(f"Exec={self.manifest['command']} ", entry)
        self.assertIn(f"Icon={APP}\n", entry)
        self.assertIn(f"<id>{APP}</id>", (PROJECT / f"packaging/desktop/{APP}.metainfo.xml.in").read_text(encoding="utf-8"))

    def test_each_service_that_the_program_asks_can_be_asked(self):
        sources = "".join(file.read_text(encoding="utf-8") for file in (PROJECT / "src").glob("**/*.cpp"))
        asked = set(re.findall(r'(?:createMethodCall\(|return \{)\s*u"(org\.[\w.]+)"', sources))
        self.assertIn("org.freedesktop.UDisks2", asked)
        allowed = re.findall(r"--(?:system-)?talk-name=(\S+)", " ".join(self.manifest["finish-args"]))
        self.assertEqual(asked, set(allowed))
        self.assertEqual(len(allowed), len(set(allowed)))

    def test_nothing_else_is_asked_for_and_all_but_the_screen_has_its_reason(self):
        screen = {"--share=ipc", "--socket=wayland", "--socket=fallback-x11"}
        others = [line for line in self.manifest["finish-args"] if line not in screen and "talk-name=" not in line]
        self.assertEqual(others, ["--device=all"])
        previous = ""
        for line in self.text[self.text.index("finish-args:"):self.text.index("\ncleanup:")].splitlines():
            argument = line.strip().removeprefix("- ")
            if argument.startswith("--") and argument not in screen:
                self.assertRegex(previous, r"^\s*(#|- --(system-)?talk-name)", f"no reason for {argument}")
            previous = line

    def test_it_brings_what_the_runtime_lacks(self):
        versions = {}
        for module in self.modules():
            self.assertEqual(len(module["sources"]), 1, module["name"])
            versions[module["name"]] = re.search(r"v?(\d+(?:\.\d+)+)\.tar\.gz$", module["sources"][0]["url"])[1]
        needed = {re.sub(r"^lib(xxhash)$", r"\1", name.removesuffix("-1")): least
                  for name, least in libraries().items() if name not in IN_RUNTIME}
        self.assertEqual(set(versions), set(needed) | {"cli11"})
        for name, least in needed.items():
            if least:
                self.assertGreaterEqual(number(versions[name]), number(least), name)

    def test_each_source_can_be_checked(self):
        for module in self.modules():
            for source in module["sources"]:
                self.assertEqual(source["type"], "archive", module["name"])
                self.assertTrue(source["url"].startswith("https://"), source["url"])
                self.assertRegex(source["sha256"], r"^[0-9a-f]{64}$")

    def test_the_program_comes_from_the_release_without_its_tests(self):
        velmora = self.manifest["modules"][-1]
        self.assertEqual(velmora["name"], "velmora")
        self.assertEqual(velmora["sources"], [{"type": "archive", "path": "velmora-@VERSION@.tar.gz"}])
        self.assertIn("-DVELMORA_TESTS=OFF", velmora["config-opts"])

    @unittest.skipUnless(shutil.which("flatpak-builder"), "no flatpak-builder")
    def test_the_builder_understands_it(self):
        with tempfile.TemporaryDirectory() as folder:
            result = subprocess.run(["flatpak-builder", "--show-manifest", filled(MANIFEST, folder)], capture_output=True,
                                    text=True, check=False)
        self.assertEqual(result.returncode, 0, result.stderr)
        self.assertEqual(result.stderr, "")


class SpecTest(unittest.TestCase):
    def test_it_asks_for_what_the_build_asks_for(self):
        text = SPEC.read_text(encoding="utf-8")
        asked = {name: least or None
                 for name, least in re.findall(r"^BuildRequires: +pkgconfig\(([\w-]+)\)(?: >= ([\d.]+))?$", text, re.MULTILINE)}
        self.assertEqual(asked, libraries())
        self.assertEqual(set(re.findall(r"^BuildRequires: +cmake\(Qt6(\w+)\)", text, re.MULTILINE)), qt_parts())

    @unittest.skipUnless(shutil.which("rpmspec"), "no rpm")
    def test_it_can_be_read(self):
        with tempfile.TemporaryDirectory() as folder:
            result = subprocess.run(["rpmspec", "--query", "--queryformat", "%{name}\n", filled(SPEC, folder)],
                                    capture_output=True, text=True, check=False)
        self.assertEqual(sorted(result.stdout.split()), ["velmora", "velmora-cli", "velmora-nautilus"], result.stderr)

    @unittest.skipUnless(shutil.which("rpmlint"), "no rpmlint")
    def test_the_linter_finds_nothing_but_what_is_explained(self):
        with tempfile.TemporaryDirectory() as folder:
            result = subprocess.run(["rpmlint", filled(SPEC, folder)], capture_output=True, text=True, check=False,
                                    env={"PATH": "/usr/bin:/bin", "HOME": folder, "LC_ALL": "C.UTF-8"})
        found = set(re.findall(r"velmora\.spec:(?:\d+:)? [WE]: (\S+)", result.stdout))
        self.assertRegex(result.stdout, r"1 specfiles checked; 0 errors")
        self.assertLessEqual(found, {"no-buildroot-tag"})  # rpm chooses the folder itself since its version 4.6


if __name__ == "__main__":
    unittest.main()
