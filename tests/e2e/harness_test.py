"""What the harness judges of pictures holds, and can fail."""

import unittest

from harness import Picture


def picture_of(rows):
    return Picture(2, len(rows), b"".join(bytes(row) * 2 for row in rows))


class PictureTest(unittest.TestCase):
    def test_a_rise_is_found_to_the_row_and_refused_for_a_single_wrong_pixel(self):
        tall = [(n, 255 - n, n // 2) for n in range(200)]
        box = (0, 0, 2, 100)
        before, after = picture_of(tall[:100]), picture_of(tall[7:107])
        self.assertEqual(after.rise_since(before, box, 20), 7)
        self.assertEqual(before.rise_since(before, box, 20), 0)
        self.assertIsNone(after.rise_since(before, box, 6))
        self.assertIsNone(before.rise_since(after, box, 20), "it moved down, not up")
        torn = picture_of(tall[7:50] + [(0, 0, 0)] + tall[51:107])
        self.assertIsNone(torn.rise_since(before, box, 20))

    def test_a_box_is_found_in_a_mirror_and_refused_for_a_single_wrong_pixel(self):
        def picture(columns):
            return Picture(4, 40, bytes(v for y in range(40) for x in columns for v in (x, y, 0)))
        plain, mirror = picture((1, 2, 3, 9)), picture((8, 3, 2, 1))
        self.assertEqual(mirror.flipped_at(plain, (0, 0, 3, 40)), 1)
        self.assertEqual(mirror.flipped_at(mirror, (2, 0, 3, 40)), 2, "a column is its own mirror")
        self.assertIsNone(mirror.flipped_at(plain, (0, 0, 4, 40)))
        self.assertIsNone(mirror.flipped_at(plain, (0, 1, 3, 40), raised=1))
        self.assertIsNone(mirror.flipped_at(plain, (0, 0, 3, 40), left=2))


if __name__ == "__main__":
    unittest.main()
