#!/usr/bin/env python3
"""The commands of dictionaries.

test_dict.py PROGRAM [unittest arguments]
"""
import sys
import unittest

import test_program


class DictTest(test_program.ProgramTest):
    def setUp(self):
        super().setUp()
        self.create()
        self.dict("create", "Lit")

    def dict(self, word, *arguments):
        return self.done("dict", word, self.file, *arguments)

    def entries(self, name="Lit"):
        shown = self.json("dict", "show", self.file, name)
        return [(e["code"], e["value"]) for e in shown["entries"]]

    def write(self, name, text):
        path = self.folder / name
        path.write_text(text, encoding="utf-8", newline="")
        return path

    def test_a_dictionary_is_filled_changed_and_removed(self):
        self.dict("add", "Lit", "1", "Песок")
        table = self.write("rocks.csv", "Rock,Code\nглина,2\ngravel,1\n")
        read = self.json("dict", "import", self.file, "Lit", table, "--code", "code", "--value", "1")
        self.assertEqual((read["ok"], read["taken"], read["passed_over"], read["entries"]),
                         (True, 1, 1, 2))
        self.assertEqual(self.entries(), [("1", "Песок"), ("2", "глина")])
        self.dict("swap", "Lit")
        self.assertEqual(self.entries(), [("Песок", "1"), ("глина", "2")])
        self.dict("swap", "Lit")
        self.dict("rename", "Lit", "--to", "Rocks")
        self.dict("create", "Empty")
        self.assertEqual(self.json("dict", "list", self.file),
                         [{"name": "Rocks", "entries": 2}, {"name": "Empty", "entries": 0}])
        self.assertIn("1     Песок\n", self.dict("show", "Rocks"))
        self.dict("remove", "Rocks")
        self.assertEqual(len(self.json("dict", "list", self.file)), 1)

    def test_an_export_reads_back(self):
        self.dict("add", "Lit", "1", "a; \"b\"")
        self.dict("add", "Lit", "2", "Песок")
        out = self.folder / "out.txt"
        for encoding in ("utf-8", "windows-1251"):
            self.dict("export", "Lit", out, "--encoding", encoding)
            self.assertEqual(out.read_bytes(), '1;"a; ""b"""\n2;Песок\n'.encode(encoding))
            self.dict("create", encoding)
            said = self.dict("import", encoding, out, "--no-header", "--encoding", encoding)
            self.assertIn("2 rows: 2 taken, 0 passed over, 0 bad; 2 entries", said)
            self.assertEqual(self.entries(encoding), self.entries())

    def test_bound_fields_show_values(self):
        self.done("well", "add", self.file, "--well", "W")
        table = self.write("tops.csv", "10;1;1\n20;9;\n")
        self.done("import", "table", self.file, table, "--well", "W", "--template", "marker",
                  "--prop", "G/Tops", "--columns", "depth=1,Название=2,Описание=3", "--no-header")
        self.dict("add", "Lit", "1", "sand")
        self.dict("link", "Lit", "G/Tops", "Название")
        self.assertEqual(self.json("dict", "links", self.file), {
            "fields": [{"group": "G", "property": "Tops", "field": "Название",
                        "dictionary": "Lit"}], "keys": []})
        data = ("data", self.file, "--well", "W", "--prop", "G/Tops")
        self.assertEqual([r[2:] for r in self.json(*data)["rows"]], [["sand", "1"], ["9", ""]])
        self.assertEqual([r[2:] for r in self.json(*data, "--codes")["rows"]],
                         [["1", "1"], ["9", ""]])
        export = ("export", "table", self.file, "--prop", "G/Tops")
        self.assertIn(",sand,1\r\n", self.done(*export).replace("\r\r", "\r"))
        self.assertIn(",1,1\r\n", self.done(*export, "--codes"))
        self.dict("remove", "Lit")
        self.assertIsNone(self.json("dict", "links", self.file)["fields"][0]["dictionary"])
        self.assertIn(",1,1\r\n", self.done(*export))
        self.dict("unlink", "G/Tops", "Название")
        self.assertEqual(self.json("dict", "links", self.file)["fields"], [])

    def test_refusals(self):
        file = self.file
        self.dict("add", "Lit", "1", "sand")
        bad = self.write("bad.csv", "c;v\n2;clay\n3\n")
        cases = (
            (("create", file, "Lit"), 1, ("Lit", "already")),
            (("create", file, ""), 1, ("needs a name",)),
            (("show", file, "None"), 1, ("None", "there are: Lit")),
            (("rename", file, "None", "--to", "b"), 1, ("None",)),
            (("add", file, "Lit", "1", "clay"), 1, ('"1"', '"sand"')),
            (("import", file, "Lit", bad, "--code", ""), 2, ("--code",)),
            (("import", file, "Lit", bad, "--value", "3"), 1, ("column 3",)),
            (("import", file, "Lit", self.folder / "none"), 1, ("none",)),
            (("export", file, "Lit", self.folder / "o", "--encoding", "detect"), 2, ("--encoding",)),
            (("link", file, "None", "G/P", "f"), 1, ("None",)),
            (("link", file, "Lit", "a/b/c", "f"), 1, ("GROUP/NAME",)),
            (("unlink", file, "G/P", "f"), 1, ("bound to no dictionary",)),
            (("swap", file, "None"), 1, ("None",)),
            (("remove", file, "None"), 1, ("None",)),
        )
        for arguments, code, says in cases:
            self.refused("dict", *arguments, code=code, says=says)
        failed = test_program.run("dict", "import", file, "Lit", bad)
        self.assertEqual(failed.returncode, 1)
        self.assertIn(b"1 cells", failed.stdout)
        self.assertEqual(self.entries(), [("1", "sand")])


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], *sys.argv[2:]])
