#!/usr/bin/env python3
"""Compare every #include with docs/layers.txt, and look for rooms that include each other in a loop.

A room is a source with its header. A public header is a room of its own, below the source that
implements it: what that source uses may include the header too. --strict also reports what
docs/layers.txt allows and nobody uses.
"""
import pathlib
import re
import sys


class Graph:
    """docs/layers.txt, read."""

    def __init__(self, text):
        self.uses, self.owner, self.up, self.only = {}, {}, set(), {}
        self.faces = set()
        for line in text.splitlines():
            line = line.split("#")[0].strip()
            if m := re.fullmatch(r"owns (\w+):(.*)", line):
                self.owner |= {header: m[1] for header in m[2].split()}
            elif m := re.fullmatch(r"up (\w+) -> (\w+): .+", line):
                self.up.add((m[1], m[2]))
            elif m := re.fullmatch(r"only (\w+):(.*)", line):
                self.only |= {header: m[1] for header in m[2].split()}
            elif m := re.fullmatch(r"(\w+):\s+every public header", line):
                self.uses[m[1]] = {m[1], "include"}
                self.faces.add(m[1])
            elif m := re.fullmatch(r"(\w+):(.*)", line):
                self.uses[m[1]] = {m[1], "include", *m[2].split()}
            elif line:
                sys.exit(f"docs/layers.txt: not understood: {line}")

    def folder_of(self, header):
        return header.split("/")[0] if "/" in header else self.owner.get(header)


def room(folder, name):
    return f"{folder}/{pathlib.PurePath(name).stem}"


class Check:
    def __init__(self, root, graph):
        self.root, self.graph = root, graph
        self.errors, self.used, self.rooms = [], set(), {}
        for folder in graph.uses:
            for path in sorted(p for p in (root / folder).rglob("*") if p.suffix in (".h", ".cpp")):
                self.read(folder, path)

    def read(self, folder, path):
        here = room(folder, path.name)
        self.rooms.setdefault(here, set())
        for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
            m = re.match(r'\s*#\s*include\s+([<"])([^>"]+)[>"]', line)
            if not m:
                continue
            problem = self.system(folder, m[2]) if m[1] == "<" else self.own(folder, here, m[2])
            if problem:
                self.errors.append(f"{path.relative_to(self.root)}:{number}: {problem}")

    def system(self, folder, header):
        home = self.graph.only.get(header, folder)
        return None if home == folder else f"<{header}> belongs to {home}"

    def own(self, folder, here, header):
        graph, target = self.graph, self.graph.folder_of(header)
        public = "/" not in header
        if target is None:
            return f"no folder owns {header}"
        other = room("include" if public else target, header.split("/")[-1])
        if other != here:
            self.rooms[here].add(other)
        if public and (folder == "include" or folder in graph.faces):
            return None
        if public and (folder, target) in graph.up:
            self.used.add((folder, target))
            return None
        if target in graph.uses[folder]:
            return None
        return f"{folder} may not include {header} ({target})"

    def unused(self):
        self.errors += [
            f"docs/layers.txt: unused edge {a} -> {b}" for a, b in sorted(self.graph.up - self.used)
        ]
        self.errors += [
            f"docs/layers.txt: {folder} owns {header}, which is not there"
            for header, folder in sorted(self.graph.owner.items())
            if not (self.root / "include" / header).is_file()
        ]

    def loops(self):
        """One loop for each room that is part of one, by a depth-first walk."""
        state, path = {}, []

        def walk(here):
            state[here] = "open"
            path.append(here)
            for other in sorted(self.rooms.get(here, ())):
                if state.get(other) == "open":
                    loop = [*path[path.index(other):], other]
                    self.errors.append("rooms include each other: " + " -> ".join(loop))
                elif other not in state:
                    walk(other)
            path.pop()
            state[here] = "done"

        for start in sorted(self.rooms):
            if start not in state:
                walk(start)


def main(arguments):
    root = pathlib.Path(arguments[0])
    graph = Graph((root / "docs/layers.txt").read_text(encoding="utf-8"))
    check = Check(root, graph)
    check.loops()
    if "--strict" in arguments:
        check.unused()
    print("\n".join(check.errors) or
          f"{len(graph.uses)} folders, {len(check.rooms)} rooms, no include against the graph")
    return bool(check.errors)


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
