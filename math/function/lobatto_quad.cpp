#include "LobattoQuad.h"

#include <algorithm>
#include <cmath>

#include "BoundsList.h"
#include "IIntegrand.h"
#include "QVDisplay.h"
#include "QVMV.h"
#include "QVStatus.h"
#include "common/display/display_frame.h"
#include "common/display/display_stream_guard.h"

namespace QVMath_940 {

using QVCommon_940::QVMV;
using QVCommon_940::QVStatus;
using QVCommon_940::QVWarnings;

namespace {

constexpr long kIterationsRanOut = 901;
constexpr long kNoValue = 902;

}  // namespace

// Nodes and weights of the five-point Lobatto rule on [0, 1]: Abramowitz and Stegun, Handbook of
// Mathematical Functions (1964), table 25.6.
const double LobattoQuad::gC1 = 0.0;
const double LobattoQuad::gC2 = 0.5 - std::sqrt(0.10714285714285714);
const double LobattoQuad::gC3 = 0.5;
const double LobattoQuad::gC4 = 0.5 + std::sqrt(0.10714285714285714);
const double LobattoQuad::gC5 = 1.0;
const double LobattoQuad::gW1 = 0.05;
const double LobattoQuad::gW2 = 0.2722222222222222;
const double LobattoQuad::gW3 = 0.35555555555555557;
const double LobattoQuad::gW4 = 0.2722222222222222;
const double LobattoQuad::gW5 = 0.05;

IIntegrand::~IIntegrand() = default;

IIntegrand * IIntegrand::Clone() const {
  return nullptr;
}

LobattoQuad::LobattoQuad(IIntegrand * integrand) : fIntegrand(integrand) {
}

LobattoQuad::~LobattoQuad() = default;

void LobattoQuad::SetIntegrand(IIntegrand * integrand) {
  fIntegrand = integrand;
}

void LobattoQuad::SetTolerance(double tolerance) {
  if (tolerance > 0.0) fTolerance = tolerance;
}

void LobattoQuad::SetAbsConvergence(bool absConvergence) {
  fAbsConvergence = absConvergence;
}

void LobattoQuad::SetMaxIter(int maxIter) {
  if (maxIter > 0) fMaxIter = maxIter;
}

void LobattoQuad::SetMaxSplits(int maxSplits) {
  if (maxSplits > 0) fMaxSplits = maxSplits;
}

void LobattoQuad::SetCloseness(double closeness) {
  if (closeness > 0.0) fCloseness = closeness;
}

void LobattoQuad::SetAdjustRight(bool adjust) {
  fAdjustRight = adjust;
}

void LobattoQuad::SetAdjustLeft(bool adjust) {
  fAdjustLeft = adjust;
}

void LobattoQuad::SetBoundaryAdjustmentCoef(double coef) {
  fBoundaryCoef = coef;
}

void LobattoQuad::SetBoundaryAdjustmentPivot(double pivot) {
  fBoundaryPivot = pivot;
}

const QVWarnings & LobattoQuad::GetWarnings() const {
  return fWarnings;
}

int LobattoQuad::GetNIterations() const {
  return fNIterations;
}

void LobattoQuad::Display(std::basic_ostream<char> & stream) const {
  using namespace QVDisplay_940;
  const DisplayStreamGuard guard(stream);
  const DisplayFrame frame("LobattoQuad");
  DisplayD("Tolerance", fTolerance);
  DisplayB("Check for absolute convergence indicator", fAbsConvergence);
  DisplayI("Maximum number of iterations (in outer loop)", fMaxIter);
  DisplayI("Number of performed iterations", fNIterations);
  DisplayI("Maximum number of splits (in inner loop)", fMaxSplits);
  DisplayD("Closeness ratio", fCloseness);
}

double LobattoQuad::SumUp(double left, double right) {
  if (left >= right || fIntegrand == nullptr) return 0.0;
  const double w = right - left;
  const double nodes[] = {gC1, gC2, gC3, gC4, gC5};
  const double weights[] = {gW1, gW2, gW3, gW4, gW5};
  double sum = 0.0;
  for (int i = 0; i < 5; ++i) {
    const double value = fIntegrand->Evaluate(left + nodes[i] * w);
    if (QVMV::IsMissing(value)) return QVMV::Missing();
    sum += weights[i] * value;
  }
  return w * sum;
}

bool LobattoQuad::TrimEnd(double & end) {
  const double atPivot = fIntegrand->Evaluate(fBoundaryPivot);
  const double atEnd = fIntegrand->Evaluate(end);
  if (QVMV::IsMissing(atPivot) || QVMV::IsMissing(atEnd)) return false;
  const double negligible = std::fabs(atPivot) * fBoundaryCoef;
  if (!(std::fabs(atEnd) < negligible)) return true;
  double d = end - fBoundaryPivot;
  for (;;) {
    const double half = d * 0.5;
    // At 0 and at infinity the distance stays as it is, and would for ever.
    if (half == d || half != half) break;
    d = half;
    const double value = fIntegrand->Evaluate(fBoundaryPivot + d);
    if (QVMV::IsMissing(value)) return false;
    if (!(std::fabs(value) < negligible)) break;
  }
  end = fBoundaryPivot + 2.0 * d;
  return true;
}

bool LobattoQuad::StopOuterLoop(int listSize, double left, double right, double width) const {
  return listSize == 0 || fNIterations >= fMaxIter || (right - left) / width <= fCloseness;
}

bool LobattoQuad::StopInnerLoop(int split, double i0, double i1) const {
  if (split > fMaxSplits) return true;
  const double difference = std::fabs(i1 - i0);
  if (fAbsConvergence) return difference <= fTolerance;
  const double larger = std::max(std::fabs(i0), std::fabs(i1));
  return larger == 0.0 || difference / larger <= fTolerance;
}

double LobattoQuad::Failed() {
  fWarnings.AddWarning(QVStatus(kNoValue, true), QVWarnings::DestinationBoth);
  return QVMV::Missing();
}

double LobattoQuad::Integrate(double left, double right) {
  fNIterations = 0;
  if (fIntegrand == nullptr) return 0.0;
  if (std::isnan(left) || std::isnan(right)) return Failed();

  double a = left;
  double b = right;
  bool bad = fAdjustRight && !TrimEnd(b);
  if (fAdjustLeft && !bad) bad = !TrimEnd(a);
  if (bad) return Failed();
  if (!(b > left)) return 0.0;

  BoundsList panels(this);
  panels.Initialize(a, b);
  const double width = b - a;
  double first = a;
  double sum = 0.0;
  double i0 = 0.0;
  double i1 = 0.0;
  const auto missing = [&i0, &i1] { return QVMV::IsMissing(i0) || QVMV::IsMissing(i1); };
  int size = 1;
  while (!StopOuterLoop(size, first, b, width)) {
    panels.ComputeI0andI1(i0, i1);
    if (missing()) return Failed();
    for (int split = 0; !StopInnerLoop(split, i0, i1) && panels.CanSplit(); ++split) {
      panels.Split();
      panels.ComputeI0andI1(i0, i1);
      if (missing()) return Failed();
    }
    sum += i1;
    if (std::isnan(sum)) return Failed();
    ++fNIterations;
    size = panels.Remove();
    if (size > 0) first = panels.GetFirstLeft();
    if (std::isinf(sum)) return sum;
  }
  if (size > 0 && fNIterations >= fMaxIter) {
    panels.Initialize(first, b);
    panels.ComputeI0andI1(i0, i1);
    if (missing()) return Failed();
    sum += i1;
    fWarnings.AddWarning(QVStatus(kIterationsRanOut, true), QVWarnings::DestinationBoth);
    if (std::isnan(sum)) return Failed();
  }
  return sum;
}

}  // namespace QVMath_940
