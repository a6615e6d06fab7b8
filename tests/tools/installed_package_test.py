#!/usr/bin/env python3
"""Install into a folder, move it, and use it as the README tells: its C++ and its shell example.

Arguments: source tree, build tree, a folder to work in.
"""
import os
import pathlib
import re
import shutil
import subprocess
import sys

source, build, work = map(pathlib.Path, sys.argv[1:4])
cmake = os.environ["WELLDB_CMAKE"]

CONSUMER = """cmake_minimum_required(VERSION 3.25)
project(consumer LANGUAGES CXX)
find_package(welldb 0.1 REQUIRED)
add_executable(consumer main.cpp)
target_compile_options(consumer PRIVATE -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror)
target_link_libraries(consumer PRIVATE welldb::welldb)
"""


def run(*command, cwd=None, env=None):
    result = subprocess.run(list(map(str, command)), cwd=cwd, env=env, stdout=subprocess.PIPE,
                            stderr=subprocess.STDOUT, text=True, check=False)
    print("$", *command, result.stdout, sep="\n" if len(result.stdout) > 200 else " ")
    if result.returncode:
        sys.exit(f"failed: {command}")
    return result.stdout


def build_against_package(folder, build_folder):
    run(cmake, "-S", folder, "-B", build_folder, "-G", "Ninja", f"-DCMAKE_PREFIX_PATH={prefix}",
        f"-DCMAKE_CXX_COMPILER={os.environ['WELLDB_CXX']}",
        f"-DCMAKE_CXX_FLAGS={os.environ['WELLDB_CXX_FLAGS']}")
    run(cmake, "--build", build_folder)


def example(language):
    text = (source / "README.md").read_text(encoding="utf-8")
    return re.search(rf"^```{language}\n(.*?)^```", text, re.M | re.S)[1]


def expect(text, pattern):
    if not re.search(pattern, text):
        sys.exit(f"expected {pattern!r} in:\n{text}")


shutil.rmtree(work, ignore_errors=True)
os.environ.pop("WELLDB_DATA", None)
run(cmake, "--install", build, "--prefix", work / "staged")
prefix = work / "moved"  # nothing in the package may remember where it was installed first
(work / "staged").rename(work / "moved")
for shipped in ("include/welldb/NORLEX_wellContainer.h", "share/welldb/planshet",
                "share/welldb/strategraphy/LAS_methods.db",
                "share/man/man1/welldb.1", "share/bash-completion/completions/welldb.bash"):
    if not (prefix / shipped).exists():
        sys.exit(f"not installed: {shipped}")

consumer = work / "consumer"
consumer.mkdir()
(consumer / "CMakeLists.txt").write_text(CONSUMER, encoding="utf-8")
(consumer / "main.cpp").write_text(example("cpp"), encoding="utf-8")
build_against_package(consumer, consumer / "build")

# The examples find their data beside their folder.
shutil.copytree(source / "examples", work / "examples")
shutil.copytree(source / "data/demo", work / "data/demo")
build_against_package(work / "examples", work / "examples/build")
run(pathlib.Path(cmake).with_name("ctest"), "--test-dir", work / "examples/build", "--output-on-failure",
    "--no-tests=error")

# The examples name their files as from the root of the source tree.
for language in ("cpp", "sh"):
    (work / language / "data").mkdir(parents=True)
    shutil.copytree(source / "data/demo", work / language / "data/demo")
expect(run(consumer / "build/consumer", cwd=work / "cpp"), r"6 logs.*-\d+\.\d\d m")

# A mark in the installed plot template comes back in a container: the shipped data are the
# installed ones, not those of the source tree.
template = prefix / "share/welldb/planshet/standard_log.pt"
template.write_text(template.read_text(encoding="utf-8") + "<!-- installed -->\n", encoding="utf-8")

path = {**os.environ, "PATH": f"{prefix / 'bin'}{os.pathsep}{os.environ['PATH']}"}
expect(run("bash", "-ec", example("sh"), cwd=work / "sh", env=path), r"Curve Information")
expect((work / "sh/field/planshet/standard_log.pt").read_text(encoding="utf-8"), "<!-- installed -->")
