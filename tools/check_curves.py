#!/usr/bin/env python3
"""Compares spectra, extremes and rainflow counts of the program with an independent computation in double precision.

    tools/check_curves.py PROGRAM FILE...

Every run file, or .mot file (KINO motions), is taken alone; the samples are those of WRITE_HISTORY, to the last bit.
What is counted must be equal, what is computed must agree to FIVE_DIGITS, or to what 4 bytes can hold. Tells the
largest relative difference of each kind. Needs numpy and scipy. By hand.
"""
import os
import shutil
import sys
import tempfile

import numpy as np
from scipy import optimize, signal, stats

from ensemble_check import MOTIONS, Check, history, run, text_of
from ensemble_formulas import KA, SKIP, envelope_lag, f4, half_cycles, lags

# ---- Extremes

HOURS, QUANTILE = 5.0, 0.9
CUTOFF, BLOCK_DEPENDENCE, BLOCK_PEAKS, MOST_BLOCKS, FEWEST = 0.2, 3, 8, 24, 20
SHARE = 0.5  # of the peaks, the highest: those that are fitted


def refined(values, density, start):
    """The largest likelihood, to all digits: scipy's own fit ends at four or so."""
    best = optimize.minimize(lambda p: -density(values, p).sum(), start, method="Nelder-Mead",
                             options=dict(xatol=1e-12, fatol=1e-12, maxiter=10000, maxfev=10000))
    return best.x


def second_derivatives(f, p):
    step, H = 1e-4 * np.maximum(np.abs(p), 1e-3), np.zeros((2, 2))
    for i in range(2):
        for j in range(2):
            a, b = np.eye(2)[i] * step, np.eye(2)[j] * step
            H[i, j] = (f(p + a + b) - f(p + a - b) - f(p - a + b) + f(p - a - b)) / (4 * step[i] * step[j])
    return H


def weibull(heights, n_lags, expected):
    """Scale, shape, their errors; the two answers in h. Of the lower half no more than its number is taken."""
    top = np.sort(heights)[len(heights) - int(len(heights) * SHARE + 0.5):]
    fitted, unit = heights >= top[0], np.log(top).mean()
    x, spread = (np.log(heights) - unit), np.log(top).std()
    x, below = x / spread, (np.log(top[0]) - unit) / spread

    def density(_, p):
        z = np.exp(p[1] * (np.where(fitted, x, below) - p[0]))
        return np.where(fitted, np.log(p[1]) + p[1] * (x - p[0]) - z, np.log(-np.expm1(-z)))
    k, _, a = stats.weibull_min.fit(top, floc=0)
    s, k = refined(x, density, [(np.log(a) - unit) / spread, k * spread / 2])
    V = np.linalg.inv(-second_derivatives(lambda p: density(x, p).sum(), np.array([s, k])))
    steps = 1e-6 * np.eye(2)
    scores = np.stack([(density(x, [s, k] + d) - density(x, [s, k] - d)) / 2e-6 for d in steps], axis=1)
    J = scores.T @ scores
    for j in range(1, min(n_lags, len(x) - 1) + 1):
        G = scores[:-j].T @ scores[j:]
        J += (1 - j / (n_lags + 1)) * (G + G.T)
    D = V @ J @ V if n_lags else V
    errors = np.sqrt(np.maximum(np.diag(V), np.diag(D)))
    answers = []
    for y in (np.log(expected), -np.log(1 - QUANTILE ** (1 / expected))):
        g = np.array([1, -np.log(y) / k ** 2])
        half = KA * np.sqrt(max(g @ V @ g, g @ D @ g))
        answers.append(unit + spread * (s + np.log(y) / k + np.array([-half, 0, half])))
    a = np.exp(unit + spread * s)
    return [a, a * spread * errors[0], k / spread, errors[1] / spread], np.exp(answers)


def gumbel(x, expected):
    u, b = stats.gumbel_r.fit(x)
    mean, spread = x.mean(), x.std()
    z = (x - mean) / spread
    u, b = refined(z, lambda v, p: stats.gumbel_r.logpdf(v, p[0], p[1]), [(u - mean) / spread, b / spread])
    V = np.linalg.inv(-second_derivatives(lambda p: stats.gumbel_r.logpdf(z, *p).sum(), np.array([u, b])))
    answers = []
    for y in (np.log(expected), -np.log(-np.log(QUANTILE) / expected)):
        half = KA * np.sqrt(np.array([1, y]) @ V @ np.array([1, y]))
        answers.append(mean + spread * (u + b * y + np.array([-half, 0, half])))
    return [b * spread, spread * np.sqrt(V[1, 1]), mean + spread * u, spread * np.sqrt(V[0, 0])], answers


