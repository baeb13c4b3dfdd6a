/// Probability distributions: cumulative functions, upper tails, densities, quantiles, non-central
/// functions, and two functions on grouped data.
///
///     long status = 0;
///     double p = 2.0 * QVDistFun::SigT(std::fabs(t), df);  // two-sided t test
///     double q = QVDistFun::SigF(f, df1, df2);             // F test
///     double b = QVDistFun::CdfBin(3, 10, 0.25, status);   // P(X <= 3), 10 trials
///     if (QVCommon_940::QVMV::IsMissing(b)) ...            // status tells why
///
/// Failure: a result that cannot be given is the missing value (`QVMV`), never a NaN and never an
/// exception. A NaN argument is always a bad argument. Functions with a status set it to 0 on
/// entry: 0 success, 1 an argument out of its domain, 2 a failure further in, 3 (`CdfBin`) a number
/// of trials that is not whole. Test for the missing value before you calculate with a result.
///
/// Every call ends, whatever the bits of its arguments: none takes above some 30 milliseconds, none
/// above 0.1 while the arguments stay below a million.
///
/// Accuracy: "error" at a function is its largest relative error over the points of
/// docs/accuracy.md, bulk and tail, as accuracy_test.cpp asserts it. It grows with the shapes,
/// since the factor of the sums comes from logarithms of gamma functions: by some 1e-15 times the
/// shape. From shapes of 1e11 on the sums give way to normal approximations.
///
/// Thread-safe: there is no state.
#pragma once

#include <vector>

#include "QVExport.h"

namespace QVMath_940 {

class QVCOMMON_API QVDistFun {
 public:
  // --- Cumulative functions, P(X <= x) -----------------------------------------------------------

  /// Beta distribution with shapes a and b. Error: 7e-12.
  ///
  /// Domain: a > 0, b > 0; otherwise missing. 0 for x <= 0 and 1 from 1 on.
  /// Method: power series when a shape is at most 1, otherwise a continued fraction; the normal
  /// approximation of Peizer and Pratt where that does not settle in 10000 rounds.
  static double CdfBeta(double x, double a, double b);

  /// Binomial distribution: n trials with probability p. x is floored. Error: 3e-12.
  ///
  /// Domain: n whole, otherwise status 3; n >= 1 and 0 <= p <= 1, otherwise status 1. An infinite n
  /// is not whole. Status 2 above n = 2.5e305.
  /// Method: the terms summed outward from the mode; the normal approximation of Peizer and Pratt
  /// where the first term is below exp(-708) or the sum too long.
  static double CdfBin(double x, double n, double p, long & status);

  /// Chi-square distribution. Error: 9e-13.
  ///
  /// Domain: df > 0, otherwise missing; 0 for x <= 0.
  /// Method: the incomplete gamma function of AS 239.
  static double CdfChi(double x, double df);

  /// F distribution. Error: 6e-12.
  ///
  /// Domain: df1 > 0, df2 > 0, otherwise missing; 0 for x <= 0.
  /// Method: incomplete beta function from the side of the smaller probability. Beware: df1 = 1
  /// goes through Student's t as 2 P(T <= sqrt x) - 1, whose small values lose relative accuracy.
  static double CdfF(double x, double df1, double df2);

  /// Gamma distribution with density proportional to x^(shape - 1) exp(-rate x). Error: 1e-12.
  ///
  /// Domain: shape > 0, rate > 0, otherwise missing; 0 for x <= 0.
  static double CdfGam(double x, double shape, double rate);

  /// Normal distribution. Error: 3e-15 within 3 standard deviations, 3e-13 down to -30.
  ///
  /// Domain: sd > 0, otherwise missing; missing also where (x - mean) / sd is a NaN.
  static double CdfNorm(double x, double mean, double sd);

  /// Standard normal distribution. Error: 3e-15 for |x| <= 3, 4e-13 down to -37.
  ///
  /// The lower half keeps its relative accuracy down to 2e-308, below which it is 0 (x = -37.52).
  /// The upper half is computed as a number near 1 and reaches it at 8.3: take an upper tail from
  /// the mirrored argument.
  /// Method: piecewise polynomials of T. Ooura.
  static double CdfStdNorm(double x);

