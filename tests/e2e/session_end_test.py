"""What is left of a show whose session ends in the middle of it: by a signal, by the end of the
screen, and by its window's frame."""

import signal
import unittest

from harness import SCROLL_SPEED, desk_for, program_path

SCREEN = (1280, 720)
TEXT = (100, 12, 1200, 672)
EXIT_QUESTION = "^Exit$"
SAVE_DIALOG = "^Save Text$"
SPEED = 100
LINES = "\n".join(f"Line {n}" for n in range(60))


class SessionEndTest(unittest.TestCase):
    def desk_with_running_show(self):
        """The script has been typed into since it was loaded, and is on its way up."""
        desk = desk_for(self, SCREEN)
        self.script = desk.home / "lines.txt"
        self.script.write_text(LINES)
        desk.open_script(program_path(), self.script, {SCROLL_SPEED: SPEED})
        self.settings = desk.settings_file.read_bytes()
        desk.type("New ")
        desk.open_show()
        before = desk.still_picture(TEXT, "the show before its start")
        desk.key("space")
        desk.seen("the text rising", lambda now: now.rise_since(before, TEXT, 600))
        return desk

    def assert_files_are_whole(self, desk):
        self.assertEqual(desk.settings_file.read_bytes(), self.settings)
        self.assertEqual(self.script.read_text(), LINES)

    def test_a_signal_ends_the_program_and_the_next_start_finds_its_files_whole(self):
        desk = self.desk_with_running_show()
        desk.program.send_signal(signal.SIGTERM)
        desk.program.wait(10)
        self.assert_files_are_whole(desk)
        desk.start(program_path(), self.script)
        desk.wait_for_editor(self.script.name)

    def test_the_end_of_the_screen_ends_the_program_and_leaves_its_files_whole(self):
        desk = self.desk_with_running_show()
        desk.end_server()
        self.assertEqual(desk.program.wait(10), 1, "no crash on the way out")
        self.assert_files_are_whole(desk)

    def test_the_show_closed_by_its_frame_leaves_the_typed_text_to_be_saved(self):
        desk = self.desk_with_running_show()
        desk.key("Up")
        desk.leave_show(desk.close_by_frame)
        desk.wait_for_editor(self.script.name + r"\*$")
        desk.close_by_frame()
        desk.answer(EXIT_QUESTION, "y")
        desk.answer(SAVE_DIALOG, "Return")
        self.assertEqual(desk.program.wait(10), 0)
        self.assertEqual(self.script.read_text(), "New " + LINES)
        settings = desk.settings_file.read_text().split("\n")
        self.assertEqual(float(settings[SCROLL_SPEED]), SPEED - 20)



if __name__ == "__main__":
    unittest.main()
