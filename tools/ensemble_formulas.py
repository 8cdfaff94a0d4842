"""The statistics of ensembles in double precision, from their formulas; for ensemble_check.py. A record is an array."""
import numpy as np

SKIP, RATE, PROB, PEAK_CUTOFF, BUCKETS = 37, 3, 0.95, 0.05, 40
f4 = np.float32


def gauss_factor(wanted):
    """In 4 bytes: where the search ends depends on the rounding, in the fifth digit."""
    def probability(x):
        h = f4(x / f4(500))
        total = f4(0.19947115)
        for i in range(1, 500):
            t = f4(f4(i) * h)
            total = f4(total + f4(f4(0.3989423) * np.exp(f4(-f4(t * t) / f4(2)))))
        total = f4(total + f4(f4(0.19947115) * np.exp(f4(-f4(x * x) / f4(2)))))
        return f4(f4(2) * f4(total * h))
    wanted = f4(wanted)
    low, p_low, high, p_high = f4(0), f4(0), f4(0), f4(0)
    while p_high < wanted:
        low, p_low, high = high, p_high, f4(high + f4(0.5))
        p_high = probability(high)
    x, p = high, p_high
    while abs(wanted - p) > f4(1e-5):
        x = f4(f4(f4(wanted - p_low) * high + f4(p_high - wanted) * low) / f4(p_high - p_low))
        p = probability(x)
        if p < wanted:
            low, p_low = x, p
        else:
            high, p_high = x, p
    return float(x)


KA = gauss_factor(PROB)


