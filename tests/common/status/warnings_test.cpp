#include "QVWarnings.h"

#include <limits>
#include <string>
#include <type_traits>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using QVCommon_940::QVStatus;
using QVCommon_940::QVWarnings;
using testing::ElementsAre;

namespace {

QVStatus Warning(long code, long datum = 0) {
  QVStatus status(code, true);
  status.SetDiscreteDatum(0, datum);
  return status;
}

QVStatus NanWarning(long code) {
  QVStatus status(code, true);
  status.SetScaleDatum(0, std::numeric_limits<double>::quiet_NaN());
  return status;
}

std::vector<long> Codes(const QVWarnings & warnings, bool first) {
  std::vector<long> codes;
  for (const QVStatus & status : warnings.GetWarnings(first)) {
    codes.push_back(status.GetErrorCode());
  }
  return codes;
}

std::vector<int> Integers(QVWarnings & warnings, long code) {
  std::vector<int> values;
  for (const auto & parameter : warnings.GetParameters(QVStatus(code, true))) {
    values.push_back(parameter.ToInteger());
  }
  return values;
}

}  // namespace

// --- The lists --------------------------------------------------------------------------------

TEST(Warnings, NumbersOfDestinationsAndKinds) {
  EXPECT_EQ(static_cast<int>(QVWarnings::DestinationFirst), 0);
  EXPECT_EQ(static_cast<int>(QVWarnings::DestinationSecond), 1);
  EXPECT_EQ(static_cast<int>(QVWarnings::DestinationBoth), 2);
  EXPECT_EQ(static_cast<int>(QVWarnings::IntegerParameter), 0);
  EXPECT_EQ(static_cast<int>(QVWarnings::DoubleParameter), 1);
  EXPECT_EQ(static_cast<int>(QVWarnings::StringParameter), 2);
  EXPECT_EQ(static_cast<int>(QVWarnings::QVParameterValue::StringParameter), 2);
  EXPECT_TRUE(std::has_virtual_destructor_v<QVWarnings>);
}

TEST(Warnings, AreEmptyAtFirst) {
  QVWarnings warnings;
  EXPECT_TRUE(warnings.GetWarnings(true).empty());
  EXPECT_TRUE(warnings.GetWarnings(false).empty());
  EXPECT_FALSE(warnings.HasParameter(QVStatus()));
  EXPECT_TRUE(warnings.GetParameters(QVStatus()).empty());
}

TEST(Warnings, GoToTheListsOfTheirDestination) {
  QVWarnings warnings;
  warnings.AddWarning(Warning(1), QVWarnings::DestinationFirst);
  warnings.AddWarning(Warning(2), QVWarnings::DestinationSecond);
  warnings.AddWarning(Warning(3), QVWarnings::DestinationBoth);
  warnings.AddWarning(Warning(4), static_cast<QVWarnings::Destination>(17));
  warnings.AddWarning(Warning(5), static_cast<QVWarnings::Destination>(-1));
  EXPECT_THAT(Codes(warnings, true), ElementsAre(1, 3, 4, 5));
  EXPECT_THAT(Codes(warnings, false), ElementsAre(2, 3, 4, 5));
}

TEST(Warnings, ErrorsAndSuccessNeverEnterAList) {
  QVWarnings warnings;
  for (const QVWarnings::Destination destination :
       {QVWarnings::DestinationFirst, QVWarnings::DestinationSecond, QVWarnings::DestinationBoth}) {
    warnings.AddWarning(QVStatus(9, false), destination);
    warnings.AddWarning(QVStatus(), destination);
  }
  EXPECT_TRUE(warnings.GetWarnings(true).empty());
  EXPECT_TRUE(warnings.GetWarnings(false).empty());
}

TEST(Warnings, KeepTheOrderOfFirstArrivalWithoutRepetitions) {
  QVWarnings warnings;
  for (const long code : {3, 1, 3, 2, 1}) {
    warnings.AddWarning(Warning(code), QVWarnings::DestinationFirst);
  }
  EXPECT_THAT(Codes(warnings, true), ElementsAre(3, 1, 2));
}

TEST(Warnings, OneCodeWithDifferentDataIsKeptTwice) {
  QVWarnings warnings;
  warnings.AddWarning(Warning(3, 1), QVWarnings::DestinationFirst);
  warnings.AddWarning(Warning(3, 2), QVWarnings::DestinationFirst);
  EXPECT_THAT(Codes(warnings, true), ElementsAre(3, 3));
}

