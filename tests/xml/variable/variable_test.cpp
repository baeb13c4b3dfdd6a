// The three kinds of variables: attributes, categories, status, copies, display.
#include <gtest/gtest.h>

#include <limits>
#include <memory>

#include "QVCatNumEncoder.h"
#include "QVCatVar.h"
#include "QVContEncoder.h"
#include "QVContVar.h"
#include "QVMV.h"
#include "QVRoundEncoder.h"
#include "QVStringEncoder.h"
#include "QVWeightVar.h"
#include "XMLElement.h"
#include "common/virtual_slot.h"
#include "variable_test_tools.h"

namespace {

using namespace QVXML_940;
using QVCommon_940::QVMV;
using variable_test::Shown;
using Strings = std::vector<std::string>;
using Numbers = std::vector<double>;

const double kMissing = QVMV::Missing();
const double kLargest = std::numeric_limits<double>::max();

QVCatVar Cat(int level, int nCategories = 0) {
  return QVCatVar("x", "the x", nCategories, static_cast<MeasureLevel>(level), VariableRoleInput,
                  false);
}

// What all kinds have in common.
void ExpectCommonAttributes(IQVVariable & variable) {
  EXPECT_EQ(variable.GetVariableName(), "x");
  EXPECT_EQ(variable.GetVariableLabel(), "the x");
  variable.SetVariableLabel("new");
  EXPECT_EQ(variable.GetVariableLabel(), "new");
  variable.SetVariableStorage(VariableStorageDate);
  EXPECT_EQ(variable.GetVariableStorage(), 4);
  const IQVVariable & constant = variable;
  EXPECT_NE(variable.GetEncoder(), nullptr);
  EXPECT_EQ(constant.GetEncoder(), variable.GetEncoder());

  EXPECT_EQ(variable.GetFieldFormatElement(), nullptr);
  XMLElement * const first = XMLElement::Create("first");
  variable.SetFieldFormatElement(first);
  variable.SetFieldFormatElement(first);  // the one it has
  EXPECT_EQ(variable.GetFieldFormatElement(), first);
  EXPECT_EQ(constant.GetFieldFormatElement(), first);
  variable.SetFieldFormatElement(XMLElement::Create("second"));
  const std::unique_ptr<IQVVariable> clone(variable.Clone());
  EXPECT_NE(clone->GetFieldFormatElement(), nullptr);
  EXPECT_NE(clone->GetFieldFormatElement(), variable.GetFieldFormatElement());
  EXPECT_NE(clone->GetEncoder(), variable.GetEncoder());
  EXPECT_EQ(clone->GetVariableLabel(), "new");
  EXPECT_EQ(clone->GetVariableStorage(), 4);
  variable.SetFieldFormatElement(nullptr);
  EXPECT_EQ(variable.GetFieldFormatElement(), nullptr);
}

void ExpectReplacement(IQVVariable & variable) {
  EXPECT_EQ(variable.GetMissingValueReplacement(), nullptr);
  variable.SetMissingValueReplacement("");
  ASSERT_NE(variable.GetMissingValueReplacement(), nullptr);
  EXPECT_EQ(*variable.GetMissingValueReplacement(), "");
  variable.SetMissingValueReplacement("0");
  EXPECT_EQ(*variable.GetMissingValueReplacement(), "0");
  const std::unique_ptr<IQVVariable> clone(variable.Clone());
  EXPECT_EQ(*clone->GetMissingValueReplacement(), "0");
}

void ExpectSettableRole(IQVVariable & variable) {
  for (int role = 0; role <= 8; ++role) {
    variable.SetVariableRole(static_cast<VariableRole>(role));
    EXPECT_EQ(variable.GetVariableRole(), role);
  }
}

// --- Categorical ------------------------------------------------------------------------------

TEST(CatVar, Attributes) {
  QVCatVar variable = Cat(3, 5);
  EXPECT_EQ(variable.GetVariableRole(), 4);
  EXPECT_EQ(variable.GetVariableStorage(), 0);
  EXPECT_EQ(variable.GetNumberOfCategories(), 5);
  EXPECT_EQ(variable.GetMeasureLevel(), 3);
  ExpectCommonAttributes(variable);
  ExpectReplacement(variable);
  ExpectSettableRole(variable);
}

TEST(CatVar, EncoderFollowsTheLevel) {
  EXPECT_EQ(Cat(2).GetEncoder()->GetEncoderType(), 2);
  for (int level : {0, 1, 3, 4, 9}) {
    EXPECT_EQ(Cat(level).GetEncoder()->GetEncoderType(), 3) << level;
    EXPECT_EQ(Cat(level).GetMeasureLevel(), level);
  }
}

TEST(CatVar, SumsOfWeights) {
  Numbers sums{7};
  EXPECT_FALSE(Cat(3).GetSumFreqWts(sums));
  EXPECT_EQ(sums, Numbers{7});
  QVCatVar variable("x", "", Numbers{1, 2.5}, 2, MeasureLevelStringCategorical, VariableRoleInput,
                    true);
  EXPECT_TRUE(variable.GetSumFreqWts(sums));
  EXPECT_EQ(sums, (Numbers{1, 2.5}));
  EXPECT_TRUE(variable.GetOrdinalFlag());
  EXPECT_EQ(variable.GetNumberOfCategories(), 2);
  Numbers copied;
  EXPECT_TRUE(QVCatVar(variable).GetSumFreqWts(copied));
  EXPECT_EQ(copied, sums);
}

TEST(CatVar, OrdinalFlag) {
  QVCatVar variable = Cat(3);
  EXPECT_FALSE(variable.GetOrdinalFlag());
  variable.SetOrdinalFlag(true);
  EXPECT_TRUE(variable.GetOrdinalFlag());
}

TEST(CatVar, BinaryFlag) {
  QVCatVar variable = Cat(3);
  EXPECT_FALSE(variable.GetBinaryFlag());
  EXPECT_EQ(variable.GetBinaryFlagTrueIndex(), -1);
  variable.SetBinaryFlag(true, 2);
  EXPECT_FALSE(variable.GetBinaryFlag());
  EXPECT_EQ(variable.GetBinaryFlagTrueIndex(), -1);
  variable.SetBinaryFlag(true, 1);
  EXPECT_TRUE(variable.GetBinaryFlag());
  EXPECT_EQ(variable.GetBinaryFlagTrueIndex(), 1);
  variable.SetBinaryFlag(true, -1);
  EXPECT_FALSE(variable.GetBinaryFlag());
  EXPECT_EQ(variable.GetBinaryFlagTrueIndex(), 1);
  variable.SetBinaryFlag(true, 0);
  EXPECT_EQ(variable.GetBinaryFlagTrueIndex(), 0);
  variable.SetBinaryFlag(false, 1);
  EXPECT_FALSE(variable.GetBinaryFlag());
  EXPECT_EQ(variable.GetBinaryFlagTrueIndex(), 0);
}

TEST(CatVar, FlagVariableWantsACategoricalLevel) {
  for (int level : {0, 1, 4}) {
    QVCatVar variable = Cat(level);
    EXPECT_FALSE(variable.SetFlagVariable(true));
    EXPECT_FALSE(variable.IsFlagVariable());
  }
  for (int level : {2, 3}) {
    QVCatVar variable = Cat(level);
    EXPECT_FALSE(variable.IsFlagVariable());
    EXPECT_TRUE(variable.SetFlagVariable(true));
    EXPECT_TRUE(variable.IsFlagVariable());
    EXPECT_TRUE(QVCatVar(variable).IsFlagVariable());
    EXPECT_TRUE(variable.SetFlagVariable(false));
    EXPECT_FALSE(variable.IsFlagVariable());
  }
}

TEST(CatVar, StoredCountIsRaisedAndNeverLowered) {
  QVCatVar variable = Cat(3, 5);
  variable.GetEncoder()->Encode("a");
  variable.GetEncoder()->Encode("b");
  EXPECT_EQ(variable.UpdateNumberOfCategories(), 5);
  EXPECT_EQ(variable.GetNumberOfCategories(), 5);
  variable.SetNumberOfCategories(1);
  EXPECT_EQ(variable.GetNumberOfCategories(), 1);
  EXPECT_EQ(variable.UpdateNumberOfCategories(), 2);
  EXPECT_EQ(variable.GetNumberOfCategories(), 2);
}

TEST(CatVar, StatusUpdatesTheCount) {
  QVCatVar variable = Cat(2);
  EXPECT_EQ(variable.GetVarStatus(), 2);
  variable.GetEncoder()->Encode(5.0);
  EXPECT_EQ(variable.GetNumberOfCategories(), 0);
  EXPECT_EQ(variable.GetVarStatus(), 1);
  EXPECT_EQ(variable.GetNumberOfCategories(), 1);
  variable.GetEncoder()->Encode(6.0);
  EXPECT_EQ(variable.GetVarStatus(), 0);
  EXPECT_EQ(Cat(2, 3).GetVarStatus(), 0);
  EXPECT_EQ(Cat(2, -3).GetVarStatus(), 2);
}

TEST(CatVar, ChangeEncoderSetsTheCountUpOrDown) {
  QVCatVar variable = Cat(3, 5);
  auto * const two = new QVStringEncoder(Strings{"a", "b"});
  variable.ChangeEncoder(two);
  EXPECT_EQ(variable.GetEncoder(), two);
  EXPECT_EQ(variable.GetNumberOfCategories(), 2);
  two->Encode("c");
  variable.ChangeEncoder(two);  // the one it has
  EXPECT_EQ(variable.GetNumberOfCategories(), 3);
  variable.ChangeEncoder(new QVContEncoder(0, 1, 9));
  EXPECT_EQ(variable.GetNumberOfCategories(), 9);
}

TEST(CatVar, WithoutEncoder) {
  QVCatVar variable = Cat(3, 5);
  variable.ChangeEncoder(nullptr);
  EXPECT_EQ(variable.GetEncoder(), nullptr);
  EXPECT_EQ(variable.GetNumberOfCategories(), 0);
  EXPECT_EQ(variable.UpdateNumberOfCategories(), 0);
  EXPECT_EQ(variable.GetVarStatus(), 2);
  const std::unique_ptr<IQVVariable> clone(variable.Clone());
  EXPECT_EQ(clone->GetEncoder(), nullptr);
  EXPECT_NE(Shown(variable).find("\nEncoder not set"), std::string::npos);
}

TEST(CatVar, CopiesAreDeep) {
  QVCatVar variable = Cat(3);
  variable.GetEncoder()->Encode("a");
  QVCatVar copy(variable);
  QVCatVar assigned = Cat(2);
  assigned = variable;
  variable.GetEncoder()->Encode("b");
  EXPECT_EQ(copy.GetEncoder()->GetNumberOfCategories(), 1);
  EXPECT_EQ(assigned.GetEncoder()->GetNumberOfCategories(), 1);
  EXPECT_EQ(assigned.GetMeasureLevel(), 3);
  QVCatVar & same = assigned;
  assigned = same;
  EXPECT_EQ(assigned.GetEncoder()->Decode(0), "a");
}

TEST(CatVar, Display) {
  QVCatVar variable = Cat(2, 2);
  variable.SetOrdinalFlag(true);
  variable.SetBinaryFlag(true, 1);
  const std::string head =
      "\nCategorical variable: name = x"
      "\nLabel = the x"
      "\nVariable role = Input"
      "\nVariable storage = Undefined variable storage"
      "\nMeasurement Level = Numeric Categorical"
      "\nNumber of categories = 2"
      "\nOrdinal variable indicator = true"
      "\nBinary Flag variable indicator = true"
      "\nIndex of Binary Flag's true value = 1";
  EXPECT_EQ(Shown(variable), head + Shown(QVCatNumEncoder()));
  variable.SetMissingValueReplacement("7");
  EXPECT_EQ(Shown(variable), head + "\nMissing value replacement = 7" + Shown(QVCatNumEncoder()));
}

// --- Continuous -------------------------------------------------------------------------------

struct Expected {
  int storage;
  double min;
  double max;
  int bins;
  int encoderCount;
  bool binning;
};

void ExpectContVar(QVContVar const & variable, Expected const & expected) {
  EXPECT_EQ(variable.GetVariableStorage(), expected.storage);
  EXPECT_EQ(variable.GetMin(), expected.min);
  EXPECT_EQ(variable.GetMax(), expected.max);
  EXPECT_EQ(variable.GetNBins(), expected.bins);
  auto const * const encoder = dynamic_cast<QVContEncoder const *>(variable.GetEncoder());
  ASSERT_NE(encoder, nullptr);
  EXPECT_EQ(encoder->GetNumberOfCategories(), expected.encoderCount);
  EXPECT_EQ(variable.GetNumberOfCategories(), expected.encoderCount);
  EXPECT_EQ(encoder->GetBinningEncoder() != nullptr, expected.binning);
  EXPECT_EQ(variable.GetMissingValueReplacement(), nullptr);
  EXPECT_EQ(variable.GetOutlierHandleMethod(), 0);
  EXPECT_EQ(variable.GetSumFreqWts(), 0.0);
  EXPECT_EQ(variable.GetSumCompWts(), 0.0);
  EXPECT_EQ(variable.GetMean(), kMissing);
  EXPECT_EQ(variable.GetStdDev(), kMissing);
}

TEST(ContVar, Constructors) {
  const VariableRole role = VariableRoleInput;
  const Numbers cuts{2, 4};
  ExpectContVar(QVContVar(), {0, kMissing, kLargest, -1, 1, false});
  EXPECT_EQ(QVContVar().GetVariableName(), "");
  EXPECT_EQ(QVContVar().GetVariableRole(), 0);
  ExpectContVar(QVContVar("x", "", role), {2, kMissing, kLargest, -1, 1, false});
  ExpectContVar(QVContVar("x", "", 0, 10, role, true, 5), {0, 0, 10, 5, 5, true});
  ExpectContVar(QVContVar("x", "", 0, 10, role, true, 2), {0, 0, 10, 2, 2, true});
  ExpectContVar(QVContVar("x", "", 0, 10, role, true, 1), {0, 0, 10, 1, 1, false});
  ExpectContVar(QVContVar("x", "", 0, 10, role, false, 5), {0, 0, 10, 5, 1, false});
  ExpectContVar(QVContVar("x", "", 10, 10, role, true, 5), {0, 10, 10, 5, 1, false});
  ExpectContVar(QVContVar("x", "", 11, 10, role, true, 5), {0, 11, 10, 5, 1, false});
  ExpectContVar(QVContVar("x", "", 0, 10, role, true, -3), {0, 0, 10, -3, 1, false});
  ExpectContVar(QVContVar("x", "", cuts, true, role), {0, kMissing, kLargest, 3, 3, true});
  ExpectContVar(QVContVar("x", "", cuts, false, role), {0, kMissing, kLargest, 3, 1, false});
  ExpectContVar(QVContVar("x", "", Numbers(), true, role), {0, kMissing, kLargest, 1, 1, false});
  ExpectContVar(QVContVar("x", "", 0, 10, cuts, true, role), {0, 0, 10, 3, 3, true});
  ExpectContVar(QVContVar("x", "", 0, 10, cuts, false, role), {0, 0, 10, 3, 1, false});
  ExpectContVar(QVContVar("x", "", 10, 10, cuts, true, role), {0, 10, 10, 3, 1, false});
  ExpectContVar(QVContVar("x", "", 10, 0, cuts, true, role), {0, 10, 0, 3, 1, false});
  ExpectContVar(QVContVar("x", "", 0, 10, Numbers(), true, role), {0, 0, 10, 1, 1, false});
}

TEST(ContVar, CutPointsAreKeptWithAndWithoutBinning) {
  const Numbers cuts{2, 4};
  EXPECT_EQ(QVContVar("x", "", cuts, false, VariableRoleInput).GetCutPoints(), cuts);
  EXPECT_EQ(QVContVar("x", "", 9, 1, cuts, true, VariableRoleInput).GetCutPoints(), cuts);
  EXPECT_TRUE(QVContVar("x", "", 0, 10, VariableRoleInput, true, 5).GetCutPoints().empty());
}

TEST(ContVar, Attributes) {
  QVContVar variable("x", "the x", VariableRoleInput);
  EXPECT_EQ(variable.GetMeasureLevel(), 1);
  EXPECT_EQ(variable.GetVariableRole(), 4);
  ExpectCommonAttributes(variable);
  ExpectReplacement(variable);
  ExpectSettableRole(variable);
  EXPECT_FALSE(variable.SetFlagVariable(true));
  EXPECT_FALSE(variable.IsFlagVariable());
}

QVContVar FilledCont() {
  QVContVar variable("x", "", Numbers{2, 4}, true, VariableRoleInput);
  variable.SetMean(1.5);
  variable.SetStdDev(2.5);
  variable.SetMinMax(-1, 9);
  variable.SetNBins(7);
  variable.SetOutlierHandleMethod(static_cast<OutlierHandleMethod>(2));
  variable.SetSumFreqWts(10);
  variable.SetSumCompWts(11);
  return variable;
}

TEST(ContVar, SettersAndCopies) {
  const QVContVar variable = FilledCont();
  QVContVar assigned;
  assigned = variable;
  const std::unique_ptr<QVContVar> clone(variable.Clone());
  for (QVContVar const * each : {&variable, static_cast<QVContVar const *>(&assigned),
                                 static_cast<QVContVar const *>(clone.get())}) {
    EXPECT_EQ(each->GetMean(), 1.5);
    EXPECT_EQ(each->GetStdDev(), 2.5);
    EXPECT_EQ(each->GetMin(), -1);
    EXPECT_EQ(each->GetMax(), 9);
    EXPECT_EQ(each->GetNBins(), 7);
    EXPECT_EQ(each->GetOutlierHandleMethod(), 2);
    EXPECT_EQ(each->GetSumFreqWts(), 10);
    EXPECT_EQ(each->GetSumCompWts(), 11);
    EXPECT_EQ(each->GetCutPoints(), (Numbers{2, 4}));
  }
  EXPECT_NE(assigned.GetEncoder(), variable.GetEncoder());
  QVContVar & same = assigned;
  assigned = same;
  EXPECT_EQ(assigned.GetNumberOfCategories(), 3);
}

TEST(ContVar, UpdateTakesTheEncodersCount) {
  QVContVar variable = FilledCont();
  EXPECT_EQ(variable.UpdateNumberOfCategories(), 3);
  EXPECT_EQ(variable.GetNBins(), 3);
}

TEST(ContVar, StatusComparesTheRange) {
  QVContVar variable;
  EXPECT_EQ(variable.GetVarStatus(), 0);
  variable.SetMinMax(3, 3);
  EXPECT_EQ(variable.GetVarStatus(), 1);
  variable.SetMinMax(4, 3);
  EXPECT_EQ(variable.GetVarStatus(), 2);
}

TEST(ContVar, Display) {
  QVContVar variable("x", "the x", 0, 10, VariableRoleTarget, false, 4);
  const std::string head =
      "\nContinuous variable: name = x"
      "\nLabel = the x"
      "\nVariable role = Target"
      "\nVariable storage = Undefined variable storage"
      "\nNumber of bins = 4"
      "\nMinimum = 0"
      "\nMaximum = 10"
      "\nMean = miss"
      "\nStandard deviation = miss";
  const std::string tail = Shown(QVContEncoder()) +
                           "\nfSumFreqWts = 0"
                           "\nfSumCompWts = 0"
                           "\nEnd display for Continuous variable x";
  EXPECT_EQ(Shown(variable), head + tail);
  variable.SetMissingValueReplacement("7");
  EXPECT_EQ(Shown(variable), head + "\nMissing value replacement = 7" + tail);
}

// --- Weight -----------------------------------------------------------------------------------

TEST(WeightVar, Attributes) {
  QVWeightVar variable("x", "the x", static_cast<IQVVariable::WRoundingOption>(1));
  EXPECT_EQ(variable.GetMeasureLevel(), 4);
  EXPECT_EQ(variable.GetVariableRole(), 3);
  variable.SetVariableRole(VariableRoleInput);
  EXPECT_EQ(variable.GetVariableRole(), 3);
  EXPECT_EQ(variable.GetVariableStorage(), 0);
  EXPECT_EQ(variable.GetNumberOfCategories(), 0);
  EXPECT_EQ(variable.UpdateNumberOfCategories(), 0);
  EXPECT_EQ(variable.GetVarStatus(), 0);
  variable.SetMissingValueReplacement("1");
  EXPECT_EQ(variable.GetMissingValueReplacement(), nullptr);
  EXPECT_FALSE(variable.SetFlagVariable(true));
  EXPECT_FALSE(variable.IsFlagVariable());
  ExpectCommonAttributes(variable);
}

TEST(WeightVar, EncoderRoundsAsTold) {
  for (int option : {0, 1, 2}) {
    const QVWeightVar variable("x", "", static_cast<IQVVariable::WRoundingOption>(option));
    ASSERT_EQ(variable.GetEncoder()->GetEncoderType(), 4);
    EXPECT_EQ(variable.GetEncoder()->EncodeConst(2.5),
              (Numbers{2, 3, 2.5}[static_cast<std::size_t>(option)]));
  }
}

TEST(WeightVar, CopiesAreDeep) {
  QVWeightVar variable("x", "", WRoundingClosest);
  QVWeightVar copy(variable);
  QVWeightVar assigned("y", "", WRoundingAsIs);
  assigned = variable;
  variable.GetEncoder()->AddDiscreteUserMissing(3, "");
  EXPECT_EQ(copy.GetEncoder()->EncodeConst(3.0), 3.0);
  EXPECT_EQ(assigned.GetEncoder()->EncodeConst(2.5), 3.0);
  EXPECT_EQ(assigned.GetVariableName(), "x");
}

TEST(WeightVar, Display) {
  EXPECT_EQ(Shown(QVWeightVar("x", "the x", WRoundingClosest)),
            "\nQVWeightVar display start"
            "\nWeight variable: name = x"
            "\nLabel = the x"
            "\nVariable storage = Undefined variable storage" +
                Shown(QVRoundEncoder(WRoundingClosest)) + "\nQVWeightVar display end");
}

// --- The interface ----------------------------------------------------------------------------

// The order of the operations is part of the binary interface. The destructor fills two places.
TEST(VariableInterface, SlotOrder) {
  using V = IQVVariable;
  int place = 2;
  EXPECT_EQ(VirtualSlot(&V::GetMeasureLevel), place++);
  EXPECT_EQ(VirtualSlot(&V::GetVariableName), place++);
  EXPECT_EQ(VirtualSlot(&V::GetVariableLabel), place++);
  EXPECT_EQ(VirtualSlot(&V::SetVariableLabel), place++);
  EXPECT_EQ(VirtualSlot(&V::GetNumberOfCategories), place++);
  EXPECT_EQ(VirtualSlot(&V::GetVariableRole), place++);
  EXPECT_EQ(VirtualSlot(&V::SetVariableRole), place++);
  EXPECT_EQ(VirtualSlot(&V::GetVariableStorage), place++);
  EXPECT_EQ(VirtualSlot(&V::SetVariableStorage), place++);
  EXPECT_EQ(VirtualSlot(&V::SetFieldFormatElement), place++);
  EXPECT_EQ(VirtualSlot(static_cast<XMLElement * (V::*)()>(&V::GetFieldFormatElement)), place++);
  EXPECT_EQ(VirtualSlot(static_cast<XMLElement * (V::*)() const>(&V::GetFieldFormatElement)),
            place++);
  EXPECT_EQ(VirtualSlot(&V::UpdateNumberOfCategories), place++);
  EXPECT_EQ(VirtualSlot(&V::SetMissingValueReplacement), place++);
  EXPECT_EQ(VirtualSlot(&V::GetMissingValueReplacement), place++);
  EXPECT_EQ(VirtualSlot(&V::Clone), place++);
  EXPECT_EQ(VirtualSlot(static_cast<IQVEncoder * (V::*)()>(&V::GetEncoder)), place++);
  EXPECT_EQ(VirtualSlot(static_cast<IQVEncoder * (V::*)() const>(&V::GetEncoder)), place++);
  EXPECT_EQ(VirtualSlot(&V::GetVarStatus), place++);
  EXPECT_EQ(VirtualSlot(&V::WriteObjectXML), place++);
  EXPECT_EQ(VirtualSlot(&V::ReadObjectXML), place++);
  EXPECT_EQ(VirtualSlot(&V::SetFlagVariable), place++);
  EXPECT_EQ(VirtualSlot(&V::IsFlagVariable), place++);
  EXPECT_EQ(VirtualSlot(&V::Display), place++);
  EXPECT_EQ(place, 26);
}

TEST(VariableInterface, EnumerationsStandInTheInterface) {
  EXPECT_EQ(IQVVariable::MeasureLevel(4), MeasureLevelFrequencyWeight);
  EXPECT_EQ(IQVVariable::VariableRole(7), VariableRoleRecordId);
  EXPECT_EQ(IQVVariable::VariableStorage(6), VariableStorageTimestamp);
  EXPECT_EQ(IQVVariable::WRoundingOption(2), WRoundingAsIs);
  EXPECT_EQ(IQVVariable::VarStatus(2), VarStatusEmpty);
}

}  // namespace
