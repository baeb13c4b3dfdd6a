// The largest errors of docs/accuracy.md, against figures of 50 digits
// (tools/distribution_figures.py).

#include <gtest/gtest.h>

#include <ostream>
#include <string>

#include "figures.h"

namespace {

struct Bound {
  std::string function;
  double bulk;
  double tail;
};

std::ostream & operator<<(std::ostream & stream, const Bound & bound) {
  return stream << bound.function;
}

// clang-format off
const Bound kBounds[] = {
    {"CdfStdNorm", 3e-15, 4e-13},
    {"CdfNorm", 3e-15, 3e-13},
    {"CdfChi", 9e-13, 9e-13},
    {"SigChi", 9e-13, 2e-12},
    {"CdfGam", 9e-13, 1e-12},
    {"CdfT", 5e-12, 2e-12},
    {"SigT", 4e-12, 1e-12},
    {"CdfF", 2e-12, 6e-12},
    {"SigF", 2e-12, 2e-12},
    {"CdfBeta", 7e-12, 2e-12},
    {"CdfBin", 2e-12, 3e-12},
    {"CDFHyper", 3e-15, 4e-15},
    {"PdfBin", 2e-12, 2e-12},
    {"PdfNegBin", 4e-11, 5e-11},
    {"PdfHyper", 9e-11, 9e-11},
    {"PdfGamma", 9e-13, 9e-13},
    {"PdfNormal", 2e-15, 2e-13},
    {"PdfNormalStandard", 7e-16, 8e-14},
    {"PdfT", 2e-12, 2e-12},
    {"zelvdnlgam", 6e-16, 6e-16},
};
// clang-format on

class Accuracy : public ::testing::TestWithParam<Bound> {};

std::string Place(const figures::Worst & worst) {
  std::string text;
  for (double argument : worst.arguments)
    text.append(" ").append(::testing::PrintToString(argument));
  return text;
}

}  // namespace

TEST_P(Accuracy, LargestErrorIsAsStated) {
  const Bound & bound = GetParam();
  figures::Function call = nullptr;
  for (const figures::LibraryFunction & function : figures::LibraryFunctions()) {
    if (function.name == bound.function) call = function.call;
  }
  ASSERT_NE(call, nullptr);
  figures::Regions regions = figures::Read(QVCOMMON_TEST_DATA "/distribution", bound.function);
  ASSERT_EQ(regions["bulk"].size(), 2000u);
  ASSERT_EQ(regions["tail"].size(), 2000u);
  const figures::Worst bulk = figures::LargestError(bound.function, regions["bulk"], call);
  const figures::Worst tail = figures::LargestError(bound.function, regions["tail"], call);
  EXPECT_LE(bulk.error, bound.bulk) << Place(bulk);
  EXPECT_LE(tail.error, bound.tail) << Place(tail);
}

INSTANTIATE_TEST_SUITE_P(Functions, Accuracy, ::testing::ValuesIn(kBounds),
                         [](const auto & tested) { return tested.param.function; });

TEST(AccuracyTable, CoversEveryFunction) {
  EXPECT_EQ(figures::LibraryFunctions().size(), std::size(kBounds));
}
