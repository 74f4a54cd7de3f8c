#!/usr/bin/env python3
"""A virtual X screen with a window manager, for machines without a display and for tests.

    virtual_screen.py WIDTHxHEIGHT COMMAND...

runs COMMAND on such a screen and exits with its status. As a module: VirtualScreen. Whatever is
started here is ended here, by its process id, even if this process is killed."""

import ctypes
import os
import shutil
import signal
import subprocess
import sys
import tempfile
import time
from pathlib import Path

PR_SET_PDEATHSIG = 1  # from linux/prctl.h


def _end_with_parent():
    ctypes.CDLL(None).prctl(PR_SET_PDEATHSIG, signal.SIGTERM)


class VirtualScreen:
    """An X server with a free display number, a window manager on it, and an empty configuration.

    size: width and height in pixels. monitors: rectangles (x, y, width, height) into which the
    screen is divided, none for one monitor. home: folder of the children's configuration."""

    def __init__(self, size=(1920, 1080), monitors=()):
        self.size = size
        self.monitors = monitors
        self._children = []

    def __enter__(self):
        self.home = Path(tempfile.mkdtemp(prefix="velmora-screen-"))
        try:
            self._start()
        except BaseException:
            self._end()
            raise
        return self

    def __exit__(self, *_):
        self._end()

    def spawn(self, command, **options):
        """Starts a child on this screen; it is ended with the screen if it has not ended before."""
        child = subprocess.Popen(
            [str(word) for word in command], env=self.environment,
            preexec_fn=_end_with_parent, **options)
        self._children.append(child)
        return child

    def call(self, *command):
        """Runs a tool on this screen and returns what it printed, as bytes."""
        done = subprocess.run(
            [str(word) for word in command], env=self.environment, capture_output=True, timeout=60)
        if done.returncode != 0:
            raise RuntimeError(f"{command[0]} failed ({done.returncode}): {done.stderr.decode()}")
        return done.stdout

    def _start(self):
        self.environment = dict(os.environ, LC_ALL="C.UTF-8", HOME=str(self.home))
        for name in ("WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "XAUTHORITY", "SESSION_MANAGER"):
            self.environment.pop(name, None)
        for name in ("CONFIG", "DATA", "CACHE", "STATE", "RUNTIME"):
            folder = self.home / name.lower()
            folder.mkdir(mode=0o700)
            variable = "XDG_RUNTIME_DIR" if name == "RUNTIME" else f"XDG_{name}_HOME"
            self.environment[variable] = str(folder)
        self.environment["TMPDIR"] = str(self.home)

        # The server picks a free number itself and tells it once it is ready for clients.
        reader, writer = os.pipe()
        width, height = self.size
        self.spawn(
            ["Xvfb", "-displayfd", writer, "-screen", "0", f"{width}x{height}x24", "-dpi", "96",
             "-noreset", "-nolisten", "tcp"],
            pass_fds=(writer,), stderr=subprocess.DEVNULL)
        os.close(writer)
        with os.fdopen(reader) as answer:
            number = answer.readline().strip()
        if not number:
            raise RuntimeError("Xvfb did not start")
        self.environment["DISPLAY"] = f":{number}"

        self._divide()
        self.spawn(["openbox", "--sm-disable"], stdout=subprocess.DEVNULL,
                   stderr=subprocess.DEVNULL)
        self._wait_for_window_manager()

    def end_server(self):
        """Ends the X server alone, as at the end of a session."""
        self._children[0].kill()
        self._children[0].wait()

    def set_monitor(self, name, rectangle, output):
        """Makes a monitor of a part of the screen, or moves it. output: "screen", the server's only
        one, for one of the monitors, "none" for the others."""
        x, y, width, height = rectangle
        # Sizes in millimetres as at 96 dpi.
        geometry = (f"{width}/{round(width * 25.4 / 96)}x"
                    f"{height}/{round(height * 25.4 / 96)}+{x}+{y}")
        self.call("xrandr", "--setmonitor", name, geometry, output)

    def _divide(self):
        for index, rectangle in enumerate(self.monitors):
            self.set_monitor(f"monitor{index + 1}", rectangle, "none" if index else "screen")

    def _wait_for_window_manager(self):
        """A window mapped before the manager has the screen would stay without a frame."""
        deadline = time.monotonic() + 10
        while time.monotonic() < deadline:
            try:
                self.call("xdotool", "get_num_desktops")
                return
            except RuntimeError:
                time.sleep(0.05)
        raise RuntimeError("openbox did not start")

    def _end(self):
        for child in reversed(self._children):
            if child.poll() is None:
                child.terminate()
                try:
                    child.wait(5)
                except subprocess.TimeoutExpired:
                    child.kill()
                    child.wait()
        self._children.clear()
        shutil.rmtree(self.home, ignore_errors=True)


def main(arguments):
    if len(arguments) < 2:
        sys.exit(__doc__)
    # An end asked for from outside passes through the screen's own end.
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(143))
    width, height = (int(number) for number in arguments[0].split("x"))
    with VirtualScreen((width, height)) as screen:
        return screen.spawn(arguments[1:]).wait()


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
