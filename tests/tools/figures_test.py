#!/usr/bin/env python3
"""The pages get the figures of the last runs, and keep those of what was not run: figures_test.py ROOT."""
import json
import pathlib
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(sys.argv[1])
sys.path.insert(0, str(ROOT / "tools"))
import figures  # noqa: E402

PAGE = """before
<!-- figures bench -->
old bench
<!-- end -->
between
<!-- figures tried -->
old tried
<!-- end -->
after
"""


def write(folder, name, text):
    path = pathlib.Path(folder) / name
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_text(text, encoding="utf-8")
    return path


def run(folder):
    done = subprocess.run([sys.executable, ROOT / "tools/figures.py", f"{folder}/results", folder],
                          capture_output=True, text=True, check=False)
    return done.returncode, done.stderr, (pathlib.Path(folder) / "README.md").read_text(encoding="utf-8")


def measure(name, **more):
    return {"name": name, "unit": "MB/s", "value": 1234.5, "ratio": 0.5, "at_least": 0.8, "reached": False} | more


with tempfile.TemporaryDirectory() as folder:
    write(folder, "README.md", PAGE)
    write(folder, "docs/figures.md", PAGE.replace("bench", "bench-all"))
    code, error, page = run(folder)
    assert code == 1 and "no results" in error and page == PAGE, (code, error)

    # sums by name over tests; the benchmark's part stays
    write(folder, "results/tests/A.a.local.kills", "kills survived\t40\n")
    write(folder, "results/tests/B.b.server.kills", "kills survived\t1000\n")
    write(folder, "results/fuzz/las", "2000000\t601\n")
    write(folder, "results/fuzz/query", "5\t600\n")
    code, error, page = run(folder)
    assert code == 0, error
    assert "| kills survived | 1,040 | 2 tests |\n| inputs fuzzed | 2,000,005 | 2 targets, 600 s or more each |" in page
    assert "old bench" in page and "old tried" not in page
    assert page.startswith("before\n") and page.endswith("after\n") and "\nbetween\n" in page

    # a benchmark of a part is refused; all of it comes in the order of the README, missed ones marked
    write(folder, "results/bench.json", json.dumps([measure("LAS read")]))
    code, error, page = run(folder)
    assert code == 1 and "LAS header alone" in error, error
    all_of_it = [measure(name) for name in reversed(figures.SHOWN)] + [
        measure("not shown", limit=0.25, limit_name="plain read", at_most=2.0, reached=True)]
    del all_of_it[-1]["at_least"]
    write(folder, "results/bench.json", json.dumps(all_of_it))
    code, error, page = run(folder)
    assert code == 0, error
    first = page.index("| LAS read | 1,234 MB/s |  |  | ≥ 0.800, **missed** |")
    assert first < page.index("| LAS header alone |")
    assert "not shown" not in page and f"Of {len(figures.SHOWN) + 1} figures 1 reach" in page
    full = (pathlib.Path(folder) / "docs/figures.md").read_text(encoding="utf-8")
    assert "| not shown | 1,234 MB/s | 0.250 MB/s, plain read | 0.500 | ≤ 2.00 |" in full
