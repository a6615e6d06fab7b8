#!/usr/bin/env python3
"""Holds the sources against .clang-tidy: tidy.py BUILD_TREE JOBS [FILE...].

Takes every source of the build tree's compile_commands.json but the tests, or the named ones. A
source that was clean, and of which neither it, a header of the project that it includes, nor the
settings have changed since, is not looked at again; BUILD_TREE/tidy remembers.
"""
import concurrent.futures
import functools
import hashlib
import json
import os
import pathlib
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
INCLUDE = re.compile(r'^\s*#\s*include\s*"([^"]+)"', re.MULTILINE)
FINDING = re.compile(r" (error|warning): ")


@functools.cache
def included(path):
    """The project's own files that a file names."""
    found = []
    for name in INCLUDE.findall(path.read_text(encoding="utf-8")):
        places = (folder / name for folder in (ROOT, ROOT / "include", path.parent))
        found += [place.resolve() for place in places if place.is_file()][:1]
    return found


def headers(path, seen):
    """The project's own files that a source is made of, itself among them."""
    if path not in seen:
        seen.add(path)
        for name in included(path):
            headers(name, seen)


def fingerprint(source, command):
    seen = set()
    headers(source, seen)
    whole = hashlib.sha256(command.encode())
    for path in sorted(seen | set(ROOT.glob(".clang-tidy")) | set(ROOT.glob("*/.clang-tidy"))):
        whole.update(path.read_bytes())
    return whole.hexdigest()


def look(tree, name):
    """What is wrong with a source; nothing when it is clean."""
    # The analyzer walks every path through the option library: half a minute for a table of options.
    less = ["--checks=-clang-analyzer-*"] if name.startswith("cli/arguments") else []
    done = subprocess.run(["clang-tidy", "-p", tree, "--quiet", *less, str(ROOT / name)],
                          capture_output=True, text=True, check=False)
    if done.returncode == 0:
        return ""
    lines = [line for line in done.stdout.splitlines() if FINDING.search(line)]
    return "\n".join(lines) if lines else done.stdout + done.stderr


def main():
    tree, jobs, names = pathlib.Path(sys.argv[1]), int(sys.argv[2]), sys.argv[3:]
    memory = tree / "tidy"
    memory.mkdir(exist_ok=True)
    commands = {pathlib.Path(entry["file"]): entry["command"]
                for entry in json.loads((tree / "compile_commands.json").read_text())}
    wanted = {}
    for source, command in sorted(commands.items()):
        name = source.relative_to(ROOT).as_posix() if source.is_relative_to(ROOT) else ""
        if name and not name.startswith(("tests/", "build/")) and (not names or name in names):
            stamp = memory / name.replace("/", "_")
            mark = fingerprint(source, command)
            if not stamp.exists() or stamp.read_text() != mark:
                wanted[name] = (stamp, mark)
    bad = set()
    with concurrent.futures.ThreadPoolExecutor(jobs) as pool:
        found = {pool.submit(look, tree, name): name for name in wanted}
        for future in concurrent.futures.as_completed(found):
            name, text = found[future], future.result()
            if text:
                bad.add(name)
                print(text.replace(str(ROOT) + os.sep, ""), flush=True)
            else:
                wanted[name][0].write_text(wanted[name][1])
    print(f"tidy: {len(wanted)} sources looked at, {len(bad)} with findings")
    return 1 if bad else 0


if __name__ == "__main__":
    sys.exit(main())
