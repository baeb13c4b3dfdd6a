#!/usr/bin/env python3
"""Makes the first 1,000 draws of each random generator and variate, tests/data/random/*.txt.

    tools/random_golden.py [--check] [--folder FOLDER]

Everything here is written from the published algorithms, in plain Python: nothing of the library is
called. One number a line; doubles with as many digits as bring them back exactly. Logarithms and
exponentials are those of the C library that Python uses. --check compares with the files instead of
writing them, and ends with 1 where they differ.
"""

import argparse
import math
import pathlib
import sys

DRAWS = 1000
MASK = 0xFFFFFFFF


# --- Uniform numbers ----------------------------------------------------------------------------

class Twister:
    """MT19937, Matsumoto and Nishimura (1998), initialisation of 2002."""

    N, M = 624, 397

    def __init__(self, seed):
        self.mt = [seed & MASK]
        for i in range(1, self.N):
            before = self.mt[-1]
            self.mt.append((1812433253 * (before ^ (before >> 30)) + i) & MASK)
        self.at = self.N

    @classmethod
    def by_array(cls, key):
        self = cls(19650218)
        mt, n = self.mt, cls.N
        i, j = 1, 0
        for _ in range(max(n, len(key))):
            mt[i] = ((mt[i] ^ ((mt[i - 1] ^ (mt[i - 1] >> 30)) * 1664525)) + key[j] + j) & MASK
            i, j = i + 1, (j + 1) % len(key)
            if i >= n:
                mt[0], i = mt[n - 1], 1
        for _ in range(n - 1):
            mt[i] = ((mt[i] ^ ((mt[i - 1] ^ (mt[i - 1] >> 30)) * 1566083941)) - i) & MASK
            i += 1
            if i >= n:
                mt[0], i = mt[n - 1], 1
        mt[0] = 0x80000000
        return self

    @classmethod
    def by_double(cls, s):
        if 0 <= s <= 2147483647.0 and s == math.floor(s):
            return cls(int(s))
        a, n = abs(s), 0
        large = a >= 1
        while a != 0 and not 0.5 <= a < 1:
            a *= 0.5 if large else 2.0
            n += 1
        a *= 67108864.0
        high = int(a)
        low = int((a - high) * 134217728.0)
        first = (int(s < 0) + 2 * (2 * n + int(abs(s) >= 1))) * 2 + int(s == 0)
        return cls.by_array([first, high, low])

    def word(self):
        if self.at >= self.N:
            mt, n, m = self.mt, self.N, self.M
            for k in range(n):
                y = (mt[k] & 0x80000000) | (mt[(k + 1) % n] & 0x7FFFFFFF)
                mt[k] = mt[(k + m) % n] ^ (y >> 1) ^ (0x9908B0DF if y & 1 else 0)
            self.at = 0
        y = self.mt[self.at]
        self.at += 1
        y ^= y >> 11
        y ^= (y << 7) & 0x9D2C5680
        y ^= (y << 15) & 0xEFC60000
        return y ^ (y >> 18)

    def real_open(self):
        return (self.word() + 0.5) * 2.3283064365386963e-10

    def res53(self):
        a = self.word() >> 5
        b = self.word() >> 6
        return (a * 67108864.0 + b) * 1.1102230246251565e-16


class Congruential:
    """Fishman and Moore (1986), multiplier 397204094."""

    def __init__(self, state):
        self.state = state

    def next(self):
        self.state = self.state * 397204094 % 2147483647 or 1
        return self.state * 4.656612873077393e-10


# --- Variates; u() gives the next uniform number ------------------------------------------------

XI = 2.216035867166471


def density_gap(t):
    if t == 0:
        return 0.0
    return max(0.0, math.exp(-t * t / 2) * 0.3989422804014327
               - max(0.0, XI - abs(t)) * 0.180025191068563)


def normal(u):
    """Kinderman and Ramage (1976)."""
    first = u()
    if first < 0.884070402298758:
        return (u() + first * 1.13113163544418) * XI - XI
    if first >= 0.973310954173898:
        while True:
            c = u()
            x = 2.455407482284127 - math.log(u())
            if c * c * x <= 2.455407482284127:
                t = math.sqrt(2 * x)
                return -t if first >= 0.986655477086949 else t
    while True:
        a = u()
        b = u()
        if first < 0.911312780288703:
            t = 0.479727404222441 - min(a, b) * 0.59550713801594
            if max(a, b) > 0.805577924423817:
                if t < 0 or abs(a - b) * 0.053377549506886 > density_gap(t):
                    continue
        elif first < 0.958720824790463:
            t = min(a, b) * 1.10547366102207 + 0.479727404222441
            if (max(a, b) > 0.87283497667179
                    and abs(a - b) * 0.049264496373128 > density_gap(t)):
                continue
        else:
            t = XI - min(a, b) * 0.63083480192196
            if (max(a, b) > 0.755591531667601
                    and abs(a - b) * 0.034240503750111 > density_gap(t)):
                continue
        return -t if a >= b else t


