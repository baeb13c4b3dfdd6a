#include <gtest/gtest.h>

#include <limits>

#include "QVMV.h"
#include "export_test_help.h"
#include "xml/export/univariate_statistics.h"

namespace {

using export_test::Text;
using QVCommon_940::MakeContStats;
using QVCommon_940::QVMV;

TEST(ContStats, WithoutCutPointsItStaysEmptyWhateverTheFrequencies) {
  EXPECT_EQ(Text(MakeContStats({}, {1.0, 2.0}, true).get()), "<ContStats/>");
}

TEST(ContStats, ASingleCutPointMakesNoInterval) {
  EXPECT_EQ(Text(MakeContStats({1.0}, {4.0}, true).get()),
            "<ContStats><Array type=\"real\">4</Array></ContStats>");
}

TEST(ContStats, WithoutFrequenciesThereIsNoArray) {
  EXPECT_EQ(Text(MakeContStats({1.0, 2.0}, {}, false).get()),
            "<ContStats><Interval leftMargin=\"1\" rightMargin=\"2\" closure=\"closedOpen\"/>"
            "</ContStats>");
}

TEST(ContStats, MissingFrequencyReadsNaN) {
  EXPECT_EQ(Text(MakeContStats({1.0}, {QVMV::Missing(), 0.1, QVMV::Missing()}, true).get()),
            "<ContStats><Array type=\"real\">NaN 0.1 NaN</Array></ContStats>");
}

TEST(ContStats, MarginsThatAreNotFiniteAreLeftOut) {
  const double infinity = std::numeric_limits<double>::infinity();
  EXPECT_EQ(Text(MakeContStats({-infinity, 1.0, infinity}, {}, true).get()),
            "<ContStats><Interval rightMargin=\"1\" closure=\"openClosed\"/>"
            "<Interval leftMargin=\"1\" closure=\"openClosed\"/></ContStats>");
}

}  // namespace
