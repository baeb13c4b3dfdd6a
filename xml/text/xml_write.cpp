#include "XMLWrite.h"

#include <ostream>
#include <string_view>

#include "XMLUtil.h"
#include "xml/text/narrow_text.h"
#include "xml/text/write_piece.h"

namespace QVXML_940 {

namespace {

void WriteBytes(std::ostream & out, std::string_view bytes) {
  out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

int WriteDocument(std::ostream & out, const XMLDocType * docType, const XMLElement * root,
                  bool lineEnds, bool utf) {
  ExportFormat format;
  format.SetFormat(lineEnds);
  if (docType != nullptr) {
    docType->ToStream(out, format, utf);
  } else {
    WritePiece(out, XMLUtil::FIRST_LINE + XMLUtil::ROWSEP, utf);
  }
  if (root != nullptr) root->ToStream(out, format, utf);
  return 0;
}

}  // namespace

int Write(std::ostream & out, const std::string & text) {
  WriteBytes(out, text);
  return 0;
}

int WriteUTF(std::ostream & out, const std::string & text) {
  const std::string_view codeset = NarrowCodeset();
  if (codeset != "UTF-8") {
    WriteBytes(out, Utf8FromUtf16(Utf16FromCodeset(text, codeset)));
  } else if (IsValidUtf8(text)) {
    WriteBytes(out, text);
  } else {
    WriteBytes(out, RepairUtf8(text));
  }
  return 0;
}

int WritePiece(std::ostream & out, const std::string & piece, bool utf) {
  return utf ? WriteUTF(out, piece) : Write(out, piece);
}

int WriteTree(std::ostream & out, const XMLDocType * docType, const XMLElement * root,
              bool format) {
  return WriteDocument(out, docType, root, format, false);
}

int WriteTreeUTF8(std::ostream & out, const XMLDocType * docType, const XMLElement * root,
                  bool format) {
  return WriteDocument(out, docType, root, format, true);
}

}  // namespace QVXML_940