  /// Student's t distribution. Error: 5e-12.
  ///
  /// Domain: df > 0, otherwise missing. Above df = 1e8 it is the normal cdf.
  /// Method: incomplete beta function; two branches at |x| = 1 keep a small tail's digits.
  static double CdfT(double x, double df);

  /// Hypergeometric distribution: marked objects among n drawn from a population of which k are
  /// marked. x is truncated towards 0. Error: 4e-15 for populations up to 1000.
  ///
  /// Domain: population, k, n whole and within 32 bits, min(k, n) >= 1, max(k, n) <= population;
  /// otherwise status 1 and missing.
  ///
  /// Beware: the result is exact up to a population of 1000 only. Above 10000 a normal
  /// approximation takes over, provided that min(k, population - k) > 16 max(r, 1/r) with
  /// r = n / (population - n). EVERYTHING BETWEEN IS A STEP: 0 below the mode and 1 above it, with
  /// status 0. Callers know it so and it is kept; sum `PdfHyper` where you need the probability.
  static double CDFHyper(double x, double population, double k, double n, int & status);

  // --- Upper tails, P(X > x) ---------------------------------------------------------------------
  // Small tails keep their relative accuracy, which 1 less the cumulative function would lose.

  /// Chi-square distribution. Domain: df > 0, otherwise missing; 1 for x <= 0. Error: 2e-12.
  static double SigChi(double x, double df);

  /// F distribution. Domain: df1, df2 > 0, otherwise missing; 1 for x <= 0. Error: 2e-12.
  static double SigF(double x, double df1, double df2);

  /// Student's t distribution. Domain: df > 0 and finite, otherwise missing. Error: 4e-12.
  /// Beware: there is no normal branch for large df as in `CdfT`, and the digits are gone by 1e12.
  static double SigT(double x, double df);

  // --- Densities and point probabilities ---------------------------------------------------------

  /// P(X = x) of the binomial distribution. Error: 2e-12.
  ///
  /// Domain: n >= 1 (it may be fractional), 0 <= p <= 1, otherwise status 1 and missing. An x that
  /// is not whole, negative or above n has probability 0; from 2^52 on odd numbers do not count as
  /// whole. Status 2 where the binomial coefficient overflows.
  static double PdfBin(double x, double n, double p, long & status);

  /// P(X = x) of the negative binomial distribution: x failures before the r-th success. Error:
  /// 5e-11.
  ///
  /// Domain: 0 < p <= 1, r >= 0, otherwise status 1 and missing. An x that is not whole or negative
  /// has probability 0. Beware: with r below 1 and x of 2 or more the binomial coefficient of
  /// x + r - 1 over x does not exist, and the result is missing with status 2.
  static double PdfNegBin(double x, double r, double p, long & status);

  /// P(X = x) of the hypergeometric distribution: x marked ones among n drawn from a population of
  /// which k are marked. Error: 9e-11 for populations up to 20000.
  ///
  /// Domain: 1 <= n <= population, 1 <= k <= population, max(n - population + k, 0) <= x <=
  /// min(n, k); otherwise missing. Unlike `CDFHyper` it is a probability for every population.
  /// Beware of the order: here n stands before k.
  static double PdfHyper(long x, long population, long n, long k);

  /// Density of the gamma distribution. Error: 9e-13.
  ///
  /// Domain: shape > 0, rate > 0, otherwise missing. 0 for x < 0; at x = 0 the rate for shape 1,
  /// missing (it is infinite) for a shape below 1, 0 above. Missing above exp(709).
  static double PdfGamma(double x, double shape, double rate);

  /// Density of the normal distribution. Error: 2e-13.
  ///
  /// Domain: sd != 0, otherwise missing; missing also where the density overflows. Beware: a
  /// negative sd is not rejected and gives a negative density.
  static double PdfNormal(double x, double mean, double sd);

