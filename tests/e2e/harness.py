"""What the end-to-end tests stand on: a desk with a screen of its own, the real program on it,
real keys and pictures of the screen. Standard library only; Desk is the whole of it."""

import os
import re
import shutil
import subprocess
import sys
import time
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tools"))
from virtual_screen import VirtualScreen  # noqa: E402

MAIN_WINDOW = "^Velmora V12\\.0"
HELP_WINDOW = "^Multiple Monitors"
SHOW_WINDOW = "^Velmora Display"
SPEAKER_WINDOW = "^Velmora Speaker Display"

# Lines of the settings file, from 0.
COLUMN_MARGIN, SCROLL_SPEED, CONTROLLER_TYPE, MIRROR_MODE, SPACING, BACK_COLOUR = 0, 2, 4, 6, 7, 12
TURBO, SPEED_CONTROL, TIMED_SECONDS, TIMED, SHUTTLE_BUTTON_1, DELAY = 21, 22, 25, 26, 27, 45
# A first run's file, but without the help on monitors. The folders and the codes are empty.
SETTINGS = ("12 0 60 0 0 1 0 26 0 1 0 193 0 16777215 Arial 26 - 0 1 0 0 0 0 1 0 30 0 5 4 8 2 3 "
            "0 0 0 0 0 0 0 - - - - - - 1").replace("-", "").split(" ")


class Picture:
    """A picture of the screen, 8 bits a channel, red first. Rows and columns count from 0."""

    def __init__(self, width, height, pixels):
        self.width, self.height, self._pixels = width, height, pixels

    @classmethod
    def from_ppm(cls, data):
        header = re.match(rb"P6\s(?:#[^\n]*\n)*(\d+)\s+(\d+)\s+255\s", data)
        if header is None:
            raise ValueError("not a binary PPM of 8 bits a channel")
        width, height = int(header[1]), int(header[2])
        pixels = data[header.end():]
        if len(pixels) != width * height * 3:
            raise ValueError(f"{len(pixels)} bytes of pixels for {width} by {height}")
        return cls(width, height, pixels)

    def row(self, y, left=0, right=None):
        right = self.width if right is None else right
        start = y * self.width * 3
        return self._pixels[start + left * 3:start + right * 3]

    def is_plain(self, box):
        """Whether the box holds one colour alone."""
        rows = set(self.rows(box))
        return len(rows) == 1 and rows == {bytes(self.pixel(*box[:2])) * (box[2] - box[0])}

    def pixel(self, x, y):
        return tuple(self.row(y, x, x + 1))

    def rows(self, box):
        """The rows inside box = (left, top, right, bottom), ends excluded."""
        left, top, right, bottom = box
        return [self.row(y, left, right) for y in range(top, bottom)]

    def rise_since(self, earlier, box, most):
        """By how many rows the content of box moved up since the earlier picture, 0 to most; None
        if no shift makes the two alike to the pixel. Blank rows alone prove nothing: what is
        compared must hold a good number of different rows."""
        before, now = earlier.rows(box), self.rows(box)
        for rise in range(most + 1):
            common = now[:len(now) - rise]
            if common == before[rise:] and len(set(common)) > 20:
                return rise
        return None

    def flipped_at(self, earlier, box, raised=0, left=0):
        """The column, from left on, where the earlier picture's box stands in this one as seen in a
        mirror and so many rows higher; None if it does not. As above, blank rows prove nothing."""
        def flip(row):
            return b"".join(row[i:i + 3] for i in range(len(row) - 3, -1, -3))
        rows = [flip(row) for row in earlier.rows(box)]
        here = self.rows((left, box[1] - raised, self.width, box[3] - raised))
        widest = max(range(len(rows)), key=lambda y: len(rows[y].strip(rows[y][:3])))
        at = here[widest].find(rows[widest])
        if len(set(rows)) <= 20 or at < 0 or at % 3:
            return None
        found = all(row[at:at + len(wanted)] == wanted for row, wanted in zip(here, rows))
        return left + at // 3 if found else None

    def save(self, path):
        with open(path, "wb") as file:
            file.write(b"P6\n%d %d\n255\n" % (self.width, self.height))
            file.write(self._pixels)


