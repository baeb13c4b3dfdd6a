/// The incomplete gamma and beta functions written down step by step, without a thought for speed:
/// what the library's quick ways are compared with. Each tells the way it went.
#pragma once

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>

#include "math/distribution/special_functions.h"

namespace step_by_step {

inline double Bounded(double e) {
  return e < -708.0 ? 0.0 : std::exp(e);
}

/// Finite x and a above 0.
inline double IncompleteGamma(double x, double a, bool lower, std::string & way) {
  using QVMath_940::dnlgam;
  using QVMath_940::prbnrm;
  if (a == 1.0) {
    way = "closed form";
    return lower ? 1.0 - Bounded(-x) : Bounded(-x);
  }
  bool approximate = false;
  if (x <= 1.0 || a >= x) {
    way = "series";
    const double l = std::log10(x / (a + 1.0));
    if (l == 0.0) {
      way += ": ratio 1";
      approximate = true;
    } else {
      double r = std::log10(1e-14) / l;
      if (r > 0.0) {
        r = (2.0 * std::sqrt(r) + 10.0) * (2.0 * std::sqrt(r) + 10.0);
        if (r >= 2147483647.0) {
          way += ": too many terms";
          approximate = true;
        }
      }
    }
    if (!approximate) {
      const double arg = a * std::log(x) - (x + dnlgam(a + 1.0));
      double c = 1.0;
      double s = 1.0;
      double ap = a;
      do {
        ap = ap + 1.0;
        c = c * x / ap;
        s = s + c;
      } while (!(c < 1e-14));
      const double e = arg + std::log(s);
      if (!(e > 0.0)) return lower ? Bounded(e) : 1.0 - Bounded(e);
      way += ": above 1";
    }
  } else {
    way = "fraction";
    if (4.0 * std::log(x) >= 709.0) {
      way += ": x too large";
    } else {
      const double arg = a * std::log(x) - (x + dnlgam(a));
      double shape = 1.0 - a;
      double b = shape + x + 1.0;
      double term = 0.0;
      double pn[7] = {0.0, 1.0, x, x + 1.0, x * b, 0.0, 0.0};
      double g = pn[3] / pn[4];
      for (;;) {
        shape += 1.0;
        b += 2.0;
        term += 1.0;
        const double an = shape * term;
        pn[5] = b * pn[3] - an * pn[1];
        pn[6] = b * pn[4] - an * pn[2];
        if (std::fabs(pn[6]) > 0.0) {
          const double rn = pn[5] / pn[6];
          const bool settled = std::fabs(g - rn) <= std::min(1e-14, 1e-14 * rn);
          g = rn;
          if (settled) break;
        }
        for (int i = 1; i <= 4; ++i)
          pn[i] = pn[i + 2];
        if (std::fabs(pn[5]) >= 1.34e154) {
          for (int i = 1; i <= 4; ++i)
            pn[i] /= 1.34e154;
        }
      }
      const double e = arg + std::log(g);
      if (!(e > 0.0)) return lower ? 1.0 - Bounded(e) : Bounded(e);
      way += ": above 1";
    }
  }
  if (!lower && a >= 0.5) {
    way += ", Peizer-Pratt";
    const double v = (a - 0.5) / x;
    double h = 0.0;
    if (v == 0.0) {
      h = std::sqrt(2.0 / x);
    } else if (v == 1.0) {
      h = std::sqrt(1.0 / x);
    } else {
      const double w = v * std::log(v) + 1.0 - v;
      h = std::sqrt(2.0 * w / x) / std::fabs(1.0 - v);
    }
    const double z = (0.022 / a + a - x - 1.0 / 3.0) * h;
    return z != z ? 0.5 : prbnrm(z);
  }
  way += ", Wilson-Hilferty";
  double z = 0.0;
  if (x == a) {
    z = 1.0 / (3.0 * std::sqrt(a));
  } else {
    const double c = std::log(x / a) / 3.0;
    z = (1.0 / (9.0 * a) + Bounded(c) - 1.0) * 3.0 * std::sqrt(a);
  }
  return prbnrm(lower ? z : -z);
}

/// 0 < x < 1, a and b above 0.
inline double IncompleteBeta(double x, double a, double b, std::string & way) {
  using QVMath_940::cbtaux;
  using QVMath_940::dnlgam;
  using QVMath_940::prbnrm;
  constexpr double epsilon = std::numeric_limits<double>::epsilon();
  way = "closed form";
  if (a == 1.0 && b == 1.0) return x;
  if (a == 1.0) return 1.0 - Bounded(b * std::log(1.0 - x));
  if (b == 1.0) return Bounded(a * std::log(x));
  double y = x;
  double c = 1.0 - x;
  double p = a;
  double q = b;
  bool direct = true;
  const auto swap = [&] {
    std::swap(y, c);
    std::swap(p, q);
    direct = !direct;
  };
  if (a <= 1.0) swap();
  double s = 1.0;
  bool found = false;
  way = "";
  if (a <= 1.0 || b <= 1.0) {
    way = "series";
    double t = 1.0;
    for (int i = 0; i <= 10000; ++i) {
      t = t * ((i + a + b) / (i + p + 1.0)) * y;
      s = s + t;
      if (std::fabs(t) < 1e-15) {
        found = true;
        break;
      }
    }
    if (!found) way += ", ";
  }
  if (!found) {
    way += "fraction";
    if (y >= (p + 1.0) / (a + b + 2.0)) swap();
    const double tolerance = 10.0 * std::max(1.0, a + b) * epsilon;
    double am = 1.0;
    double bm = 1.0;
    double az = 1.0;
    double bz = 1.0 - ((a + b) / (p + 1.0)) * y;
    s = 1.0 / bz;
    for (int m = 1; m <= 10000; ++m) {
      const double d = ((q - m) / (p + 2.0 * m - 1.0)) * (m / (p + 2.0 * m)) * y;
      const double ap = az + d * am;
      const double bp = bz + d * bm;
      const double d2 = -((p + q + m) / (p + 2.0 * m + 1.0)) * ((p + m) / (p + 2.0 * m)) * y;
      const double app = ap + d2 * az;
      const double bpp = bp + d2 * bz;
      am = ap;
      bm = bp;
      az = app;
      bz = bpp;
      if (bpp != 0.0) {
        am = ap / bpp;
        bm = bp / bpp;
        az = app / bpp;
        bz = 1.0;
        if (az == 0.0 && s == 0.0) found = true;
        if (az != 0.0 && s != 0.0 && (az < 0.0) == (s < 0.0)) {
          const double u = std::max(std::fabs(az), std::fabs(s));
          if (std::fabs(std::fabs(az) - std::fabs(s)) / u <= tolerance) found = true;
        }
      }
      s = az;
      if (found) break;
    }
  }
  if (!found) {
    way += ", Peizer-Pratt";
    const double n = a + b - 1.0;
    const double v =
        (1.0 + y * cbtaux((p - 0.5) / n) + c * cbtaux((q - 0.5) / n)) / ((n + 1.0 / 6.0) * y * c);
    const double z = v > 0.0 ? std::sqrt(v) * ((y / q - c / p + (y - 0.5) / (a + b)) / 50.0 +
                                               (y - p / n) * n + (y + 1.0) / 3.0)
                             : 0.0;
    return prbnrm(direct ? z : -z);
  }
  double value = 0.0;
  if (s > 0.0) {
    value = Bounded(dnlgam(a + b) - dnlgam(p + 1.0) - dnlgam(q) + q * std::log(c) +
                    p * std::log(y) + std::log(s));
  }
  return direct ? value : 1.0 - value;
}

}  // namespace step_by_step
