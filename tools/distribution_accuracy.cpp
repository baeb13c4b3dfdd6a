// The largest errors of the distribution functions and of their peers over the figures of
// tests/data/distribution, as a Markdown table: the middle of docs/accuracy.md. Built and run by
// tools/distribution_accuracy.

#define MATHLIB_STANDALONE
#include <Rmath.h>
#include <gsl/gsl_cdf.h>
#include <gsl/gsl_errno.h>
#include <gsl/gsl_randist.h>
#include <gsl/gsl_sf_gamma.h>

#include <boost/math/distributions.hpp>
#include <cstdio>
#include <exception>
#include <string>

#include "tests/math/distribution/figures.h"

namespace {

using figures::Arguments;
using figures::Function;

using Policy = boost::math::policies::policy<boost::math::policies::promote_double<false>>;
template <template <class, class> class Distribution>
using Boost = Distribution<double, Policy>;
using namespace boost::math;

unsigned Count(double value) {
  return static_cast<unsigned>(value);
}

struct Peers {
  std::string function;
  Function rmath;
  Function gsl;
  Function boost;
};

const Peers kPeers[] = {
    {"CdfStdNorm", [](Arguments a) { return pnorm5(a[0], 0.0, 1.0, 1, 0); },
     [](Arguments a) { return gsl_cdf_ugaussian_P(a[0]); },
     [](Arguments a) { return cdf(Boost<normal_distribution>(), a[0]); }},
    {"CdfNorm", [](Arguments a) { return pnorm5(a[0], a[1], a[2], 1, 0); },
     [](Arguments a) { return gsl_cdf_gaussian_P(a[0] - a[1], a[2]); },
     [](Arguments a) { return cdf(Boost<normal_distribution>(a[1], a[2]), a[0]); }},
    {"CdfChi", [](Arguments a) { return pchisq(a[0], a[1], 1, 0); },
     [](Arguments a) { return gsl_cdf_chisq_P(a[0], a[1]); },
     [](Arguments a) { return cdf(Boost<chi_squared_distribution>(a[1]), a[0]); }},
    {"SigChi", [](Arguments a) { return pchisq(a[0], a[1], 0, 0); },
     [](Arguments a) { return gsl_cdf_chisq_Q(a[0], a[1]); },
     [](Arguments a) { return cdf(complement(Boost<chi_squared_distribution>(a[1]), a[0])); }},
    {"CdfGam", [](Arguments a) { return pgamma(a[0] * a[2], a[1], 1.0, 1, 0); },
     [](Arguments a) { return gsl_cdf_gamma_P(a[0] * a[2], a[1], 1.0); },
     [](Arguments a) { return cdf(Boost<gamma_distribution>(a[1], 1.0), a[0] * a[2]); }},
    {"CdfT", [](Arguments a) { return pt(a[0], a[1], 1, 0); },
     [](Arguments a) { return gsl_cdf_tdist_P(a[0], a[1]); },
     [](Arguments a) { return cdf(Boost<students_t_distribution>(a[1]), a[0]); }},
    {"SigT", [](Arguments a) { return pt(a[0], a[1], 0, 0); },
     [](Arguments a) { return gsl_cdf_tdist_Q(a[0], a[1]); },
     [](Arguments a) { return cdf(complement(Boost<students_t_distribution>(a[1]), a[0])); }},
    {"CdfF", [](Arguments a) { return pf(a[0], a[1], a[2], 1, 0); },
     [](Arguments a) { return gsl_cdf_fdist_P(a[0], a[1], a[2]); },
     [](Arguments a) { return cdf(Boost<fisher_f_distribution>(a[1], a[2]), a[0]); }},
    {"SigF", [](Arguments a) { return pf(a[0], a[1], a[2], 0, 0); },
     [](Arguments a) { return gsl_cdf_fdist_Q(a[0], a[1], a[2]); },
     [](Arguments a) { return cdf(complement(Boost<fisher_f_distribution>(a[1], a[2]), a[0])); }},
    {"CdfBeta", [](Arguments a) { return pbeta(a[0], a[1], a[2], 1, 0); },
     [](Arguments a) { return gsl_cdf_beta_P(a[0], a[1], a[2]); },
     [](Arguments a) { return cdf(Boost<beta_distribution>(a[1], a[2]), a[0]); }},
    {"CdfBin", [](Arguments a) { return pbinom(a[0], a[1], a[2], 1, 0); },
     [](Arguments a) { return gsl_cdf_binomial_P(Count(a[0]), a[2], Count(a[1])); },
     [](Arguments a) { return cdf(Boost<binomial_distribution>(a[1], a[2]), a[0]); }},
    {"CDFHyper", [](Arguments a) { return phyper(a[0], a[2], a[1] - a[2], a[3], 1, 0); },
     [](Arguments a) {
       return gsl_cdf_hypergeometric_P(Count(a[0]), Count(a[2]), Count(a[1] - a[2]), Count(a[3]));
     },
     [](Arguments a) {
       return cdf(Boost<hypergeometric_distribution>(Count(a[2]), Count(a[3]), Count(a[1])), a[0]);
     }},
    {"PdfBin", [](Arguments a) { return dbinom(a[0], a[1], a[2], 0); },
     [](Arguments a) { return gsl_ran_binomial_pdf(Count(a[0]), a[2], Count(a[1])); },
     [](Arguments a) { return pdf(Boost<binomial_distribution>(a[1], a[2]), a[0]); }},
    {"PdfNegBin", [](Arguments a) { return dnbinom(a[0], a[1], a[2], 0); },
     [](Arguments a) { return gsl_ran_negative_binomial_pdf(Count(a[0]), a[2], a[1]); },
     [](Arguments a) { return pdf(Boost<negative_binomial_distribution>(a[1], a[2]), a[0]); }},
    {"PdfHyper", [](Arguments a) { return dhyper(a[0], a[3], a[1] - a[3], a[2], 0); },
     [](Arguments a) {
       return gsl_ran_hypergeometric_pdf(Count(a[0]), Count(a[3]), Count(a[1] - a[3]), Count(a[2]));
     },
     [](Arguments a) {
       return pdf(Boost<hypergeometric_distribution>(Count(a[3]), Count(a[2]), Count(a[1])), a[0]);
     }},
    {"PdfGamma", [](Arguments a) { return dgamma(a[0] * a[2], a[1], 1.0, 0) * a[2]; },
     [](Arguments a) { return gsl_ran_gamma_pdf(a[0] * a[2], a[1], 1.0) * a[2]; },
     [](Arguments a) { return pdf(Boost<gamma_distribution>(a[1], 1.0), a[0] * a[2]) * a[2]; }},
    {"PdfNormal", [](Arguments a) { return dnorm4(a[0], a[1], a[2], 0); },
     [](Arguments a) { return gsl_ran_gaussian_pdf(a[0] - a[1], a[2]); },
     [](Arguments a) { return pdf(Boost<normal_distribution>(a[1], a[2]), a[0]); }},
    {"PdfNormalStandard", [](Arguments a) { return dnorm4(a[0], 0.0, 1.0, 0); },
     [](Arguments a) { return gsl_ran_ugaussian_pdf(a[0]); },
     [](Arguments a) { return pdf(Boost<normal_distribution>(), a[0]); }},
    {"PdfT", [](Arguments a) { return dt(a[0], a[1], 0); },
     [](Arguments a) { return gsl_ran_tdist_pdf(a[0], a[1]); },
     [](Arguments a) { return pdf(Boost<students_t_distribution>(a[1]), a[0]); }},
    {"zelvdnlgam", [](Arguments a) { return lgammafn(a[0]); },
     [](Arguments a) { return gsl_sf_lngamma(a[0]); },
     [](Arguments a) { return boost::math::lgamma(a[0], Policy()); }},
};

std::string Cell(const std::string & function, const std::vector<figures::Point> & points,
                 Function call) {
  const auto guarded = [call](Arguments arguments) {
    try {
      return call(arguments);
    } catch (const std::exception &) {
      return std::nan("");
    }
  };
  char text[32];
  const double error = figures::LargestError(function, points, guarded).error;
  std::snprintf(text, sizeof text, error == error ? "%.1e" : "fails", error);
  return text;
}

}  // namespace

int main(int, char ** arguments) {
  gsl_set_error_handler_off();
  std::printf("| function | region | qvcommon | Rmath | GSL | Boost.Math |\n");
  std::printf("|---|---|---:|---:|---:|---:|\n");
  for (const Peers & peers : kPeers) {
    figures::Regions regions = figures::Read(arguments[1], peers.function);
    for (const auto & own : figures::LibraryFunctions()) {
      if (own.name != peers.function) continue;
      for (const char * region : {"bulk", "tail"}) {
        std::printf("| `%s` | %s |", own.name.c_str(), region);
        for (Function call : {own.call, peers.rmath, peers.gsl, peers.boost})
          std::printf(" %s |", Cell(own.name, regions[region], call).c_str());
        std::printf("\n");
      }
    }
  }
}
