#include "QVBitSet.h"

#include <climits>
#include <vector>

#include <gtest/gtest.h>

#include "common/display/captured_display.h"

using QVMath_940::QVBitSet;

namespace {

/// A set from its picture: "101" has the bits 0 and 2.
QVBitSet Bits(const std::string & picture) {
  std::vector<bool> bits;
  for (const char c : picture) {
    bits.push_back(c == '1');
  }
  return QVBitSet(bits);
}

std::string Picture(const QVBitSet & set) {
  std::string picture;
  for (int i = 0; i < set.Size(); ++i) {
    picture += set.IsIn(i) ? '1' : '0';
  }
  return picture;
}

}  // namespace

// --- Whole sets -------------------------------------------------------------------------------

TEST(BitSet, Construction) {
  EXPECT_EQ(QVBitSet().Size(), 0);
  EXPECT_EQ(Picture(QVBitSet(3)), "000");
  EXPECT_EQ(QVBitSet(0).Size(), 0);
  EXPECT_EQ(QVBitSet(-1).Size(), 0);
  EXPECT_EQ(QVBitSet(INT_MIN).Size(), 0);
  EXPECT_EQ(Picture(QVBitSet(std::vector<bool>{true, false, true})), "101");
}

TEST(BitSet, CopiesAreIndependent) {
  QVBitSet set = Bits("101");
  QVBitSet copy(set);
  QVBitSet assigned;
  assigned = set;
  set.Set(1, true);
  EXPECT_EQ(Picture(copy), "101");
  EXPECT_EQ(Picture(assigned), "101");
  const QVBitSet & itself = assigned;
  assigned = itself;
  EXPECT_EQ(Picture(assigned), "101");
  assigned = std::vector<bool>{true};
  EXPECT_EQ(Picture(assigned), "1");
}

TEST(BitSet, Equality) {
  EXPECT_TRUE(QVBitSet() == QVBitSet(0));
  EXPECT_TRUE(Bits("10") == Bits("10"));
  EXPECT_FALSE(Bits("10") == Bits("11"));
  EXPECT_FALSE(Bits("10") == Bits("100"));
}

TEST(BitSet, OrderIsLexicographicWithAPrefixFirst) {
  EXPECT_TRUE(Bits("01") < Bits("10"));
  EXPECT_FALSE(Bits("10") < Bits("01"));
  EXPECT_TRUE(Bits("01") < Bits("010"));
  EXPECT_FALSE(Bits("010") < Bits("01"));
  EXPECT_TRUE(Bits("011") < Bits("1"));
  EXPECT_FALSE(Bits("1") < Bits("1"));
  EXPECT_TRUE(Bits("") < Bits("0"));
  EXPECT_FALSE(Bits("") < Bits(""));
}

TEST(BitSet, AppendGivesTheNewSize) {
  QVBitSet set;
  EXPECT_EQ(set.Append(true), 1);
  EXPECT_EQ(set.Append(false), 2);
  EXPECT_EQ(Picture(set), "10");
}

TEST(BitSet, ClearKeepsTheSize) {
  QVBitSet set = Bits("111");
  set.Clear();
  EXPECT_EQ(Picture(set), "000");
}

TEST(BitSet, ResizeSetsEveryBitTheOldOnesIncluded) {
  QVBitSet set = Bits("01010");
  set.Resize(3, true);
  EXPECT_EQ(Picture(set), "111");
  set.Resize(5, false);
  EXPECT_EQ(Picture(set), "00000");
  set.Resize(0, true);
  EXPECT_EQ(set.Size(), 0);
  set.Resize(2, true);
  set.Resize(-4, true);
  EXPECT_EQ(set.Size(), 0);
}

TEST(BitSet, DuplicateAppendsTheFormerBits) {
  QVBitSet set = Bits("10");
  EXPECT_TRUE(set.Duplicate(2));
  EXPECT_EQ(Picture(set), "101010");
  EXPECT_TRUE(set.Duplicate(0));
  EXPECT_EQ(Picture(set), "101010");
  EXPECT_FALSE(set.Duplicate(-1));
  EXPECT_EQ(Picture(set), "101010");
}

TEST(BitSet, DuplicateOfTheEmptySetIsEmpty) {
  QVBitSet set;
  EXPECT_TRUE(set.Duplicate(INT_MAX));
  EXPECT_EQ(set.Size(), 0);
}

