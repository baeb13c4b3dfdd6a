// Every function over the full cross product of hostile arguments: it must end in time and give a
// number of its range or the missing value, whatever the bits.

#include <climits>
#include <cstdint>
#include <cstring>
#include <ctime>
#include <functional>
#include <ostream>
#include <string>
#include <vector>

#include "QVDistFun.h"
#include "expectations.h"

using QVCommon_940::QVMV;
using QVMath_940::QVDistFun;

namespace {

double FromBits(std::uint64_t bits) {
  double value = 0.0;
  std::memcpy(&value, &bits, sizeof value);
  return value;
}

const std::vector<double> & HostileValues() {
  static const std::vector<double> values{
      kNaN,
      FromBits(0x7FF0000000000001u),  // a signalling NaN
      FromBits(0xFFFFFFFFFFFFFFFFu),
      kInfinity,
      -kInfinity,
      QVMV::Missing(),
      -QVMV::Missing(),
      0.0,
      -0.0,
      kTiny,
      -kTiny,
      2.2250738585072014e-308,
      1e-17,
      1e-5,
      0.3,
      0.5,
      0.7,
      1.0 - kEpsilon / 2.0,
      1.0,
      1.0 + kEpsilon,
      -1.0,
      -2.5,
      2.0,
      2.5,
      33.0,
      34.0,
      100.0,
      1000.0,
      999999.0,
      1e8,
      2147483647.0,
      2147483648.0,
      -2147483649.0,
      1e12,
      9007199254740993.0,
      1e17,
      1e20 * (1.0 + 1e-9),
      1e20,
      1e77,
      1e154,
      2.5e305,
      1e306,
  };
  return values;
}

// For functions of three arguments that take long, and for those of four and five, whose full cross
// products would take hours.
const std::vector<double> & FewHostileValues() {
  static const std::vector<double> values{
      kNaN, kInfinity, -kInfinity, QVMV::Missing(), 0.0,      kTiny, 1e-17, 0.3, 0.5,
      1.0,  -1.0,      2.5,        1000.0,          999999.0, 1e12,  1e306};
  return values;
}

const std::vector<double> & FewestHostileValues() {
  static const std::vector<double> values{kNaN, kInfinity, QVMV::Missing(), 0.0,  0.3,
                                          1.0,  2.5,       999999.0,        1e306};
  return values;
}

enum class Range { Probability, NotNegative, Any };

struct Tested {
  std::string name;
  int arguments;
  Range range;
  // The result; the status, or -1 for a function without one.
  std::function<double(const double *, long &)> call;
};

std::ostream & operator<<(std::ostream & stream, const Tested & tested) {
  return stream << tested.name;
}

const std::vector<Tested> & Functions() {
  using D = QVDistFun;
  using A = const double *;
  static const std::vector<Tested> functions{
      {"CdfBeta", 3, Range::Probability, [](A a, long &) { return D::CdfBeta(a[0], a[1], a[2]); }},
      {"CdfBin", 3, Range::Probability,
       [](A a, long & s) { return D::CdfBin(a[0], a[1], a[2], s); }},
      {"CdfChi", 2, Range::Probability, [](A a, long &) { return D::CdfChi(a[0], a[1]); }},
      {"CdfF", 3, Range::Probability, [](A a, long &) { return D::CdfF(a[0], a[1], a[2]); }},
      {"CdfGam", 3, Range::Probability, [](A a, long &) { return D::CdfGam(a[0], a[1], a[2]); }},
      {"CdfNorm", 3, Range::Probability, [](A a, long &) { return D::CdfNorm(a[0], a[1], a[2]); }},
      {"CdfStdNorm", 1, Range::Probability, [](A a, long &) { return D::CdfStdNorm(a[0]); }},
      {"CdfT", 2, Range::Probability, [](A a, long &) { return D::CdfT(a[0], a[1]); }},
      {"CDFHyper", 4, Range::Probability,
       [](A a, long & s) {
         int status = 9;
         const double result = D::CDFHyper(a[0], a[1], a[2], a[3], status);
         s = status;
         return result;
       }},
      {"SigChi", 2, Range::Probability, [](A a, long &) { return D::SigChi(a[0], a[1]); }},
      {"SigF", 3, Range::Probability, [](A a, long &) { return D::SigF(a[0], a[1], a[2]); }},
      {"SigT", 2, Range::Probability, [](A a, long &) { return D::SigT(a[0], a[1]); }},
      {"PdfBin", 3, Range::NotNegative,
       [](A a, long & s) { return D::PdfBin(a[0], a[1], a[2], s); }},
      {"PdfNegBin", 3, Range::NotNegative,
       [](A a, long & s) { return D::PdfNegBin(a[0], a[1], a[2], s); }},
      {"PdfGamma", 3, Range::NotNegative,
       [](A a, long &) { return D::PdfGamma(a[0], a[1], a[2]); }},
      {"PdfNormal", 3, Range::Any, [](A a, long &) { return D::PdfNormal(a[0], a[1], a[2]); }},
      {"PdfNormalStandard", 1, Range::NotNegative,
       [](A a, long &) { return D::PdfNormalStandard(a[0]); }},
      {"PdfT", 2, Range::NotNegative, [](A a, long & s) { return D::PdfT(a[0], a[1], s); }},
      {"zelvdnlgam", 1, Range::Any, [](A a, long &) { return D::zelvdnlgam(a[0]); }},
      // Its failure value is -1, and the ends of p need no shapes.
      {"IdfBeta", 3, Range::Probability,
       [](A a, long &) {
         const double result = D::IdfBeta(a[0], a[1], a[2]);
         return result == -1.0 || a[0] == 0.0 || a[0] == 1.0 ? QVMV::Missing() : result;
       }},
      {"IdfBin", 3, Range::Any, [](A a, long & s) { return D::IdfBin(a[0], a[1], a[2], s); }},
      {"IdfChi", 2, Range::NotNegative, [](A a, long &) { return D::IdfChi(a[0], a[1]); }},
      {"IdfF", 3, Range::NotNegative, [](A a, long &) { return D::IdfF(a[0], a[1], a[2]); }},
      {"IdfGam", 3, Range::NotNegative, [](A a, long &) { return D::IdfGam(a[0], a[1], a[2]); }},
      {"IdfNorm", 3, Range::Any, [](A a, long &) { return D::IdfNorm(a[0], a[1], a[2]); }},
      {"IdfStdNorm", 1, Range::Any, [](A a, long &) { return D::IdfStdNorm(a[0]); }},
      {"IdfT", 4, Range::Any, [](A a, long &) { return D::IdfT(a[0], a[1], a[2], a[3]); }},
      {"NonCentralCdfChi", 3, Range::Probability,
       [](A a, long &) { return D::NonCentralCdfChi(a[0], a[1], a[2]); }},
      {"NonCentralCdfF", 5, Range::Probability,
       [](A a, long &) { return D::NonCentralCdfF(a[0], a[1], a[2], a[3], a[4]); }},
      {"NonCentralCdfT", 4, Range::Probability,
       [](A a, long &) { return D::NonCentralCdfT(a[0], a[1], a[2], a[3]); }},
      {"NonCentralPdfT", 3, Range::NotNegative,
       [](A a, long & s) { return D::NonCentralPdfT(a[0], a[1], a[2], s); }},
      {"FindNCParamChi", 4, Range::NotNegative,
       [](A a, long &) { return D::FindNCParamChi(a[0], a[1], a[2], a[3]); }},
      {"FindNCParamF", 5, Range::NotNegative,
       [](A a, long &) { return D::FindNCParamF(a[0], a[1], a[2], a[3], a[4]); }},
      {"FindNCParamT", 5, Range::Any,
       [](A a, long &) { return D::FindNCParamT(a[0], a[1], a[2], a[3], a[4]); }},
  };
  return functions;
}

const std::vector<double> & ValuesFor(const Tested & tested) {
  if (tested.name == "CDFHyper" || tested.arguments < 3) return HostileValues();
  if (tested.arguments > 3) return FewestHostileValues();
  const bool slow = tested.name == "IdfGam" || tested.name.rfind("NonCentral", 0) == 0;
  return slow ? FewHostileValues() : HostileValues();
}

double Milliseconds() {
  timespec now{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) * 1e-6;
}

bool IsInRange(double value, Range range) {
  if (QVMV::IsMissing(value)) return true;
  if (!std::isfinite(value)) return false;
  constexpr double rounding = 1e-12;
  if (range == Range::Probability) return value >= -rounding && value <= 1.0 + rounding;
  return range == Range::Any || value >= 0.0;
}

class HostileArguments : public ::testing::TestWithParam<Tested> {
 protected:
  void Call(const Tested & tested, const std::vector<double> & arguments) {
    constexpr long noStatus = -77;
    long status = noStatus;
    const double before = Milliseconds();
    const double result = tested.call(arguments.data(), status);
    const double time = Milliseconds() - before;
    bool small = true;
    bool nan = false;
    for (double argument : arguments) {
      small = small && std::fabs(argument) < 1e6;
      nan = nan || std::isnan(argument);
    }
    const double limit = small ? 10.0 : 5000.0;
    const bool statusAgrees = status == noStatus || (status == 0) == !QVMV::IsMissing(result);
    if (time <= limit && statusAgrees && IsInRange(result, tested.range) &&
        (!nan || QVMV::IsMissing(result)))
      return;
    std::string text;
    for (double argument : arguments)
      text.append(" ").append(::testing::PrintToString(argument));
    ADD_FAILURE() << tested.name << text << " gives " << ::testing::PrintToString(result)
                  << ", status " << status << ", in " << time << " ms";
  }
};

}  // namespace

