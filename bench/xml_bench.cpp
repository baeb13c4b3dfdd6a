/// Writing a data dictionary: fields with twenty categories each, as a PMML document has them.

#include <memory>
#include <ostream>
#include <streambuf>
#include <string>
#include <vector>

#include <pugixml.hpp>

#include "XMLElement.h"
#include "XMLWrite.h"
#include "contender.h"

namespace {

constexpr int kCategories = 20;

std::string FieldName(int field) {
  return "field " + std::to_string(field);
}

std::string CategoryName(int category) {
  return "category <" + std::to_string(category);  // with a character to escape
}

std::unique_ptr<QVXML_940::XMLElement> OwnTree(int fields) {
  using QVXML_940::XMLElement;
  std::unique_ptr<XMLElement> dictionary(XMLElement::Create("DataDictionary"));
  dictionary->AddAttribute("numberOfFields", fields);
  for (int i = 0; i < fields; ++i) {
    XMLElement * field = XMLElement::Create("DataField");
    dictionary->AddElement(field);
    field->AddAttribute("name", FieldName(i));
    field->AddAttribute("displayName", "Label of the " + FieldName(i));
    field->AddAttribute("optype", "categorical");
    field->AddAttribute("dataType", "string");
    for (int j = 0; j < kCategories; ++j) {
      XMLElement * value = XMLElement::Create("Value");
      field->AddElement(value);
      value->AddAttribute("value", CategoryName(j));
      value->AddAttribute("property", "valid");
    }
  }
  return dictionary;
}

void FillPeerTree(pugi::xml_document & document, int fields) {
  pugi::xml_node dictionary = document.append_child("DataDictionary");
  dictionary.append_attribute("numberOfFields") = fields;
  for (int i = 0; i < fields; ++i) {
    pugi::xml_node field = dictionary.append_child("DataField");
    field.append_attribute("name") = FieldName(i).c_str();
    field.append_attribute("displayName") = ("Label of the " + FieldName(i)).c_str();
    field.append_attribute("optype") = "categorical";
    field.append_attribute("dataType") = "string";
    for (int j = 0; j < kCategories; ++j) {
      pugi::xml_node value = field.append_child("Value");
      value.append_attribute("value") = CategoryName(j).c_str();
      value.append_attribute("property") = "valid";
    }
  }
}

// Memory that is written over and over: what a stream costs with the disk left out.
class Sink : public std::streambuf {
 public:
  explicit Sink(std::size_t size) : fMemory(size) { Restart(); }
  void Restart() { setp(fMemory.data(), fMemory.data() + fMemory.size()); }
  std::string Text() const { return std::string(pbase(), pptr()); }

 private:
  std::vector<char> fMemory;
};

constexpr std::size_t kBytesPerField = 4096;

void WriteOwn(std::ostream & out, const QVXML_940::XMLElement & tree) {
  QVXML_940::WriteTreeUTF8(out, nullptr, &tree, false);
}

// The declaration as the library writes it, then the tree without line ends.
void WritePeer(std::ostream & out, const pugi::xml_document & document) {
  out << "<?xml version=\"1.0\" encoding=\"UTF-8\" ?>\n";
  document.save(out, "", pugi::format_raw | pugi::format_no_declaration, pugi::encoding_utf8);
}

void RunOwn(benchmark::State & state, int fields) {
  const auto tree = OwnTree(fields);
  Sink sink(kBytesPerField * static_cast<std::size_t>(fields));
  std::ostream out(&sink);

  WriteOwn(out, *tree);
  const std::string text = sink.Text();
  sink.Restart();
  pugi::xml_document peer;
  FillPeerTree(peer, fields);
  WritePeer(out, peer);
  if (!out || sink.Text() != text) state.SkipWithError("the two documents differ");

  for (auto _ : state) {
    sink.Restart();
    WriteOwn(out, *tree);
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}

void RunPeer(benchmark::State & state, int fields) {
  pugi::xml_document document;
  FillPeerTree(document, fields);
  Sink sink(kBytesPerField * static_cast<std::size_t>(fields));
  std::ostream out(&sink);
  for (auto _ : state) {
    sink.Restart();
    WritePeer(out, document);
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(sink.Text().size()));
}

}  // namespace

void RegisterBenchmarks() {
  for (const int fields : {1000, 5000, 25000}) {
    const std::string work = "WriteDictionary/" + std::to_string(fields);
    AddContender(work, "qv", [fields](benchmark::State & state) { RunOwn(state, fields); });
    AddContender(work, "pugixml", [fields](benchmark::State & state) { RunPeer(state, fields); });
  }
}
