/// The base of the nodes of the write-only XML tree: `XMLElement`, `XMLString`, `XMLAttribute` and
/// `XMLDocType`.
///
///     XMLElement * root = XMLElement::Create("PMML");
///     root->AddAttribute("version", "4.3");
///     root->AddElement(XMLString::Create("a < b"));
///     WriteTreeUTF8(file, nullptr, root, true);   // <PMML version="4.3">a &lt; b</PMML>
///     delete root;
///
/// Ownership: nodes are made by the static `Create` of their class and belong to the caller until
/// they are handed to an element, which then deletes them. Nothing takes a node out again.
/// Texts are narrow text in the process's codeset; see `WriteUTF` for their way to UTF-8.
/// Results: every `ToString` and `ToStream` returns 0; the stream's state is the caller's business.
/// Threads: no locks; a tree and its `ExportFormat` serve one thread at a time.
#pragma once

#include <iosfwd>
#include <string>

#include "ExportFormat.h"
#include "QVExport.h"

namespace QVXML_940 {

class QVCOMMON_API XMLInterface {
 public:
  virtual ~XMLInterface();

  XMLInterface & operator=(const XMLInterface &) = default;

  /// Appends the node's text to `out`. Returns 0.
  virtual int ToString(std::string & out, ExportFormat & format) const = 0;

  /// Writes the node's text to `out`: through `WriteUTF` when `utf` is true, else the bytes as they
  /// are. Returns 0.
  virtual int ToStream(std::ostream & out, ExportFormat & format, bool utf) const = 0;

  /// A deep copy, owned by the caller.
  virtual XMLInterface * Clone() const = 0;

 protected:
  XMLInterface() = default;
  XMLInterface(const XMLInterface &) = default;
};

}  // namespace QVXML_940
