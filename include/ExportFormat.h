/// The layout state of the XML writer: whether line ends and tabs are written, and how deep the
/// writer stands.
///
/// One instance is handed by reference through `ToString` and `ToStream` of a whole tree and
/// changes on the way. Indented output is had by making one yourself:
///
///     ExportFormat layout;
///     layout.SetIndentation(true);
///     std::string text;
///     root->ToString(text, layout);
///
/// Threads: one instance serves one writer at a time.
#pragma once

#include "QVExport.h"

namespace QVXML_940 {

class QVCOMMON_API ExportFormat {
 public:
  /// New paragraph on, indentation off, format on, depth 0.
  ExportFormat() = default;

  /// Elements are indented: the format switch and the indentation switch are both on.
  bool HasIndentation() const;

  /// The next element starts a line: the format switch and the new-paragraph switch are both on.
  bool IsNewParagraph() const;

  /// The master switch: off, neither line ends nor tabs are written.
  void SetFormat(bool on);

  /// Whether elements are indented by the tab count.
  void SetIndentation(bool on);

  /// Whether the next element starts on a new line. The writer turns it off after a text and on
  /// after an element.
  void SetIsNewParagraph(bool on);

  bool fIsNewParagraph = true;
  bool fIndentation = false;
  bool fFormat = true;
  int fTabs = 0;  ///< current depth
};

}  // namespace QVXML_940
