#!/usr/bin/env python3
"""Every link between the documents leads to a file, and every decision record is listed.

Argument: the source tree.
"""
import pathlib
import re
import sys

root = pathlib.Path(sys.argv[1])
documents = [*root.glob("*.md"), *root.glob("docs/**/*.md")]
problems = []
for document in documents:
    for target in re.findall(r"\]\(([^)#]+)[^)]*\)", document.read_text(encoding="utf-8")):
        if "://" not in target and not (document.parent / target).exists():
            problems.append(f"{document.relative_to(root)}: {target} is not there")

index = (root / "docs/adr/README.md").read_text(encoding="utf-8")
problems += [f"docs/adr/README.md does not list {record.name}"
             for record in sorted(root.glob("docs/adr/0*.md")) if f"({record.name})" not in index]
for mention in sorted({m for source in root.glob("*/*.[hc]*")
                       for m in re.findall(r"docs/adr/(\d{4})", source.read_text(encoding="utf-8", errors="replace"))}):
    if not list(root.glob(f"docs/adr/{mention}-*.md")):
        problems.append(f"a source refers to docs/adr/{mention}, which is not there")

print("\n".join(problems) or f"{len(documents)} documents, every link leads somewhere")
sys.exit(bool(problems) or len(documents) < 5)
