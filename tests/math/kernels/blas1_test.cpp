#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <random>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Blas1.h"

using QVMath_940::Blas1;
using Vector = std::vector<double>;

namespace {

const double kInfinity = std::numeric_limits<double>::infinity();
const std::vector<int> kCounts = {-1, 0, 1, 2, 3, 7, 33, 129};
const std::vector<int> kStrides = {-3, -1, 0, 1, 2};

Vector RandomVector(std::size_t n, unsigned seed) {
  std::mt19937 engine(seed);
  std::uniform_real_distribution<double> uniform(-1.0, 1.0);
  Vector v(n);
  for (double & x : v)
    x = uniform(engine);
  return v;
}

/// Exactly the places that a walk of n elements may touch: a step outside is an error that the
/// address sanitizer sees.
std::size_t Room(int n, int inc) {
  return n < 1 ? 0 : static_cast<std::size_t>((n - 1) * std::abs(inc) + 1);
}

/// The place of the i-th element.
std::size_t Place(int n, int inc, int i) {
  return static_cast<std::size_t>(inc < 0 ? (i + 1 - n) * inc : i * inc);
}

template <typename Check>
void ForEachWalk(Check check) {
  for (const int n : kCounts) {
    for (const int incx : kStrides) {
      for (const int incy : kStrides) {
        check(n, incx, incy, RandomVector(Room(n, incx), 1), RandomVector(Room(n, incy), 2));
      }
    }
  }
}

TEST(Blas1, DaxpyTakesAnyStride) {
  ForEachWalk([](int n, int incx, int incy, const Vector & x, Vector y) {
    Vector expected = y;
    for (int i = 0; i < n; ++i)
      expected[Place(n, incy, i)] += 0.7 * x[Place(n, incx, i)];
    Blas1::Daxpy(n, 0.7, x.data(), incx, y.data(), incy);
    EXPECT_EQ(y, expected) << n << ' ' << incx << ' ' << incy;
  });
}

TEST(Blas1, DaxpyOfZeroReadsNothing) {
  Blas1::Daxpy(5, 0.0, nullptr, 1, nullptr, 1);
  double x[] = {kInfinity};
  double y[] = {2.0};
  Blas1::Daxpy(1, 0.0, x, 1, y, 1);
  EXPECT_EQ(y[0], 2.0);
}

TEST(Blas1, DCopyTakesAnyStride) {
  ForEachWalk([](int n, int incx, int incy, const Vector & x, Vector y) {
    Vector expected = y;
    for (int i = 0; i < n; ++i)
      expected[Place(n, incy, i)] = x[Place(n, incx, i)];
    Blas1::DCopy(n, x.data(), incx, y.data(), incy);
    EXPECT_EQ(y, expected);
  });
}

TEST(Blas1, DCopyWithStrideZeroBroadcasts) {
  const double x[] = {4.0};
  double y[] = {1.0, 2.0, 3.0};
  Blas1::DCopy(3, x, 0, y, 1);
  EXPECT_THAT(y, testing::ElementsAre(4.0, 4.0, 4.0));
}

TEST(Blas1, DDotTakesAnyStride) {
  ForEachWalk([](int n, int incx, int incy, const Vector & x, const Vector & y) {
    double sum = 0.0;
    for (int i = 0; i < n; ++i)
      sum += x[Place(n, incx, i)] * y[Place(n, incy, i)];
    EXPECT_EQ(Blas1::DDot(n, x.data(), incx, y.data(), incy), sum);
  });
}

TEST(Blas1, SumsRunInIndexOrder) {
  const double x[] = {1e16, 1.0, -1e16, 1.0};
  const double ones[] = {1.0, 1.0, 1.0, 1.0};
  EXPECT_EQ(Blas1::DDot(4, x, 1, ones, 1), 1.0);
  const double y[] = {1e16, 1.0, 1.0, 2.0};
  EXPECT_EQ(Blas1::DASum(4, y, 1), 1e16 + 2.0);
}

TEST(Blas1, DSwapTakesAnyStride) {
  ForEachWalk([](int n, int incx, int incy, Vector x, Vector y) {
    Vector xExpected = x;
    Vector yExpected = y;
    for (int i = 0; i < n; ++i) {
      std::swap(xExpected[Place(n, incx, i)], yExpected[Place(n, incy, i)]);
    }
    Blas1::DSwap(n, x.data(), incx, y.data(), incy);
    EXPECT_EQ(x, xExpected);
    EXPECT_EQ(y, yExpected);
  });
}

TEST(Blas1, DRotTakesAnyStride) {
  ForEachWalk([](int n, int incx, int incy, Vector x, Vector y) {
    Vector xExpected = x;
    Vector yExpected = y;
    for (int i = 0; i < n; ++i) {
      double & a = xExpected[Place(n, incx, i)];
      double & b = yExpected[Place(n, incy, i)];
      const double turned = 0.6 * a + 0.8 * b;
      b = 0.6 * b - 0.8 * a;
      a = turned;
    }
    Blas1::DRot(n, x.data(), incx, y.data(), incy, 0.6, 0.8);
    EXPECT_EQ(x, xExpected);
    EXPECT_EQ(y, yExpected);
  });
}

TEST(Blas1, OneVectorRoutinesTakePositiveStrides) {
  for (const int n : kCounts) {
    for (const int inc : {1, 2, 5}) {
      Vector x = RandomVector(Room(n, inc), 3);
      double sum = 0.0;
      double square = 0.0;
      int largest = 0;
      Vector scaled = x;
      for (int i = 0; i < n; ++i) {
        const double value = x[Place(n, inc, i)];
        sum += std::fabs(value);
        square += value * value;
        if (std::fabs(value) > std::fabs(x[Place(n, inc, largest)])) largest = i;
        scaled[Place(n, inc, i)] *= -1.5;
      }
      EXPECT_EQ(Blas1::DASum(n, x.data(), inc), sum);
      EXPECT_NEAR(Blas1::DNrm2(n, x.data(), inc), std::sqrt(square), 1e-14 * (1.0 + square));
      EXPECT_EQ(Blas1::IDAMax(n, x.data(), inc), n < 1 ? 0 : largest + 1);
      Blas1::DScal(n, -1.5, x.data(), inc);
      EXPECT_EQ(x, scaled);
    }
  }
}

TEST(Blas1, OneVectorRoutinesIgnoreUselessStrides) {
  Vector x = {3.0, -4.0, 5.0};
  for (const int inc : {0, -1, -7}) {
    EXPECT_EQ(Blas1::DASum(3, x.data(), inc), 0.0);
    EXPECT_EQ(Blas1::DNrm2(3, x.data(), inc), 0.0);
    EXPECT_EQ(Blas1::IDAMax(3, x.data(), inc), 0);
    EXPECT_EQ(Blas1::IDAMax(1, x.data(), inc), 0);
    Blas1::DScal(3, 9.0, x.data(), inc);
  }
  EXPECT_THAT(x, testing::ElementsAre(3.0, -4.0, 5.0));
}

TEST(Blas1, NothingHappensBelowOneElement) {
  for (const int n : {0, -1}) {
    EXPECT_EQ(Blas1::DASum(n, nullptr, 1), 0.0);
    EXPECT_EQ(Blas1::DDot(n, nullptr, 1, nullptr, 1), 0.0);
    EXPECT_EQ(Blas1::DNrm2(n, nullptr, 1), 0.0);
    EXPECT_EQ(Blas1::IDAMax(n, nullptr, 1), 0);
    Blas1::Daxpy(n, 1.0, nullptr, 1, nullptr, 1);
    Blas1::DCopy(n, nullptr, 1, nullptr, 1);
    Blas1::DScal(n, 2.0, nullptr, 1);
    Blas1::DSwap(n, nullptr, 1, nullptr, 1);
    Blas1::DRot(n, nullptr, 1, nullptr, 1, 1.0, 0.0);
  }
}

TEST(Blas1, DNrm2NeitherOverflowsNorUnderflows) {
  const double large[] = {3e300, 4e300};
  const double small[] = {3e-300, 0.0, -4e-300};
  const double zeroes[] = {0.0, 0.0};
  const double infinite[] = {1.0, kInfinity};
  EXPECT_DOUBLE_EQ(Blas1::DNrm2(2, large, 1), 5e300);
  EXPECT_DOUBLE_EQ(Blas1::DNrm2(3, small, 1), 5e-300);
  EXPECT_EQ(Blas1::DNrm2(2, zeroes, 1), 0.0);
  EXPECT_EQ(Blas1::DNrm2(2, infinite, 1), kInfinity);
  EXPECT_EQ(Blas1::DNrm2(1, small + 2, 1), 4e-300);
}

TEST(Blas1, IDAMaxTakesTheFirstOfEqualMagnitudes) {
  const double x[] = {1.0, -3.0, 3.0, 2.0};
  EXPECT_EQ(Blas1::IDAMax(4, x, 1), 2);
  EXPECT_EQ(Blas1::IDAMax(2, x, 2), 2);  // counts elements, not places
  EXPECT_EQ(Blas1::IDAMax(1, x, 1), 1);
}

struct Rotation {
  double a;
  double b;
  double c = -9.0;
  double s = -9.0;
};

Rotation MakeRotation(double a, double b) {
  Rotation rotation{a, b};
  Blas1::DRotG(&rotation.a, &rotation.b, &rotation.c, &rotation.s);
  return rotation;
}

TEST(Blas1, DRotGTakesTheSecondElementToZero) {
  for (const double a : {0.0, 3.0, -3.0, 1e-200, -1e200}) {
    for (const double b : {0.0, 4.0, -4.0, 3.0, 1e-200, 1e200}) {
      const Rotation made = MakeRotation(a, b);
      const double size = std::max(std::fabs(a), std::fabs(b));
      EXPECT_NEAR(made.c * made.c + made.s * made.s, 1.0, 1e-15);
      EXPECT_NEAR(made.c * b - made.s * a, 0.0, 1e-15 * size);
      EXPECT_NEAR(made.c * a + made.s * b, made.a, 1e-15 * size);
      // The rotation is rebuilt from z.
      const double z = made.b;
      double c = 0.0;
      double s = 1.0;
      if (std::fabs(z) < 1.0) {
        s = z;
        c = std::sqrt(1.0 - z * z);
      } else if (std::fabs(z) > 1.0) {
        c = 1.0 / z;
        s = std::sqrt(1.0 - c * c);
      }
      EXPECT_NEAR(c, made.c, 1e-15) << a << ' ' << b;
      EXPECT_NEAR(s, made.s, 1e-15) << a << ' ' << b;
    }
  }
}

TEST(Blas1, DRotGTakesTheSignOfTheLarger) {
  EXPECT_DOUBLE_EQ(MakeRotation(-4.0, 3.0).a, -5.0);
  EXPECT_DOUBLE_EQ(MakeRotation(4.0, -3.0).a, 5.0);
  EXPECT_DOUBLE_EQ(MakeRotation(3.0, -4.0).a, -5.0);
  EXPECT_LT(MakeRotation(2.0, -2.0).a, 0.0);  // equal: the second decides
  const Rotation none = MakeRotation(0.0, 0.0);
  EXPECT_EQ(none.a, 0.0);
  EXPECT_EQ(none.b, 0.0);
  EXPECT_EQ(none.c, 1.0);
  EXPECT_EQ(none.s, 0.0);
  const Rotation quarter = MakeRotation(0.0, -2.0);
  EXPECT_EQ(quarter.a, -2.0);
  EXPECT_EQ(quarter.b, 1.0);
  EXPECT_EQ(quarter.c, 0.0);
  EXPECT_EQ(quarter.s, 1.0);
  EXPECT_EQ(MakeRotation(5.0, 0.0).b, 0.0);
}

TEST(Blas1, LSameIsBlindToCase) {
  EXPECT_TRUE(Blas1::LSame('a', 'A'));
  EXPECT_TRUE(Blas1::LSame('Z', 'z'));
  EXPECT_TRUE(Blas1::LSame('N', 'N'));
  EXPECT_TRUE(Blas1::LSame('1', '1'));
  EXPECT_FALSE(Blas1::LSame('a', 'b'));
  EXPECT_FALSE(Blas1::LSame('@', '`'));  // 32 apart like the letters, but none
  EXPECT_FALSE(Blas1::LSame('[', '{'));
}

TEST(Blas1, SmallFunctions) {
  EXPECT_EQ(Blas1::D_Abs(-2.5), 2.5);
  EXPECT_FALSE(std::signbit(Blas1::D_Abs(-0.0)));
  EXPECT_EQ(Blas1::D_Max(-2.0, 1.0), 1.0);
  EXPECT_EQ(Blas1::D_Max(3.0, 1.0), 3.0);
  EXPECT_EQ(Blas1::D_Sign(-3.0, 2.0), 3.0);
  EXPECT_EQ(Blas1::D_Sign(3.0, -2.0), -3.0);
  EXPECT_EQ(Blas1::D_Sign(3.0, 0.0), 3.0);
  EXPECT_EQ(Blas1::D_Sign(-3.0, -0.0), 3.0);  // a zero has no sign here
  EXPECT_EQ(Blas1::I_Max(-4, 3), 3);
  EXPECT_EQ(Blas1::I_Max(4, 3), 4);
  EXPECT_EQ(Blas1::I_Min(-4, 3), -4);
  EXPECT_EQ(Blas1::I_Min(4, 3), 3);
}

}  // namespace