def positive(u):
    while True:
        v = u()
        if v > 0:
            return v


def limited_exp(e):
    return 0.0 if e < -708.0 else math.exp(e)


def beta(u, a, b):
    if a == 1 and b == 1:
        return u()
    if b == 1:
        v = u()
        return 0.0 if v <= 0 else limited_exp(math.log(v) / a)
    if a == 1:
        v = u()
        return 1.0 if v <= 0 else 1 - limited_exp(math.log(v) / b)
    for _ in range(5000):
        if a > 1 and b > 1:
            a1, b1 = a - 1, b - 1
            s = a1 + b1
            big, mode, h = s * math.log(s), a1 / s, 0.5 / math.sqrt(s)
            x = -1.0
            while not 0 <= x <= 1:
                z = normal(u)
                x = z * h + mode
            w = (b1 * math.log((1 - x) / b1) if x < 1 else -math.inf) \
                + (a1 * math.log(x / a1) if x > 0 else -math.inf) + big + 0.5 * z * z
            if w >= math.log(positive(u)):
                return x
        else:
            x = limited_exp(math.log(positive(u)) / a)
            y = limited_exp(math.log(positive(u)) / b)
            if 0 < x + y <= 1:
                return x / (x + y)
    sys.exit(f"no beta variate for {a}, {b}: choose other shapes")


def binomial(u, n, p):
    """Relles (1972)."""
    if n <= 0 or p <= 0:
        return 0.0
    m, count, lo, w, q = int(n), 0, 0.0, 1.0, p
    while m >= 100:
        if m % 2 == 0:
            m -= 1
            count += q >= u()
        i = (m + 1) // 2
        t = beta(u, float(i), float(i)) * w
        s = t + lo
        if p >= s:
            lo, w = s, w - t
            q = (p - s) / w
            count += i
        else:
            w = t
            q = (p - lo) / t
        m = i - 1
    if 0 < q < 1:
        return float(count + sum(q >= u() for _ in range(m)))
    return float(count + m if q == 1 else count)


def gamma(u, a, b):
    if a == 1:
        return -math.log(1 - u()) / b
    if a > 1:
        while True:
            x = -math.log(1 - u())
            v = math.log(1 - u())
            if (math.log(x) + 1 - x) * (a - 1) >= v:
                return x * a / b
    e = 2.718281828459045
    c = (a + e) / e
    while True:
        p = c * positive(u)
        if p <= 1:
            h = math.log(p) / a
            x = 0.0 if h < -708.39 else math.exp(h)
            if math.exp(-x) >= u():
                return x / b
        else:
            y = -math.log((c - p) / a)
            if y > 0 and math.log(y) * (a - 1) >= math.log(1 - u()):
                return y / b


def chi_square(u, df):
    return gamma(u, df / 2, 0.5)


# --- Matrices -----------------------------------------------------------------------------------

def cholesky(s):
    n = len(s)
    low = [[0.0] * n for _ in range(n)]
    for i in range(n):
        for j in range(i + 1):
            rest = s[i][j] - sum(low[i][k] * low[j][k] for k in range(j))
            low[i][j] = math.sqrt(rest) if i == j else rest / low[j][j]
    return low


def times_transpose(low):
    n = len(low)
    return [[sum(low[i][k] * low[j][k] for k in range(n)) for j in range(n)] for i in range(n)]


def product(a, b):
    return [[sum(x * y for x, y in zip(row, column)) for column in zip(*b)] for row in a]


def packed(s):
    return [s[i][j] for i in range(len(s)) for j in range(i + 1)]


COV = [[4.0, 1.0, -0.5], [1.0, 2.0, 0.25], [-0.5, 0.25, 1.0]]


