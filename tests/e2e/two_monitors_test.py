"""A show stands on the display that is meant for it: on the left one of two monitors, or in the
rectangle that the command line gives; and touches nothing beside it. A speaker's display shows the
operator's text flipped. Displays may come, go and move: the show runs on."""

import unittest

from harness import (COLUMN_MARGIN, MIRROR_MODE, ROOT, SCROLL_SPEED, SHOW_WINDOW, SPEAKER_WINDOW,
                     desk_for, program_path)

SCREEN = (2080, 720)
LEFT = (0, 0, 1280, 720)
RIGHT = (1280, 0, 800, 600)
SMALL_LEFT = (0, 0, 640, 480)
# Beside a lower display a picture stands in the middle of its own.
LARGE_PICTURE, SMALL_PICTURE = (340, 42, 940, 642), (190, 0, 460, 444)
BESIDE = "#204060"
BULLETIN = ROOT / "examples/bulletin.rtf"
# Left, top, width and height of display 1, no display 2.
RECTANGLE = (40, 30, 640, 480)
COLUMNS = "0040 0030 0640 0480 0000 0000 0000 0000"
# The edge of the frame around the editor, which stands in the same rectangle beneath the show: the
# window manager paints it in another colour when the editor loses the focus.
FRAME_EDGE = 2


def around(rectangle, edge):
    """The four boxes of the screen beside a rectangle and its edge, without the empty ones."""
    left, top, width, height = rectangle
    right, bottom = left + width + edge, top + height + edge
    left, top = max(0, left - edge), max(0, top - edge)
    boxes = ((0, 0, SCREEN[0], top), (0, bottom, SCREEN[0], SCREEN[1]),
             (0, top, left, bottom), (right, top, SCREEN[0], bottom))
    return [box for box in boxes if box[0] < box[2] and box[1] < box[3]]


class TwoMonitorsTest(unittest.TestCase):
    def desk(self, monitors=(LEFT, RIGHT)):
        desk = desk_for(self, SCREEN, monitors)
        desk.call("xsetroot", "-solid", BESIDE)
        return desk

    def assert_show_stands_in(self, desk, rectangle, before, edge=0):
        """The window has the rectangle, fills it, and the rest is as in the picture before."""
        window = desk.wait_for_window(SHOW_WINDOW)
        desk.wait_until(f"the show in {rectangle}",
                        lambda: desk.geometry(window) == rectangle)
        left, top, width, height = rectangle
        corners = [(left, top), (left + width - 1, top + height - 1)]
        beside = tuple(bytes.fromhex(BESIDE[1:]))
        desk.wait_until("a show to its corners", lambda: beside not in (
            desk.picture().pixel(*corner) for corner in corners))
        now = desk.picture()
        desk.keep(now, self.id().rsplit(".", 1)[1])
        for box in around(rectangle, edge):
            self.assertTrue(now.rows(box) == before.rows(box), f"something changed in {box}")

    def test_a_show_fills_the_left_monitor_and_nothing_else(self):
        desk = self.desk()
        before = desk.picture()
        rehearsal = desk.start(program_path(), "--rehearse", BULLETIN, "--for", "3")
        self.assert_show_stands_in(desk, LEFT, before)
        rehearsal.wait(20)
        self.assertEqual(rehearsal.returncode, 0)

    def test_a_show_stands_in_the_rectangle_of_the_command_line(self):
        desk = self.desk()
        desk.open_editor(program_path(), COLUMNS)
        desk.type("Good evening.")
        before = desk.picture()
        desk.key("F1")
        self.assert_show_stands_in(desk, RECTANGLE, before, FRAME_EDGE)
        desk.wait_for_focus(desk.wait_for_window(SHOW_WINDOW))
        desk.leave_show(lambda: desk.key("Escape"))

    def test_both_windows_follow_displays_that_move_grow_go_and_come_back(self):
        # Without a monitor of its own, the server's output would become one as large as the screen.
        desk = self.desk([RIGHT, LEFT])
        desk.open_script(program_path(), BULLETIN, {
            MIRROR_MODE: 4, SCROLL_SPEED: 100, COLUMN_MARGIN: 320})
        desk.open_show()
        self.assert_windows(desk, LEFT, RIGHT, LARGE_PICTURE)
        desk.leave_show(lambda: desk.key("Escape"))
        desk.call("xrandr", "--delmonitor", "monitor2")
        desk.set_monitor("monitor2", SMALL_LEFT, "none")
        desk.open_show()
        desk.key("space", "space")
        self.assert_windows(desk, SMALL_LEFT, RIGHT)
        equal = (1280, 0, *SMALL_LEFT[2:])
        for number, moved in enumerate((equal, (900, 100, 800, 600), RIGHT)):
            # Another monitor with the only output: the one that had it has gone.
            desk.set_monitor(f"moved{number}", moved, "screen")
            self.assert_windows(desk, SMALL_LEFT, moved)
        # The operator's goes: the speaker's picture stays and has the keys.
        desk.call("xrandr", "--delmonitor", "monitor2")
        self.assert_windows(desk, None, RIGHT)
        desk.key("space")
        before = desk.picture()
        desk.seen("the text rising on the speaker's display", lambda now: now.rise_since(
            before, (RIGHT[0] + 190, 90, RIGHT[0] + 460, 500), 400))
        desk.key("space")
        # The desktop begins at what is left, as where a laptop was closed and opened again.
        for name, place in (("other", (0, 0, *RIGHT[2:])), ("monitor1", SMALL_LEFT)):
            desk.set_monitor(name, place, "screen")
            self.assert_windows(desk, None, place)
        desk.call("xrandr", "--delmonitor", "monitor1")
        desk.set_monitor("monitor1", RIGHT, "screen")
        desk.set_monitor("monitor2", SMALL_LEFT, "none")
        self.assert_windows(desk, SMALL_LEFT, RIGHT)
        desk.leave_show(lambda: desk.key("Escape"))

    def assert_windows(self, desk, operator, speaker, picture=SMALL_PICTURE):
        """Both windows come to stand in their rectangles and show the same text, or there is none
        of the operator's. picture: the text's columns and its window's rows, on the operator's."""
        def places(title):
            return [desk.geometry(window) for window in desk.windows(title)]
        desk.wait_until(f"the operator in {operator}, the speaker in {speaker}", lambda: (
            places(SHOW_WINDOW) == ([operator] if operator else []) and
            places(SPEAKER_WINDOW) == [speaker]))
        if operator is None:
            return
        (x, y, *_), (left, top, right, bottom) = operator, picture
        text = (x + left, y + top + 20, x + right, y + bottom - 20)
        raised = y + top - speaker[1] - (speaker[3] - (bottom - top)) // 2
        desk.seen(f"the operator's text flipped in {speaker}",
                  lambda now: now.flipped_at(now, text, raised, speaker[0]) is not None)


if __name__ == "__main__":
    unittest.main()
