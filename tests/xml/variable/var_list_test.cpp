// The list of variables: adding, removing, looking up, roles, copies, display.
#include "QVVarList.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>

#include "QVCatNumEncoder.h"
#include "QVCatVar.h"
#include "QVContEncoder.h"
#include "QVContVar.h"
#include "QVStringEncoder.h"
#include "XMLElement.h"
#include "variable_test_tools.h"

namespace {

using namespace QVXML_940;
using variable_test::Shown;
using Strings = std::vector<std::string>;
using Numbers = std::vector<double>;
using Indexes = std::vector<int>;

// Opens the protected operations.
struct OpenList : QVVarList {
  using QVVarList::AddResponseVariable;
  using QVVarList::ChangeVariableRole;
  using QVVarList::RemoveResponseVariable;
};

int Count(double value) {
  return static_cast<int>(value);
}

// --- Adding -----------------------------------------------------------------------------------

TEST(VarList, StartsEmpty) {
  const QVVarList list;
  EXPECT_EQ(list.Size(), 0);
  EXPECT_EQ(list.GetTargetIndex(), -1);
  EXPECT_EQ(list.GetTargetRespIndex(), -1);
  EXPECT_EQ(list.GetFreqWeightIndex(), -1);
  EXPECT_EQ(list.GetNumContVar(), 0);
  EXPECT_EQ(list.GetNumCatVar(), 0);
  EXPECT_FALSE(list.GetListwiseDeletion());
  EXPECT_TRUE(list.GetMutipleResponseVariables().empty());
  EXPECT_EQ(list.GetFieldFormatsElement(), nullptr);
  EXPECT_EQ(list.GetTargetVariable(), nullptr);
  EXPECT_EQ(list.GetTargetRespVariable(), nullptr);
  EXPECT_EQ(list.GetFreqWeightVariable(), nullptr);
  EXPECT_EQ(list.GetNTargetCats(), 0);
  EXPECT_EQ(list.GetNOutputCats(), 0);
}

TEST(VarList, AddContVarForms) {
  QVVarList list;
  const VariableRole role = VariableRoleInput;
  EXPECT_EQ(list.AddContVar("a", "A", role), 0);
  EXPECT_EQ(list.AddContVar("b", "B", 0, 10, role, true, 5), 1);
  EXPECT_EQ(list.AddContVar("c", "C", Numbers{1, 2}, true, role), 2);
  EXPECT_EQ(list.AddContVar("d", "D", 0, 10, Numbers{1, 2, 3}, true, role), 3);
  EXPECT_EQ(list.GetNumContVar(), 4);
  EXPECT_EQ(list.GetNumCatVar(), 0);
  EXPECT_EQ(list.GetVarAt(0)->GetVariableStorage(), 2);
  EXPECT_EQ(list.GetNInputCats(), (Indexes{1, 5, 3, 4}));
  EXPECT_EQ(list.GetVarAt(3)->GetVariableLabel(), "D");
  auto const * const d = dynamic_cast<QVContVar const *>(list.GetVarAt(3));
  ASSERT_NE(d, nullptr);
  EXPECT_EQ(d->GetMax(), 10);
  EXPECT_EQ(d->GetCutPoints(), (Numbers{1, 2, 3}));
}

TEST(VarList, AddCatVarOfANumberOfCategories) {
  QVVarList list;
  EXPECT_EQ(list.AddCatVar("a", "A", 3, MeasureLevelStringCategorical, VariableRoleInput), 0);
  EXPECT_EQ(list.GetNumCatVar(), 1);
  EXPECT_EQ(list.GetNumContVar(), 0);
  auto const * const a = dynamic_cast<QVCatVar const *>(list.GetVarAt(0));
  ASSERT_NE(a, nullptr);
  EXPECT_EQ(a->GetNumberOfCategories(), 3);
  EXPECT_EQ(a->GetMeasureLevel(), 3);
  EXPECT_FALSE(a->GetOrdinalFlag());
  EXPECT_EQ(a->GetEncoder()->GetNumberOfCategories(), 0);
}

TEST(VarList, AddCatVarOfValues) {
  QVVarList list;
  const Numbers numbers{5, 3, 5};
  const Strings strings{"x", "y"};
  const Numbers weights{1, 2, 3};
  const Strings labels{"first", "second"};
  const VariableRole role = VariableRoleInput;
  EXPECT_EQ(list.AddCatVar("n", "", numbers, role), 0);
  EXPECT_EQ(list.AddCatVar("nl", "", numbers, labels, role), 1);
  EXPECT_EQ(list.AddCatVar("nw", "", numbers, weights, role), 2);
  EXPECT_EQ(list.AddCatVar("nwl", "", numbers, weights, labels, role), 3);
  EXPECT_EQ(list.AddCatVar("s", "", strings, role), 4);
  EXPECT_EQ(list.AddCatVar("sl", "", strings, labels, role), 5);
  EXPECT_EQ(list.AddCatVar("sw", "", strings, weights, role), 6);
  EXPECT_EQ(list.AddCatVar("swl", "", strings, weights, labels, role), 7);
  EXPECT_EQ(list.GetNumCatVar(), 8);
  for (int i = 0; i < 8; ++i) {
    auto const * const variable = dynamic_cast<QVCatVar const *>(list.GetVarAt(i));
    ASSERT_NE(variable, nullptr);
    const bool numeric = i < 4;
    EXPECT_EQ(variable->GetMeasureLevel(), numeric ? 2 : 3);
    EXPECT_EQ(variable->GetNumberOfCategories(), numeric ? 3 : 2);  // of values, doubles included
    EXPECT_EQ(variable->GetEncoder()->GetNumberOfCategories(), 2);
    EXPECT_EQ(variable->GetEncoder()->Decode(1), numeric ? "3" : "y");
    EXPECT_FALSE(variable->GetOrdinalFlag());
    Numbers kept;
    EXPECT_EQ(variable->GetSumFreqWts(kept), i % 4 >= 2);
    EXPECT_EQ(kept, i % 4 >= 2 ? weights : Numbers());
    EXPECT_EQ(*variable->GetEncoder()->GetValueLabels(), i % 2 == 1 ? labels : Strings());
  }
}

TEST(VarList, AnEmptyOrUsedNameIsRefused) {
  QVVarList list;
  const VariableRole target = VariableRoleTarget;
  const Numbers numbers{1};
  const Strings strings{"x"};
  list.AddContVar("a", "", VariableRoleInput);
  for (std::string const name : {"", "a"}) {
    EXPECT_EQ(list.AddContVar(name, "", target), -1);
    EXPECT_EQ(list.AddContVar(name, "", 0, 1, target, true, 2), -1);
    EXPECT_EQ(list.AddContVar(name, "", numbers, true, target), -1);
    EXPECT_EQ(list.AddContVar(name, "", 0, 1, numbers, true, target), -1);
    EXPECT_EQ(list.AddCatVar(name, "", 2, MeasureLevelStringCategorical, target), -1);
    EXPECT_EQ(list.AddCatVar(name, "", numbers, target), -1);
    EXPECT_EQ(list.AddCatVar(name, "", numbers, strings, target), -1);
    EXPECT_EQ(list.AddCatVar(name, "", numbers, numbers, target), -1);
    EXPECT_EQ(list.AddCatVar(name, "", numbers, numbers, strings, target), -1);
    EXPECT_EQ(list.AddCatVar(name, "", strings, target), -1);
    EXPECT_EQ(list.AddCatVar(name, "", strings, strings, target), -1);
    EXPECT_EQ(list.AddCatVar(name, "", strings, numbers, target), -1);
    EXPECT_EQ(list.AddCatVar(name, "", strings, numbers, strings, target), -1);
    const QVContVar variable(name, "", target);
    EXPECT_EQ(list.AddNewVar(&variable), -1);
  }
  EXPECT_EQ(list.Size(), 1);
  EXPECT_EQ(list.GetNumContVar(), 1);
  EXPECT_EQ(list.GetNumCatVar(), 0);
  EXPECT_EQ(list.GetTargetIndex(), -1);
  EXPECT_EQ(list.AddContVar("A", "", VariableRoleInput), 1);  // exact bytes
}

TEST(VarList, AnAddedTargetTakesOver) {
  QVVarList list;
  list.AddContVar("a", "", VariableRoleTarget);
  EXPECT_EQ(list.GetTargetIndex(), 0);
  list.AddContVar("b", "", VariableRoleTarget);
  EXPECT_EQ(list.GetTargetIndex(), 1);
  EXPECT_EQ(list.GetVariableRole(0), 1);
  list.AddCatVar("c", "", Strings{"x", "y"}, VariableRoleTarget);
  EXPECT_EQ(list.GetTargetIndex(), 2);
  EXPECT_EQ(list.GetNTargetCats(), 2);
}

TEST(VarList, AddedResponses) {
  QVVarList list;
  list.AddContVar("a", "", VariableRoleInput);
  list.AddCatVar("b", "", Strings{"x", "y"}, VariableRoleTargetResponse);
  list.AddContVar("c", "", VariableRoleTargetResponse);
  EXPECT_EQ(list.GetMutipleResponseVariables(), (Indexes{1, 2}));
  EXPECT_EQ(list.GetTargetRespIndex(), 1);
  EXPECT_EQ(list.GetTargetRespVariable()->GetVariableName(), "b");
  EXPECT_EQ(list.GetNOutputCats(), 2);
}

TEST(VarList, WeightVariable) {
  QVVarList list;
  list.AddContVar("a", "", VariableRoleInput);
  EXPECT_EQ(list.SetWeightVar("w", "", WRoundingAsIs), 1);
  EXPECT_EQ(list.GetFreqWeightIndex(), 1);
  EXPECT_EQ(list.GetNumContVar(), 1);
  EXPECT_EQ(list.GetNumCatVar(), 0);
  list.AddContVar("b", "", VariableRoleInput);
  EXPECT_EQ(list.SetWeightVar("a", "", WRoundingClosest), 1);  // the name is not compared
  EXPECT_EQ(list.Size(), 3);
  EXPECT_EQ(list.GetFreqWeightVariable(), list.GetVarAt(1));
  EXPECT_EQ(list.GetFreqWeightVariable()->GetEncoder()->EncodeConst(2.5), 3.0);
  EXPECT_EQ(list.GetNumContVar(), 2);
  EXPECT_EQ(list.GetNumCatVar(), 0);
  EXPECT_EQ(list.FindVariable("a"), 0);
  EXPECT_EQ(list.SetWeightVar("", "", WRoundingAsIs), 1);
}

TEST(VarList, AddNewVarCopies) {
  QVVarList list;
  QVContVar cont("cont", "", VariableRoleTarget);
  QVCatVar numeric("numeric", "", 2, MeasureLevelNumericCategorical, VariableRoleInput, true);
  QVCatVar text("text", "", 2, MeasureLevelStringCategorical, VariableRoleTargetResponse, false);
  QVWeightVar weight("weight", "", WRoundingClosest);
  EXPECT_EQ(list.AddNewVar(&cont), 0);
  EXPECT_EQ(list.AddNewVar(&numeric), 1);
  EXPECT_EQ(list.AddNewVar(&text), 2);
  EXPECT_EQ(list.AddNewVar(&weight), 3);
  EXPECT_NE(list.GetVarAt(0), &cont);
  EXPECT_EQ(list.GetNumContVar(), 1);
  EXPECT_EQ(list.GetNumCatVar(), 2);
  EXPECT_EQ(list.GetTargetIndex(), 0);
  EXPECT_EQ(list.GetTargetRespIndex(), 2);
  EXPECT_EQ(list.GetFreqWeightIndex(), 3);
  EXPECT_TRUE(dynamic_cast<QVCatVar &>(*list.GetVarAt(1)).GetOrdinalFlag());
  const QVWeightVar other("other", "", WRoundingTruncate);
  EXPECT_EQ(list.AddNewVar(&other), 3);
  EXPECT_EQ(list.Size(), 4);
  EXPECT_EQ(list.GetVarAt(3)->GetVariableName(), "other");
  EXPECT_EQ(list.GetNumCatVar(), 2);
}

TEST(VarList, AddNewVarRefusals) {
  QVVarList list;
  EXPECT_EQ(list.AddNewVar(nullptr), -1);
  for (int level : {0, 1, 4, 5, -1}) {  // no such class, or another one than the level tells
    const QVCatVar variable("x", "", 0, static_cast<MeasureLevel>(level), VariableRoleTarget,
                            false);
    EXPECT_EQ(list.AddNewVar(&variable), -1) << level;
  }
  EXPECT_EQ(list.Size(), 0);
  EXPECT_EQ(list.GetTargetIndex(), -1);
  EXPECT_EQ(list.GetNumCatVar(), 0);
}

// --- Looking up -------------------------------------------------------------------------------

TEST(VarList, LookUp) {
  QVVarList list;
  list.AddContVar("a", "", VariableRoleInput);
  list.AddCatVar("b", "", Strings{"x"}, VariableRolePossibleInput);
  QVVarList const & constant = list;
  EXPECT_EQ(list.Size(), 2);
  EXPECT_EQ(list.GetVarAt(-1), nullptr);
  EXPECT_EQ(list.GetVarAt(2), nullptr);
  EXPECT_EQ(constant.GetVarAt(1), list.GetVarAt(1));
  EXPECT_EQ(list.GetVariable("b"), list.GetVarAt(1));
  EXPECT_EQ(constant.GetVariable("b"), list.GetVarAt(1));
  EXPECT_EQ(list.GetVariable("c"), nullptr);
  EXPECT_EQ(constant.GetVariable(""), nullptr);
  EXPECT_EQ(list.GetEncoderAt(1), list.GetVarAt(1)->GetEncoder());
  EXPECT_EQ(constant.GetEncoderAt(1), list.GetVarAt(1)->GetEncoder());
  EXPECT_EQ(list.GetEncoderAt(-1), nullptr);
  EXPECT_EQ(constant.GetEncoderAt(2), nullptr);
  EXPECT_EQ(list.FindVariable("a"), 0);
  EXPECT_EQ(list.FindVariable("c"), -1);
  EXPECT_EQ(list.GetVariableRole(1), 5);
  EXPECT_EQ(list.GetVariableRole(-1), 0);
  EXPECT_EQ(list.GetVariableRole(2), 0);
}

TEST(VarList, CountsAndNamesByRole) {
  QVVarList list;
  list.AddContVar("in1", "", VariableRoleInput);
  list.AddContVar("maybe", "", VariableRolePossibleInput);
  list.AddCatVar("in2", "", Strings{"x", "y", "z"}, VariableRoleInput);
  list.AddContVar("out1", "", VariableRoleTargetResponse);
  list.AddContVar("target", "", VariableRoleTarget);
  list.AddContVar("out2", "", VariableRoleTargetResponse);
  EXPECT_EQ(list.GetNumInputVars(), 2);
  EXPECT_EQ(list.GetNumPossibleInputVars(), 1);
  EXPECT_EQ(list.GetNInputCats(), (Indexes{1, 3}));
  Strings inputs{"before"};
  Strings responses{"before"};
  list.GetVarNames(inputs, responses);
  EXPECT_EQ(inputs, (Strings{"before", "in1", "in2"}));
  EXPECT_EQ(responses, (Strings{"before", "out1", "out2"}));
}

TEST(VarList, CaseCounts) {
  QVVarList list;
  EXPECT_EQ(list.GetUnWeightedCount() + list.GetWeightedCount() + list.GetDroppedCount() +
                list.GetBadWeightCount() + list.GetWeightedDroppedCount(),
            0.0);
  list.SetUnWeightedCount(1);
  list.SetWeightedCount(2);
  list.SetDroppedCount(3);
  list.SetBadWeightCount(4);
  list.SetWeightedDroppedCount(5);
  list.SetListwiseDeletion(true);
  const QVVarList copy(list);
  for (QVVarList const * each : {static_cast<QVVarList const *>(&list), &copy}) {
    EXPECT_EQ(Count(each->GetUnWeightedCount()), 1);
    EXPECT_EQ(Count(each->GetWeightedCount()), 2);
    EXPECT_EQ(Count(each->GetDroppedCount()), 3);
    EXPECT_EQ(Count(each->GetBadWeightCount()), 4);
    EXPECT_EQ(Count(each->GetWeightedDroppedCount()), 5);
    EXPECT_TRUE(each->GetListwiseDeletion());
  }
}

TEST(VarList, FieldFormats) {
  QVVarList list;
  XMLElement * const element = XMLElement::Create("formats");
  list.SetFieldFormatsElement(element);
  list.SetFieldFormatsElement(element);  // the one it has
  QVVarList const & constant = list;
  EXPECT_EQ(list.GetFieldFormatsElement(), element);
  EXPECT_EQ(constant.GetFieldFormatsElement(), element);
  const QVVarList copy(list);
  EXPECT_NE(copy.GetFieldFormatsElement(), nullptr);
  EXPECT_NE(copy.GetFieldFormatsElement(), element);
  list.SetFieldFormatsElement(XMLElement::Create("other"));
  list.SetFieldFormatsElement(nullptr);
  EXPECT_EQ(list.GetFieldFormatsElement(), nullptr);
}

// --- Removing ---------------------------------------------------------------------------------

TEST(VarList, RemoveClosesUp) {
  QVVarList list;
  list.AddContVar("a", "", VariableRoleInput);
  list.AddCatVar("b", "", 2, MeasureLevelStringCategorical, VariableRoleInput);
  list.AddContVar("c", "", VariableRoleTarget);
  EXPECT_FALSE(list.RemoveVar(-1));
  EXPECT_FALSE(list.RemoveVar(3));
  EXPECT_FALSE(list.RemoveVar("d"));
  EXPECT_TRUE(list.RemoveVar(0));
  EXPECT_EQ(list.Size(), 2);
  EXPECT_EQ(list.GetTargetIndex(), 1);
  EXPECT_EQ(list.GetNumContVar(), 1);
  EXPECT_TRUE(list.RemoveVar("b"));
  EXPECT_EQ(list.GetNumCatVar(), 0);
  EXPECT_EQ(list.GetTargetIndex(), 0);
  EXPECT_EQ(list.GetVarAt(0)->GetVariableName(), "c");
}

TEST(VarList, RemoveAboveTheTargetLeavesItsIndex) {
  QVVarList list;
  list.AddContVar("a", "", VariableRoleTarget);
  list.AddContVar("b", "", VariableRoleInput);
  EXPECT_TRUE(list.RemoveVar(1));
  EXPECT_EQ(list.GetTargetIndex(), 0);
}

TEST(VarList, RemoveTheTarget) {
  QVVarList list;
  list.AddContVar("a", "", VariableRoleTarget);
  EXPECT_TRUE(list.RemoveVar("a"));
  EXPECT_EQ(list.GetTargetIndex(), -1);
  EXPECT_EQ(list.GetTargetVariable(), nullptr);
  EXPECT_EQ(list.GetNTargetCats(), 0);
  EXPECT_EQ(list.GetNumContVar(), 0);
}

TEST(VarList, RemovingACategoricalTargetLeavesTheCountOnPurpose) {
  QVVarList list;
  list.AddCatVar("a", "", 2, MeasureLevelStringCategorical, VariableRoleTarget);
  EXPECT_TRUE(list.RemoveVar(0));
  EXPECT_EQ(list.GetNumCatVar(), 1);
}

TEST(VarList, RemovingAnyVariableWithTheTargetRoleLeavesNoTarget) {
  QVVarList list;
  list.AddContVar("a", "", VariableRoleTarget);
  list.AddContVar("b", "", VariableRoleInput);
  list.SetVariableRole(1, VariableRoleTarget);
  EXPECT_EQ(list.GetTargetIndex(), 0);
  EXPECT_TRUE(list.RemoveVar(1));
  EXPECT_EQ(list.GetTargetIndex(), -1);
}

TEST(VarList, RemoveTheWeight) {
  QVVarList list;
  list.AddContVar("a", "", VariableRoleInput);
  list.AddContVar("b", "", VariableRoleInput);
  list.SetWeightVar("w", "", WRoundingAsIs);
  EXPECT_TRUE(list.RemoveVar(0));
  EXPECT_EQ(list.GetFreqWeightIndex(), 1);
  EXPECT_TRUE(list.RemoveVar(1));
  EXPECT_EQ(list.GetFreqWeightIndex(), -1);
  EXPECT_EQ(list.GetNumContVar(), 1);
  EXPECT_EQ(list.GetNumCatVar(), 0);
}

TEST(VarList, RemovedResponses) {
  QVVarList list;
  list.AddContVar("a", "", VariableRoleInput);
  list.AddContVar("b", "", VariableRoleTargetResponse);
  list.AddContVar("c", "", VariableRoleTargetResponse);
  list.AddContVar("d", "", VariableRoleTargetResponse);
  list.RemoveVar("a");  // below them: the first response moves with its variable
  EXPECT_EQ(list.GetMutipleResponseVariables(), (Indexes{0, 1, 2}));
  EXPECT_EQ(list.GetTargetRespIndex(), 0);
  EXPECT_EQ(list.GetTargetRespVariable()->GetVariableName(), "b");
  list.RemoveVar("c");
  EXPECT_EQ(list.GetMutipleResponseVariables(), (Indexes{0, 1}));
  EXPECT_EQ(list.GetTargetRespIndex(), 0);
  list.RemoveVar("b");
  EXPECT_EQ(list.GetMutipleResponseVariables(), (Indexes{0}));
  EXPECT_EQ(list.GetTargetRespVariable()->GetVariableName(), "d");
  list.RemoveVar("d");  // the last variable empties the response list
  EXPECT_TRUE(list.GetMutipleResponseVariables().empty());
  EXPECT_EQ(list.GetTargetRespIndex(), -1);
  EXPECT_EQ(list.GetNOutputCats(), 0);
}

TEST(VarList, RemovedLastEntryThatIsAResponse) {
  QVVarList list;
  list.AddContVar("a", "", VariableRoleInput);
  list.AddContVar("b", "", VariableRoleTargetResponse);
  list.RemoveVar(1);  // the index then equals the size
  EXPECT_TRUE(list.GetMutipleResponseVariables().empty());
  EXPECT_EQ(list.GetTargetRespIndex(), -1);
}

// --- Roles ------------------------------------------------------------------------------------

TEST(VarList, SetVariableRoleToTarget) {
  QVVarList list;
  list.AddContVar("a", "", VariableRoleInput);
  list.AddContVar("b", "", VariableRoleInput);
  EXPECT_FALSE(list.SetVariableRole(-1, VariableRoleTarget));
  EXPECT_FALSE(list.SetVariableRole(2, VariableRoleTarget));
  EXPECT_TRUE(list.SetVariableRole(1, VariableRoleTarget));
  EXPECT_EQ(list.GetTargetIndex(), 1);
  EXPECT_TRUE(list.SetVariableRole(0, VariableRoleTarget));
  EXPECT_EQ(list.GetTargetIndex(), 1);
  EXPECT_EQ(list.GetVariableRole(0), 1);
  EXPECT_TRUE(list.SetVariableRole(1, VariableRoleUnused));
  EXPECT_EQ(list.GetTargetIndex(), -1);
  EXPECT_EQ(list.GetVariableRole(1), 6);
}

TEST(VarList, AnotherRoleForAnyVariableWithTheTargetRoleLeavesNoTarget) {
  QVVarList list;
  list.AddContVar("a", "", VariableRoleTarget);
  list.AddContVar("b", "", VariableRoleInput);
  list.SetVariableRole(1, VariableRoleTarget);
  EXPECT_EQ(list.GetTargetIndex(), 0);
  EXPECT_TRUE(list.SetVariableRole(1, VariableRoleInput));
  EXPECT_EQ(list.GetTargetIndex(), -1);
  EXPECT_EQ(list.GetVariableRole(0), 1);
  EXPECT_TRUE(list.SetVariableRole(0, VariableRoleTarget));  // the way back
  EXPECT_EQ(list.GetTargetIndex(), 0);
}

TEST(VarList, ANumberThatIsNoRoleIsKept) {
  QVVarList list;
  list.AddContVar("a", "", VariableRoleTarget);
  EXPECT_TRUE(list.SetVariableRole(0, static_cast<VariableRole>(77)));
  EXPECT_EQ(list.GetVariableRole(0), 77);
  EXPECT_EQ(list.GetTargetIndex(), -1);
}

TEST(VarList, ATargetThatTurnsResponseStaysTheTarget) {
  QVVarList list;
  list.AddContVar("a", "", VariableRoleTarget);
  EXPECT_TRUE(list.SetVariableRole(0, VariableRoleTargetResponse));
  EXPECT_EQ(list.GetTargetIndex(), 0);
  EXPECT_EQ(list.GetTargetRespIndex(), 0);
}

TEST(VarList, SetVariableRoleToResponse) {
  QVVarList list;
  for (const char * name : {"a", "b", "c"})
    list.AddContVar(name, "", VariableRoleInput);
  EXPECT_TRUE(list.SetVariableRole(2, VariableRoleTargetResponse));
  EXPECT_TRUE(list.SetVariableRole(0, VariableRoleTargetResponse));
  EXPECT_TRUE(list.SetVariableRole(0, VariableRoleTargetResponse));
  EXPECT_EQ(list.GetMutipleResponseVariables(), (Indexes{2, 0}));
  EXPECT_EQ(list.GetTargetRespIndex(), 2);
  EXPECT_TRUE(list.SetVariableRole(2, VariableRoleInput));  // stays in the list, by design
  EXPECT_EQ(list.GetMutipleResponseVariables(), (Indexes{2, 0}));
  EXPECT_EQ(list.GetTargetRespIndex(), 2);
}

TEST(VarList, RoleOfTheWeightStays) {
  QVVarList list;
  list.SetWeightVar("w", "", WRoundingAsIs);
  EXPECT_TRUE(list.SetVariableRole(0, VariableRoleInput));
  EXPECT_EQ(list.GetVariableRole(0), 3);
}

TEST(VarList, ChangeVariableRole) {
  OpenList list;
  EXPECT_FALSE(list.ChangeVariableRole(true, 4));
  EXPECT_EQ(list.GetMutipleResponseVariables(), (Indexes{4}));
  EXPECT_EQ(list.GetTargetRespIndex(), 4);
  EXPECT_FALSE(list.ChangeVariableRole(true, 2));
  EXPECT_FALSE(list.ChangeVariableRole(true, 2));
  EXPECT_EQ(list.GetMutipleResponseVariables(), (Indexes{4, 2}));
  EXPECT_FALSE(list.ChangeVariableRole(false, 7));
  EXPECT_FALSE(list.ChangeVariableRole(false, 2));
  EXPECT_EQ(list.GetMutipleResponseVariables(), (Indexes{4}));
  EXPECT_FALSE(list.ChangeVariableRole(false, 4));
  EXPECT_TRUE(list.GetMutipleResponseVariables().empty());
  EXPECT_EQ(list.GetTargetRespIndex(), -1);
}

TEST(VarList, TakingTheFirstResponseOutLeavesTheTargetResponseIndex) {
  OpenList list;
  list.ChangeVariableRole(true, 4);
  list.ChangeVariableRole(true, 2);
  EXPECT_FALSE(list.ChangeVariableRole(false, 4));
  EXPECT_EQ(list.GetMutipleResponseVariables(), (Indexes{2}));
  EXPECT_EQ(list.GetTargetRespIndex(), 4);  // only an empty list and -1 move it
}

TEST(VarList, AddResponseVariable) {
  OpenList list;
  EXPECT_FALSE(list.AddResponseVariable(0));
  list.AddContVar("a", "", VariableRoleInput);
  list.AddContVar("b", "", VariableRoleInput);
  EXPECT_FALSE(list.AddResponseVariable(-1));
  EXPECT_FALSE(list.AddResponseVariable(2));
  EXPECT_TRUE(list.AddResponseVariable(1));
  EXPECT_TRUE(list.AddResponseVariable(0));
  EXPECT_EQ(list.GetMutipleResponseVariables(), (Indexes{1, 0}));
  EXPECT_EQ(list.GetTargetRespIndex(), 1);
}

TEST(VarList, RemoveResponseVariable) {
  OpenList list;
  EXPECT_FALSE(list.RemoveResponseVariable(0));
  for (const char * name : {"a", "b", "c"})
    list.AddContVar(name, "", VariableRoleInput);
  EXPECT_TRUE(list.RemoveResponseVariable(0));  // no responses: at once
  list.AddResponseVariable(2);
  list.AddResponseVariable(0);
  list.AddResponseVariable(1);
  EXPECT_FALSE(list.RemoveResponseVariable(-1));
  EXPECT_FALSE(list.RemoveResponseVariable(4));
  EXPECT_TRUE(list.RemoveResponseVariable(3));  // the size passes
  EXPECT_EQ(list.GetMutipleResponseVariables(), (Indexes{2, 0, 1}));
  EXPECT_TRUE(list.RemoveResponseVariable(0));
  EXPECT_EQ(list.GetMutipleResponseVariables(), (Indexes{1, 0}));
  EXPECT_EQ(list.GetTargetRespIndex(), 1);
  EXPECT_TRUE(list.RemoveResponseVariable(1));
  EXPECT_EQ(list.GetTargetRespIndex(), 0);
  EXPECT_TRUE(list.RemoveResponseVariable(0));
  EXPECT_EQ(list.GetTargetRespIndex(), -1);
}

// --- Changing ---------------------------------------------------------------------------------

TEST(VarList, MissingValueReplacement) {
  QVVarList list;
  list.AddContVar("a", "", VariableRoleInput);
  EXPECT_FALSE(list.SetMissingValueReplacement(-1, "0"));
  EXPECT_FALSE(list.SetMissingValueReplacement(1, "0"));
  EXPECT_TRUE(list.SetMissingValueReplacement(0, "0"));
  EXPECT_EQ(*list.GetVarAt(0)->GetMissingValueReplacement(), "0");
}

TEST(VarList, UpdateNumbersOfCategories) {
  QVVarList list;
  EXPECT_EQ(list.UpdateNumbersOfCategories(), 0);
  list.AddContVar("a", "", 0, 10, VariableRoleInput, true, 5);
  list.AddCatVar("b", "", 0, MeasureLevelStringCategorical, VariableRoleInput);
  list.GetEncoderAt(1)->Encode("x");
  list.GetEncoderAt(1)->Encode("y");
  list.SetWeightVar("w", "", WRoundingAsIs);
  EXPECT_EQ(list.UpdateNumbersOfCategories(), 7);
  EXPECT_EQ(list.GetVarAt(1)->GetNumberOfCategories(), 2);
}

TEST(VarList, SumOfCategoriesStopsAtTheEndOfTheRange) {
  QVVarList list;
  for (const char * name : {"a", "b"}) {
    list.AddCatVar(name, "", 0, MeasureLevelStringCategorical, VariableRoleInput);
    dynamic_cast<QVCatVar &>(*list.GetVariable(name))
        .SetNumberOfCategories(std::numeric_limits<int>::max());
  }
  EXPECT_EQ(list.UpdateNumbersOfCategories(), std::numeric_limits<int>::max());
}

TEST(VarList, ChangeTargetEncoder) {
  QVVarList list;
  list.AddCatVar("a", "", 5, MeasureLevelStringCategorical, VariableRoleTarget);
  EXPECT_TRUE(list.ChangeTargetEncoder(new QVStringEncoder(Strings{"x", "y"})));
  EXPECT_EQ(list.GetNTargetCats(), 2);
  EXPECT_TRUE(list.ChangeTargetEncoder(new QVCatNumEncoder(Numbers{1})));
  EXPECT_EQ(list.GetNTargetCats(), 1);
  // Taken over all the same:
  EXPECT_FALSE(list.ChangeTargetEncoder(new QVStringEncoder));
  EXPECT_EQ(list.GetNTargetCats(), 0);
  auto * const cont = new QVContEncoder(0, 1, 4);
  EXPECT_FALSE(list.ChangeTargetEncoder(cont));
  EXPECT_EQ(list.GetTargetVariable()->GetEncoder(), cont);
  EXPECT_EQ(list.GetNTargetCats(), 4);
  EXPECT_FALSE(list.ChangeTargetEncoder(nullptr));
  EXPECT_EQ(list.GetEncoderAt(0), nullptr);
  EXPECT_EQ(list.GetNTargetCats(), 0);
}

TEST(VarList, ChangeTargetEncoderWithoutACategoricalTarget) {
  QVVarList list;
  QVStringEncoder encoder(Strings{"x"});  // stays the caller's
  EXPECT_FALSE(list.ChangeTargetEncoder(&encoder));
  EXPECT_FALSE(list.ChangeTargetEncoder(nullptr));
  list.AddContVar("a", "", VariableRoleTarget);
  EXPECT_FALSE(list.ChangeTargetEncoder(&encoder));
  EXPECT_EQ(list.GetEncoderAt(0)->GetEncoderType(), 1);
}

// --- Copies and display -----------------------------------------------------------------------

TEST(VarList, CopiesAreDeep) {
  QVVarList list;
  list.AddContVar("a", "", VariableRoleTarget);
  list.AddCatVar("b", "", Strings{"x"}, VariableRoleTargetResponse);
  list.SetWeightVar("w", "", WRoundingClosest);
  const QVVarList copy(list);
  QVVarList assigned;
  assigned.AddContVar("gone", "", VariableRoleInput);
  assigned = list;
  list.GetEncoderAt(1)->Encode("y");
  list.RemoveVar(0);
  for (QVVarList const * each : {&copy, static_cast<QVVarList const *>(&assigned)}) {
    EXPECT_EQ(each->Size(), 3);
    EXPECT_EQ(each->GetTargetIndex(), 0);
    EXPECT_EQ(each->GetTargetRespIndex(), 1);
    EXPECT_EQ(each->GetMutipleResponseVariables(), (Indexes{1}));
    EXPECT_EQ(each->GetFreqWeightIndex(), 2);
    EXPECT_EQ(each->GetNumContVar(), 1);
    EXPECT_EQ(each->GetNumCatVar(), 1);
    EXPECT_EQ(each->GetEncoderAt(1)->GetNumberOfCategories(), 1);
    EXPECT_EQ(each->GetVariable("gone"), nullptr);
  }
  QVVarList & same = assigned;
  assigned = same;
  EXPECT_EQ(assigned.Size(), 3);
}

TEST(VarList, Display) {
  QVVarList list;
  list.AddContVar("a", "", VariableRoleTarget);
  list.AddCatVar("b", "", Strings{"x"}, VariableRoleInput);
  EXPECT_EQ(Shown(list),
            "\nBegin display of QVVarList object."
            "\nTotal variables = 2"
            "\nNumber of Continuous Variables = 1"
            "\nNumber of Categorical Variables = 1"
            "\nVariable 0" +
                Shown(*list.GetVarAt(0)) + "\nVariable 1" + Shown(*list.GetVarAt(1)) +
                "\nEnd of display for QVVarList object.");
}

}  // namespace
