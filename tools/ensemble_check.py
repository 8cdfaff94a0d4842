#!/usr/bin/env python3
"""Compares the statistics tables of the program with the same formulas in double precision.

    tools/ensemble_check.py PROGRAM FILE...

The run files are taken as one ensemble, each .mot file (KINO motions) alone. The samples are those of WRITE_HISTORY, to
the last bit; what is counted must be equal, what is computed must agree to FIVE_DIGITS, or to what 4 bytes can hold
(Check.begin). Tells the largest relative difference of each kind. Needs numpy. By hand.
"""
import os
import re
import shutil
import subprocess
import sys
import tempfile

import numpy as np

from ensemble_formulas import (BUCKETS, KA, PROB, RATE, SKIP, average_lags, between, blocks, ensemble_peaks,
                               ensemble_stats, envelope, envelope_lag, exceedances, f4, half_cycles, highest,
                               histogram, light_average, upcrossings)

FIVE_DIGITS = 1e-5
CUTOFF = 0.05  # of the dependence time
MOTIONS = [("MOT", i) for i in range(1, 7)]  # all that a KINO file holds
RATES = [("VEL", 3), ("ACC", 5)]
DATA = ["SIGNED", "ABSOLUTE", "POSITIVE"]
OVERLAYS = ["NONE", "UNIFORM", "NORMAL", "GRAMM", "RAYLEIGH", "EXP"]
DIRECTIONS = {"": 1, "+": 2, "-": 3}


# ---- What the program says

def run(program, folder, lines):
    with open(os.path.join(folder, "s"), "w") as f:
        f.write("\n".join(lines) + "\n")
    done = subprocess.run([program, "-script", "s"], cwd=folder, stdin=subprocess.DEVNULL, capture_output=True, text=True)
    if done.returncode:
        sys.exit(done.stdout[-3000:] + done.stderr[-3000:])
    return done.stdout


def history(folder, name):
    raw = np.fromfile(os.path.join(folder, name), dtype="<i4")
    row = raw[0] // 4 + 2
    return raw.reshape(-1, row)[:, 1:-1].copy().view("<f4").astype(float)


def numbers(line):
    return [float(w) for w in re.findall(r"[-+]?\d+\.?\d*(?:[eE][-+]?\d+)?(?=[\s,)]|$)", line)]


def text_of(folder, name):
    with open(os.path.join(folder, name)) as f:
        return f.read().splitlines()


class Check:
    def __init__(self):
        self.largest, self.compared, self.faults = {}, {}, []
        self.where, self.slack = "", 1.0

    def begin(self, where, X):
        """4 bytes hold less of records that are far from 0 and nearly constant (of constant ones nothing but their value),
        and of sums over many samples."""
        self.where, every = where, np.concatenate(X)
        mean, std = abs(every.mean()), every.std()
        self.slack = max(1.0, mean / (10 * std) if std else np.inf if mean else 1.0) * max(1.0, np.sqrt(len(every) / 1000))

    def close(self, kind, ours, expected, scale=0.0, slack=1.0):
        """scale: what a difference is small against, where that is more than the value itself."""
        ours, expected = np.array(ours, float), np.array(expected, float)
        if ours.shape != expected.shape:
            self.faults.append(f"{self.where} {kind}: {np.size(ours)} values, expected {np.size(expected)}")
            return
        if not ours.size:
            return
        ours, expected, size = ours.ravel(), expected.ravel(), np.maximum(np.abs(expected), scale).ravel()
        off = np.abs(ours - expected) / np.where(size > 0, size, 1)
        off = np.where(np.isnan(off), np.inf, off)
        worst = int(np.argmax(off))
        allowed = FIVE_DIGITS * slack * self.slack
        self.compared[kind] = self.compared.get(kind, 0) + len(ours)
        if np.isfinite(allowed):
            self.largest[kind] = max(self.largest.get(kind, (0, 0, "")), (off[worst], off[worst] / allowed, self.where))
        if not off[worst] <= allowed:
            self.faults.append(f"{self.where} {kind}: {ours[worst]:.7g}, expected {expected[worst]:.7g}")

    def equal(self, kind, ours, expected):
        kind += " (counts)"
        self.largest.setdefault(kind, (0, 0, ""))
        self.compared[kind] = self.compared.get(kind, 0) + np.size(expected)
        if not np.array_equal(ours, expected):
            self.faults.append(f"{self.where} {kind}: {ours}, expected {expected}")


