"""The set-up of a machine, against tools that only pretend: what it installs, and what it says where
it cannot."""

import os
import subprocess
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]


class SetupTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)

    def tool(self, name, script):
        path = self.folder / name
        path.write_text("#!/bin/sh\n" + script)
        path.chmod(0o755)

    def run_setup(self, call):
        environment = dict(os.environ, PATH=f"{self.folder}:{os.environ['PATH']}",
                           LOG=str(self.folder / "log"))
        done = subprocess.run(
            ["bash", "-c", f"set -euo pipefail; source {ROOT}/tools/setup.sh; {call}"],
            env=environment, capture_output=True, text=True, stdin=subprocess.DEVNULL)
        log = self.folder / "log"
        return done.returncode, done.stderr, log.read_text() if log.exists() else ""

    def machine(self, user, installed, sudo):
        (self.folder / "log").unlink(missing_ok=True)
        tests = " ".join(f'"$3" = {package} -o' for package in installed)
        self.tool("dpkg-query", f'[ {tests} 1 = 0 ] && printf installed || exit 1\n')
        self.tool("apt-get", 'echo "apt-get $*" >>"$LOG"\n')
        self.tool("id", f"echo {user}\n")
        self.tool("sudo", sudo)

    def test_packages_are_installed_only_where_missing_and_with_rights(self):
        refused = "exit 1\n"
        granted = '[ "$1" = -n ] && exit 0\necho "sudo $*" >>"$LOG"\n"$@"\n'
        call = "install_packages one two"
        for user, installed, sudo, status, in_log, in_message in [
            (1000, ["one", "two"], granted, 0, "", ""),
            (0, ["one"], refused, 0, "apt-get install -y --no-install-recommends two\n", "two"),
            (1000, ["two"], granted, 0, "sudo apt-get update", "one"),
            (1000, [], refused, 1, "",
             "apt-get update && apt-get install -y --no-install-recommends one two"),
        ]:
            with self.subTest(user=user, installed=installed):
                self.machine(user, installed, sudo)
                result, message, log = self.run_setup(call)
                self.assertEqual(result, status, message)
                self.assertIn(in_message, message)
                self.assertIn(in_log, log)
                if not in_log:
                    self.assertEqual(log, "")

    def test_systems_are_told_apart(self):
        system = self.folder / "os-release"
        for text, status, words in [
            ('ID=debian\nVERSION_ID="12"\n', 0, ""),
            ("ID=debian\n", 0, ""),
            ('ID=debian\nVERSION_ID="11"\nPRETTY_NAME="Old One"\n', 1, "Old One is too old"),
            ('ID=ubuntu\nVERSION_ID="22.04"\n', 1, "too old"),
            ('ID=other\nID_LIKE="ubuntu debian"\n', 0, "not among the systems"),
            ('ID=other\nPRETTY_NAME="Other 3"\n', 1, "this is Other 3"),
        ]:
            with self.subTest(text):
                system.write_text(text)
                result, message, _ = self.run_setup(f"require_system {system}")
                self.assertEqual(result, status, message)
                self.assertIn(words, message)
                self.assertEqual(message == "", words == "")
        self.assertEqual(self.run_setup(f"require_system {self.folder}/none")[0], 1)


if __name__ == "__main__":
    unittest.main()
