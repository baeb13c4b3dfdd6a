#include "common/display/attribute_display.h"

#include <memory>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "common/display/display_frame.h"
#include "common/display/display_line.h"
#include "tests/common/display/captured_display.h"

using namespace QVDisplay_940;

namespace {

using Texts = std::vector<std::pair<int, std::string>>;

template <class Attribute>
void ExpectTexts(void (*display)(std::string, Attribute), const Texts & texts) {
  CapturedDisplay captured;
  for (const auto & [number, text] : texts) {
    display("Label", static_cast<Attribute>(number));
    EXPECT_EQ(captured.Text(), "\nLabel" + text);
  }
}

}  // namespace

TEST(AttributeDisplay, MeasureLevel) {
  ExpectTexts(DisplayMeasureLevel, {{-1, " = unrecognized"},
                                    {0, " = Unknown measure level"},
                                    {1, " = Continuous"},
                                    {2, " = Numeric Categorical"},
                                    {3, " = String Categorical"},
                                    {4, " = Frequency weight"},
                                    {5, " = unrecognized"}});
}

TEST(AttributeDisplay, VariableRole) {
  ExpectTexts(DisplayVariableRole, {{-1, " = unrecognized"},
                                    {0, " = Undefined variable role"},
                                    {1, " = Target"},
                                    {2, " = Target Response"},
                                    {3, " = Frequency weight"},
                                    {4, " = Input"},
                                    {5, " = Possible Input"},
                                    {6, " = Unused variable"},
                                    {7, " = Record ID variable"},
                                    {8, " = unrecognized"}});
}

TEST(AttributeDisplay, VariableStorage) {
  ExpectTexts(DisplayVariableStorage, {{-1, " = unrecognized"},
                                       {0, " = Undefined variable storage"},
                                       {1, " = Integer"},
                                       {2, " = Real"},
                                       {3, " = String"},
                                       {4, " = Date"},
                                       {5, " = Time"},
                                       {6, " = Timestamp"},
                                       {7, " = unrecognized"}});
}

TEST(AttributeDisplay, RoundingOption) {
  ExpectTexts(DisplayRoundingOption, {{-1, " = unrecognized"},
                                      {0, " = Truncate to smaller int"},
                                      {1, " = Round to closest int"},
                                      {2, " = As is - no change"},
                                      {3, " = unrecognized"}});
}

TEST(AttributeDisplay, NumbersOfVarStatus) {
  EXPECT_EQ(static_cast<int>(QVXML_940::VarStatusUsable), 0);
  EXPECT_EQ(static_cast<int>(QVXML_940::VarStatusConstant), 1);
  EXPECT_EQ(static_cast<int>(QVXML_940::VarStatusEmpty), 2);
}

TEST(DisplayFrame, OpensAndCloses) {
  CapturedDisplay captured;
  {
    const DisplayFrame frame("QVThing");
    DisplayI("n", 1);
  }
  EXPECT_EQ(captured.Text(), "\nQVThing display start\nn = 1\nQVThing display end");
}

TEST(DisplayFrame, TakesLinesOfItsOwn) {
  CapturedDisplay captured;
  { const DisplayFrame frame("begin", "finish"); }
  EXPECT_EQ(captured.Text(), "\nbegin\nfinish");
}

TEST(DisplayFrame, AStreamThatThrowsDoesNotEndTheProcess) {
  CapturedDisplay captured;
  auto frame = std::make_unique<DisplayFrame>("QVThing");
  captured.Stream().setstate(std::ios::badbit);
  EXPECT_THROW(captured.Stream().exceptions(std::ios::badbit), std::ios::failure);
  frame.reset();
  captured.Stream().exceptions(std::ios::goodbit);
  SUCCEED();
}

TEST(DisplayRow, IsOneLineHoweverLong) {
  CapturedDisplay captured;
  const std::vector<double> values(12, 1.5);
  DisplayRow(3, values.data(), 12);
  EXPECT_EQ(captured.Text(), "\nrow  3:  1.5 1.5 1.5 1.5 1.5 1.5 1.5 1.5 1.5 1.5 1.5 1.5");
  DisplayRow(0, nullptr, 4);
  EXPECT_EQ(captured.Text(), "\nrow  0: ");
}