class Group:
    """Records read together, as one ensemble."""

    def __init__(self, program, files):
        self.program, self.files = program, files
        self.quantities = MOTIONS if files[0].endswith(".mot") else MOTIONS + RATES
        words = sorted({word for word, _ in self.quantities})
        self.folder = tempfile.mkdtemp(prefix="ensemble_check.")
        self.lines = ["CLEAR_ENSEMBLE"]
        self.records = []
        for i, path in enumerate(files):
            name = f"{i}{os.path.splitext(path)[1]}"
            shutil.copy(path, os.path.join(self.folder, name))
            # Without a geometry file the centre of gravity is at the reference point.
            read = f'READ_KINO {name} "" "" 9.81 1025 0 0 0 0 0 0' if name.endswith(".mot") else f"READ_ENSEMBLE {name}"
            run(program, self.folder, [read] + [f"WRITE_HISTORY {q} {q}:UNFORM" for q in words])
            self.records.append({q: history(self.folder, q) for q in words})
            self.lines.append(read)

    def samples(self, quantity, curve):
        X = [r[quantity][SKIP:, curve] for r in self.records]
        return X, [r[quantity][SKIP:, 0] for r in self.records]


class Levels:
    """Thresholds of the counts; as written and read back in 4 bytes."""

    def __init__(self, X):
        every = np.concatenate(X)
        mean, std = every.mean(), every.std()
        self.low, self.high, self.step = f4(mean - 2.2 * std), f4(mean + 2.3 * std), f4(max(std, 0.01) * 0.37)
        self.up, self.down, self.both = f4(mean + 0.8 * std), f4(mean - 0.9 * std), f4(abs(mean) + 0.7 * std)

    def of(self, sign):
        return {"": self.both, "+": self.up, "-": self.down}[sign]

    def all(self):
        if not self.low < self.high:
            return [self.low]
        count = max(int(f4(f4(self.high - self.low) / self.step)) + 1, 2)
        return [f4(self.low + f4(f4(i) * self.step)) for i in range(count - 1)] + [self.high]


NDEP = 25  # given dependence length of the exceedances; the blocks take the computed one


def script_of(key, quantity, curve, levels):
    what = f"{quantity} {curve}"
    lines = [f'ENSEMBLE_STAT TABLE {what} "" {key}.table', f"ENSEMBLE_CI {what} {key}.ci",
             "NMANY 1", f"ENSEMBLE_CI {what} {key}.many", "NMANY 0",
             f'ENSEMBLE_STAT 1/5TH_TOP_CI {what} "" {key}.fifth', f'WRITE_STAT TABLE {what} "" {key}.stat',
             f"ENSEMBLE_AUTOC {what} {key}.autoc",
             f"UPCROSSINGS {what} {levels.low:.9g} {levels.high:.9g} {levels.step:.9g} {key}.up"]
    for sign in DIRECTIONS:
        v = f"{levels.of(sign):.9g}"
        lines += [f"EXCEEDANCE{sign} {what} {v} {NDEP} {key}.ex{sign}",
                  f"EXCEEDANCE_LIST{sign} {what} {v} 0 {key}.list{sign}",
                  f"BLOCK_EXCEEDANCE{sign} {what} {v} 0 {key}.block{sign}"]
    for data in DATA:
        for overlay in OVERLAYS:
            lines += [f"HIST_DATA {data}", f"HIST_DIST {overlay}",
                      f"WRITE_ENSEMBLE_HISTOGRAM {what} {key}.{data}.{overlay}"]
    return lines


# ---- Comparisons, a file each

def interval_rows(s, third, tenth):
    def row(estimate, ci, floor=False):
        low = estimate - ci
        return [ci, max(low, 0.0) if floor else low, estimate, estimate + ci]
    mean, var, std = s["mean"], s["var"], s["std"]
    rows = [row(*mean), row(*var, True), row(*std)]
    for p in (third, tenth):
        rows += [row(*p["amp"], True), row(*p["top"]), row(*p["bot"]),
                 row(p["top"][0] - p["bot"][0], p["top"][1] + p["bot"][1], True)]
    return rows + [row(2 * std[0], 2 * std[1])]


