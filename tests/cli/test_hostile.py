#!/usr/bin/env python3
"""Hostile texts as arguments: stored and shown again, or refused in one line.

test_hostile.py PROGRAM [unittest arguments]
"""
import json
import subprocess
import sys
import unittest

import test_program

TEXTS = [
    "'", '"', "'; DROP TABLE well_base; --", "--", "-", "-h", "--json", "-x=1", "/*", "#", "%",
    "%s%n", "?", "$1", "{fn now()}", "$$x$$", "\\", "\\'", "/", "..", "../../escaped",
    "\\\\host\\x", "~", "nul.txt", ".", " ", " a ", "", ";", "[a,b]", "{}", "[]", "%%", "@file",
    "a=b", "a:b:1", "\t", "\n", "\r\n", "]]>", '{"a":1}', "1e400", "-0", "Ё", "e\u0301",
    "\u202eabc", "\ufeff", "\U0001F600", "\u2028", "\u0001", "\u001b[31m", "\u0085", "x" * 241,
    "я" * 60000,
]
if test_program.ON_SERVER:  # each command connects anew; the library's tests give the server all
    TEXTS = TEXTS[::3]
# No UTF-8: an argument cannot be stored then.
BYTES = [b"\xff", b"a\xc3", b"\xc0\xaf", b"\xed\xa0\x80", b"\xf4\x90\x80\x80", b"a\x80b"]


def escaped(name):
    return name.replace("/", "\\/")


def quoted(text):
    return '"' + text.replace('"', '""') + '"'


def run(*arguments):
    """Bytes stay what they are."""
    spelled = [a if isinstance(a, bytes) else str(a).encode("utf-8") for a in arguments]
    return subprocess.run([test_program.PROGRAM, *spelled], stdin=subprocess.DEVNULL,
                          capture_output=True, timeout=120)


def option(name, text):
    """An option and its value: what follows "=" is never taken for another option."""
    return (f"{name}={text}",) if text else (name, text)


class HostileTest(test_program.ProgramTest):
    def setUp(self):
        super().setUp()
        self.create()
        for name in ("sentinel", "target"):
            self.done("well", "add", self.file, "--well", f"O/F/{name}")

    def outcome(self, *arguments):
        """Whether a command did its work; a refusal is one line, and nothing else may be."""
        result = run(*arguments)
        where = (arguments, result.returncode, result.stderr[:300])
        self.assertIn(result.returncode, (0, 1), where)
        line = result.stderr.decode("utf-8")
        if result.returncode == 1:
            self.assertTrue(line.startswith("welldb: ") and line.count("\n") == 1, where)
            self.assertLess(len(line), 4000, arguments[:2])
        return result.returncode == 0

    def names(self, *arguments):
        return [well["name"] for well in self.json("wells", self.file, *arguments)]

    def test_wells_are_named(self):
        taken = 0
        for text in TEXTS:
            plain = text.replace("'", "")
            if self.outcome("well", "add", self.file, f"--well=O/F/{escaped(text)}"):
                taken += 1
                self.assertIn(plain, self.names(), repr(text))
                self.done("well", "remove", self.file, f"--well=O/F/{escaped(text)}")
            if self.outcome("well", "rename", self.file, "--well=O/F/target",
                            f"--to=O/F/{escaped(text)}"):
                self.assertEqual(sorted(self.names()), sorted([plain, "sentinel"]), repr(text))
                self.done("well", "rename", self.file, f"--well=O/F/{escaped(plain)}",
                          "--to=O/F/target")
        self.assertGreater(taken, len(TEXTS) * 3 // 4)
        self.assertEqual(self.names(), ["sentinel", "target"])

    def test_records_keep_them(self):
        self.done("dict", "create", self.file, "Words")
        for text in TEXTS:
            plain = text.replace("'", "")
            if self.outcome("drilling", "set", self.file, "--well=O/F/target", *option("--rig", text)):
                shown = self.json("drilling", "show", self.file, "--well=O/F/target")
                self.assertEqual(shown["rig"], plain, repr(text))
            if self.outcome("dict", "add", self.file, "--", "Words", f"c{text}", text):
                entry = self.json("dict", "show", self.file, "Words")["entries"][-1]
                self.assertEqual((entry["code"], entry["value"]), ("c" + plain, plain), repr(text))
            if self.outcome("template", "create", self.file, "--type=marker", "--", text):
                names = [t["name"] for t in self.json("template", "list", self.file)]
                self.assertIn(plain, names, repr(text))
                self.done("template", "remove", self.file, "--", plain)
        shown = self.json("drilling", "show", self.file, "--well=O/F/sentinel")
        self.assertEqual(shown["rig"], "")

    def test_queries_take_them_as_they_are(self):
        table = self.folder / "wells.csv"
        for text in TEXTS:
            table.write_text(f"target;{quoted(text)}\n", encoding="utf-8", newline="")
            self.outcome("import", "wells", self.file, table, "--columns", "name=1", "--attribute",
                         "key=2", "--object=O", "--field=F", "--no-header", "--separator=;",
                         "--on-existing=update")
            cell = text.strip(" \t\r\n")  # what a table of wells keeps of it
            if cell and self.outcome("select", self.file, f"--query=meta key = {quoted(cell)}"):
                found = self.json("select", self.file, f"--query=meta key = {quoted(cell)}")
                self.assertEqual([w["name"] for w in found], ["target"], repr(text))
            self.outcome("select", self.file, *option("--query", text))
            if text:
                self.outcome("filter", self.file, f"--query={text}")
        self.assertEqual(self.names(), ["sentinel", "target"])

    def test_bytes_that_are_no_text_are_refused(self):
        for text in BYTES:
            for arguments in (
                ("well", "add", self.file, b"--well=" + text),
                ("well", "rename", self.file, "--well=O/F/target", b"--to=" + text),
                ("drilling", "set", self.file, "--well=O/F/target", b"--rig=" + text),
                ("template", "create", self.file, "--type=marker", text),
                ("dict", "create", self.file, text),
                ("select", self.file, b'--query=meta key = "' + text + b'"'),
                ("info", text),
            ):
                result = run(*arguments)
                where = (arguments, result.stdout[:200], result.stderr[:300])
                expected = (0, 1) if arguments[0] == "select" else (1,)
                self.assertIn(result.returncode, expected, where)
                result.stderr.decode("utf-8")
        self.assertEqual(self.names(), ["sentinel", "target"])
        self.assertEqual(json.loads(self.done("check", self.file, "--json"))["findings"], [])


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], *sys.argv[2:]])
