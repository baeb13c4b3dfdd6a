#include "ExportFormat.h"

namespace QVXML_940 {

bool ExportFormat::HasIndentation() const {
  return fFormat && fIndentation;
}

bool ExportFormat::IsNewParagraph() const {
  return fFormat && fIsNewParagraph;
}

void ExportFormat::SetFormat(bool on) {
  fFormat = on;
}

void ExportFormat::SetIndentation(bool on) {
  fIndentation = on;
}

void ExportFormat::SetIsNewParagraph(bool on) {
  fIsNewParagraph = on;
}

}  // namespace QVXML_940
