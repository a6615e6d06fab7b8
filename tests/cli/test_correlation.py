#!/usr/bin/env python3
"""The commands of correlations.

test_correlation.py PROGRAM [unittest arguments]
"""
import sys
import unittest

import test_program


class CorrelationTest(test_program.ProgramTest):
    def setUp(self):
        super().setUp()
        self.create()
        for well in ("O/F/W-1", "O/F/W-2", "O/other/W-1"):
            self.done("well", "add", self.file, "--well", well, "--altitude", "100")

    def cor(self, *words, name="Tops"):
        """Runs "correlation WORDS…", the container and the correlation put behind the verbs."""
        verbs = 2 if words[0] in ("border", "pick") else 1
        return self.done("correlation", *words[:verbs], self.file, "--name", name, *words[verbs:])

    def picks(self, well, *options, name="Tops"):
        shown = self.json("correlation", "pick", "list", self.file, "--name", name, "--well", well,
                          *options)
        return [(p["border"], p["depth"], p["depth_abs"], p["type"]) for p in shown]

    def write(self, name, text):
        path = self.folder / name
        path.write_text(text, encoding="utf-8", newline="")
        return path

    def test_a_correlation_is_made_changed_and_removed(self):
        self.cor("create", name="Geo/Tops")
        self.assertIn('"t (2)"', self.cor("border", "add", "t") + self.cor("border", "add", "t"))
        self.cor("border", "add", "base", "--group", "deep", name="Geo/Tops")
        on = ("--well", "O/F/W-1")
        self.cor("pick", "add", "t", *on, "--md", "10.5", "--type", "3", name="Geo/Tops")
        self.cor("pick", "add", "base", *on, "--abs", "-20")  # of the group that it is shown in
        self.assertEqual(self.picks("O/F/W-1"), [("t", 10.5, 89.5, 3), ("base", 120, -20, 0)])
        self.assertEqual(self.picks("O/F/W-1", "--absolute"), self.picks("O/F/W-1"))
        self.cor("pick", "move", "t", *on, "--md", "200")
        self.cor("pick", "type", "t", *on, "--type", "0")
        self.assertEqual(self.picks("O/F/W-1"), [("base", 120, -20, 0), ("t", 200, -100, 0)])
        self.assertEqual(self.json("correlation", "list", self.file), [
            {"name": "Tops", "group": "Geo", "borders": 3, "top": 120, "bottom": 200}])
        self.assertEqual(len(self.json("props", self.file, *on)), 1)
        self.cor("border", "rename", "t (2)", "--to", "Кровля")
        self.cor("border", "group", "Кровля", "deep")
        self.cor("pick", "remove", "base", *on)
        self.cor("rename", "--to", "New")
        self.assertEqual(self.json("correlation", "border", "list", self.file, "--name", "New"), [
            {"border": "t", "group": "", "wells": 1}, {"border": "Кровля", "group": "deep", "wells": 0},
            {"border": "base", "group": "deep", "wells": 0}])
        self.assertEqual(self.picks("O/F/W-1", name="New"), [("t", 200, -100, 0)])
        self.cor("border", "remove", "t", name="New")
        self.assertEqual(self.picks("O/F/W-1", name="New"), [])
        self.cor("remove", name="New")
        self.assertEqual(self.json("correlation", "list", self.file), [])
        self.assertEqual(self.json("props", self.file, *on), [])

    def test_tables_are_read_and_written(self):
        long = self.write("long.csv", "Depth;Hole;Top\n10;O/F/W-1;a\n;W-2;a\n30;W-2;b\n")
        read = self.json("correlation", "import", self.file, "--name", "Geo/Tops", long, "--well",
                         "Hole", "--border", "3", "--depth", "Depth", "--skip-without-depth")
        self.assertEqual(read, {"ok": True, "rows": 3, "taken": 2, "passed_over": 1, "bad_count": 0,
                                "picks": 2, "moved": 0, "wells": 2, "borders_created": 2,
                                "errors": [], "error": None})
        out = self.folder / "out.csv"
        self.assertIn("2 picks of 2 wells", self.cor("export", "--csv", out))
        self.assertEqual(out.read_bytes(), b"well,a,b\r\nO/F/W-1,10,\r\nO/F/W-2,,30\r\n")
        self.assertIn("O/F/W-2,,70", self.cor("export", "--csv", "-", "--absolute"))
        self.assertIn("2 picks made", self.cor("import", out, "--wide", name="Copy"))
        self.assertIn("0 picks made, 2 moved",
                      self.cor("import", out, "--wide", "--on-existing", "move", name="Copy"))
        self.assertEqual(self.picks("W-2", name="Copy"), [("b", 30, 70, 0)])
        bad = self.write("bad.csv", "well,c\nW-1,5\nW-2,deep\nO/F/W-1,7\n")
        arguments = ("correlation", "import", self.file, "--name", "Tops", bad, "--wide")
        failed = test_program.run(*arguments)
        self.assertEqual(failed.returncode, 1)
        self.assertIn(b'2 wells are "W-1"', failed.stdout)
        self.assertIn(b'"deep" is no depth', failed.stdout)
        self.assertEqual(self.picks("O/F/W-1"), [("a", 10, 90, 0)])
        self.assertIn("1 taken, 0 passed over, 2 bad", self.done(*arguments, "--partial"))
        self.assertEqual(self.picks("O/F/W-1"), [("c", 7, 93, 0), ("a", 10, 90, 0)])

    def test_refusals(self):
        self.cor("create")
        self.cor("create", name="Other")
        self.cor("border", "add", "t")
        self.cor("pick", "add", "t", "--well", "W-2", "--md", "10")
        tops = (self.file, "--name", "Tops")
        on = ("--well", "W-2")
        cases = (
            (("create", *tops), 1, ("Tops", "already")),
            (("create", self.file, "--name", "a/b/c"), 1, ("GROUP/NAME",)),
            (("rename", *tops, "--to", "Other"), 1, ("Other", "already")),
            (("remove", self.file, "--name", "None"), 1, ("None", "Tops, Other")),
            (("border", "add", *tops, ""), 1, ("empty",)),
            (("border", "rename", *tops, "none", "--to", "x"), 1, ("none",)),
            (("border", "remove", *tops, "none"), 1, ("none",)),
            (("pick", "add", *tops, "t", *on), 2, ("--md",)),
            (("pick", "add", *tops, "t", *on, "--md", "11"), 1, ("already",)),
            (("pick", "add", *tops, "t", "--well", "W-1", "--md", "1"), 1, ("O/other/W-1",)),
            (("pick", "add", self.file, "--name", "X/Tops", "t", "--well", "O/F/W-1", "--md", "1"), 1,
             ("group",)),
            (("pick", "type", *tops, "t", *on, "--type", "256"), 2, ("256",)),
            (("pick", "move", *tops, "none", *on, "--md", "1"), 1, ("none",)),
            (("import", *tops, self.folder / "none.csv"), 1, ("none.csv",)),
            (("import", *tops, "x", "--wide", "--depth", "2"), 2, ("--wide",)),
            (("import", *tops, "x", "--on-existing", "x"), 2, ("fail, skip, move",)),
            (("export", self.file, "--name", "None", "--csv", "-"), 1, ("None",)),
        )
        for arguments, code, says in cases:
            self.refused("correlation", *arguments, code=code, says=says)
        self.assertEqual(self.picks("W-2"), [("t", 10, 90, 0)])


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], *sys.argv[2:]])
