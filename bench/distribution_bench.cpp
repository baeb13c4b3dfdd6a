// Cumulative, quantile and non-central functions, 20,000 random arguments a pass, against Rmath,
// GSL and Boost.Math (whose double functions are kept from computing in long double).
//
// The arguments: z from N(0, 2); df uniform in 1 to 100; chi-square x = df (0.3 + 2u); F x = 4u;
// beta shapes df / 5; binomial n = floor(df), p = u, x uniform in 0 .. n; u uniform in 0.001 to
// 0.999. Quantiles take p = u with the same parameters; the non-central functions a parameter of
// 20u.

#include <Rmath.h>
#include <gsl/gsl_cdf.h>

#include <algorithm>
#include <boost/math/distributions/beta.hpp>
#include <boost/math/distributions/binomial.hpp>
#include <boost/math/distributions/chi_squared.hpp>
#include <boost/math/distributions/fisher_f.hpp>
#include <boost/math/distributions/gamma.hpp>
#include <boost/math/distributions/non_central_chi_squared.hpp>
#include <boost/math/distributions/non_central_f.hpp>
#include <boost/math/distributions/non_central_t.hpp>
#include <boost/math/distributions/normal.hpp>
#include <boost/math/distributions/students_t.hpp>
#include <cmath>
#include <random>
#include <string>
#include <vector>

#include "QVDistFun.h"
#include "contender.h"

using QVMath_940::QVDistFun;

namespace {

using Policy = boost::math::policies::policy<boost::math::policies::promote_double<false>>;
template <template <class, class> class Distribution>
using Boost = Distribution<double, Policy>;

struct Arguments {
  double x = 0.0;
  double first = 0.0;
  double second = 0.0;
  double third = 0.0;
};

// Errors that the contenders may have against each other, relative above 1.
constexpr double kCumulative = 1e-11;
constexpr double kQuantile = 1e-7;
constexpr double kThroughBeta = 1e-3;  // t and F next to 0 keep few digits of the beta quantile

constexpr int kCount = 20000;

class Source {
 public:
  double U() { return fUniform(fEngine); }
  double Df() { return 1.0 + 99.0 * (U() - 0.001) / 0.998; }
  double Z() { return fNormal(fEngine); }

