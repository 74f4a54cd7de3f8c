"""A picture of the program with a script in its editor, as somebody would see it who opens it for
the first time and closes the help.

    screenshot.py PROGRAM SCRIPT OUT.png [WIDTHxHEIGHT]"""

import subprocess
import sys
from pathlib import Path

from harness import Desk


def main(arguments):
    if len(arguments) not in (3, 4):
        sys.exit(__doc__)
    program, script, out = arguments[:3]
    size = arguments[3] if len(arguments) == 4 else "1920x1080"
    script = Path(script).resolve(strict=True)
    with Desk(tuple(int(number) for number in size.split("x"))) as desk:
        desk.open_editor(program, script, title=script.name)
        desk.call("import", "-silent", "-window", "root", Path(out).resolve())


if __name__ == "__main__":
    main(sys.argv[1:])
