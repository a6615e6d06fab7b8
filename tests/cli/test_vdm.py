#!/usr/bin/env python3
"""The commands of velocity-depth models.

test_vdm.py PROGRAM [unittest arguments]
"""
import sys
import unittest

import test_program

# 500 us/m: 10 m are 10 ms there and back.
LOG = """~Version
 VERS. 2.0 : v
 WRAP. NO : w
~Well
 NULL. -999.25 : n
 WELL. {well} : w
 FLD. {field} : f
~Curve
 DEPT.M : d
 DT.us/m : s
~ASCII
 1000 500
 1010 500
"""


class VdmTest(test_program.ProgramTest):
    def setUp(self):
        super().setUp()
        self.create()
        self.done("import", "las", self.file, self.las(text=LOG), "--object", "N")
        self.done("well", "add", self.file, "--well", "B", "--altitude", "100")

    def points(self, well="B"):
        shown = self.json("vdm", "show", self.file, "--well", well)
        return [[p["depth"], p["time"]] for p in shown["points"]]

    def table(self, text):
        path = self.folder / "t.csv"
        path.write_text(text, encoding="utf-8")
        return ["vdm", "import", self.file, "--well", "B", "--table", path]

    def test_import_and_convert(self):
        self.assertIn("has no velocity model", self.done("vdm", "show", self.file, "--well", "B"))
        told = self.json(*self.table("MD;TWT\n1000;1000\n2000;1500\n"), "--measured",
                         "--columns", "depth=MD,time=2")
        self.assertEqual((told["ok"], told["taken"], told["points"]), (True, 2, 3))
        self.assertEqual(self.points(), [[100, 0], [-900, -1000], [-1900, -1500]])
        shown = self.json("vdm", "show", self.file, "--well", "B")
        self.assertEqual(shown["items"][1], {
            "top": -900, "bottom": -1900, "top_time": -1000, "bottom_time": -1500,
            "interval_velocity": 4000, "average_velocity": 2000 * 2000 / 1500})
        self.assertEqual([p["stored"] for p in shown["points"]], [False, True, True])
        self.assertIn("4000.00", self.done("vdm", "show", self.file, "--well", "B"))
        convert = ["vdm", "convert", self.file, "--well", "B"]
        self.assertEqual(self.json(*convert, "--depth", "-400", "-900"),
                         [{"depth": -400, "time": -500}, {"depth": -900, "time": -1000}])
        self.assertEqual(self.json(*convert, "--time", "-1250"), [{"depth": -1400, "time": -1250}])
        self.done("vdm", "copy", self.file, "B", "12")
        self.refused("vdm", "copy", self.file, "B", "12", says=["12", "--replace"])
        self.assertEqual(self.points("12"), [[0, 0], [-900, -1000], [-1900, -1500]])
        self.done("vdm", "remove", self.file, "--well", "B")
        self.assertEqual(self.points(), [[100, 0]])

    # 0 to 200 ms at 2500 m/s are 250 m, 200 to 500 ms at 3000 m/s 450 m.
    def test_import_of_intervals(self):
        columns = ["--columns", "top=1,bottom=2,velocity=3", "--no-header", "--intervals"]
        expected = [[100, 0], [-150, -200], [-600, -500]]
        self.done(*self.table("0;0,1;2500\n0,1;0,25;3000\n"), *columns, "time", "--one-way",
                  "--seconds")
        self.assertEqual(self.points(), expected)
        self.done(*self.table("100;-150;2500\n-150;-600;3000\n-600;-700;\n"), *columns, "depth")
        self.assertEqual(self.points(), expected)
        self.refused(*self.table("0;1;0\n"), *columns, "time", says=["0", "row 1"])

    def test_bad_rows(self):
        rows = "0;20\n-10;15\n-20;x\n-30;30\n"
        columns = ["--columns", "depth=1,time=2", "--no-header"]
        told = test_program.run(*self.table(rows), *columns, "--json")
        self.assertEqual(told.returncode, 1)
        result = test_program.json.loads(told.stdout)
        self.assertEqual([(e["row"], e["line"]) for e in result["errors"]], [(2, 2), (3, 3)])
        self.assertIn("is not greater than 20 ms", result["errors"][0]["reason"])
        self.assertEqual(self.points(), [[100, 0]])
        told = self.json(*self.table(rows), *columns, "--partial")
        self.assertEqual((told["taken"], told["bad_count"]), (2, 2))
        self.assertEqual(self.points(), [[100, 0], [0, -20], [-30, -30]])

    def test_build(self):
        build = ["vdm", "build", self.file, "--well", "12"]
        told = self.done(*build, "--sonic", "DT", "--tie-depth", "-1000", "--tie-time", "900")
        self.assertIn("has 3 points", told)
        self.assertEqual(self.points("12"), [[0, 0], [-1000, -900], [-1010, -910]])
        self.done(*build, "--interval-velocity", "V/Vi")
        told = self.done(*build, "--average-velocity", "V/Va")
        self.assertEqual(told, "made V/Va of the well N//12: 2 records\n".replace("N//", told.split(
            "well ")[1].split("12")[0]))
        for prop, values in (("V/Vi", [2222.22, 2000]), ("V/Va", [2222.22, 2219.78])):
            shown = self.json("data", self.file, "--well", "12", "--prop", prop)
            self.assertEqual([[float(x) for x in row] for row in shown["rows"]],
                             [[0, 1000, 0, -1000, values[0]], [1000, 1010, -1000, -1010, values[1]]])
        tops = self.folder / "tops.csv"
        tops.write_text("500;0.2\n", encoding="utf-8")
        self.done("import", "table", self.file, tops, "--well", "12", "--template", "marker",
                  "--prop", "Tops", "--no-header", "--columns", "depth=1,Описание=2")
        self.done(*build, "--markers", "Tops", "--field", "Описание", "--seconds", "--one-way")
        self.assertEqual(self.points("12"), [[0, 0], [-500, -400]])
        self.refused(*build, "--sonic", "DT", "--tie-depth", "0", "--tie-time", "0", says=["1000"])
        self.refused("import", "table", self.file, tops, "--well", "12", "--template",
                     "average-velocity", "--prop", "X", "--no-header", "--columns", "top=1,bot=2",
                     says=["velocity model"])

    def test_wrong_usage(self):
        common = [self.file, "--well", "B"]
        cases = (
            (["convert", *common], "--depth"), (["build", *common], "--sonic"),
            (["convert", *common, "--depth", "1", "--time", "1"], "either"),
            (["build", *common, "--sonic", "DT"], "--tie-depth"),
            (["build", *common, "--markers", "M"], "--field"),
            (["build", *common, "--sonic", "A", "--average-velocity", "B"], "one of"),
            (["import", *common, "--table", "t", "--columns", "depth=1"], "time"),
            (["import", *common, "--table", "t", "--columns", "md=1"], "md"),
            (["import", *common, "--table", "t", "--columns", "depth=1", "--intervals", "x"],
             "time|depth"),
            (["import", *common, "--table", "t", "--columns", "top=1,bottom=2", "--intervals",
              "time"], "velocity"),
        )
        for arguments, word in cases:
            self.refused("vdm", *arguments, code=2, says=[word], where=arguments)

    def test_help(self):
        for word in ("", " show", " convert", " import", " build", " copy", " remove"):
            text = self.done("vdm", *word.split(), "--help")
            self.assertIn(f"  welldb vdm{word} ", text.split("Example:")[-1], word)


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], *sys.argv[2:]])
