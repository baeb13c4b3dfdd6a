// The virtual operations stand in a fixed order, which is part of the binary interface.
#include <cstring>
#include <type_traits>
#include <vector>

#include <gtest/gtest.h>

#include "IQVSymMatrix.h"
#include "QVRectMatrix.h"
#include "QVSymMatrix.h"

namespace {

using QVMath_940::IQVRectMatrix;
using QVMath_940::IQVSymMatrix;
using QVMath_940::QVBitSet;
using QVMath_940::QVRectMatrix;
using QVMath_940::QVSparseVector;
using QVMath_940::QVSymMatrix;
using V = std::vector<double>;
using I = std::vector<int>;

// The entry of a virtual operation in its class's table. In the Itanium C++ ABI a pointer to a
// virtual member holds 1 + its byte offset; the destructor takes the entries 0 and 1, so that the
// operation that stands k-th in the interface (the destructor being the first) has entry k.
template <class Member>
int Entry(Member member) {
  std::ptrdiff_t words[2] = {0, 0};
  static_assert(sizeof member == sizeof words);
  std::memcpy(words, &member, sizeof words);
  return static_cast<int>((words[0] - 1) / static_cast<std::ptrdiff_t>(sizeof(void *)));
}

template <class Signature>
int Sym(Signature IQVSymMatrix::*member) {
  return Entry(member);
}
template <class Signature>
int Rect(Signature IQVRectMatrix::*member) {
  return Entry(member);
}

TEST(SymMatrixInterface, IsAbstractWithVirtualDestructor) {
  EXPECT_TRUE(std::is_abstract_v<IQVSymMatrix>);
  EXPECT_TRUE(std::has_virtual_destructor_v<IQVSymMatrix>);
  EXPECT_EQ(sizeof(IQVSymMatrix), sizeof(void *));
}

TEST(SymMatrixInterface, MatrixTypesKeepTheirNumbers) {
  EXPECT_EQ(QVMath_940::SymMatrixDense, 0);
  EXPECT_EQ(QVMath_940::SymMatrixDiagonal, 1);
  EXPECT_EQ(QVMath_940::SymMatrixBlockDiagonal, 2);
  EXPECT_EQ(QVMath_940::RectMatrixDense, 0);
  EXPECT_EQ(QVMath_940::RectMatrixSparse, 1);
}

TEST(SymMatrixInterface, OperationsStandInOrder) {
  using S = IQVSymMatrix;
  EXPECT_EQ(Sym(&S::GetType), 2);
  EXPECT_EQ(Sym(&S::GetNRows), 3);
  EXPECT_EQ(Sym(&S::IsValidMatrix), 4);
  EXPECT_EQ(Sym(&S::GetElem), 5);
  EXPECT_EQ(Sym(&S::GetDiagonal), 6);
  EXPECT_EQ(Sym(&S::GetRow), 7);
  EXPECT_EQ(Sym(&S::AddToDiagonal), 8);
  EXPECT_EQ(Sym(&S::ChangeSign), 9);
  EXPECT_EQ(Sym<int(const V &, double, S &, double &) const>(&S::CholInverse), 10);
  EXPECT_EQ(Sym<int(const V &, double, S &, QVBitSet &) const>(&S::CholInverse), 11);
  EXPECT_EQ(Sym<int(const V &, double, S &) const>(&S::CholInverse), 12);
  EXPECT_EQ(Sym(&S::Clear), 13);
  EXPECT_EQ(Sym(&S::ComputeAXpY), 14);
  EXPECT_EQ(Sym(&S::ComputeDeterminant), 15);
  EXPECT_EQ(Sym(&S::ComputeDotProduct2Rows), 16);
  EXPECT_EQ(Sym(&S::ComputeGMG), 17);
  EXPECT_EQ(Sym(&S::ComputeGMGNG), 18);
  EXPECT_EQ(Sym(&S::ComputeMGN), 19);
  EXPECT_EQ(Sym(&S::ComputeGSG), 20);
  EXPECT_EQ(Sym(&S::ComputeLSLTrans), 21);
  EXPECT_EQ(Sym(&S::ComputeLTransSL), 22);
  EXPECT_EQ(Sym<bool(const I &, const V &, V &) const>(&S::ComputeLTransV), 23);
  EXPECT_EQ(Sym<bool(const V &, V &) const>(&S::ComputeLTransV), 24);
  EXPECT_EQ(Sym<bool(const I &, const V &, V &) const>(&S::ComputeLV), 25);
  EXPECT_EQ(Sym<bool(const V &, V &) const>(&S::ComputeLV), 26);
  EXPECT_EQ(Sym<double(int, const V &, int) const>(&S::ComputeRowDotProductS), 27);
  EXPECT_EQ(Sym<double(int, const S &, int) const>(&S::ComputeRowDotProductS), 28);
  EXPECT_EQ(Sym(&S::ComputeRS), 29);
  EXPECT_EQ(Sym(&S::ComputeRSRTrans), 30);
  EXPECT_EQ(Sym(&S::ComputeRTransS), 31);
  EXPECT_EQ(Sym(&S::ComputeRTransSR), 32);
  EXPECT_EQ(Sym(&S::ComputeRTransSV), 33);
  EXPECT_EQ(Sym<double(int, const double *, int) const>(&S::ComputeRVD), 34);
  EXPECT_EQ(Sym<double(int, const V &, int) const>(&S::ComputeRVD), 35);
  EXPECT_EQ(Sym(&S::ComputeSS), 36);
  EXPECT_EQ(Sym(&S::ComputeSTransS), 37);
  EXPECT_EQ(Sym<bool(int, const V &, V &) const>(&S::ComputeSV), 38);
  EXPECT_EQ(Sym<bool(const V &, V &) const>(&S::ComputeSV), 39);
  EXPECT_EQ(Sym<double(const IQVRectMatrix &, int) const>(&S::ComputeVSV), 40);
  EXPECT_EQ(Sym<double(const V &) const>(&S::ComputeVSV), 41);
  EXPECT_EQ(Sym<double(const V &, int, int, int) const>(&S::ComputeVSW), 42);
  EXPECT_EQ(Sym<double(const double *, int, const double *, int) const>(&S::ComputeVSW), 43);
  EXPECT_EQ(Sym<double(const V &, const V &) const>(&S::ComputeVSW), 44);
  EXPECT_EQ(Sym<double(const double *, int, const double *, int) const>(&S::ComputeVSWParts), 45);
  EXPECT_EQ(Sym<double(const V &, int, const V &, int) const>(&S::ComputeVSWParts), 46);
  EXPECT_EQ(Sym(&S::ExtractFirstNRows), 47);
  EXPECT_EQ(Sym(&S::ExtractSubmatrix), 48);
  EXPECT_EQ(Sym(&S::GetNCheckDiagonal), 49);
  EXPECT_EQ(Sym(&S::IncrVecByRow), 50);
  EXPECT_EQ(Sym(&S::IsZeroRow), 51);
  EXPECT_EQ(Sym<int(double, double &, bool)>(&S::LTChol), 52);
  EXPECT_EQ(Sym<int(const V &, double, QVBitSet &, bool)>(&S::LTChol), 53);
  EXPECT_EQ(Sym<int(const V &, double, bool)>(&S::LTChol), 54);
  EXPECT_EQ(Sym(&S::LTDetInverse), 55);
  EXPECT_EQ(Sym(&S::LTInverse), 56);
  EXPECT_EQ(Sym(&S::LTLLTrans), 57);
  EXPECT_EQ(Sym(&S::LTLTransL), 58);
  EXPECT_EQ(Sym(&S::LTSolve), 59);
  EXPECT_EQ(Sym(&S::MaxMinDiag), 60);
  EXPECT_EQ(Sym(&S::MaxMinDiagOffDiag), 61);
  EXPECT_EQ(Sym(&S::MultiplyByNumber), 62);
  EXPECT_EQ(Sym(&S::PutRow), 63);
  EXPECT_EQ(Sym(&S::Resize), 64);
  EXPECT_EQ(Sym(&S::SetElem), 65);
  EXPECT_EQ(Sym(&S::SetNRows), 66);
  EXPECT_EQ(Sym(&S::SetRowColToConst), 67);
  EXPECT_EQ(Sym(&S::Trace), 68);
  EXPECT_EQ(Sym(&S::TraceOfProduct), 69);
  EXPECT_EQ(Sym(&S::TraceOfProductOfThree), 70);
  EXPECT_EQ(Sym(&S::ZeroOut), 71);
  EXPECT_EQ(Sym(&S::ZeroOutNonDiag), 72);
  EXPECT_EQ(Sym(&S::Display), 73);
  EXPECT_EQ(Sym(&S::DisplayF), 74);
}

TEST(SymMatrixInterface, DenseClassAddsFourBehindThem) {
  using D = QVSymMatrix;
  using Pair = void (D::*)(int, const V &, const V &, int, double &, double &) const;
  using PairOfMatrices =
      void (D::*)(int, const IQVSymMatrix &, const IQVSymMatrix &, int, double &, double &) const;
  using GetAt = double (D::*)(int) const;
  EXPECT_EQ(Entry(&D::AdjustOffDiagCorr), 75);
  EXPECT_EQ(Entry<Pair>(&D::ComputeRowDotProductS), 76);
  EXPECT_EQ(Entry<PairOfMatrices>(&D::ComputeRowDotProductS), 77);
  EXPECT_EQ(Entry<GetAt>(&D::GetElem), 78);
}

TEST(RectMatrixInterface, OperationsStandInOrder) {
  using R = IQVRectMatrix;
  EXPECT_TRUE(std::is_abstract_v<R>);
  EXPECT_TRUE(std::has_virtual_destructor_v<R>);
  EXPECT_EQ(Rect(&R::GetMatrixType), 2);
  EXPECT_EQ(Rect(&R::IsValidMatrix), 3);
  EXPECT_EQ(Rect(&R::GetNRows), 4);
  EXPECT_EQ(Rect(&R::GetNCols), 5);
  EXPECT_EQ(Rect(&R::GetElem), 6);
  EXPECT_EQ(Rect(&R::GetRow), 7);
  EXPECT_EQ(Rect(&R::GetCol), 8);
  EXPECT_EQ(Rect<int(const QVSparseVector &)>(&R::AddRow), 9);
  EXPECT_EQ(Rect<int()>(&R::AddRow), 10);
  EXPECT_EQ(Rect(&R::Clear), 11);
  EXPECT_EQ(Rect(&R::ColNorm), 12);
  EXPECT_EQ(Rect(&R::ComputeMatrixProduct), 13);
  EXPECT_EQ(Rect(&R::ComputeProductMatrixTrans), 14);
  EXPECT_EQ(Rect(&R::ComputeRV), 15);
  EXPECT_EQ(Rect(&R::ComputeVR), 16);
  EXPECT_EQ(Rect(&R::CopyColToVec), 17);
  EXPECT_EQ(Rect(&R::CopyRows), 18);
  EXPECT_EQ(Rect(&R::CopyRowToRow), 19);
  EXPECT_EQ(Rect(&R::CreateBlockDiagonal), 20);
  EXPECT_EQ(Rect(&R::DotProductCol), 21);
  EXPECT_EQ(Rect(&R::DotProductRows), 22);
  EXPECT_EQ(Rect(&R::DotProductRowCol), 23);
  EXPECT_EQ(Rect(&R::DotProductRowRow), 24);
  EXPECT_EQ(Rect(&R::ExtractColumns), 25);
  EXPECT_EQ(Rect(&R::ExtractRows), 26);
  EXPECT_EQ(Rect(&R::IncrVecByColumn), 27);
  EXPECT_EQ(Rect(&R::IsRowZero), 28);
  EXPECT_EQ(Rect(&R::Resize), 29);
  EXPECT_EQ(Rect(&R::RowNorm), 30);
  EXPECT_EQ(Rect(&R::SetElem), 31);
  EXPECT_EQ(Rect(&R::SetNRowsCols), 32);
  EXPECT_EQ(Rect(&R::SetRow), 33);
  EXPECT_EQ(Rect(&R::ShiftColumns), 34);
  EXPECT_EQ(Rect(&R::ShiftRows), 35);
  EXPECT_EQ(Rect(&R::ZeroOutRowPart), 36);
  EXPECT_EQ(Rect(&R::Display), 37);
  EXPECT_EQ(Rect(&R::DisplayF), 38);
}

}  // namespace
