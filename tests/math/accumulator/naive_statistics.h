/// The naive reference of the accumulators: two passes over stored cases in long double, and the
/// error of a result measured against what its conditioning allows.
#pragma once

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "QVMeansXProdData.h"
#include "QVRectMatrix.h"

/// Cases as rows, each with a weight.
struct Cases {
  int nVars = 0;
  std::vector<std::vector<double>> rows;
  std::vector<double> weights;

  std::size_t Size() const { return rows.size(); }
  Cases Part(std::size_t from, std::size_t to) const {
    const auto at = [](auto & v, std::size_t i) { return v.begin() + static_cast<long>(i); };
    return {nVars, {at(rows, from), at(rows, to)}, {at(weights, from), at(weights, to)}};
  }
};

/// Correlated values location + spread x N(0, 1), with weights in (0, 3) or all 1.
inline Cases RandomCases(int nVars, int nCases, double location, double spread, bool weighted,
                         unsigned seed) {
  std::mt19937 generator(seed);
  std::normal_distribution<double> normal;
  std::uniform_real_distribution<double> weight(0.01, 3.0);
  Cases cases{nVars, {}, {}};
  for (int r = 0; r < nCases; ++r) {
    const double common = normal(generator);
    std::vector<double> row;
    for (int j = 0; j < nVars; ++j) {
      row.push_back(location + spread * (0.8 * normal(generator) + 0.6 * common));
    }
    cases.rows.push_back(row);
    cases.weights.push_back(weighted ? weight(generator) : 1.0);
  }
  return cases;
}

/// The cases as a data matrix, with their weights in a last column when `weightColumn` is true.
inline QVMath_940::QVRectMatrix AsMatrix(const Cases & cases, bool weightColumn) {
  QVMath_940::QVRectMatrix matrix(static_cast<int>(cases.Size()),
                                  cases.nVars + (weightColumn ? 1 : 0), true);
  for (int r = 0; r < matrix.GetNRows(); ++r) {
    const auto & row = cases.rows[static_cast<std::size_t>(r)];
    for (int j = 0; j < cases.nVars; ++j) {
      matrix.SetElem(r, j, row[static_cast<std::size_t>(j)]);
    }
    if (weightColumn) {
      matrix.SetElem(r, cases.nVars, cases.weights[static_cast<std::size_t>(r)]);
    }
  }
  return matrix;
}

struct NaiveStatistics {
  long double nCases = 0.0L;
  std::vector<long double> means;
  std::vector<std::vector<long double>> xProds;  // about the means, or of raw values
  std::vector<long double> absMeans;             // weighted means of |x|
};

inline NaiveStatistics TwoPasses(const Cases & cases, bool intercept) {
  const std::size_t p = static_cast<std::size_t>(cases.nVars);
  NaiveStatistics s;
  s.means.assign(p, 0.0L);
  s.absMeans.assign(p, 0.0L);
  s.xProds.assign(p, std::vector<long double>(p, 0.0L));
  for (const double w : cases.weights)
    s.nCases += w;
  for (std::size_t r = 0; r < cases.Size(); ++r) {
    for (std::size_t i = 0; i < p; ++i) {
      const long double x = cases.rows[r][i];
      s.means[i] += cases.weights[r] * x / s.nCases;
      s.absMeans[i] += cases.weights[r] * std::fabs(x) / s.nCases;
    }
  }
  for (std::size_t r = 0; r < cases.Size(); ++r) {
    for (std::size_t i = 0; i < p; ++i) {
      const long double di = cases.rows[r][i] - (intercept ? s.means[i] : 0.0L);
      for (std::size_t j = 0; j < p; ++j) {
        const long double dj = cases.rows[r][j] - (intercept ? s.means[j] : 0.0L);
        s.xProds[i][j] += cases.weights[r] * di * dj;
      }
    }
  }
  return s;
}

/// sqrt(sum of squares about 0 / sum of squares about the mean): how many times larger than one
/// rounding the loss of an algorithm that works with raw values may be. 1 without intercept.
inline double Condition(const NaiveStatistics & s, bool intercept) {
  long double worst = 1.0L;
  for (std::size_t i = 0; intercept && i < s.means.size(); ++i) {
    if (s.xProds[i][i] > 0.0L) {
      worst =
          std::max(worst, std::sqrt(1.0L + s.nCases * s.means[i] * s.means[i] / s.xProds[i][i]));
    }
  }
  return static_cast<double>(worst);
}

/// Largest errors in units of epsilon: of the means over the mean |x|, of a cross-product (i, j)
/// over sqrt(s_ii s_jj), of the weighted count over itself.
struct ScaledErrors {
  double nCases = 0.0;
  double means = 0.0;
  double xProds = 0.0;
};

inline ScaledErrors Errors(const QVMath_940::QVMeansXProdData & got, const NaiveStatistics & want) {
  constexpr long double kEpsilon = std::numeric_limits<double>::epsilon();
  const auto scaled = [](long double difference, long double scale) {
    if (difference == 0.0L) return 0.0;
    if (std::isnan(difference) || !(scale > 0.0L)) return HUGE_VAL;
    return static_cast<double>(std::fabs(difference) / (kEpsilon * scale));
  };
  ScaledErrors errors;
  errors.nCases = scaled(got.GetNCases() - want.nCases, want.nCases);
  const std::size_t p = want.means.size();
  if (got.GetMeans().size() != p || got.GetXProds().GetNRows() != static_cast<int>(p)) {
    return {HUGE_VAL, HUGE_VAL, HUGE_VAL};
  }
  for (std::size_t i = 0; i < p; ++i) {
    errors.means =
        std::max(errors.means, scaled(got.GetMeans()[i] - want.means[i], want.absMeans[i]));
    for (std::size_t j = 0; j <= i; ++j) {
      const double element = got.GetXProds().GetElem(static_cast<int>(i), static_cast<int>(j));
      errors.xProds = std::max(
          errors.xProds,
          scaled(element - want.xProds[i][j], std::sqrt(want.xProds[i][i] * want.xProds[j][j])));
    }
  }
  return errors;
}

/// A sum of n roundings may lose up to n units; in practice they mostly cancel, and `factor` x
/// sqrt(n) is not reached by a sound algorithm. `condition` multiplies it for the cross-products.
inline void ExpectAccurate(const QVMath_940::QVMeansXProdData & got, const Cases & cases,
                           double condition, const std::string & what) {
  constexpr double kFactor = 4.0;
  const NaiveStatistics want = TwoPasses(cases, got.IsIntercept());
  const ScaledErrors errors = Errors(got, want);
  const double allowed = kFactor * std::sqrt(static_cast<double>(cases.Size()) + 1.0);
  EXPECT_LT(errors.nCases, allowed) << what;
  EXPECT_LT(errors.means, allowed) << what;
  EXPECT_LT(errors.xProds, allowed * condition) << what;
}

/// Everything a state holds, for comparisons to the last bit.
inline std::vector<double> AllValues(const QVMath_940::QVMeansXProdData & state) {
  std::vector<double> values = {static_cast<double>(state.GetNVars()),
                                state.IsIntercept() ? 1.0 : 0.0, state.GetNCases()};
  values.insert(values.end(), state.GetMeans().begin(), state.GetMeans().end());
  const std::vector<double> & xProds = state.GetXProds().AsVector();
  values.insert(values.end(), xProds.begin(), xProds.end());
  return values;
}
