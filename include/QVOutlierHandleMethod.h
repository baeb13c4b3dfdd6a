/// How a continuous variable's outliers are to be treated. The library keeps the number for the
/// procedure that set it and reads no meaning into it; any number is a valid value.
#pragma once

namespace QVXML_940 {

enum OutlierHandleMethod : int {
  OutlierMethodDefault = 0  ///< what a new variable has
};

}  // namespace QVXML_940
