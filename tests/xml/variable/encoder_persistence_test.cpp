// Encoders through the persistence format, against texts written by hand.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "QVCatNumEncoder.h"
#include "QVContEncoder.h"
#include "QVMV.h"
#include "QVRoundEncoder.h"
#include "QVStringEncoder.h"
#include "variable_test_tools.h"

namespace {

using namespace variable_test;
using QVCommon_940::QVMV;
using QVXML_940::IQVVariable;
using QVXML_940::QVCatNumEncoder;
using QVXML_940::QVContEncoder;
using QVXML_940::QVRoundEncoder;
using QVXML_940::QVStringEncoder;
using Strings = std::vector<std::string>;
using Numbers = std::vector<double>;

// --- Numeric categories -----------------------------------------------------------------------

const std::string kCatNumText =
    "\n\t<Obj name=\"QVCatNumEncoder\">"
    "\n\t\t<Int value=\"3\"/>"
    "\n\t\t<Double value=\"5\"/>"
    "\n\t\t<Double value=\"3\"/>"
    "\n\t\t<Double value=\"0.333333333333333\"/>"
    "\n\t\t<Int value=\"2\"/>"
    "\n\t\t<String value=\"five\"/>"
    "\n\t\t<String value=\"\"/>"
    "\n\t\t<Int value=\"1\"/>"
    "\n\t\t<Double value=\"90\"/>"
    "\n\t\t<Double value=\"99\"/>"
    "\n\t\t<Int value=\"2\"/>"
    "\n\t\t<Double value=\"9\"/>"
    "\n\t\t<Double value=\"Missing\"/>"
    "\n\t\t<String value=\"dk\"/>"
    "\n\t\t<String value=\"none\"/>"
    "\n\t</Obj>";

QVCatNumEncoder FullCatNum() {
  QVCatNumEncoder encoder(Numbers{5, 3, 1.0 / 3.0});
  encoder.SetValueLabels({"five", ""});
  encoder.SetMissingInterval(90, 99);
  encoder.AddDiscreteUserMissing(9, "dk");
  encoder.AddDiscreteUserMissing(QVMV::Missing(), "none");
  return encoder;
}

TEST(CatNumEncoderPersistence, Text) {
  const Output output = Write(FullCatNum(), 1);
  EXPECT_EQ(output.text, kCatNumText);
  EXPECT_EQ(output.lines, 17);
}

TEST(CatNumEncoderPersistence, EmptyText) {
  const Output output = Write(QVCatNumEncoder(), 0);
  EXPECT_EQ(output.text,
            "\n<Obj name=\"QVCatNumEncoder\">"
            "\n\t<Int value=\"0\"/>"
            "\n\t<Int value=\"0\"/>"
            "\n\t<Int value=\"0\"/>"
            "\n\t<Int value=\"0\"/>"
            "\n</Obj>");
  EXPECT_EQ(output.lines, 6);
}

TEST(CatNumEncoderPersistence, Read) {
  QVCatNumEncoder encoder(Numbers{100, 200, 300, 400});  // all this goes
  encoder.SetValueLabels({"a", "b", "c"});
  encoder.SetMissingInterval(0, 1);
  encoder.AddDiscreteUserMissing(5, "gone");
  EXPECT_EQ(Read(encoder, kCatNumText), 17);
  EXPECT_EQ(encoder.GetNumberOfCategories(), 3);
  EXPECT_EQ(encoder.EncodeConst(5), 0.0);
  EXPECT_EQ(encoder.EncodeConst(3), 1.0);
  EXPECT_EQ(encoder.DecodeNum(2), 0.333333333333333);  // 15 digits survive
  EXPECT_EQ(encoder.EncodeConst(100), -1.0);
  EXPECT_EQ(*encoder.GetValueLabels(), (Strings{"five", ""}));
  EXPECT_EQ(*encoder.GetDiscreteMissValues(), (Numbers{9, QVMV::Missing()}));
  EXPECT_EQ(*encoder.GetMissValueLabels(), (Strings{"dk", "none"}));
  double low = 0;
  double high = 0;
  EXPECT_TRUE(encoder.GetMissingInterval(low, high));
  EXPECT_EQ(low, 90);
  EXPECT_EQ(high, 99);
  EXPECT_EQ(Write(encoder, 1).text, kCatNumText);
}

TEST(CatNumEncoderPersistence, ReadingClearsTheInterval) {
  QVCatNumEncoder encoder;
  encoder.SetMissingInterval(0, 1);
  EXPECT_EQ(Read(encoder, Write(QVCatNumEncoder(), 0).text), 6);
  double low = 0;
  double high = 0;
  EXPECT_FALSE(encoder.GetMissingInterval(low, high));
  EXPECT_TRUE(encoder.SetMissingInterval(2, 3));
}

TEST(CatNumEncoderPersistence, ACategoryThatIsListedAsMissingSurvives) {
  QVCatNumEncoder encoder(Numbers{1, 9});
  encoder.AddDiscreteUserMissing(9, "");
  QVCatNumEncoder again;
  Read(again, Write(encoder, 0).text);
  EXPECT_EQ(again.GetNumberOfCategories(), 2);
  EXPECT_TRUE(again.IsMissing(9.0));
}

TEST(CatNumEncoderPersistence, CategoriesBeyondFifteenDigitsFallTogether) {
  QVCatNumEncoder encoder(Numbers{1, std::nextafter(1.0, 2.0), 2});
  QVCatNumEncoder again;
  EXPECT_EQ(Read(again, Write(encoder, 0).text), 9);
  EXPECT_EQ(again.GetNumberOfCategories(), 2);
  EXPECT_EQ(again.DecodeNum(1), 2.0);
}

TEST(CatNumEncoderPersistence, AMissingCategoryInTheTextGetsNoCode) {
  QVCatNumEncoder encoder(Numbers{5, 3});
  QVCatNumEncoder again;
  const std::string text = Changed(Write(encoder, 0).text, "", "\"5\"", "\"Missing\"");
  EXPECT_EQ(Read(again, text), 8);  // the lines of the text, not of what it left
  EXPECT_EQ(again.GetNumberOfCategories(), 1);
  EXPECT_EQ(again.DecodeNum(0), 3.0);
}

TEST(CatNumEncoderPersistence, NumbersBeyondTheRangeReadAsTheLargest) {
  QVCatNumEncoder encoder(Numbers{std::numeric_limits<double>::max()});
  const std::string text = Write(encoder, 0).text;
  EXPECT_NE(text.find("\"1.79769313486232e+308\""), std::string::npos);
  QVCatNumEncoder again;
  Read(again, text);
  EXPECT_EQ(again.DecodeNum(0), std::numeric_limits<double>::max());
}

TEST(CatNumEncoderPersistence, Truncated) {
  ExpectEveryTruncationFails(
      kCatNumText, [] { return FullCatNum(); }, "Failure reading QVCatNumEncoder!\n");
}

TEST(CatNumEncoderPersistence, FailedReadWritesOneLine) {
  QVCatNumEncoder encoder;
  const Attempt attempt = TryRead(encoder, "");
  EXPECT_TRUE(attempt.failed);
  EXPECT_EQ(attempt.error, "Failure reading QVCatNumEncoder!\n");
}

// --- Counts that lie --------------------------------------------------------------------------

// Replaces the nth "Int" line's value.
std::string WithInt(std::string text, int nth, std::string const & value) {
  std::size_t place = 0;
  for (int i = 0; i < nth; ++i)
    place = text.find("<Int value=\"", place) + 12;
  return text.replace(place, text.find('"', place) - place, value);
}

template <class Encoder>
void ExpectBadCounts(Encoder const & full, std::vector<int> const & places,
                     std::string const & error) {
  const std::string text = Write(full, 0).text;
  for (int place : places) {
    for (const char * count : {"-1", "-2147483648", "100000", "2147483647", "7"}) {
      Encoder encoder;
      const Attempt attempt = TryRead(encoder, WithInt(text, place, count));
      EXPECT_TRUE(attempt.failed) << place << " " << count;
      EXPECT_EQ(attempt.error, error);
    }
  }
}

TEST(EncoderPersistence, CountsAreNotTrusted) {
  ExpectBadCounts(FullCatNum(), {1, 2, 4}, "Failure reading QVCatNumEncoder!\n");
  QVStringEncoder strings(Strings{"a", "b"});
  strings.SetValueLabels({"A", "B"});
  strings.AddDiscreteUserMissing("?", "unknown");
  ExpectBadCounts(strings, {1, 2, 3}, "Failure reading QVStringEncoder!\n");
  QVContEncoder cont;
  cont.AddDiscreteUserMissing(9, "dk");
  ExpectBadCounts(cont, {3}, "Failure reading QVContEncoder!\n");
  QVRoundEncoder round;
  round.AddDiscreteUserMissing(9, "dk");
  ExpectBadCounts(round, {3}, "Failure reading QVRoundEncoder from XML!\n");
}

TEST(EncoderPersistence, ANegativeNumberOfBinsIsRefused) {
  QVContEncoder encoder;
  EXPECT_TRUE(TryRead(encoder, WithInt(Write(encoder, 0).text, 1, "-1")).failed);
}

TEST(EncoderPersistence, TheIntervalFlagIsZeroOrOne) {
  QVCatNumEncoder encoder;
  EXPECT_TRUE(TryRead(encoder, WithInt(Write(FullCatNum(), 0).text, 3, "2")).failed);
}

TEST(EncoderPersistence, AnotherClassIsRefused) {
  QVRoundEncoder encoder;
  const Attempt attempt = TryRead(encoder, Write(QVContEncoder(), 0).text);
  EXPECT_TRUE(attempt.failed);
  EXPECT_EQ(attempt.error, "Failure reading QVRoundEncoder from XML!\n");
}

TEST(EncoderPersistence, LinesBehindTheObjectStayUnread) {
  const TemporaryFile file(Write(QVContEncoder(Numbers{1, 2}), 0).text +
                           Write(QVRoundEncoder(), 0).text + "\n");
  std::ifstream in(file.Path());
  QVContEncoder cont;
  QVRoundEncoder round;
  EXPECT_EQ(cont.ReadObjectXML(in), 5);
  EXPECT_EQ(round.ReadObjectXML(in), 5);
  EXPECT_EQ(cont.GetNumberOfCategories(), 3);
}

// --- String categories ------------------------------------------------------------------------

const std::string kStringText =
    "\n<Obj name=\"QVStringEncoder\">"
    "\n\t<Int value=\"2\"/>"
    "\n\t<String value=\"red\"/>"
    "\n\t<String value=\"dark blue\"/>"
    "\n\t<Int value=\"1\"/>"
    "\n\t<String value=\"Red!\"/>"
    "\n\t<Int value=\"1\"/>"
    "\n\t<String value=\"\"/>"
    "\n\t<String value=\"left blank\"/>"
    "\n</Obj>";

QVStringEncoder FullString() {
  QVStringEncoder encoder(Strings{"red", "dark blue"});
  encoder.SetValueLabels({"Red!"});
  encoder.AddDiscreteUserMissing("", "left blank");
  return encoder;
}

TEST(StringEncoderPersistence, Text) {
  const Output output = Write(FullString(), 0);
  EXPECT_EQ(output.text, kStringText);
  EXPECT_EQ(output.lines, 10);
}

TEST(StringEncoderPersistence, Read) {
  QVStringEncoder encoder(Strings{"gone"});
  encoder.AddDiscreteUserMissing("red", "gone too");
  EXPECT_EQ(Read(encoder, kStringText), 10);
  EXPECT_EQ(encoder.GetNumberOfCategories(), 2);
  EXPECT_EQ(encoder.Decode(0), "red");
  EXPECT_EQ(encoder.Decode(1), "dark blue");
  EXPECT_EQ(encoder.EncodeConst("gone"), -1.0);
  EXPECT_EQ(*encoder.GetValueLabels(), Strings{"Red!"});
  EXPECT_TRUE(encoder.IsMissing(""));
  EXPECT_EQ(Write(encoder, 0).text, kStringText);
}

TEST(StringEncoderPersistence, EscapesStayInTheText) {
  QVStringEncoder encoder(Strings{"a&b", "\"", " x"});
  QVStringEncoder again;
  EXPECT_EQ(Read(again, Write(encoder, 0).text), 8);
  EXPECT_EQ(again.Decode(0), "a&amp;b");
  EXPECT_EQ(again.Decode(1), "&quot;");
  EXPECT_EQ(again.Decode(2), "&#32;x");
}

TEST(StringEncoderPersistence, TooLongALineIsAFailedRead) {
  QVStringEncoder again;
  // Behind one tab, `<String value="` and `"/>` leave 236 of the 255 characters.
  EXPECT_EQ(Read(again, Write(QVStringEncoder(Strings{std::string(236, 'x')}), 0).text), 6);
  EXPECT_TRUE(
      TryRead(again, Write(QVStringEncoder(Strings{std::string(237, 'x')}), 0).text).failed);
}

TEST(StringEncoderPersistence, Truncated) {
  ExpectEveryTruncationFails(
      kStringText, [] { return FullString(); }, "Failure reading QVStringEncoder!\n");
}

// --- Numbers passed on ------------------------------------------------------------------------

const std::string kContText =
    "\n<Obj name=\"QVContEncoder\">"
    "\n\t<Int value=\"5\"/>"
    "\n\t<Int value=\"1\"/>"
    "\n\t<Double value=\"Missing\"/>"
    "\n\t<Double value=\"-0.5\"/>"
    "\n\t<Int value=\"1\"/>"
    "\n\t<Double value=\"99\"/>"
    "\n\t<String value=\"dk\"/>"
    "\n</Obj>";

QVContEncoder FullCont() {
  QVContEncoder encoder(0, 10, 5);
  encoder.SetMissingInterval(QVMV::Missing(), -0.5);
  encoder.AddDiscreteUserMissing(99, "dk");
  return encoder;
}

TEST(ContEncoderPersistence, Text) {
  const Output output = Write(FullCont(), 0);
  EXPECT_EQ(output.text, kContText);
  EXPECT_EQ(output.lines, 9);
  EXPECT_EQ(Write(QVContEncoder(), 0).lines, 5);
}

TEST(ContEncoderPersistence, OnlyTheNumberOfBinsRemains) {
  QVContEncoder encoder(Numbers{1, 2, 3});
  EXPECT_EQ(Read(encoder, kContText), 9);
  EXPECT_EQ(encoder.GetBinningEncoder(), nullptr);
  EXPECT_EQ(encoder.GetNumberOfCategories(), 5);
  EXPECT_TRUE(encoder.IsMissing(-1.0));
  EXPECT_TRUE(encoder.IsMissing(99.0));
  EXPECT_EQ(Write(encoder, 0).text, kContText);
}

TEST(ContEncoderPersistence, Truncated) {
  ExpectEveryTruncationFails(
      kContText, [] { return FullCont(); }, "Failure reading QVContEncoder!\n");
}

const std::string kRoundText =
    "\n<Obj name=\"QVRoundEncoder\">"
    "\n\t<Int value=\"1\"/>"
    "\n\t<Int value=\"1\"/>"
    "\n\t<Double value=\"90\"/>"
    "\n\t<Double value=\"99\"/>"
    "\n\t<Int value=\"2\"/>"
    "\n\t<Double value=\"7\"/>"
    "\n\t<Double value=\"8\"/>"
    "\n\t<String value=\"seven\"/>"
    "\n\t<String value=\"eight\"/>"
    "\n</Obj>";

QVRoundEncoder FullRound() {
  QVRoundEncoder encoder(static_cast<IQVVariable::WRoundingOption>(1));
  encoder.SetMissingInterval(90, 99);
  encoder.AddDiscreteUserMissing(7, "seven");
  encoder.AddDiscreteUserMissing(8, "eight");
  return encoder;
}

TEST(RoundEncoderPersistence, Text) {
  const Output output = Write(FullRound(), 0);
  EXPECT_EQ(output.text, kRoundText);
  EXPECT_EQ(output.lines, 11);
}

TEST(RoundEncoderPersistence, Read) {
  QVRoundEncoder encoder;
  EXPECT_EQ(Read(encoder, kRoundText), 11);
  EXPECT_EQ(encoder.EncodeConst(2.5), 3.0);
  EXPECT_TRUE(encoder.IsMissing(8.0));
  EXPECT_TRUE(encoder.IsMissing(95.0));
  EXPECT_EQ(Write(encoder, 0).text, kRoundText);
}

TEST(RoundEncoderPersistence, Truncated) {
  ExpectEveryTruncationFails(
      kRoundText, [] { return FullRound(); }, "Failure reading QVRoundEncoder from XML!\n");
}

}  // namespace