def check_intervals(check, group, key, kind, expected, std):
    rows = [numbers(line)[-4:] for line in text_of(group.folder, key)[4:]]
    check.equal(kind, len(rows), len(expected))
    for i, (ours, want) in enumerate(zip(rows, expected)):
        spread = std * std if i == 1 else std
        # With many records it is a difference of estimates, which hold five digits themselves.
        check.close(kind + ": half width", ours[0], want[0], spread if "many" in kind else 0)
        check.close(kind + ": bounds", ours[1:], want[1:], max(want[0], abs(want[2])))
        check.close(kind + ": estimate", ours[2], want[2], std)


def check_table(check, group, key, X, s, third, tenth, std):
    lines = text_of(group.folder, key + ".table")
    for line, x in zip(lines[3:], X):
        xm = x.mean()
        amplitudes = [(r, i, a) for r, i, a, _ in half_cycles([x], xm)]
        check.close("ENSEMBLE_STAT: records", numbers(line)[1:], [xm, x.std(ddof=1), highest(amplitudes, 3, 1, 0)[0]], std)
    every = np.concatenate(X)
    rows = [s["mean"][0], s["std"][0], s["var"][0]]
    for p in (third, tenth):
        rows += [p["amp"][0], p["top"][0], p["bot"][0], p["top"][0] - p["bot"][0]]
    rows += [every.min(), every.max(), max(every.max(), -every.min()), 2 * s["std"][0]]
    for line, want in zip(lines[-15:], rows):
        check.close("ENSEMBLE_STAT: ensemble", numbers(line)[-1], want, 0 if "arian" in line else std)


def check_stat_table(check, group, key, x, t, std):
    rows = [x.mean(), x.std(ddof=1), x.var(ddof=1)] + light_average(x, 3) + light_average(x, 10)
    rows += [x.min(), x.max(), max(x.max(), -x.min())] + between(x, t) + [2 * x.std(ddof=1)] + light_average(x, 100)
    lines = text_of(group.folder, key + ".stat")[2:]
    check.equal("WRITE_STAT", len(lines), len(rows))
    for line, want in zip(lines, rows):
        check.close("WRITE_STAT", numbers(line)[-1], want, 0 if "arian" in line else std)


def check_autocorrelation(check, group, key, R, lag, dt):
    lines = text_of(group.folder, key + ".autoc")
    end = lines.index("Envelope curve")
    rows = np.array([numbers(line) for line in lines[2:end - 1]])
    check.equal("ENSEMBLE_AUTOC", len(rows), len(R))
    check.close("ENSEMBLE_AUTOC: lag time", rows[:, 0], dt * np.arange(len(R)))
    check.close("ENSEMBLE_AUTOC: Rax", rows[:, 1], R / R[0] if R[0] else R * 0, 1)
    k, v = envelope(R)
    points = np.array([numbers(line) for line in lines[end + 2:-2]]).reshape(-1, 2)
    # Of a flat maximum rounding may take the lag beside it or make it no maximum; small ones may come and go.
    stands_out = np.abs(R[k]) - np.maximum(np.abs(R[k - 1]), np.abs(R[k + 1])) > 1e-6 * R[0]
    for lag_time, value in zip(dt * k[stands_out], v[stands_out]):
        near = points[np.abs(points[:, 0] - lag_time) < 1.5 * dt]
        check.close("ENSEMBLE_AUTOC: envelope", near[:1, 1], [value], 1)
    dti, ndti = numbers(lines[-1].replace("(", " "))
    check.close("ENSEMBLE_AUTOC: dependence time", dti, dt * (lag or 0))
    check.equal("ENSEMBLE_AUTOC: dependence steps", ndti, int(lag or 0))


