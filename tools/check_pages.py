#!/usr/bin/env python3
"""Checks the Markdown pages of the project:

- every relative link leads to a file that is there, and to a heading that is there when it names one;
- every page of docs/ has a link in README.md;
- a fenced block marked `cpp file=PATH` stands in that file as it stands in the page.
"""

import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
FENCE = re.compile(r"^(```|~~~).*?^\1\s*$", re.MULTILINE | re.DOTALL)
QUOTE = re.compile(r"^```cpp file=(\S+)\n(.*?)^```\s*$", re.MULTILINE | re.DOTALL)
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


def link_faults(page, text):
    for target in LINK.findall(CODE.sub("", FENCE.sub("", text))):
        if re.match(r"[a-z]+:", target):
            continue
        path, _, anchor = target.partition("#")
        file = (page.parent / path).resolve() if path else page
        if not file.exists():
            yield f"{target}: no such file"
        elif anchor and file.suffix == ".md" and anchor not in anchors(file):
            yield f"{target}: no such heading"


def quote_faults(text):
    squeeze = lambda code: re.sub(r"[ \t]+", " ", re.sub(r"^[ \t]+", "", code, flags=re.MULTILINE))
    for path, quoted in QUOTE.findall(text):
        file = ROOT / path
        if not file.exists():
            yield f"quotes {path}: no such file"
        elif squeeze(quoted) not in squeeze(file.read_text(encoding="utf-8")):
            yield f"quotes {path} otherwise than it is:\n{quoted}"


def main():
    pages = sorted([*ROOT.glob("*.md"), *(ROOT / "docs").glob("**/*.md"),
                    *(ROOT / "examples").glob("**/*.md"), *(ROOT / "tests").glob("**/*.md")])
    faults = []
    for page in pages:
        text = page.read_text(encoding="utf-8")
        faults += [f"{page.relative_to(ROOT)}: {fault}"
                   for fault in [*link_faults(page, text), *quote_faults(text)]]
    readme = (ROOT / "README.md").read_text(encoding="utf-8")
    faults += [f"README.md has no link to docs/{page.name}"
               for page in sorted((ROOT / "docs").glob("*.md")) if f"(docs/{page.name}" not in readme]
    print("\n".join(faults) or f"{len(pages)} pages: every link and every quotation holds")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