TEST_P(HostileArguments, EndInTimeWithANumberOrTheMissingValue) {
  const Tested & tested = GetParam();
  const std::vector<double> & values = ValuesFor(tested);
  std::vector<double> arguments(static_cast<std::size_t>(tested.arguments));
  std::vector<std::size_t> index(arguments.size(), 0);
  for (;;) {
    for (std::size_t i = 0; i < index.size(); ++i)
      arguments[i] = values[index[i]];
    Call(tested, arguments);
    std::size_t position = 0;
    while (position < index.size() && ++index[position] == values.size())
      index[position++] = 0;
    if (position == index.size()) break;
  }
}

INSTANTIATE_TEST_SUITE_P(QVDistFun, HostileArguments, ::testing::ValuesIn(Functions()),
                         [](const auto & tested) { return tested.param.name; });

TEST(HostileIntegers, HypergeometricPoints) {
  const std::vector<long> values{LONG_MIN, LONG_MIN + 1, INT_MIN,  -1,           0,       1, 2, 33,
                                 1000,     INT_MAX,      1L << 53, LONG_MAX - 1, LONG_MAX};
  for (long x : values) {
    for (long population : values) {
      for (long n : values) {
        for (long k : values) {
          const double result = QVDistFun::PdfHyper(x, population, n, k);
          EXPECT_TRUE(IsInRange(result, Range::NotNegative))
              << x << " " << population << " " << n << " " << k;
        }
      }
    }
  }
}

TEST(HostileGroups, AnyValuesEnd) {
  const std::vector<double> & hostile = FewHostileValues();
  for (double pct : hostile) {
    for (double first : hostile) {
      for (double freq : hostile) {
        const std::vector<double> values{first, 2.0, freq};
        const std::vector<double> freqs{freq, first, 1.0};
        for (long bounds : {0L, 1L, 2L, 3L, LONG_MAX, LONG_MIN}) {
          double result = 9.0;
          long status = 9;
          QVDistFun::GPTile(3, pct, values, freqs, values, bounds, result, status);
          EXPECT_TRUE(std::isfinite(result) || result == first || result == freq);
        }
        double lower = 0.0;
        double upper = 0.0;
        double actual = 0.0;
        QVDistFun::Mednci(3, values, freqs, first, pct, true, lower, upper, actual);
        EXPECT_TRUE(std::isfinite(actual));
      }
    }
  }
}
