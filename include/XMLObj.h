/// The frame of one object in the persistence file, and the writer of the values inside it.
///
///     int Point::WriteObjectXML(std::ostream & out, int nTabs) const {
///       const XMLObj frame("Point", nTabs);
///       frame.StartObj(out);                   //  <Obj name="Point">
///       frame.WriteSubElement(out, fX);        //  	<Double value="0.5"/>
///       frame.WriteSubElement(out, fLabel);    //  	<String value="left"/>
///       frame.EndObj(out);                     //  </Obj>
///       return 4;                              // lines
///     }
///
/// Each piece is one line, and its line feed stands before it. XMLPersistence.h has the root and
/// the reader. Values are escaped on the way out and not on the way in, numbers keep 15 significant
/// digits, and a line of more than 255 bytes can be written but not read: docs/persistence.md.
///
/// Every writer returns 0; test the stream.
#pragma once

#include <iosfwd>
#include <string>

#include "QVExport.h"

namespace QVXML_940 {

class QVCOMMON_API XMLObj {
 public:
  /// `name` is the object's name, by convention that of its class; `nTabs` its depth in the file.
  XMLObj(std::string name, int nTabs);

  XMLObj(const XMLObj & other);
  XMLObj & operator=(const XMLObj & other);
  ~XMLObj();

  const std::string & GetName() const;
  int GetNTabs() const;

  /// A line feed, the tabs, `<Obj name="NAME">`. The name is not escaped.
  int StartObj(std::ostream & out) const;

  /// A line feed, the tabs, `</Obj>`.
  int EndObj(std::ostream & out) const;

  /// A line feed, one tab more than the object's, `<TAG value="TEXT"/>`. TAG is "Int" for `int`,
  /// `unsigned int` (written as a positive number) and `bool` (0 or 1), "Long" for `long`.
  int WriteSubElement(std::ostream & out, int value) const;
  int WriteSubElement(std::ostream & out, unsigned int value) const;
  int WriteSubElement(std::ostream & out, long value) const;
  int WriteSubElement(std::ostream & out, bool value) const;

  /// TAG "Double". The missing value is written as "Missing"; NaN and the infinities as "nan" and
  /// "inf", which the reader turns into 0.
  int WriteSubElement(std::ostream & out, double value) const;

  /// TAG "String". A null pointer is written as an empty text.
  int WriteSubElement(std::ostream & out, const std::string & value) const;
  int WriteSubElement(std::ostream & out, const char * value) const;

 private:
  int WriteValue(std::ostream & out, const std::string & tag, const std::string & attribute) const;

  std::string fName;
  int fNTabs;
};

}  // namespace QVXML_940
