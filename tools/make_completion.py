#!/usr/bin/env python3
"""Makes the completion for bash from the program's own --help: make_completion.py PROGRAM OUT."""
import sys

import program_help

FRAME = """# Completion of welldb in bash; made from what welldb --help says.
_welldb() {
    local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]} command='' words='' hidden='' i
    for ((i = 1; i < COMP_CWORD; ++i)); do
        case "$command ${COMP_WORDS[i]}" in
        @COMMANDS@) command+=" ${COMP_WORDS[i]}" ;;
        *) break ;;
        esac
    done
    case "$command $before" in
@CHOICES@
    *)
        case $command in
@WORDS@
        esac
        ;;
    esac
    # Options are offered once a dash is there; until then an argument may be a file.
    [[ $word == -* ]] || hidden='-*'
    mapfile -t COMPREPLY < <(compgen -W "$words" -X "$hidden" -- "$word")
}
complete -o default -F _welldb welldb
"""


def spelled(words):
    return "".join(f" {word}" for word in words)


def quoted(text):
    return "'" + text.replace("'", "'\\''") + "'"


def flags(command):
    return [flag for option in command.options for flag in option.flags]


def choices(command):
    """What may follow an option that takes one of a few words."""
    return [f"    {quoted(spelled([*command.words, flag]))}) words={quoted(' '.join(option.choices))} ;;"
            for option in command.options if option.choices for flag in option.flags]


def offered(command):
    words = [below.words[-1] for below in command.commands] + flags(command)
    return f"        {quoted(spelled(command.words))}) words={quoted(' '.join(words))} ;;"


def script(top):
    commands = list(program_help.walk(top))
    return (FRAME.replace("@COMMANDS@", " | ".join(quoted(spelled(c.words)) for c in commands if c.words))
            .replace("@CHOICES@", "\n".join(line for c in commands for line in choices(c)))
            .replace("@WORDS@", "\n".join(map(offered, commands))))


def main():
    program, out = sys.argv[1:3]
    text = script(program_help.all_commands(program))
    with open(out, "w", encoding="utf-8") as file:
        file.write(text)


if __name__ == "__main__":
    main()
