#include <ctime>
#include <set>
#include <string>

#include "expectations.h"
#include "math/distribution/special_functions.h"
#include "step_by_step.h"

using namespace QVMath_940;

namespace {

double Milliseconds() {
  timespec now{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) * 1e-6;
}

}  // namespace

TEST(IncompleteGamma, EveryWayGivesWhatItsStepsGiveToTheLastBit) {
  std::set<std::string> ways;
  const auto compare = [&ways](double x, double a) {
    for (bool lower : {true, false}) {
      std::string way;
      const double expected = step_by_step::IncompleteGamma(x, a, lower, way);
      long status = 9;
      EXPECT_EQ(gammad(x, a, lower, status), expected) << way << " x " << x << " a " << a;
      EXPECT_EQ(status, 0);
      ways.insert(way);
    }
  };
  for (double a : {1e-300, 1e-17, 1e-4, 0.3, 0.5, 1.0, 1.5, 10.0, 777.0, 5e4, 1e7, 3e9}) {
    for (double ratio : {1e-6, 0.3, 0.9, 0.999, 1.0 - 1e-7, 1.0, 1.0 + 1e-7, 1.001, 1.1, 3.0, 1e5})
      compare(a * ratio, a);
    for (double x : {1e-300, 1e-8, 0.4, 0.7, 1.0, 1.0 + 1e-10, 20.0, 1000.0, 1e78, 1e300})
      compare(x, a);
  }
  const std::set<std::string> expected{
      "closed form",
      "series",
      "series: above 1, Wilson-Hilferty",
      "series: ratio 1, Wilson-Hilferty",
      "series: too many terms, Peizer-Pratt",
      "series: too many terms, Wilson-Hilferty",
      "fraction",
      "fraction: x too large, Peizer-Pratt",
      "fraction: x too large, Wilson-Hilferty",
  };
  EXPECT_EQ(ways, expected);
}

TEST(IncompleteGamma, TheSeriesHasNoTermsToAddWhereTheRatioIsOne) {
  // a + 1 is a here.
  long status = 9;
  std::string way;
  EXPECT_EQ(gammad(1e17, 1e17, true, status), step_by_step::IncompleteGamma(1e17, 1e17, true, way));
  EXPECT_EQ(way, "series: ratio 1, Wilson-Hilferty");
  EXPECT_EQ(gammad(1e17, 1e17, false, status),
            step_by_step::IncompleteGamma(1e17, 1e17, false, way));
  EXPECT_EQ(way, "series: ratio 1, Peizer-Pratt");
}

TEST(IncompleteGamma, Edges) {
  long status = 9;
  EXPECT_EQ(gammad(0.0, 2.0, true, status), 0.0);
  EXPECT_EQ(gammad(0.0, 2.0, false, status), 1.0);
  EXPECT_EQ(gammad(-1.0, 2.0, true, status), 0.0);
  EXPECT_EQ(gammad(-1.0, 2.0, false, status), 1.0);
  EXPECT_EQ(gammad(709.0, 1.0, true, status), 1.0);
  EXPECT_EQ(gammad(709.0, 1.0, false, status), 0.0);
  EXPECT_EQ(gammad(kInfinity, 1.0, true, status), 1.0);
  EXPECT_EQ(gammad(kInfinity, 7.0, true, status), 1.0);
  EXPECT_EQ(gammad(kInfinity, 7.0, false, status), 0.0);
  EXPECT_EQ(gammad(7.0, kInfinity, true, status), 0.0);
  EXPECT_EQ(gammad(7.0, kInfinity, false, status), 1.0);
  EXPECT_EQ(status, 0);
}

TEST(IncompleteGamma, Refusals) {
  long status = 9;
  for (double a : {0.0, -0.0, -1.0, kNaN, -kInfinity}) {
    EXPECT_MISSING(gammad(1.0, a, true, status));
    EXPECT_EQ(status, 1);
    EXPECT_MISSING(gammad(-1.0, a, false, status)) << "the shape is tested before x";
  }
  EXPECT_MISSING(gammad(kNaN, 1.0, true, status));
  EXPECT_EQ(status, 1);
  EXPECT_MISSING(gammad(kInfinity, kInfinity, true, status));
  EXPECT_EQ(status, 1);
}

TEST(IncompleteGamma, LongSumsGiveWayToTheApproximations) {
  for (double a : {1e11, 1e12, 1e13, 1e15, 1e17, 1e20, 1e50, 1e76}) {
    for (double distance : {-1e-5, -3e-7, -1e-9, 1e-9, 3e-7, 1e-5}) {
      for (bool lower : {true, false}) {
        const double before = Milliseconds();
        long status = 9;
        const double result = gammad(a * (1.0 + distance), a, lower, status);
        EXPECT_LT(Milliseconds() - before, 1000.0) << a << " " << distance;
        EXPECT_EQ(status, 0);
        EXPECT_GE(result, 0.0);
        EXPECT_LE(result, 1.0);
      }
    }
  }
}
