// The frame of a PMML document: the root, the header and extensions.

#include <array>
#include <ctime>

#include "PMMLVocabulary.h"
#include "QVPMMLExporter.h"
#include "XMLElement.h"
#include "XMLString.h"

namespace QVCommon_940 {

using namespace QVXML_940;

namespace {

/// The present local time in the form of `ctime`, without its line end.
std::string LocalTimeText() {
  const std::time_t now = std::time(nullptr);
  std::array<char, 64> text{};
  if (ctime_r(&now, text.data()) == nullptr) return std::string();
  std::string line(text.data());
  line.pop_back();
  return line;
}

}  // namespace

QVPMMLExporter::QVPMMLExporter(QVQueryCancel * cancel) : fCancel(cancel) {
}

QVPMMLExporter::~QVPMMLExporter() = default;

QVPMMLExporter::QVPMMLExporter(const QVPMMLExporter & other) : fCancel(other.fCancel) {
}

QVPMMLExporter & QVPMMLExporter::operator=(const QVPMMLExporter & other) {
  fCancel = other.fCancel;
  return *this;
}

XMLElement * QVPMMLExporter::ExportPMMLElement() const {
  std::unique_ptr<XMLElement> root(XMLElement::Create(PMML_PMML));
  root->AddAttribute(PMML_version, PMML_version_4_3);
  root->AddAttribute(PMML_xmlns, PMML_namespace_4_3);
  root->AddAttribute(PMML_xmlns_xsi, PMML_namespace_xsi);
  root->AddAttribute(PMML_xsi_schemaLocation, PMML_schemaLocation_4_3);
  return root.release();
}

XMLElement * QVPMMLExporter::ExportPMMLElement40() const {
  return ExportPMMLElement();
}

QVStatus QVPMMLExporter::ExportHeader(const QVApplicInfo4XML * info,
                                      const std::string & description, bool timestamp,
                                      XMLElement *& header) {
  const QVApplicInfo4XML untold;
  const QVApplicInfo4XML & told = info != nullptr ? *info : untold;

  fElement.reset(XMLElement::Create(PMML_Header));
  fElement->AddAttribute(PMML_copyright,
                         told.fCopyright.empty() ? PMML_productCopyright : told.fCopyright);
  if (!description.empty()) fElement->AddAttribute(PMML_description, description);
  if (!told.fName.empty() || !told.fVersion.empty()) {
    XMLElement * application = XMLElement::Create(PMML_Application);
    fElement->AddElement(application);
    if (!told.fName.empty()) application->AddAttribute(PMML_name, told.fName);
    if (!told.fVersion.empty()) application->AddAttribute(PMML_version, told.fVersion);
  }
  if (timestamp) {
    XMLElement * time = XMLElement::Create(PMML_Timestamp);
    fElement->AddElement(time);
    time->AddElement(XMLString::Create(LocalTimeText()));
  }
  header = fElement.release();
  return QVStatus();
}

void QVPMMLExporter::ExportExtension(const std::string & name, const std::string & value,
                                     XMLElement *& extension) {
  extension = nullptr;
  std::unique_ptr<XMLElement> element(XMLElement::Create(PMML_Extension));
  if (!name.empty()) element->AddAttribute(PMML_name, name);
  if (!value.empty()) element->AddAttribute(PMML_value, value);
  element->AddAttribute(PMML_extender, PMML_vendor);
  extension = element.release();
}

void QVPMMLExporter::ExportExtension(const std::string & name, double value,
                                     XMLElement *& extension) {
  extension = nullptr;
  std::unique_ptr<XMLElement> element(XMLElement::Create(PMML_Extension));
  if (!name.empty()) element->AddAttribute(PMML_name, name);
  element->AddAttribute(PMML_value, value);  // adds nothing for NaN and the infinities
  element->AddAttribute(PMML_extender, PMML_vendor);
  extension = element.release();
}

}  // namespace QVCommon_940
