#!/usr/bin/env python3
"""tools/check_layers.py finds each kind of fault when it is planted, and nothing without one."""
import pathlib
import subprocess
import sys
import tempfile

TOOL = pathlib.Path(__file__).resolve().parents[2] / "tools/check_layers.py"

GRAPH = """
include:
low:
high:  low
face:  every public header
owns low:  Low.h
owns high: High.h
up low -> high: a low room makes a high one
only low: engine.h
"""
CLEAN = {
    "include/Low.h": "",
    "include/High.h": '#include "Low.h"',
    "low/Low.cpp": '#include "Low.h"\n#include <engine.h>',
    "low/maker.cpp": '#include "High.h"',
    "high/High.cpp": '#include "High.h"\n#include "low/tool.h"\n#include "high/part.h"',
    "high/part.h": "",
    "low/tool.h": "",
    "face/main.cpp": '#include "High.h"\n#include "Low.h"\n#include "face/table.h"',
    "face/table.h": "",
}
FAULTS = [
    ("clean", {}, None),
    ("upward", {"low/tool.h": '#include "high/part.h"'}, "low/tool.h:1: low may not include high/part.h"),
    ("past the public headers", {"face/main.cpp": '\n#include "low/tool.h"'}, "face/main.cpp:2: face may not include low/tool.h"),
    ("another's library", {"high/part.h": "#include <engine.h>"}, "<engine.h> belongs to low"),
    ("unknown header", {"high/part.h": '#include "Nobody.h"'}, "no folder owns Nobody.h"),
    ("a part that knows its own public header", {"high/part.h": '#include "High.h"'}, None),
    ("a line that says nothing", {"docs/layers.txt": GRAPH + "high low"}, "not understood: high low"),
    ("loop of two headers", {
        "high/part.h": '#include "high/piece.h"', "high/piece.h": '#include "high/part.h"',
    }, "rooms include each other: high/part -> high/piece -> high/part"),
    ("loop of three through a source", {
        "high/part.h": '#include "high/piece.h"', "high/piece.h": '#include "high/tile.h"',
        "high/tile.h": "", "high/tile.cpp": '#include "high/part.h"',
    }, "high/part -> high/piece -> high/tile -> high/part"),
    ("loop of public headers", {"include/Low.h": '#include "High.h"'}, "include/High -> include/Low -> include/High"),
    ("unused upward edge", {"low/maker.cpp": ""}, "unused edge low -> high"),
    ("missing public header", {"include/High.h": None, "high/High.cpp": "", "low/maker.cpp": ""}, "high owns High.h, which is not there"),
]


def run(files):
    with tempfile.TemporaryDirectory() as folder:
        root = pathlib.Path(folder)
        for name, text in {"docs/layers.txt": GRAPH, **files}.items():
            if text is not None:
                (root / name).parent.mkdir(exist_ok=True)
                (root / name).write_text(text + "\n", encoding="utf-8")
        return subprocess.run([sys.executable, TOOL, root, "--strict"],
                              capture_output=True, text=True, check=False)


failures = 0
for where, change, expected in FAULTS:
    result = run({**CLEAN, **change})
    good = result.returncode == 0 if expected is None else result.returncode == 1 and expected in result.stdout + result.stderr
    if not good:
        failures += 1
        print(f"{where}: answered {result.returncode}\n{result.stdout}{result.stderr}")
sys.exit(bool(failures))
