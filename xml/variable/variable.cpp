#include "IQVVariable.h"

namespace QVXML_940 {

// The key function: the interface's table of operations stands in this file.
IQVVariable::~IQVVariable() = default;

}  // namespace QVXML_940
