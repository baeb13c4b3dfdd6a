/// A linear model, fitted by sweeping a matrix of cross-products.
#pragma once

#include <string>
#include <vector>

#include "QVCancelInfo.h"
#include "QVMV.h"
#include "QVWarnings.h"
#include "case_reader.h"

namespace regression {

/// One row of the coefficient table. A figure that cannot be had is the missing value.
struct Coefficient {
  static constexpr int kNone = -1;

  std::string name;        ///< "(Intercept)", "bill_length_mm" or "species = Gentoo"
  int variable = kNone;    ///< place in the variable list; none for the intercept
  int category = kNone;    ///< the encoder's code; none for a number
  bool redundant = false;  ///< a linear combination of the terms before it: not in the model, 0
  double estimate = 0.0;
  double stdError = QVCommon_940::QVMV::Missing();
  double t = QVCommon_940::QVMV::Missing();
  double significance = QVCommon_940::QVMV::Missing();  ///< P(|T| > |t|)
};

struct LinearModel {
  std::vector<Coefficient> coefficients;  ///< the intercept first

  double modelDf = 0.0;  ///< terms in the model, the intercept not among them
  double residualDf = 0.0;
  double totalSS = 0.0;  ///< about the mean of the target
  double modelSS = 0.0;
  double residualSS = 0.0;
  double residualMS = QVCommon_940::QVMV::Missing();
  double f = QVCommon_940::QVMV::Missing();             ///< of no coefficient but the intercept
  double significance = QVCommon_940::QVMV::Missing();  ///< P(F > f)
  double rSquared = QVCommon_940::QVMV::Missing();
  double adjustedRSquared = QVCommon_940::QVMV::Missing();

  /// The predicted target of a case in the order of the variable list.
  double Predict(const double * values) const;
};

/// The codes of the warnings that a fit can leave.
constexpr long kWarningRedundantTerms = 2001;  ///< string parameters: the terms
constexpr long kWarningNoResidualDf = 2002;    ///< as many terms as cases: nothing can be tested

/// Fits the target on all predictors with an intercept.
///
/// A categorical predictor stands in the model with an indicator for each of its categories, so
/// that the matrix is singular by design: the sweep leaves out the last indicator of each, and
/// whatever else the terms before it already hold. The weight counts how often a case was seen: the
/// degrees of freedom are the sum of the weights less the number of estimated coefficients.
///
/// The variables must know their means (`ComputeStatistics`). Throws `Stopped`, and `Failure` when
/// the model is too large for the memory.
LinearModel FitModel(const Cases & cases, QVMath_940::QVCancelInfo & cancel,
                     QVCommon_940::QVWarnings & warnings);

}  // namespace regression