// --- Bits -------------------------------------------------------------------------------------

TEST(BitSet, IsInIsFalseOutside) {
  const QVBitSet set = Bits("11");
  EXPECT_TRUE(set.IsIn(0));
  EXPECT_TRUE(set.IsIn(1));
  EXPECT_FALSE(set.IsIn(-1));
  EXPECT_FALSE(set.IsIn(2));
  EXPECT_FALSE(set.IsIn(INT_MAX));
  EXPECT_FALSE(set.IsIn(INT_MIN));
}

TEST(BitSet, SetOneBit) {
  QVBitSet set = Bits("00");
  EXPECT_TRUE(set.Set(1, true));
  EXPECT_EQ(Picture(set), "01");
  EXPECT_TRUE(set.Set(1, false));
  EXPECT_EQ(Picture(set), "00");
  EXPECT_FALSE(set.Set(2, true));
  EXPECT_FALSE(set.Set(-1, true));
  EXPECT_EQ(Picture(set), "00");
}

TEST(BitSet, SetAllBitsTakesTheSize) {
  QVBitSet set = Bits("00");
  EXPECT_TRUE(set.Set(std::vector<bool>{true, false, true}));
  EXPECT_EQ(Picture(set), "101");
  EXPECT_TRUE(set.Set(std::vector<bool>()));
  EXPECT_EQ(set.Size(), 0);
}

TEST(BitSet, SetRange) {
  QVBitSet set(5);
  EXPECT_TRUE(set.SetRange(1, 3, true));
  EXPECT_EQ(Picture(set), "01110");
  EXPECT_TRUE(set.SetRange(2, 2, false));
  EXPECT_EQ(Picture(set), "01010");
  EXPECT_TRUE(set.SetRange(0, 4, true));
  EXPECT_EQ(Picture(set), "11111");
}

TEST(BitSet, SetRangeRefusesEveryOtherRange) {
  QVBitSet set(5);
  EXPECT_FALSE(set.SetRange(-1, 3, true));
  EXPECT_FALSE(set.SetRange(3, 2, true));
  EXPECT_FALSE(set.SetRange(0, 5, true));
  EXPECT_FALSE(QVBitSet().SetRange(0, 0, true));
  EXPECT_EQ(Picture(set), "00000");
}

TEST(BitSet, SetSubset) {
  QVBitSet set(5);
  EXPECT_TRUE(set.SetSubset({4, 0, 4}, true));
  EXPECT_EQ(Picture(set), "10001");
  EXPECT_TRUE(set.SetSubset({}, false));
  EXPECT_TRUE(QVBitSet().SetSubset({}, true));
  EXPECT_EQ(Picture(set), "10001");
}

TEST(BitSet, SetSubsetWithOneBadIndexChangesNothing) {
  QVBitSet set(5);
  EXPECT_FALSE(set.SetSubset({0, 1, 5}, true));
  EXPECT_FALSE(set.SetSubset({-1, 2}, true));
  EXPECT_EQ(Picture(set), "00000");
}

// --- Counts -----------------------------------------------------------------------------------

TEST(BitSet, InSet) {
  EXPECT_EQ(QVBitSet().InSet(), 0);
  EXPECT_EQ(Bits("10110").InSet(), 3);
}

TEST(BitSet, InRange) {
  const QVBitSet set = Bits("10110");
  EXPECT_EQ(set.InRange(0, 4), 3);
  EXPECT_EQ(set.InRange(1, 2), 1);
  EXPECT_EQ(set.InRange(1, 1), 0);
  EXPECT_EQ(set.InRange(-1, 2), -1);
  EXPECT_EQ(set.InRange(2, 1), -1);
  EXPECT_EQ(set.InRange(0, 5), -1);
  EXPECT_EQ(QVBitSet().InRange(0, 0), -1);
}

TEST(BitSet, InRangeByCount) {
  const QVBitSet set = Bits("10110");
  EXPECT_EQ(set.InRangeS(0, 5), 3);
  EXPECT_EQ(set.InRangeS(2, 2), 2);
  EXPECT_EQ(set.InRangeS(4, 1), 0);
  EXPECT_EQ(set.InRangeS(-1, 2), -1);
  EXPECT_EQ(set.InRangeS(0, -1), -1);
  EXPECT_EQ(set.InRangeS(0, 6), -1);
  EXPECT_EQ(set.InRangeS(4, 2), -1);
}

