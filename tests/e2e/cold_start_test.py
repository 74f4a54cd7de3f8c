"""The whole road of a first use, with nothing configured and real keys: the help on monitors, a
script through the file dialog, a running show, its window closed by the frame, back in the editor."""

import unittest

from harness import ROOT, Desk, program_path

SCREEN = (1280, 720)
LOAD_DIALOG = "^Load"
EXIT_QUESTION = "^Exit$"
# Rows and columns that hold text and nothing else: no arrow, no clocks, no controls, and no margin.
TEXT = (400, 40, 1000, 600)


class ColdStartTest(unittest.TestCase):
    def test_from_an_empty_configuration_to_a_show_and_back(self):
        with Desk(SCREEN) as self.desk:
            self.desk.open_editor(program_path())
            self.load(ROOT / "examples/bulletin.rtf")
            self.play_and_pause()
            self.desk.key("3")
            self.desk.leave_show(self.desk.close_by_frame)
            self.caret_stands_before("CAMERA TWO")
            self.assertIsNone(self.desk.program.poll(), "the program ended with its show")
            self.leave_the_program()

    def load(self, script):
        desk = self.desk
        empty = desk.picture()
        desk.key("ctrl+l")
        desk.wait_for_focus(desk.wait_for_window(LOAD_DIALOG))
        desk.type(str(script))
        desk.key("Return")
        desk.wait_until_gone(LOAD_DIALOG)
        desk.wait_for_editor(script.name)
        desk.wait_until("the script in the editor",
                        lambda: desk.picture().rows(TEXT) != empty.rows(TEXT))

    def play_and_pause(self):
        desk = self.desk
        desk.open_show()
        before = desk.still_picture(TEXT, "the show before its start")
        desk.key("Down", "Down", "space")
        desk.seen("the text rising", lambda now: now.rise_since(before, TEXT, 500))
        desk.key("space")
        desk.still_picture(TEXT, "the show paused")

    def caret_stands_before(self, words):
        """Types there, and reads the copy of what is unsaved."""
        self.desk.key("X")
        copy = self.desk.settings_file.parent / "unsaved.rtf"
        self.desk.wait_until("the copy of the typed text", copy.exists)
        self.assertRegex(copy.read_text("latin-1"), "X[^A-W\\n]*~.*" + words)

    def leave_the_program(self):
        """The loaded text has not been saved since: the program asks."""
        desk = self.desk
        desk.close_by_frame()
        desk.answer(EXIT_QUESTION, "n")
        desk.program.wait(10)
        self.assertEqual(desk.program.returncode, 0)
        self.assertEqual(desk.settings_file.read_bytes().count(b"\r\n"), 46)


if __name__ == "__main__":
    unittest.main()
