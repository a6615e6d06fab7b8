#!/usr/bin/env python3
"""Rewrite the C++ sources with clang-format; with --check, only tell which ones it would change.

Answers 77 when clang-format is not installed.
"""
import pathlib
import re
import shutil
import subprocess
import sys

# The layout of a source depends on the version of clang-format: Debian 12's is the one.
PROGRAMS = ("clang-format-14", "clang-format")
LEFT_OUT = {"build", "demo", ".git"}

root = pathlib.Path(__file__).resolve().parent.parent
program = next(filter(None, map(shutil.which, PROGRAMS)), None)
if program is None:
    print("clang-format is not installed")
    sys.exit(77)

sources = sorted(
    str(path)
    for folder in root.iterdir()
    if folder.is_dir() and folder.name not in LEFT_OUT
    for path in folder.rglob("*")
    if path.suffix in (".h", ".cpp")
)
if "--check" not in sys.argv:
    sys.exit(subprocess.run([program, "-i", "--style=file", *sources], check=False).returncode)

checked = subprocess.run([program, "--style=file", "--dry-run", "-Werror", *sources],
                         capture_output=True, text=True, check=False)
wrong = sorted({m[1] for m in re.finditer(r"^(.+?):\d+:\d+: error:", checked.stderr, re.M)})
print("\n".join(f"{source}: ./run format would change it" for source in wrong)
      or checked.stderr or f"{len(sources)} sources are formatted")
sys.exit(bool(checked.returncode))