def lags(c, count):
    """(1/n) sum of c(j) c(j+k), k < count; 0 beyond n/2."""
    n = len(c)
    size = 1 << (2 * n).bit_length()
    spectrum = np.fft.rfft(c, size)
    products = np.fft.irfft(spectrum * spectrum.conj(), size)[:n] / n
    out = np.zeros(count)
    some = min(count, n // 2 + 1)
    out[:some] = products[:some]
    return out


def bartlett(R, n, m):
    k = np.arange(1, m)
    return R[0] / n + ((1 - k / m) * (2 / n) * R[1:m]).sum()


def dependent_variance(C, w):
    m = int(np.sqrt(max(len(c) for c in C)))
    own = [lags(c, m + 1) for c in C]
    average = sum(wi * R for wi, R in zip(w, own))
    total = 0.0
    for c, R, wi in zip(C, own, w):
        n = len(c)
        V = bartlett(average, n, m)
        if V < 0:
            V = bartlett(R, n, int(np.sqrt(n)))
        if V < 0:
            V = R[0] / n
        total += wi * wi * V
    return total


def weights(X):
    n = np.array([len(x) for x in X], dtype=float)
    return n / n.sum()


def ensemble_stats(X, many):
    w = weights(X)
    xm = np.array([x.mean() for x in X])
    xme = (w * xm).sum()
    C = [x - xme for x in X]
    xv = np.array([(c * c).sum() / (len(c) - 1) for c in C])
    xve = (w * xv).sum()
    if many:
        VarM, VarV = (w**2 * (xm - xme)**2).sum(), (w**2 * (xv - xve)**2).sum()
    else:
        VarM, VarV = dependent_variance(C, w), dependent_variance([c * c - xve for c in C], w)
    return {"mean": (xme, np.sqrt(VarM) * KA), "var": (xve, np.sqrt(VarV) * KA),
            "std": (np.sqrt(xve), np.sqrt(0.25 * VarV / xve) * KA if xve > 0 else 0.0)}


def envelope(R):
    a = np.abs(R)
    k = np.arange(1, len(a) - 1)
    k = k[(a[k - 1] < a[k]) & (a[k + 1] < a[k])]
    return k, a[k] / a[0]


def envelope_lag(R, cutoff):
    """None where the cut-off isn't reached."""
    k, v = envelope(R)
    for j in range(1, len(k)):
        if v[j] <= cutoff:
            d = v[j - 1] - v[j]
            lag = k[j] * (v[j - 1] - cutoff) / d + k[j - 1] * (cutoff - v[j]) / d if d else k[j]
            return min(max(lag, 0.0), len(R) - 1.0)
    return None


def average_lags(X):
    w = weights(X)
    xme = sum(wi * x.mean() for wi, x in zip(w, X))
    count = max(len(x) for x in X) // 2 + 1
    return sum(wi * lags(x - xme, count) for wi, x in zip(w, X))


def first_crossing(d):
    n = len(d)
    if n < 2:
        return None
    if d[0] * d[1] <= 0:
        return 2
    for i in range(1, n):
        if d[i] == 0:
            return i + 1
        if n <= i + 1:
            return None
        if d[i] * d[i + 1] <= 0:
            return i + 2
    return None


def half_cycles(X, t):
    """Record, step, amplitude, is it a top: of all half cycles about t."""
    out = []
    for record, x in enumerate(X):
        d = x - t
        j = first_crossing(d)
        if j is None or j >= len(d):
            continue
        above, a, ia = d[j - 1] > 0, abs(d[j - 1]), j
        for i in range(j, len(d)):
            if (above and d[i] < 0) or (not above and d[i] > 0):
                out.append((record, ia, a, above))
                above, a, ia = d[i] > 0, abs(d[i]), i + 1
            elif abs(d[i]) > a:
                a, ia = abs(d[i]), i + 1
    return out


def highest(peaks, N, factor, ndti):
    """Average of the highest 1/N and its half width; peaks are (record, step, value) in time order."""
    if N >= len(peaks):
        return 0.0, 0.0
    x = np.array([p[2] for p in peaks])
    count = int(len(x) / N + 0.5)
    threshold = np.sort(factor * x)[::-1][count - 1]
    kept = np.flatnonzero(factor * x >= threshold)[:count]
    average = x[kept].mean()
    clusters = []
    for i in kept:
        before = peaks[clusters[-1][-1]] if clusters else None
        if before and before[0] == peaks[i][0] and peaks[i][1] <= before[1] + ndti:
            clusters[-1].append(i)
        else:
            clusters.append([i])
    R = np.zeros(max(len(c) for c in clusters))
    for c in clusters:
        d = x[c] - average
        for k in range(len(c)):
            R[k] += (d[:len(c) - k] * d[k:]).sum() / count
    variance = R[0]
    for c in clusters:
        mc = int(np.sqrt(len(c)))
        variance += sum((1 - k / mc) * 2 * len(c) * R[k] / count for k in range(1, mc))
    if variance < 0:
        variance = R[0]
    return average, np.sqrt(variance / count) * KA


def ensemble_peaks(X, N):
    t = sum(wi * x.mean() for wi, x in zip(weights(X), X))
    R = average_lags(X)
    lag = envelope_lag(R, PEAK_CUTOFF)
    ndti = len(R) - 1 if lag is None else int(lag)
    cycles = half_cycles(X, t)
    return {"amp": highest([(r, i, a) for r, i, a, _ in cycles], N, 1, ndti),
            "top": highest([(r, i, t + a) for r, i, a, above in cycles if above], N, 1, ndti),
            "bot": highest([(r, i, t - a) for r, i, a, above in cycles if not above], N, -1, ndti)}


def round_axis(low, high, divisions):
    """In 4 bytes: samples on a limit of a bucket must fall on the same side."""
    low, high = f4(low), f4(high)
    if high < low:
        return tuple(f4(-v) for v in round_axis(-low, -high, divisions))
    r, middle = f4(high - low), f4(f4(0.5) * low + f4(0.5) * high)
    narrow = f4(f4(0.0001) * abs(middle))
    if r < narrow or not r > 0:
        narrow = narrow if r < narrow else f4(0.0001)
        return f4(middle - narrow), f4(middle + narrow)
    d = f4(r / f4(divisions))
    power = 10.0 ** np.floor(np.log10(float(d)))
    step_before = 10
    for entry in [7.5, 5, 4, 3, 2.5, 2, 1, 0.75, 0.5, 0.4, 0.3, 0.25, 0.2, 0.1]:
        if f4(d / f4(power)) > f4(entry):
            break
        step_before = entry
    step = f4(step_before * power)
    up = np.trunc(f4(f4(high / step) - f4(0.0001))) + 1 if high > 0 else np.trunc(f4(high / step))
    down = np.trunc(f4(low / step)) if low >= 0 else np.trunc(f4(f4(low / step) + f4(0.0001))) - 1
    return f4(f4(down) * step), f4(f4(up) * step)


def histogram(X, mode, overlay):
    every = np.concatenate(X)
    low, high = every.min(), every.max()
    if mode == 1:
        low, high = max(0, max(low, -high)), max(0, max(-low, high))
    elif mode == 2:
        low = max(0, low)
    low, high = round_axis(low, high, 20)
    width = f4(f4(high - low) / f4(BUCKETS))
    edges = np.array([f4(low + f4(f4(i) * width)) for i in range(BUCKETS + 1)], dtype=float)
    v = np.concatenate([x[(SKIP + 1 + np.arange(len(x))) % RATE == 0] for x in X])
    v = np.abs(v) if mode == 1 else v
    inside = v[(v >= edges[0]) & (v <= edges[-1])]
    bucket = np.maximum(np.searchsorted(edges, inside, side="left"), 1)
    count = np.bincount(bucket - 1, minlength=BUCKETS)
    mid, n = (edges[1:] + edges[:-1]) / 2, len(v)
    mean, var = v.mean(), ((v - v.mean())**2).mean()
    out = {"edges": edges, "mid": mid, "n": n, "count": count, "fit": [], "expected": np.zeros(BUCKETS)}
    if overlay == 0:
        return out
    if overlay == 1:
        f = np.full(BUCKETS, 1 / (edges[-1] - edges[0]))
    elif var <= 0:
        out["fit"] = {2: [mean, 0], 3: [mean, 0, 0, 0], 4: [0], 5: [0]}[overlay]
        return {**out, "chi2": 0.0}
    else:
        skew, excess = ((v - mean)**3).mean() / var**1.5, ((v - mean)**4).mean() / var**2 - 3
        u = (mid - mean) / np.sqrt(var)
        normal = np.exp(-u * u / 2) / np.sqrt(2 * np.pi * var)
        rate = 1 / np.sqrt(var)
        f = {2: normal,
             3: normal * (1 - (3 - u**2) * u * skew / 6 + (u**4 + 3 - 6 * u**2) * excess / 24),
             4: np.where(mid < 0, 0, mid / var * np.exp(-mid**2 / (2 * var))),
             5: np.where(mid < 0, 0, rate * np.exp(-rate * mid))}[overlay]
        out["fit"] = {2: [mean, var], 3: [mean, var, skew, excess], 4: [var], 5: [rate]}[overlay]
    e = np.diff(edges) * f
    some = e > 1e-45  # what 4 bytes hold
    return {**out, "expected": e, "chi2": (((count / n - e)[some])**2 / e[some]).sum()}


def upcrossings(X, mean, v, ndti):
    s = 1 if mean <= v else -1
    totals, independent = [], 0
    for x in X:
        at = np.flatnonzero((s * x[:-1] <= s * v) & (s * v < s * x[1:]))
        totals.append(len(at))
        independent += int((np.diff(at) >= ndti).sum()) + (1 if len(at) else 0)
    return [sum(totals), min(totals), max(totals), sum(totals) // len(X), independent]


def exceedances(X, times, v, option, ndep):
    """Total, independent, time beyond, list of (record, position, time)."""
    total, beyond, found = 0, 0.0, []
    up, down = option in (1, 2), option in (1, 3)
    low = -v if option == 1 else v
    for record, (x, t) in enumerate(zip(X, times), 1):
        inside = v if up and x[0] >= v else low if down and x[0] <= low else None
        tc, last = t[0], None
        for i in range(1, len(x)):
            a, b = x[i - 1], x[i]

            def when(level):
                return t[i - 1] + (level - a) / (b - a) * (t[i] - t[i - 1])
            if inside is not None:
                rising = up and inside == v
                if not (a >= inside > b if rising else a <= inside < b):
                    continue
                beyond += when(inside) - tc
                inside = None
            if up and a < v <= b:
                inside = v
            elif down and a > low >= b:
                inside = low
            else:
                continue
            tc = when(inside)
            total += 1
            if last is None or i + 1 >= last + ndep:
                last = i + 1
                found.append((record, i + 1, tc))
        if inside is not None:
            beyond += t[-1] - tc
    return total, len(found), beyond, found


def blocks(X, v, option, ndep):
    rows = []
    for record, x in enumerate(X, 1):
        n = len(x)
        nb = n // ndep if n > ndep else 1
        for j in range(nb):
            first, last = j * n // nb, (j + 1) * n // nb
            rows.append((len(rows) + 1, record, first + 1, last, x[first:last].min(), x[first:last].max()))
    hit = {1: lambda r: r[5] > v or r[4] < -v, 2: lambda r: r[5] > v, 3: lambda r: r[4] < v}[option]
    return rows, sum(map(hit, rows))


def segments(x):
    """Tops, bottoms and amplitudes between the crossings of the mean: the light family of the statistics table."""
    xm = x.mean()
    plus = x - xm >= 0
    at = np.flatnonzero(plus[1:] != plus[:-1]) + 1
    tops, bottoms = [], []
    for a, b in zip(at[:-1], at[1:]):
        value = x[a + np.argmax(np.abs(x[a:b] - xm))]
        (tops if value > xm else bottoms).append(value)
    return xm, np.sort(tops)[::-1], np.sort(bottoms)


def light_average(x, N):
    xm, tops, bottoms = segments(x)
    if not len(tops) or not len(bottoms):
        return [0.0, xm, xm, 0.0]
    top, bottom = [v[:int(len(v) / N + 0.5)].mean() if int(len(v) / N + 0.5) else xm for v in (tops, bottoms)]
    return [(top - bottom) / 2, top, bottom, top - bottom]


def between(x, t):
    xm = x.mean()
    up = np.flatnonzero((x[:-1] <= xm) & (xm < x[1:])) + 1
    down = np.flatnonzero((x[:-1] > xm) & (xm >= x[1:])) + 1
    tops = [i + np.argmax(x[i:down[down > i][0]]) for i in up if (down > i).any()]

    def average(steps):
        if len(steps) < 2:
            return xm
        a, b = steps[0], steps[-1]
        dt = np.diff(t[a:b + 1])
        return ((x[a:b] + x[a + 1:b + 1]) / 2 * dt).sum() / dt.sum()
    return [average(up), average(tops)]
