"""The setup by keyboard alone, in the real program: what is chosen in its windows is in the settings
file after the exit, and what was left by Escape is not."""

import unittest

from harness import (BACK_COLOUR, COLUMN_MARGIN, CONTROLLER_TYPE, DELAY, MIRROR_MODE,
                     SHUTTLE_BUTTON_1, SPACING, SPEED_CONTROL, TURBO, Desk, program_path)

SETUP = "^Display Setup$"
DEFAULTS = "^Default Editor Settings$"
CONTROLLER = "^Setup Speed Controller$"


class SetupTest(unittest.TestCase):
    def test_the_settings_file_holds_what_the_keyboard_chose(self):
        with Desk((1280, 720)) as self.desk:
            self.desk.open_editor(program_path())
            self.choose_in_the_setup()
            self.desk.close_by_frame()
            self.desk.program.wait(20)
            lines = self.desk.settings_file.read_text().split("\n")
        chosen = {number: float(lines[number]) for number in (
            COLUMN_MARGIN, CONTROLLER_TYPE, MIRROR_MODE, SPACING, BACK_COLOUR, TURBO, SPEED_CONTROL,
            SHUTTLE_BUTTON_1, DELAY)}
        self.assertEqual(chosen, {
            COLUMN_MARGIN: 12, CONTROLLER_TYPE: 11, MIRROR_MODE: 1, SPACING: 27,
            BACK_COLOUR: 128 << 16, TURBO: 1, SPEED_CONTROL: 1, SHUTTLE_BUTTON_1: 6, DELAY: 1.1})

    def choose_in_the_setup(self):
        desk = self.desk
        desk.key("alt+u")
        desk.wait_for_focus(desk.wait_for_window(SETUP))
        # The dark blue screen is saved; a margin changed after that is left by Escape.
        self.inside(DEFAULTS, "space", "Tab", "Tab", "Tab", "space", *["Tab"] * 17, "Return")
        self.inside(DEFAULTS, "space", "Tab", "Right", "Escape")
        desk.key("Tab", "Tab", "Return", "Tab", "Tab", "Tab", "Tab")
        self.inside("^Select Turbo Mode$", "Return", "Return")
        desk.key("Tab")
        self.inside("^Switching to Full Range Mode$", "Return", "Return")
        desk.key("Tab")
        # To the shuttle's page, one function further for its first button, and on to Save.
        self.inside(CONTROLLER, "Return", *["Tab"] * 4, "Return", "Down", *["Tab"] * 5, "Return")
        desk.key("Tab", "Return", "Tab", "Tab", "Tab", "Tab", "Return", "Escape")
        desk.wait_until_gone(SETUP)
        desk.wait_for_editor()

    def inside(self, title, opening, *keys):
        """Opens a window by a key, presses the others in it, and sees it close."""
        desk = self.desk
        desk.key(opening)
        desk.answer(title, *keys)
        desk.wait_for_focus(desk.wait_for_window(SETUP))


if __name__ == "__main__":
    unittest.main()
