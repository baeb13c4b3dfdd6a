#include "linear_model.h"

#include <algorithm>
#include <cmath>

#include "QVBitSet.h"
#include "QVDistFun.h"
#include "QVMV.h"
#include "QVProvMeans.h"
#include "QVSymMatrix.h"
#include "design.h"
#include "failure.h"
#include "interrupt.h"
#include "progress.h"

namespace regression {

using QVCommon_940::QVMV;
using QVCommon_940::QVStatus;
using QVCommon_940::QVWarnings;
using namespace QVMath_940;

namespace {

/// A term whose own variation is smaller than this part of its variation before the sweep is a
/// linear combination of the terms before it.
constexpr double kTolerance = 1e-12;

/// How many cases are taken between two questions whether to stop.
constexpr std::size_t kCasesPerQuestion = 1024;

/// Calls `take` with each case and its weight; now and then shows the progress and asks `cancel`.
template <class Take>
void ForEachCase(const Cases & cases, const char * what, QVCancelInfo & cancel, Take take) {
  Progress progress(what);
  for (std::size_t i = 0; i < cases.Size(); ++i) {
    if (i % kCasesPerQuestion == 0) {
      StopIfAsked(cancel);
      progress.Show(static_cast<double>(i), static_cast<double>(cases.Size()));
    }
    take(cases.At(i), cases.Weight(i));
  }
}

/// Means and cross-products of the design's columns. Throws `Failure` when they do not fit into the
/// memory or into doubles.
QVProvMeans Accumulate(const Cases & cases, const std::vector<Term> & design,
                       QVCancelInfo & cancel) {
  QVProvMeans moments(static_cast<int>(design.size()), true);
  if (!moments.GetXProds().IsValidMatrix()) throw Failure("the model has too many terms");
  std::vector<double> row(design.size());
  ForEachCase(cases, "Accumulating", cancel, [&](const double * values, double weight) {
    for (std::size_t j = 0; j < design.size(); ++j)
      row[j] = design[j].Value(values);
    moments.Update(row, weight);
  });
  for (int j = 0; j < moments.GetNVars(); ++j) {
    if (std::isfinite(moments.GetXProds().GetElem(j, j))) continue;
    throw Failure("the numbers of '" + design[static_cast<std::size_t>(j)].name +
                  "' are too large for a sum of squares");
  }
  return moments;
}

/// Sweeps the predictors, which are all rows but the last. The set tells which went in.
QVBitSet SweepPredictors(QVSymMatrix & xProds, QVCancelInfo & cancel) {
  QVBitSet inModel(xProds.GetNRows());
  std::vector<double> variation;
  xProds.GetDiagonal(variation);
  for (int k = 0; k < xProds.GetNRows() - 1; ++k) {
    StopIfAsked(cancel);
    xProds.Sweep(k, kTolerance, variation, inModel, true);
  }
  return inModel;
}

/// The sum of squared residuals, from the residuals themselves. The target's corner of the swept
/// matrix holds it too, but as what is left of the whole sum of squares, and that difference has
/// few digits when the fit is close.
double ResidualSS(const Cases & cases, const std::vector<Term> & design,
                  const QVProvMeans & moments, const std::vector<double> & estimates,
                  QVCancelInfo & cancel) {
  const std::vector<double> & means = moments.GetMeans();
  double sum = 0.0;
  ForEachCase(cases, "Taking residuals", cancel, [&](const double * values, double weight) {
    double residual = design.back().Value(values) - means.back();
    for (std::size_t j = 0; j < estimates.size(); ++j) {
      residual -= estimates[j] * (design[j].Value(values) - means[j]);
    }
    sum += weight * residual * residual;
  });
  return sum;
}

/// Divides where that is defined.
double Ratio(double a, double b) {
  return b > 0.0 && !QVMV::IsMissing(a) ? a / b : QVMV::Missing();
}

/// The analysis of variance of a model with `terms` terms on cases with this sum of weights.
void AnalyseVariance(LinearModel & model, double weight, int terms, double total, double residual) {
  model.modelDf = terms;
  model.residualDf = weight - terms - 1.0;
  model.totalSS = total;
  model.residualSS = residual;
  model.modelSS = std::max(total - residual, 0.0);
  model.residualMS = Ratio(model.residualSS, model.residualDf);
  model.rSquared = Ratio(model.modelSS, total);
  const double unexplained = Ratio(model.residualMS, Ratio(total, weight - 1.0));
  model.adjustedRSquared = QVMV::IsMissing(unexplained) ? unexplained : 1.0 - unexplained;
  model.f = Ratio(Ratio(model.modelSS, model.modelDf), model.residualMS);
  model.significance = QVMV::IsMissing(model.f)
                           ? QVMV::Missing()
                           : QVDistFun::SigF(model.f, model.modelDf, model.residualDf);
}

/// Standard error and t test of a coefficient whose variance is `factor` times the residual mean
/// square.
void Test(Coefficient & coefficient, double factor, const LinearModel & model) {
  if (coefficient.redundant || QVMV::IsMissing(model.residualMS)) return;
  coefficient.stdError = std::sqrt(model.residualMS * factor);
  coefficient.t = Ratio(coefficient.estimate, coefficient.stdError);
  if (QVMV::IsMissing(coefficient.t)) return;
  coefficient.significance = 2.0 * QVDistFun::SigT(std::abs(coefficient.t), model.residualDf);
}

/// The intercept and the terms, from the swept matrix.
///
/// With K the swept rows, the block of K by K is minus the inverse C of the cross-products, and the
/// target's row over K holds the coefficients b. The intercept is the target's mean less m'b, with
/// m the means over K, and its variance is that of a mean plus m'Cm.
void TakeCoefficients(LinearModel & model, const QVProvMeans & moments, const QVSymMatrix & swept,
                      const QVBitSet & inModel, const std::vector<double> & estimates,
                      const std::vector<Term> & design) {
  const auto mean = [&](int j) {
    const auto place = static_cast<std::size_t>(j);
    return design[place].centre + moments.GetMeans()[place];
  };
  const int target = swept.GetNRows() - 1;

  model.coefficients.emplace_back();
  model.coefficients.front().name = "(Intercept)";
  double intercept = mean(target);
  double interceptFactor = 1.0 / moments.GetNCases();
  for (int j = 0; j < target; ++j) {
    const Term & term = design[static_cast<std::size_t>(j)];
    Coefficient coefficient;
    coefficient.name = term.name;
    coefficient.variable = term.variable;
    coefficient.category = term.category;
    coefficient.redundant = !inModel.IsIn(j);
    coefficient.estimate = estimates[static_cast<std::size_t>(j)];
    Test(coefficient, -swept.GetElem(j, j), model);
    model.coefficients.push_back(coefficient);

    if (coefficient.redundant) continue;
    intercept -= mean(j) * coefficient.estimate;
    for (int i = 0; i < target; ++i) {
      if (inModel.IsIn(i)) interceptFactor -= mean(i) * swept.GetElem(i, j) * mean(j);
    }
  }
  model.coefficients.front().estimate = intercept;
  Test(model.coefficients.front(), interceptFactor, model);
}

void AddWarnings(const LinearModel & model, QVWarnings & warnings) {
  const QVStatus redundant(kWarningRedundantTerms, true);
  for (const Coefficient & coefficient : model.coefficients) {
    if (!coefficient.redundant) continue;
    warnings.AddWarning(redundant, QVWarnings::DestinationFirst);
    warnings.AddParameter(redundant, coefficient.name);
  }
  if (model.residualDf <= 0.0) {
    warnings.AddWarning(QVStatus(kWarningNoResidualDf, true), QVWarnings::DestinationFirst);
  }
}

}  // namespace

LinearModel FitModel(const Cases & cases, QVCancelInfo & cancel, QVWarnings & warnings) {
  const std::vector<Term> design = MakeDesign(cases.variables);
  const QVProvMeans moments = Accumulate(cases, design, cancel);

  QVSymMatrix swept = moments.GetXProds();
  const int target = swept.GetNRows() - 1;
  const double total = swept.GetElem(target, target);
  const QVBitSet inModel = SweepPredictors(swept, cancel);
  std::vector<double> estimates;
  swept.GetRegCoeffs(estimates, inModel);
  const double residual = ResidualSS(cases, design, moments, estimates, cancel);

  LinearModel model;
  AnalyseVariance(model, moments.GetNCases(), inModel.InSet(), total, residual);
  TakeCoefficients(model, moments, swept, inModel, estimates, design);
  AddWarnings(model, warnings);
  return model;
}

double LinearModel::Predict(const double * values) const {
  double sum = 0.0;
  for (const Coefficient & coefficient : coefficients) {
    if (coefficient.variable == Coefficient::kNone) {
      sum += coefficient.estimate;
    } else if (coefficient.category == Coefficient::kNone) {
      sum += coefficient.estimate * values[coefficient.variable];
    } else if (values[coefficient.variable] == coefficient.category) {
      sum += coefficient.estimate;
    }
  }
  return sum;
}

}  // namespace regression
