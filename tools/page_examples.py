#!/usr/bin/env python3
"""page_examples.py FOLDER: takes the C++ examples out of README.md and docs/*.md, to be compiled.

A fenced block marked `cpp` that has an #include line is an example. It becomes FOLDER/PAGE_N.cpp.
One with a main function is a program; the fenced block marked `text` that follows it, if any, is
what it prints, and becomes FOLDER/PAGE_N.expected. Prints a line "kind PAGE_N" for each: snippet,
program or printing_program.
"""

import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
BLOCK = re.compile(r"^```(\w+)[^\n]*\n(.*?)^```\s*$", re.MULTILINE | re.DOTALL)


def write(file, text):
    """Writes only what changes, so that nothing is compiled again without need."""
    if not file.exists() or file.read_text(encoding="utf-8") != text:
        file.write_text(text, encoding="utf-8")


def main():
    folder = pathlib.Path(sys.argv[1])
    folder.mkdir(parents=True, exist_ok=True)
    for page in [ROOT / "README.md", *sorted((ROOT / "docs").glob("*.md"))]:
        blocks = BLOCK.findall(page.read_text(encoding="utf-8"))
        for number, (language, code) in enumerate(blocks):
            if language != "cpp" or not re.search(r"^#include", code, re.MULTILINE):
                continue
            name = f"{page.stem.lower().replace('-', '_')}_{number + 1}"
            write(folder / f"{name}.cpp", code)
            kind = "snippet"
            if re.search(r"^int main\(", code, re.MULTILINE):
                kind = "program"
                if number + 1 < len(blocks) and blocks[number + 1][0] == "text":
                    kind = "printing_program"
                    write(folder / f"{name}.expected", blocks[number + 1][1])
            print(kind, name)


if __name__ == "__main__":
    main()
