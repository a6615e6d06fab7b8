#!/usr/bin/env python3
"""Writes the measured figures into README.md and docs/figures.md: figures.py RESULTS [ROOT].

RESULTS holds what the last runs left: bench.json of the benchmark, tests/* of the tests (lines of
a name, a tab and a count, one file for each test and figure, summed by name), fuzz/* of the fuzz
targets (inputs, a tab, seconds). What has not been run is left as it stands in the pages.
"""
import collections
import datetime
import json
import pathlib
import re
import sys

# What the README shows of the benchmark; docs/figures.md shows all of it.
SHOWN = [
    "LAS read",
    "LAS header alone",
    "LAS import into a container",
    "small LAS files into a container",
    "sample file write",
    "sample file read",
    "200,000 intervals from a CSV table",
    "opening one of 10,000 wells",
    "getAbs, depths in order",
    "getTime, random depths",
    "loading the picks of a well",
]


def number(value):
    """Three digits that matter, thousands set apart."""
    size = abs(value)
    return f"{value:,.{3 if size < 1 else 2 if size < 10 else 1 if size < 100 else 0}f}"


def row(*cells):
    return "| " + " | ".join(cells) + " |"


def limit(figure):
    return f"{number(figure['limit'])} {figure['unit']}, {figure['limit_name']}" if "limit" in figure else ""


def asked(figure):
    sign, reach = ("≤", figure["at_most"]) if "at_most" in figure else ("≥", figure["at_least"])
    return f"{sign} {number(reach)}" + ("" if figure["reached"] else ", **missed**")


def bench_table(figures):
    lines = [row("measure", "reached", "limit, of the same run", "ratio", "asked"), "|---|---|---|---|---|"]
    for figure in figures:
        ratio = number(figure["ratio"]) if "limit" in figure else ""
        lines.append(row(figure["name"], f"{number(figure['value'])} {figure['unit']}", limit(figure), ratio,
                         asked(figure)))
    return lines


def bench_parts(results):
    path = results / "bench.json"
    if not path.exists():
        return {}
    figures = json.loads(path.read_text())
    names = {figure["name"] for figure in figures}
    missing = [name for name in SHOWN if name not in names]
    if missing:
        sys.exit(f"figures: the benchmark did not measure: {', '.join(missing)}; run all of it")
    shown = sorted((f for f in figures if f["name"] in SHOWN), key=lambda f: SHOWN.index(f["name"]))
    when = datetime.date.fromtimestamp(path.stat().st_mtime)
    reached = sum(figure["reached"] for figure in figures)
    note = ["", f"Of {len(figures)} figures {reached} reach what is asked; two cores, {when}."]
    return {"bench": bench_table(shown) + note, "bench-all": bench_table(figures) + note}


def counts(folder):
    """Counts by name, and the number of tests that told each."""
    sums, tests = collections.Counter(), collections.Counter()
    for path in sorted(folder.glob("*")):
        name, count = path.read_text().rstrip("\n").split("\t")
        sums[name] += int(count)
        tests[name] += 1
    return sums, tests


def tried_parts(results):
    sums, tests = counts(results / "tests")
    lines = [row(name, f"{sums[name]:,}", f"{tests[name]} tests" if tests[name] > 1 else "1 test")
             for name in sorted(sums)]
    fuzzed = [tuple(map(int, path.read_text().split("\t"))) for path in sorted((results / "fuzz").glob("*"))]
    if fuzzed:
        least = min(seconds for _, seconds in fuzzed)
        lines.append(row("inputs fuzzed", f"{sum(inputs for inputs, _ in fuzzed):,}",
                         f"{len(fuzzed)} targets, {least:,} s or more each"))
    return {"tried": [row("survived", "", "by"), "|---|---|---|"] + lines} if lines else {}


def rewritten(text, parts):
    """The page with what stands between the marks of each part replaced."""
    def fill(match):
        name = match.group(1)
        return match.group(0) if name not in parts else (
            f"<!-- figures {name} -->\n" + "\n".join(parts[name]) + "\n<!-- end -->")
    return re.sub(r"<!-- figures ([a-z-]+) -->\n.*?<!-- end -->", fill, text, flags=re.DOTALL)


def main():
    results = pathlib.Path(sys.argv[1])
    root = pathlib.Path(sys.argv[2] if len(sys.argv) > 2 else ".")
    parts = bench_parts(results) | tried_parts(results)
    if not parts:
        sys.exit(f"figures: there are no results in {results}: ./run bench, test, faults and fuzz leave them")
    for page in (root / "README.md", root / "docs" / "figures.md"):
        page.write_text(rewritten(page.read_text(encoding="utf-8"), parts), encoding="utf-8")
    print("written:", ", ".join(parts))


if __name__ == "__main__":
    main()
