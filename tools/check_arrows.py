#!/usr/bin/env python3
"""Checks by their includes that the rooms of the library stand where they should.

usage: check_arrows.py ROOT

platform <- frame <- numeric, geometry, fem, soil, piles, plot <- plot3d; ui stands on frame and
platform; server stands on all rooms; backends and hosts stand outside. Prints each include that
goes against an arrow and returns 1 when there is one.
"""

import pathlib
import re
import sys

NUMERIC = {"platform", "frame"}
STANDS_ON = {
    "platform/component": set(),
    "platform/graphics": {"platform/component"},
    "platform/windows": {"platform/component", "platform/graphics"},
    "platform": {"platform/component"},
    "frame": {"platform"},
    "numeric": NUMERIC,
    "geometry": NUMERIC,
    "fem": NUMERIC,
    "soil": NUMERIC,
    "piles": NUMERIC,
    "plot": NUMERIC,
    "plot3d": NUMERIC | {"plot"},
    "ui": NUMERIC,
    "server": NUMERIC
    | {"numeric", "geometry", "fem", "soil", "piles", "plot", "plot3d", "ui"},
}
# What everything may use: the visibility macro of the platform.
COMMON = {"torlib/platform/api.h"}
INCLUDE = re.compile(r'^\s*#\s*include\s*"([^"]+)"', re.MULTILINE)


def room_of(path):
    """The longest known room that holds a path such as torlib/fem/fem_class.h."""
    parts = path.split("/")[1:-1]
    for length in (2, 1):
        room = "/".join(parts[:length])
        if len(parts) >= length and room in STANDS_ON:
            return room
    return None


def allowed(room, include):
    if include in COMMON:
        return True
    if not include.startswith("torlib/"):
        return False
    target = room_of(include)
    if target is None:
        return False
    ground = STANDS_ON[room] | {room}
    return target in ground or target.split("/")[0] in ground


def main(root):
    root = pathlib.Path(root)
    files = sorted(p for p in (root / "torlib").rglob("*") if p.suffix in {".h", ".cpp", ".inl"})
    faults = 0
    for file in files:
        name = file.relative_to(root).as_posix()
        room = room_of(name)
        if room is None:
            print(f"{name}: lies in no known room")
            faults += 1
            continue
        for include in INCLUDE.findall(file.read_text(encoding="utf-8")):
            if not allowed(room, include):
                print(f'{name}: the room {room} must not include "{include}"')
                faults += 1
    if not files:
        print(f"{root}: there is no library here")
    return 1 if faults or not files else 0


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    sys.exit(main(sys.argv[1]))
