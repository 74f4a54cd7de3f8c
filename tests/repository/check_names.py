#!/usr/bin/env python3
"""Checks the index of names: each row of docs/NAMES.md names a file that exists and that holds the
name; a class is defined in it, not merely mentioned.

    check_names.py REPOSITORY"""

import re
import sys
from pathlib import Path

INDEX = "docs/NAMES.md"
ROW = re.compile(r"^\| *`([^`]+)` *\| *([^|]+?) *\| *([^|]*?) *\| *`([^`]+)` *\|$", re.MULTILINE)


def defines_class(text, name):
    return re.search(rf"\b(?:class|struct)\s+{re.escape(name)}\b[^;{{]*{{", text) is not None


def violations(repository):
    repository = Path(repository)
    lines = (repository / INDEX).read_text("utf-8").splitlines()
    rows = [ROW.match(line) for line in lines]
    found = [f"{INDEX}:{number}: not a row of the index: {line}"
             for number, (line, row) in enumerate(zip(lines, rows), 1)
             if line.startswith("| `") and row is None]
    rows = [row for row in rows if row]
    if not any(row[2] == "class" for row in rows):
        found.append(f"{INDEX}: lists no class")
    for row in rows:
        name, kind, _, file = row.groups()
        path = repository / file
        if not path.is_file():
            found.append(f"{INDEX}: {name} is said to be in {file}, which does not exist")
            continue
        text = path.read_text("utf-8")
        if kind == "class":
            if not defines_class(text, name):
                found.append(f"{INDEX}: {file} does not define the class {name}")
        elif not re.search(rf"\b{re.escape(name)}\b", text):
            found.append(f"{INDEX}: {file} does not hold {name}")
    return found


if __name__ == "__main__":
    problems = violations(sys.argv[1])
    print("\n".join(problems))
    sys.exit(bool(problems))