def dependence(x):
    """Steps, are they known."""
    most = min(len(x) // 2, len(x) // (FEWEST * BLOCK_DEPENDENCE)) + 2
    lag = envelope_lag(lags(x - f4(x.mean()), most), CUTOFF)
    return (most, False) if lag is None else (lag, True)


def block_extremes(x, length):
    count = len(x) // length
    parts = [x[j * len(x) // count:(j + 1) * len(x) // count] for j in range(count)]
    return np.array([p.max() for p in parts]), np.array([p.min() for p in parts]), len(x) / count


def expected_extremes(x, t):
    """For each fit the cells of its row, then low, estimate, high of its two answers. None: it is refused."""
    mean, dt, T = x.mean(), (t[-1] - t[0]) / (len(t) - 1), HOURS * 3600
    lag, known = dependence(x)
    cycles = half_cycles([x], float(f4(mean)))
    sides = [np.array([a for _, _, a, top in cycles if bool(top) == side and a > 0]) for side in (True, False)]
    length = max(BLOCK_DEPENDENCE * lag, len(x) / MOST_BLOCKS, BLOCK_PEAKS * len(x) / max(1, min(map(len, sides))))
    enough = known and len(x) // int(np.ceil(length)) >= FEWEST
    rows = []
    for sign, heights, side in zip((1, -1), sides, (0, 1)):
        n = len(heights)
        if n * SHARE < FEWEST:
            rows.append(None)
        else:
            expected = T / (t[-1] - t[0]) * n
            row, answers = weibull(heights, int(np.ceil(2 * lag * n / len(x))), expected)
            rows.append(([n, expected] + row, [sorted(mean + sign * np.array(a)) for a in answers]))
        if not enough:
            rows.append(None)
            continue
        values = block_extremes(x, int(np.ceil(length)))
        expected = T / (values[2] * dt)
        row, answers = gumbel(sign * values[side], expected)
        row[2] *= sign
        rows.append(([len(values[0]), expected] + row, [sorted(sign * np.array(a)) for a in answers]))
    return rows


def cells(line):
    return [float(word) for word in line.split(",")[1:]]


def check_extremes(check, folder, key, x, t):
    lines = text_of(folder, key + ".extremes")
    first = next(i for i, line in enumerate(lines) if line.startswith("Fit,")) + 1
    fits, answers = lines[first:first + 4], lines[first + 6:]
    std = x.std()
    for line, want in zip(fits, expected_extremes(x, t)):
        refused = "not fitted" in line
        check.equal("WRITE_EXTREMES refused", refused, want is None)
        if refused or want is None:
            continue
        got = cells(line)
        check.equal("WRITE_EXTREMES", got[0], want[0][0])
        check.close("WRITE_EXTREMES: expected number", got[1], want[0][1])
        check.close("WRITE_EXTREMES: scale, shape or location", got[2::2], want[0][2::2], std)
        check.close("WRITE_EXTREMES: errors", got[3::2], want[0][3::2])
        for answer in want[1]:
            check.close("WRITE_EXTREMES: extreme values", cells(answers.pop(0)), answer, std)


# ---- Rainflow counts

BINS, SLOPES = 37, (3, 4, 5)


def rainflow(x):
    """Range, mean, count: the standard's own words, with the points it reads in a list that is searched anew."""
    x = x[np.r_[True, np.diff(x) != 0]]
    if len(x) < 2:
        return np.zeros((0, 3))
    turns = np.flatnonzero(np.diff(np.sign(np.diff(x)))) + 1
    points, kept, cycles = x[np.r_[0, turns, len(x) - 1]], [], []
    for point in points:
        kept.append(point)
        while len(kept) >= 3 and abs(kept[-1] - kept[-2]) >= abs(kept[-2] - kept[-3]):
            a, b = kept[-3:-1]
            if len(kept) == 3:
                kept = kept[1:]
                cycles.append((abs(a - b), (a + b) / 2, 0.5))
            else:
                del kept[-3:-1]
                cycles.append((abs(a - b), (a + b) / 2, 1.0))
    cycles += [(abs(a - b), (a + b) / 2, 0.5) for a, b in zip(kept, kept[1:])]
    return np.array(cycles)


def check_rainflow(check, folder, key, x, t):
    S, mean, n = rainflow(x).T
    S = S.astype("f4").astype(float)
    lines = text_of(folder, key + ".rainflow")
    got = [float(line.split("= ")[-1]) for line in lines[1:4] + lines[5:8]]
    check.close("WRITE_RAINFLOW: time", got[0], t[-1] - t[0])
    check.equal("WRITE_RAINFLOW", got[1], n.sum())
    check.close("WRITE_RAINFLOW: largest, equivalent ranges", got[2:],
                [S.max()] + [((n * S ** m).sum() / n.sum()) ** (1 / m) for m in SLOPES])
    rows = np.array([[float(word) for word in line.split(",")] for line in lines[9:]])
    width = S.max() / BINS
    place = np.minimum((S / width).astype(int), BINS - 1)
    count, sums = np.bincount(place, n, BINS), np.bincount(place, n * mean, BINS)
    check.equal("WRITE_RAINFLOW", rows[:, 2], count)
    check.equal("WRITE_RAINFLOW", rows[:, 3], np.cumsum(count[::-1])[::-1])
    check.close("WRITE_RAINFLOW: limits", rows[:, :2], np.c_[np.arange(BINS), np.arange(1, BINS + 1)] * width)
    check.close("WRITE_RAINFLOW: means", rows[:, 4], sums / np.maximum(count, 0.25), x.std())


# ---- Spectrum

def check_spectrum(check, folder, key, x, t):
    lines = text_of(folder, key + ".spectrum")
    first = next(i for i, line in enumerate(lines) if line.startswith("w (rad/time)")) + 1
    rows = np.array([[float(word) for word in line.split(",")] for line in lines[first:]])
    segment, freedom = int(lines[1].split(" of ")[1].split()[0]), float(lines[2].split("= ")[1])
    dt = (t[-1] - t[0]) / (len(t) - 1)
    f, S = signal.welch(x - x.mean(), 1 / dt, "hann", segment, segment // 2, detrend=False)
    limits = freedom / stats.chi2.ppf([0.975, 0.025], freedom)
    check.close("WRITE_SPECTRUM: frequencies", rows[:, :2], np.c_[2 * np.pi * f, f], 1 / dt)
    check.close("WRITE_SPECTRUM: densities", rows[:, 2:], np.c_[S / 2 / np.pi, S, np.outer(S / 2 / np.pi, limits)], S.max())
    w, s = 2 * np.pi * f[1:], S[1:] * f[1]
    m = [float((s * w ** p).sum()) for p in (-1, 0, 1, 2, 4)]
    got = [float(line.split("= ")[-1]) for line in lines[4:9]]
    check.close("WRITE_SPECTRUM: moments", got, m)


# ---- All of a file

COMMANDS = [f"EXTREME_MAXIMUM {HOURS} {QUANTILE}", f"RAINFLOW_BINS {BINS}", "COMMA"]
TABLES = {"SPECTRUM": check_spectrum, "EXTREMES": check_extremes, "RAINFLOW": check_rainflow}


def check_file(check, program, path):
    folder = tempfile.mkdtemp(prefix="check_curves.")
    name = "run" + os.path.splitext(path)[1]
    shutil.copy(path, os.path.join(folder, name))
    read = f'READ_KINO {name} CALM "" 9.81 1025 0 0 0 0 0 0' if name.endswith(".mot") else f"READ {name}"
    skip = f"SKIP_STEPS {SKIP}"
    run(program, folder, [read, "WRITE_HISTORY MOT h:UNFORM"])
    samples = history(folder, "h")[SKIP:]
    curves = [curve for _, curve in MOTIONS if np.ptp(samples[:, curve]) > 0]  # a constant has no cycles
    lines = [read, skip] + COMMANDS
    for curve in curves:
        lines += [f"WRITE_{table} MOT {curve} q{curve}.{table.lower()}" for table in TABLES]
    run(program, folder, lines)
    for _, curve in MOTIONS:
        if curve not in curves:
            print(f"{os.path.basename(path)} MOT {curve}: constant, left out")
            continue
        check.begin(f"{os.path.basename(path)} MOT {curve}", [samples[:, curve]])
        for table in TABLES.values():
            table(check, folder, f"q{curve}", samples[:, curve], samples[:, 0])
    shutil.rmtree(folder)


def main():
    program, files = os.path.abspath(sys.argv[1]), sys.argv[2:]
    check = Check()
    for path in files:
        check_file(check, program, path)
    for kind, (off, _, where) in sorted(check.largest.items()):
        print(f"{kind:48} {check.compared.get(kind, 0):8d} compared, largest {off:8.1e} {where}")
    for fault in check.faults[:40]:
        print("FAULT", fault)
    sys.exit(bool(check.faults))


if __name__ == "__main__":
    main()