TEST(BitSet, InRangeByCountTestsItsRangeBeforeACountOfZero) {
  EXPECT_EQ(QVBitSet().InRangeS(0, 0), 0);
  EXPECT_EQ(Bits("10").InRangeS(0, 0), 0);
  EXPECT_EQ(Bits("10").InRangeS(2, 0), 0);
  EXPECT_EQ(Bits("10").InRangeS(3, 0), -1);
  EXPECT_EQ(Bits("10").InRangeS(-1, 0), -1);
}

TEST(BitSet, InRangeByCountDoesNotOverflow) {
  EXPECT_EQ(Bits("10").InRangeS(INT_MAX, INT_MAX), -1);
  EXPECT_EQ(Bits("10").InRangeS(1, INT_MAX), -1);
}

TEST(BitSet, IsNewFalseTellsABitThatBecameFalse) {
  const QVBitSet set = Bits("101");
  EXPECT_FALSE(set.IsNewFalse(Bits("111"), 3));
  EXPECT_TRUE(set.IsNewFalse(Bits("110"), 3));
  EXPECT_FALSE(set.IsNewFalse(Bits("110"), 2));
  EXPECT_TRUE(set.IsNewFalse(Bits("110"), 100));
  EXPECT_TRUE(set.IsNewFalse(Bits("1"), 3));  // outside the other set
  EXPECT_FALSE(set.IsNewFalse(Bits("1"), 2));
  EXPECT_FALSE(set.IsNewFalse(Bits(""), 0));
  EXPECT_FALSE(set.IsNewFalse(Bits(""), -5));
  EXPECT_FALSE(Bits("000").IsNewFalse(Bits(""), 3));
}

// --- Logic ------------------------------------------------------------------------------------

TEST(BitSet, Negate) {
  QVBitSet set = Bits("101");
  set.Negate();
  EXPECT_EQ(Picture(set), "010");
}

TEST(BitSet, AndTakesTheSmallerSize) {
  QVBitSet set = Bits("1");
  set.DoAND(Bits("1100"), Bits("101"));
  EXPECT_EQ(Picture(set), "100");
  set.DoAND(Bits("110"), Bits("10111"));
  EXPECT_EQ(Picture(set), "100");
  set.DoAND(Bits(""), Bits("11"));
  EXPECT_EQ(set.Size(), 0);
}

TEST(BitSet, OrDropsTheLongerTail) {
  QVBitSet set = Bits("1");
  set.DoOR(Bits("1100"), Bits("001"));
  EXPECT_EQ(Picture(set), "111");
  set.DoOR(Bits("000"), Bits("10111"));
  EXPECT_EQ(Picture(set), "101");
}

TEST(BitSet, LogicWorksInPlace) {
  QVBitSet set = Bits("1100");
  set.DoAND(set, Bits("101"));
  EXPECT_EQ(Picture(set), "100");
  set.DoOR(Bits("01"), set);
  EXPECT_EQ(Picture(set), "11");
  set.DoAND(set, set);
  EXPECT_EQ(Picture(set), "11");
}

TEST(BitSet, SubsetIsCutToTheSet) {
  const QVBitSet set = Bits("10110");
  EXPECT_EQ(Picture(set.GetSubset(1, 3)), "011");
  EXPECT_EQ(Picture(set.GetSubset(-7, 1)), "10");
  EXPECT_EQ(Picture(set.GetSubset(3, 99)), "10");
  EXPECT_EQ(Picture(set.GetSubset(2, 2)), "1");
  EXPECT_EQ(set.GetSubset(3, 2).Size(), 0);
  EXPECT_EQ(set.GetSubset(5, 9).Size(), 0);
  EXPECT_EQ(set.GetSubset(-3, -1).Size(), 0);
  EXPECT_EQ(QVBitSet().GetSubset(0, 0).Size(), 0);
}

TEST(BitSet, Display) {
  CapturedDisplay captured;
  Bits("101").Display();
  EXPECT_EQ(captured.Text(),
            "\nQVBitSet display start\nfbVec (size = 3)\n t f t\nQVBitSet display end");
}
