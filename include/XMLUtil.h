/// The characters of XML and the string operations of its writer.
///
///     XMLUtil::Escape("a < b")                    // "a &lt; b"
///     std::string text = "a,b,c";
///     XMLUtil::ReplaceAll(text, ",", "; ");       // text: "a; b; c"
///
/// Texts are bytes; everything above 127 passes unchanged. Threads: safe, there is no state.
#pragma once

#include <string>

#include "QVExport.h"

namespace QVXML_940 {

class QVCOMMON_API XMLUtil {
 public:
  XMLUtil() = delete;

  // Reserved characters.
  static const std::string AMPERSAND;     // "&"
  static const std::string LESS_THAN;     // "<"
  static const std::string GREATER_THAN;  // ">"
  static const std::string QUOTE;         // the double quote

  // What stands for them in a document.
  static const std::string XML_AMPERSAND;      // "&amp;"
  static const std::string XML_LESS_THAN;      // "&lt;"
  static const std::string XML_GREATER_THAN;   // "&gt;"
  static const std::string XML_QUOTE;          // "&quot;"
  static const std::string XML_CHARREF_TAB;    // "&#9;"
  static const std::string XML_CHARREF_NL;     // "&#10;"
  static const std::string XML_CHARREF_CR;     // "&#13;"
  static const std::string XML_CHARREF_SP;     // "&#32;"
  static const std::string XML_SP_CHARREF_SP;  // " &#32;": a blank and a reference to another

  // The parts of a tag.
  static const std::string BEGIN_ELEMENT;       // "<"
  static const std::string END_ELEMENT;         // ">"
  static const std::string BEGIN_END_ELEMENT;   // "/"
  static const std::string BEGIN_PREPROCESSOR;  // "!"
  static const std::string EQUAL;               // "="
  static const std::string SPACE;               // " "
  static const std::string ROWSEP;              // the line feed
  static const std::string ITEMINDENT;          // the tab
  static constexpr int TAB_LENGTH = 8;          // the width of a tab on paper; nothing here uses it

  /// The first line of every document, without its line end.
  static const std::string FIRST_LINE;  // <?xml version="1.0" encoding="UTF-8" ?>

  /// `text` as it has to stand in the value of an attribute.
  ///
  /// The five reserved characters but the apostrophe, and tab, line feed and carriage return,
  /// become references. So do every second blank of a run, and a blank at either end: a reader that
  /// folds white space still finds each blank. Takes time linear in the text.
  static std::string Escape(const std::string & text);

  /// `n` tabs; an empty text when `n` is below 1.
  static std::string GetTabs(int n);

  /// `value` as decimal digits.
  static std::string toString(int value);

  /// Replaces the first occurrence of `from`. Returns its position, or -1 when there is none.
  /// An empty `from` is found at the start. A null `from` gives -1.
  static int ReplaceString(std::string & text, const char * from, const std::string & to);

  /// Replaces every occurrence of `from` from the left; what was put in is not searched again.
  /// Takes time linear in the two texts.
  ///
  /// Returns one less than the place behind the last replacement, where the last search began: -1
  /// when nothing was found, and likewise when the last match was replaced by nothing at the very
  /// start. An empty or null `from` gives -1 and changes nothing.
  static int ReplaceAll(std::string & text, const char * from, const std::string & to);

 private:
  /// Replaces the first occurrence of `from` at or behind `position`, which is moved there, or to
  /// one less than it was when there is none. Returns the new position, or -1 when nothing was
  /// found. A `position` behind the end of the text gives -1 and stays.
  static int ReplaceAtPos(std::string & text, const char * from, const std::string & to,
                          int & position);
};

}  // namespace QVXML_940
