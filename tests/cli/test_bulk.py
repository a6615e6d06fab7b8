#!/usr/bin/env python3
"""The commands that work on many wells at once.

test_bulk.py PROGRAM [unittest arguments]
"""
import json
import sys
import unittest

import test_program


class BulkTest(test_program.ProgramTest):
    """Wells North/Deep/1 and /2 with the logs LAS/GR and LAS/DT, North/Deep/3 with a marker."""

    def setUp(self):
        super().setUp()
        self.create()
        for name in ("1", "2"):
            self.done("import", "las", self.file, self.las(f"{name}.las", name), "--object", "North")
        self.done("well", "add", self.file, "--well", "North/Deep/3")
        table = self.folder / "tops.csv"
        table.write_bytes(b"10;top\n")
        self.done("import", "table", self.file, table, "--well", "3", "--template", "marker",
                  "--prop", "Tops", "--columns", "depth=1,\u041d\u0430\u0437\u0432\u0430\u043d\u0438\u0435=2",
                  "--no-header")
        self.out = self.folder / "out"

    def names(self):
        return sorted(path.name for path in self.out.iterdir())

    def props(self, *choice):
        return [f'{p["group"]}/{p["name"]}' for p in self.json("props", self.file, *choice)]

    def test_wells_are_exported_each_into_a_file(self):
        told = self.json("export", "wells", self.file, self.out, "--exact")
        self.assertEqual(told, {
            "files": [
                {"well": "North/Deep/1", "path": str(self.out / "1.las"), "reason": None},
                {"well": "North/Deep/2", "path": str(self.out / "2.las"), "reason": None},
                {"well": "North/Deep/3", "path": None, "reason": "the well has no logs"}],
            "written": 2, "without_logs": 1, "refused": 0})
        self.assertEqual(self.names(), ["1.las", "2.las"])
        alone = self.folder / "alone.las"
        self.done("export", "las", self.file, "--well", "2", "--exact", "-o", alone)
        self.assertEqual((self.out / "2.las").read_bytes(), alone.read_bytes())

    def test_a_choice_limits_the_export(self):
        select = self.folder / "s.xml"
        self.done("select", "--new", select, "--query", "group = LAS")
        shown = self.done("export", "wells", self.file, self.out, "--selection", select,
                          "--remove", "North/Deep/1")
        self.assertEqual(self.names(), ["2.las"])
        self.assertIn("1 well: 1 file written, 0 refused, 0 without logs", shown)
        self.done("export", "wells", self.file, self.out, "--query", "type = marker", "--invert")
        self.assertEqual(self.names(), ["1.las", "2.las"])

    def test_a_file_that_fails_is_told_and_keeps_no_other_back(self):
        (self.out / "1.las").mkdir(parents=True)
        result = test_program.run("export", "wells", self.file, self.out, "--json")
        self.assertEqual((result.returncode, result.stderr.count(b"\n")), (1, 1))
        told = json.loads(result.stdout)
        self.assertEqual((told["written"], told["refused"]), (1, 1))
        self.assertIn("1.las", told["files"][0]["reason"])
        self.assertEqual(self.names(), ["1.las", "2.las"])
        self.refused("export", "wells", self.file, self.folder / "1.las", says=["1.las"])

    def test_a_property_is_removed_of_the_wells_that_are_meant(self):
        self.assertEqual(self.props(), ["/Tops", "LAS/DT", "LAS/GR"])
        self.assertIn("removed the property LAS/GR of 1 well\n",
                      self.done("remove-prop", self.file, "GR", "--well", "1"))
        self.assertEqual(self.props("--well", "1"), ["LAS/DT"])
        self.refused("remove-prop", self.file, "DT", "--all", says=["3 wells", "LAS/DT"])
        self.done("remove-prop", self.file, "LAS/DT", "--query", "group = LAS",
                  "--remove", "North/Deep/1")
        self.assertEqual(self.props("--well", "1"), ["LAS/DT"])
        self.assertEqual(self.props("--query", "property = DT", "--invert"), ["/Tops", "LAS/GR"])
        self.assertIn("of 1 well\n", self.done("remove-prop", self.file, "LAS/DT", "--all"))
        self.assertEqual(self.props(), ["/Tops", "LAS/GR"])
        self.assertEqual(self.json("check", self.file)["findings"], [])
        self.refused("remove-prop", self.file, "LAS/DT", "--all", says=["LAS/DT"])

    def test_wells_are_not_chosen_by_accident(self):
        f, well = self.file, "North/Deep/1"
        for arguments in (["remove-prop", f, "GR"], ["remove-prop", f], ["export", "wells", f],
                          ["remove-prop", f, "GR", "--all", "--well", "1"],
                          ["remove-prop", f, "GR", "--all", "--query", "exists log"],
                          ["remove-prop", f, "GR", "--remove", well],
                          ["remove-prop", f, "GR", "--add", well],
                          ["remove-prop", f, "GR", "--all", "--add", well],
                          ["remove-prop", f, "GR", "--all", "--invert"],
                          ["remove-prop", f, "GR", "--well", "1", "--add", well],
                          ["export", "wells", f, self.out, "--add", well],
                          ["export", "wells", f, self.out, "--invert"],
                          ["props", f, "--well", "1", "--query", "exists log"],
                          ["props", f, "--well", "1", "--invert"], ["props", f, "--add", well]):
            self.refused(*arguments, code=2, where=arguments)
        self.refused("remove-prop", f, "GR", "--query", "nonsense", says=["query"])
        self.assertEqual(self.props(), ["/Tops", "LAS/DT", "LAS/GR"])
        self.assertFalse(self.out.exists())

    def test_help(self):
        for command in ("export wells", "remove-prop", "props"):
            text = self.done(*command.split(), "--help")
            self.assertIn(f"  welldb {command} ", text.split("Example:")[-1], command)


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], *sys.argv[2:]])
