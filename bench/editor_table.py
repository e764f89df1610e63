#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Turns what bench_editor measured into the tables of docs/benchmarks.md.

Usage: editor_table.py RESULT.json > TABLE.md
Milliseconds of processor time, medians: the whole, and in brackets its parts: event + canvas + rest.
"""
import json
import sys

SIZES = ["100", "1000", "10000"]
BOXES = [("a character typed or deleted", "key"), ("the caret moved by a key", "caret"), ("the caret blinks", "blink")]
PAGES = [("a character typed or deleted in a box of 60", "key/among many"),
         ("panning by 12 by 9 pixels at 100 %", "pan/100 %"), ("the same at 50 %", "pan/50 %"),
         ("panning by 900 by 600 pixels at 100 %", "pan/100 %, a screen"),
         ("repaint of the canvas at 100 %, about 130 objects", "repaint/100 %"),
         ("repaint of the whole page", "repaint/fit"),
         ("a step of the zoom", "zoom"), ("select all, or nothing", "select all"),
         ("open, JSON", "open/mixed.json"), ("open, binary", "open/mixed.vxpage")]


def medians(name):
    with open(name, encoding="utf-8") as source:
        rows = json.load(source)["benchmarks"]
    return {row["run_name"].removesuffix("/manual_time"): row for row in rows
            if row.get("aggregate_name") == "median"}


def number(value, digits):
    """With so many digits, and never with an exponent."""
    return f"{value:.0f}" if round(value) >= 10 ** digits else f"{value:.{digits}g}"


def cell(row):
    parts = [row[part] for part in ("event", "canvas", "rest")]
    return f"{number(sum(parts), 3)} ({' + '.join(number(part, 2) for part in parts)})"


def main(arguments):
    if len(arguments) != 2:
        print(__doc__, file=sys.stderr)
        return 2
    rows = medians(arguments[1])
    try:
        print("| One box of text | 100 characters | 1 000 | 10 000 |\n|---|---|---|---|")
        for words, kind in BOXES:
            for script in ("Latin", "Han"):
                cells = [cell(rows[f"{kind}/{script}/{size}"]) for size in SIZES]
                print(f"| {script}: {words} | {' | '.join(cells)} |")
        print("\n| The mixed page of 1 000 objects | milliseconds |\n|---|---|")
        for words, name in PAGES:
            print(f"| {words} | {cell(rows[name])} |")
    except KeyError as missing:
        print(f"editor_table: missing: {missing}", file=sys.stderr)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv))
