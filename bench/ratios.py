#!/usr/bin/env python3
"""Prints, side by side in one run, how fast the program is against numpy and against its own parts.

Usage: bench/ratios.py BUILD_DIR [--mb SIZE] [--work DIR]
BUILD_DIR holds the program and run_writer (a bench or release build). Needs python3-numpy. Every figure is the best of
several runs, as other work on the machine only ever adds time; the goals stand beside the ratios and nothing fails if
one is missed.
"""
import argparse
import json
import os
import subprocess
import tempfile
import time

import numpy

STEPS = 200_000
RUNS = 7


def run(program, args, cwd):
    """Wall seconds and peak kilobytes of one whole process."""
    begin = time.perf_counter()
    child = subprocess.Popen([program, *args], cwd=cwd, stdout=subprocess.DEVNULL, stdin=subprocess.DEVNULL)
    _, status, usage = os.wait4(child.pid, 0)
    seconds = time.perf_counter() - begin
    if status != 0:
        raise SystemExit(f"{program} {args} ended with status {status}")
    return seconds, usage.ru_maxrss


def best(measure, runs=RUNS):
    measure()  # warms the page cache
    return min(measure() for _ in range(runs))


def zaview_seconds(program, cwd, run_file, script_lines, runs=RUNS):
    with open(os.path.join(cwd, "s"), "w") as script:
        script.write("\n".join(script_lines) + "\n")
    return best(lambda: run(program, [run_file, "-script", "s"], cwd)[0], runs)


def seconds_of(call):
    begin = time.perf_counter()
    call()
    return time.perf_counter() - begin


ROWS = []  # of the lines below, for bench/performance.py


def line(question, value, goal):
    ROWS.append((question, value, goal))
    print(f"{question:<66} {value:>16}   goal {goal}", flush=True)


def reading(program, writer, work, megabytes):
    path = os.path.join(work, "big.out")
    subprocess.run([writer, "--bytes", str(megabytes * 1_000_000), "--cuts", "5", path], check=True)
    size = os.path.getsize(path) / 1e6
    with open(os.path.join(work, "s"), "w") as script:
        script.write("SKIP_STEPS 0\n")
    ours = size / best(lambda: run(program, ["big.out", "-script", "s"], work)[0])
    peak = run(program, ["big.out", "-script", "s"], work)[1]

    # numpy reads the step records alone, a whole step on a line, at most 60 MB of them.
    with open(path) as source:
        for text in source:
            if "END_OF_HEADER" in text:
                break
        values = source.read(60_000_000).split()
    per_step = steps_and_width(path)[1]
    rows = len(values) // per_step
    plain = os.path.join(work, "plain.txt")
    with open(plain, "w") as out:
        for i in range(rows):
            out.write(" " + " ".join(values[i * per_step:(i + 1) * per_step]) + "\n")
    theirs = os.path.getsize(plain) / 1e6 / best(
        lambda: seconds_of(lambda: numpy.loadtxt(plain, dtype=numpy.float32)), 3)
    steps, width = steps_and_width(path)
    store = steps * width * 4 / 1024
    print(f"reading {size:.0f} MB: {ours:.0f} MB/s, numpy.loadtxt {theirs:.0f} MB/s")
    line("reading a formatted run / numpy.loadtxt, MB a second", f"{ours / theirs:.2f}", ">= 4, hoped for 8")
    line("peak memory / 4-byte store of what was read", f"{peak / store:.3f}", "<= 1.2")
    os.remove(path)


def steps_and_width(path):
    """Steps (NSTEP of record 14) and reals a step, from the file itself."""
    nstep, width, count = 0, 0, 0
    with open(path) as source:
        for text in source:
            if text.startswith("!14 TINIT"):
                nstep = int(next(source).split()[1])
            if text.startswith("!29 IVM"):
                switches = [int(word) for word in next(source).split()[:4]]
                count = switches[3]
                width = 52 + 2 * sum(1 for kind in switches[:3] if kind) * count
            if "END_OF_HEADER" in text:
                break
    return nstep, width


