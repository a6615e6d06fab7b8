#!/usr/bin/env python3
"""The commands of the catalogue of log curves.

test_curves.py PROGRAM [unittest arguments]
"""
import os
import sys
import unittest

import test_program


class CurvesTest(test_program.ProgramTest):
    def test_a_curve_is_found_by_any_of_its_names(self):
        for name in ("NPHI", "nphi", "CNC"):
            found = self.json("curves", "find", name)
            self.assertEqual([found[k] for k in ("mnemonic", "unit", "unit_ru", "type")],
                             ["NPHI", "V/V", "доли ед.", "Нейтронный каротаж"], name)
            self.assertIn("CNC", found["synonyms"])
        shown = self.done("curves", "find", "ПС")
        for line in ("mnemonic   PS\n", "unit       MV\n", "unit (ru)  мВ\n",
                     "type       Потенциал самопроизвольной поляризации\n"):
            self.assertIn(line, shown)

    def test_lists_agree_with_each_other(self):
        types = {t["type"]: t["curves"] for t in self.json("curves", "types")}
        everything = self.json("curves", "list")
        self.assertGreaterEqual(len(everything), 450)
        self.assertEqual(sum(types.values()), len(everything))
        for name, count in types.items():
            listed = self.json("curves", "list", "--type", name)
            self.assertEqual((len(listed), {c["type"] for c in listed}), (count, {name}))
            self.assertEqual(listed, [c for c in everything if c["type"] == name])
        first = everything[0]
        self.assertEqual(self.json("curves", "find", first["mnemonic"]), first)
        table = self.done("curves", "list", "--type", "Гамма-каротаж").splitlines()
        self.assertEqual(len(table), types["Гамма-каротаж"] + 2)
        self.assertTrue(self.done("curves", "types").splitlines()[2].startswith(min(types)))

    def test_refusals(self):
        cases = (
            (("find", "ZZZ"), 1, ('"ZZZ"',)),
            (("find", "cNc"), 1, ('"cNc"', "as they are written")),
            (("find", ""), 1, ('""',)),
            (("list", "--type", "гамма-каротаж"), 1, ("гамма-каротаж", "curves types")),
            (("find",), 2, ("NAME",)),
            ((), 2, ()),
        )
        for arguments, code, says in cases:
            self.refused("curves", *arguments, code=code, says=says)

    def test_without_a_catalogue_every_command_says_so(self):
        before = sorted(self.folder.iterdir())
        os.environ["WELLDB_DATA"] = str(self.folder)
        self.addCleanup(os.environ.pop, "WELLDB_DATA")
        for arguments in (("find", "GR"), ("list",), ("types",)):
            self.refused("curves", *arguments, says=("LAS_methods.db was not found",))
        self.assertEqual(sorted(self.folder.iterdir()), before)

    def test_imported_logs_have_their_types(self):
        self.create()
        self.done("import", "las", self.file, self.las())
        out = self.folder / "out.las"
        self.done("export", "las", self.file, "--well", "12", "--exact", "-o", out)
        text = out.read_text(encoding="utf-8")
        self.assertIn("GR.API", text)
        self.assertNotIn("Гамма-каротаж", text)
        again = self.place("again.well2")
        self.done("create", again)
        self.done("import", "las", again, out)
        for file in (self.file, again):
            if not test_program.ON_SERVER:
                with test_program.sqlite3.connect(file) as db:
                    rows = db.execute("SELECT name, value FROM meta JOIN property ON obj_id = pr_id "
                                      "WHERE key = 'TYPE' ORDER BY name").fetchall()
                self.assertEqual(rows, [("DT", "Акустический каротаж"), ("GR", "Гамма-каротаж")])


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], *sys.argv[2:]])
