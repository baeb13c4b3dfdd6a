/// A text node: the content of an `XMLElement`.
///
/// Only "&" and "<" are escaped, so the content keeps its quotes, tabs, line ends and runs of
/// blanks, where the value of an attribute would not.
#pragma once

#include <iosfwd>
#include <string>

#include "QVExport.h"
#include "XMLInterface.h"

namespace QVXML_940 {

class QVCOMMON_API XMLString final : public XMLInterface {
 public:
  /// A text node, owned by the caller.
  static XMLString * Create(const std::string & text);

  ~XMLString() override;

  XMLString & operator=(const XMLString &) = default;

  /// Appends the escaped text and turns the new-paragraph switch of `format` off, which keeps the
  /// close tag of the enclosing element on the text's line.
  int ToString(std::string & out, ExportFormat & format) const override;

  int ToStream(std::ostream & out, ExportFormat & format, bool utf) const override;

  XMLString * Clone() const override;

 private:
  explicit XMLString(const std::string & text);
  XMLString(const XMLString &) = default;

  std::string fText;
};

}  // namespace QVXML_940