class Desk(VirtualScreen):
    """A virtual screen with a program on it. Everything ends with the desk."""

    @property
    def settings_file(self):
        return self.home / "program/velmora.ini"

    def start(self, program, *arguments):
        """Starts a copy of the program in a folder of its own, so that the files it keeps beside
        itself are its own too and there are none at first."""
        folder = self.home / "program"
        folder.mkdir(exist_ok=True)
        copy = folder / Path(program).name
        if not copy.exists():
            shutil.copy2(program, copy)
        self.program = self.spawn([copy, *arguments])
        return self.program

    def wait_until(self, what, condition, seconds=20):
        """Polls until condition() gives something true, and returns it."""
        deadline = time.monotonic() + seconds
        while True:
            result = condition()
            if result:
                return result
            if time.monotonic() > deadline:
                raise AssertionError(f"waited {seconds} s in vain for {what}; "
                                     f"windows: {self.window_titles()}")
            time.sleep(0.05)

    def windows(self, title):
        """The visible windows whose title matches the regular expression."""
        found = subprocess.run(["xdotool", "search", "--onlyvisible", "--name", title],
                               env=self.environment, capture_output=True, text=True)
        return found.stdout.split()

    def window_titles(self):
        return [self.call("xdotool", "getwindowname", window).decode().strip()
                for window in self.windows(".+")]

    def wait_for_window(self, title, seconds=20):
        """Waits for a window and returns it. Fails at once if the program has ended meanwhile."""
        def shown():
            program = getattr(self, "program", None)
            if program is not None and program.poll() is not None:
                raise AssertionError(f"the program ended ({program.returncode}) "
                                     f"before a window {title!r} was there")
            return self.windows(title)
        return self.wait_until(f"a window {title!r}", shown, seconds)[0]

    def wait_until_gone(self, title, seconds=20):
        self.wait_until(f"the end of {title!r}", lambda: not self.windows(title), seconds)

    def wait_for_focus(self, window, seconds=20):
        def focused():
            found = subprocess.run(["xdotool", "getwindowfocus"], env=self.environment,
                                   capture_output=True, text=True)
            return found.stdout.strip() == window
        self.wait_until(f"the focus on window {window}", focused, seconds)

    def key(self, *keys):
        """Presses keys as at the keyboard, one after the other, by their X names ("ctrl+l")."""
        for name in keys:
            self.call("xdotool", "key", name)

    def type(self, text):
        for character in text:
            self.call("xdotool", "type", "--", character)

    def click(self, x, y, button=1):
        self.call("xdotool", "mousemove", x, y)
        self.call("xdotool", "click", button)

    def geometry(self, window):
        """Left, top, width and height of a window's inside, in pixels of the screen."""
        # Not by xdotool, which counts the frame's thickness twice.
        printed = self.call("xwininfo", "-id", window).decode()
        values = dict(re.findall(r"^ *([A-Za-z- ]+): *(-?\d+)$", printed, re.MULTILINE))
        return tuple(int(values[name]) for name in (
            "Absolute upper-left X", "Absolute upper-left Y", "Width", "Height"))

    def answer(self, title, *keys):
        """Waits for a window that has the keyboard, and presses keys in it that close it."""
        self.wait_for_focus(self.wait_for_window(title))
        self.key(*keys)
        self.wait_until_gone(title)

    def open_editor(self, program, *arguments, title=""):
        """Starts the program, closes the help on monitors and waits for the main window."""
        self.start(program, *arguments)
        self.answer(HELP_WINDOW, "Return")
        self.wait_for_editor(title)

    def write_settings(self, settings):
        """Leaves a settings file for the next start: of a first run, but for what is given."""
        lines = [str(settings.get(line, usual)) for line, usual in enumerate(SETTINGS)]
        self.settings_file.parent.mkdir(exist_ok=True)
        self.settings_file.write_bytes("".join(line + "\r\n" for line in lines).encode())

    def open_script(self, program, script, settings=()):
        """Starts the program with a script and settings, and waits for the editor."""
        self.write_settings(dict(settings))
        self.start(program, script)
        self.wait_for_editor(Path(script).name)

    def open_show(self, key="F1"):
        """Starts a show from the editor and waits until it has the keyboard."""
        self.key(key)
        self.wait_for_focus(self.wait_for_window(SHOW_WINDOW))

    def wait_for_editor(self, title=""):
        """Waits for the main window with the keyboard, and the title in its caption."""
        self.wait_for_focus(self.wait_for_window(MAIN_WINDOW + ".*" + title))

    def leave_show(self, leave):
        """Leaves the running show by calling leave, and waits for the editor."""
        leave()
        self.wait_until_gone(SHOW_WINDOW)
        self.wait_for_editor()

    def close_by_frame(self):
        """Asks the focused window to close, the way the cross in its frame does."""
        self.key("alt+F4")

    def picture(self):
        return Picture.from_ppm(
            self.call("import", "-silent", "-window", "root", "-depth", "8", "ppm:-"))

    def seen(self, what, condition, seconds=20):
        """Waits for a picture that fulfils the condition, and returns it."""
        def look():
            picture = self.picture()
            return picture if condition(picture) else None
        picture = self.wait_until(what, look, seconds)
        self.keep(picture, what.replace(" ", "_"))
        return picture

    def still_picture(self, box, what):
        """A picture whose box has stopped changing and is not empty."""
        def rests(now):
            # Long enough for a program that a busy machine keeps from its next picture.
            time.sleep(0.1)
            return not now.is_plain(box) and now.rows(box) == self.picture().rows(box)
        return self.seen(what, rests)

    def keep(self, picture, name):
        """Leaves a picture where somebody can look at it, if such a place is named."""
        folder = os.environ.get("VELMORA_E2E_PICTURES")
        if folder:
            picture.save(Path(folder) / f"{name}.ppm")


def desk_for(case, size, monitors=()):
    """A desk that ends with the test."""
    desk = Desk(size, monitors)
    case.addCleanup(desk.__exit__)
    return desk.__enter__()


def program_path():
    """The program under test; the tests are told by CTest, and can be by hand."""
    return os.environ.get("VELMORA_PROGRAM", str(ROOT / "build/release/velmora"))
