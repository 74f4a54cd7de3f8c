"""The four windows of a show in the running program, as the settings choose them: a mirrored one is
the plain one seen in a mirror, and a timed one runs from Start to its end, or to Reset."""

import unittest

from harness import MIRROR_MODE, SCROLL_SPEED, TIMED, TIMED_SECONDS, desk_for, program_path

SCREEN = (1280, 720)
EVERYTHING = (0, 0, *SCREEN)
TEXT = (100, 12, 1200, 672)
# What has a face that is read: the speed scale, the clocks and Exit; in a timed show Start or
# Reset, and the duration with its clocks and Exit.
STEERED_FACES = [(394, 684, 1280, 720)]
TIMED_FACES = [(25, 684, 103, 720), (958, 684, 1280, 720)]
# In the plain window and in the mirrored one.
DURATION_BARS = (112, 690, 942, 712), (SCREEN[0] - 942, 690, SCREEN[0] - 112, 712)
# Slow, so that pictures taken one after the other have most of their rows in common.
PLAIN, MIRRORED = ({MIRROR_MODE: mode, SCROLL_SPEED: 100} for mode in (0, 1))
TIMED_SHOW = {TIMED: 1, TIMED_SECONDS: 10}


class FourWindowsTest(unittest.TestCase):
    def desk(self, settings):
        """A desk with a show before its start."""
        desk = desk_for(self, SCREEN)
        script = desk.home / "lines.txt"
        script.write_text("\n".join(f"{n * n} words" for n in range(20)))
        desk.open_script(program_path(), script, settings)
        desk.open_show()
        return desk

    def assert_flipped(self, mirror, plain, faces):
        for left, top, right, bottom in faces:
            self.assertEqual(mirror.flipped_at(plain, (left, top, right, bottom)),
                             SCREEN[0] - right)

    def test_a_mirrored_show_is_the_plain_one_in_a_mirror(self):
        plain = self.desk(PLAIN).still_picture(TEXT, "plain")
        desk = self.desk(MIRRORED)
        mirror = desk.still_picture(TEXT, "mirrored")
        self.assertIsNotNone(mirror.flipped_at(plain, TEXT))
        self.assert_flipped(mirror, plain, STEERED_FACES)
        desk.key("space")
        desk.seen("the mirrored text rising", lambda now: now.rise_since(mirror, TEXT, 600))

    def test_timed_shows_run_to_their_end_and_to_a_reset_and_are_ready_again(self):
        desks = [self.desk(TIMED_SHOW | face) for face in (PLAIN, MIRRORED)]
        ready = [desk.still_picture(EVERYTHING, "ready") for desk in desks]
        self.assert_flipped(ready[1], ready[0], TIMED_FACES)
        for desk, before in zip(desks, ready):
            # The text comes in from below. A second press ends the run without a question.
            desk.key("space")
            desk.seen("the text coming in", lambda now: not now.is_plain(TEXT))
            desk.key("space")
            self.sees_again(desk, before)
            desk.key("space")
            desk.seen("no duration bar while the text runs",
                      lambda now: now.is_plain(DURATION_BARS[desks.index(desk)]))
        ends = []
        for desk, before, bar in zip(desks, ready, DURATION_BARS):
            desk.seen("the duration bar at the end",
                      lambda now: now.rows(bar) == before.rows(bar), 60)
            ends.append(desk.still_picture(TEXT, "the end"))
        self.assertIsNotNone(ends[1].flipped_at(ends[0], TEXT))
        # Not the clocks: each show has measured its own end.
        self.assert_flipped(ends[1], ends[0], TIMED_FACES[:1])
        for desk, before in zip(desks, ready):
            desk.key("space")
            self.sees_again(desk, before)

    def sees_again(self, desk, before):
        desk.seen("the show ready again", lambda now: (
            now.rows(EVERYTHING) == before.rows(EVERYTHING)))


if __name__ == "__main__":
    unittest.main()