 private:
  std::mt19937_64 fEngine{20240517};
  std::uniform_real_distribution<double> fUniform{0.001, 0.999};
  std::normal_distribution<double> fNormal{0.0, 2.0};
};

template <typename Draw>
std::vector<Arguments> DrawAll(Draw draw) {
  Source source;
  std::vector<Arguments> all(kCount);
  for (Arguments & arguments : all)
    arguments = draw(source);
  return all;
}

// One contender: the function over all arguments. Its results must agree with the library's own.
template <typename Draw, typename Own, typename Function>
void Add(const std::string & work, const std::string & contender, Draw draw, Own own,
         Function function, double bound) {
  AddContender(work, contender, [=](benchmark::State & state) {
    const std::vector<Arguments> all = DrawAll(draw);
    for (const Arguments & arguments : all) {
      const double expected = own(arguments);
      if (!(std::fabs(function(arguments) - expected) <= bound * (1.0 + std::fabs(expected)))) {
        state.SkipWithError("the results differ");
        return;
      }
    }
    for (auto _ : state) {
      for (const Arguments & arguments : all)
        benchmark::DoNotOptimize(function(arguments));
    }
    state.SetItemsProcessed(state.iterations() * kCount);
  });
}

template <typename Draw, typename Own, typename Rmath, typename Gsl, typename BoostMath>
void AddFour(const std::string & work, Draw draw, Own own, Rmath rmath, Gsl gsl, BoostMath boost,
             double bound = kCumulative) {
  Add(work, "qv", draw, own, own, bound);
  Add(work, "rmath", draw, own, rmath, bound);
  Add(work, "gsl", draw, own, gsl, bound);
  Add(work, "boost", draw, own, boost, bound);
}

template <typename Draw, typename Own, typename Rmath, typename BoostMath>
void AddThree(const std::string & work, Draw draw, Own own, Rmath rmath, BoostMath boost) {
  Add(work, "qv", draw, own, own, kQuantile);
  Add(work, "rmath", draw, own, rmath, kQuantile);
  Add(work, "boost", draw, own, boost, kQuantile);
}

void RegisterQuantiles() {
  using namespace boost::math;
  using A = const Arguments &;
  const auto one = [](Source & s) {
    const double df = s.Df();
    return Arguments{s.U(), df, 1.0};
  };
  const auto two = [](Source & s) {
    const double df1 = s.Df();
    const double df2 = s.Df();
    return Arguments{s.U(), df1, df2};
  };

  AddFour(
      "IdfNorm",
      [](Source & s) {
        return Arguments{s.U(), 0.0, 1.0};
      },
      [](A a) { return QVDistFun::IdfNorm(a.x, a.first, a.second); },
      [](A a) { return qnorm5(a.x, a.first, a.second, 1, 0); },
      [](A a) { return a.first + gsl_cdf_gaussian_Pinv(a.x, a.second); },
      [](A a) { return quantile(Boost<normal_distribution>(a.first, a.second), a.x); }, kQuantile);
  AddFour(
      "IdfChi", one, [](A a) { return QVDistFun::IdfChi(a.x, a.first); },
      [](A a) { return qchisq(a.x, a.first, 1, 0); },
      [](A a) { return gsl_cdf_chisq_Pinv(a.x, a.first); },
      [](A a) { return quantile(Boost<chi_squared_distribution>(a.first), a.x); }, kQuantile);
  AddFour(
      "IdfT", one, [](A a) { return QVDistFun::IdfT(a.x, a.first, 1e-20, 1e-12); },
      [](A a) { return qt(a.x, a.first, 1, 0); },
      [](A a) { return gsl_cdf_tdist_Pinv(a.x, a.first); },
      [](A a) { return quantile(Boost<students_t_distribution>(a.first), a.x); }, kThroughBeta);
  AddFour(
      "IdfF", two, [](A a) { return QVDistFun::IdfF(a.x, a.first, a.second); },
      [](A a) { return qf(a.x, a.first, a.second, 1, 0); },
      [](A a) { return gsl_cdf_fdist_Pinv(a.x, a.first, a.second); },
      [](A a) { return quantile(Boost<fisher_f_distribution>(a.first, a.second), a.x); },
      kThroughBeta);
  AddFour(
      "IdfBeta", two, [](A a) { return QVDistFun::IdfBeta(a.x, a.first / 5.0, a.second / 5.0); },
      [](A a) { return qbeta(a.x, a.first / 5.0, a.second / 5.0, 1, 0); },
      [](A a) { return gsl_cdf_beta_Pinv(a.x, a.first / 5.0, a.second / 5.0); },
      [](A a) { return quantile(Boost<beta_distribution>(a.first / 5.0, a.second / 5.0), a.x); },
      kQuantile);
  AddFour(
      "IdfGam", one, [](A a) { return QVDistFun::IdfGam(a.x, a.first, a.second); },
      [](A a) { return qgamma(a.x, a.first, 1.0 / a.second, 1, 0); },
      [](A a) { return gsl_cdf_gamma_Pinv(a.x, a.first, 1.0 / a.second); },
      [](A a) { return quantile(Boost<gamma_distribution>(a.first, 1.0 / a.second), a.x); },
      kQuantile);

  // The library's quantile is the largest count at or below p, one less than the others'.
  const auto trials = [](Source & s) {
    const double n = std::floor(s.Df());
    return Arguments{0.02 + 0.96 * s.U(), n, s.U()};
  };
  const auto own = [](A a) {
    long status = 0;
    return std::max(QVDistFun::IdfBin(a.x, a.first, a.second, status), -1.0);
  };
  constexpr double oneCount = 1.1;
  Add("IdfBin", "qv", trials, own, own, oneCount);
  Add(
      "IdfBin", "rmath", trials, own, [](A a) { return qbinom(a.x, a.first, a.second, 1, 0); },
      oneCount);
  Add(
      "IdfBin", "boost", trials, own,
      [](A a) { return quantile(Boost<binomial_distribution>(a.first, a.second), a.x); }, oneCount);
}

void RegisterNonCentral() {
  using namespace boost::math;
  using A = const Arguments &;
  constexpr double tol = 1e-12;

  AddThree(
      "NonCentralCdfChi",
      [](Source & s) {
        const double df = s.Df();
        const double nc = 20.0 * s.U();
        return Arguments{(df + nc) * (0.3 + 2.0 * s.U()), df, nc};
      },
      [](A a) { return QVDistFun::NonCentralCdfChi(a.x, a.first, a.second); },
      [](A a) { return pnchisq(a.x, a.first, a.second, 1, 0); },
      [](A a) { return cdf(Boost<non_central_chi_squared_distribution>(a.first, a.second), a.x); });
  AddThree(
      "NonCentralCdfF",
      [](Source & s) {
        const double df1 = s.Df();
        const double df2 = s.Df();
        const double nc = 20.0 * s.U();
        return Arguments{4.0 * s.U(), df1, df2, nc};
      },
      [](A a) { return QVDistFun::NonCentralCdfF(a.x, a.first, a.second, a.third, tol); },
      [](A a) {
        const double odds = a.x * a.first / a.second;
        return pnbeta(odds / (1.0 + odds), a.first / 2.0, a.second / 2.0, a.third, 1, 0);
      },
      [](A a) {
        using Distribution = non_central_f_distribution<double, Policy>;
        return cdf(Distribution(a.first, a.second, a.third), a.x);
      });
  AddThree(
      "NonCentralCdfT",
      [](Source & s) {
        const double df = s.Df();
        return Arguments{s.Z(), df, 4.0 * s.U()};
      },
      [](A a) { return QVDistFun::NonCentralCdfT(a.x, a.first, a.second, tol); },
      [](A a) { return pnt(a.x, a.first, a.second, 1, 0); },
      [](A a) { return cdf(Boost<non_central_t_distribution>(a.first, a.second), a.x); });
}

}  // namespace

