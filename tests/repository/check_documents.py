#!/usr/bin/env python3
"""Checks that the documents tell the truth about the tree: every path that they name in backticks
exists, and every folder under src/ tells what belongs in it.

    check_documents.py REPOSITORY

A path is a word with a slash, a file name with a known ending, or the command of a line like
`./dev bench`. It may stand from the repository's root, from src/, from tests/ or from the
document's own folder; "*" and "{a,b}" work as in a shell. Skipped are file names in capitals, which
stand for what the reader puts in, and what lies in build/."""

import itertools
import re
import sys
from pathlib import Path

QUOTED = re.compile(r"`([^`\n]+)`")
PATH = re.compile(r"[\w.*{},+-]*/[\w.*{},+/-]*")
FILE = re.compile(r"[\w{},-]+\.(?:md|cpp|h|py|sh|txt|rtf|cmake|json)")
FENCE = re.compile(r"^```.*?^```", re.MULTILINE | re.DOTALL)


def documents(repository):
    named = [repository / "README.md", repository / "CONTRIBUTING.md"]
    folders = ["src", "tests", "bench", "fuzz", "examples", "tools", "resources"]
    below = sorted(path for folder in folders for path in (repository / folder).rglob("README.md"))
    return [*named, *sorted((repository / "docs").glob("*.md")), *below]


def expand(pattern):
    """What a shell makes of the braces in a pattern."""
    parts = [part.split(",") for part in re.split(r"[{}]", pattern)]
    return ["".join(choice) for choice in itertools.product(*parts)]


def names_a_path(word):
    if word.startswith(("build/", "/")):
        return False
    if PATH.fullmatch(word):
        return True
    stem = word.split(".")[0]
    return FILE.fullmatch(word) is not None and (
        not stem.isupper() or stem in ("README", "CONTRIBUTING"))


def exists(pattern, bases):
    return any(any(base.glob(pattern.strip("/").removeprefix("./"))) for base in bases)


def violations(repository):
    repository = Path(repository)
    found = []
    for document in documents(repository):
        where = document.relative_to(repository)
        if not document.is_file():
            found.append(f"{where} is missing")
            continue
        bases = [repository, repository / "src", repository / "tests", document.parent]
        text = document.read_text("utf-8")
        for quoted in QUOTED.findall(FENCE.sub("", text)):
            words = quoted.split()
            if len(words) > 1:
                words = [word for word in words if word.startswith("./")]
            for word in words:
                if names_a_path(word):
                    found += [f"{where}: {path} does not exist"
                              for path in expand(word) if not exists(path, bases)]
    for folder in sorted(path for path in (repository / "src").rglob("*") if path.is_dir()):
        if not (folder / "README.md").is_file():
            found.append(f"{folder.relative_to(repository)} has no README.md")
    return found


if __name__ == "__main__":
    problems = violations(sys.argv[1])
    print("\n".join(problems))
    sys.exit(bool(problems))
