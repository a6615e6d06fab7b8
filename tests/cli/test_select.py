#!/usr/bin/env python3
"""The commands of selections and data filters.

test_select.py PROGRAM [unittest arguments]
"""
import sys
import unittest
import xml.etree.ElementTree as xml

import test_program


class SelectTest(test_program.ProgramTest):
    """Wells A, B and C; A and B have plugs, C is in another field."""

    def setUp(self):
        super().setUp()
        self.create()
        for well in ("O/F/A", "O/F/B", "O/G/C"):
            self.done("well", "add", self.file, "--well", well)
        self.done("well", "set", self.file, "--well", "A", "--altitude", "100")
        self.done("template", "create", self.file, "Plug", "--type", "interval",
                  "--field", "por:numeric:2", "--field", "lit:string")
        rows = {"A": "10;11;0.25;sand\n20;21;0.05;\"clay; 50%\"\n", "B": "5;6;0.1;Sand\n"}
        for well, text in rows.items():
            table = self.folder / (well + ".csv")
            table.write_text(text, encoding="utf-8")
            self.done("import", "table", self.file, table, "--well", well, "--template", "Plug",
                      "--prop", "Core/Plug", "--columns", "top=1,bot=2,por=3,lit=4",
                      "--no-header")

    def names(self, *arguments):
        return "".join(well["name"] for well in self.json("select", self.file, *arguments))

    def test_wells_are_chosen_by_queries_and_by_hand(self):
        self.assertEqual(self.names(), "ABC")
        self.assertEqual(self.names("--query", "Core/Plug.por > 0,2"), "A")
        self.assertEqual(self.names("--query", "exists altitude", "--invert"), "BC")
        self.assertEqual(
            self.names("--query", "exists altitude", "--add", "O/G/C", "--remove", "O/F/A"), "C")
        self.assertEqual(self.names("--query", "picked", "--picked", "O/F/B"), "B")
        self.assertEqual(self.names("--custom", "--add", "O/F/B"), "B")
        self.assertRegex(self.done("select", self.file, "--query", "not exists data"),
                         r"(?m)^ *3 +O +G +C *$")

    def test_a_selection_is_written_shown_and_used(self):
        path = self.folder / "s.xml"
        query = "Core/Plug.lit contains 50% or Core/Plug.lit = sand ignoring case"
        self.done("select", "--new", path, "--name", "Имя", "--query", query, "--remove", "O/F/B")
        root = xml.parse(path).getroot()
        self.assertEqual(root.tag, "wellDB_selection_parans")
        self.assertEqual(root.findtext("wellDB_selection/name"), "Имя")
        self.assertEqual([q.findtext("operation") for q in root.iter("query")], ["11", "5"])
        self.assertEqual(self.names(path), "A")
        self.assertEqual(self.names(path, "--add", "O/F/B"), "AB")
        self.assertIn(query, self.done("select", self.file, path, "--show"))

    def test_depths_are_found(self):
        found = self.json("filter", self.file, "--query", "Core/Plug.por >= 0.1")
        self.assertEqual([(w["name"], w["depths"]) for w in found],
                         [("A", [[89, 90]]), ("B", [[-6, -5]])])
        path = self.folder / "f.xml"
        query = "(Core/Plug.por < 0.1 or Core/Plug.lit begins with S)"
        self.done("filter", "--new", path, "--query", query)
        self.assertEqual(xml.parse(path).getroot().tag, "tree")
        self.assertEqual(self.done("filter", self.file, path, "--show").strip(), query)
        found = self.json("filter", self.file, path)
        self.assertEqual([(w["name"], w["depths"]) for w in found],
                         [("A", [[79, 80]]), ("B", [[-6, -5]])])
        only = self.json("filter", self.file, path, "--wells", "exists altitude")
        self.assertEqual([w["name"] for w in only], ["A"])
        with_values = self.json("filter", self.file, path, "--column", "Core/Plug.por")
        self.assertEqual([row["values"] for row in with_values], [[0.05], [0.1]])

    def test_what_cannot_be_read_is_refused(self):
        broken = self.folder / "broken.xml"
        broken.write_text("<tree>")
        for arguments, said in (
                (("select", self.file, "--query", "exists lgo"), "column 11"),
                (("select", self.file, broken), "no XML"),
                (("select", self.file, self.folder / "none.xml"), "none.xml"),
                (("select", self.file, "--add", "A"), "OBJECT/FIELD/NAME"),
                (("filter", self.file, "--query", "Core/Plug.por > big"), "big"),
                (("filter", self.file, "--query", "Core/Plug.por >"), "column 16"),
                (("filter", self.file, broken), "broken.xml"),
                (("filter", self.file, "--query", "A.b = 1", "--column", "x"), "no column")):
            self.refused(*arguments, says=(said,))
        for arguments in (("select",), ("filter", self.file), ("filter", "--query", "A.b = 1"),
                          ("select", self.file, "--name", "N")):
            self.refused(*arguments, code=2)


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], *sys.argv[2:]])
