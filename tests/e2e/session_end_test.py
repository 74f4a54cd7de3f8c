"""What is left of a show whose session ends in the middle of it: by a signal, and by the end of the
screen."""

import signal
import unittest

from harness import SCROLL_SPEED, desk_for, program_path

SCREEN = (1280, 720)
TEXT = (100, 12, 1200, 672)
RECOVERED = "^Recovered Script$"
SAVE_DIALOG = "^Save Text$"
SPEED = 100
LINES = "\n".join(f"Line {n}" for n in range(60))


class SessionEndTest(unittest.TestCase):
    def desk_with_typed_text(self):
        """The script has been typed into since it was loaded, a moment ago."""
        desk = desk_for(self, SCREEN)
        self.script = desk.home / "lines.txt"
        self.script.write_text(LINES)
        desk.open_script(program_path(), self.script, {SCROLL_SPEED: SPEED})
        desk.type("New ")
        return desk

    def desk_with_running_show(self):
        """That script is on its way up."""
        desk = self.desk_with_typed_text()
        desk.open_show()
        before = desk.still_picture(TEXT, "the show before its start")
        desk.key("space")
        desk.seen("the text rising", lambda now: now.rise_since(before, TEXT, 600))
        return desk

    def assert_the_script_is_rescued(self, desk):
        """Its own file is as it was; what was typed is in the copy beside the settings."""
        self.assertEqual(self.script.read_text(), LINES)
        self.assertIn(b"New Line 0", (desk.settings_file.parent / "unsaved.rtf").read_bytes())

    def speed_setting(self, desk):
        return float(desk.settings_file.read_text().split("\n")[SCROLL_SPEED])

    def test_a_signal_ends_the_program_and_the_next_start_offers_the_typed_text(self):
        desk = self.desk_with_running_show()
        desk.program.send_signal(signal.SIGPIPE)  # as a write to a terminal that is gone
        desk.key("Up")
        desk.program.send_signal(signal.SIGTERM)
        self.assertEqual(desk.program.wait(10), -signal.SIGTERM)
        self.assertEqual(self.speed_setting(desk), SPEED - 20)
        self.assert_the_script_is_rescued(desk)
        desk.start(program_path())
        desk.answer(RECOVERED, "y")
        desk.wait_for_editor(r"Recovered Script.rtf$")
        self.assertFalse((desk.settings_file.parent / "unsaved.rtf").exists())
        desk.close_by_frame()
        self.assertEqual(desk.program.wait(10), 0)
        recovered = desk.settings_file.parent / "Recovered Script.rtf"
        self.assertIn(b"New Line 0", recovered.read_bytes())

    def test_two_signals_at_once_lose_nothing(self):
        desk = self.desk_with_typed_text()
        desk.program.send_signal(signal.SIGTERM)
        desk.program.send_signal(signal.SIGHUP)
        self.assertLess(desk.program.wait(10), 0)
        self.assert_the_script_is_rescued(desk)

    def test_the_end_of_the_screen_with_the_editor_or_a_dialog_in_front_loses_nothing(self):
        for dialog in (None, SAVE_DIALOG):
            desk = self.desk_with_typed_text()
            if dialog:
                desk.key("ctrl+s")
                desk.wait_for_focus(desk.wait_for_window(dialog))
            desk.end_server()
            self.assertEqual(desk.program.wait(10), 1)
            self.assert_the_script_is_rescued(desk)

    def test_the_end_of_the_screen_ends_the_program_and_leaves_its_files_whole(self):
        desk = self.desk_with_running_show()
        desk.end_server()
        self.assertEqual(desk.program.wait(10), 1, "no crash on the way out")
        self.assertEqual(self.speed_setting(desk), SPEED)
        self.assert_the_script_is_rescued(desk)


if __name__ == "__main__":
    unittest.main()
