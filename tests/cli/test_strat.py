#!/usr/bin/env python3
"""The commands of the stratigraphic chart.

test_strat.py PROGRAM [unittest arguments]
"""
import os
import sys
import unittest

import test_program


class StratTest(test_program.ProgramTest):
    def indexes(self, *arguments):
        return [u["index"] for u in self.json("strat", *arguments)]

    def test_units_are_identified(self):
        found = self.json("strat", "identify", "D{2-3}-C1t + X")
        self.assertEqual([u["index"] for u in found["units"]],
                         ["D2ef", "D2zv", "D3f", "D3fm", "C1t"])
        self.assertEqual(found["units"][-1], {"index": "C1t", "name": "Турнейский", "level": 9,
                                              "level_name": "Ярус"})
        self.assertEqual(found["unknown"], ["X"])
        braces = self.json("strat", "identify", "{J1-J3}")["units"]
        self.assertEqual([u["index"] for u in braces], ["J1", "J2", "J3"])
        table = self.done("strat", "identify", "Верхний {девон+мел}").splitlines()
        self.assertEqual([line.split()[0] for line in table[2:]], ["D3", "K2"])

    def test_levels_have_words_and_numbers(self):
        systems = ["V", "Є", "O", "S", "D", "C", "P", "T", "J", "K", "Pg", "N", "Q"]
        for level in ("system", "5"):
            self.assertEqual(self.indexes("list", "--level", level), systems)
        sizes = {"1": 2, "akrotema": 2, "acrothem": 2, "2": 5, "eonotema": 5, "eonothem": 5,
                 "3": 1, "subeonotema": 1, "subeonothem": 1, "4": 11, "eratema": 11,
                 "erathem": 11, "7": 36, "otdel": 36, "series": 36, "9": 96, "yarus": 96,
                 "stage": 96}
        for level, size in sizes.items():
            self.assertEqual(len(self.indexes("list", "--level", level)), size, level)
        subseries = {tuple(self.indexes("list", "--level", level))
                     for level in ("8", "podotdel", "subotdel", "subseries")}
        self.assertEqual(len(subseries), 1)
        self.assertEqual(len(self.done("strat", "list", "--level", "5").splitlines()), 15)

    def test_units_are_found_in_others(self):
        for unit, level, found in (("D3fm", "system", "D"), ("Фаменский", "2", "FZ"),
                                   ("D", "5", "D"), ("N1a", "subseries", "N1^1")):
            self.assertEqual(self.json("strat", "contain", unit, "--level", level)["index"], found)
        self.assertIn("Девонская", self.done("strat", "contain", "D3fm", "--level", "system"))

    def test_a_layer_of_a_well(self):
        self.create()
        self.done("well", "add", self.file, "--well", "12", "--altitude", "100")
        ages = self.folder / "ages.csv"
        ages.write_text("0;10;D3fm-C1t\n10;20;K\n20;30;?\n", encoding="utf-8")
        self.done("import", "table", self.file, ages, "--well", "12", "--template", "interval",
                  "--prop", "G/Ages", "--no-header", "--columns", "top=1,bot=2,Название=3")
        arguments = ("strat", "layer", self.file, "--well", "12", "--prop", "G/Ages", "--field",
                     "Название", "--to")
        self.assertEqual(self.done(*arguments, "G/S"),
                         "made G/S of the well //12: 3 records, 1 without a unit\n")
        shown = self.json("data", self.file, "--well", "12", "--prop", "G/S")
        self.assertEqual([r[:4] for r in shown["rows"]],
                         [[0, 10, 100, 90], [10, 20, 90, 80], [20, 30, 80, 70]])
        self.assertEqual([r[4:] for r in shown["rows"]],
                         [["D3fm-C1t", "", "", "D-C", "D3-C1", "", "D3fm-C1t"],
                          ["K", "", "", "K", "", "", ""], ["?", "", "", "", "", "", ""]])
        self.done(*arguments, "G/N", "--names", "--template", "Named")
        named = self.json("data", self.file, "--well", "12", "--prop", "G/N")["rows"]
        self.assertEqual(named[0][7], "Девонская-Каменноугольная")
        self.refused(*arguments, "G/S", says=("S",))
        self.refused(*arguments[:-2], "Age", "--to", "G/A", says=('has no field "Age"',))
        self.refused(*arguments, "G/B", "--template", "Колонка", says=("is no column",))
        self.refused("strat", "layer", self.file, "--well", "12", code=2)

    def test_refusals(self):
        cases = (
            (("identify", "X+d1"), 1, ('"X+d1" names no unit',)),
            (("identify", ""), 1, ()),
            (("contain", "X", "--level", "5"), 1, ('no unit "X"',)),
            (("contain", "D", "--level", "9"), 1, ("Ярус", "Система")),
            (("contain", "D"), 2, ("--level",)),
            (("list", "--level", "6"), 2, ('"6"', "1 to 5 and 7 to 9")),
            (("list", "--level", "0"), 2, ('"0"',)),
            ((), 2, ()),
        )
        for arguments, code, says in cases:
            self.refused("strat", *arguments, code=code, says=says)

    def test_without_a_chart_every_command_says_so(self):
        os.environ["WELLDB_DATA"] = str(self.folder)
        self.addCleanup(os.environ.pop, "WELLDB_DATA")
        for arguments in (("identify", "D"), ("list", "--level", "5"),
                          ("contain", "D", "--level", "5")):
            self.refused("strat", *arguments, says=("strato_base.csv",))


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], *sys.argv[2:]])
