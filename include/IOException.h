/// What a reader of persistent objects throws on a broken stream.
///
/// It is thrown as a POINTER to a new instance, which belongs to the handler, and only after one
/// line that names the class has gone to the standard error stream:
///
///     try {
///       list.ReadObjectXML(stream);              // "Failure reading QVVarList!" on standard error
///     } catch (QVXML_940::IOException * failure) {
///       delete failure;
///     }
#pragma once

#include "QVExport.h"

namespace QVXML_940 {

class QVCOMMON_API IOException {};

}  // namespace QVXML_940
