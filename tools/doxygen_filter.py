#!/usr/bin/env python3
"""What doxygen reads instead of a file: doxygen_filter.py FILE.

In a header, the // lines before a declaration become /// lines, and what stands behind one ///<.
A page keeps its text, less the links that doxygen cannot follow.
"""
import re
import sys

# Comments are plain text: nothing in them is a command, a tag or a link.
SPECIAL = re.compile(r"([\\@<>#%&*|`\[\]\"])")


def escaped(text):
    return SPECIAL.sub(r"\\\1", text.replace("---", "-"))


def header(lines):
    out = []
    for i, line in enumerate(lines):
        before = re.match(r"( *)//(?!/)(.*)", line)
        # Behind a member or an enumerator; words about one parameter are left out.
        behind = re.match(r"(.*;|\s*\w+(?: = [^,]+)?,) *//(?!/) ?(.*)", line)
        if i == 0 and before:
            out.append(f"/// @file{before[1]}\n///{escaped(before[2])}")
        elif before:
            follower = next((later for later in lines[i:] if not later.lstrip().startswith("//")), "")
            # Words about several declarations, or none, stand apart from what follows.
            belongs = follower.strip() and not follower.lstrip().startswith("#")
            out.append(f"{before[1]}//{'/' if belongs or i < 20 and is_head(lines, i) else ''}{escaped(before[2])}")
        elif behind:
            out.append(f"{behind[1]} ///< {escaped(behind[2])}")
        else:
            out.append(line)
    return out


def is_head(lines, index):
    return all(line.startswith("//") for line in lines[:index])


def page_link(match):
    """Of links between pages doxygen follows those to whole pages beside this one."""
    name, target = match[1], match[2]
    return match[0] if re.fullmatch(r"https?:.*|[\w-]+\.(md|svg)", target) else name


def page_code(match):
    """Quotes and backslashes confuse doxygen inside of backticks."""
    return f"<code>{escaped(match[1])}</code>" if re.search(r'["\\]', match[1]) else match[0]


def page(lines):
    out, is_fenced = [], False
    for line in lines:
        is_fenced ^= line.lstrip().startswith("```")
        if not is_fenced and not line.startswith("    "):
            line = re.sub(r"(?<!!)\[([^\]]*)\]\(([^)]*)\)", page_link, line)
            line = re.sub(r"`([^`]+)`", page_code, line)
        out.append(line)
    return out


def main():
    path = sys.argv[1]
    with open(path, encoding="utf-8") as file:
        lines = file.read().split("\n")
    sys.stdout.buffer.write("\n".join(header(lines) if path.endswith(".h") else page(lines)).encode())


if __name__ == "__main__":
    main()
