#!/usr/bin/env python3
"""Man page and completion name every command and every option that the program's help has.

Arguments: the program, the man page, the completion.
"""
import re
import subprocess
import sys

program, man_page, completion = sys.argv[1:4]
problems = []


def help_of(*words):
    result = subprocess.run([program, *words, "--help"], capture_output=True, check=True)
    return result.stdout.decode("utf-8")


def complete(*words):
    """What pressing tab behind the last word offers."""
    script = 'source "$1"; shift; COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1)); _welldb; echo "${COMPREPLY[*]}"'
    result = subprocess.run(["bash", "-uc", script, "-", completion, *words], capture_output=True, text=True, check=True)
    return result.stdout.split()


def expect(is_right, problem):
    if not is_right:
        problems.append(problem)


# Indented by two, no dash: a command in a list. The first list of the whole program is its options.
page = open(man_page, encoding="utf-8").read().replace(r"\-", "-")
listed = re.findall(r"^  ([a-z][a-z-]*) .*", help_of().partition("Usage:")[2].partition("\n\nA well")[0], re.M)
expect(len(listed) > 15, f"only {len(listed)} commands in the program's help")
for name in listed:
    if name not in complete("welldb", name):
        name = max((word for word in complete("welldb", "") if name.startswith(word)), key=len, default=name)
    expect(name in complete("welldb", ""), f"{name} is not completed")
    expect(f"\n.SS {name}\n" in page, f"{name} is not in the man page")
    options = set(re.findall(r"^  (?:-\w,)?(--[a-z][a-z-]*)", help_of(name), re.M))
    if "COMMAND" not in help_of(name).partition("Usage:")[2].partition("\n")[0]:
        expect(options <= set(complete("welldb", name, "--")), f"options of {name} are not completed: {options}")
    expect(all(rf"\fB{option}\fR" in page for option in options), f"options of {name} are not in the man page")

for words, offered in ((("welldb", "cre"), {"create"}),
                       (("welldb", "import", ""), {"las", "survey", "table", "wells"}),
                       (("welldb", "import", "las", "--dry"), {"--dry-run"}),
                       (("welldb", "export", "las", "f.well2", "--ex"), {"--exact"}),
                       (("welldb", "copy-prop", "--merge", ""), {"replace", "merge", "skip"}),
                       (("welldb", "copy-prop", "--merge", "re"), {"replace"}),
                       (("welldb", "create", ""), set()),  # a file, which the shell completes
                       (("welldb", "nothing", "--"), {"--help", "--version"})):
    expect(set(complete(*words)) == offered, f"{words} is completed by {complete(*words)}, not by {offered}")

print("\n".join(problems) or f"{len(listed)} commands, all with a page and a completion")
sys.exit(bool(problems))
