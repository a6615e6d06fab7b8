#!/usr/bin/env python3
"""Makes the man page of the program from its own --help: make_man_page.py PROGRAM OUT."""
import re
import subprocess
import sys

import program_help

FILES = r""".SH FILES
.TP
.I NAME\fB.well2
A container, an SQLite database; or the description of one on a server, a text file.
.TP
.I NAME\fB/
The files of the wells of such a container, beside it.
.SH ENVIRONMENT
.TP
.BR WELLDB_USER ", " WELLDB_PASSWORD
Taken for a container on a server whose description does not hold them.
.TP
.B WELLDB_DATA
A folder to be used in place of the shipped data: plot templates, the catalogue of curves, the
stratigraphic chart.
.SH EXIT STATUS
.TP
.B 0
Done.
.TP
.B 1
Refused or failed; one line on standard error says what, why and what would do.
.TP
.B 2
Wrong usage.
"""


def plain(text):
    """Text as roff takes it: nothing of it is a request or an escape."""
    text = text.replace("\\", r"\e").replace("-", r"\-").replace("'", r"\(aq").replace("`", r"\(ga")
    return re.sub(r"^\.", r"\\&.", text, flags=re.M)


def bold(text):
    return rf"\fB{plain(text)}\fR"


def italic(text):
    return rf"\fI{plain(text)}\fR"


def entry(item):
    spelled = ", ".join(map(bold, item.flags)) if item.flags[0].startswith("-") else italic(item.flags[0])
    if item.value:
        spelled += " " + ("|".join(map(bold, item.choices)) if item.choices else italic(item.value))
    notes = f" ({'; '.join(item.notes)})" if item.notes else ""
    return f".TP\n{spelled}\n{plain(item.text + notes)}\n"


def listed_options(command):
    """--help is told once, of the program."""
    return [item for item in command.options if "--help" not in item.flags or not command.words]


def section(command):
    usage = command.usage.removeprefix("welldb").replace("[OPTIONS]", "[OPTION]...").split()
    name = " ".join(command.words)
    synopsis = " ".join(usage).removeprefix(name).strip()
    out = f".SS {plain(name)}\n{bold('welldb ' + name)} {italic(synopsis)}\n.PP\n{plain(command.text)}\n"
    out += "".join(map(entry, command.arguments)) + "".join(map(entry, listed_options(command)))
    example = command.footer.partition("\n")[2].strip()
    if example and not command.commands:
        out += f".PP\n.RS\n.nf\n{plain(example)}\n.fi\n.RE\n"
    return out


def page(top, version):
    about = plain(top.text.rstrip("."))
    words, _, examples = top.footer.partition("Examples:\n")
    out = f'.TH WELLDB 1 "" "welldb {version}" "User Commands"\n.SH NAME\nwelldb \\- {about}\n'
    out += r""".SH SYNOPSIS
.B welldb
.I COMMAND
[\fIOPTION\fR]... [\fIARGUMENT\fR]...
.SH DESCRIPTION
"""
    out += plain(" ".join(words.split())) + "\n"
    out += "".join(map(entry, listed_options(top)))
    for title, entries in top.sections.items():
        if not program_help.is_command_list(title):
            continue
        out += f'.SH "{plain(title.upper())}"\n'
        names = {item.flags[0] for item in entries}
        for command in program_help.walk(top):
            if command.words and command.words[0] in names:
                out += section(command)
    examples = "\n".join(line.strip() for line in examples.strip().split("\n"))
    return out + FILES + f".SH EXAMPLES\n.nf\n{plain(examples)}\n.fi\n"


def main():
    program, out = sys.argv[1:3]
    version = subprocess.run([program, "--version"], capture_output=True, text=True, check=True)
    text = page(program_help.all_commands(program), version.stdout.split()[-1])
    with open(out, "w", encoding="utf-8") as file:
        file.write(text)


if __name__ == "__main__":
    main()
