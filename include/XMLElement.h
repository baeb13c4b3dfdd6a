/// An element of the write-only XML tree: a name, attributes and children.
///
///     XMLElement * field = XMLElement::Create("DataField");
///     field->AddAttribute("name", "mass");
///     field->AddAttribute("low", 0.5);
///     dictionary->AddElement(field);               // dictionary owns it now
///
/// Order: attributes and children are written in the order in which they were added. Nothing checks
/// for a name that is used twice.
///
/// Numbers: the double forms of `AddAttribute` leave out NaN and the infinities without a word, but
/// write the missing value (-1.7976931348623157e308) as the number it is. Whoever wants another
/// text for it passes text.
///
/// Ownership: an element deletes its attributes, then its children, each in order. A null pointer
/// among them is taken in and counted, but owned, written and copied by nobody: an element whose
/// children are all null is written as an empty one.
///
/// Recursion: writing, copying and deleting recurse once for each level of the tree.
#pragma once

#include <iosfwd>
#include <memory>
#include <string>
#include <vector>

#include "QVExport.h"
#include "XMLAttribute.h"
#include "XMLInterface.h"
#include "XMLString.h"

namespace QVXML_940 {

class QVCOMMON_API XMLElement : public XMLInterface {
 public:
  /// An element with no attributes and no children, owned by the caller. `name` is written as it
  /// stands.
  static XMLElement * Create(const std::string & name);

  ~XMLElement() override;

  XMLElement(const XMLElement &) = delete;
  XMLElement & operator=(const XMLElement &) = delete;

  /// Appends the element's text to `out`: start tag, children, end tag. On the way the tab count of
  /// `format` is that of the depth; at the end it is what it was, and the new-paragraph switch is
  /// on.
  ///
  /// With the format switch on, a tag starts on a new line where the new-paragraph switch is on,
  /// and behind as many tabs as the tab count says where the indentation switch is on. In indented
  /// output the tabs stand also before an end tag that follows a text on the same line, and before
  /// each attribute; neither starts a line.
  int ToString(std::string & out, ExportFormat & format) const override;

  /// The same text to a stream.
  int ToStream(std::ostream & out, ExportFormat & format, bool utf) const override;

  /// A deep copy, null pointers left out.
  XMLElement * Clone() const override;

  /// Appends a child and takes ownership. Returns the new number of children.
  virtual int AddElement(XMLElement * child);
  virtual int AddElement(XMLString * child);

  /// Appends an attribute and takes ownership.
  void AddAttribute(XMLAttribute * attribute);

  /// Appends an attribute with a text value.
  void AddAttribute(const std::string & name, const std::string & value);

  /// Appends an attribute with a number of 15 significant digits. Adds nothing when `value` is NaN
  /// or infinite.
  void AddAttribute(const std::string & name, double value);

  /// With `fixedForm` true the number has 16 digits behind the point. Otherwise as above.
  void AddAttribute(const std::string & name, double value, bool fixedForm);

 protected:
  explicit XMLElement(const std::string & name);

 private:
  int AddChild(XMLInterface * child);
  bool HasChildren() const;
  void AppendLineStart(std::string & out, const ExportFormat & format) const;
  void AppendStartTag(std::string & out, ExportFormat & format) const;
  void AppendEndTag(std::string & out, const ExportFormat & format) const;

  std::vector<std::unique_ptr<XMLAttribute>> fAttributes;
  std::string fName;
  std::vector<std::unique_ptr<XMLInterface>> fChildren;
};

}  // namespace QVXML_940
