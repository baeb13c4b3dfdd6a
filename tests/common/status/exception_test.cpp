#include "QVException.h"

#include <exception>
#include <type_traits>

#include <gtest/gtest.h>

#include "IOException.h"

using QVCommon_940::QVException;
using QVXML_940::IOException;

TEST(Exception, DefaultHasCodeZeroAndNoMessage) {
  const QVException exception;
  EXPECT_EQ(exception.GetCode(), 0);
  EXPECT_EQ(exception.GetMessage(), "");
}

TEST(Exception, KeepsCodeAndMessage) {
  const QVException exception(13, "Value type wrong!");
  EXPECT_EQ(exception.GetCode(), 13);
  EXPECT_EQ(exception.GetMessage(), "Value type wrong!");
  QVException copy(exception);
  EXPECT_EQ(copy.GetCode(), 13);
  EXPECT_EQ(copy.GetMessage(), "Value type wrong!");
  copy = QVException(14, "Out of this array bounds!");
  EXPECT_EQ(copy.GetCode(), 14);
  EXPECT_EQ(copy.GetMessage(), "Out of this array bounds!");
  EXPECT_EQ(exception.GetCode(), 13);
}

TEST(Exception, AHandlerForStandardExceptionsDoesNotCatchIt) {
  EXPECT_FALSE((std::is_base_of_v<std::exception, QVException>));
  EXPECT_TRUE(std::has_virtual_destructor_v<QVException>);
  try {
    throw QVException(13, "x");
  } catch (const std::exception &) {
    FAIL() << "caught as std::exception";
  } catch (const QVException & caught) {
    EXPECT_EQ(caught.GetCode(), 13);
  }
}

TEST(IOException, IsEmptyAndCaughtAsAPointer) {
  EXPECT_TRUE(std::is_empty_v<IOException>);
  EXPECT_FALSE(std::is_polymorphic_v<IOException>);
  try {
    throw new IOException;
  } catch (IOException * caught) {
    ASSERT_NE(caught, nullptr);
    delete caught;
  }
}
