#!/usr/bin/env python3
"""Makes the reference figures of the distribution functions, tests/data/distribution/*.csv.

    tools/distribution_figures.py [--folder FOLDER] [FUNCTION...]

For each function 2,000 points in the bulk of its distribution and 2,000 in a tail, at random (fixed
seed) over the ranges that docs/accuracy.md states. Arguments have few digits, so that the double that a
test reads is the number meant here: figures are computed for that double. The arithmetic is mpmath's
with 50 digits; 20 are written. Needs python3-mpmath.
"""

import argparse
import math
import pathlib
import random
import sys

import mpmath
from mpmath import mp, mpf

POINTS = 2000
DIGITS = 50
SMALLEST = mpf(10) ** -300  # tails end where doubles do


def short(value, digits=6):
    """The double next to `value` that has few decimal digits."""
    return float(f"{value:.{digits}g}")


# --- The functions, from their definitions ------------------------------------------------------

def gamma_p(a, x):
    """Lower incomplete gamma ratio by its positive series."""
    a, x = mpf(a), mpf(x)
    return mpmath.exp(a * mpmath.log(x) - x - mpmath.loggamma(a + 1)) * mpmath.hyp1f1(1, a + 1, x)


def gamma_q(a, x):
    lower = gamma_p(a, x)
    if lower < mpf("0.9"):
        return 1 - lower
    return mpmath.gammainc(mpf(a), mpf(x), mpmath.inf, regularized=True)


def beta_small(x, y, a, b):
    """I_x(a, b) for x below the mean, y = 1 - x, by its positive series."""
    front = mpmath.exp(a * mpmath.log(x) + b * mpmath.log(y) + mpmath.loggamma(a + b)
                       - mpmath.loggamma(a + 1) - mpmath.loggamma(b))
    return front * mpmath.hyp2f1(a + b, 1, a + 1, x)


def beta_both(x, y, a, b):
    """(I_x(a, b), I_y(b, a)) with y = 1 - x."""
    if x * (a + b + 2) < a + 1:
        lower = beta_small(x, y, a, b)
        return lower, 1 - lower
    upper = beta_small(y, x, b, a)
    return 1 - upper, upper


def normal(z):
    return mpmath.erfc(-z / mpmath.sqrt(2)) / 2


def student(t, df):
    """(P(T <= t), P(T > t))."""
    t, df = mpf(t), mpf(df)
    square = t * t
    tail = beta_both(df / (df + square), square / (df + square), df / 2, mpf(1) / 2)[0] / 2
    return (tail, 1 - tail) if t < 0 else (1 - tail, tail)


def fisher(x, df1, df2):
    x, df1, df2 = mpf(x), mpf(df1), mpf(df2)
    below = df1 * x / (df1 * x + df2)
    return beta_both(below, df2 / (df1 * x + df2), df1 / 2, df2 / 2)


def log_choose(n, k):
    return mpmath.loggamma(mpf(n) + 1) - mpmath.loggamma(mpf(k) + 1) - mpmath.loggamma(mpf(n) - k + 1)


def binomial(x, n, p):
    p = mpf(p)
    return mpmath.exp(log_choose(n, x)) * p ** int(x) * (1 - p) ** int(n - x)


def binomial_cdf(x, n, p):
    p = mpf(p)
    term = (1 - p) ** int(n)
    total = term
    for i in range(1, int(x) + 1):
        term = term * (n - i + 1) / i * p / (1 - p)
        total += term
    return total


def hypergeometric(x, population, n, k):
    return mpf(math.comb(k, x) * math.comb(population - k, n - x)) / math.comb(population, n)


def hypergeometric_cdf(x, population, k, n):
    first = max(0, n + k - population)
    count = sum(math.comb(k, i) * math.comb(population - k, n - i) for i in range(first, x + 1))
    return mpf(count) / math.comb(population, n)


# --- Where the points lie -----------------------------------------------------------------------

class Draw:
    def __init__(self, seed):
        self.random = random.Random(seed)

    def uniform(self, low, high):
        return self.random.uniform(low, high)

    def spread(self, low, high):
        """Uniform on the logarithmic scale."""
        return short(math.exp(self.random.uniform(math.log(low), math.log(high))))

    def whole(self, low, high):
        return int(round(self.spread(low, high)))


def gamma_point(shape, z):
    """About the point of the gamma distribution that lies z standard deviations out."""
    root = 1 - 1 / (9 * shape) + z / (3 * math.sqrt(shape))
    return shape * root ** 3 if root > 0.05 else shape * math.exp(3 * (z + 2))


