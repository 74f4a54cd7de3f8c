#!/usr/bin/env python3
"""The unattended commands of the real program: --rehearse on screens of many sizes, --convert there
and back, and what both say and leave behind when they fail. Needs no X server."""

import json
import os
import shutil
import subprocess
import sys
import tempfile
import time
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
PROGRAM = os.environ["VELMORA_PROGRAM"]
BULLETIN = ROOT / "examples" / "bulletin.rtf"
SCREENS = ["640x480", "1280x720", "1366x768", "1920x1080", "2560x1440", "3840x2160"]
REPORT_KEYS = {
    "script", "screen", "range", "speed", "turbo", "mirror", "lines", "rows", "last_scroll_row",
    "seconds_set", "seconds_predicted", "seconds_actual", "steps", "paints", "late_us",
    "compose_us", "cpu_seconds", "peak_rss_kb", "first_lines"}


class Unattended(unittest.TestCase):
    def setUp(self):
        self._folder = tempfile.TemporaryDirectory()
        self.folder = Path(self._folder.name)
        self.home, self.runtime, own = (
            self.folder / name for name in ("home", "runtime", "program"))
        for folder in (self.home, self.runtime, own):
            folder.mkdir(mode=0o700)
        # The program keeps its files beside itself: a copy has a folder that was empty before.
        self.program = own / "velmora"
        shutil.copy2(PROGRAM, self.program)
        self.environment = dict(
            os.environ, HOME=str(self.home), QT_QPA_PLATFORM="offscreen",
            XDG_CONFIG_HOME=str(self.home), XDG_CACHE_HOME=str(self.home / "cache"),
            XDG_RUNTIME_DIR=str(self.runtime))

    def tearDown(self):
        kept = self.kept_files()
        self._folder.cleanup()
        self.assertEqual(kept, [], "an unattended run keeps no files and takes no lock")

    def kept_files(self):
        """What lies in the places where an editor keeps its settings, its list and its lock."""
        return [str(path.relative_to(self.folder))
                for place in (self.program.parent, self.home, self.runtime)
                for path in place.rglob("*") if path.suffix == ".ini" or "lock" in path.name]

    def run_program(self, *arguments):
        return subprocess.run([self.program, *map(str, arguments)], env=self.environment,
                              timeout=120, capture_output=True, text=True, check=False)

    def rehearse(self, *arguments):
        report = self.folder / "report.json"
        done = self.run_program("--rehearse", *arguments, "--report", report)
        self.assertEqual(done.returncode, 0, done.stderr)
        return json.loads(report.read_text(encoding="utf-8"))

    def test_lines_break_alike_on_every_screen(self):
        reports = [self.rehearse(BULLETIN, "--for", 0.3, "--screen", size) for size in SCREENS]
        for size, report in zip(SCREENS, reports):
            self.assertEqual(set(report), REPORT_KEYS)
            self.assertEqual("x".join(map(str, report["screen"])), size)
            self.assertEqual(report["first_lines"], reports[0]["first_lines"])
            self.assertEqual(report["lines"], reports[0]["lines"])
        self.assertGreaterEqual(reports[0]["lines"], 120)
        self.assertEqual(len(reports[0]["first_lines"]), 40)

    def test_show_runs_to_its_end_in_about_the_predicted_time_and_turbo_in_half_the_steps(self):
        script = self.folder / "short.txt"
        script.write_text("Good evening.\n" * 12, encoding="utf-8")
        picture = self.folder / "half.png"
        arguments = (script, "--speed", 0, "--screen", "640x480")
        report = self.rehearse(*arguments, "--picture", picture)
        self.assertEqual(report["steps"], report["rows"] - (480 - 36 - 19))
        # A busy machine is slower; none is faster.
        self.assertGreaterEqual(report["seconds_actual"], report["seconds_predicted"] * 0.99)
        self.assertEqual(picture.read_bytes()[1:4], b"PNG")
        turbo = self.rehearse(*arguments, "--turbo")
        self.assertAlmostEqual(turbo["steps"], report["steps"] / 2, delta=1)

    def test_script_that_fits_the_screen_ends_at_once(self):
        script = self.folder / "word.txt"
        script.write_text("Hello.", encoding="utf-8")
        self.assertEqual(self.rehearse(script, "--screen", "1280x720")["steps"], 0)

    def test_an_open_editor_of_the_same_user_is_no_hindrance(self):
        lock = self.runtime / "velmora.lock"
        editor = subprocess.Popen([self.program], env=self.environment, stderr=subprocess.DEVNULL)
        try:
            deadline = time.monotonic() + 20
            while not lock.exists():
                self.assertIsNone(editor.poll(), "the editor has ended")
                self.assertLess(time.monotonic(), deadline, "the editor took no lock")
                time.sleep(0.02)
            held = lock.read_bytes()
            # The lock is in force: a second editor ends at once, without a word.
            self.assertEqual(self.run_program().returncode, 0)

            script = self.folder / "word.txt"
            script.write_text("Hello.", encoding="utf-8")
            copy = self.folder / "copy.rtf"
            done = self.run_program("--convert", script, copy)
            self.assertEqual(done.returncode, 0, done.stderr)
            self.assertIn(b"Hello.", copy.read_bytes())
            self.assertEqual(self.rehearse(script, "--screen", "1280x720")["steps"], 0)
            self.assertIsNone(editor.poll(), "the editor has ended")
            self.assertEqual(lock.read_bytes(), held)
        finally:
            # Killed, it writes nothing more. The lock that it leaves is no doing of the other runs.
            editor.kill()
            editor.wait(10)
        lock.unlink(missing_ok=True)

    def test_conversion_keeps_every_word(self):
        text, rtf, again = (self.folder / name for name in ("a.txt", "b.rtf", "c.txt"))
        for source, target in ((BULLETIN, text), (text, rtf), (rtf, again)):
            done = self.run_program("--convert", source, target)
            self.assertEqual(done.returncode, 0, done.stderr)
        words = text.read_bytes().split()
        self.assertGreater(len(words), 500)
        self.assertEqual(again.read_bytes().split(), words)

    def test_failures_name_the_file_and_write_nothing(self):
        target = self.folder / "out.rtf"
        bad = self.folder / "bad.rtf"
        bad.write_bytes(b"\x00\x01 no rich text")
        missing = self.folder / "missing.rtf"
        for source in (bad, missing):
            for arguments in (("--convert", source, target), ("--rehearse", source)):
                done = self.run_program(*arguments)
                self.assertEqual(done.returncode, 1, arguments)
                self.assertIn(source.name, done.stderr)
                self.assertFalse(target.exists())
        self.assertEqual(self.run_program("--rehearse").returncode, 2)
        self.assertEqual(self.run_program("--no-such-option").returncode, 2)


if __name__ == "__main__":
    unittest.main(verbosity=2, argv=sys.argv)
