#include "QVCancelInfo.h"

#include <gtest/gtest.h>

#include "common/virtual_slot.h"

using QVMath_940::QVCancelInfo;

namespace {

class CountingQuery : public QVCommon_940::QVQueryCancel {
 public:
  bool IsCancel() override {
    ++asked;
    return answer;
  }
  bool WillCancel() const override {
    ++askedWill;
    return answer;
  }

  bool answer = false;
  int asked = 0;
  mutable int askedWill = 0;
};

}  // namespace

TEST(CancelInfo, DefaultIsNotCancelled) {
  QVCancelInfo cancel;
  EXPECT_EQ(cancel.GetCancelPtr(), nullptr);
  EXPECT_FALSE(cancel.IsCancel());
  EXPECT_FALSE(cancel.WillCancel());
}

TEST(CancelInfo, SetCancelHoldsWithoutAsking) {
  CountingQuery query;
  QVCancelInfo cancel(&query);
  EXPECT_EQ(cancel.GetCancelPtr(), &query);
  cancel.SetCancel();
  EXPECT_TRUE(cancel.IsCancel());
  EXPECT_TRUE(cancel.WillCancel());
  EXPECT_EQ(query.asked, 0);
  EXPECT_EQ(query.askedWill, 0);
  QVCancelInfo withoutQuery;
  withoutQuery.SetCancel();
  EXPECT_TRUE(withoutQuery.IsCancel());
  EXPECT_TRUE(withoutQuery.WillCancel());
}

TEST(CancelInfo, OnceTrueIsTrueForGood) {
  CountingQuery query;
  QVCancelInfo cancel(&query);
  EXPECT_FALSE(cancel.IsCancel());
  query.answer = true;
  EXPECT_TRUE(cancel.IsCancel());
  query.answer = false;
  EXPECT_TRUE(cancel.IsCancel());
  EXPECT_EQ(query.asked, 2);
}

TEST(CancelInfo, WillCancelIsNotRemembered) {
  CountingQuery query;
  query.answer = true;
  QVCancelInfo cancel(&query);
  EXPECT_TRUE(cancel.WillCancel());
  EXPECT_EQ(query.asked, 0);
  query.answer = false;
  EXPECT_FALSE(cancel.WillCancel());
  EXPECT_FALSE(cancel.IsCancel());
  EXPECT_EQ(query.asked, 1);
  EXPECT_EQ(query.askedWill, 2);
}

TEST(CancelInfo, ANewQueryDoesNotClearTheState) {
  CountingQuery query;
  QVCancelInfo cancel;
  cancel.SetCancelPtr(&query);
  EXPECT_EQ(cancel.GetCancelPtr(), &query);
  cancel.SetCancel();
  cancel.SetCancelPtr(nullptr);
  EXPECT_EQ(cancel.GetCancelPtr(), nullptr);
  EXPECT_TRUE(cancel.IsCancel());
}

TEST(CancelInfo, AssignmentCopiesBothFields) {
  CountingQuery query;
  QVCancelInfo cancelled(&query);
  cancelled.SetCancel();
  QVCancelInfo other;
  other = cancelled;
  EXPECT_EQ(other.GetCancelPtr(), &query);
  EXPECT_TRUE(other.IsCancel());
  cancelled = QVCancelInfo();  // the one way out of the cancelled state
  EXPECT_FALSE(cancelled.IsCancel());
  EXPECT_TRUE(other.IsCancel());
}

TEST(CancelInfo, CopiesShareTheQueryAndRememberByThemselves) {
  CountingQuery query;
  QVCancelInfo cancel(&query);
  QVCancelInfo copy(cancel);
  query.answer = true;
  EXPECT_TRUE(copy.IsCancel());
  query.answer = false;
  EXPECT_FALSE(cancel.IsCancel());
  EXPECT_EQ(query.asked, 2);
}

TEST(QueryCancel, OrderOfTheVirtualOperations) {
  using QVCommon_940::QVQueryCancel;
  EXPECT_EQ(VirtualSlot(&QVQueryCancel::IsCancel), 2);
  EXPECT_EQ(VirtualSlot(&QVQueryCancel::WillCancel), 3);
}
