// Random numbers, one call at a time, against the C++ standard library, GSL and Rmath.
//
// A piece of work is 10,000 draws. Contenders draw from generators of their own; that they draw
// from the same distribution is seen by their means, which must agree.

#include <Rmath.h>
#include <gsl/gsl_randist.h>
#include <gsl/gsl_rng.h>

#include <cmath>
#include <memory>
#include <random>
#include <string>

#include "QVRNGBeta.h"
#include "QVRNGBinomial.h"
#include "QVRNGNormal.h"
#include "QVRNGUCongruential.h"
#include "QVRNGUTwister.h"
#include "QVRandomTwister.h"
#include "QVRandomValues.h"
#include "QVURandom.h"
#include "contender.h"

using namespace QVMath_940;

namespace {

constexpr int kDraws = 10000;

// `make()` gives a function object that draws. The mean of its draws must be `mean`, `sd` being the
// standard deviation of one.
template <typename Make>
void Add(const std::string & work, const std::string & contender, double mean, double sd,
         Make make) {
  AddContender(work, contender, [=](benchmark::State & state) {
    auto draw = make();
    double sum = 0.0;
    for (int i = 0; i < kDraws; ++i)
      sum += static_cast<double>(draw());
    if (!(std::fabs(sum / kDraws - mean) <= 6.0 * sd / std::sqrt(kDraws))) {
      state.SkipWithError("the mean is wrong");
      return;
    }
    for (auto _ : state) {
      for (int i = 0; i < kDraws; ++i)
        benchmark::DoNotOptimize(draw());
    }
    state.SetItemsProcessed(state.iterations() * kDraws);
  });
}

// GSL's Mersenne Twister.
std::shared_ptr<gsl_rng> Gsl() {
  return {gsl_rng_alloc(gsl_rng_mt19937), gsl_rng_free};
}

// std::mt19937 as a procedure holds it, in an object of its own. (A local engine that no other
// function sees keeps its index in a register; the contender std_local shows what that is worth.)
std::shared_ptr<std::mt19937> Engine() {
  auto engine = std::make_shared<std::mt19937>(34567);
  benchmark::DoNotOptimize(engine.get());
  return engine;
}

// A standard distribution on std::mt19937.
template <typename Distribution>
auto Std(Distribution distribution) {
  return [distribution] {
    return [distribution, engine = Engine()]() mutable { return distribution(*engine); };
  };
}

// A variate generator of the library on its own twister.
template <typename Generator>
auto OnTwister(double first, double second) {
  return [=] {
    auto uniform = std::make_shared<QVRNGUTwister>();
    Generator generator(first, second);
    generator.SetURNGenerator(*uniform);
    return [uniform, generator]() mutable { return generator.GetNext(); };
  };
}

template <typename Choose>
auto Values(Choose choose) {
  return [choose] {
    auto values = std::make_shared<QVRandomValues>();
    choose(*values);
    return [values] { return values->GetRandom(); };
  };
}

void Uniforms() {
  const double sdWord = 4294967296.0 / std::sqrt(12.0);
  Add("Word32", "qv", 2147483647.5, sdWord, [] {
    QVRandomTwister twister;
    twister.Initialize(34567);
    return [twister]() mutable { return twister.GetInteger32(); };
  });
  Add("Word32", "std", 2147483647.5, sdWord,
      [] { return [engine = Engine()] { return (*engine)(); }; });
  Add("Word32", "std_local", 2147483647.5, sdWord,
      [] { return [engine = std::mt19937(34567)]() mutable { return engine(); }; });
  Add("Word32", "gsl", 2147483647.5, sdWord,
      [] { return [rng = Gsl()] { return gsl_rng_get(rng.get()); }; });

  const double sd = 1.0 / std::sqrt(12.0);
  Add("Uniform", "qv", 0.5, sd,
      [] { return [u = QVURandom()]() mutable { return u.GetRandom(); }; });
  Add("Uniform", "std", 0.5, sd,
      [] { return [engine = Engine()] { return (*engine)() * 0x1p-32; }; });
  Add("Uniform", "gsl", 0.5, sd,
      [] { return [rng = Gsl()] { return gsl_rng_uniform_pos(rng.get()); }; });
}

void Normals() {
  const auto peers = [](const char * work) {
    Add(work, "std", 0.0, 1.0, Std(std::normal_distribution<double>()));
    Add(work, "gsl", 0.0, 1.0,
        [] { return [rng = Gsl()] { return gsl_ran_gaussian_ziggurat(rng.get(), 1.0); }; });
    Add(work, "rmath", 0.0, 1.0, [] { return [] { return norm_rand(); }; });
  };
  Add("NormalObject", "qv", 0.0, 1.0,
      [] { return [normal = QVRNGNormal()]() mutable { return normal.GetNext(); }; });
  Add("NormalObject", "qv_twister", 0.0, 1.0, OnTwister<QVRNGNormal>(0.0, 1.0));
  peers("NormalObject");
  Add("NormalValues", "qv", 0.0, 1.0, Values([](QVRandomValues & v) { v.SetParamNormal(); }));
  peers("NormalValues");
}

void Gammas() {
  for (const double shape : {0.5, 2.5, 20.0}) {
    const std::string work = "Gamma/" + std::to_string(shape).substr(0, 4);
    const double sd = std::sqrt(shape);
    Add(work, "qv", shape, sd,
        Values([shape](QVRandomValues & v) { v.SetParamGamma(shape, 1.0); }));
    Add(work, "std", shape, sd, Std(std::gamma_distribution<double>(shape, 1.0)));
    Add(work, "gsl", shape, sd,
        [=] { return [=, rng = Gsl()] { return gsl_ran_gamma(rng.get(), shape, 1.0); }; });
  }
}

void Betas() {
  struct Shapes {
    double a;
    double b;
  };
  for (const Shapes s : {Shapes{0.5, 0.7}, Shapes{2.5, 4.0}, Shapes{50.0, 50.0}}) {
    const std::string work = "Beta/" + std::to_string(s.a).substr(0, 4);
    const double mean = s.a / (s.a + s.b);
    const double sd = std::sqrt(mean * (1.0 - mean) / (s.a + s.b + 1.0));
    Add(work, "qv", mean, sd, OnTwister<QVRNGBeta>(s.a, s.b));
    Add(work, "std", mean, sd, [=] {
      return [engine = Engine(), x = std::gamma_distribution<double>(s.a),
              y = std::gamma_distribution<double>(s.b)]() mutable {
        const double first = x(*engine);
        return first / (first + y(*engine));
      };
    });
    Add(work, "gsl", mean, sd,
        [=] { return [=, rng = Gsl()] { return gsl_ran_beta(rng.get(), s.a, s.b); }; });
  }
}

void Binomials() {
  struct Parameters {
    unsigned n;
    double p;
  };
  for (const Parameters s : {Parameters{20, 0.3}, Parameters{99, 0.3}, Parameters{1000, 0.3}}) {
    const std::string work = "Binomial/" + std::to_string(s.n);
    const double mean = s.n * s.p;
    const double sd = std::sqrt(mean * (1.0 - s.p));
    Add(work, "qv", mean, sd, OnTwister<QVRNGBinomial>(s.n, s.p));
    Add(work, "std", mean, sd, Std(std::binomial_distribution<int>(static_cast<int>(s.n), s.p)));
    Add(work, "gsl", mean, sd,
        [=] { return [=, rng = Gsl()] { return gsl_ran_binomial(rng.get(), s.p, s.n); }; });
  }
}

}  // namespace

void RegisterBenchmarks() {
  Uniforms();
  Normals();
  Gammas();
  Betas();
  Binomials();
}