TEST(Warnings, EachListIsTestedByItself) {
  QVWarnings warnings;
  warnings.AddWarning(Warning(3), QVWarnings::DestinationFirst);
  warnings.AddWarning(Warning(3), QVWarnings::DestinationBoth);
  EXPECT_THAT(Codes(warnings, true), ElementsAre(3));
  EXPECT_THAT(Codes(warnings, false), ElementsAre(3));
}

TEST(Warnings, AStatusWithANanEntersTwice) {
  QVWarnings warnings;
  const QVStatus status = NanWarning(3);
  warnings.AddWarning(status, QVWarnings::DestinationFirst);
  warnings.AddWarning(status, QVWarnings::DestinationFirst);
  EXPECT_THAT(Codes(warnings, true), ElementsAre(3, 3));
}

TEST(Warnings, AListOfStatusesGoesToTheFirstList) {
  QVWarnings warnings;
  warnings.AddWarning(Warning(2), QVWarnings::DestinationFirst);
  warnings.AddWarnings(
      std::vector<QVStatus>{Warning(3), QVStatus(4, false), QVStatus(), Warning(2), Warning(5)});
  EXPECT_THAT(Codes(warnings, true), ElementsAre(2, 3, 5));
  EXPECT_TRUE(warnings.GetWarnings(false).empty());
}

TEST(Warnings, TheirOwnListsMayBeAddedToThem) {
  QVWarnings warnings;
  for (long code = 0; code < 20; ++code) {
    warnings.AddWarning(NanWarning(code), QVWarnings::DestinationFirst);
  }
  warnings.AddWarnings(warnings.GetWarnings(true));
  ASSERT_EQ(warnings.GetWarnings(true).size(), 40u);
  EXPECT_EQ(warnings.GetWarnings(true)[39].GetErrorCode(), 19);
}

TEST(Warnings, ClearEmptiesTheFirstListOnly) {
  QVWarnings warnings;
  warnings.AddWarning(Warning(3), QVWarnings::DestinationBoth);
  warnings.AddParameter(Warning(3), 8);
  warnings.ClearWarnings();
  EXPECT_TRUE(warnings.GetWarnings(true).empty());
  EXPECT_THAT(Codes(warnings, false), ElementsAre(3));
  EXPECT_TRUE(warnings.HasParameter(Warning(3)));
  EXPECT_THAT(Integers(warnings, 3), ElementsAre(8));
}

// --- The parameters ---------------------------------------------------------------------------

TEST(WarningParameters, KeepTheirKindWithoutConversion) {
  QVWarnings warnings;
  EXPECT_TRUE(warnings.AddParameter(Warning(3), 8));
  EXPECT_TRUE(warnings.AddParameter(Warning(3), 2.5));
  EXPECT_TRUE(warnings.AddParameter(Warning(3), "income"));
  EXPECT_TRUE(warnings.AddParameter(Warning(3), std::string("12")));
  const auto parameters = warnings.GetParameters(Warning(3));
  ASSERT_EQ(parameters.size(), 4u);
  EXPECT_EQ(parameters[0].GetType(), QVWarnings::IntegerParameter);
  EXPECT_EQ(parameters[0].ToInteger(), 8);
  EXPECT_EQ(parameters[0].ToDouble(), 0.0);
  EXPECT_EQ(parameters[0].ToString(), "");
  EXPECT_EQ(parameters[1].GetType(), QVWarnings::DoubleParameter);
  EXPECT_EQ(parameters[1].ToInteger(), 0);
  EXPECT_EQ(parameters[1].ToDouble(), 2.5);
  EXPECT_EQ(parameters[1].ToString(), "");
  EXPECT_EQ(parameters[2].GetType(), QVWarnings::StringParameter);
  EXPECT_EQ(parameters[2].ToString(), "income");
  EXPECT_EQ(parameters[3].ToInteger(), 0);
  EXPECT_EQ(parameters[3].ToDouble(), 0.0);
}

TEST(WarningParameters, DefaultIsTheIntegerZero) {
  QVWarnings::QVParameterValue parameter;
  EXPECT_EQ(parameter.GetType(), QVWarnings::IntegerParameter);
  EXPECT_EQ(parameter.ToInteger(), 0);
  EXPECT_EQ(parameter.ToDouble(), 0.0);
  EXPECT_EQ(parameter.ToString(), "");
}

TEST(WarningParameters, NeedNoWarningOfTheirCode) {
  QVWarnings warnings;
  EXPECT_FALSE(warnings.HasParameter(Warning(3)));
  EXPECT_TRUE(warnings.AddParameter(QVStatus(3, false), 8));
  EXPECT_TRUE(warnings.HasParameter(Warning(3)));
  EXPECT_THAT(Integers(warnings, 3), ElementsAre(8));
  EXPECT_TRUE(warnings.GetWarnings(true).empty());
}