def check_upcrossings(check, group, key, X, levels, T, dti, ndti):
    lines = text_of(group.folder, key + ".up")
    check.close("UPCROSSINGS: times", [numbers(lines[1])[-1], numbers(lines[2])[-1]], [T, dti])
    mean = np.concatenate(X).mean()
    check.equal("UPCROSSINGS", len(lines) - 5, len(levels.all()))
    for line, v in zip(lines[5:], levels.all()):
        row = numbers(line)
        want = upcrossings(X, mean, float(v), ndti)
        check.close("UPCROSSINGS: threshold, rate", [row[0], row[2]], [float(v), want[0] / T])
        check.equal("UPCROSSINGS", [row[1]] + row[3:], want)


def check_exceedances(check, group, key, X, times, levels, T, dt, ndti):
    points = sum(len(x) for x in X)
    for sign, option in DIRECTIONS.items():
        v = float(levels.of(sign))
        total, nind, beyond, _ = exceedances(X, times, v, option, NDEP)
        h = np.sqrt(nind * (1 - nind / points)) * KA
        got = [numbers(line.split("=")[1].replace("(", " "))[0] for line in text_of(group.folder, key + ".ex" + sign)]
        check.equal("EXCEEDANCE", got[3:6], [NDEP, nind, total])
        check.close("EXCEEDANCE: times", got[:3] + [got[9]], [v, T, dt * NDEP, PROB])
        check.close("EXCEEDANCE: rates", got[6:9], np.array([nind, max(nind - h, 0), nind + h]) / T, nind / T)
        check.close("EXCEEDANCE: time", got[10:], [beyond, beyond / T])
        listed = [numbers(line) for line in text_of(group.folder, key + ".list" + sign)[1:]]
        found = exceedances(X, times, v, option, ndti)[3]
        check.equal("EXCEEDANCE list", [row[:2] for row in listed], [[r, i + SKIP] for r, i, _ in found])
        if len(listed) == len(found):
            check.close("EXCEEDANCE list: time", [row[2] for row in listed], [f[2] for f in found])


def check_blocks(check, group, key, X, levels, T, dt, ndti):
    for sign, option in DIRECTIONS.items():
        rows, hits = blocks(X, float(levels.of(sign)), option, max(ndti, 1))
        got = [numbers(line.split("=")[1])[0] for line in text_of(group.folder, key + ".block" + sign)]
        check.equal("BLOCK_EXCEEDANCE", got[2:5], [max(ndti, 1), len(rows), hits])
        low, high = np.mean([r[4] for r in rows]), np.mean([r[5] for r in rows])
        check.close("BLOCK_EXCEEDANCE", [got[0], got[1], got[5]], [T, dt * max(ndti, 1), hits / T])
        check.close("BLOCK_EXCEEDANCE: averages", got[6:], [low, high], np.concatenate(X).std())
    return rows


def check_block_list(check, group, rows):
    listed = [numbers(line) for line in text_of(group.folder, "block_exceedance.list")[1:]]
    want = [[b, r, first + SKIP, last + SKIP] for b, r, first, last, _, _ in rows]
    check.equal("BLOCK_EXCEEDANCE list", [row[:4] for row in listed], want)
    check.close("BLOCK_EXCEEDANCE list: extremes", [row[4:] for row in listed], [r[4:] for r in rows])


def check_histograms(check, group, key, X, chi2, std):
    for mode, data in enumerate(DATA):
        for overlay, name in enumerate(OVERLAYS):
            want = histogram(X, mode, overlay)
            lines = text_of(group.folder, f"{key}.{data}.{name}")
            rows = np.array([numbers(line) for line in lines[4:4 + BUCKETS]])
            check.equal("WRITE_HISTOGRAM", numbers(lines[1])[-1], want["n"])
            # The column is fraction times n, in 4 bytes: whole to seven digits.
            check.equal("WRITE_HISTOGRAM", np.rint(rows[:, 3]), want["count"])
            check.close("WRITE_HISTOGRAM: number, fraction", rows[:, 3:], np.c_[want["count"], want["count"] / want["n"]])
            width = want["edges"][1] - want["edges"][0]
            check.close("WRITE_HISTOGRAM: limits", rows[:, :3], np.c_[want["edges"][:-1], want["edges"][1:], want["mid"]], width)
            if overlay == 0:
                continue
            fit = lines[4 + BUCKETS + 3:-BUCKETS - 2]
            # Skew and excess are moments of a variable of deviation 1.
            check.close("WRITE_HISTOGRAM: moments", [numbers(line)[-1] for line in fit], want["fit"],
                        [std if "Mean" in line else 1 if "Skew" in line or "Excess" in line else 0 for line in fit])
            rows = np.array([numbers(line) for line in lines[-BUCKETS:]])
            e = want["expected"]
            check.close("WRITE_HISTOGRAM: expected", rows[:, 2], e, max(np.abs(e).max(), 1e-30))
            check.close("WRITE_HISTOGRAM: expected", rows[:, 1], e * want["n"], max(np.abs(e * want["n"]).max(), 1e-30))
            # A bucket in a far tail outweighs all others, and the exponential of a large argument loses digits.
            tail = np.min(e[(e > 0) & (want["count"] > 0)], initial=1)
            scale = want["chi2"] + 2 * np.abs(want["count"] / want["n"] - e).sum()
            ours = next(chi2)
            if tail > 1e-30:
                check.close("WRITE_HISTOGRAM: chi2", ours, want["chi2"], scale, max(-np.log(tail), 1))


