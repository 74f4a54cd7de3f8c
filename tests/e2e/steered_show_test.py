"""A show steered by real keys in the running program, judged by what its operator sees: pictures of
the screen, windows, and the script that is saved afterwards."""

import unittest

from harness import SCROLL_SPEED, desk_for, program_path

SCREEN = (1280, 720)
EVERYTHING = (0, 0, *SCREEN)
# The clocks go on in a pause.
BESIDE_CLOCKS = (0, 0, 1280, 684), (0, 684, 750, 720), (890, 684, 1280, 720)
# The text without its first and last rows and without the edges that other things move into.
TEXT = (100, 12, 1200, 672)
# A part of it that no window in the middle of the screen covers.
LAST_TEXT = (100, 600, 1200, 672)
ARROW = (0, 12, 40, 672)
# Where full screen leaves nothing.
BELOW_TEXT, RIGHT_OF_TEXT = (0, 695, *SCREEN), (1272, 0, *SCREEN)
# The sign of the direction, and of a new bookmark.
SIGN = (345, 685, 384, 718)
SPEED_SCALE = (467, 700, 741, 701)
THUMB = (245, 245, 245)
# The scale's pixels for a unit of speed.
SCALE_STEP = 0.8667
# Slow, so that pictures taken one after the other have most of their rows in common.
SPEED = 100
# Scan codes that a shuttle's driver sends; its buttons do what they do in a first run.
F13, F14, RING_BACK_BY_2, F23, F24 = "191", "192", "198", "201", "202"
FIND = "^Find$"
BOOKMARK_QUESTION = "^Add New Bookmark$"
SAVE_DIALOG = "^Save Text$"
LINES = ["Alpha", "Bravo", "Charlie", "^Delta", "Echo", "Foxtrot", "~Golf", "Hotel", "India noon",
         "Juliett", "Kilo", "Lima noon", "Mike", "November", "Oscar", "Papa", "Quebec", "Romeo",
         "Sierra", "Tango", "Uniform", "~Victor", "Whiskey", "Xray", "Yankee", "Zulu"]
SECOND_NOON = 11