def normal_vector(u):
    means, sigma = [1.0, -2.0, 0.5], math.sqrt(2.25)
    low = cholesky(COV)
    z = [normal(u) for _ in means]
    return [sum(low[i][k] * z[k] for k in range(i + 1)) * sigma + means[i] for i in range(3)]


def wishart(u, p, m, scale):
    low = [[0.0] * p for _ in range(p)]
    for i in range(p):
        low[i][i] = math.sqrt(chi_square(u, m - p))
        for j in range(i):
            low[i][j] = normal(u)
    if scale is not None:  # C B B' C' with C the factor of the scale
        low = product(cholesky(scale), low)
    return packed(times_transpose(low))


# --- The files ----------------------------------------------------------------------------------

def streams():
    """name -> the draws, in groups of 1 or more numbers."""
    key = [0x123, 0x234, 0x345, 0x456]
    yield "twister_words_seed_34567", Twister(34567).word
    yield "twister_words_by_array", Twister.by_array(key).word
    yield "urandom_twister_34567", Twister(34567).real_open
    yield "urandom_portable_34567", Congruential(34567).next
    yield "rng_congruential_state_1", Congruential(1).next
    yield "rng_congruential_seed_5", Congruential(5).next
    for seed in (5489.0, 7.0, 1.5, -1.5):
        yield f"rng_twister_seed_{seed:g}", Twister.by_double(seed).res53

    def on(make, draw):
        u = make()
        return lambda: draw(u)

    def congruential():
        return Congruential(1).next

    def twister():
        return Twister.by_double(11.0).res53

    def facade():
        return Twister(34567).real_open

    yield "rng_normal_10_2", on(congruential, lambda u: normal(u) * 2.0 + 10.0)
    yield "rng_normal_twister", on(twister, normal)
    for a, b in ((1, 1), (2, 1), (1, 3), (0.5, 0.7), (2.5, 4), (30, 20), (1.2, 0.4), (0.02, 3)):
        yield f"rng_beta_{a}_{b}", on(congruential, lambda u, a=a, b=b: beta(u, float(a), float(b)))
    yield "rng_beta_twister_2.5_4", on(twister, lambda u: beta(u, 2.5, 4.0))
    for n, p in ((10, 1), (99, 0.3), (100, 0.5), (200, 0.3), (5000, 0.8), (1000000, 0.01)):
        yield (f"rng_binomial_{n}_{p}",
               on(congruential, lambda u, n=n, p=p: binomial(u, float(n), float(p))))
    yield "rng_binomial_twister_200_0.3", on(twister, lambda u: binomial(u, 200.0, 0.3))

    yield "values_uniform_-1_3", on(facade, lambda u: u() * 4.0 + -1.0)
    yield "values_normal_3_4", on(facade, lambda u: normal(u) * 2.0 + 3.0)
    for df in (0.5, 1, 2, 7):
        yield f"values_chi_{df}", on(facade, lambda u, df=df: chi_square(u, float(df)))
    for a, b in ((0.3, 2), (1, 2), (2.5, 0.1), (40, 3), (1000, 5), (250000, 1)):
        yield f"values_gamma_{a}_{b}", on(facade, lambda u, a=a, b=b: gamma(u, float(a), float(b)))
    yield "values_uniform_vector", on(facade, lambda u: [u() * 1.0 + 0.0, u() * 3.0 + -2.0])
    yield "values_normal_vector_standard", on(facade, lambda u: [normal(u) for _ in range(4)])
    yield "values_normal_vector", on(facade, normal_vector)
    yield "values_wishart_2_5", on(facade, lambda u: wishart(u, 2, 5.0, None))
    yield "values_wishart_3_7.5_scaled", on(facade, lambda u: wishart(u, 3, 7.5, COV))


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--check", action="store_true")
    parser.add_argument("--folder", type=pathlib.Path,
                        default=pathlib.Path(__file__).resolve().parent.parent / "tests/data/random")
    arguments = parser.parse_args()
    arguments.folder.mkdir(parents=True, exist_ok=True)
    different = []
    for name, draw in streams():
        lines = []
        for _ in range(DRAWS):
            drawn = draw()
            lines.append(" ".join(map(repr, drawn)) if isinstance(drawn, list) else repr(drawn))
        text = "\n".join(lines) + "\n"
        path = arguments.folder / f"{name}.txt"
        if not arguments.check:
            path.write_text(text)
        elif not path.exists() or path.read_text() != text:
            different.append(name)
    if different:
        sys.exit("different: " + " ".join(different))


if __name__ == "__main__":
    main()
