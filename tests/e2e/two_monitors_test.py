"""A show stands on the display that is meant for it: on the left one of two monitors, or in the
rectangle that the command line gives; and touches nothing beside it."""

import unittest

from harness import ROOT, SHOW_WINDOW, Desk, program_path

SCREEN = (2080, 720)
LEFT = (0, 0, 1280, 720)
RIGHT = (1280, 0, 800, 600)
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
    def desk(self):
        desk = Desk(SCREEN, monitors=[LEFT, RIGHT])
        desk.__enter__()
        self.addCleanup(desk.__exit__)
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


if __name__ == "__main__":
    unittest.main()
