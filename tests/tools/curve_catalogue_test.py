#!/usr/bin/env python3
"""Make catalogues of log curves from tables, good and bad.

Argument: the program make_curve_catalogue.
"""
import pathlib
import sqlite3
import subprocess
import sys
import tempfile

program = sys.argv[1]
HEADER = "method_id;mnemonic;common_units;rus_units;comment;type;synonyms\n"
GR = "1;GR;GAPI;ед. API;gamma;Гамма;ГК гк|Gam\n"
DT = "2;3'DT;US/F;;o'clock;Звук;\n"

# What the table is, and what the message names; the first line is the header.
BAD = (
    ("empty", "", "line 1: the columns are not"),
    ("no header", GR, "line 1: the columns are not"),
    ("a column of another name", HEADER.replace("type", "kind") + GR, "line 1: the columns are not"),
    ("a missing column", HEADER + GR + "2;DT;US/F;;o;S\n", "line 3: the row has 6 columns"),
    ("a column more", HEADER + GR + "2;DT;US/F;;o;S;a;b\n", "line 3: the row has 8 columns"),
    ("no number", HEADER + "x;GR;;;c;t;\n", 'line 2: method_id "x"'),
    ("number zero", HEADER + "0;GR;;;c;t;\n", 'line 2: method_id "0"'),
    ("no mnemonic", HEADER + "1;;;;c;t;\n", "line 2: the column mnemonic is empty"),
    ("no comment", HEADER + "1;GR;;;;t;\n", "line 2: the column comment is empty"),
    ("no type", HEADER + "1;GR;;;c;;\n", "line 2: the column type is empty"),
    ("a number twice", HEADER + GR + "1;DT;;;c;t;\n", "line 3: method_id 1 is there twice"),
    ("a mnemonic twice", HEADER + GR + "2;gr;;;c;t;\n", "line 3: the mnemonic gr is there twice"),
    ("a Cyrillic one twice", HEADER + "1;ПС;;;c;t;\n2;пс;;;c;t;\n", "the mnemonic пс"),
    ("a synonym twice", HEADER + GR + DT + "3;X;;;c;t;a Gam\n", "line 4: the synonym Gam is there"),
    ("twice in a row", HEADER + "1;GR;;;c;t;a|a\n", "line 2: the synonym a is there twice"),
    ("a later mnemonic", HEADER + "1;GR;;;c;t;dt\n2;DT;;;c;t;\n", "line 2: the synonym dt is a mn"),
    ("its own mnemonic", HEADER + "1;GR;;;c;t;gr\n", "line 2: the synonym gr is a mnemonic"),
    ("an open quote", HEADER + '1;"GR;;;c;t;\n', "line 2"),
)

problems = []


def expect(where, have, want):
    if have != want:
        problems.append(f"{where}: {have!r} instead of {want!r}")


def make(*arguments):
    return subprocess.run([program, *map(str, arguments)], capture_output=True, text=True,
                          encoding="utf-8", check=False)


with tempfile.TemporaryDirectory(prefix="welldb-curves-") as name:
    folder = pathlib.Path(name)
    table, made = folder / "curves.csv", folder / "new" / "curves.db"

    table.write_text(HEADER + GR + "\n" + DT, encoding="utf-8")
    made.parent.mkdir()
    made.with_name("curves.db.tmp").write_bytes(b"left by a killed run")
    expect("good", [(r.returncode, r.stderr) for r in [make(table, made)]], [(0, "")])
    with sqlite3.connect(made) as db:
        expect("rows", db.execute("SELECT * FROM LAS_methods ORDER BY method_id").fetchall(),
               [(1, "GR", "GAPI", "ед. API", "gamma", "Гамма"),
                (2, "3'DT", "US/F", "", "o'clock", "Звук")])
        expect("synonyms", db.execute("SELECT Method_id, Syn_name FROM las_method_synonyms "
                                      "ORDER BY Syn_name").fetchall(),
               [(1, "Gam"), (1, "ГК"), (1, "гк")])
    expect("files", sorted(p.name for p in made.parent.iterdir()), ["curves.db"])

    kept = made.read_bytes()
    for where, text, says in BAD:
        table.write_text(text, encoding="utf-8")
        result = make(table, made)
        expect(where, (result.returncode, result.stderr.count("\n")), (1, 1))
        if says not in result.stderr:
            problems.append(f"{where}: {says!r} is not in {result.stderr!r}")
        expect(where, made.read_bytes(), kept)
        expect(where, sorted(p.name for p in made.parent.iterdir()), ["curves.db"])

    expect("no table", make(folder / "none.csv", made).returncode, 1)
    expect("no arguments", make().returncode, 2)

print("\n".join(problems) or f"{len(BAD)} bad tables refused, a good one made")
sys.exit(bool(problems))
