#!/usr/bin/env python3
"""Runs the program and checks what it prints, what it refuses and how it ends.

test_program.py PROGRAM [unittest arguments]
"""
import json
import math
import os
import pathlib
import signal
import sqlite3
import subprocess
import sys
import tempfile
import unicodedata
import unittest

try:
    import pty
except ImportError:
    pty = None

PROGRAM = os.path.abspath(sys.argv[1]) if len(sys.argv) > 1 else "welldb"

# Values by hand. GR has five points, one of them null; DT has none but nulls.
LAS = """~Version Information
 VERS.   2.0 : CWLS LOG ASCII STANDARD - VERSION 2.0
 WRAP.    NO : ONE LINE PER DEPTH STEP
~Well Information
 STRT.M  1000.0 : START DEPTH
 STOP.M  1000.8 : STOP DEPTH
 STEP.M     0.2 : STEP
 NULL.  -999.25 : NULL VALUE
 WELL.  {well} : WELL
 FLD .  {field} : FIELD
~Curve Information
 DEPT.M         : depth
 GR  .API       : gamma ray
 DT  .us/m      : slowness
~ASCII
 1000.0   50.5   -999.25
 1000.2   60.25  -999.25
 1000.4 -999.25  -999.25
 1000.6   41.125 -999.25
 one two three
 1000.8   70.0   -999.25
"""

# Depth 0 replaces the synthetic surface station. By hand, with altitude 100: vertical to 1000,
# then 60 degrees to the east: 200 along the hole are 100 down and 100*sqrt(3) east.
LISTING = """Well=12
Depth Angle Azimuth =
0.0 0.0 0.0
1000.0 60.0 90.0
2000.0 60.0 90.0
=====
"""
SQRT3 = math.sqrt(3.0)


def run(*arguments, stdin=subprocess.DEVNULL, **options):
    return subprocess.run([PROGRAM, *map(str, arguments)], stdin=stdin, capture_output=True,
                          timeout=120, **options)


# With WELLDB_TEST_ENGINE=server the container lies in a database of its own on the server that
# WELLDB_TEST_SERVER, _USER and _PASSWORD name.
ON_SERVER = os.environ.get("WELLDB_TEST_ENGINE") == "server"
SERVER = os.environ.get("WELLDB_TEST_SERVER", "")
if ON_SERVER and not SERVER:
    print("skipped: no server is named by WELLDB_TEST_SERVER")
    sys.exit(77)
local_only = unittest.skipIf(ON_SERVER, "of a local file")


def administer(statement):
    pairs = dict(pair.split("=", 1) for pair in SERVER.split(";") if "=" in pair)
    subprocess.run(["psql", "-q", "-h", pairs["Server"], "-p", pairs["Port"], "-U",
                    os.environ["WELLDB_TEST_USER"], "-c", statement, "postgres"], check=True,
                   stderr=subprocess.DEVNULL,
                   env={**os.environ, "PGPASSWORD": os.environ["WELLDB_TEST_PASSWORD"]})


class ProgramTest(unittest.TestCase):
    maxDiff = None
    databases = 0

    def setUp(self):
        holder = tempfile.TemporaryDirectory(prefix="welldb-cli-")
        self.addCleanup(holder.cleanup)
        self.folder = pathlib.Path(holder.name)
        self.file = self.place("field.well2")

    def place(self, name):
        """Where a container may be made: a path, or the description of a new database."""
        path = self.folder / name
        if ON_SERVER:
            ProgramTest.databases += 1
            database = f"welldb_cli_{os.getpid()}_{ProgramTest.databases}"
            administer(f"CREATE DATABASE {database} TEMPLATE template0")
            self.addCleanup(administer, f"DROP DATABASE {database} WITH (FORCE)")
            path.write_text("[TESSARO_welldb_Server_Description]\n"
                            f"fileFolder={self.folder / path.stem}/\n"
                            f"UID={os.environ['WELLDB_TEST_USER']}\n"
                            f"PWD={os.environ['WELLDB_TEST_PASSWORD']}\n"
                            f"Database={SERVER}Database={database}\n", encoding="utf-8")
        return path

    def done(self, *arguments):
        """Runs a command that is to succeed, and answers its standard output."""
        result = run(*arguments)
        self.assertEqual((result.returncode, result.stderr), (0, b""), arguments)
        return result.stdout.decode("utf-8")

    def json(self, *arguments):
        return json.loads(self.done(*arguments, "--json"))

    def refused(self, *arguments, code=1, says=(), where=None):
        """Runs a command that is to be refused in one line, which names what `says` lists."""
        where = where or arguments
        result = run(*arguments)
        line = result.stderr.decode("utf-8")
        self.assertEqual(result.returncode, code, f"{where}: {line}")
        self.assertEqual((line.count("\n"), line.startswith("welldb: ")), (1, True), f"{where}: {line}")
        for word in says:
            self.assertIn(word, line, where)
        return line

    def las(self, name="one.las", well="12", field="Deep", encoding="utf-8", text=LAS):
        path = self.folder / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(text.format(well=well, field=field).encode(encoding))
        return path

    def create(self):
        self.done("create", self.file)

    def withLog(self):
        """A container with the well North/Deep/12 and its logs LAS/GR and LAS/DT."""
        self.create()
        self.done("import", "las", self.file, self.las(), "--object", "North")

    def withSurvey(self):
        self.create()
        self.done("well", "add", self.file, "--well", "N/D/12", "--altitude", "100",
                  "--x", "5000", "--y", "7000")
        listing = self.folder / "survey.lst"
        listing.write_text(LISTING, encoding="utf-8")
        self.done("import", "survey", self.file, "--well", "12", listing)


