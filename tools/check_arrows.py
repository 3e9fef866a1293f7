#!/usr/bin/env python3
"""Reads every #include of the tree: arrows between rooms point down only, and <QtWidgets> is never included whole.

Prints each wrong line and answers 1 when there is one.
"""
import pathlib
import re
import subprocess
import sys

# What a room may include beside itself. sdk and platform stand on the ground side by side.
MAY_INCLUDE = {
    "platform": set(),
    "sdk": set(),
    "services": {"platform", "sdk"},
    "shell/program": {"platform", "sdk", "services"},
    "domain": {"platform", "sdk", "services", "shell/program"},
    "domain/upload": {"platform", "sdk", "services", "shell/program", "domain"},
    "skin": {"platform", "sdk", "services", "shell/program", "domain", "domain/upload"},
    "screens": {"platform", "sdk", "services", "shell/program", "domain", "domain/upload", "skin"},
    "shell": {"platform", "sdk", "services", "shell/program", "domain", "domain/upload", "skin", "screens"},
    "games": {"sdk"},
}
INCLUDE = re.compile(r'^\s*#\s*include\s+(["<])([^">]+)[">]')


def room_of(path):
    """The room that a path belongs to, the innermost one, or None for what is no room."""
    for room in sorted(MAY_INCLUDE, key=len, reverse=True):
        if path == room or path.startswith(room + "/"):
            return room
    return None


def main():
    files = subprocess.run(["git", "ls-files", "-co", "--exclude-standard", "*.h", "*.cpp"], check=True,
                           capture_output=True, text=True).stdout.split("\n")
    wrong = []
    for name in filter(None, files):
        room = room_of(name)
        for number, line in enumerate(pathlib.Path(name).read_text(encoding="utf-8").split("\n"), 1):
            match = INCLUDE.match(line)
            if not match:
                continue
            mark, target = match.groups()
            if target in ("QtWidgets", "QtGui", "QtCore", "QtTest"):
                wrong.append(f"{name}:{number}: include the exact header instead of <{target}>")
            other = room_of(target) if mark == '"' and "/" in target else None
            if room and other and other != room and other not in MAY_INCLUDE[room]:
                wrong.append(f"{name}:{number}: {room} may not include {other} ({target})")
    print("\n".join(wrong) if wrong else f"arrows: {len(files)} files, all point down")
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())