def tables(program, writer, work):
    subprocess.run([writer, "--steps", str(STEPS), "--cuts", "0", os.path.join(work, "long.out")], check=True)
    curves = range(1, 7)
    read = zaview_seconds(program, work, "long.out", ["SKIP_STEPS 0"])
    history = zaview_seconds(program, work, "long.out", ["SKIP_STEPS 0", "WRITE_HISTORY MOT h.txt"]) - read
    plain = zaview_seconds(program, work, "long.out",
                           ["SKIP_STEPS 0"] + [f'WRITE_STAT TABLE MOT {i} "" t{i}.txt' for i in curves]) - read
    interval = zaview_seconds(program, work, "long.out",
                              ["SKIP_STEPS 0"] + [f"WRITE_CI MOT {i} c{i}.txt" for i in curves]) - read

    data = numpy.loadtxt(os.path.join(work, "h.txt"), skiprows=2)
    target = os.path.join(work, "savetxt.txt")
    savetxt = best(lambda: seconds_of(lambda: numpy.savetxt(target, data, fmt="%13.6e")), 3)
    print(f"{STEPS} steps: read {read:.3f} s, history table {history:.3f} s, numpy.savetxt {savetxt:.3f} s, "
          f"six statistics tables {plain:.3f} s, six interval tables {interval:.3f} s")
    line("numpy.savetxt / time history table of six curves", f"{savetxt / history:.2f}", ">= 5")
    line("statistics tables of six curves / reading them", f"{plain / read:.3f}", "< 0.25")
    line("interval tables / statistics tables", f"{interval / plain:.2f}", "<= 10")


def bench_rows(build, work, name, *options):
    """The runs of a bench program, with plain names; none, which is told, where there is no bench build."""
    program = os.path.join(build, "bench", name)
    if not os.path.exists(program):
        print(f"{name}: no bench build")
        return []
    report = os.path.join(work, name + ".json")
    subprocess.run([program, *options, f"--benchmark_out={report}", "--benchmark_out_format=json"], check=True,
                   stdout=subprocess.DEVNULL)
    with open(report) as source:
        rows = [row for row in json.load(source)["benchmarks"] if row["run_type"] == "iteration"]
    for row in rows:
        row["name"] = row["name"].replace("/real_time", "")
    return rows


def bench_times(build, work, name, *options):
    """The least time of each run, in its unit."""
    least = {}
    for row in bench_rows(build, work, name, *options):
        least[row["name"]] = min(least.get(row["name"], row["real_time"]), row["real_time"])
    return least


def lag_sums(build, work):
    times = bench_times(build, work, "lag_sums_bench")
    if not times:
        return
    times = {name.split("/")[0]: time for name, time in times.items()}
    line("all lags of 20 000 samples / the plain loop", f"{times['AllLags'] / times['PlainLoop']:.4f}", "<= 0.06")


def numpy_elevation(block):
    """Elevation at a moving point, 500 components, single precision: phases of a block of steps that stays in the
    cache, cosines in place, the sum as a product with the amplitudes."""
    f = numpy.float32
    random = numpy.random.default_rng(11)
    t = numpy.arange(STEPS, dtype=f) * f(0.05)
    x, y = t * f(0.3), numpy.sin(t) * f(0.1)
    w = f(0.5) + f(2.5) * random.random(500, dtype=f)
    beta = f(2.4) + f(1.4) * random.random(500, dtype=f)
    kx, ky = w * w * numpy.cos(beta), w * w * numpy.sin(beta)
    p, a = f(6.28) * random.random(500, dtype=f), f(0.002) * random.random(500, dtype=f)
    eta = numpy.empty(STEPS, f)
    phases, product = numpy.empty((block, 500), f), numpy.empty((block, 500), f)

    def by_products():
        for i in range(0, STEPS, block):
            n = min(block, STEPS - i)
            psi, term = phases[:n], product[:n]
            numpy.multiply(x[i:i + n, None], kx, out=psi)
            psi += numpy.multiply(y[i:i + n, None], ky, out=term)
            psi -= numpy.multiply(t[i:i + n, None], w, out=term)
            psi += p
            numpy.matmul(numpy.cos(psi, out=psi), a, out=eta[i:i + n])

    points, waves = numpy.stack([x, y, t, numpy.ones(STEPS, f)], axis=1), numpy.stack([kx, ky, -w, p])

    def by_matrix():
        for i in range(0, STEPS, block):
            psi = phases[:min(block, STEPS - i)]
            numpy.matmul(points[i:i + block], waves, out=psi)
            numpy.matmul(numpy.cos(psi, out=psi), a, out=eta[i:i + block])

    return min(best(lambda: seconds_of(call), 3) for call in (by_products, by_matrix))