class ContainerTest(ProgramTest):
    @local_only
    def test_create_keeps_an_existing_file_unless_forced(self):
        self.withLog()
        before = self.file.read_bytes()
        self.refused("create", self.file, says=["exists already", "--force"])
        self.assertEqual(self.file.read_bytes(), before)
        self.done("create", self.file, "--force")
        self.assertEqual(self.json("wells", self.file), [])

    def test_help_is_a_word_too(self):
        self.assertEqual(self.done("help"), self.done("--help"))
        self.assertEqual(self.done("help", "import", "las"), self.done("import", "las", "--help"))
        self.refused("help", "none", code=2, says=("none",))

    def test_info(self):
        self.withLog()
        info = self.json("info", self.file)
        self.assertEqual(list(info), ["path", "type", "version", "status", "wells", "properties",
                                      "templates", "created", "created_by", "updated",
                                      "updated_by", "file_directory"])
        self.assertEqual((info["path"], info["type"], info["version"], info["status"]),
                         (str(self.file), "server" if ON_SERVER else "local", 36, "current"))
        self.assertEqual((info["wells"], info["properties"]), (1, 2))
        self.assertEqual(info["templates"], 8)  # one of each standard kind
        self.assertRegex(info["created"], r"^\d{4}-\d\d-\d\d \d\d:\d\d:\d\d$")
        self.assertTrue(info["file_directory"].startswith(str(self.folder / "field")))
        self.assertIn("status", self.done("info", self.file))

    @local_only
    def test_what_cannot_be_opened_is_refused_and_left_alone(self):
        self.create()
        good = self.file.read_bytes()
        cases = {
            "missing": None,
            "zero length": b"",
            "text": b"depth;value\n1;2\n" * 400,
            "truncated": good[: len(good) // 2 + 100],
            "damaged": good[:100] + b"\xff" * 4000 + good[4100:],
        }
        for where, content in cases.items():
            path = self.folder / f"{where}.well2"
            if content is not None:
                path.write_bytes(content)
            for command in (["info"], ["wells"], ["import", "las"]):
                extra = [self.las()] if command[0] == "import" else []
                self.refused(*command, path, *extra, says=[path.name], where=(where, command))
            self.assertEqual(path.read_bytes() if path.exists() else None, content, where)
        folder = self.folder / "folder.well2"
        folder.mkdir()
        self.refused("info", folder, says=["folder.well2"])
        self.refused("create", folder, "--force", says=["folder"])
        self.refused("create", self.folder / "field.db", says=[".well2"])
        self.refused("create", self.folder / "no" / "such" / "folder.well2", says=["no"])

    @unittest.skipIf(os.geteuid() == 0, "the superuser may write anywhere")
    def test_read_only_folder(self):
        self.withLog()
        sealed = self.folder / "sealed"
        sealed.mkdir()
        sealed.chmod(0o500)
        self.addCleanup(sealed.chmod, 0o700)
        self.refused("create", sealed / "new.well2", says=["new.well2"])
        self.refused("export", "las", self.file, "--well", "12", "-o", sealed / "out.las",
                     says=["out.las"])
        self.refused("export", "las", self.file, "--well", "12", "--exact", "-o",
                     sealed / "out.las", says=["out.las"])


class CareTest(ProgramTest):
    def exact(self, container):
        out = self.folder / "exact.las"
        self.done("export", "las", container, "--well", "12", "--exact", "-o", out)
        return out.read_bytes()

    def test_backup_restore_and_copy_keep_everything(self):
        self.withLog()
        samples = self.exact(self.file)
        archive = self.folder / "all.zip"
        self.assertIn("all.zip", self.done("backup", self.file, archive))
        copies = [self.place("restored.well2"), self.place("copied.well2"),
                  self.folder / "local.well2"]
        self.done("restore", archive, copies[0])
        self.done("copy", self.file, copies[1])
        self.done("copy", copies[1], copies[2])
        wells = self.json("wells", self.file)
        for copy in copies:
            self.assertEqual(self.json("wells", copy), wells)
            self.assertEqual(self.json("props", copy, "--well", "12"),
                             self.json("props", self.file, "--well", "12"))
            self.assertEqual(self.exact(copy), samples)
            self.assertEqual(self.json("check", copy)["findings"], [])
            # New keys go on behind the old ones.
            self.done("import", "las", copy, self.las("two.las", well="13"))
            self.assertEqual(len(self.json("wells", copy)), 2)
        self.refused("copy", self.file, copies[2], says=["exists already"])
        if not ON_SERVER:
            self.refused("restore", archive, copies[0], says=["exists already", "--force"])
            self.done("restore", archive, copies[0], "--force")
            self.assertEqual(self.json("wells", copies[0]), wells)
        else:
            self.refused("restore", archive, copies[0], says=["already"])
        self.refused("restore", self.las("no.zip"), self.place("new.well2"), says=["no.zip"])

    def test_check_and_repair(self):
        self.withLog()
        self.assertEqual(self.json("check", self.file),
                         {"ok": True, "findings": [], "removed": [], "backup": None})
        samples = self.folder / "field" / "North" / "Deep" / "12" / "LAS"
        (samples / "lost.wpdb").write_bytes(b"x")
        (samples / "GR.wpdb").rename(samples / "NPHI.wpdb")
        result = run("check", self.file, "--json")
        self.assertEqual(result.returncode, 1)
        self.assertEqual(
            [(one["kind"], one["count"], one["repairable"])
             for one in json.loads(result.stdout)["findings"]],
            [("log without a sample file", 1, False), ("sample file without a log", 2, True)])
        self.refused("check", self.file, "--repair", says=["a person"])
        self.assertEqual([path.name for path in samples.iterdir()], ["DT.wpdb"])
        self.assertTrue((self.folder / "field.well2.before-repair.zip").exists())

    def test_optimize(self):
        self.withLog()
        self.assertIn("with search indexes", self.done("optimize", self.file, "--indexes"))
        self.assertNotIn("with search indexes", self.done("optimize", self.file, "--no-indexes"))
        self.refused("optimize", self.file, "--indexes", "--no-indexes", code=2)

    @local_only
    def test_upgrade(self):
        self.create()
        self.assertIn("current version 36", self.done("upgrade", self.file))
        database = sqlite3.connect(self.file)
        database.execute("UPDATE base_version SET version = 35")
        database.commit()
        database.close()
        before = self.file.read_bytes()
        self.refused("wells", self.file, says=["version 35"])
        self.refused("upgrade", self.file, says=["version 35"])
        self.assertEqual(self.file.read_bytes(), before)
        copy = f"{self.file}.v35.bak"
        self.assertEqual(self.json("upgrade", self.file, "--yes"),
                         {"path": str(self.file), "from": 35, "to": 36, "copy": copy})
        self.assertTrue(os.path.exists(copy))
        self.assertEqual(self.json("info", self.file)["status"], "current")

    @unittest.skipUnless(ON_SERVER, "of a server")
    def test_credentials(self):
        self.create()
        lines = self.file.read_text(encoding="utf-8").splitlines()
        self.file.write_text("\n".join(line for line in lines if line[:4] not in ("UID=", "PWD=")),
                             encoding="utf-8")
        self.refused("info", self.file, says=["WELLDB_USER", "WELLDB_PASSWORD"])
        names = {"WELLDB_USER": os.environ["WELLDB_TEST_USER"], "WELLDB_PASSWORD": "s3cret"}
        wrong = run("info", self.file, env={**os.environ, **names})
        self.assertEqual(wrong.returncode, 1)
        self.assertIn(b"wrong user or password", wrong.stderr)
        self.assertNotIn(b"s3cret", wrong.stderr)
        names["WELLDB_PASSWORD"] = os.environ["WELLDB_TEST_PASSWORD"]
        self.assertEqual(run("info", self.file, env={**os.environ, **names}).returncode, 0)


class LasTest(ProgramTest):
    def test_las_shows_the_file(self):
        las = self.json("las", self.las(well="Скважина 7", encoding="windows-1251"))
        self.assertEqual(list(las), ["ok", "version", "wrap", "start", "stop", "step", "null",
                                     "encoding", "well", "curves", "rows", "skipped",
                                     "skipped_count"])
        self.assertEqual((las["ok"], las["version"], las["wrap"], las["encoding"]),
                         (True, "2.0", False, "windows-1251"))
        self.assertEqual((las["start"], las["stop"], las["step"], las["null"], las["rows"]),
                         (1000.0, 1000.8, 0.2, -999.25, 5))
        self.assertIn({"mnemonic": "WELL", "unit": "", "value": "Скважина 7",
                       "description": "WELL"}, las["well"])
        self.assertEqual(las["curves"], [
            {"name": "GR", "unit": "API", "description": "gamma ray", "points": 5, "count": 4,
             "min": 41.125, "max": 70.0, "first_depth": 1000.0, "last_depth": 1000.8},
            {"name": "DT", "unit": "us/m", "description": "slowness", "points": 5, "count": 0,
             "min": None, "max": None, "first_depth": 1000.0, "last_depth": 1000.8}])
        self.assertEqual(las["skipped_count"], 1)
        self.assertEqual([s["line"] for s in las["skipped"]], [20])

    def test_las_options(self):
        path = self.las(well="Скважина", encoding="cp866")
        header = self.json("las", path, "--header")
        self.assertEqual((header["rows"], header["curves"][0]["points"],
                          header["curves"][0]["first_depth"]), (0, 0, None))
        wells = [e["value"] for e in self.json("las", path, "--encoding", "CP866")["well"]
                 if e["mnemonic"] == "WELL"]
        self.assertEqual(wells, ["Скважина"])
        self.refused("las", path, "--encoding", "ebcdic", code=2, says=["ebcdic", "windows-1251"])

    def test_what_is_no_log_is_refused(self):
        for name, content in {"empty.las": b"", "lidar.las": b"LASF" + bytes(300),
                              "text.las": b"hello\n" * 50}.items():
            path = self.folder / name
            path.write_bytes(content)
            self.refused("las", path, says=[name])
            result = run("las", path, "--json")
            self.assertEqual((result.returncode, json.loads(result.stdout)["ok"]), (1, False), name)
        self.refused("las", self.folder / "missing.las", says=["missing.las"])
        self.refused("las", self.folder, says=[self.folder.name])
        if hasattr(os, "mkfifo"):
            os.mkfifo(self.folder / "pipe.las")  # would be waited for without end
            self.refused("las", self.folder / "pipe.las", says=["pipe.las", "neither a file"])

    def test_import_walks_folders_and_tries_every_file(self):
        self.create()
        self.las("logs/a.las", well="A")
        self.las("logs/deeper/b.LAS", well="B")
        self.las("logs/skipped.txt", well="no")
        (self.folder / "logs/bad.las").write_bytes(b"nothing of a log")
        named = self.las("named.txt", well="C")
        empty = self.folder / "empty"
        empty.mkdir()
        result = run("import", "las", self.file, self.folder / "logs", named, empty, "gone.las",
                     "--json")
        self.assertEqual((result.returncode, result.stderr.count(b"\n")), (1, 1))
        out = json.loads(result.stdout)
        self.assertEqual(list(out), ["files", "wells_created", "logs_created"])
        self.assertEqual((out["wells_created"], out["logs_created"]), (3, 6))
        self.assertEqual(list(out["files"][0]), ["path", "ok", "well", "curves", "rows",
                                                 "skipped_count", "error"])
        self.assertEqual(
            [(pathlib.Path(f["path"]).name, f["ok"], f["well"], f["rows"], f["skipped_count"])
             for f in out["files"] if f["ok"]],
            [("a.las", True, "/Deep/A", 5, 1), ("b.LAS", True, "/Deep/B", 5, 1),
             ("named.txt", True, "/Deep/C", 5, 1)])
        refused = {pathlib.Path(f["path"]).name: f["error"] for f in out["files"] if not f["ok"]}
        self.assertEqual(set(refused), {"bad.las", "empty", "gone.las"})
        self.assertTrue(all(refused.values()))
        self.assertEqual([w["name"] for w in self.json("wells", self.file)], ["A", "B", "C"])

    @unittest.skipIf(pty is None, "no terminals here")
    def test_an_interrupt_keeps_what_was_done(self):
        self.create()
        for number in range(600):
            self.las(f"logs/{number}.las", well=f"W{number}")
        terminal, end = pty.openpty()
        process = subprocess.Popen([PROGRAM, "import", "las", str(self.file),
                                    str(self.folder / "logs"), "--json"],
                                   stdout=subprocess.PIPE, stderr=end)
        os.close(end)
        shown = os.read(terminal, 4096)  # the bar: the work is under way
        process.send_signal(signal.SIGINT)
        out = json.loads(process.communicate(timeout=120)[0])
        shown += os.read(terminal, 4096)
        os.close(terminal)
        self.assertEqual(process.returncode, 1)
        self.assertIn(b"/600] ", shown)
        self.assertIn(b"welldb: stopped", shown)
        done = [f["well"] for f in out["files"] if f["ok"]]
        self.assertTrue(0 < len(done) <= len(out["files"]) < 600, len(done))
        wells = self.json("wells", self.file)
        self.assertEqual({f"/{w['field']}/{w['name']}" for w in wells}, set(done))
        self.assertEqual({w["properties"] for w in wells}, {2})

    def test_import_options(self):
        self.withLog()
        path = self.las()
        again = ["import", "las", self.file, path, "--object", "North"]
        result = run(*again)
        self.assertEqual(result.returncode, 1)
        self.assertIn("1 refused", result.stdout.decode())
        for policy, logs in (("skip", 0), ("replace", 2)):
            out = self.json(*again, "--on-existing", policy)
            self.assertEqual((out["wells_created"], out["logs_created"]), (0, logs), policy)
        out = self.json("import", "las", self.file, path, "--dry-run")
        self.assertEqual((out["files"][0]["ok"], out["files"][0]["well"]), (True, "/Deep/12"))
        self.assertEqual(len(self.json("wells", self.file)), 1)
        self.json("import", "las", self.file, path, "--object", "O", "--field", "F", "--group", "G")
        self.assertEqual([p["group"] for p in self.json("props", self.file, "--well", "O/F/12")],
                         ["G", "G"])
        self.refused(*again, "--on-existing", "ask", code=2, says=["ask", "skip"])
        self.las("[a,b]/c.las", well="C")
        result = run("import", "las", self.file, "[a,b]", "--dry-run", "--json", cwd=self.folder)
        self.assertEqual(json.loads(result.stdout)["files"][0]["path"], "[a,b]/c.las")

    def test_export_and_import_again(self):
        self.withLog()
        out = self.folder / "out.las"
        self.done("export", "las", self.file, "--well", "12", "--prop", "GR", "--exact", "-o", out)
        curves = self.json("las", out)["curves"]
        self.assertEqual([(c["name"], c["points"], c["count"], c["min"], c["max"]) for c in curves],
                         [("GR", 5, 4, 41.125, 70.0)])
        self.done("export", "las", self.file, "--well", "12", "-o", out)
        grid = self.json("las", out)
        self.assertEqual([c["name"] for c in grid["curves"]], ["DT", "GR"])
        self.assertEqual(grid["curves"][1]["first_depth"], 1000.0)

    def test_an_empty_export_replaces_nothing(self):
        self.withLog()
        out = self.folder / "out.las"
        out.write_bytes(b"precious")
        one = LAS.split(" 1000.2")[0]  # a single sample: no grid, but a sample all the same
        self.done("import", "las", self.file, self.las("single.las", well="S", text=one))
        twice = one + " 1000.0 51.5 -999.25\n 1000.6 52.5 -999.25\n"  # a first step of 0
        self.done("import", "las", self.file, self.las("step.las", well="T", text=twice))
        self.done("well", "add", self.file, "--well", "empty")
        for well, reason in (("S", "--exact"), ("T", ""), ("empty", "no logs")):
            self.refused("export", "las", self.file, "--well", well, "-o", out, says=[reason])
            self.assertEqual(out.read_bytes(), b"precious", well)
        self.done("export", "las", self.file, "--well", "S", "--exact", "-o", out)
        self.assertEqual(self.json("las", out)["rows"], 1)
        self.refused("export", "las", self.file, "--well", "12", "--prop", "RHOB", "-o", out,
                     says=["RHOB", "LAS/GR"])
        self.refused("export", "las", self.file, "--well", "12", "-o",
                     self.folder / "no" / "out.las", says=["out.las"])


class WellTest(ProgramTest):
    def test_wells(self):
        self.create()
        self.done("well", "add", self.file, "--well", "N/D/1", "--altitude", "-12.25", "--x",
                  "4512000.125", "--y", "6203500", "--bottom", "3120.5")
        self.done("well", "add", self.file, "--well", "alone")
        wells = self.json("wells", self.file)
        for well in wells:
            self.assertGreater(well.pop("id"), 0)
        self.assertEqual(wells, [
            {"object": "", "field": "", "name": "alone", "altitude": 0.0, "x": 0.0, "y": 0.0,
             "bottom": None, "properties": 0, "stations": 0},
            {"object": "N", "field": "D", "name": "1", "altitude": -12.25, "x": 4512000.125,
             "y": 6203500.0, "bottom": 3120.5, "properties": 0, "stations": 0}])

    def test_names_find_the_well_they_were_given_to(self):
        self.create()
        # as given, as stored: (object, field, name)
        cases = [
            (r"Север/Глубокая/12", ("Север", "Глубокая", "12")),
            (r"N/D/15\/9-19", ("N", "D", "15/9-19")),
            (r"A\/B/C/..", ("A/B", "C", "..")),
            (r"//con", ("", "", "con")),
            (r"o\\/f/ends with \\", ("o\\", "f", r"ends with \\")),
            (r"/x\\\/y/🛢️ 7", ("", r"x\/y", "🛢️ 7")),
            ("/f/tab\tnew\nline", ("", "f", "tab\tnew\nline")),
            ("/f/100% <a>:\"b\"|?*", ("", "f", "100% <a>:\"b\"|?*")),
            ("/f/[list]", ("", "f", "[list]")),
            ("/f/O'Brien", ("", "f", "OBrien")),  # apostrophes are dropped
        ]
        for reference, triple in cases:
            told = self.done("well", "add", self.file, "--well", reference)
            self.assertEqual(self.json("props", self.file, "--well", reference), [], reference)
            spelled = told.removeprefix("added the well ").removesuffix("\n")
            if "\t" not in triple[2]:  # control characters are written out for people
                self.assertEqual(self.json("props", self.file, "--well", spelled), [], reference)
        stored = {(w["object"], w["field"], w["name"]) for w in self.json("wells", self.file)}
        self.assertEqual(stored, {triple for _, triple in cases})
        for reference, triple in cases:
            self.refused("well", "add", self.file, "--well", reference, where=reference)
        self.assertEqual(self.json("props", self.file, "--well", "O'Brien"), [])

    def test_names_that_are_refused(self):
        self.create()
        self.done("well", "add", self.file, "--well", "A/F/twin")
        self.done("well", "add", self.file, "--well", "B/F/twin")
        self.refused("props", self.file, "--well", "twin", says=["A/F/twin", "B/F/twin"])
        self.refused("props", self.file, "--well", "triplet", says=["triplet", "A/F/twin"])
        self.refused("props", self.file, "--well", "A/G/twin", says=["A/G/twin"])
        self.done("well", "add", self.file, "--well", "solo")
        self.refused("props", self.file, "--well", "solo/F/no", says=["solo/F/no"])
        self.refused("props", self.file, "--well", "F/twin", says=[r"\/", "OBJECT/FIELD/NAME"])
        before = self.json("wells", self.file)
        for reference in ("", "A/F/", "'", "x" * 10000, "a/b/c/d", os.fsdecode(b"bad\xff")):
            self.refused("well", "add", self.file, "--well", reference, where=reference[:20])
        self.assertEqual(self.json("wells", self.file), before)

    def test_set_rename_and_remove(self):
        self.withLog()
        self.done("well", "set", self.file, "--well", "12", "--altitude", "100", "--bottom", "1500")
        rows = self.json("data", self.file, "--well", "12", "--prop", "GR")["rows"]
        self.assertEqual(rows[0], [1000.0, -900.0, 50.5])  # altitude minus depth
        self.done("well", "rename", self.file, "--well", "12", "--to", r"12\/bis")
        self.done("well", "rename", self.file, "--well", r"12\/bis", "--to", "S/E/13")
        well = self.json("wells", self.file)[0]
        self.assertEqual((well["object"], well["field"], well["name"], well["bottom"]),
                         ("S", "E", "13", 1500.0))
        self.assertEqual(self.json("data", self.file, "--well", "13", "--prop", "GR")["rows"], rows)
        self.done("well", "add", self.file, "--well", "S/E/14")
        self.refused("well", "rename", self.file, "--well", "14", "--to", "13", says=["13"])
        self.done("well", "remove", self.file, "--well", "13")
        self.assertEqual([w["name"] for w in self.json("wells", self.file)], ["14"])
        self.assertEqual(list(self.folder.glob("field/**/*.wpdb")), [])


class DataTest(ProgramTest):
    def test_props(self):
        self.withLog()
        props = self.json("props", self.file, "--well", "North/Deep/12")
        self.assertEqual([list(p) for p in props],
                         [["group", "name", "type", "template", "unit", "comment", "records",
                           "top", "bottom"]] * 2)
        gr = props[1]
        self.assertEqual((gr["group"], gr["name"], gr["type"], gr["unit"], gr["comment"]),
                         ("LAS", "GR", "log", "API", "gamma ray"))
        self.assertEqual((gr["records"], gr["top"], gr["bottom"]), (5, 1000.0, 1000.8))

    def test_data(self):
        self.withLog()
        data = ["data", self.file, "--well", "12", "--prop", "LAS/GR"]
        self.assertEqual(self.json(*data), {
            "type": "log", "columns": ["depth", "depth_abs", "value"],
            "rows": [[1000.0, -1000.0, 50.5], [1000.2, -1000.2, 60.25], [1000.4, -1000.4, None],
                     [1000.6, -1000.6, 41.125], [1000.8, -1000.8, 70.0]]})
        part = self.json(*data, "--from", "1000.2", "--to", "1000.6")
        self.assertEqual([row[0] for row in part["rows"]], [1000.2, 1000.4, 1000.6])
        self.assertEqual(self.json(*data, "--from", "5000")["rows"], [])
        csv = run(*data, "--csv", "--to", "1000.4").stdout
        self.assertEqual(csv, b"depth,depth_abs,value\r\n1000,-1000,50.5\r\n"
                              b"1000.2,-1000.2,60.25\r\n1000.4,-1000.4,\r\n")
        self.assertEqual(len(self.done(*data).splitlines()), 6)
        self.refused("data", self.file, "--well", "12", "--prop", "LAS/XX", says=["XX", "LAS/DT"])
        self.refused("data", self.file, "--well", "12", "--prop", "a/b/c", says=["GROUP/NAME"])
        next(self.folder.glob("field/**/GR.wpdb")).write_bytes(b"\xfe\xff\xff\xff")
        self.refused(*data, says=["GR"])

    def test_tables_align_by_columns_of_the_terminal(self):
        self.create()
        for name in ("Скважина", "井戸", "e\u0301", "long-latin-name"):
            self.done("well", "add", self.file, "--well", f"N/D/{name}", "--altitude", "7")

        def columns(text):
            wide = sum(unicodedata.east_asian_width(c) in "WF" for c in text)
            return len(text) + wide - sum(unicodedata.combining(c) != 0 for c in text)

        ends = set()
        for line in self.done("wells", self.file).splitlines()[2:]:
            ends.add(columns(line[:line.index("7.00") + 4]))
        self.assertEqual(len(ends), 1)


class SurveyTest(ProgramTest):
    def test_survey(self):
        self.withSurvey()
        survey = self.json("survey", self.file, "--well", "N/D/12")
        self.assertEqual(list(survey), ["altitude", "valid", "stations", "west", "east", "north",
                                        "south"])
        self.assertEqual((survey["altitude"], survey["valid"]), (100.0, True))
        expected = [(0, 100, 0, 0, 0, 0), (1000, -900, 60, 90, 0, 0),
                    (2000, -1400, 60, 90, 500 * SQRT3, 0)]
        self.assertEqual(len(survey["stations"]), 3)
        for station, values in zip(survey["stations"], expected):
            self.assertEqual(list(station), ["depth", "abs", "angle", "azimuth", "x", "y"])
            for value, wanted in zip(station.values(), values):
                self.assertAlmostEqual(value, wanted, places=6)
        self.assertAlmostEqual(survey["east"], 500 * SQRT3, places=6)
        self.assertEqual(self.json("wells", self.file)[0]["stations"], 3)
        self.assertIn("valid", self.done("survey", self.file, "--well", "12"))

    def test_depths_convert_both_ways(self):
        self.withSurvey()
        depth = ["depth", self.file, "--well", "12"]
        # md, abs, x, y: coordinates, head position (5000, 7000) included
        expected = [(500, -400, 5000, 7000), (1200, -1000, 5000 + 100 * SQRT3, 7000),
                    (3000, -1900, 5000 + 1000 * SQRT3, 7000)]
        for option, index in (("--md", 0), ("--abs", 1)):
            rows = self.json(*depth, option, *[e[index] for e in expected])
            self.assertEqual([list(r) for r in rows], [["md", "abs", "x", "y"]] * 3)
            for row, wanted in zip(rows, expected):
                for value, number in zip(row.values(), wanted):
                    self.assertAlmostEqual(value, number, places=6, msg=option)
        self.assertEqual(self.json("depth", "--abs=-400", "--well", "12", self.file)[0]["md"], 500)

    def test_a_listing_without_stations_changes_nothing(self):
        self.withSurvey()
        before = self.json("survey", self.file, "--well", "12")
        bad = self.folder / "bad.lst"
        bad.write_text("nothing = here\n", encoding="utf-8")
        self.refused("import", "survey", self.file, "--well", "12", bad, says=["bad.lst"])
        self.refused("import", "survey", self.file, "--well", "12", "gone.lst", says=["gone.lst"])
        self.assertEqual(self.json("survey", self.file, "--well", "12"), before)


class UsageTest(ProgramTest):
    def test_wrong_usage_ends_with_2_and_one_line(self):
        f = self.file
        cases = [
            [], ["frobnicate"], ["well"], ["import", "las", f], ["create"], ["create", f, "extra"],
            ["wells", f, "--jason"], ["export", "las", f, "--well", "1"],
            ["well", "set", f, "--well", "1"], ["well", "add", f, "--well", "1", "--x", "5"],
            ["well", "add", f, "--well", "1", "--altitude", "12,5"],
            ["well", "add", f, "--well", "1", "--altitude", "nan"],
            ["well", "add", f, "--well", "1", "--bottom", "1e999"],
            ["well", "add", f, "--well", "1", "--bottom", "0x10"],
            ["depth", f, "--well", "1"], ["depth", f, "--well", "1", "--md", "1", "--abs", "2"],
            ["depth", f, "--well", "1", "--md", "inf"],
            ["depth", f, "--well", "1", "--md", "100", "deep"],
            ["data", f, "--well", "1", "--prop", "p", "--json", "--csv"],
            ["data", f, "--well", "1", "--prop", "p", "--from", "2", "--to", "1"],
        ]
        for arguments in cases:
            self.refused(*arguments, code=2, where=arguments)
        self.assertEqual(f.exists(), ON_SERVER)

    def test_help(self):
        commands = ["create", "info", "upgrade", "check", "backup", "restore", "optimize", "copy",
                    "las", "import las", "export las", "wells", "well add",
                    "well set", "well rename", "well remove", "props", "data", "import survey",
                    "survey", "depth"]
        for command in commands:
            text = self.done(*command.split(), "--help")
            self.assertIn(f"  welldb {command} ", text.split("Example:")[-1], command)
        for command in commands:
            self.assertIn(command.split()[0], self.done("--help"))
        self.assertRegex(self.done("--version"), r"^welldb \d+\.\d+\.\d+\n$")

    def test_output_that_cannot_be_written(self):
        self.withLog()
        data = [PROGRAM, "data", str(self.file), "--well", "12", "--prop", "GR"]
        if os.path.exists("/dev/full"):
            with open("/dev/full", "wb") as full:
                result = subprocess.run(data, stdout=full, stderr=subprocess.PIPE, timeout=60)
            self.assertEqual((result.returncode, result.stderr.count(b"\n")), (1, 1))
        end, start = os.pipe()
        os.close(end)  # nobody reads
        result = subprocess.run(data, stdout=start, stderr=subprocess.PIPE, timeout=60)
        os.close(start)
        self.assertEqual((result.returncode, result.stderr), (0, b""))


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], *sys.argv[2:]])
