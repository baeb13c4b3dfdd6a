/// The head of a document: the XML declaration and the document type.
///
///     XMLDocType * head = XMLDocType::Create("Report", "report.dtd", 0);
///     head->AddExtension("<!ENTITY n \"1\">");
///
///     <?xml version="1.0" encoding="UTF-8" ?>
///     <!DOCTYPE Report SYSTEM "report.dtd"
///     [
///     <!ENTITY n "1">
///     ]>
///
/// None of the texts is escaped.
#pragma once

#include <iosfwd>
#include <string>

#include "QVExport.h"
#include "XMLInterface.h"

namespace QVXML_940 {

class QVCOMMON_API XMLDocType final : public XMLInterface {
 public:
  /// A document type without extension, owned by the caller. `name` is that of the root element,
  /// `systemId` names the document type file. The number (32 bits) is kept and copied; nothing here
  /// reads it.
  static XMLDocType * Create(const std::string & name, const std::string & systemId, long number);

  ~XMLDocType() override;

  XMLDocType & operator=(const XMLDocType &) = default;

  /// Adds a line to the internal subset: appends a line feed and `text` to the extension text.
  /// Returns the new length of that text in bytes.
  int AddExtension(const std::string & text);

  /// Appends the declaration and the document type, ending in a line feed. `format` is not used.
  int ToString(std::string & out, ExportFormat & format) const override;

  int ToStream(std::ostream & out, ExportFormat & format, bool utf) const override;

  /// A copy of all four fields.
  XMLDocType * Clone() const override;

 private:
  XMLDocType(const std::string & name, const std::string & systemId, long number);
  XMLDocType(const XMLDocType &) = default;

  std::string fName;
  std::string fSystemId;
  std::string fExtension;
  [[maybe_unused]] long fNumber;
};

}  // namespace QVXML_940