def waves(build, work):
    times = bench_times(build, work, "incident_wave_bench")
    if not times:
        return
    theirs = 1000 * min(numpy_elevation(block) for block in (16, 64, 256))
    one, both = times["MovingPoint/1"], times["MovingPoint/2"]
    print(f"500 components, {STEPS} steps: {both:.0f} ms on two threads, {one:.0f} on one, numpy {theirs:.0f} ms")
    line("numpy / elevation at a moving point", f"{theirs / both:.1f}", ">= 2, hoped for 3")
    line("elevations of a drawn sea of 61 x 41 points a second, one thread", f"{1000 / times['DrawnSea/full:0']:.0f}",
         ">= 60")
    line("the same with slopes and potential", f"{1000 / times['DrawnSea/full:1']:.0f}", "none")


def ensemble(build, work):
    """100 records of 20 000 steps; numpy makes the same lags of every record as running sums in single precision, which
    give the same bits, and as its own products, which don't."""
    times = bench_times(build, work, "ensemble_bench")
    if not times:
        return
    c = numpy.random.default_rng(11).standard_normal(20_000, dtype=numpy.float32)
    lags = [(c[:c.size - k], c[k:]) for k in range(141)]
    running = 1e5 * best(lambda: seconds_of(lambda: [numpy.add.accumulate(a * b)[-1] for a, b in lags]))
    products = 1e5 * best(lambda: seconds_of(lambda: [numpy.dot(a, b) for a, b in lags]))
    ours = times["AveragedLags/141"]
    print(f"averaged lags of an ensemble: {ours:.0f} ms, numpy {running:.0f} ms, by products {products:.0f} ms")
    line("numpy / averaged lags of an ensemble", f"{running / ours:.1f}", ">= 20")
    line("ensemble statistics and peaks of 100 x 20 000 steps, milliseconds", f"{times['StatsAndPeaks']:.0f}", "< 300")
    line("100 thresholds of exceedance of it, milliseconds", f"{times['Thresholds100/1']:.0f}", "< 500")


def many_runs(program, writer, work):
    """The same run under many names: one wild card against a line for each; both are one process."""
    count = 1000
    folder = os.path.join(work, "runs")
    os.mkdir(folder)
    run_file = os.path.join(work, "one.out")
    subprocess.run([writer, "--steps", "3000", "--cuts", "0", run_file], check=True)
    for i in range(count):
        os.link(run_file, os.path.join(folder, f"r{i:04}.out"))
    scripts = {"wild": ["READ_FILE r*.out"], "each": [f"READ_FILE r{i:04}.out" for i in range(count)],
               "few": [f"READ_FILE r{i:04}.out" for i in range(10)], "none": ["STOP"]}
    for name, lines in scripts.items():
        with open(os.path.join(folder, name), "w") as script:
            script.write("\n".join(lines) + "\n")

    used = {name: [] for name in scripts}
    for _ in range(4):  # in turn, so that other work falls on all of them
        for name in scripts:
            used[name].append(run(program, ["-script", name], folder))

    def least(name, what):
        return min(one[what] for one in used[name])

    start = least("none", 0)
    line(f"{count} runs by one wild card / each alone", f"{(least('wild', 0) - start) / (least('each', 0) - start):.2f}",
         "<= 1.2")
    line(f"peak memory of {count} runs, one after the other / of 10", f"{least('wild', 1) / least('few', 1):.3f}",
         "<= 1.01")