def chi_arguments(draw, lower_tail, tail):
    df = draw.spread(0.1, 1000)
    z = draw.uniform(-2, 2) if not tail else (-1 if lower_tail else 1) * draw.uniform(2, 8)
    x = short(2 * gamma_point(df / 2, z))
    return x, df


def gamma_arguments(draw, tail):
    shape, rate = draw.spread(0.05, 500), draw.spread(0.01, 100)
    z = draw.uniform(-8, -2) if tail else draw.uniform(-2, 2)
    return short(gamma_point(shape, z) / rate), shape, rate


def t_arguments(draw, sign, tail):
    df = draw.spread(0.5, 1000)
    if tail:
        return sign * draw.spread(3, 100), df
    return short(draw.uniform(-3, 3)), df


def f_arguments(draw, sign, tail):
    df1, df2 = draw.spread(0.5, 500), draw.spread(0.5, 500)
    x = math.exp(sign * draw.uniform(1, 5)) if tail else math.exp(draw.uniform(-1, 1))
    return short(x), df1, df2


def beta_arguments(draw, tail):
    a, b = draw.spread(0.1, 500), draw.spread(0.1, 500)
    mean = a / (a + b)
    sd = math.sqrt(a * b / (a + b + 1)) / (a + b)
    if tail:
        x = mean * math.exp(-draw.uniform(0.5, 5))
    else:
        x = mean + draw.uniform(-2, 2) * sd
    return short(x), a, b


def binomial_arguments(draw, tail):
    n = draw.whole(1, 1000)
    p = short(draw.uniform(0.01, 0.99), 4)
    sd = math.sqrt(n * p * (1 - p))
    low, high = (0, n * p - 3 * sd) if tail else (n * p - 3 * sd, n * p + 3 * sd)
    return math.floor(draw.uniform(low, high)) if low < high else -1, n, p


def negative_binomial_arguments(draw, tail):
    r, p = draw.spread(1, 500), short(draw.uniform(0.01, 0.99), 4)
    mean = r * (1 - p) / p
    sd = math.sqrt(r * (1 - p)) / p
    low, high = (mean + 3 * sd, mean + 12 * sd) if tail else (mean - 3 * sd, mean + 3 * sd)
    return math.floor(draw.uniform(low, high)), r, p


def hypergeometric_arguments(draw, largest, tail):
    population = draw.whole(10, largest)
    k = max(1, min(population, draw.whole(1, population)))
    n = max(1, min(population, draw.whole(1, population)))
    low, high = max(0, n + k - population), min(n, k)
    mean = n * k / population
    if tail:
        x = draw.random.randint(low, max(low, math.floor(mean)))
    else:
        sd = math.sqrt(mean * (1 - k / population) * (population - n) / max(population - 1, 1))
        x = round(draw.uniform(mean - 3 * sd, mean + 3 * sd))
    return min(max(x, low), high), population, k, n


