#!/usr/bin/env python3
"""Turns Google Benchmark's JSON files into one table of times and ratios.

    table.py [--markdown FILE] RESULT.json...

A benchmark is named "work[/size...]/contender". A row holds one piece of work and one peer;
a time is the median of the repetitions with, in brackets, half the distance between their quartiles
in percent. A ratio is the peer's median divided by the library's ("qv"): above 1 the library is faster.
"""

import argparse
import datetime
import json
import re
import statistics
import sys

OWN = "qv"
# What Google Benchmark itself may append to a name.
SUFFIX = re.compile(r"/(min_time:[^/]*|min_warmup_time:[^/]*|iterations:[^/]*|repeats:[^/]*"
                    r"|process_time|real_time|manual_time|threads:[^/]*)$")
TO_NANOSECONDS = {"ns": 1.0, "us": 1e3, "ms": 1e6, "s": 1e9}


def plain_name(name):
    """The name as it was registered, and the clock to read."""
    clock = "cpu_time"
    while match := SUFFIX.search(name):
        if match.group(1) in ("real_time", "manual_time"):
            clock = "real_time"
        name = name[:match.start()]
    return name, clock


def read(paths):
    """{work: {contender: [nanoseconds]}} in the order of the files, and the facts of the run."""
    works, facts, failures = {}, {}, []
    for path in paths:
        with open(path, encoding="utf-8") as file:
            document = json.load(file)
        facts.update(document["context"])
        # Interleaving mixes the runs up: the families' numbers give the order of registration back.
        runs = sorted((run for run in document["benchmarks"] if run.get("run_type") == "iteration"),
                      key=lambda run: (run["family_index"], run["per_family_instance_index"]))
        for run in runs:
            name, clock = plain_name(run["run_name"])
            work, _, contender = name.rpartition("/")
            if run.get("error_occurred"):
                failures.append(f"{name}: {run.get('error_message', 'failed')}")
                continue
            times = works.setdefault(work, {}).setdefault(contender, [])
            times.append(run[clock] * TO_NANOSECONDS[run["time_unit"]])
    return works, facts, sorted(set(failures))


def time_text(nanoseconds):
    for unit, size in (("s", 1e9), ("ms", 1e6), ("us", 1e3)):
        if nanoseconds >= size:
            return f"{nanoseconds / size:.3g} {unit}" if nanoseconds < 1000 * size else \
                   f"{nanoseconds / size:.0f} {unit}"
    return f"{nanoseconds:.3g} ns"


def cell(times):
    text = time_text(statistics.median(times))
    if len(times) >= 4:
        low, middle, high = statistics.quantiles(times, n=4, method="inclusive")
        if middle > 0:
            text += f" (±{50 * (high - low) / middle:.0f}%)"
    return text


def rows(works):
    """The table's head and body: a row for each peer; the work and its own time stand in the first."""
    body = []
    for work, contenders in works.items():
        own = contenders.get(OWN)
        start = [work, cell(own) if own else "-"]
        peers = [item for item in contenders.items() if item[0] != OWN]
        for peer, times in peers or [("-", None)]:
            ratio = f"{statistics.median(times) / statistics.median(own):.2f}" if own and times else "-"
            body.append(start + [peer, cell(times) if times else "-", ratio])
            start = ["", ""]
    return ["work", OWN, "peer", "peer's time", "ratio"], body


def facts_lines(facts):
    lines = [f"Measured {datetime.date.today()} on {facts.get('cpu', 'an unknown CPU')}, one thread."]
    if "openblas_core" in facts:
        lines.append(f"OpenBLAS kernels: {facts['openblas_core']}.")
    lines.append("Time: median of the repetitions (± half the distance of their quartiles). "
                 f"Ratio: the peer's time divided by {OWN}'s; above 1, {OWN} is faster.")
    return lines


def plain_table(head, body):
    widths = [max(len(row[column]) for row in [head] + body) for column in range(len(head))]
    return ["  ".join(text.ljust(width) for text, width in zip(row, widths)).rstrip()
            for row in [head] + body]


def markdown_table(head, body):
    return ["| " + " | ".join(row) + " |" for row in [head, ["---"] * len(head)] + body]


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--markdown", metavar="FILE")
    parser.add_argument("results", nargs="+")
    arguments = parser.parse_args()
    works, facts, failures = read(arguments.results)
    head, body = rows(works)
    print("\n".join(facts_lines(facts) + [""] + plain_table(head, body)))
    if arguments.markdown:
        with open(arguments.markdown, "w", encoding="utf-8") as file:
            file.write("\n".join(facts_lines(facts) + [""] + markdown_table(head, body)) + "\n")
    if failures:
        sys.exit("Benchmarks that failed:\n  " + "\n  ".join(failures))


if __name__ == "__main__":
    main()
