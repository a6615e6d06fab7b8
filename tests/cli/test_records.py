#!/usr/bin/env python3
"""The commands of survey tables, constructions and drilling records.

test_records.py PROGRAM [unittest arguments]
"""
import sys
import unittest

import test_program


class RecordsTest(test_program.ProgramTest):
    def setUp(self):
        super().setUp()
        self.create()
        self.done("well", "add", self.file, "--well", "12")
        self.of = [self.file, "--well", "12"]

    def write(self, name, text):
        path = self.place(name)
        with open(path, "w", encoding="utf-8") as out:
            out.write(text)
        return path

    def test_a_survey_table(self):
        table = self.write("s.csv", "AZ;MD;DIP\nN45E;0;90\n45 30;100;60\n")
        result = self.json("import", "survey", *self.of, table, "--columns",
                           "md=MD,dip=DIP,azi=1", "--dip", "down", "--azimuth-correction", "-5")
        self.assertEqual((result["taken"], result["bad_count"]), (2, 0))
        stations = self.json("survey", *self.of)["stations"]
        self.assertEqual([(s["depth"], s["angle"], s["azimuth"]) for s in stations[-2:]],
                         [(0, 0, 40), (100, 30, 40.5)])
        bad = self.write("bad.csv", "md,inc,azi\n0,0,0\n10,5,x\n")
        self.refused("import", "survey", *self.of, bad, "--columns", "md=1,inc=2,azi=3",
                     says=["row 3"])
        self.assertEqual(self.json("survey", *self.of)["stations"], stations)
        self.done("import", "survey", *self.of, bad, "--columns", "md=1,inc=2,azi=3", "--partial")
        las = self.write("s.las", "~V\nVERS. 2.0:\nWRAP. NO:\n~W\nNULL. -999:\n~C\nDEPT.FT:\n"
                         "DEVI.DEG:\nHAZI.DEG:\n~A\n0 0 0\n1000 30 350\n")
        self.done("import", "survey", *self.of, las, "--columns", "inc=DEVI,azi=HAZI")
        self.assertEqual(self.json("survey", *self.of)["stations"][-1]["depth"], 304.8)
        self.refused("import", "survey", *self.of, bad, "--columns", "depth=1", code=2,
                     says=["md=COLUMN"])

    def test_a_survey_report(self):
        # a quarter of a circle of radius 100 m, northwards
        table = self.write("q.csv", "md,inc,azi\n0,0,0\n157.08,90,0\n200,90,0\n")
        self.done("import", "survey", *self.of, table, "--columns", "md=1,inc=2,azi=3")
        rows = self.json("survey", *self.of, "--report")
        self.assertAlmostEqual(rows[-2]["north"], 100, 2)
        self.assertAlmostEqual(rows[-2]["vertical"], 100, 2)
        self.assertAlmostEqual(rows[-2]["dogleg_30m"], 90 / 157.08 * 30, 6)
        # what is stored goes straight down to the second station
        self.assertAlmostEqual(rows[-2]["abs_difference"], 100 - 157.08, 2)
        crossings = self.json("survey", *self.of, "--crossing", "-50", "10")
        self.assertAlmostEqual(crossings[0]["md"][0], 157.08 / 3, 2)
        self.assertEqual(crossings[1], {"abs": 10, "md": []})
        self.assertIn("DLS/30M", self.done("survey", *self.of, "--report"))

    def test_a_construction(self):
        table = self.write("c.csv", "from;to;Bit;note\n0;120,5;393.7;conductor\n120.5;900;;\n")
        self.done("construction", "load", *self.of, table, "--columns",
                  "from=1,to=2,diameter=Bit,comment=note")
        self.done("construction", "add", *self.of, "--from", "900", "--to", "950")
        self.done("construction", "add-element", *self.of, "--type", "1", "--top", "700",
                  "--bottom", "710", "--text", "packer")
        shown = self.json("construction", "show", *self.of)
        self.assertEqual([s["to"] for s in shown["sections"]], [120.5, 900, 950])
        self.assertEqual(shown["working_elements"][0]["text"], "packer")
        self.assertIn("conductor", self.done("construction", "show", *self.of))
        bad = self.write("bad.csv", "from;to\n10;5\n")
        self.refused("construction", "load", *self.of, bad, "--columns", "from=1,to=2",
                     "--replace", says=["row 2"])
        self.assertEqual(self.json("construction", "show", *self.of), shown)
        self.refused("construction", "remove", *self.of, "99", says=["section"])
        self.done("construction", "remove", *self.of, str(shown["sections"][0]["id"]))
        self.done("construction", "clear", *self.of)
        self.assertEqual(self.json("construction", "show", *self.of),
                         {"sections": [], "working_elements": []})
        self.refused("construction", "load", *self.of, table, "--columns", "depth=1", code=2,
                     says=["from=COLUMN"])

    def test_a_drilling_record(self):
        self.done("drilling", "set", *self.of, "--rig", "ЗИФ-650", "--type", "core")
        self.done("drilling", "add", *self.of, "--from", "10", "--to", "25.5", "--date",
                  "2024-05-02", "--core", "14.2")
        self.done("drilling", "add", *self.of, "--from", "0", "--to", "10", "--date", "2024-05-01")
        self.done("drilling", "add-person", *self.of, "Иванов", "мастер")
        shown = self.json("drilling", "show", *self.of)
        self.assertEqual((shown["rig"], shown["type"], shown["author"]), ("ЗИФ-650", "core", ""))
        self.assertEqual([r["date"] for r in shown["runs"]], ["2024-05-01", "2024-05-02"])
        self.assertEqual(shown["people"], [{"name": "Иванов", "position": "мастер"}])
        self.refused("drilling", "add", *self.of, "--from", "5", "--to", "4", says=["above"])
        self.done("drilling", "remove", *self.of, str(shown["runs"][0]["id"]))
        self.done("drilling", "remove-person", *self.of, "Иванов", "мастер")
        self.refused("drilling", "remove-person", *self.of, "Иванов", "мастер", says=["person"])
        self.assertIn("2024-05-02", self.done("drilling", "show", *self.of))


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], *sys.argv[2:]])
