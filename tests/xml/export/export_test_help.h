/// What the tests of the exporter share.
#pragma once

#include <memory>
#include <string>

#include "ExportFormat.h"
#include "QVQueryCancel.h"
#include "XMLElement.h"

namespace export_test {

/// The tree on one line, as it is written with the format switch off.
inline std::string Text(const QVXML_940::XMLElement * element) {
  if (element == nullptr) return "(null)";
  std::string text;
  QVXML_940::ExportFormat format;
  format.SetFormat(false);
  element->ToString(text, format);
  return text;
}

/// Answers true from the given question on; counts the questions.
class StopAtQuestion : public QVCommon_940::QVQueryCancel {
 public:
  explicit StopAtQuestion(int first) : fFirst(first) {}
  bool IsCancel() override { return ++questions >= fFirst; }
  bool WillCancel() const override { return false; }

  int questions = 0;

 private:
  int fFirst;
};

/// Answers true at exactly one question and false at all others.
class StopOnce : public QVCommon_940::QVQueryCancel {
 public:
  explicit StopOnce(int at) : fAt(at) {}
  bool IsCancel() override { return ++questions == fAt; }
  bool WillCancel() const override { return false; }

  int questions = 0;

 private:
  int fAt;
};

/// The vendor's identifier as every extension carries it.
inline const std::string kExtender = "extender=\"qvcommon.example\"";

}  // namespace export_test
