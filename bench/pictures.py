#!/usr/bin/env python3
"""Prints how many pictures of a long history a minute the program makes without a display, beside matplotlib's Agg
backend and gnuplot's png terminal on the same curve.

Usage: bench/pictures.py BUILD_DIR [--count N] [--work DIR]
BUILD_DIR holds the program and run_writer (a bench or release build). Needs python3-numpy, python3-matplotlib and
gnuplot-nox. One process each; the others make fewer pictures, as they only give a rate. Nothing fails if a goal is
missed.
"""
import argparse
import os
import subprocess
import sys
import tempfile
import time

from ratios import line, run

STEPS = 50_000
WIDTH, HEIGHT = 1100, 850
OTHERS = 30  # pictures of the other programs

MATPLOTLIB = """
import sys, time
import numpy, matplotlib
matplotlib.use("Agg")
import matplotlib.pyplot as plt
t, y = numpy.loadtxt("curve.txt", unpack=True)
begin = time.perf_counter()
for i in range({count}):
    figure = plt.figure(figsize=(11, 8.5), dpi=100)
    axes = figure.add_subplot()
    axes.plot(t, y, linewidth=1)
    axes.set_xlabel("Time")
    axes.set_title("Position of CG")
    figure.savefig("mpl%04d.png" % i)
    plt.close(figure)
print(time.perf_counter() - begin)
"""

GNUPLOT = """
set terminal png size {width},{height}
set xlabel "Time"
set title "Position of CG"
unset key
do for [i=1:{count}] {{
  set output sprintf("gnu%04d.png", i)
  plot "curve.bin" binary record={steps} format="%float32%float32" using 1:2 with lines
}}
"""


def timed(args, cwd):
    begin = time.perf_counter()
    done = subprocess.run(args, cwd=cwd, stdin=subprocess.DEVNULL, capture_output=True, text=True)
    if done.returncode != 0:
        raise SystemExit(f"{args[0]} ended with status {done.returncode}:\n{done.stdout[-2000:]}{done.stderr[-2000:]}")
    return time.perf_counter() - begin, done.stdout


def report_pictures(program, writer, work):
    """A picture a process in the style for reports, over a table of the same run; and SVG files of the long run."""
    subprocess.run([writer, "--steps", "400", os.path.join(work, "short.out")], check=True)

    def best(lines, name, times):
        with open(os.path.join(work, "s"), "w") as script:
            script.write("\n".join(lines) + "\n")
        return min(timed([program, name, "-script", "s"], work)[0] for _ in range(times)) * 1e3

    style = ["PICTURE_STYLE REPORT", f"WINDOW_SIZE {WIDTH} {HEIGHT}"]
    table = best(["WRITE_HISTORY MOT h.txt"], "short.out", 40)
    for kind in ("png", "svg", "pdf"):
        one = best(style + [f"PLOT_HISTORY MOT 3 r.{kind}"], "short.out", 40)
        more = best(style + [f"PLOT_HISTORY MOT 3 r{i}.{kind}" for i in range(21)], "short.out", 10)
        each = (more - one) / 20
        print(f"a process with one {kind} for a report: {one - table:.1f} ms over one with a table ({table:.1f} ms)")
        line(f"start-up for a {kind} in the style for reports, milliseconds", f"{one - table - each:.1f}", "<= 10")
    read = best(["WRITE_LABEL x x.txt"], "long.out", 10)
    took = {kind: best(style + [f"PLOT_HISTORY MOT 3 r{i}.{kind}" for i in range(20)], "long.out", 5) - read
            for kind in ("png", "svg", "pdf")}
    size = os.path.getsize(os.path.join(work, "r0.svg"))
    print(f"{STEPS} points for a report: png {took['png'] / 20:.1f} ms, svg {took['svg'] / 20:.1f} ms, "
          f"pdf {took['pdf'] / 20:.1f} ms")
    line(f"SVG of {STEPS} points / PNG of them, time", f"{took['svg'] / took['png']:.2f}", "<= 1")
    line(f"SVG of {STEPS} points, kilobytes", f"{size / 1e3:.0f}", "<= 300")


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("build")
    parser.add_argument("--count", type=int, default=1000)
    parser.add_argument("--work")
    options = parser.parse_args()
    all_pictures(options.build, options.count, options.work)


def all_pictures(build, count, folder=None):
    os.environ.pop("DISPLAY", None)
    with tempfile.TemporaryDirectory(prefix="zaview_pictures_", dir=folder) as work:
        compare(build, count, work)


def compare(build, count, work):
    program = os.path.abspath(os.path.join(build, "zaview"))
    writer = os.path.abspath(os.path.join(build, "tools", "run_writer"))
    subprocess.run([writer, "--steps", str(STEPS), os.path.join(work, "long.out")], check=True)

    with open(os.path.join(work, "s"), "w") as script:
        script.write(f"WINDOW_SIZE {WIDTH} {HEIGHT}\nWRITE_HISTORY MOT curve_all.txt\n")
    timed([program, "long.out", "-script", "s"], work)
    import numpy
    curve = numpy.loadtxt(os.path.join(work, "curve_all.txt"), skiprows=2, usecols=(0, 3), dtype=numpy.float32)
    numpy.savetxt(os.path.join(work, "curve.txt"), curve)
    curve.tofile(os.path.join(work, "curve.bin"))

    with open(os.path.join(work, "s"), "w") as script:
        script.write(f"WINDOW_SIZE {WIDTH} {HEIGHT}\n")
        for i in range(count):
            script.write(f"PLOT_HISTORY MOT 3 p{i:04}.png\n")
    seconds, peak = run(program, ["long.out", "-script", "s"], work)
    made = len([name for name in os.listdir(work) if name.startswith("p") and name.endswith(".png")])
    ours = count / seconds * 60
    print(f"{made} pictures of {STEPS} steps at {WIDTH}x{HEIGHT}: {ours:.0f} a minute, "
          f"peak memory {peak / 1024:.0f} MB")

    report_pictures(program, writer, work)

    with open(os.path.join(work, "mpl.py"), "w") as source:
        source.write(MATPLOTLIB.format(count=OTHERS))
    theirs = OTHERS / float(timed([sys.executable, "mpl.py"], work)[1]) * 60
    print(f"matplotlib Agg: {theirs:.0f} a minute")
    line("pictures a minute / matplotlib (Agg)", f"{ours / theirs:.1f}", ">= 4")

    with open(os.path.join(work, "g.plt"), "w") as source:
        source.write(GNUPLOT.format(width=WIDTH, height=HEIGHT, count=OTHERS, steps=STEPS))
    theirs = OTHERS / timed(["gnuplot", "g.plt"], work)[0] * 60
    print(f"gnuplot png (gd): {theirs:.0f} a minute")
    line("pictures a minute / gnuplot (png by gd)", f"{ours / theirs:.2f}", ">= 0.67, hoped for 1")


if __name__ == "__main__":
    main()
