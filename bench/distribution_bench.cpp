// Cumulative distribution functions, 20,000 random arguments a pass, against Rmath, GSL and
// Boost.Math (whose double functions are kept from computing in long double).
//
// The arguments: z from N(0, 2); df uniform in 1 to 100; chi-square x = df (0.3 + 2u); F x = 4u;
// beta shapes df / 5; binomial n = floor(df), p = u, x uniform in 0 .. n; u uniform in 0.001 to
// 0.999.

#include <Rmath.h>
#include <gsl/gsl_cdf.h>

#include <boost/math/distributions/beta.hpp>
#include <boost/math/distributions/binomial.hpp>
#include <boost/math/distributions/chi_squared.hpp>
#include <boost/math/distributions/fisher_f.hpp>
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
};

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
         Function function) {
  AddContender(work, contender, [=](benchmark::State & state) {
    const std::vector<Arguments> all = DrawAll(draw);
    for (const Arguments & arguments : all) {
      if (!(std::fabs(function(arguments) - own(arguments)) <= 1e-11)) {
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
void AddFour(const std::string & work, Draw draw, Own own, Rmath rmath, Gsl gsl, BoostMath boost) {
  Add(work, "qv", draw, own, own);
  Add(work, "rmath", draw, own, rmath);
  Add(work, "gsl", draw, own, gsl);
  Add(work, "boost", draw, own, boost);
}

}  // namespace

void RegisterBenchmarks() {
  using namespace boost::math;
  using A = const Arguments &;

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