class SteeredShowTest(unittest.TestCase):
    def setUp(self):
        self.desk = desk_for(self, SCREEN)
        self.script = self.desk.home / "lines.txt"
        self.script.write_text("\n".join(LINES))
        self.desk.open_script(program_path(), self.script, {SCROLL_SPEED: SPEED})

    def test_a_show_obeys_its_keys_and_leaves_the_script_as_told(self):
        self.desk.open_show()
        self.top = self.desk.still_picture(TEXT, "the top of the script")
        self.space_starts_and_pauses()
        self.toggles_change_what_they_name_and_back()
        self.speed_keys_move_the_thumb()
        self.jumps_bring_their_line_to_the_top()
        self.buttons_of_the_shuttle_reverse_run_and_toggle()
        self.search_brings_the_hit_to_the_top()
        self.marks_and_caret_stand_where_the_show_was_left()

    def space_starts_and_pauses(self):
        self.desk.key("space")
        self.desk.seen("the text rising", lambda now: now.rise_since(self.top, TEXT, 600))
        self.desk.key("space")
        self.desk.still_picture(TEXT, "the text paused")

    def toggles_change_what_they_name_and_back(self):
        desk = self.desk
        before = desk.picture()
        def comes_back(key):
            desk.key(key)
            desk.seen(f"all as before after {key}", lambda now: all(
                now.rows(box) == before.rows(box) for box in BESIDE_CLOCKS))

        desk.key("F10")
        moved = tuple(at + (10, 20)[i % 2] for i, at in enumerate(TEXT))
        self.assertFalse(before.is_plain(BELOW_TEXT) or before.is_plain(RIGHT_OF_TEXT))
        desk.seen("full screen", lambda now: now.rows(moved) == before.rows(TEXT) and (
            now.is_plain(BELOW_TEXT) and now.is_plain(RIGHT_OF_TEXT)))
        comes_back("F10")

        # Were the space obeyed, the text would have moved by the time that it comes back.
        desk.key("F12")
        desk.seen("a blank screen", lambda now: now.is_plain(EVERYTHING))
        desk.key("space")
        comes_back("F12")

        desk.key("F9")
        self.assertFalse(before.is_plain(ARROW))
        bare = desk.seen("no arrow", lambda now: now.is_plain(ARROW))
        self.assertEqual(bare.rows(TEXT), before.rows(TEXT))
        comes_back("F9")

    def thumb(self, picture):
        """The left edge of the speed scale's thumb, None without one."""
        left, y, right, _ = SPEED_SCALE
        return next((x for x in range(left, right) if picture.pixel(x, y) == THUMB), None)

    def speed_keys_move_the_thumb(self):
        """To the pixel as far as the speed changes; a lower setting is faster and further right."""
        desk = self.desk
        for key, change in (("Left", 2), ("End", 25), ("Up", -20), (F13, 2)):
            place = self.thumb(desk.picture()) - change * SCALE_STEP
            desk.key(key)
            desk.seen(f"the thumb after {key}", lambda now: (
                self.thumb(now) is not None and abs(self.thumb(now) - place) < 1))
        # By how much, depends on the time between two turns.
        place = self.thumb(desk.picture())
        desk.key(F14, F14)
        desk.seen("a faster speed by the wheel", lambda now: (self.thumb(now) or 0) > place)

    def risen(self, picture, lines):
        """The condition that the text has risen by so many lines since a picture, or fallen."""
        def holds(now):
            first, second = (picture, now) if lines > 0 else (now, picture)
            rise = second.rise_since(first, TEXT, 600)
            return rise is not None and abs(rise - abs(lines) * self.line_rows) <= 1
        return holds

    def jump(self, key, picture, lines):
        """Presses a key that brings another line to the top, and returns the new picture."""
        self.desk.key(key)
        return self.desk.seen(f"{lines} lines by {key}", self.risen(picture, lines))

    def returns(self, key, picture):
        self.desk.key(key)
        self.desk.seen(f"an earlier picture by {key}",
                       lambda now: now.rows(TEXT) == picture.rows(TEXT))

    def jumps_bring_their_line_to_the_top(self):
        self.returns("1", self.top)
        self.desk.key("Next")
        delta = self.desk.seen("the first mark", lambda now: now.rise_since(self.top, TEXT, 600))
        self.line_rows = delta.rise_since(self.top, TEXT, 600) / 3
        golf = self.jump("Next", delta, 3)
        self.returns("Prior", delta)
        self.returns("2", golf)
        self.desk.key("3")
        victor = self.desk.seen("the second numbered mark",
                                lambda now: now.rise_since(golf, TEXT, 600) is None)
        self.desk.key("0")
        end = self.desk.seen("the end", lambda now: now.rise_since(victor, TEXT, 600))
        self.assertLess(end.rise_since(victor, TEXT, 600), self.line_rows)
        self.returns("Prior", golf)
        self.returns("Prior", delta)
        self.returns("Prior", self.top)
        self.returns("2", golf)
        self.jump(RING_BACK_BY_2, golf, -2)
        self.returns("2", golf)
        self.golf = golf

    def buttons_of_the_shuttle_reverse_run_and_toggle(self):
        desk = self.desk
        before = self.thumb(desk.picture())
        desk.key(F24)
        desk.seen("a thumb on the other side", lambda now: self.thumb(now) < before - 2)
        desk.key(F23)
        desk.seen("the text falling", lambda now: self.golf.rise_since(now, TEXT, 600))
        desk.key(F23, F24)
        desk.seen("the thumb where it was", lambda now: self.thumb(now) == before)
        desk.still_picture(TEXT, "the reversed show paused")
        desk.key("shift+" + F24)
        desk.seen("full screen by the shuttle", lambda now: now.is_plain(BELOW_TEXT))
        desk.key("shift+" + F24)
        self.returns("2", self.golf)

    def search_brings_the_hit_to_the_top(self):
        desk = self.desk
        desk.key("f")
        desk.wait_for_focus(desk.wait_for_window(FIND))
        desk.type("NOON")
        desk.key("Return")
        desk.seen("the first hit", lambda now: now.rows(LAST_TEXT) != self.golf.rows(LAST_TEXT))
        desk.answer(FIND, "Escape")
        # F3 would find the first hit again, if the search went on from anywhere else.
        india = desk.seen("the first hit on top", self.risen(self.golf, 2))
        self.jump("F3", india, 3)

    def marks_and_caret_stand_where_the_show_was_left(self):
        desk = self.desk
        before = desk.picture()
        # The second one is refused: a line has one mark.
        desk.key("b", "b")
        desk.seen("the notice", lambda now: now.rows(SIGN) != before.rows(SIGN))
        desk.key("Escape")
        desk.leave_show(lambda: desk.answer(BOOKMARK_QUESTION, "y"))
        desk.type("@")
        desk.key("ctrl+s")
        desk.answer(SAVE_DIALOG, "Return")
        expected = list(LINES)
        expected[SECOND_NOON] = "@^" + expected[SECOND_NOON]
        desk.wait_until("the saved script", lambda: self.script.read_text().split("\n") == expected)


if __name__ == "__main__":
    unittest.main()
