"""A show stands on the display that is meant for it: on the left one of two monitors, or in the
rectangle that the command line gives; and touches nothing beside it. A speaker's display shows the
operator's text flipped, and may be unplugged."""

import unittest

from harness import ROOT, SHOW_WINDOW, SPEAKER_WINDOW, Desk, program_path

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

    def test_the_speaker_sees_the_same_rows_flipped_and_the_show_outlives_an_unplugged_display(self):
        desk = self.desk()
        # In the dead band nothing moves: the picture of the screen shows one moment of both.
        show = desk.start(program_path(), "--rehearse", BULLETIN, "--mirror", "4", "--margin", "320",
                          "--speed", "127", "--for", "20")
        desk.wait_until("the speaker's window on the right monitor", lambda: any(
            desk.geometry(window) == RIGHT for window in desk.windows(SPEAKER_WINDOW)))
        desk.wait_until("the same text on both displays",
                        lambda: self.flipped_text_stands_right(desk.picture()))
        desk.keep(desk.picture(), "speaker")
        desk.call("xrandr", "--delmonitor", "monitor2")
        desk.wait_until_gone(SPEAKER_WINDOW)
        self.assertTrue(desk.windows(SHOW_WINDOW), "the show runs on")
        desk.call("xrandr", "--setmonitor", "monitor2", "800/212x600/159+1280+0", "none")
        desk.wait_until("the speaker's window once more", lambda: any(
            desk.geometry(window) == RIGHT for window in desk.windows(SPEAKER_WINDOW)))
        self.assertTrue(self.flipped_text_stands_right(desk.picture()))
        self.assertIsNone(show.poll())

    def flipped_text_stands_right(self, picture):
        """Whether the box of the operator's first lines is on the right monitor, flipped. There it
        stands higher by half of what the left one is higher, and anywhere sideways."""
        box = (330, 60, 930, 560)
        raised = (LEFT[3] - RIGHT[3] + 1) // 2 - 18
        rows = picture.rows(box)
        if len(set(rows)) < 20:
            return False
        flipped = [b"".join(row[i:i + 3] for i in range(len(row) - 3, -1, -3)) for row in rows]
        right = [picture.row(y - raised, RIGHT[0]) for y in range(box[1], box[3])]
        widest = max(range(len(rows)), key=lambda y: len(set(rows[y][i:i + 3] for i in range(
            0, len(rows[y]), 3))))
        at = right[widest].find(flipped[widest])
        return at >= 0 and all(row[at:at + len(wanted)] == wanted
                               for row, wanted in zip(right, flipped))


if __name__ == "__main__":
    unittest.main()