  /// Density of the standard normal distribution. A NaN gives the missing value. Error: 8e-14.
  static double PdfNormalStandard(double x);

  /// Density of Student's t distribution. Error: 2e-12.
  ///
  /// Domain: df > 0, otherwise status 1 and missing; status 2 where the gamma function of df / 2
  /// fails.
  static double PdfT(double x, double df, long & status);

  // --- Log-gamma ---------------------------------------------------------------------------------

  /// ln Gamma(x), exactly 0 at 1 and 2. Error: 6e-16 (absolute while the logarithm is below 1).
  ///
  /// Domain: x > 0, otherwise missing; missing also above 2.5e305, where it overflows.
  /// Method: piecewise polynomials and Stirling's series of T. Ooura.
  static double zelvdnlgam(const double & x);

  // --- Quantiles: the x at which the cumulative function is p ------------------------------------

  /// Beta quantile. BEWARE: its failure value is -1, NOT the missing value.
  ///
  /// Domain: a > 0, b > 0, 0 <= p <= 1, otherwise -1; but p = 0 gives 0 and p = 1 gives 1 whatever
  /// the shapes. The absolute error is about 1e-12 at worst and no quantile below 1e-12 is told
  /// from 1e-12: a small quantile has few digits. A shape 1 and equal shapes at p = 0.5 are exact.
  /// Beware also: where the density overflows on the way, the result is the mean a / (a + b).
  /// Method: AS 109, Newton's method with a damped step.
  static double IdfBeta(const double & p, const double & a, const double & b);

  /// Binomial quantile: the largest k whose P(X <= k) does not exceed p, for n trials with
  /// probability q.
  ///
  /// Domain: n whole, otherwise status 1; n >= 1, 0 <= q <= 1, 0 <= p <= 1, otherwise status 2.
  /// p = 0 gives -1, or n - 1 for q = 1; p = 1 gives n, or 0 for q = 0.
  ///
  /// Beware: for p below P(X <= 0) the result is -1 where the walk starts at 0, and 0 where it
  /// starts above. Where the sum of the probabilities cannot reach p any more (a p within rounding
  /// of 1, or probabilities that are 0 in a double) it is n + 1.
  /// Method: a walk from the normal approximation, with status 2 after 5 million steps.
  static double IdfBin(double p, double n, double q, long & status);

  /// Chi-square quantile.
  ///
  /// Domain: 0 <= p < 1, df > 0, otherwise missing; 0 for p = 0.
  /// Method: AS 91 with a seven-term Taylor step, settled at a relative change of 5e-7, which the
  /// next order turns into some 1e-13; bisection where it does not settle.
  static double IdfChi(double p, double df);

  /// F quantile. Domain: 0 <= p < 1, df1 > 0, df2 > 0, otherwise missing; 0 for p = 0. Missing too
  /// where the quantile of the beta distribution under it rounds to 1. Accuracy: that of `IdfBeta`.
  static double IdfF(double p, double df1, double df2);

  /// Gamma quantile. Domain: 0 <= p < 1, shape > 0, rate > 0, otherwise missing; 0 for p = 0, also
  /// with a shape of 0.
  static double IdfGam(const double & p, const double & shape, const double & rate);

  /// Normal quantile. Domain: 0 < p < 1, sd > 0, otherwise missing; exactly `mean` for p = 0.5.
  /// Method: AS 241, double precision form.
  static double IdfNorm(double p, double mean, double sd);

  /// Standard normal quantile. Domain: 0 < p < 1, otherwise missing; exactly 0 for p = 0.5.
  static double IdfStdNorm(double p);

  /// Student t quantile. Domain: 0 < p < 1, df > 0, otherwise missing; exactly 0 for p = 0.5, and
  /// normal from df = 1e8 on.
  ///
  /// `acu` and `delta` are the bounds of the beta quantile under it: the square of a step that
  /// counts as the last, and the least distance from 0 and 1. 1e-20 and 1e-12 are usual. A quantile
  /// far out, where x*x is above df / delta, is cut off there.
  static double IdfT(double p, double df, double acu, double delta);

