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


def violations(root):
    found = []
    for path in sorted(Path(root).rglob("*")):
        if path.suffix in (".h", ".cpp"):
            for number, line in enumerate(path.read_text("utf-8").splitlines(), 1):
                for word in RICH.findall(line):
                    found.append(f"{path.relative_to(root)}:{number}: {word} makes text rich")
    return found


if __name__ == "__main__":
    problems = violations(sys.argv[1])
    print("\n".join(problems))
    sys.exit(bool(problems))
