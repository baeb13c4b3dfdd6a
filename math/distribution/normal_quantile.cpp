/// Quantiles of the normal distribution.

#include <algorithm>
#include <cmath>

#include "QVDistFun.h"
#include "math/distribution/special_functions.h"

namespace QVMath_940 {

// M. J. Wichura, The percentage points of the normal distribution, Appl. Statist. 37 (1988)
// 477-484, algorithm AS 241, routine PPND16. The names A to F of the coefficients are the paper's.
double probit(const double & p) {
  static constexpr double kA[8] = {
      2509.0809287301226727, 33430.575583588128105, 67265.770927008700853, 45921.953931549871457,
      13731.693765509461125, 1971.5909503065514427, 133.14166789178437745, 3.387132872796366608};
  static constexpr double kB[8] = {
      5226.495278852854561,  28729.085735721942674, 39307.89580009271061,  21213.794301586595867,
      5394.1960214247511077, 687.1870074920579083,  42.313330701600911252, 1.0};
  static constexpr double kC[8] = {7.7454501427834140764e-4, 0.0227238449892691845833,
                                   0.24178072517745061177,   1.27045825245236838258,
                                   3.64784832476320460504,   5.7694972214606914055,
                                   4.6303378461565452959,    1.42343711074968357734};
  static constexpr double kD[8] = {1.05075007164441684324e-9, 5.475938084995344946e-4,
                                   0.0151986665636164571966,  0.14810397642748007459,
                                   0.68976733498510000455,    1.6763848301838038494,
                                   2.05319162663775882187,    1.0};
  static constexpr double kE[8] = {2.01033439929228813265e-7, 2.71155556874348757815e-5,
                                   0.0012426609473880784386,  0.026532189526576123093,
                                   0.29656057182850489123,    1.7848265399172913358,
                                   5.4637849111641143699,     6.6579046435011037772};
  static constexpr double kF[8] = {2.04426310338993978564e-15, 1.4215117583164458887e-7,
                                   1.8463183175100546818e-5,   7.868691311456132591e-4,
                                   0.0148753612908506148525,   0.13692988092273580531,
                                   0.59983220655588793769,     1.0};
  constexpr double kCentre = 0.425;
  constexpr double kCentreSquared = 0.180625;
  constexpr double kFarTail = 5.0;

  if (!(p > 0.0 && p < 1.0)) return kFailed;
  const double q = p - 0.5;
  if (std::fabs(q) <= kCentre) {
    const double r = kCentreSquared - q * q;
    return q * (Horner(kA, r) / Horner(kB, r));
  }
  const double root = std::sqrt(-std::log(q < 0.0 ? p : 1.0 - p));
  double z = 0.0;
  if (root <= kFarTail) {
    const double r = root - 1.6;
    z = Horner(kC, r) / Horner(kD, r);
  } else {
    const double r = root - kFarTail;
    z = Horner(kE, r) / Horner(kF, r);
  }
  return q < 0.0 ? -z : z;
}

double QVDistFun::IdfStdNorm(double p) {
  return probit(p);
}

double QVDistFun::IdfNorm(double p, double mean, double sd) {
  if (!(p > 0.0 && p < 1.0 && sd > 0.0)) return kFailed;
  return FiniteOrFailed(p == 0.5 ? mean : probit(p) * sd + mean);
}

}  // namespace QVMath_940
