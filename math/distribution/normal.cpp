/// The error function and the normal distribution.
///
/// The error function is made of the piecewise polynomials of T. Ooura's double precision routines
/// (1996). The distribution stands in the same source so that a call of it is a single call.

#include <cmath>

#include "QVDistFun.h"
#include "math/distribution/special_functions.h"

namespace QVMath_940 {

double derf(const double & x) {
  // erf(w) / w on 0 <= w*w < 5: row k in t = w*w - k. Largest relative error 2e-16.
  static constexpr double kNear[5][13] = {
      {5.958930743e-11, -1.13739022964e-09, 1.466005199839e-08, -1.635035446196e-07,
       1.6461004480962e-06, -1.492559551950604e-05, 0.00012055331122299264, -0.0008548326981129666,
       0.005223977624823223, -0.026866170645077334, 0.11283791670954882, -0.3761263890318375,
       1.1283791670955126},
      {2.372510631e-11, -4.5493253732e-10, 5.90362766598e-09, -6.642090827576e-08,
       6.7595634268133e-07, -6.21188515924e-06, 5.10388300970969e-05, -0.00037015410692956176,
       0.00233307631218881, -0.012549884771821921, 0.05657061146827042, -0.21379664776456006,
       0.8427007929497149},
      {9.49905026e-12, -1.8310229805e-10, 2.39463074e-09, -2.721444369609e-08, 2.8045522331686e-07,
       -2.61830022482897e-06, 2.195455056768781e-05, -0.00016358986921372656, 0.0010705215356411031,
       -0.006082847181135901, 0.029869784652462584, -0.13055593046562267, 0.674933236039655},
      {3.82722073e-12, -7.421598602e-11, 9.793057408e-10, -1.126008898854e-08, 1.1775134830784e-07,
       -1.1199275838265e-06, 9.62023443095201e-06, -7.404402135070773e-05, 0.0005068999365414488,
       -0.003075530514392729, 0.016689778925531657, -0.08548534594781312, 0.5690907664239364},
      {1.55296588e-12, -3.032205868e-11, 4.0424830707e-10, -4.71135111493e-09, 5.011915876293e-08,
       -4.8722516178974e-07, 4.30683284629395e-06, -3.445026145385764e-05, 0.00024879276133931664,
       -0.0016294094174807928, 0.009887863739323505, -0.05962426839442304, 0.49766113250947636}};
  // (1 - erf(w)) to the power 1/16 on 2 <= w < 7: row k in t = w - k - 2.
  static constexpr double kFar[5][13] = {
      {-2.9734388465e-10, 2.69776334046e-09, -6.40788827665e-09, -1.6678201321e-08,
       -2.1854388148686e-07, 2.66246030457984e-06, 1.612722157047886e-05, -0.00025616361025506627,
       0.00015380842432375364, 0.00815533022524928, -0.014022836638963193, -0.19746892495383023,
       0.7151172032884284},
      {-1.951073787e-11, -3.2302692214e-10, 5.22461866919e-09, 3.42940918551e-09,
       -3.5772874310272e-07, 1.9999935792654e-07, 2.687044575042908e-05, -0.00011843240273775776,
       -0.0008099172895603227, 0.006610629705022412, 0.009095309223548273, -0.20160072778491014,
       0.5116969671872764},
      {3.147682272e-11, -4.8465972408e-10, 6.3675740242e-10, 3.377623323271e-08,
       -1.5451139637086e-07, -2.03340624738438e-06, 1.947204525295057e-05, 2.854147231653228e-05,
       -0.0010156506315220028, 0.0027118700352009566, 0.023280950354228107, -0.16725021123116876,
       0.32490054966649434},
      {2.31936337e-11, -6.303206648e-11, -2.64888267434e-09, 2.050708040581e-08,
       1.1371857327578e-07, -2.11211337219663e-06, 3.68797328322935e-06, 9.823686253424796e-05,
       -0.0006586024399045536, -0.0007528581489523087, 0.025854344242029606, -0.11637092784486193,
       0.1826733677529661},
      {-3.67789363e-12, 2.0876046746e-10, -1.93319027226e-09, -4.35953392472e-09,
       1.8006992266137e-07, -7.8441223763969e-07, -6.75407647949153e-06, 8.428418334440096e-05,
       -0.00017604388937031816, -0.002397296114350716, 0.02064129023876023, -0.06905562880005864,
       0.09084526782065479}};
  constexpr double kNearEnd = 2.2;
  constexpr double kFarEnd = 6.9;  // 1 - erf(6.9) is below half a unit in the last place of 1

  const double w = std::fabs(x);
  double y = 1.0;
  if (w <= 0.0) {
    y = 0.0;
  } else if (w < kNearEnd) {
    const double square = w * w;
    const int k = static_cast<int>(square);
    y = w * Horner(kNear[k], square - k);
  } else if (w < kFarEnd) {
    const int k = static_cast<int>(w);
    y = Horner(kFar[k - 2], w - k);
    y *= y;
    y *= y;
    y *= y;
    y *= y;
    y = 1.0 - y;
  }
  return x < 0.0 ? -y : y;
}

double derfc(const double & x) {
  // erfc(w) exp(w*w) / t in u = t - 0.5 with t = 3.97... / (w + 3.97...), for every w > 0.
  static constexpr double kTail[23] = {
      0.0012710976495261409, 0.00011931402283834095, -0.003963850973605135, -0.0008707796353172959,
      0.007736725283135267,  0.003833351262648873,   -0.012722381378212275, -0.013382364453346007,
      0.016131532973325226,  0.039097684558848406,   0.002493672000535033,  -0.0838864557023002,
      -0.11946395996432542,  0.016620792496936737,   0.35752427444953105,   0.8052764087529106,
      1.1890298290927332,    1.3704021768233816,     1.313146538310231,     1.0792551515585667,
      0.7743681991195386,    0.49016508058531844,    0.2753747415973768};
  constexpr double kPivot = 3.97886080735226;

  const double w = std::fabs(x);
  if (w <= 0.0) return 1.0;
  const double t = kPivot / (w + kPivot);
  const double y = t * Horner(kTail, t - 0.5);
  double tail = 0.0;
  if (y > 0.0) {
    const double e = std::log(y) - w * w;
    if (e >= kLowestExponent) tail = std::exp(e);
  }
  return x < 0.0 ? 2.0 - tail : tail;
}

double prbnrm(const double & z) {
  constexpr double kSqrt2 = 1.4142135623730951;
  if (z > 0.0) return (derf(z / kSqrt2) + 1.0) * 0.5;
  if (z < 0.0) return derfc(-z / kSqrt2) * 0.5;
  return z == 0.0 ? 0.5 : kFailed;
}

namespace {

constexpr double kInverseSqrtTwoPi = 0.3989422804014327;

}  // namespace

double QVDistFun::CdfStdNorm(double x) {
  return prbnrm(x);
}

double QVDistFun::CdfNorm(double x, double mean, double sd) {
  if (!(sd > 0.0)) return kFailed;
  return prbnrm((x - mean) / sd);
}

double QVDistFun::PdfNormalStandard(double x) {
  if (AnyNaN(x)) return kFailed;
  return std::exp(-0.5 * x * x) * kInverseSqrtTwoPi;
}

double QVDistFun::PdfNormal(double x, double mean, double sd) {
  if (sd == 0.0) return kFailed;
  const double z = (x - mean) / sd;
  const double density = std::exp(-0.5 * z * z) * kInverseSqrtTwoPi / sd;
  return std::isfinite(density) ? density : kFailed;
}

}  // namespace QVMath_940
