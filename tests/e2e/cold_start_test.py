"""The whole road of a first use, with nothing configured and real keys: the help on monitors, a
script through the file dialog, a running show, its window closed by the frame, back in the editor."""

import unittest

from harness import ROOT, SHOW_WINDOW, Desk, program_path

SCREEN = (1280, 720)
LOAD_DIALOG = "^Load"
EXIT_QUESTION = "^Exit$"
# Rows and columns that hold text and nothing else: no arrow, no clocks, no controls, and no margin.
TEXT = (400, 40, 1000, 600)
# Less than a line of the script is tall on this screen, and more than the show moves between two
# pictures at the speed set here would be a third of the window.
LINE_HEIGHT = 130
MOST_ROWS_BETWEEN_PICTURES = 400


class ColdStartTest(unittest.TestCase):
    def test_from_an_empty_configuration_to_a_show_and_back(self):
        with Desk(SCREEN) as self.desk:
            self.desk.open_editor(program_path())
            self.load(ROOT / "examples/bulletin.rtf")
            paused = self.play_and_pause()
            self.desk.leave_show(self.desk.close_by_frame)
            self.assertIsNone(self.desk.program.poll(), "the program ended with its show")
            self.assert_caret_on_top_line_of(paused)
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

    def still_picture(self, what):
        """A picture that has stopped changing."""
        def still():
            first, second = self.desk.picture(), self.desk.picture()
            return second if first.rows(TEXT) == second.rows(TEXT) else None
        picture = self.desk.wait_until(what, still)
        self.desk.keep(picture, what.replace(" ", "_"))
        return picture

    def play_and_pause(self):
        desk = self.desk
        desk.key("F1")
        desk.wait_for_focus(desk.wait_for_window(SHOW_WINDOW))
        self.still_picture("the show before its start")
        desk.key("Down", "Down", "space")
        first, second = desk.picture(), desk.picture()
        desk.keep(first, "running_first")
        desk.keep(second, "running_second")
        rise = second.rise_since(first, TEXT, MOST_ROWS_BETWEEN_PICTURES)
        self.assertIsNotNone(rise, "the second picture is no vertical shift of the first")
        self.assertGreater(rise, 0, "the show stands still")

        # Well into the script, so that the line to return to is not the first.
        desk.wait_until("a screenful to pass", lambda: desk.picture().rise_since(
            first, TEXT, TEXT[3] - TEXT[1] - 40) is None)
        desk.key("space")
        return self.still_picture("the show paused")

    def assert_caret_on_top_line_of(self, paused):
        """A show from the cursor begins with the caret's line at the top. What the paused show had
        at its top must lie within that line."""
        desk = self.desk
        desk.key("F2")
        desk.wait_for_focus(desk.wait_for_window(SHOW_WINDOW))
        again = self.still_picture("the show from the cursor")
        rise = paused.rise_since(again, TEXT, LINE_HEIGHT)
        self.assertIsNotNone(rise, "the caret was not on the line that stood at the top")
        desk.leave_show(lambda: desk.key("Escape"))

    def leave_the_program(self):
        """The loaded text has not been saved since: the program asks."""
        desk = self.desk
        desk.close_by_frame()
        desk.wait_for_focus(desk.wait_for_window(EXIT_QUESTION))
        desk.key("n")
        desk.program.wait(10)
        self.assertEqual(desk.program.returncode, 0)
        settings = (desk.home / "program/velmora.ini").read_bytes()
        self.assertEqual(settings.count(b"\r\n"), 46)


if __name__ == "__main__":
    unittest.main()