void RegisterBenchmarks() {
  using namespace boost::math;
  using A = const Arguments &;

  RegisterQuantiles();
  RegisterNonCentral();
  AddFour(
      "CdfNorm",
      [](Source & s) {
        return Arguments{s.Z(), 0.0, 1.0};
      },
      [](A a) { return QVDistFun::CdfNorm(a.x, a.first, a.second); },
      [](A a) { return pnorm5(a.x, a.first, a.second, 1, 0); },
      [](A a) { return gsl_cdf_gaussian_P(a.x - a.first, a.second); },
      [](A a) { return cdf(Boost<normal_distribution>(a.first, a.second), a.x); });
  AddFour(
      "CdfChi",
      [](Source & s) {
        const double df = s.Df();
        return Arguments{df * (0.3 + 2.0 * s.U()), df, 0.0};
      },
      [](A a) { return QVDistFun::CdfChi(a.x, a.first); },
      [](A a) { return pchisq(a.x, a.first, 1, 0); },
      [](A a) { return gsl_cdf_chisq_P(a.x, a.first); },
      [](A a) { return cdf(Boost<chi_squared_distribution>(a.first), a.x); });
  AddFour(
      "CdfT",
      [](Source & s) {
        const double df = s.Df();
        return Arguments{s.Z(), df, 0.0};
      },
      [](A a) { return QVDistFun::CdfT(a.x, a.first); }, [](A a) { return pt(a.x, a.first, 1, 0); },
      [](A a) { return gsl_cdf_tdist_P(a.x, a.first); },
      [](A a) { return cdf(Boost<students_t_distribution>(a.first), a.x); });
  AddFour(
      "CdfF",
      [](Source & s) {
        const double df1 = s.Df();
        const double df2 = s.Df();
        return Arguments{4.0 * s.U(), df1, df2};
      },
      [](A a) { return QVDistFun::CdfF(a.x, a.first, a.second); },
      [](A a) { return pf(a.x, a.first, a.second, 1, 0); },
      [](A a) { return gsl_cdf_fdist_P(a.x, a.first, a.second); },
      [](A a) { return cdf(Boost<fisher_f_distribution>(a.first, a.second), a.x); });
  AddFour(
      "CdfBeta",
      [](Source & s) {
        const double a = s.Df() / 5.0;
        const double b = s.Df() / 5.0;
        return Arguments{s.U(), a, b};
      },
      [](A a) { return QVDistFun::CdfBeta(a.x, a.first, a.second); },
      [](A a) { return pbeta(a.x, a.first, a.second, 1, 0); },
      [](A a) { return gsl_cdf_beta_P(a.x, a.first, a.second); },
      [](A a) { return cdf(Boost<beta_distribution>(a.first, a.second), a.x); });
  AddFour(
      "CdfBin",
      [](Source & s) {
        const double n = std::floor(s.Df());
        const double p = s.U();
        return Arguments{std::floor(s.U() * (n + 1.0)), n, p};
      },
      [](A a) {
        long status = 0;
        return QVDistFun::CdfBin(a.x, a.first, a.second, status);
      },
      [](A a) { return pbinom(a.x, a.first, a.second, 1, 0); },
      [](A a) {
        return gsl_cdf_binomial_P(static_cast<unsigned>(a.x), a.second,
                                  static_cast<unsigned>(a.first));
      },
      [](A a) { return cdf(Boost<binomial_distribution>(a.first, a.second), a.x); });
}
