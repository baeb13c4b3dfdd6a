// The list of variables through the persistence format, and what a failed read leaves behind.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <thread>

#include "QVCatVar.h"
#include "QVContVar.h"
#include "QVVarList.h"
#include "XMLElement.h"
#include "variable_test_tools.h"

namespace {

using namespace QVXML_940;
using namespace variable_test;
using Strings = std::vector<std::string>;
using Numbers = std::vector<double>;
using Indexes = std::vector<int>;

const char * const kFailure = "Failure reading QVVarList!\n";

const std::string kText =
    "\n<Obj name=\"QVVarList\">"
    "\n\t<Int value=\"4\"/>"
    "\n\t<Int value=\"1\"/>"
    "\n\t<Obj name=\"QVContVar\">"
    "\n\t\t<String value=\"mass\"/>"
    "\n\t\t<String value=\"Body mass\"/>"
    "\n\t\t<Int value=\"1\"/>"
    "\n\t\t<Int value=\"-1\"/>"
    "\n\t\t<Double value=\"Missing\"/>"
    "\n\t\t<Double value=\"1.79769313486232e+308\"/>"
    "\n\t\t<Double value=\"Missing\"/>"
    "\n\t\t<Double value=\"Missing\"/>"
    "\n\t\t<Int value=\"2\"/>"
    "\n\t\t<Int value=\"0\"/>"
    "\n\t\t<Double value=\"0\"/>"
    "\n\t\t<Double value=\"0\"/>"
    "\n\t\t<Int value=\"1\"/>"
    "\n\t\t<Obj name=\"QVContEncoder\">"
    "\n\t\t\t<Int value=\"1\"/>"
    "\n\t\t\t<Int value=\"0\"/>"
    "\n\t\t\t<Int value=\"0\"/>"
    "\n\t\t</Obj>"
    "\n\t</Obj>"
    "\n\t<Int value=\"3\"/>"
    "\n\t<Obj name=\"QVCatVar\">"
    "\n\t\t<String value=\"sex\"/>"
    "\n\t\t<String value=\"\"/>"
    "\n\t\t<Int value=\"2\"/>"
    "\n\t\t<Int value=\"0\"/>"
    "\n\t\t<Int value=\"2\"/>"
    "\n\t\t<Int value=\"3\"/>"
    "\n\t\t<Int value=\"0\"/>"
    "\n\t\t<Int value=\"0\"/>"
    "\n\t\t<Int value=\"-1\"/>"
    "\n\t\t<Int value=\"0\"/>"
    "\n\t\t<Int value=\"3\"/>"
    "\n\t\t<Obj name=\"QVStringEncoder\">"
    "\n\t\t\t<Int value=\"2\"/>"
    "\n\t\t\t<String value=\"f\"/>"
    "\n\t\t\t<String value=\"m\"/>"
    "\n\t\t\t<Int value=\"0\"/>"
    "\n\t\t\t<Int value=\"0\"/>"
    "\n\t\t</Obj>"
    "\n\t</Obj>"
    "\n\t<Int value=\"4\"/>"
    "\n\t<Obj name=\"QVWeightVar\">"
    "\n\t\t<String value=\"n\"/>"
    "\n\t\t<String value=\"Cases\"/>"
    "\n\t\t<Int value=\"0\"/>"
    "\n\t\t<Obj name=\"QVRoundEncoder\">"
    "\n\t\t\t<Int value=\"1\"/>"
    "\n\t\t\t<Int value=\"0\"/>"
    "\n\t\t\t<Int value=\"0\"/>"
    "\n\t\t</Obj>"
    "\n\t</Obj>"
    "\n\t<Int value=\"2\"/>"
    "\n\t<Obj name=\"QVCatVar\">"
    "\n\t\t<String value=\"year\"/>"
    "\n\t\t<String value=\"\"/>"
    "\n\t\t<Int value=\"4\"/>"
    "\n\t\t<Int value=\"0\"/>"
    "\n\t\t<Int value=\"1\"/>"
    "\n\t\t<Int value=\"2\"/>"
    "\n\t\t<Int value=\"0\"/>"
    "\n\t\t<Int value=\"0\"/>"
    "\n\t\t<Int value=\"-1\"/>"
    "\n\t\t<Int value=\"0\"/>"
    "\n\t\t<Int value=\"2\"/>"
    "\n\t\t<Obj name=\"QVCatNumEncoder\">"
    "\n\t\t\t<Int value=\"1\"/>"
    "\n\t\t\t<Double value=\"2007\"/>"
    "\n\t\t\t<Int value=\"0\"/>"
    "\n\t\t\t<Int value=\"0\"/>"
    "\n\t\t\t<Int value=\"0\"/>"
    "\n\t\t</Obj>"
    "\n\t</Obj>"
    "\n\t<Int value=\"1\"/>"
    "\n\t<Int value=\"2\"/>"
    "\n\t<Int value=\"0\"/>"
    "\n\t<Int value=\"1\"/>"
    "\n</Obj>";

// The five of the list's own, the variables' 20, 20, 10 and 20, and a level for each.
constexpr int kLines = 5 + 20 + 20 + 10 + 20 + 4;

QVVarList FullList() {
  QVVarList list;
  list.AddContVar("mass", "Body mass", VariableRoleTarget);
  list.AddCatVar("sex", "", Strings{"f", "m"}, VariableRoleTargetResponse);
  list.SetWeightVar("n", "Cases", WRoundingClosest);
  list.AddCatVar("year", "", Numbers{2007}, VariableRoleInput);
  return list;
}

QVVarList EmptyList() {
  return QVVarList();
}

TEST(VarListPersistence, Text) {
  const Output output = Write(FullList(), 0);
  EXPECT_EQ(output.text, kText);
  EXPECT_EQ(output.lines, kLines);
}

TEST(VarListPersistence, TheFrameLinesAreNotCounted) {
  const Output output = Write(QVVarList(), 2);
  EXPECT_EQ(output.text,
            "\n\t\t<Obj name=\"QVVarList\">"
            "\n\t\t\t<Int value=\"0\"/>"
            "\n\t\t\t<Int value=\"0\"/>"
            "\n\t\t\t<Int value=\"0\"/>"
            "\n\t\t\t<Int value=\"-1\"/>"
            "\n\t\t\t<Int value=\"-1\"/>"
            "\n\t\t</Obj>");
  EXPECT_EQ(output.lines, 5);
}

TEST(VarListPersistence, Read) {
  QVVarList list;
  EXPECT_EQ(Read(list, kText), kLines);
  EXPECT_EQ(list.Size(), 4);
  EXPECT_EQ(list.GetNumContVar(), 1);
  EXPECT_EQ(list.GetNumCatVar(), 2);
  EXPECT_EQ(list.GetTargetVariable()->GetVariableName(), "mass");
  EXPECT_EQ(list.GetTargetRespVariable()->GetVariableName(), "sex");
  EXPECT_NE(dynamic_cast<QVContVar *>(list.GetVarAt(0)), nullptr);
  EXPECT_NE(dynamic_cast<QVCatVar *>(list.GetVarAt(1)), nullptr);
  EXPECT_NE(dynamic_cast<QVWeightVar *>(list.GetVarAt(2)), nullptr);
  EXPECT_EQ(list.GetVarAt(3)->GetMeasureLevel(), 2);
  EXPECT_EQ(list.GetEncoderAt(3)->DecodeNum(0), 2007.0);
  EXPECT_EQ(Write(list, 0).text, kText);
}

TEST(VarListPersistence, WhatIsNotInTheFileStays) {
  QVVarList list;
  list.AddContVar("a", "", VariableRoleTargetResponse);
  list.SetWeightVar("w", "", WRoundingAsIs);
  list.SetUnWeightedCount(7);
  list.SetListwiseDeletion(true);
  list.SetFieldFormatsElement(XMLElement::Create("formats"));
  EXPECT_EQ(Read(list, kText), kLines);
  EXPECT_EQ(list.GetFreqWeightIndex(), 1);
  EXPECT_EQ(list.GetMutipleResponseVariables(), (Indexes{0}));
  EXPECT_EQ(list.GetUnWeightedCount(), 7.0);
  EXPECT_TRUE(list.GetListwiseDeletion());
  EXPECT_NE(list.GetFieldFormatsElement(), nullptr);
  // No weight variable stands at the old index, so the next one is appended.
  EXPECT_EQ(list.GetFreqWeightVariable(), nullptr);
  EXPECT_EQ(list.SetWeightVar("w2", "", WRoundingAsIs), 4);
}

TEST(VarListPersistence, AKeptResponseListWithoutTheTargetResponseIndexIsLeftAlone) {
  QVVarList list;
  list.AddContVar("a", "", VariableRoleInput);
  list.AddContVar("b", "", VariableRoleTargetResponse);
  QVVarList other;
  other.AddContVar("x", "", VariableRoleInput);
  other.AddContVar("y", "", VariableRoleInput);
  Read(list, Write(other, 0).text);
  EXPECT_EQ(list.GetTargetRespIndex(), -1);
  EXPECT_TRUE(list.RemoveVar(0));
  EXPECT_EQ(list.GetMutipleResponseVariables(), (Indexes{1}));  // not lowered with the variables
  EXPECT_EQ(list.GetTargetRespVariable(), nullptr);
  EXPECT_EQ(list.GetNOutputCats(), 0);
  EXPECT_TRUE(list.RemoveVar(0));
  EXPECT_TRUE(list.GetMutipleResponseVariables().empty());
}

TEST(VarListPersistence, AFreshListHasNoWeightIndexAfterReading) {
  QVVarList list;
  Read(list, kText);
  EXPECT_EQ(list.GetFreqWeightIndex(), -1);
  EXPECT_EQ(list.GetFreqWeightVariable(), nullptr);
  EXPECT_TRUE(list.GetMutipleResponseVariables().empty());
  EXPECT_EQ(list.GetTargetRespIndex(), 1);
  // Removing the weight, which the index does not name, lowers the categorical count.
  EXPECT_TRUE(list.RemoveVar(2));
  EXPECT_EQ(list.GetNumCatVar(), 1);
}

TEST(VarListPersistence, TheKeptWeightIsReadInto) {
  QVVarList list = FullList();
  QVWeightVar * const weight = list.GetFreqWeightVariable();
  weight->SetFieldFormatElement(XMLElement::Create("kept"));
  weight->SetVariableLabel("changed");
  EXPECT_EQ(Read(list, kText), kLines);
  EXPECT_EQ(list.GetFreqWeightVariable(), weight);
  EXPECT_EQ(weight->GetVariableLabel(), "Cases");
  EXPECT_NE(weight->GetFieldFormatElement(), nullptr);
}

TEST(VarListPersistence, AKeptWeightThatDoesNotComeBackIsDestroyed) {
  QVVarList list = FullList();
  EXPECT_EQ(Read(list, Write(QVVarList(), 0).text), 5);
  EXPECT_EQ(list.Size(), 0);
  EXPECT_EQ(list.GetFreqWeightIndex(), 2);
  EXPECT_EQ(list.GetFreqWeightVariable(), nullptr);
  EXPECT_EQ(list.GetTargetIndex(), -1);
}

TEST(VarListPersistence, TwoWeightsInOneFile) {
  QVVarList twice;
  Read(twice, kText);
  twice.SetWeightVar("second", "", WRoundingAsIs);
  const std::string text = Write(twice, 0).text;
  QVVarList list = FullList();
  EXPECT_EQ(Read(list, text), kLines + 11);
  EXPECT_EQ(list.Size(), 5);
  EXPECT_EQ(list.GetVarAt(4)->GetVariableName(), "second");
}

// --- Failed reads -----------------------------------------------------------------------------

TEST(VarListPersistence, Truncated) {
  ExpectEveryTruncationFails(kText, EmptyList, kFailure);
  ExpectEveryTruncationFails(kText, FullList, kFailure);
}

TEST(VarListPersistence, AFailedStartLeavesTheList) {
  QVVarList list = FullList();
  EXPECT_EQ(TryRead(list, "<Obj name=\"QVCatVar\">\n").error, kFailure);
  EXPECT_EQ(list.Size(), 4);
  EXPECT_EQ(list.GetFreqWeightVariable()->GetVariableName(), "n");
}

TEST(VarListPersistence, EveryOwnerAddsItsLine) {
  QVVarList list;
  const Attempt attempt =
      TryRead(list, Changed(kText, "QVStringEncoder", "<Int value=\"2\"/>", "<Int value=\"-2\"/>"));
  EXPECT_TRUE(attempt.failed);
  EXPECT_EQ(attempt.error,
            "Failure reading QVStringEncoder!\n"
            "Failure reading QVCatVar!\n"
            "Failure reading QVVarList!\n");
}

TEST(VarListPersistence, AnUnknownLevelIsAFailedRead) {
  for (const char * level : {"0", "5", "-1"}) {
    QVVarList list;
    const Attempt attempt =
        TryRead(list, Changed(kText, "</Obj>\n\t</Obj>", "<Int value=\"3\"/>", IntLine(level)));
    EXPECT_TRUE(attempt.failed);
    EXPECT_EQ(attempt.error, kFailure);
    EXPECT_NE(list.GetVarAt(0), nullptr);
  }
}

TEST(VarListPersistence, NumbersOfVariablesAreNotTrusted) {
  for (const char * count : {"-1", "-2147483648", "2147483647", "100000"}) {
    QVVarList list = FullList();
    const Attempt attempt =
        TryRead(list, Changed(kText, "QVVarList", IntLine("4"), IntLine(count)));
    EXPECT_TRUE(attempt.failed);
    EXPECT_EQ(attempt.error, kFailure);
    EXPECT_EQ(list.Size(), 0);
  }
  for (const char * count : {"3", "5"}) {  // plausible, and wrong
    QVVarList list;
    EXPECT_TRUE(TryRead(list, Changed(kText, "QVVarList", IntLine("4"), IntLine(count))).failed);
  }
}

// A list whose last two entries are null.
QVVarList ListWithGaps() {
  QVVarList list = FullList();
  EXPECT_TRUE(TryRead(list, kText.substr(0, kText.find("\n\t<Int value=\"4\"/>\n\t<Obj"))).failed);
  return list;
}

TEST(VarListPersistence, NullEntriesAreSteppedOver) {
  QVVarList list = ListWithGaps();
  ASSERT_EQ(list.Size(), 4);
  ASSERT_EQ(list.GetVarAt(2), nullptr);
  ASSERT_EQ(list.GetVarAt(3), nullptr);
  EXPECT_EQ(list.GetVarAt(1)->GetVariableName(), "sex");
  EXPECT_EQ(list.GetEncoderAt(2), nullptr);
  EXPECT_EQ(list.GetVariableRole(3), 0);
  EXPECT_EQ(list.FindVariable("year"), -1);
  EXPECT_EQ(list.FindVariable(""), -1);
  EXPECT_EQ(list.GetNumInputVars(), 0);
  EXPECT_TRUE(list.GetNInputCats().empty());
  EXPECT_EQ(list.UpdateNumbersOfCategories(), 3);
  EXPECT_EQ(list.GetFreqWeightIndex(), 2);
  EXPECT_EQ(list.GetFreqWeightVariable(), nullptr);
  EXPECT_FALSE(list.SetVariableRole(2, VariableRoleTarget));
  EXPECT_FALSE(list.SetMissingValueReplacement(2, "0"));
  Strings inputs;
  Strings responses;
  list.GetVarNames(inputs, responses);
  EXPECT_EQ(responses, Strings{"sex"});
  const QVVarList copy(list);
  EXPECT_EQ(copy.Size(), 4);
  EXPECT_EQ(copy.GetVarAt(3), nullptr);
  EXPECT_NE(Shown(copy).find("\nVariable 2\nVariable 3\nEnd of display"), std::string::npos);
}

TEST(VarListPersistence, NullEntriesAreNotWritten) {
  const Output output = Write(ListWithGaps(), 0);
  QVVarList list;
  EXPECT_EQ(Read(list, output.text), output.lines);
  EXPECT_EQ(list.Size(), 2);
}

TEST(VarListPersistence, NullEntriesCanBeRemoved) {
  QVVarList list = ListWithGaps();
  const int categorical = list.GetNumCatVar();
  EXPECT_TRUE(list.RemoveVar(3));
  EXPECT_TRUE(list.RemoveVar(2));
  EXPECT_EQ(list.Size(), 2);
  EXPECT_EQ(list.GetNumCatVar(), categorical);
  EXPECT_EQ(list.AddContVar("new", "", VariableRoleInput), 2);
}

TEST(VarListPersistence, AListThatFailedReadsAgain) {
  QVVarList list = ListWithGaps();
  EXPECT_EQ(Read(list, kText), kLines);
  EXPECT_EQ(Write(list, 0).text, kText);
}

TEST(VarListPersistence, NumbersAtTheEndOfTheRangeDoNotOverflow) {
  QVVarList list;
  const std::string tail = "\n\t<Int value=\"1\"/>\n\t<Int value=\"2\"/>\n\t<Int value=\"0\"/>";
  std::string text = kText;
  text.replace(text.rfind(tail), tail.size(),
               "\n\t<Int value=\"2147483647\"/>\n\t<Int value=\"-2147483648\"/>"
               "\n\t<Int value=\"-2147483648\"/>");
  EXPECT_EQ(Read(list, text), kLines);
  EXPECT_EQ(list.GetTargetVariable(), nullptr);
  list.AddContVar("a", "", VariableRoleInput);
  EXPECT_EQ(list.GetNumContVar(), 2147483647);
  list.RemoveVar("year");
  EXPECT_EQ(list.GetNumCatVar(), -2147483647 - 1);
}

// A pipe cannot tell its size: the list then grows with what comes.
TEST(VarListPersistence, ReadsFromAPipe) {
  const std::string path = testing::TempDir() + "qv_pipe_" + std::to_string(getpid());
  ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
  std::thread writer([&] { std::ofstream(path) << kText << '\n'; });
  std::ifstream in(path);
  QVVarList list;
  EXPECT_EQ(list.ReadObjectXML(in), kLines);
  writer.join();
  std::remove(path.c_str());
  EXPECT_EQ(Write(list, 0).text, kText);
}

}  // namespace
