#include "IQVEncoder.h"

namespace QVXML_940 {

// The key function: the interface's table of operations stands in this file.
IQVEncoder::~IQVEncoder() = default;

}  // namespace QVXML_940
