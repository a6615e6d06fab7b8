#!/usr/bin/env python3
"""Holds what the shared library exports against a list: nothing internal slips out, and nothing that
hosts link against goes away unnoticed.

exported_symbols_test.py LIBRARY [--refresh]
"""
import pathlib
import re
import subprocess
import sys

LIST = pathlib.Path(__file__).with_name("exported_symbols.txt")


def exported(library):
    """Functions and data of our own; what the compiler makes of the standard library is its own."""
    lines = subprocess.run(["nm", "-D", "--defined-only", "--demangle", library],
                           check=True, capture_output=True, text=True).stdout.splitlines()
    names = {re.sub(r"^\S+ [A-Z] ", "", line) for line in lines if re.match(r"^\S+ [TDBR] ", line)}
    return sorted(name for name in names if not name.startswith(("std::", "void std::", "_")))


def main():
    library = sys.argv[1]
    if not library.endswith(".so") or not pathlib.Path(library).exists():
        print("no shared library here")
        return 77
    now = exported(library)
    if "--refresh" in sys.argv:
        LIST.write_text("\n".join(now) + "\n", encoding="utf-8")
        return 0
    known = LIST.read_text(encoding="utf-8").splitlines()
    new = sorted(set(now) - set(known))
    gone = sorted(set(known) - set(now))
    for name in new:
        print("new:  " + name)
    for name in gone:
        print("gone: " + name)
    if new or gone:
        print("A change of the interface: --refresh writes the list anew.")
    return 1 if new or gone else 0


if __name__ == "__main__":
    sys.exit(main())
