#include "JsonObject.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <limits>
#include <string>
#include <type_traits>
#include <vector>

#include <gtest/gtest.h>

#include "xml/test_locale.h"

namespace {

using QVXML_940::JsonObject;

TEST(Json, ScalarsPrintThemselves) {
  EXPECT_EQ(JsonObject(2.5).GetJsonString(true), "2.5");
  EXPECT_EQ(JsonObject(true).GetJsonString(true), "true");
  EXPECT_EQ(JsonObject(false).GetJsonString(false), "false");
  EXPECT_EQ(JsonObject("text").GetJsonString(true), "\"text\"");
  EXPECT_EQ(JsonObject(std::string("text")).GetJsonString(false), "\"text\"");
  EXPECT_EQ(JsonObject(static_cast<const char *>(nullptr)).GetJsonString(true), "\"\"");
  EXPECT_EQ(JsonObject(0.1 + 0.2).GetJsonString(true), "0.3");  // 15 digits
}

TEST(Json, KindsHaveTheirNumbers) {
  EXPECT_EQ(JsonObject("").GetType(), 0);
  EXPECT_EQ(JsonObject(1.0).GetType(), 1);
  EXPECT_EQ(JsonObject(true).GetType(), 2);
  EXPECT_EQ(JsonObject(std::vector<JsonObject>()).GetType(), 3);
  EXPECT_EQ(JsonObject().GetType(), 4);
  EXPECT_EQ(JsonObject("key", 1.0).GetType(), 4);
}

TEST(Json, IntegersAreNumbers) {
  EXPECT_EQ(JsonObject(7).GetJsonString(true), "7");
  EXPECT_EQ(JsonObject(-7L).GetJsonString(true), "-7");
  EXPECT_EQ(JsonObject(7LL).GetType(), JsonObject::ObjectTypeNumber);
  EXPECT_EQ(JsonObject("n", 3).AddPair("m", 4u).GetJsonString(true),
            "{\n\t\"m\" : 4,\n\t\"n\" : 3\n}\n");
}

TEST(Json, NothingIsEscaped) {
  EXPECT_EQ(JsonObject("a\"b").GetJsonString(true), "\"a\"b\"");
  EXPECT_EQ(JsonObject("k\"", "\\\n").GetJsonString(true), "{\n\t\"k\"\" : \"\\\n\"\n}\n");
}

TEST(Json, PointUnderEveryLocale) {
  const TestLocale german("de_DE.UTF-8");
  ASSERT_TRUE(german.IsSet()) << german.Help();
  EXPECT_EQ(JsonObject(2.5).GetJsonString(true), "2.5");
}

TEST(Json, MembersStandInKeyOrder) {
  JsonObject object;
  object.AddPair("b", 1.0).AddPair("a", 2.0);
  EXPECT_EQ(object.GetJsonString(true), "{\n\t\"a\" : 2,\n\t\"b\" : 1\n}\n");
}

TEST(Json, AnExistingKeyIsReplaced) {
  JsonObject object;
  object.AddPair("a", 1.0).AddPair("a", 2.0);
  EXPECT_EQ(object.GetJsonString(true), "{\n\t\"a\" : 2\n}\n");
  object.AddPair("a", JsonObject("x")).AddPair("a", true).AddPair("a", "y");
  EXPECT_EQ(object.GetJsonString(true), "{\n\t\"a\" : \"y\"\n}\n");
}

TEST(Json, EmptyContainers) {
  EXPECT_EQ(JsonObject().GetJsonString(true), "{\n\n}\n");
  EXPECT_EQ(JsonObject().GetJsonString(false), "{\n\n");
  const JsonObject list((std::vector<JsonObject>()));
  EXPECT_EQ(list.GetJsonString(true), "[]");
  EXPECT_EQ(list.GetJsonString(false), "[");
}

TEST(Json, NestedLayoutAndTheOpenEnd) {
  JsonObject list(std::vector<JsonObject>{JsonObject(1.0), JsonObject("k", true)});
  list.AddToList(JsonObject("s"));
  EXPECT_EQ(list.GetJsonString(true), "[1,\n{\n\t\"k\" : true\n}\n,\n\"s\"]");
  EXPECT_EQ(list.GetJsonString(false), "[1,\n{\n\t\"k\" : true\n}\n,\n\"s\"");
  JsonObject object("inner", JsonObject("k", list));
  object.AddPair("last", 1.0);
  EXPECT_EQ(object.GetJsonString(false),
            "{\n\t\"inner\" : {\n\t\"k\" : [1,\n{\n\t\"k\" : true\n}\n,\n\"s\"]\n}\n,\n"
            "\t\"last\" : 1\n");
}

TEST(Json, AddingToAScalarIsKeptAndNotPrinted) {
  JsonObject number(1.0);
  number.AddPair("a", 2.0).AddToList(JsonObject(3.0));
  EXPECT_EQ(number.GetJsonString(true), "1");
  EXPECT_EQ(number.GetType(), JsonObject::ObjectTypeNumber);
}

TEST(Json, ClearKeepsTheKind) {
  JsonObject list(std::vector<JsonObject>{JsonObject(1.0)});
  list.Clear();
  EXPECT_EQ(list.GetType(), JsonObject::ObjectTypeList);
  EXPECT_EQ(list.GetJsonString(true), "[]");
  JsonObject object("a", 1.0);
  object.Clear();
  EXPECT_EQ(object.GetJsonString(true), "{\n\n}\n");
  JsonObject text("t");
  text.Clear();
  EXPECT_EQ(text.GetJsonString(true), "\"t\"");
}

TEST(Json, AnObjectAddedToItselfIsCopiedFirst) {
  JsonObject object("a", 1.0);
  object.AddPair("self", object);
  EXPECT_EQ(object.GetJsonString(true), "{\n\t\"a\" : 1,\n\t\"self\" : {\n\t\"a\" : 1\n}\n\n}\n");
  JsonObject list(std::vector<JsonObject>{JsonObject(1.0)});
  list.AddToList(list);
  EXPECT_EQ(list.GetJsonString(true), "[1,\n[1]]");
}

TEST(Json, CopiesAreDeepAndMovesWork) {
  static_assert(!std::has_virtual_destructor_v<JsonObject>);
  JsonObject object("a", JsonObject("b", 1.0));
  JsonObject copy(object);
  copy.AddPair("a", 2.0);
  EXPECT_EQ(object.GetJsonString(true), "{\n\t\"a\" : {\n\t\"b\" : 1\n}\n\n}\n");
  const JsonObject moved(std::move(object));
  EXPECT_EQ(moved.GetJsonString(true), "{\n\t\"a\" : {\n\t\"b\" : 1\n}\n\n}\n");
  copy = moved;
  EXPECT_EQ(copy.GetJsonString(true), moved.GetJsonString(true));
}

TEST(Json, Messages) {
  EXPECT_EQ(
      JsonObject::CreateStringText("k", "v").GetJsonString(true),
      "{\n\t\"text\" : {\n\t\"stringText\" : {\n\t\"key\" : \"k\",\n\t\"value\" : \"v\"\n}\n\n}"
      "\n\n}\n");
  EXPECT_EQ(JsonObject::CreateStringText("", "v").GetJsonString(true),
            "{\n\t\"text\" : {\n\t\"stringText\" : {\n\t\"value\" : \"v\"\n}\n\n}\n\n}\n");
  EXPECT_EQ(JsonObject::CreateStringText("", "").GetJsonString(true),
            "{\n\t\"text\" : {\n\t\"stringText\" : {\n\n}\n\n}\n\n}\n");
  EXPECT_EQ(JsonObject::CreateVariableText("x").GetJsonString(true),
            "{\n\t\"text\" : {\n\t\"variableText\" : {\n\t\"variable\" : \"x\"\n}\n\n}\n\n}\n");
  EXPECT_EQ(JsonObject::CreateNumDataText("x", 1.5).GetJsonString(true),
            "{\n\t\"text\" : {\n\t\"numericDataText\" : {\n\t\"value\" : 1.5,\n\t\"variable\" : "
            "\"x\"\n}\n\n}\n\n}\n");
  EXPECT_EQ(JsonObject::CreateStringDataText("x", "y").GetJsonString(true),
            "{\n\t\"text\" : {\n\t\"stringDataText\" : {\n\t\"value\" : \"y\",\n\t\"variable\" : "
            "\"x\"\n}\n\n}\n\n}\n");
}

TEST(Json, IsValidWhenTheTextsNeedNoEscape) {
  JsonObject object(
      "list", std::vector<JsonObject>{JsonObject(1e300), JsonObject(-0.5),
                                      JsonObject("caf\xC3\xA9"), JsonObject(false), JsonObject()});
  object.AddPair("message", JsonObject::CreateNumDataText("x", 1e-7)).AddPair("n", 3);
  const std::string path = ::testing::TempDir() + "json_object_test.json";
  std::ofstream(path) << object.GetJsonString(true);
  const std::string check =
      "import json,sys; d=json.load(open(sys.argv[1], encoding='utf-8')); "
      "assert d=={'list':[1e300,-0.5,'caf\\u00e9',False,{}],"
      "'message':{'text':{'numericDataText':{'variable':'x','value':1e-7}}},'n':3}, d";
  EXPECT_EQ(std::system(("python3 -c \"" + check + "\" " + path).c_str()), 0);
  std::remove(path.c_str());
}

TEST(Json, NotANumberIsNotJson) {
  EXPECT_EQ(JsonObject(std::numeric_limits<double>::infinity()).GetJsonString(true), "inf");
  EXPECT_EQ(JsonObject(std::numeric_limits<double>::quiet_NaN()).GetJsonString(true), "nan");
}

}  // namespace
