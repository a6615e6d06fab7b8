#!/usr/bin/env python3
"""The pages of docs/ show what happens: their commands succeed and print what stands below them, and
their C++ is part of an example that is built.

Arguments: source tree, the program, a folder to work in.

The ```sh blocks of a page are run in order, in a folder with data/demo in it. A ```text block is
what the commands since the last one print; a line that is only … stands for any number of lines.
"""
import os
import pathlib
import re
import shutil
import subprocess
import sys

PAGES = ("getting-started", "depth-systems", "templates-and-properties", "selections-and-filters")

source, program, work = (pathlib.Path(argument).resolve() for argument in sys.argv[1:4])
path = {**os.environ, "LC_ALL": "C.UTF-8", "PATH": f"{program.parent}{os.pathsep}{os.environ['PATH']}"}


def lines_of(text):
    return [line.rstrip() for line in text.strip("\n").split("\n")]


def agrees(expected, printed):
    pattern = "".join(r"(.*\n)*?" if line == "…" else re.escape(line) + r"\n" for line in lines_of(expected))
    return re.fullmatch(pattern, "".join(line + "\n" for line in lines_of(printed)))


def run_page(name, text):
    folder = work / name
    folder.mkdir(parents=True)
    shutil.copytree(source / "data/demo", folder / "data/demo")
    problems, printed = [], ""
    for language, block in re.findall(r"^```(sh|text)\n(.*?)^```", text, re.M | re.S):
        if language == "sh":
            result = subprocess.run(["bash", "-euc", block], cwd=folder, env=path, stdout=subprocess.PIPE,
                                    stderr=subprocess.STDOUT, text=True, check=False, timeout=120)
            printed += result.stdout
            if result.returncode:
                return [f"failed with {result.returncode}:\n{block}\n{result.stdout}"]
        else:
            if not agrees(block, printed):
                problems.append(f"is said to print:\n{block}\nbut prints:\n{printed}")
            printed = ""
    return problems


def shown_code(text):
    examples = [" ".join(file.read_text(encoding="utf-8").split()) for file in (source / "examples").glob("*.cpp")]
    return [f"is in no example:\n{block}" for block in re.findall(r"^```cpp\n(.*?)^```", text, re.M | re.S)
            if not any(" ".join(block.split()) in example for example in examples)]


shutil.rmtree(work, ignore_errors=True)
found = []
for page in PAGES:
    content = (source / f"docs/{page}.md").read_text(encoding="utf-8")
    if "```sh\n" not in content or "```text\n" not in content:
        found.append(f"docs/{page}.md has no commands, or does not say what they print")
    found += [f"docs/{page}.md {problem}" for problem in run_page(page, content) + shown_code(content)]
print("\n".join(found) or f"{len(PAGES)} pages do what they say")
sys.exit(bool(found))
