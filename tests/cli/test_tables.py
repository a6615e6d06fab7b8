#!/usr/bin/env python3
"""The commands that read and write delimited tables.

test_tables.py PROGRAM [unittest arguments]
"""
import json
import sys
import unittest

import test_program

WELLS = "SitID;Well;X;Y;KB\n1;A/1;10,5;20;100\n2;B;11;21;50\n"
TOPS = "SitID;Hor;MD;Q\n1;1000;10;1\n2;1000;10,5;2\n1;2000;;-1\n1;2000;20;3\n"
CODES = "Hor;Name\n1000;mannville\n2000;t61\n"


class TableTest(test_program.ProgramTest):
    def setUp(self):
        super().setUp()
        self.create()
        self.table("wells.csv", WELLS)

    def table(self, name, content, encoding="utf-8"):
        path = self.folder / name
        path.write_bytes(content.encode(encoding))
        return path

    def withWells(self):
        self.done("import", "wells", self.file, self.folder / "wells.csv", "--columns",
                  "name=Well,x=X,y=4,altitude=KB", "--attribute", "SitID=SitID")

    def tops(self, *further, code=0):
        result = test_program.run(
            "import", "table", self.file, self.table("tops.csv", TOPS), "--well-column", "SitID",
            "--well-key", "SitID", "--template", "marker", "--prop", "G/Tops", "--columns",
            "depth=MD,Название=Hor,Описание=Q", "--lookup",
            f"Название={self.table('codes.csv', CODES)}", "--json", *further)
        self.assertEqual(result.returncode, code, result.stderr)
        return json.loads(result.stdout)

    def rows(self, well, prop):
        return self.json("data", self.file, "--well", well, "--prop", prop)["rows"]

    def test_wells_and_their_picks(self):
        self.withWells()
        wells = [(w["name"], w["x"], w["y"], w["altitude"])
                 for w in self.json("wells", self.file)]
        self.assertEqual(wells, [("A/1", 10.5, 20, 100), ("B", 11, 21, 50)])
        told = self.tops("--skip-without-depth")
        self.assertEqual(told, {"ok": True, "rows": 4, "taken": 3, "passed_over": 1,
                                "bad_count": 0, "wells": 2, "properties_created": 2,
                                "errors": [], "error": None})
        self.assertEqual(self.json("data", self.file, "--well", "B", "--prop", "Tops"),
                         {"type": "marker",
                          "columns": ["depth", "depth_abs", "Название", "Описание"],
                          "rows": [[10.5, 39.5, "mannville", "2"]]})
        self.assertEqual(self.rows(r"A\/1", "Tops"),
                         [[10, 90, "mannville", "1"], [20, 80, "t61", "3"]])

    def test_bad_rows_are_listed_and_kept_out(self):
        self.withWells()
        told = self.tops(code=1)
        self.assertEqual((told["ok"], told["rows"], told["taken"], told["bad_count"]),
                         (False, 4, 0, 1))
        self.assertEqual([(e["row"], e["line"]) for e in told["errors"]], [(4, 4)])
        self.assertIn("unknown in both", told["error"])
        self.assertEqual(self.json("props", self.file, "--well", "B"), [])
        self.assertEqual(self.tops("--partial")["taken"], 3)
        self.assertEqual(self.tops("--partial", "--on-existing", "replace")["properties_created"], 2)
        self.assertEqual(self.tops("--partial", "--on-existing", "append")["properties_created"], 0)
        self.assertEqual(len(self.rows("B", "Tops")), 2)
        self.assertEqual(self.tops("--partial", "--on-existing", "fail", code=1)["bad_count"], 4)

    def test_a_table_comes_back_as_it_was_written(self):
        self.withWells()
        table = 'a\\b,"c=d"\n10,"x;""y"", z"\n30,Ж\n'
        self.done("import", "table", self.file, self.table("t.csv", table, "windows-1251"),
                  "--well", "B", "--template", "Маркер", "--prop", "T", "--columns",
                  r"depth=a\\b,Название=c\=d", "--encoding", "cp1251", "--separator", ",")
        self.assertEqual(self.rows("B", "T"), [[10, 40, 'x;"y", z', ""], [30, 20, "Ж", ""]])
        out = self.folder / "out.csv"
        told = self.done("export", "table", self.file, "--prop", "T", "--out", out, "--separator",
                         "tab", "--encoding", "utf-16le")
        self.assertIn("2 rows of 1 well", told)
        self.done("import", "table", self.file, out, "--well-column", "well", "--template",
                  "marker", "--prop", "T2", "--columns",
                  "depth=depth,depth_abs=depth_abs,Название=Название")
        self.assertEqual(self.rows("B", "T2"), self.rows("B", "T"))
        self.assertEqual(self.done("export", "table", self.file, "--prop", "T2", "--well", "B"),
                         'well,depth,depth_abs,Название,Описание\r\n'
                         '//B,10,40,"x;""y"", z",\r\n//B,30,20,Ж,\r\n')
        self.refused("export", "table", self.file, "--prop", "no", says=["no well has"])

    def test_data_shows_intervals_with_their_fields(self):
        self.withWells()
        self.done("template", "create", self.file, "Core", "--type", "interval", "--field",
                  "Phi:numeric:2")
        table = "top,bot,n,phi\n10,20,\"a,\"\"b\",\"0,25\"\n20,30,c,\n30,40,d,0.5\n"
        self.done("import", "table", self.file, self.table("t.csv", table), "--well", "B",
                  "--template", "Core", "--prop", "C", "--no-header", "--partial", "--columns",
                  "top=1,bot=2,Название=3,Phi=4", "--separator", ",")
        data = ["data", self.file, "--well", "B", "--prop", "C"]
        shown = self.json(*data, "--from", "20", "--to", "25")
        self.assertEqual(shown["columns"],
                         ["top", "bot", "top_abs", "bot_abs", "Название", "Описание", "Phi"])
        self.assertEqual(shown["rows"], [[10, 20, 40, 30, 'a,"b', "", 0.25],
                                         [20, 30, 30, 20, "c", "", None]])
        self.assertEqual(self.done(*data, "--to", "15", "--csv"),
                         "top,bot,top_abs,bot_abs,Название,Описание,Phi\r\n"
                         "10,20,40,30,\"a,\"\"b\",,0.25\r\n")
        self.assertEqual(self.done(*data, "--to", "15").split("\n")[2].split(),
                         ["10", "20", "40", "30", 'a,"b', "0.25"])

    def test_existing_wells(self):
        self.withWells()
        again = ["import", "wells", self.file, self.folder / "wells.csv", "--columns",
                 "name=2,altitude=1"]
        self.assertIn("A/1 exists already", self.refused_rows(*again))
        self.assertEqual(self.json(*again, "--on-existing", "skip")["passed_over"], 2)
        self.assertEqual(self.json(*again, "--on-existing", "update")["wells_updated"], 2)
        self.assertEqual([w["altitude"] for w in self.json("wells", self.file)], [1, 2])
        self.assertEqual(self.json(*again, "--object", "O", "--field", "F")["wells_created"], 2)

    def refused_rows(self, *arguments):
        result = test_program.run(*arguments)
        self.assertEqual((result.returncode, result.stderr.count(b"\n")), (1, 1))
        return result.stdout.decode("utf-8")

    def test_las_files_find_wells_by_their_letters(self):
        self.withWells()
        las = ["import", "las", self.file, self.las("a-1.las", well="Abasand"), "--well-from",
               "API,file"]
        told = self.json(*las, "--match", "letters")
        self.assertEqual((told["files"][0]["well"], told["wells_created"]), (r"//A\/1", 0))
        self.assertEqual(self.json(*las)["files"][0]["well"], "/Deep/a-1")

    def test_wrong_usage(self):
        table = ["import", "table", self.file, "t.csv", "--template", "marker", "--prop", "P"]
        well = ["--well", "B"]
        columns = ["--columns", "depth=1"]
        cases = (
            (table + columns, "--well"), (table + well, "--columns"),
            (table + well + ["--columns", "depth"], "NAME=COLUMN"),
            (table + well + ["--columns", "depth=1,,x=2"], "NAME=COLUMN"),
            (table + well + columns + ["--lookup", "X=codes.csv"], "X"),
            (table + well + columns + ["--well-column", "1"], "--well"),
            (table + well + columns + ["--well-key", "K"], "--well-column"),
            (table + well + columns + ["--separator", "|"], "|"),
            (table + well + columns + ["--on-existing", "skip"], "append|replace|fail"),
            (["import", "wells", self.file, "t.csv", "--columns", "x=1"], "name"),
            (["import", "wells", self.file, "t.csv", "--columns", "name=1,z=2"], "z"),
            (["export", "table", self.file, "--prop", "P", "--encoding", "detect"], "--encoding"),
            (["import", "las", self.file, "x", "--well-from", "UWI,,file"], "UWI"),
            (["import", "las", self.file, "x", "--match", "near"], "letters"),
        )
        for arguments, word in cases:
            self.refused(*arguments, code=2, says=[word], where=arguments)

    def test_help(self):
        for command in ("import table", "import wells", "export table"):
            text = self.done(*command.split(), "--help")
            self.assertIn(f"  welldb {command} ", text.split("Example:")[-1], command)


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], *sys.argv[2:]])
