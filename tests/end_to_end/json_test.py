#!/usr/bin/env python3
# SPDX-FileCopyrightText: The Velmora developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""What velmora-cli --json writes, validated against docs/json.schema.json, and what --quiet prints. See disc_trial.py."""

import copy
import functools
import json
import os
import re
import signal
import subprocess
import sys
import time

sys.dont_write_bytecode = True

try:
    import jsonschema
except ImportError:
    print("skipped: jsonschema isn't installed (python3-jsonschema)")
    sys.exit(77)

import disc_drives
from disc_trial import DONE, FAILED, INCOMPLETE, MIB, NO_DISC, STOPPED, WRONG_USAGE, DiscTest, main

PROJECT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))


@functools.cache
def validator():
    with open(os.path.join(PROJECT, "docs", "json.schema.json"), encoding="utf-8") as file:
        schema = json.load(file)
    jsonschema.Draft202012Validator.check_schema(schema)
    return jsonschema.Draft202012Validator(schema)


class JsonTest(DiscTest):
    def make_drive(self):
        return disc_drives.VirtualDrive(self.scratch, self.tray)

    def objects_in(self, output, code):
        """The objects of a run, each valid by the schema; only the last one is the result."""
        self.assertTrue(output.endswith("\n"))
        objects = [json.loads(line) for line in output.splitlines()]
        for told in objects:
            error = jsonschema.exceptions.best_match(validator().iter_errors(told))
            self.assertIsNone(error, f"{error and error.message} in {told}")
        self.assertEqual(["result"], [told["type"] for told in objects if told["type"] == "result"])
        self.assertEqual("result", objects[-1]["type"])
        self.assertEqual(code, objects[-1]["exitCode"])
        return objects

    def tell(self, code, *arguments):
        result = subprocess.run([self.cli, *arguments, "--json"], env=self.environment, stdin=subprocess.DEVNULL,
                                capture_output=True, timeout=110, encoding="utf-8")
        self.assertEqual(code, result.returncode, result.stdout + result.stderr)
        self.assertEqual("", result.stderr)
        return self.objects_in(result.stdout, code)

    def phases(self, objects):
        return [told["phase"] for told in objects if told["type"] == "phase"]

    def of_type(self, objects, wanted):
        return [told for told in objects if told["type"] == wanted]

    def remarks(self, objects, kind):
        return [told for told in objects if told["type"] == "remark" and told["kind"] == kind]

    def report(self, objects):
        self.assertEqual(1, len(objects[-1]["reports"]), objects[-1])
        return objects[-1]["reports"][0]

    # What goes well

    def test_an_image(self):
        folder, image = self.folder(3), self.path("photos.iso")
        objects = self.tell(DONE, "image", folder, "-o", image)
        self.assertEqual(["readingFolder", "planningImage", "writingImage"], self.phases(objects))
        report = self.report(objects)
        self.assertEqual((image, os.path.getsize(image), 2, 1),
                         tuple(report[name] for name in ("place", "writtenBytes", "files", "directories")))
        self.assertEqual(["ISO 9660", "Joliet", "UDF"], report["fileSystems"])

    def test_a_burn(self):
        self.folder(20)
        self.drive.insert("dvd+r")
        objects = self.tell(DONE, "burn", self.path("photos"), "--yes")
        phases = self.phases(objects)
        self.assertEqual(["readingFolder", "working"], phases[:2])
        self.assertLess(phases.index("writing"), phases.index("comparing"))
        report = self.report(objects)
        self.assertEqual(("done", "none", "disc"), (report["ending"], report["refusal"], report["target"]))
        self.assertEqual("same", report["comparison"]["end"])
        self.assertEqual(64, len(report["comparison"]["sha256"]))
        self.assertGreater(report["writtenBytes"], 20 * MIB)
        for told in self.of_type(objects, "progress"):
            if told["phase"] in ("writing", "comparing"):
                self.assertLessEqual(told["done"], told["total"])

    def test_a_burn_tells_of_itself_a_few_times_a_second(self):
        self.folder(20)
        self.drive.insert("dvd+r")
        self.drive.take_time(prepare=1.5)
        begun = time.monotonic()
        objects = self.tell(DONE, "burn", self.path("photos"), "--yes")
        seconds = time.monotonic() - begun
        told = self.of_type(objects, "progress")
        self.assertLess(len(told), 4 * seconds + len(self.phases(objects)))
        self.assertIn("writing", {one["phase"] for one in told})

    def test_an_image_is_burned_and_a_disc_is_erased(self):
        self.tell(DONE, "image", self.folder(2), "-o", self.path("photos.iso"))
        self.drive.insert("dvd+rw")
        objects = self.tell(DONE, "burn-iso", self.path("photos.iso"), "--yes")
        self.assertEqual("same", self.report(objects)["comparison"]["end"])
        self.drive.tray("close")
        objects = self.tell(DONE, "erase", "--yes")
        self.assertEqual("erasing", self.phases(objects)[0])
        self.assertEqual(("done", "erased"), tuple(self.report(objects)[name] for name in ("ending", "eraseExtent")))

    def test_each_copy_has_its_report(self):
        self.folder()
        self.drive.insert("dvd+r")
        objects = self.tell(FAILED, "burn", self.path("photos"), "--yes", "--copies", "2")
        self.assertEqual("failed", objects[-1]["ending"], "no second disc lies in the drive")
        self.assertEqual("done", self.report(objects)["ending"])

    def test_a_check_of_a_good_disc_and_of_a_hurt_one(self):
        self.folder(2)
        self.drive.insert("dvd+r")
        self.tell(DONE, "burn", self.path("photos"), "--yes", "--sums")
        self.drive.tray("close")
        objects = self.tell(DONE, "check")
        self.assertEqual(["checking"], self.phases(objects))
        self.assertEqual(("good", 2), (self.report(objects)["verdict"], self.report(objects)["goodFiles"]))
        with open(self.path("photos", "readme.txt"), "w", encoding="utf-8") as file:
            file.write("another content")
        objects = self.tell(FAILED, "check", "--with", self.path("photos"))
        self.assertEqual("failed", objects[-1]["ending"])
        self.assertEqual("hurt", self.report(objects)["verdict"])
        self.assertEqual([{"path": "readme.txt", "state": "different"}], self.report(objects)["hurtFiles"])
        self.assertEqual(["readme.txt"], [told["path"] for told in self.remarks(objects, "hurtFile")])

    # Remarks

    def awkward(self):
        """A folder that a disc can't hold unchanged."""
        folder = self.folder()
        for name in ("what?", "sub/why*.txt", "sub/TWIN", "sub/twin"):
            with open(os.path.join(folder, name), "w", encoding="utf-8"):
                pass
        with open(os.path.join(os.fsencode(folder), b"caf\xe9"), "wb"):
            pass
        os.mkfifo(os.path.join(os.fsencode(folder), b"sub/tube\xff"))
        os.symlink("/etc/hosts", os.path.join(folder, "out"))
        return folder

    def expect_remarks(self, objects):
        lists = {"changedName": "changedNames", "nameHazard": "nameHazards", "linkLeadingOut": "linksLeadingOut",
                 "leftOut": "leftOut", "partlyHeld": "partlyHeld"}
        for kind, name in lists.items():
            told = [{key: value for key, value in remark.items() if key not in ("type", "version", "kind")}
                    for remark in self.remarks(objects, kind)]
            self.assertGreater(len(told), 0, kind)
            self.assertEqual(told, self.report(objects)[name])
        [left_out] = self.remarks(objects, "leftOut")
        self.assertEqual(self.path("photos", "sub").encode() + b"/tube\xff", bytes.fromhex(left_out["pathBytes"]))
        self.assertTrue(left_out["path"].endswith("/sub/tube\ufffd"))
        [link] = self.remarks(objects, "linkLeadingOut")
        self.assertEqual(("out", "/etc/hosts"), (link["path"], link["target"]))
        self.assertIn(("what?", "what_", "Joliet"), {(told["path"], told["recorded"], told["fileSystem"])
                                                     for told in self.remarks(objects, "changedName")})

    def test_each_remark_is_told_and_in_the_report(self):
        self.awkward()
        self.expect_remarks(self.tell(INCOMPLETE, "image", self.path("photos"), "-o", self.path("photos.iso")))
        self.drive.insert("dvd+r")
        self.expect_remarks(self.tell(INCOMPLETE, "burn", self.path("photos"), "--yes"))

    # What goes wrong

    def test_a_mistake_in_the_command_line(self):
        objects = self.tell(WRONG_USAGE, "burn", self.path("photos"), "--yes", "--speed", "fast")
        self.assertEqual(["error", "result"], [told["type"] for told in objects])
        self.assertEqual(("refused", []), (objects[-1]["ending"], objects[-1]["reports"]))

    def test_no_question_is_asked(self):
        self.folder()
        self.drive.insert("dvd+r")
        for arguments in (("burn", self.path("photos")), ("burn-iso", "a.iso"), ("erase",)):
            objects = self.tell(WRONG_USAGE, *arguments)
            self.assertIn("--yes", objects[0]["text"])
        self.assertEqual([], self.drive.description()["disc"]["sessions"])

    def test_an_empty_drive_and_none(self):
        self.folder()
        objects = self.tell(NO_DISC, "burn", self.path("photos"), "--yes")
        self.assertEqual(["error"], [told["type"] for told in objects if told["type"] == "error"])
        self.tell(NO_DISC, "check")
        objects = self.tell(FAILED, "erase", "--yes", "--recorder", "7")
        self.assertEqual("failed", objects[-1]["ending"])

    def test_a_disc_that_is_refused(self):
        self.folder()
        self.drive.insert("cd-r")
        objects = self.tell(FAILED, "burn", self.path("photos"), "--yes", "--medium", "dvd")
        self.assertEqual("refused", objects[-1]["ending"])
        self.assertEqual("otherDisc", self.report(objects)["refusal"])
        [refused] = self.remarks(objects, "refusedDisc")
        self.assertIn("CD-R", refused["text"])

    def test_a_folder_that_is_too_large(self):
        os.truncate(os.path.join(self.folder(), "sub", "large.bin"), 900 * MIB)
        self.drive.insert("cd-r")
        objects = self.tell(FAILED, "burn", self.path("photos"), "--yes")
        self.assertEqual(1, len(self.remarks(objects, "message")))

    def test_a_write_that_fails(self):
        self.folder(3)
        self.drive.insert("dvd+r")
        self.drive.tray("fault", "medium", "--at", "500")
        objects = self.tell(FAILED, "burn", self.path("photos"), "--yes")
        numbered = [told for told in self.of_type(objects, "error") if "number" in told]
        self.assertEqual(1, len(numbered), objects)
        report = self.report(objects)
        self.assertEqual("failed", report["ending"])
        self.assertEqual(numbered[0]["number"], report["error"]["number"])
        self.assertEqual("notBegun", report["comparison"]["end"])

    def test_a_disc_that_is_hurt(self):
        self.folder(3)
        self.drive.insert("dvd+r")
        self.drive.tray("fault", "read", "--at", "900", "--lasting")
        objects = self.tell(FAILED, "burn", self.path("photos"), "--yes")
        comparison = self.report(objects)["comparison"]
        self.assertEqual("hurt", comparison["end"])
        self.assertEqual([{"firstSector": 900, "lastSector": 900, "isUnreadable": True}], comparison["places"])
        self.assertEqual(["sub/large.bin"], [file["path"] for file in comparison["hurtFiles"]])
        self.assertEqual(["sub/large.bin"], [told["path"] for told in self.remarks(objects, "hurtFile")])

    def test_a_stop(self):
        self.folder(30)
        self.drive.insert("dvd+r")
        self.drive.take_time(prepare=0.5)
        process = self.start("burn", self.path("photos"), "--yes", "--json")
        self.wait_for_words(process, '"phase":"writing"')
        process.send_signal(signal.SIGINT)
        self.assertEqual(STOPPED, process.wait(timeout=60), self.words())
        objects = self.objects_in(self.words(), STOPPED)
        self.assertEqual("stopped", objects[-1]["ending"])
        self.assertEqual(1, len(self.remarks(objects, "stopped")))
        self.assertEqual("stopped", self.report(objects)["ending"])

    def test_a_broken_object_is_refused(self):
        self.folder()
        self.drive.insert("dvd+r")
        for told in self.tell(DONE, "burn", self.path("photos"), "--yes"):
            self.assertTrue(validator().is_valid(told))
            self.assertFalse(validator().is_valid({**told, "unknown": 1}))
            for name in ("type", "version"):
                self.assertFalse(validator().is_valid({**told, name: "other"}))
                self.assertFalse(validator().is_valid({key: told[key] for key in told if key != name}))
        for break_it in (lambda report: report.update(unknown=1), lambda report: report.pop("place"),
                         lambda report: report["comparison"].update(end="maybe"),
                         lambda report: report["leftOut"].append({"path": "without words"})):
            broken = copy.deepcopy(told)
            break_it(broken["reports"][0])
            self.assertFalse(validator().is_valid(broken), broken)

    def test_the_page_shows_objects_of_this_release(self):
        with open(os.path.join(PROJECT, "docs", "json.md"), encoding="utf-8") as file:
            page = file.read()
        examples = re.findall(r"```json\n(.*?)\n```", page, re.DOTALL)
        self.assertEqual({"phase", "progress", "remark", "error", "result"}, {json.loads(line)["type"] for line in examples})
        for line in examples:
            self.assertTrue(validator().is_valid(json.loads(line)), line)
        kinds = re.findall(r"^\| `(\w+)` \|", page, re.MULTILINE)
        self.assertEqual(["kind", *validator().schema["$defs"]["remark"]["properties"]["kind"]["enum"]], kinds)

    # --quiet

    def quiet(self, code, *arguments):
        result = self.run_cli(*arguments, "--quiet")
        self.assertEqual(code, result.returncode, result.stdout)
        return result.stdout

    def test_quiet_says_nothing_of_what_goes_well(self):
        self.folder()
        self.drive.insert("dvd+rw")
        self.assertEqual("", self.quiet(DONE, "image", self.path("photos"), "-o", self.path("photos.iso")))
        self.assertEqual("", self.quiet(DONE, "burn", self.path("photos"), "--yes"))
        self.drive.tray("close")
        self.assertEqual("", self.quiet(DONE, "check"))
        self.assertEqual("", self.quiet(DONE, "erase", "--yes"))
        self.assertEqual("", self.quiet(DONE, "burn-iso", self.path("photos.iso"), "--yes"))

    def test_quiet_names_what_changes_the_exit_code(self):
        self.awkward()
        self.drive.insert("dvd+r")
        said = self.quiet(INCOMPLETE, "burn", self.path("photos"), "--yes")
        self.assertEqual(1, len(said.splitlines()), said)
        self.assertIn("sub/tube", said)
        said = self.quiet(INCOMPLETE, "image", self.path("photos"), "-o", self.path("photos.iso"))
        self.assertEqual(1, len(said.splitlines()), said)

    def test_quiet_says_why_a_job_failed(self):
        self.folder(3)
        self.assertIn("Le lecteur est vide", self.quiet(NO_DISC, "burn", self.path("photos"), "--yes"))
        self.drive.insert("cd-r")
        said = self.quiet(FAILED, "burn", self.path("photos"), "--yes", "--medium", "dvd")
        self.assertIn("Le média inséré (CD-R) est différent du média demandé", said)
        self.drive.insert("dvd+r")
        self.drive.tray("fault", "medium", "--at", "500")
        said = self.quiet(FAILED, "burn", self.path("photos"), "--yes")
        self.assertEqual(2, len(said.splitlines()), said)
        self.assertTrue(all(line.startswith("Erreur : ") for line in said.splitlines()), said)

    def test_quiet_asks_all_the_same(self):
        self.folder()
        self.drive.insert("dvd+r")
        result = self.run_cli("erase", "-q", answers="n\n")
        self.expect(result, FAILED, "Voulez vous vraiment poursuivre ?", "[o puis Entrée pour oui, Entrée pour non]")


if __name__ == "__main__":
    main(JsonTest)