  // --- Non-central functions ---------------------------------------------------------------------
  // Sums over Poisson weights; missing when 60000 terms are not enough (parameters beyond some
  // 3e7). `tol` is the absolute error that ends a sum.

  /// Non-central chi-square cdf, to 1e-12. Domain: df > 0, nc >= 0, otherwise missing; 0 for
  /// x <= 0. Method: central functions, summed from 7.03 standard deviations below the Poisson
  /// mean.
  static double NonCentralCdfChi(double x, double df, double nc);

  /// Non-central F cdf. Domain: df1 > 0, df2 > 0, nc >= 0, otherwise missing; 0 for x <= 0.
  /// Method: the non-central beta function of AS 226 with the start of AS R84.
  static double NonCentralCdfF(double x, double df1, double df2, double nc, double tol);

  /// Non-central t cdf. Domain: df > 0, otherwise missing; any delta. Missing also where t*t is
  /// lost beside df. Method: AS 243 with the same start.
  static double NonCentralCdfT(double t, double df, double delta, double tol);

  /// Non-central t density, to a relative 1e-10 where its terms have one sign; with t and delta of
  /// different signs they alternate and the error grows with |delta|.
  ///
  /// Domain: df > 0, otherwise status 1. Status 2 where a term or the index of the largest one
  /// overflows. Method: the series summed both ways from its largest term.
  static double NonCentralPdfT(double t, double df, double delta, long & status);

  /// The nc with NonCentralCdfChi(x, df, nc) = p.
  ///
  /// Domain: df > 0, 0 <= p <= 1, tol >= 0, otherwise missing. 0 when the central function is
  /// already at or below p. `tol` bounds both the difference from p and the bracket of nc.
  static double FindNCParamChi(double x, double df, double p, double tol);

  /// The nc with NonCentralCdfF(x, df1, df2, nc, tol) = p; `tol` goes to the cdf as well, and
  /// bounds the bracket relative to nc above 1. Domain and result as above; missing beyond nc
  /// = 1.07e9.
  static double FindNCParamF(double x, double df1, double df2, double p, double tol);

  /// The delta, of either sign, with NonCentralCdfT(t, df, delta, cdfTol) = p. Domain: t >= 0,
  /// df > 0, 0 <= p <= 1, tol >= 0, otherwise missing; missing beyond |delta| = 1.07e9.
  static double FindNCParamT(double t, double df, double p, double tol, double cdfTol);

  // --- Grouped data ------------------------------------------------------------------------------

  /// The percentile `pct` (0 to 100) of n groups, by linear interpolation of the cumulative count.
  ///
  /// `values` ascend, `freqs` are their counts. nBounds < 1: the values are points and each count
  /// is centred on its point. nBounds = 1: bounds[0] is the width of every group, its value the
  /// middle. nBounds >= 2: `bounds` are ascending class limits; the last class ends where it
  /// mirrors its lower limit about its first value.
  ///
  /// status: 0 success (the result may still be missing, where there is nothing to interpolate);
  /// -1 for n < 2 or vectors shorter than told; for points, 1 below the middle of the first count
  /// and 2 above that of the last. The result is missing with each.
  static void GPTile(long n, double pct, const std::vector<double> & values,
                     const std::vector<double> & freqs, const std::vector<double> & bounds,
                     long nBounds, double & result, long & status);

  /// Confidence interval of the median of n distinct ascending `values` with counts `freqs`,
  /// `total` in all, at `confidence` percent; `actual` is the confidence reached, asked for by
  /// `wantActual`.
  ///
  /// What cannot be given is missing: everything for a total below 2 or not whole, or for a
  /// confidence outside -100 to 100. A total of 2, or one too small for the confidence, gives the
  /// whole range and an `actual` of 100 whether wanted or not.
  static void Mednci(long n, const std::vector<double> & values, const std::vector<double> & freqs,
                     double total, double confidence, bool wantActual, double & lower,
                     double & upper, double & actual);
};

}  // namespace QVMath_940
