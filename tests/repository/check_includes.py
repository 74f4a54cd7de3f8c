#!/usr/bin/env python3
"""Reads every #include under src/ and refuses an arrow between layers, or between the parts of
platform, that is not allowed.

    check_includes.py SOURCE_DIR QT_WIDGETS_HEADER_DIR

Also refused: a header of ours that is not named from src/ downwards, Qt Widgets within reach of
core, a test for an operating system outside platform, and what belongs to one folder elsewhere."""

import os
import re
import sys
from pathlib import Path

# Each layer with the layers that it may include directly. What lies below those is allowed as well.
LAYERS = {
    "platform": [],
    "core": ["platform"],
    "widgets": ["core"],
    "controllers": ["widgets"],
    "editor": ["controllers"],
    "setup": ["controllers"],
    "printing": ["controllers"],
    "display": ["editor"],
    "app": ["setup", "printing", "display", "editor"],
}

# The same for the folders inside platform. A file beside them may include none of them.
PLATFORM_PARTS = {
    "desktop": ["files"],
    "devices": [],
    "drawing": [],
    "files": [],
    "text_services": [],
    "timing": [],
    "rich_text": ["drawing", "files", "text_services"],
}

# What only one folder may use, because it is easily used wrongly.
ONE_FOLDER = {"QSaveFile": "platform/files"}

INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]', re.MULTILINE)
SYSTEM_TEST = re.compile(
    r"^\s*#\s*(?:if|ifdef|ifndef|elif)\b.*"
    r"\b(Q_OS_\w+|_WIN32|_WIN64|__linux__|__APPLE__|__unix__)\b",
    re.MULTILINE)


def reachable(layer):
    """The layers that a file of this layer may include."""
    found = {layer}
    for below in LAYERS[layer]:
        found |= reachable(below)
    return found


def part_of(path):
    """The folder inside platform that a path from src/ on lies in; None outside, or beside them."""
    parts = path.split("/")
    return parts[1] if parts[0] == "platform" and len(parts) > 2 else None


def crosses_parts(path, name):
    """Whether a file of platform includes a header of a part that it may not know."""
    part, target = part_of(path), part_of(name)
    return target not in (None, part, *PLATFORM_PARTS.get(part, []))


def source_files(root):
    return sorted(path for path in root.rglob("*") if path.suffix in (".h", ".cpp"))


def includes_of(path):
    return [(mark, name) for mark, name in INCLUDE.findall(path.read_text("utf-8"))]


def is_qt_widgets(name, widget_headers):
    return name.startswith("QtWidgets/") or name in widget_headers


def widgets_in_reach(path, root, widget_headers):
    """The chain of headers through which a file comes to Qt Widgets, or None."""
    seen = {}
    waiting = [(path, [])]
    while waiting:
        here, chain = waiting.pop()
        for _, name in includes_of(here):
            if is_qt_widgets(name, widget_headers):
                return chain + [name]
            target = root / name
            if target.is_file() and target not in seen:
                seen[target] = True
                waiting.append((target, chain + [name]))
    return None


def violations(root, widget_headers):
    root = Path(root)
    found = []
    files = source_files(root)
    if not files:
        return [f"{root}: no source files"]
    for path in files:
        where = path.relative_to(root)
        layer = where.parts[0]
        if layer not in LAYERS:
            found.append(f"{where}: {layer} is not a layer")
            continue
        for mark, name in includes_of(path):
            if where.parent.as_posix() != ONE_FOLDER.get(name, where.parent.as_posix()):
                found.append(f"{where}: only {ONE_FOLDER[name]} may include {name}")
            target = name.split("/")[0]
            if target in LAYERS and "/" in name:
                if target not in reachable(layer):
                    found.append(f"{where}: {layer} may not include {name}")
                elif layer == "platform" and crosses_parts(where.as_posix(), name):
                    found.append(f"{where}: {where.parent} may not include {name}")
            elif mark == '"' and not name.endswith(".moc") and not name.startswith(("moc_", "ui_")):
                found.append(f"{where}: {name} is not named from src/ downwards")
        if layer == "core":
            chain = widgets_in_reach(path, root, widget_headers)
            if chain:
                found.append(f"{where}: core reaches Qt Widgets through {' > '.join(chain)}")
        if layer != "platform":
            for test in SYSTEM_TEST.findall(path.read_text("utf-8")):
                found.append(f"{where}: tests for an operating system ({test}) outside platform")
    return found


if __name__ == "__main__":
    problems = violations(sys.argv[1], set(os.listdir(sys.argv[2])))
    print("\n".join(problems))
    sys.exit(bool(problems))
