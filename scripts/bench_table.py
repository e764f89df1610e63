#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Turns what bench_boxtext measured into the tables of docs/benchmarks.md.

Usage: bench_table.py RESULT.json > TABLE.md
RESULT.json is written by --benchmark_out=RESULT.json with --benchmark_repetitions. Medians of CPU
time in milliseconds. Exit codes: 0 done, 1 a measurement failed or is missing, 2 wrong usage.
"""
import json
import statistics
import sys

LENGTHS = (1000, 10000, 100000)
SCRIPTS = {"Latin": "Latin", "CJK": "Han", "mixed": "mixed"}
PARAGRAPHS = {"one": "one paragraph", "many": "many paragraphs"}
ALIGNMENTS = {"plain": "", "justified": ", justified"}
UNITS = {"ns": 1e-6, "us": 1e-3, "ms": 1.0, "s": 1e3}


def read_medians(path):
    """Medians in milliseconds by name, and the names of failed measurements."""
    medians, runs, failed = {}, {}, set()
    with open(path, encoding="utf-8") as file:
        result = json.load(file)
    for entry in result["benchmarks"]:
        name = entry["run_name"]
        if entry.get("error_occurred"):
            failed.add(name)
            continue
        time = entry["cpu_time"] * UNITS[entry["time_unit"]]
        if entry["run_type"] == "iteration":
            runs.setdefault(name, []).append(time)
        elif entry["aggregate_name"] == "median":
            medians[name] = time
    for name, times in runs.items():
        medians.setdefault(name, statistics.median(times))
    return medians, failed


def number(value):
    return f"{value:.3g}" if value < 1000 else f"{value:.0f}"


class Report:
    """The tables of both directions, and the greatest figures in them."""

    def __init__(self, medians):
        self.medians = medians
        self.missing = []
        self.ratios = []
        self.growths = []

    def time(self, name):
        if name not in self.medians:
            self.missing.append(name)
        return self.medians.get(name)

    def row(self, direction, case, label):
        cells = []
        per_character = []
        for length in LENGTHS:
            box = self.time(f"box/{direction}/{case}/{length}")
            document = self.time(f"document/{case}/{length}")
            if box is None or document is None:
                cells.append("")
                continue
            ratio = box / document
            self.ratios.append((ratio, f"{label}, {direction}, {length} characters"))
            per_character.append(box / length)
            cells.append(f"{number(box)} / {number(document)} = {ratio:.2f}")
        growth = ""
        if len(per_character) == len(LENGTHS):
            value = per_character[-1] / per_character[0]
            self.growths.append((value, f"{label}, {direction}"))
            growth = f"{value:.2f}"
        return f"| {label} | " + " | ".join(cells) + f" | {growth} |"

    def table(self, direction):
        yield f"### {direction.capitalize()}\n"
        yield "| Text | 1 000 characters | 10 000 | 100 000 | growth |"
        yield "|---|---|---|---|---|"
        for script, script_label in SCRIPTS.items():
            for paragraphs, paragraphs_label in PARAGRAPHS.items():
                for alignment, alignment_label in ALIGNMENTS.items():
                    yield self.row(direction, f"{script}/{paragraphs}/{alignment}",
                                   f"{script_label}, {paragraphs_label}{alignment_label}")
        yield ""

    def greatest(self):
        for title, figures in (("ratio", self.ratios), ("growth", self.growths)):
            if figures:
                value, label = max(figures)
                median = statistics.median(figure for figure, _ in figures)
                yield f"Greatest {title}: {value:.2f} ({label}); the median is {median:.2f}."


def main(arguments):
    if len(arguments) != 1:
        print(__doc__, file=sys.stderr)
        return 2
    try:
        medians, failed = read_medians(arguments[0])
    except (OSError, ValueError, KeyError) as error:
        print(f"bench_table: {arguments[0]}: {error!r}", file=sys.stderr)
        return 1
    report = Report(medians)
    for direction in ("horizontal", "vertical"):
        print("\n".join(report.table(direction)))
    print("\n".join(report.greatest()))
    for name in sorted(failed):
        print(f"bench_table: failed: {name}", file=sys.stderr)
    for name in sorted(set(report.missing) - failed):
        print(f"bench_table: missing: {name}", file=sys.stderr)
    return 1 if failed or report.missing else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
