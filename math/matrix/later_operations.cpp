// These operations answer their refusal until their family stands here: false, -1, 0.0, the missing
// value, or nothing done.
#include "QVSymMatrix.h"

namespace QVMath_940 {

using Rows = std::vector<int>;
using Vector = std::vector<double>;

// clang-format off

// --- QVSymMatrix: products with vectors, quadratic forms ----------------------------------------
bool QVSymMatrix::ComputeSV(const Vector &, Vector &) const { return false; }
bool QVSymMatrix::ComputeSV(int, const Vector &, Vector &) const { return false; }
bool QVSymMatrix::ComputeLV(const Vector &, Vector &) const { return false; }
bool QVSymMatrix::ComputeLV(const Rows &, const Vector &, Vector &) const { return false; }
bool QVSymMatrix::ComputeLTransV(const Vector &, Vector &) const { return false; }
bool QVSymMatrix::ComputeLTransV(const Rows &, const Vector &, Vector &) const { return false; }
double QVSymMatrix::ComputeRVD(int, const double *, int) const { return 0.0; }
double QVSymMatrix::ComputeRVD(int, const Vector &, int) const { return 0.0; }
double QVSymMatrix::ComputeVSV(const Vector &) const { return 0.0; }
double QVSymMatrix::ComputeVSV(const IQVRectMatrix &, int) const { return 0.0; }
double QVSymMatrix::ComputeVSW(const Vector &, const Vector &) const { return 0.0; }
double QVSymMatrix::ComputeVSW(const double *, int, const double *, int) const { return 0.0; }
double QVSymMatrix::ComputeVSW(const Vector &, int, int, int) const { return 0.0; }
double QVSymMatrix::ComputeVSWParts(const double *, int, const double *, int) const { return 0.0; }
double QVSymMatrix::ComputeVSWParts(const Vector &, int, const Vector &, int) const { return 0.0; }

// --- QVSymMatrix: products with matrices, traces ------------------------------------------------
double QVSymMatrix::ComputeDotProduct2Rows(int, int) const { return 0.0; }
double QVSymMatrix::ComputeRowDotProductS(int, const Vector &, int) const { return 0.0; }
double QVSymMatrix::ComputeRowDotProductS(int, const IQVSymMatrix &, int) const { return 0.0; }
void QVSymMatrix::ComputeRowDotProductS(int, const Vector &, const Vector &, int, double &, double &) const {}
void QVSymMatrix::ComputeRowDotProductS(int, const IQVSymMatrix &, const IQVSymMatrix &, int, double &, double &) const {}
void QVSymMatrix::ComputeSTransS(IQVSymMatrix &) const {}
bool QVSymMatrix::ComputeSS(const IQVSymMatrix &, IQVRectMatrix &) const { return false; }
bool QVSymMatrix::ComputeGMG(const Vector &, QVSymMatrix &) const { return false; }
bool QVSymMatrix::ComputeGSG(const IQVSymMatrix &, IQVSymMatrix &) const { return false; }
bool QVSymMatrix::ComputeMGN(const IQVSymMatrix &, const IQVSymMatrix &, IQVSymMatrix &) const { return false; }
bool QVSymMatrix::ComputeGMGNG(const IQVSymMatrix &, const IQVSymMatrix &, IQVSymMatrix &, Vector &) const { return false; }
bool QVSymMatrix::ComputeLSLTrans(const IQVSymMatrix &, IQVSymMatrix &) const { return false; }
bool QVSymMatrix::ComputeLTransSL(const IQVSymMatrix &, IQVSymMatrix &, int) const { return false; }
bool QVSymMatrix::ComputeAXpY(double, const IQVSymMatrix &) { return false; }
bool QVSymMatrix::ComputeRS(const IQVRectMatrix &, IQVRectMatrix &) const { return false; }
bool QVSymMatrix::ComputeRTransS(const IQVRectMatrix &, IQVRectMatrix &) const { return false; }
bool QVSymMatrix::ComputeRSRTrans(const IQVRectMatrix &, IQVSymMatrix &) const { return false; }
bool QVSymMatrix::ComputeRTransSR(const IQVRectMatrix &, IQVSymMatrix &) const { return false; }
bool QVSymMatrix::ComputeRTransSV(const IQVRectMatrix &, const Vector &, Vector &) const { return false; }
double QVSymMatrix::TraceOfProduct(const IQVSymMatrix &) const { return 0.0; }
double QVSymMatrix::TraceOfProductOfThree(const IQVSymMatrix &, const IQVSymMatrix &) const { return 0.0; }

}  // namespace QVMath_940
