// Lists as a failed or an unusual read leaves them: null entries and variables without an encoder.

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "IOException.h"
#include "QVCatVar.h"
#include "QVPMMLExporter.h"
#include "QVVarList.h"
#include "export_test_help.h"

namespace {

using namespace QVXML_940;
using export_test::StopAtQuestion;
using export_test::Text;
using QVCommon_940::QVPMMLExporter;
using QVCommon_940::QVStatus;

std::string WrittenList() {
  QVVarList variables;
  variables.AddContVar("a", "", VariableRoleInput);
  variables.AddContVar("b", "", VariableRoleInput);
  std::ostringstream out;
  variables.WriteObjectXML(out, 0);
  return out.str() + "\n";
}

/// Reads the text into a list or a variable; tells whether the read came to its end.
template <class Persistent>
bool Read(const std::string & text, Persistent & object) {
  const std::string path = testing::TempDir() + "qvcommon_damaged_list.xml";
  std::ofstream(path, std::ios::binary) << text;
  std::ifstream in(path, std::ios::binary);
  testing::internal::CaptureStderr();
  bool complete = true;
  try {
    object.ReadObjectXML(in);
  } catch (const IOException * exception) {
    delete exception;
    complete = false;
  }
  testing::internal::GetCapturedStderr();
  std::remove(path.c_str());
  return complete;
}

/// Two entries, the second of them null.
QVVarList ListWithAGap() {
  const std::string text = WrittenList();
  QVVarList variables;
  EXPECT_FALSE(Read(text.substr(0, text.find("\t\t<String value=\"b\"/>")), variables));
  EXPECT_EQ(variables.Size(), 2);
  EXPECT_NE(variables.GetVarAt(0), nullptr);
  EXPECT_EQ(variables.GetVarAt(1), nullptr);
  return variables;
}

const std::string kFieldA = "<DataField name=\"a\" optype=\"continuous\" dataType=\"double\"/>";

TEST(ExportOfADamagedList, DictionaryReportsTheGapWithCode102) {
  const QVVarList variables = ListWithAGap();
  for (const std::vector<int> & indices : {std::vector<int>{}, std::vector<int>{0, 1}}) {
    XMLElement * dictionary = nullptr;
    const QVStatus status = QVPMMLExporter().ExportDataDictionary(variables, indices, dictionary);
    const std::unique_ptr<XMLElement> owned(dictionary);
    EXPECT_EQ(status.GetErrorCode(), 102);
    EXPECT_TRUE(status.IsError());
    EXPECT_EQ(status.GetDiscreteDatum(0), 1);
    EXPECT_EQ(Text(dictionary),
              "<DataDictionary numberOfFields=\"1\">" + kFieldA + "</DataDictionary>");
  }
}

TEST(ExportOfADamagedList, DataModelReportsTheGapWithCode102) {
  XMLElement * model = nullptr;
  const QVStatus status = QVPMMLExporter().ExportDataModel(ListWithAGap(), {}, model);
  const std::unique_ptr<XMLElement> owned(model);
  EXPECT_EQ(status.GetErrorCode(), 102);
  EXPECT_TRUE(status.IsError());
  EXPECT_EQ(status.GetDiscreteDatum(0), 1);
  EXPECT_EQ(Text(model),
            "<DataModel><Fields count=\"1\"><Field name=\"a\" measure=\"continuous\""
            " storage=\"real\" role=\"input\"/></Fields></DataModel>");
}

TEST(ExportOfADamagedList, CancelTakesThePlaceOfCode102) {
  StopAtQuestion query(3);  // before entry 0, before entry 1, at the end
  XMLElement * dictionary = nullptr;
  const QVStatus status =
      QVPMMLExporter(&query).ExportDataDictionary(ListWithAGap(), {}, dictionary);
  EXPECT_EQ(status.GetErrorCode(), 1);
  EXPECT_EQ(dictionary, nullptr);
}

TEST(ExportOfAnUnusualList, AVariableWithoutAnEncoderHasNoMissingValues) {
  std::string text = WrittenList();
  const std::string typeOfEncoder = "\t\t<Int value=\"1\"/>\n\t\t<Obj name=\"QVContEncoder\">";
  const std::size_t begin = text.find(typeOfEncoder);
  const std::string endOfEncoder = "\t\t</Obj>\n";
  const std::size_t end = text.find(endOfEncoder, begin) + endOfEncoder.size();
  text.replace(begin, end - begin, "\t\t<Int value=\"0\"/>\n");
  QVVarList variables;
  ASSERT_TRUE(Read(text, variables));
  ASSERT_EQ(variables.GetEncoderAt(0), nullptr);
  XMLElement * dictionary = nullptr;
  EXPECT_TRUE(QVPMMLExporter().ExportDataDictionary(variables, {0}, dictionary).IsOK());
  const std::unique_ptr<XMLElement> owned(dictionary);
  EXPECT_EQ(Text(dictionary),
            "<DataDictionary numberOfFields=\"1\">" + kFieldA + "</DataDictionary>");
}

TEST(ExportOfADamagedList, ACategoricalVariableWithoutAnEncoder) {
  QVVarList variables;
  variables.AddCatVar("c", "", std::vector<std::string>{"u"}, VariableRoleInput);
  auto & variable = dynamic_cast<QVCatVar &>(*variables.GetVarAt(0));
  variable.SetBinaryFlag(true, 0);
  std::ostringstream out;
  variable.WriteObjectXML(out, 0);
  EXPECT_FALSE(Read(out.str().substr(0, out.str().find("\t<Obj name=")), variable));
  ASSERT_EQ(variable.GetEncoder(), nullptr);

  XMLElement * dictionary = nullptr;
  EXPECT_TRUE(QVPMMLExporter().ExportDataDictionary(variables, {}, dictionary).IsOK());
  const std::unique_ptr<XMLElement> owned(dictionary);
  EXPECT_EQ(Text(dictionary),
            "<DataDictionary numberOfFields=\"1\"><DataField name=\"c\" optype=\"categorical\""
            " dataType=\"double\"><Extension " +
                export_test::kExtender +
                " name=\"flagTypeTrueValue\"/></DataField></DataDictionary>");
}

}  // namespace