def layouts(build, work):
    speeds, first = {}, ""
    for row in bench_rows(build, work, "time_steps_bench", "--benchmark_filter=threads:2/per_line:6/",
                          "--benchmark_repetitions=15", "--benchmark_enable_random_interleaving=true",
                          "--benchmark_min_time=0.2"):
        if row["name"].endswith("layout:0"):
            first = row["label"]
        speeds[row["label"]] = max(speeds.get(row["label"], 0), row["bytes_per_second"])
    present = speeds.pop(first, 0)
    for label, speed in speeds.items():
        line(f"seconds a megabyte, {label} / present layout", f"{present / speed:.2f}", "<= 1")


def companion(build, work):
    least = {}
    for _ in range(3):  # in turn, so that other work falls on all of them
        for name, milliseconds in bench_times(build, work, "companion_bench").items():
            least[name] = min(least.get(name, milliseconds), milliseconds)
    plain = least.pop("PlainRead/cuts:0", 0)
    for name, milliseconds in least.items():
        line(f"{name}, 256 MB / plain read of the file", f"{milliseconds / plain:.2f}", "<= 1, hoped for 0.5")


def mesh(build, work):
    for milliseconds in bench_times(build, work, "mesh_bench", "--benchmark_repetitions=5").values():
        line("4900 elements of NASTRAN read, checked and turned, milliseconds", f"{milliseconds:.1f}", "< 50")


def spectrum(build, work):
    """Welch's method on 200 000 samples, by the same segments."""
    times = bench_times(build, work, "welch_bench", "--benchmark_repetitions=5")
    if not times:
        return
    try:
        from scipy import signal
    except ImportError:
        print("no scipy: spectra aren't compared")
        return
    x = numpy.random.default_rng(11).random(STEPS, dtype=numpy.float32)
    theirs = 1000 * best(lambda: seconds_of(lambda: signal.welch(x, 2, "hann", 25_000, 12_500, detrend="constant")))
    ours = times["Spectrum"]
    print(f"spectrum of {STEPS} samples: {ours:.1f} ms, scipy {theirs:.1f} ms")
    line("scipy.signal.welch / spectrum of 200 000 samples", f"{theirs / ours:.2f}", ">= 1")


def bootstrap(build, work):
    times = bench_times(build, work, "bootstrap_bench")
    for records, goal in ((1, "< 1000"), (100, "< 60000")):
        if times:
            line(f"intervals of {records} x 20 000 samples by 1000 resamples, milliseconds",
                 f"{times[f'AllStatistics/bootstrap/{records}']:.0f}", goal)


def curves(build, work):
    for name, milliseconds in bench_times(build, work, "curves_bench").items():
        line(f"{name} of curves_bench, milliseconds", f"{milliseconds:.0f}", "none")


def first_line(program, work):
    with open(os.path.join(work, "empty.script"), "w") as script:
        script.write("STOP\n")
    start = best(lambda: run(program, ["-script", "empty.script"], work)[0], 20)
    line("start to the end of a script of one line, milliseconds", f"{1000 * start:.1f}", "< 20")


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("build")
    parser.add_argument("--mb", type=int, default=500)
    parser.add_argument("--work", default=None)
    options = parser.parse_args()
    build = os.path.abspath(options.build)
    all_ratios(build, options.mb, options.work)


def all_ratios(build, megabytes, folder=None):
    program = os.path.join(build, "zaview")
    writer = os.path.join(build, "tools", "run_writer")
    with tempfile.TemporaryDirectory(dir=folder) as work:
        first_line(program, work)
        reading(program, writer, work, megabytes)
        tables(program, writer, work)
        lag_sums(build, work)
        waves(build, work)
        mesh(build, work)
        ensemble(build, work)
        spectrum(build, work)
        bootstrap(build, work)
        curves(build, work)
        many_runs(program, writer, work)
        layouts(build, work)
        companion(build, work)


if __name__ == "__main__":
    main()
