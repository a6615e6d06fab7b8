#!/usr/bin/env python3
"""The commands of property templates.

test_template.py PROGRAM [unittest arguments]
"""
import os
import re
import sqlite3
import subprocess
import sys
import unittest

import test_program


class TemplateTest(test_program.ProgramTest):
    def setUp(self):
        super().setUp()
        self.create()

    def template(self, word, *arguments):
        return self.done("template", word, self.file, *arguments)

    def fields(self, name):
        shown = self.json("template", "show", self.file, name)
        return [(f["name"], f["type"], f["precision"], f["short_name"]) for f in shown["fields"]]

    def test_a_template_is_made_changed_and_removed(self):
        self.template("create", "Tops", "--type", "marker", "--field", "Net: gross:numeric:1",
                      "--field", "Kind:Ссылка")
        standard = [("Название", "string", None, "Name"), ("Описание", "bigstring", None, "Descr")]
        self.assertEqual(self.fields("Tops"), standard + [("Net: gross", "numeric", 1, ""),
                                                          ("Kind", "link", None, "")])
        self.template("create", "Like", "--from", "Tops")
        self.assertEqual(self.fields("Like"), self.fields("Tops"))
        self.template("add-field", "Tops", "N", "--type", "NORLEX_fieldTypeNumeric", "--prec", "0",
                      "--short", "Num")
        self.template("rename-field", "Tops", "Kind", "--to", "Sort")
        self.template("set-type", "Tops", "Sort", "--type", "numeric")
        self.template("remove-field", "Tops", "Net: gross")
        self.assertEqual(self.fields("Tops"), standard + [("Sort", "numeric", 2, ""),
                                                          ("N", "numeric", 0, "Num")])
        self.template("rename", "Tops", "--to", "Markers")
        self.template("remove", "Like")
        listed = {t["name"]: t for t in self.json("template", "list", self.file)}
        self.assertEqual(listed["Markers"], {"name": "Markers", "type": "marker", "fields": 4,
                                             "properties": 0})
        self.assertEqual(len(listed), 9)  # eight of every container
        self.assertIn("Sort      numeric            2\n", self.template("show", "Markers"))

    def test_types_by_any_of_their_names(self):
        for name, type_ in (("average-velocity", "average velocity"), ("Набор данных", "series"),
                            ("NORLEX_dataTypeRastr", "image")):
            self.template("create", "of " + name, "--type", name)
            shown = self.json("template", "show", self.file, "of " + name)
            self.assertEqual((shown["type"], shown["properties"]), (type_, 0))

    def test_refusals(self):
        file = self.file
        cases = (
            (("show", file, "Nothing"), 1, ("Nothing", "there are: Граница корреляции, ")),
            (("create", file, "Маркер", "--type", "log"), 1, ("Маркер", "already")),
            (("create", file, "t", "--type", "border"), 1, ("one template",)),
            (("create", file, "t", "--from", "none"), 1, ("none",)),
            (("create", file, "t"), 2, ("--from",)),
            (("create", file, "t", "--type", "logs"), 2, ("logs", "marker, interval", "work-construction")),
            (("create", file, "t", "--type", "log", "--from", "Маркер"), 2, ("--from",)),
            (("create", file, "t", "--type", "log", "--field", "f"), 2, ("NAME:TYPE",)),
            (("create", file, "t", "--type", "log", "--field", "f:number"), 2, ("number", "numeric")),
            (("add-field", file, "Маркер", "f", "--type", "link", "--prec", "16"), 2, ("16",)),
            (("add-field", file, "Маркер", "f", "--type", "link", "--short", "a" * 11), 1, ("10 char",)),
            (("rename-field", file, "Маркер", "f", "--to", "g"), 1, ("no field", "Название, Описание")),
            (("rename", file, "Маркер", "--to", "Растр"), 1, ("already",)),
        )
        before = self.json("template", "list", file)
        for arguments, code, says in cases:
            self.refused("template", *arguments, code=code, says=says)
        self.assertEqual(self.json("template", "list", file), before)

    def test_values_are_not_lost_unasked(self):
        self.done("well", "add", self.file, "--well", "W")
        self.fill()
        line = self.refused("template", "set-type", self.file, "Маркер", "Название", "--type",
                            "numeric", says=("2 values", '"old"', "g/tops", "//W", "--force"))
        self.assertNotIn("1,5", line)
        self.template("set-type", "Маркер", "Название", "--type", "numeric", "--force")
        self.refused("template", "remove-field", self.file, "Маркер", "Название",
                     says=("3 values", "--force"))
        self.template("remove-field", "Маркер", "Название", "--force")
        self.refused("template", "remove", self.file, "Маркер", says=("properties",))
        self.assertEqual([f[0] for f in self.fields("Маркер")], ["Описание"])

    def fill(self):
        """A marker property of the well with three records."""
        statements = (
            "INSERT INTO property (pr_id, w_id, bt_id, name, p_group) VALUES (1, 1, 1, 'tops', 'g')",
            "INSERT INTO field (f_id, pr_id, name, type, is_base) VALUES"
            " (1, 1, 'Название', 'NORLEX_fieldTypeString', 0),"
            " (2, 1, 'Описание', 'NORLEX_fieldTypeBigstring', 0)",
            "INSERT INTO val (f_id, obj_id, value) VALUES (1, 1, '1,5'), (1, 2, 'old'), (1, 3, 'new'),"
            " (2, 1, ''), (2, 2, ''), (2, 3, '')",
        )
        if not test_program.ON_SERVER:
            with sqlite3.connect(self.file) as database:
                for statement in statements:
                    database.execute(statement)
            database.close()
            return
        text = self.file.read_text(encoding="utf-8")
        pairs = dict(re.findall("(Server|Port|Database)=([^=;\n]+)[;\n]", text))
        subprocess.run(["psql", "-q", "-h", pairs["Server"], "-p", pairs["Port"], "-U",
                        os.environ["WELLDB_TEST_USER"], "-c", ";".join(statements),
                        pairs["Database"]], check=True,
                       env={**os.environ, "PGPASSWORD": os.environ["WELLDB_TEST_PASSWORD"]})


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], *sys.argv[2:]])
