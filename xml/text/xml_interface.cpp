#include "XMLInterface.h"

namespace QVXML_940 {

XMLInterface::~XMLInterface() = default;

}  // namespace QVXML_940
