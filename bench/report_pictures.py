#!/usr/bin/env python3
"""Prints what a picture costs a process of its own: the time over that of the same process with a table instead, for
PNG, SVG and PDF in the style for reports and PNG in the classic one, of a short and of a long history, and the size of
the files. The parts are done in turn, and the median of the differences to the table's run beside it is printed.

Usage: bench/report_pictures.py BUILD_DIR [--rounds N] [--work DIR]
BUILD_DIR holds the program and run_writer (a bench or release build). No display is used. Nothing fails if a goal is
missed: at most 10 ms over a table for the short history; SVG of the long one at most 300 kB, in the time of the PNG or
less.
"""
import argparse
import os
import statistics
import subprocess
import tempfile
import time

WIDTH, HEIGHT = 1100, 850
HISTORIES = {"short": 400, "long": 50_000}  # steps
PICTURES = [("REPORT", "png"), ("REPORT", "svg"), ("REPORT", "pdf"), ("CLASSIC", "png")]


def seconds(args, cwd, env):
    begin = time.perf_counter()
    done = subprocess.run(args, cwd=cwd, env=env, stdin=subprocess.DEVNULL, capture_output=True, text=True)
    if done.returncode != 0:
        raise SystemExit(f"{args} ended with status {done.returncode}:\n{done.stdout[-2000:]}{done.stderr[-2000:]}")
    return time.perf_counter() - begin


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("build")
    parser.add_argument("--rounds", type=int, default=40)
    parser.add_argument("--work")
    options = parser.parse_args()
    work = options.work or tempfile.mkdtemp(prefix="zaview_report_pictures_")
    os.makedirs(work, exist_ok=True)
    program = os.path.abspath(os.path.join(options.build, "zaview"))
    writer = os.path.abspath(os.path.join(options.build, "tools", "run_writer"))
    env = {k: v for k, v in os.environ.items() if k != "DISPLAY"}

    for name, steps in HISTORIES.items():
        run = f"{name}.out"
        subprocess.run([writer, "--steps", str(steps), os.path.join(work, run)], check=True)
        table = [program, run, "-command", "WRITE_STAT MEAN MOT 3 heave table.txt"]
        scripts = {}
        for style, ending in PICTURES:
            script = f"{style}_{ending}_{name}.script"
            scripts[style, ending] = [program, run, "-script", script]
            with open(os.path.join(work, script), "w") as text:
                text.write(f"WINDOW_SIZE {WIDTH} {HEIGHT}\nPICTURE_STYLE {style}\n")
                text.write(f"WRITE_STAT MEAN MOT 3 heave table.txt\nPLOT_HISTORY MOT 3 {style}_{name}.{ending}\n")
        over = {picture: [] for picture in PICTURES}
        alone = []
        for _ in range(options.rounds):
            alone.append(seconds(table, work, env))
            for picture in PICTURES:
                over[picture].append(seconds(scripts[picture], work, env) - alone[-1])
        print(f"{name} history, {steps} steps, {WIDTH} x {HEIGHT}: table {1e3 * statistics.median(alone):.1f} ms")
        for (style, ending), times in over.items():
            size = os.path.getsize(os.path.join(work, f"{style}_{name}.{ending}"))
            print(f"  {style:7} {ending}  {1e3 * statistics.median(times):6.1f} ms over it  {size / 1000:7.1f} kB")


if __name__ == "__main__":
    main()
