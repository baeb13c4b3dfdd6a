// The virtual operations that the structured classes add stand behind those of their interface.
#include <cstring>
#include <vector>

#include <gtest/gtest.h>

#include "QVDiagMatrix.h"
#include "QVSparseRectMatrix.h"
#include "QVSymBlockDiagMatrix.h"

namespace {

using QVMath_940::IQVRectMatrix;
using QVMath_940::QVDiagMatrix;
using QVMath_940::QVSparseRectMatrix;
using QVMath_940::QVSymBlockDiagMatrix;

// In the Itanium C++ ABI a pointer to a virtual member holds 1 + its byte offset in the table.
template <class Member>
int Entry(Member member) {
  std::ptrdiff_t words[2] = {0, 0};
  static_assert(sizeof member == sizeof words);
  std::memcpy(words, &member, sizeof words);
  return static_cast<int>((words[0] - 1) / static_cast<std::ptrdiff_t>(sizeof(void *)));
}

TEST(StructuredInterface, DiagonalClassAddsFour) {
  using D = QVDiagMatrix;
  using Get = double (D::*)(int) const;
  using Row = double (D::*)(int, const IQVRectMatrix &, int, int) const;
  using Set = bool (D::*)(int, double);
  EXPECT_EQ(Entry<Get>(&D::GetElem), 75);
  EXPECT_EQ(Entry<Row>(&D::ComputeRVD), 76);
  EXPECT_EQ(Entry<Row>(&D::ComputeRTransVD), 77);
  EXPECT_EQ(Entry<Set>(&D::SetElem), 78);
}

TEST(StructuredInterface, OperationsKeepTheSlotsOfTheInterface) {
  EXPECT_EQ(Entry(&QVDiagMatrix::DisplayF), 74);
  EXPECT_EQ(Entry(&QVSymBlockDiagMatrix::DisplayF), 74);
  EXPECT_EQ(Entry(&QVSymBlockDiagMatrix::ZeroOutNonDiag), 72);
  EXPECT_EQ(Entry(&QVSparseRectMatrix::DisplayF), 38);
  EXPECT_EQ(Entry(&QVSparseRectMatrix::ZeroOutRowPart), 36);
}

}  // namespace
