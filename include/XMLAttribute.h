/// An attribute of an `XMLElement`: a name and a value in text form. The value is escaped when it
/// is written; the name is written as it stands.
#pragma once

#include <iosfwd>
#include <string>

#include "QVExport.h"
#include "XMLInterface.h"

namespace QVXML_940 {

class QVCOMMON_API XMLAttribute final : public XMLInterface {
 public:
  /// An attribute with the value as given. Here and below the result belongs to the caller.
  static XMLAttribute * Create(const std::string & name, const std::string & value);

  /// The value's text is `Format(value, false, nullptr)`: 15 significant digits, classic locale.
  /// NaN and the infinities are rendered too, unlike in `XMLElement::AddAttribute`.
  static XMLAttribute * Create(const std::string & name, double value);

  /// With `fixedForm` true the value's text is `ReplaceSep(value)`: 16 digits behind the point.
  /// Otherwise as above.
  static XMLAttribute * Create(const std::string & name, double value, bool fixedForm);

  ~XMLAttribute() override;

  XMLAttribute & operator=(const XMLAttribute &) = default;

  /// Appends `name="value"` with no blank before it. `format` stays as it is.
  int ToString(std::string & out, ExportFormat & format) const override;

  int ToStream(std::ostream & out, ExportFormat & format, bool utf) const override;

  XMLAttribute * Clone() const override;

 private:
  XMLAttribute(const std::string & name, const std::string & value);
  XMLAttribute(const XMLAttribute &) = default;

  std::string fName;
  std::string fValue;
};

}  // namespace QVXML_940
