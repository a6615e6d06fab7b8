#!/usr/bin/env python3
"""The commands that copy properties and make data from data.

test_derive.py PROGRAM [unittest arguments]
"""
import sys
import unittest

import test_program

# GR by depth: below 60 between the crossings at 1000.5 and 1002.5.
LOG = """~Version
 VERS. 2.0 : v
 WRAP. NO : w
~Well
 NULL. -999.25 : n
 WELL. {well} : w
 FLD. {field} : f
~Curve
 DEPT.M : d
 GR.API : g
~ASCII
 1000 70
 1001 50
 1002 50
 1003 70
 1004 90
"""


class DeriveTest(test_program.ProgramTest):
    def setUp(self):
        super().setUp()
        self.create()
        self.done("import", "las", self.file, self.las(text=LOG), "--object", "N")
        self.done("well", "add", self.file, "--well", "B", "--altitude", "100")
        tops = self.folder / "tops.csv"
        tops.write_text("1000;10\n1002;30\n", encoding="utf-8")
        self.done("import", "table", self.file, tops, "--well", "12", "--template", "marker",
                  "--prop", "Tops", "--no-header", "--columns", "depth=1,Название=2")

    def rows(self, prop, well="12"):
        return self.json("data", self.file, "--well", well, "--prop", prop)["rows"]

    def derive(self, word, *arguments, to="R"):
        told = self.done("derive", word, self.file, "--well", "12", *arguments, "--to", to)
        self.assertTrue(told.startswith(f"made {'' if '/' in to else '/'}{to} of the well"), told)
        return self.rows(to)

    # Expected values by hand.
    def test_logs_from_logs(self):
        # a window of 2: the samples at most 1 m away
        self.assertEqual([r[2] for r in self.derive("filter", "--prop", "GR", "--window", "2")],
                         [60, 170 / 3, 170 / 3, 70, 80])
        self.assertEqual([r[2] for r in self.derive("filter", "--prop", "GR", "--window", "2",
                                                    "--kind", "median", to="G/M")],
                         [60, 50, 50, 70, 80])
        self.assertEqual([r[0] for r in self.derive("simplify", "--prop", "GR", "--tolerance", "1",
                                                    to="S")], [1000, 1001, 1002, 1004])
        self.assertEqual(self.derive("log-from-data", "--prop", "Tops", "--field", "Название",
                                     "--step", "1", to="L"),
                         [[1000, -1000, 10], [1001, -1001, 20], [1002, -1002, 30]])
        self.assertEqual(len(self.derive("join", "--prop", "GR", "--prop", "R", "--overlap",
                                         "lower", to="J")), 5)
        self.assertEqual(len(self.derive("serial", "--prop", "GR", to="P")), 5)

    def test_records_from_logs(self):
        self.assertEqual([r[0] for r in self.derive("markers", "--prop", "GR", "--cutoff", "60")],
                         [1000.5, 1002.5])
        self.assertEqual([r[0] for r in self.derive("markers", "--prop", "GR", "--cutoff", "60",
                                                    "--crossing", "rising", to="R2")], [1002.5])
        sand = self.derive("intervals", "--prop", "GR", "--max", "60", to="Sand")
        self.assertEqual([r[:2] for r in sand], [[1000.5, 1002.5]])
        self.done("derive", "attribute", self.file, "--well", "12", "--prop", "GR", "--column",
                  "Sand", "--field", "Low", "--statistic", "min")
        self.assertEqual([float(r[-1]) for r in self.rows("Sand")], [50])
        self.assertTrue(self.derive("ore", "--prop", "GR", "--cutoff", "65", to="Ore"))
        self.assertEqual([r[:2] + r[4:5] for r in self.derive("column", "--prop", "Tops",
                                                              "--bottom", "1010", to="Col")],
                         [[1000, 1002, "10"], [1002, 1010, "30"]])

    def test_copies(self):
        copy = ["copy-prop", self.file, "12", "Tops", "B"]
        self.done(*copy)
        self.assertEqual(self.rows("Tops", "B"), [[1000, -900, "10", ""], [1002, -902, "30", ""]])
        self.refused(*copy, says=["--merge"])
        self.done(*copy, "--merge", "merge")  # holds them all
        self.assertEqual(len(self.rows("Tops", "B")), 2)
        self.done(*copy, "--to", "G/Abs", "--keep", "absolute")
        self.assertEqual([r[:2] for r in self.rows("G/Abs", "B")], [[1100, -1000], [1102, -1002]])
        self.refused("copy-prop", self.file, "12", "none", "B", says=["none", "LAS/GR"])
        self.refused("copy-prop", self.file, "12", "Tops", "C", says=["C"])

    def test_refusals(self):
        self.refused("derive", "filter", self.file, "--well", "12", "--prop", "GR", "--window", "2",
                     "--to", "Tops", says=["Tops"])
        common = [self.file, "--well", "12", "--to", "R", "--prop", "GR"]
        cases = (
            (["filter", *common], "--window"), (["simplify", *common], "--tolerance"),
            (["filter", *common, "--window", "1", "--kind", "sum"], "mean|median"),
            (["join", *common], "twice"), (["intervals", *common], "--min"),
            (["serial", *common, "--prop", "Tops"], "once"), (["log-from-data", *common], "--field"),
        )
        for arguments, word in cases:
            self.refused("derive", *arguments, code=2, says=[word], where=arguments)

    def test_help(self):
        words = ("log-from-data", "filter", "simplify", "markers", "join", "attribute", "intervals",
                 "ore", "serial", "column", "between-picks")
        for command in ("copy-prop", "derive", *("derive " + word for word in words)):
            text = self.done(*command.split(), "--help")
            self.assertIn(f"  welldb {command} ", text.split("Example:")[-1], command)


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], *sys.argv[2:]])
