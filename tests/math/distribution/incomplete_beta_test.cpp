#include <map>
#include <string>
#include <vector>

#include "expectations.h"
#include "math/distribution/special_functions.h"
#include "step_by_step.h"

using namespace QVMath_940;

namespace {

const std::vector<double> kShapes{1e-300, 1e-5, 0.01, 0.3, 0.5,  0.999, 1.0, 1.001,
                                  2.0,    7.5,  33.0, 450, 6000, 1e6,   1e9};

std::vector<double> Points(double a, double b) {
  std::vector<double> points{1e-300, 1e-10, 0.003, 0.2,    0.5,
                             0.501,  0.8,   0.995, 0.9985, 1.0 - 1e-10};
  const double mean = a / (a + b);
  for (double factor : {0.5, 0.99, 1.0, 1.01, 1.5}) {
    const double x = mean * factor;
    if (x > 0.0 && x < 1.0) points.push_back(x);
  }
  return points;
}

}  // namespace

TEST(IncompleteBeta, EveryWayGivesWhatItsStepsGive) {
  std::map<std::string, int> ways;
  for (double a : kShapes) {
    for (double b : kShapes) {
      for (double x : Points(a, b)) {
        std::string way;
        const double expected = step_by_step::IncompleteBeta(x, a, b, way);
        long status = 9;
        const double result = cdfbet(x, a, b, status);
        EXPECT_EQ(status, 0);
        ++ways[way];
        // A long power series is summed in another way, which is the more exact one.
        const double y = a <= 1.0 ? 1.0 - x : x;
        const bool sameSum =
            way.rfind("series", 0) != 0 || y <= 0.5 || (y >= 0.998 && a + b >= 0.01);
        const double clamped = std::min(std::max(expected, 0.0), 1.0);
        if (sameSum) {
          EXPECT_EQ(result, clamped) << way << " x " << x << " a " << a << " b " << b;
        } else {
          EXPECT_NEAR(result, clamped, 2e-12 * std::max(clamped, 0.5) + 1e-15 * (a + b))
              << way << " x " << x << " a " << a << " b " << b;
        }
      }
    }
  }
  EXPECT_GT(ways["closed form"], 100);
  EXPECT_GT(ways["series"], 100);
  EXPECT_GT(ways["series, fraction"], 100);
  EXPECT_GT(ways["fraction"], 100);
}

TEST(IncompleteBeta, WhereTheFractionDoesNotSettleTheNormalApproximationStandsIn) {
  // Next to the median of huge shapes.
  struct Case {
    double x;
    double a;
    double b;
  };
  for (const Case & c : {Case{0.42823137984195725, 4904525462983.4834, 6548454592461.5762},
                         Case{0.40866027876574684, 863562104357.45264, 1249591910405.0776},
                         Case{0.084996309825161737, 388468191869.29449, 4181944349887.6348}}) {
    std::string way;
    const double expected = step_by_step::IncompleteBeta(c.x, c.a, c.b, way);
    EXPECT_EQ(way, "fraction, Peizer-Pratt");
    long status = 9;
    EXPECT_EQ(cdfbet(c.x, c.a, c.b, status), expected);
    EXPECT_EQ(status, 0);
    EXPECT_NEAR(expected, 0.5, 0.01);
  }
}

TEST(IncompleteBeta, TheTwoSidesAreOne) {
  for (double a : kShapes) {
    for (double b : kShapes) {
      if (a + b > 1e5) continue;
      for (double x : {0.125, 0.25, 0.5, 0.75}) {
        long status = 9;
        EXPECT_NEAR(cdfbet(x, a, b, status) + cdfbet(1.0 - x, b, a, status), 1.0, 5e-11)
            << x << " " << a << " " << b;
      }
    }
  }
}

TEST(IncompleteBeta, LongSeriesAgreeWithTheirSum) {
  // The shapes of Student's t; the sum itself is off by its missing tail, some 1e-15 y / (1 - y).
  for (double df : {1.5, 4.0, 30.0, 99.0, 300.0}) {
    for (double t : {1.001, 1.5, 1.74, 2.5, 6.0, 20.0}) {
      std::string way;
      const double x = df / (df + t * t);
      const double expected = step_by_step::IncompleteBeta(x, df / 2.0, 0.5, way);
      long status = 9;
      EXPECT_CLOSE(cdfbet(x, df / 2.0, 0.5, status), expected, 5e-12)
          << way << " " << df << " " << t;
    }
  }
}

TEST(IncompleteBeta, EdgesAndRefusals) {
  long status = 9;
  EXPECT_EQ(cdfbet(0.3, 1.0, 1.0, status), 0.3);
  EXPECT_EQ(cdfbet(0.0, 2.0, 2.0, status), 0.0);
  EXPECT_EQ(cdfbet(-kInfinity, 2.0, 2.0, status), 0.0);
  EXPECT_EQ(cdfbet(1.0, 2.0, 2.0, status), 1.0);
  EXPECT_EQ(cdfbet(std::nextafter(1.0, 0.0), 2.0, 2.0, status), 1.0);
  EXPECT_EQ(cdfbet(0.3, 1.0, 1e6, status), 1.0) << "below exp(-708)";
  EXPECT_EQ(cdfbet(0.3, 1e6, 1.0, status), 0.0);
  EXPECT_EQ(cdfbet(0.3, 1e6, 2.0, status), 0.0);
  EXPECT_EQ(cdfbet(0.7, 2.0, 1e6, status), 1.0);
  EXPECT_EQ(status, 0);
  for (double bad : {0.0, -0.0, -1.0, kNaN, -kInfinity}) {
    EXPECT_MISSING(cdfbet(0.3, bad, 2.0, status));
    EXPECT_EQ(status, 1);
    EXPECT_MISSING(cdfbet(0.3, 2.0, bad, status));
    EXPECT_EQ(status, 1);
    EXPECT_MISSING(cdfbet(-1.0, 2.0, bad, status)) << "shapes are tested before x";
  }
  EXPECT_MISSING(cdfbet(kNaN, 2.0, 2.0, status));
  EXPECT_EQ(status, 1);
  EXPECT_MISSING(cdfbet(0.3, 2.0, 1e306, status));
  EXPECT_EQ(status, 2);
  EXPECT_MISSING(cdfbet(0.3, kInfinity, 2.0, status));
  EXPECT_EQ(status, 2);
}
