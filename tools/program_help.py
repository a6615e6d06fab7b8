"""What the program's --help says, as data: its commands, their arguments and options.

What is made of it (the man page, the completion) cannot name an option that the program does not
have, or miss one that it has.
"""
import concurrent.futures
import dataclasses
import re
import subprocess

# Where the text of an entry begins; a longer entry has its text on the next line.
TEXT_COLUMN = 30


@dataclasses.dataclass
class Entry:
    """An option, a positional argument or a command in a list of these."""
    flags: list  # "-o", "--out"; of anything else its name
    value: str   # what follows the flag, "" for none
    text: str
    notes: list  # "required", "may be repeated", "not with --csv", "with --well-column"

    @property
    def choices(self):
        return self.value.split("|") if "|" in self.value else []


@dataclasses.dataclass
class Command:
    words: tuple  # ("import", "las"); () is the program
    text: str = ""
    usage: str = ""
    footer: str = ""
    sections: dict = dataclasses.field(default_factory=dict)  # title: entries
    commands: list = dataclasses.field(default_factory=list)  # of a group, in order

    @property
    def options(self):
        return [entry for title, entries in self.sections.items() if title == "Options" for entry in entries]

    @property
    def arguments(self):
        return self.sections.get("Positionals", [])


def is_command_list(title):
    return title not in ("Options", "Positionals")


def entry_of(spelled, text):
    notes = [f"not with {', '.join(m.split())}" for m in re.findall(r" Excludes: ((?:-\S+ ?)+)", spelled)]
    notes += [f"only with {', '.join(m.split())}" for m in re.findall(r" Needs: ((?:-\S+ ?)+)", spelled)]
    spelled = re.sub(r" (Excludes|Needs): (-\S+ ?)+", "", spelled)
    if "(required)" in spelled:
        notes.insert(0, "required")
    words = spelled.replace("(required)", "").split()
    if "..." in words and "repeated" not in text:
        notes.append("may be repeated")
    words = [word for word in words if word != "..."]
    return Entry(words[0].split(","), " ".join(words[1:]), text, notes)


def entries_of(lines):
    """Options and arguments: an entry, two blanks or more, its text; or the text on the next line."""
    found = []
    for line in lines:
        if re.match(r"  \S", line):
            parts = re.split(r" {2,}", line.strip(), maxsplit=1)
            if len(parts) == 1 and line[TEXT_COLUMN - 1:TEXT_COLUMN] == " ":
                parts = [line[:TEXT_COLUMN].strip(), line[TEXT_COLUMN:]]
            found.append((parts[0], [part.strip() for part in parts[1:]]))
        elif found:
            found[-1][1].append(line.strip())
    return [entry_of(spelled, " ".join(text)) for spelled, text in found]


def commands_of(lines):
    """A name, blanks, what the command does. The blanks may lack behind a long name: see ask()."""
    parts = [line.strip().partition(" ") for line in lines]
    return [Entry([name], "", text.strip(), []) for name, _, text in parts]


def read(text, words):
    command = Command(words)
    head, _, rest = text.partition("\nUsage: ")
    command.text = " ".join(head.split())
    usage, _, rest = rest.partition("\n")
    command.usage = usage
    blocks = rest.strip("\n").split("\n\n")
    titles = r"\S[^\n]*" if "COMMAND" in usage.split() else "Options|Positionals"
    while blocks and re.match(rf"({titles}):\n  ", blocks[0]) and not blocks[0].startswith("Example"):
        title, *lines = blocks.pop(0).split("\n")
        title = title.rstrip(":")
        command.sections[title] = commands_of(lines) if is_command_list(title) else entries_of(lines)
    command.footer = "\n\n".join(blocks)
    return command


def ask(program, words):
    result = subprocess.run([program, *words, "--help"], capture_output=True, check=False)
    if result.returncode:
        return Command(tuple(words))  # the program has no such command
    return read(result.stdout.decode("utf-8"), tuple(words))


def ask_entry(program, group, entry):
    """The command of an entry of a group. Asked for what is no command of it, a program answers for
    the group, so that a name which runs into its text is the part of it that answers for itself."""
    word = entry.flags[0]
    for end in range(len(word), 0, -1):
        words = (*group.words, word[:end])
        command = ask(program, words)
        if command.usage.startswith(" ".join(("welldb", *words, ""))):
            entry.flags[0], entry.text = word[:end], f"{word[end:]} {entry.text}".strip()
            return command
    raise SystemExit(f"the help of \"welldb {' '.join(group.words)}\" has \"{word}\", which is no command")


def all_commands(program):
    """The program, with the whole tree of its commands below it."""
    top = ask(program, [])
    level = [top]
    with concurrent.futures.ThreadPoolExecutor(4) as pool:
        while level:
            below = [(group, entry) for group in level for title, entries in group.sections.items()
                     if is_command_list(title) for entry in entries]
            level = list(pool.map(lambda pair: ask_entry(program, *pair), below))
            for (group, _), command in zip(below, level):
                group.commands.append(command)
    return top


def walk(command):
    yield command
    for below in command.commands:
        yield from walk(below)