FUNCTIONS = {
    "CdfStdNorm": ("x", lambda d, tail: (short(d.uniform(-37, -3) if tail else d.uniform(-3, 3)),),
                   lambda x: normal(mpf(x))),
    "CdfNorm": ("x,mean,sd", lambda d, tail: (lambda mean, sd: (short(
        mean + sd * (d.uniform(-30, -3) if tail else d.uniform(-3, 3))), mean, sd))(
            short(d.uniform(-100, 100), 4), d.spread(0.01, 100)),
                lambda x, mean, sd: normal((mpf(x) - mean) / mpf(sd))),
    "CdfChi": ("x,df", lambda d, tail: chi_arguments(d, True, tail),
               lambda x, df: gamma_p(mpf(df) / 2, mpf(x) / 2)),
    "SigChi": ("x,df", lambda d, tail: chi_arguments(d, False, tail),
               lambda x, df: gamma_q(mpf(df) / 2, mpf(x) / 2)),
    "CdfGam": ("x,shape,rate", gamma_arguments,
               lambda x, shape, rate: gamma_p(shape, mpf(x) * mpf(rate))),
    "CdfT": ("x,df", lambda d, tail: t_arguments(d, -1, tail), lambda x, df: student(x, df)[0]),
    "SigT": ("x,df", lambda d, tail: t_arguments(d, 1, tail), lambda x, df: student(x, df)[1]),
    "CdfF": ("x,df1,df2", lambda d, tail: f_arguments(d, -1, tail), lambda *a: fisher(*a)[0]),
    "SigF": ("x,df1,df2", lambda d, tail: f_arguments(d, 1, tail), lambda *a: fisher(*a)[1]),
    "CdfBeta": ("x,a,b", beta_arguments,
                lambda x, a, b: beta_both(mpf(x), 1 - mpf(x), mpf(a), mpf(b))[0]),
    "CdfBin": ("x,n,p", binomial_arguments, binomial_cdf),
    "CDFHyper": ("x,population,k,n", lambda d, tail: hypergeometric_arguments(d, 1000, tail),
                 hypergeometric_cdf),
    "PdfBin": ("x,n,p", binomial_arguments, binomial),
    "PdfNegBin": ("x,r,p", negative_binomial_arguments, lambda x, r, p: mpmath.exp(
        log_choose(mpf(x) + mpf(r) - 1, x) + mpf(r) * mpmath.log(mpf(p)) + x * mpmath.log(1 - mpf(p)))),
    "PdfHyper": ("x,population,n,k", lambda d, tail: (lambda x, m, k, n: (x, m, n, k))(
        *hypergeometric_arguments(d, 20000, tail)), hypergeometric),
    "PdfGamma": ("x,shape,rate", gamma_arguments, lambda x, shape, rate: mpmath.exp(
        (mpf(shape) - 1) * mpmath.log(mpf(x) * mpf(rate)) + mpmath.log(mpf(rate)) - mpf(x) * mpf(rate)
        - mpmath.loggamma(mpf(shape)))),
    "PdfNormal": ("x,mean,sd", lambda d, tail: FUNCTIONS["CdfNorm"][1](d, tail),
                  lambda x, mean, sd: mpmath.npdf(mpf(x), mpf(mean), mpf(sd))),
    "PdfNormalStandard": ("x", lambda d, tail: (short(
        d.uniform(3, 37) if tail else d.uniform(-3, 3)),), lambda x: mpmath.npdf(mpf(x))),
    "PdfT": ("x,df", lambda d, tail: t_arguments(d, 1, tail), lambda x, df: mpmath.exp(
        mpmath.loggamma((mpf(df) + 1) / 2) - mpmath.loggamma(mpf(df) / 2)
        - mpmath.log(mpf(df) * mp.pi) / 2
        - (mpf(df) + 1) / 2 * mpmath.log(1 + mpf(x) * mpf(x) / mpf(df)))),
    "zelvdnlgam": ("x", lambda d, tail: (d.spread(10, 1e6) if tail else short(d.uniform(0.001, 10)),),
                   lambda x: mpmath.loggamma(mpf(x))),
}


def inside(name, point):
    """False for a point where the figure would be 0 or 1 by definition."""
    x = point[0]
    if name == "CdfBeta":
        return 0 < x < 1
    if name == "CdfBin":
        return 0 <= x < point[1]
    if name == "PdfBin":
        return 0 <= x <= point[1]
    return name != "PdfNegBin" or x >= 0


def number(value):
    return str(value) if isinstance(value, int) else repr(value).removesuffix(".0")


def write(name, folder):
    arguments, place, function = FUNCTIONS[name]
    draw = Draw(f"{name} 1")
    with open(folder / f"{name}.csv", "w", encoding="ascii") as file:
        file.write(f"# tools/distribution_figures.py, mpmath {mpmath.__version__}, {DIGITS} digits\n")
        file.write(f"region,{arguments},value\n")
        for region in ("bulk", "tail"):
            left = POINTS
            while left:
                point = place(draw, region == "tail")
                if not inside(name, point):
                    continue
                value = function(*point)
                if name != "zelvdnlgam" and not abs(value) > SMALLEST:
                    continue
                text = mpmath.nstr(value, 20, min_fixed=-5, max_fixed=10)
                file.write(",".join([region] + [number(a) for a in point] + [text]) + "\n")
                left -= 1
    print(name, file=sys.stderr, flush=True)


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n")[0])
    parser.add_argument("--folder", type=pathlib.Path, default=pathlib.Path(__file__).resolve().parent
                        .parent / "tests" / "data" / "distribution")
    parser.add_argument("functions", nargs="*", default=list(FUNCTIONS))
    options = parser.parse_args()
    mp.dps = DIGITS
    options.folder.mkdir(parents=True, exist_ok=True)
    for name in options.functions:
        write(name, options.folder)


if __name__ == "__main__":
    main()
