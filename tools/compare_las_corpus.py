#!/usr/bin/env python3
"""Holds what `welldb las FILE --json` reads against what an independent reader saw.

usage: compare_las_corpus.py PROGRAM FOLDER

FOLDER holds LAS files and expected.json (file -> version, wrap, well, null, start, stop, step,
rows, depth [first, last], curves [name, unit, points, count, min, max]; "error" where that reader
gave up). Prints each difference under its kind, and answers 1 when there is one.
docs/las-corpus.md explains the kinds that remain.
"""
import json
import math
import pathlib
import re
import subprocess
import sys
from collections import defaultdict


def close(a, b):
    return math.isclose(a, b, rel_tol=1e-9, abs_tol=1e-9)


def absent(value):
    return value is None or value == "" or (isinstance(value, float) and math.isnan(value))


def read(program, path):
    done = subprocess.run([program, "las", str(path), "--json"], capture_output=True, timeout=60)
    try:
        return json.loads(done.stdout.decode("utf-8"))
    except ValueError:
        return {"ok": False, "error": done.stderr.decode("utf-8", "replace").strip() or "no JSON"}


def well_name(got):
    """The value of WELL; version 1 files have a label there and the name as its description."""
    for entry in got["well"]:
        if entry["mnemonic"].upper() == "WELL":
            behind = got["version"].startswith("1") and entry["value"].upper() == "WELL"
            return entry["description"] if behind else entry["value"]
    return ""


def compare_header(expected, got):
    for key in ("start", "stop", "step", "null"):
        if absent(expected[key]):
            default = {"null": -999999.0, "step": 1.0}.get(key, 0.0)
            if got[key] != default:
                yield f"{key} where the other reader has none", f"{got[key]}"
        elif key == "step" and expected[key] == 0.0 and got[key] == 1.0:
            continue  # a step of 0 is read as 1
        elif not close(expected[key], got[key]):
            yield key, f"{expected[key]} there, {got[key]} here"
    if expected["version"] != got["version"]:
        yield "version", f'{expected["version"]!r} there, {got["version"]!r} here'
    if (expected["wrap"] == "YES") != got["wrap"]:
        yield "wrap", f'{expected["wrap"]!r} there, {got["wrap"]} here'
    if (expected["well"] or "") != well_name(got):
        yield "well name", f'{expected["well"]!r} there, {well_name(got)!r} here'


def compare_curve(expected, got):
    where = expected["name"] or "(unnamed)"
    plain = re.sub(r"_\d+$", "", got["name"])
    if expected["name"].upper() not in (got["name"].upper(), plain.upper()):
        yield "curve name", f'{expected["name"]!r} there, {got["name"]!r} here'
    if expected["unit"] != got["unit"]:
        yield "curve unit", f'{where}: {expected["unit"]!r} there, {got["unit"]!r} here'
    if expected["points"] != got["points"]:
        yield "points", f'{where}: {expected["points"]} there, {got["points"]} here'
    if not expected["numeric"]:
        yield "text column", f'{where}: kept as text there, {got["count"]} numbers here'
        return
    if expected["count"] != got["count"]:
        yield "values", f'{where}: {expected["count"]} there, {got["count"]} here'
    elif expected["count"]:
        for key in ("min", "max"):
            if not close(expected[key], got[key]):
                yield key, f"{where}: {expected[key]} there, {got[key]} here"


def compare(expected, got):
    if not got["ok"]:
        yield "refused here", got.get("error", "")
        return
    if "error" in expected:
        yield "only read here", f'{expected["error"]} there, {got["rows"]} rows here'
        return
    yield from compare_header(expected, got)
    if expected["rows"] != got["rows"]:
        yield "rows", f'{expected["rows"]} there, {got["rows"]} here'
    curves = expected["curves"]
    if len(curves) != len(got["curves"]):
        yield "number of curves", f'{len(curves)} there, {len(got["curves"])} here'
        return
    for theirs, ours in zip(curves, got["curves"]):
        yield from compare_curve(theirs, ours)
    if expected.get("depth") and got["rows"] and got["curves"]:
        ends = [got["curves"][0]["first_depth"], got["curves"][0]["last_depth"]]
        if not all(map(close, expected["depth"], ends)):
            yield "depth range", f'{expected["depth"]} there, {ends} here'


def main():
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    program, folder = sys.argv[1], pathlib.Path(sys.argv[2])
    expected = json.loads((folder / "expected.json").read_text(encoding="utf-8"))
    kinds = defaultdict(list)
    same = compared = 0
    for name in sorted(expected):
        path = folder / name
        if path.suffix.lower() != ".las" or not path.is_file():
            continue
        compared += 1
        found = list(compare(expected[name], read(program, path)))
        same += not found
        for kind, text in found:
            kinds[kind].append(f"{name}: {text}")
    for kind in sorted(kinds):
        print(f"{kind} ({len(kinds[kind])})")
        for line in kinds[kind]:
            print(f"    {line}")
    print(f"{compared} files compared, {same} read the same")
    return 1 if kinds else 0


if __name__ == "__main__":
    sys.exit(main())
