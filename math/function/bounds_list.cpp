#include "BoundsList.h"

#include "INumIntegration.h"
#include "QVDisplay.h"
#include "QVMV.h"
#include "common/display/display_frame.h"
#include "common/display/display_stream_guard.h"

namespace QVMath_940 {

using QVCommon_940::QVMV;

INumIntegration::~INumIntegration() = default;

BoundsList::BoundsList(INumIntegration * integrator) : fIntegrator(integrator) {
}

BoundsList::~BoundsList() = default;

void BoundsList::Initialize(double left, double right) {
  fLeft.assign(1, left);
  fRight.assign(1, right);
}

double BoundsList::FirstMiddle() const {
  return (fRight.front() - fLeft.front()) * 0.5 + fLeft.front();
}

void BoundsList::ComputeI0andI1(double & i0, double & i1) const {
  i0 = 0.0;
  i1 = 0.0;
  if (fIntegrator == nullptr || fLeft.empty()) return;
  const double left = fLeft.front();
  const double right = fRight.front();
  const double middle = FirstMiddle();
  i0 = fIntegrator->SumUp(left, right);
  const double leftHalf = fIntegrator->SumUp(left, middle);
  const double rightHalf = fIntegrator->SumUp(middle, right);
  const bool missing = QVMV::IsMissing(leftHalf) || QVMV::IsMissing(rightHalf);
  i1 = missing ? QVMV::Missing() : leftHalf + rightHalf;
}

int BoundsList::Remove() {
  if (fLeft.empty()) return 0;
  fLeft.pop_front();
  fRight.pop_front();
  return static_cast<int>(fLeft.size());
}

int BoundsList::Split() {
  if (fLeft.empty()) return 0;
  const double middle = FirstMiddle();
  fLeft.insert(++fLeft.begin(), middle);
  fRight.push_front(middle);
  return static_cast<int>(fLeft.size());
}

double BoundsList::GetFirstLeft() const {
  return fLeft.empty() ? 0.0 : fLeft.front();
}

bool BoundsList::CanSplit() const {
  if (fLeft.empty()) return false;
  const double middle = FirstMiddle();
  return middle > fLeft.front() && middle < fRight.front();
}

void BoundsList::Display(std::basic_ostream<char> & stream) {
  using namespace QVDisplay_940;
  const DisplayStreamGuard guard(stream);
  const DisplayFrame frame("BoundsList");
  DisplayI("Size of the list", static_cast<int>(fLeft.size()));
  int index = 0;
  for (auto left = fLeft.begin(), right = fRight.begin(); left != fLeft.end(); ++left, ++right) {
    DisplayI("List index", index++);
    DisplayD("Left boundary", *left);
    DisplayD("Right boundary", *right);
  }
}

}  // namespace QVMath_940