def check_group(check, group):
    levels = [Levels(group.samples(*q)[0]) for q in group.quantities]
    lines = group.lines + [f"SKIP_STEPS {SKIP}", f"HIST_SAMPLE {RATE}"]
    for i, q in enumerate(group.quantities):
        lines += script_of(f"q{i}", *q, levels[i])
    console = run(group.program, group.folder, lines)
    chi2 = iter(float(v) for v in re.findall(r"chi2= (\S+)", console))
    for i, (quantity, curve) in enumerate(group.quantities):
        key = f"q{i}"
        X, times = group.samples(quantity, curve)
        check.begin(f"{os.path.basename(group.files[0])} {quantity} {curve}", X)
        std = np.concatenate(X).std()
        third, tenth = ensemble_peaks(X, 3), ensemble_peaks(X, 10)
        s = ensemble_stats(X, False)
        check_table(check, group, key, X, s, third, tenth, std)
        check_intervals(check, group, key + ".ci", "ENSEMBLE_CI", interval_rows(s, third, tenth), std)
        many = interval_rows(ensemble_stats(X, True), third, tenth)
        check_intervals(check, group, key + ".many", "ENSEMBLE_CI, many", many, std)
        fifth = ensemble_peaks(X, 5)["top"]
        check.close("ENSEMBLE_STAT 1/5TH_TOP_CI", numbers(text_of(group.folder, key + ".fifth")[0]),
                    [fifth[1], fifth[0] - fifth[1], fifth[0], fifth[0] + fifth[1]])
        check_stat_table(check, group, key, X[-1], times[-1], std)
        R = average_lags(X)
        lag = envelope_lag(R, CUTOFF)
        ndti = int(lag or 0)
        dt = (times[0][-1] - times[0][0]) / (len(times[0]) - 1)
        T = sum(t[-1] - t[0] for t in times)
        check_autocorrelation(check, group, key, R, lag, dt)
        check_upcrossings(check, group, key, X, levels[i], T, dt * (lag or 0), ndti)
        check_exceedances(check, group, key, X, times, levels[i], T, dt, ndti)
        rows = check_blocks(check, group, key, X, levels[i], T, dt, ndti)
        check_histograms(check, group, key, X, chi2, std)
    check_block_list(check, group, rows)


def main():
    if len(sys.argv) < 3:
        sys.exit(__doc__)
    program, files = os.path.abspath(sys.argv[1]), sys.argv[2:]
    together = [f for f in files if not f.endswith(".mot")]
    groups = ([together] if together else []) + [[f] for f in files if f.endswith(".mot")]
    check = Check()
    for names in groups:
        group = Group(program, names)
        try:
            check_group(check, group)
        finally:
            shutil.rmtree(group.folder)
    for kind in sorted(check.largest):
        off, share, where = check.largest[kind]
        print(f"{kind:42s} {check.compared[kind]:7d} values  {off:8.1e}, {share:4.0%} of what is allowed  {where}")
    print("\n".join(check.faults))
    print(f"{len(check.faults)} differences")
    return 1 if check.faults else 0


if __name__ == "__main__":
    sys.exit(main())
