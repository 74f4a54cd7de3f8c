#!/usr/bin/env python3
"""Refuses source files that have grown too long to be read as one thing.

    check_file_lengths.py REPOSITORY"""

import sys
from pathlib import Path

MOST_LINES = 800
FOLDERS = ("src", "tests", "bench", "fuzz", "tools", "examples")
ENDINGS = (".cpp", ".h", ".py", ".sh")


def violations(repository):
    repository = Path(repository)
    files = [path for folder in FOLDERS for path in (repository / folder).rglob("*")
             if path.suffix in ENDINGS and path.is_file()]
    if not files:
        return [f"{repository}: no source files"]
    lengths = ((path, len(path.read_text("utf-8").splitlines())) for path in sorted(files))
    return [f"{path.relative_to(repository)}: {lines} lines, {MOST_LINES} is the limit"
            for path, lines in lengths if lines > MOST_LINES]


if __name__ == "__main__":
    problems = violations(sys.argv[1])
    print("\n".join(problems))
    sys.exit(bool(problems))
