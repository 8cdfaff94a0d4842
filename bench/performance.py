#!/usr/bin/env python3
"""Runs all comparisons, side by side in one run, and puts their table into docs/PERFORMANCE.md.

Usage: bench/performance.py BUILD_DIR [--mb SIZE] [--write]
BUILD_DIR is a bench build. Needs python3-numpy, python3-scipy, python3-matplotlib, gnuplot-nox; some minutes on a machine
that does nothing else. --write: the table between the marks of the document is made anew.
"""
import argparse
import os
import re

import pictures
import ratios

DOCUMENT = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "docs", "PERFORMANCE.md")
BEGIN, END = "<!-- table: bench/performance.py -->\n", "<!-- end of the table -->\n"


def is_met(value, goal):
    """None: there is no goal."""
    found = re.match(r"(<=|>=|<|>) ([\d.]+)", goal)
    if not found:
        return None
    bound, number = float(found.group(2)), float(value)
    return {"<": number < bound, "<=": number <= bound, ">": number > bound, ">=": number >= bound}[found.group(1)]


def table(rows):
    words = {None: "", True: "yes", False: "**no**"}
    lines = ["| what | figure | goal | met |", "|---|---:|---|---|"]
    lines += [f"| {what} | {value} | {'' if goal == 'none' else goal} | {words[is_met(value, goal)]} |"
              for what, value, goal in rows]
    return "\n".join(lines) + "\n"


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("build")
    parser.add_argument("--mb", type=int, default=300)
    parser.add_argument("--write", action="store_true")
    options = parser.parse_args()
    build = os.path.abspath(options.build)
    ratios.all_ratios(build, options.mb)
    pictures.all_pictures(build, 300)
    made = table(ratios.ROWS)
    print(made)
    if not options.write:
        return
    with open(DOCUMENT) as source:
        text = source.read()
    before, rest = text.split(BEGIN)
    with open(DOCUMENT, "w") as out:
        out.write(before + BEGIN + made + END + rest.split(END)[1])


if __name__ == "__main__":
    main()
