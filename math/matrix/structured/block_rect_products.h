/// Products of a matrix of diagonal blocks with a dense or sparse rectangular matrix R.
///
/// Each block works on its own slice of rows or columns of R, and a sparse R costs in proportion to
/// its cells. Targets must be dense; they take their shape, and may be R itself. The functions
/// answer false, with nothing changed, for shapes that do not fit; false also when storage could
/// not be obtained.
#pragma once

#include <vector>

#include "math/matrix/structured/diagonal_blocks.h"

namespace QVMath_940 {

class IQVRectMatrix;
class IQVSymMatrix;
class QVRectMatrix;

/// out = R S.
bool MultiplyRS(const DiagonalBlocks & s, const IQVRectMatrix & r, IQVRectMatrix & out);

/// out = R-transpose S.
bool MultiplyRTransS(const DiagonalBlocks & s, const IQVRectMatrix & r, IQVRectMatrix & out);

/// out = S R, R being dense.
bool MultiplySR(const DiagonalBlocks & s, const QVRectMatrix & r, IQVRectMatrix & out);

/// out = R S R-transpose; `isOperand` says that `out` is S.
bool MultiplyRSRTrans(const DiagonalBlocks & s, const IQVRectMatrix & r, IQVSymMatrix & out,
                      bool isOperand = false);

/// The same with the rows of R, of the order of S, at `r`; out is a packed triangle, 0.0 on entry.
void MultiplyRSRTrans(const DiagonalBlocks & s, const double * r, int rows, double * out);

/// out = R-transpose S R; `isOperand` says that `out` is S.
bool MultiplyRTransSR(const DiagonalBlocks & s, const IQVRectMatrix & r, IQVSymMatrix & out,
                      bool isOperand = false);

/// out = R-transpose S v.
bool MultiplyRTransSV(const DiagonalBlocks & s, const IQVRectMatrix & r,
                      const std::vector<double> & v, std::vector<double> & out);

/// v-transpose S v with row k of R as v; 0.0 for bad sizes.
double RowQuadraticForm(const DiagonalBlocks & s, const IQVRectMatrix & r, int k);

}  // namespace QVMath_940
