#!/usr/bin/env python3
"""Checks the include arrows: which room may include which, and that no two files include each other.

Calls run one way. A room may include itself and the rooms below it; the ground of the library (plot state, levels,
messages, clock) may include only group records and itself.
"""
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
SRC = ROOT / "src"

# From the top down. A room may include every room behind it.
ORDER = ["app", "script", "run", "widget", "map", "contour", "graph3d", "graph2d", "text", "core", "device", "image",
         "raster", "platform", "ground"]
GROUND = {"plot_state", "levels", "messages", "clock", "file_version", "stop_request"}


def room_of(path):
    """Room of a file given relative to src/; group records and the ground's files count as ground."""
    stem = pathlib.PurePath(path).stem
    folder = pathlib.PurePath(path).parts[0]
    if stem.endswith("_group") or (folder == "core" and stem in GROUND):
        return "ground"
    return folder


def includes_of(file):
    text = file.read_text()
    return [m.group(1) for m in re.finditer(r'^#include "([^"]+)"', text, re.M)]


def find_circle(graph):
    state, stack = {}, []

    def visit(node):
        state[node] = 1
        stack.append(node)
        for target in graph.get(node, ()):
            if state.get(target) == 1:
                return stack[stack.index(target):] + [target]
            if target not in state:
                circle = visit(target)
                if circle:
                    return circle
        stack.pop()
        state[node] = 2
        return None

    for node in sorted(graph):
        if node not in state:
            circle = visit(node)
            if circle:
                return circle
    return None


def main():
    faults, graph = [], {}
    for file in sorted(SRC.rglob("*")):
        if file.suffix not in (".h", ".cpp"):
            continue
        name = str(file.relative_to(SRC))
        room = room_of(name)
        targets = includes_of(file)
        if file.suffix == ".h":
            graph[name] = [t for t in targets if (SRC / t).exists()]
        for target in targets:
            if not (SRC / target).exists():
                if not (ROOT / "include" / target).exists():
                    faults.append(f"{name}: no such file: {target}")
                elif room == "ground":
                    faults.append(f"{name}: the ground must not include the public header")
                continue
            below = room_of(target)
            if room not in ORDER or below not in ORDER:
                faults.append(f"{name}: unknown room in {target}")
            elif ORDER.index(below) < ORDER.index(room):
                faults.append(f"{name} ({room}) must not include {target} ({below})")
    circle = find_circle(graph)
    if circle:
        faults.append("circle: " + " -> ".join(circle))
    for fault in faults:
        print(fault)
    print(f"include arrows: {len(faults)} faults")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