TEST(WarningParameters, GoByTheCodeAloneAndRepeat) {
  QVWarnings warnings;
  warnings.AddParameter(Warning(3, 1), 8);
  warnings.AddParameter(QVStatus(3, false), 8);
  warnings.AddParameter(Warning(4), 9);
  warnings.AddParameter(Warning(3, 2), 7);
  EXPECT_THAT(Integers(warnings, 3), ElementsAre(8, 8, 7));
  EXPECT_THAT(Integers(warnings, 4), ElementsAre(9));
  EXPECT_TRUE(Integers(warnings, 5).empty());
}

TEST(WarningParameters, TheReferenceShowsTheLastCallsList) {
  QVWarnings warnings;
  warnings.AddParameter(Warning(3), 8);
  warnings.AddParameter(Warning(4), 9);
  const auto & first = warnings.GetParameters(Warning(3));
  const auto & second = warnings.GetParameters(Warning(4));
  EXPECT_EQ(&first, &second);
  ASSERT_EQ(first.size(), 1u);
  EXPECT_EQ(first[0].ToInteger(), 9);
  warnings.GetParameters(Warning(99));
  EXPECT_TRUE(first.empty());
}

// --- Copies and merges ------------------------------------------------------------------------

TEST(Warnings, CopiesAreIndependent) {
  QVWarnings warnings;
  warnings.AddWarning(Warning(3), QVWarnings::DestinationBoth);
  warnings.AddParameter(Warning(3), 8);
  QVWarnings copy(warnings);
  warnings.AddWarning(Warning(4), QVWarnings::DestinationFirst);
  warnings.AddParameter(Warning(3), 9);
  EXPECT_THAT(Codes(copy, true), ElementsAre(3));
  EXPECT_THAT(Codes(copy, false), ElementsAre(3));
  EXPECT_THAT(Integers(copy, 3), ElementsAre(8));
  copy = warnings;
  EXPECT_THAT(Codes(copy, true), ElementsAre(3, 4));
  EXPECT_THAT(Integers(copy, 3), ElementsAre(8, 9));
}

TEST(WarningsMerge, AppendsWhatIsNewListByList) {
  QVWarnings warnings;
  warnings.AddWarning(Warning(1), QVWarnings::DestinationFirst);
  warnings.AddWarning(Warning(2), QVWarnings::DestinationSecond);
  QVWarnings other;
  other.AddWarning(Warning(2), QVWarnings::DestinationBoth);
  other.AddWarning(Warning(1), QVWarnings::DestinationBoth);
  warnings.AddWarnings(other);
  EXPECT_THAT(Codes(warnings, true), ElementsAre(1, 2));
  EXPECT_THAT(Codes(warnings, false), ElementsAre(2, 1));
  EXPECT_THAT(Codes(other, true), ElementsAre(2, 1));
}

TEST(WarningsMerge, OwnParametersWinAndTheOthersAreDropped) {
  QVWarnings warnings;
  warnings.AddParameter(Warning(3), 8);
  QVWarnings other;
  other.AddParameter(Warning(5), 50);
  other.AddParameter(Warning(3), 30);
  other.AddParameter(Warning(4), 40);
  other.AddParameter(Warning(4), 41);
  warnings.AddWarnings(other);
  EXPECT_THAT(Integers(warnings, 3), ElementsAre(8));
  EXPECT_THAT(Integers(warnings, 4), ElementsAre(40, 41));
  EXPECT_THAT(Integers(warnings, 5), ElementsAre(50));
  warnings.AddParameter(Warning(4), 42);
  EXPECT_THAT(Integers(warnings, 4), ElementsAre(40, 41, 42));
  EXPECT_THAT(Integers(other, 4), ElementsAre(40, 41));
}

TEST(WarningsMerge, WithItselfAddsOnlyWhatIsNotEqualToItself) {
  QVWarnings warnings;
  warnings.AddWarning(Warning(1), QVWarnings::DestinationFirst);
  warnings.AddWarning(NanWarning(2), QVWarnings::DestinationFirst);
  warnings.AddParameter(Warning(1), 8);
  warnings.AddWarnings(warnings);
  EXPECT_THAT(Codes(warnings, true), ElementsAre(1, 2, 2));
  EXPECT_THAT(Integers(warnings, 1), ElementsAre(8));
}
