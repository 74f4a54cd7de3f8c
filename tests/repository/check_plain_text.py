#!/usr/bin/env python3
"""Reads every source under src/ and refuses what would take a text for the toolkit's rich text, which
can read files: a script's words, fonts and names come from anybody.

    check_plain_text.py SOURCE_DIR

Labels and tooltips are plain by the program's style (app/look.cpp)."""

import re
import sys
from pathlib import Path

RICH = re.compile(r"\b(setHtml|insertHtml|setMarkdown|QTextBrowser|convertFromPlainText|"
                  r"Qt::RichText|Qt::MarkdownText|QStaticText)\b")

# Makes plain text of a web page, in a document that reads nothing.
ALLOWED = {("platform/rich_text/rich_text_view_clipboard.cpp", "setHtml")}


def violations(root):
    found = []
    for path in sorted(Path(root).rglob("*")):
        name = path.relative_to(root).as_posix()
        if path.suffix in (".h", ".cpp"):
            for number, line in enumerate(path.read_text("utf-8").splitlines(), 1):
                for word in RICH.findall(line):
                    if (name, word) not in ALLOWED:
                        found.append(f"{name}:{number}: {word} makes text rich")
    return found


if __name__ == "__main__":
    problems = violations(sys.argv[1])
    print("\n".join(problems))
    sys.exit(bool(problems))
