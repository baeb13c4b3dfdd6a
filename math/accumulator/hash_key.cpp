#include "QVHashKey.h"

#include <algorithm>
#include <cstdint>
#include <string>

#include "QVDisplay.h"

namespace QVMath_940 {

namespace {

// 229, the largest factor, times this bound is 2147483453: the largest multiple of 229 that fits
// 31 bits.
constexpr int kHashedBound = 9377657;

int WrapToInt(std::int64_t value) {
  return static_cast<int>(static_cast<std::uint32_t>(value));
}

}  // namespace

const int QVHashKey::PRIME_FACTOR[49] = {
    3,   5,   7,   11,  13,  17,  19,  23,  29,  31,  37,  41,  43,  47,  53,  59,  61,
    67,  71,  73,  79,  83,  89,  97,  101, 103, 107, 109, 113, 127, 131, 137, 139, 149,
    151, 157, 163, 167, 173, 179, 181, 191, 193, 197, 199, 211, 223, 227, 229};

int QVHashKey::ADD_LOWER_BOUND = 0;

QVHashKey::QVHashKey() = default;

QVHashKey::QVHashKey(int n) : fLength(std::max(n, 0)) {
  if (fLength > 0) fElements = new int[static_cast<std::size_t>(fLength)]();
  UpdateHashCode();
}

QVHashKey::QVHashKey(const QVHashKey & other) : fLength(other.fLength), fHashCode(other.fHashCode) {
  if (fLength > 0) fElements = new int[static_cast<std::size_t>(fLength)];
  std::copy_n(other.fElements, fLength, fElements);
}

void QVHashKey::operator=(const QVHashKey & other) {
  if (this == &other) return;
  if (fLength != other.fLength) {
    int * const elements =
        other.fLength > 0 ? new int[static_cast<std::size_t>(other.fLength)] : nullptr;
    delete[] fElements;
    fElements = elements;
    fLength = other.fLength;
  }
  std::copy_n(other.fElements, fLength, fElements);
  fHashCode = other.fHashCode;
}

QVHashKey::~QVHashKey() {
  delete[] fElements;
}

void QVHashKey::UpdateHashCode() {
  fHashCode = ComputeHashCode();
}

int QVHashKey::ComputeHashCode() const {
  std::uint32_t code = 0;
  for (int i = 0; i < fLength; ++i) {
    const std::uint32_t shifted =
        static_cast<std::uint32_t>(fElements[i]) + static_cast<std::uint32_t>(ADD_LOWER_BOUND);
    code ^= static_cast<std::uint32_t>(PRIME_FACTOR[i % 49]) * shifted;
  }
  return static_cast<int>(code);
}

void QVHashKey::SetElementOffset(int offset) {
  ADD_LOWER_BOUND = offset;
}

int QVHashKey::GetElementOffset() {
  return ADD_LOWER_BOUND;
}

int QVHashKey::GetElementUpperBound() {
  return WrapToInt(std::int64_t{kHashedBound} - ADD_LOWER_BOUND);
}

bool QVHashKey::operator==(const QVHashKey & other) const {
  return fHashCode == other.fHashCode && fLength == other.fLength && Mismatch(other) == fLength;
}

int QVHashKey::Mismatch(const QVHashKey & other) const {
  const int shorter = std::min(fLength, other.fLength);
  int i = 0;
  while (i < shorter && fElements[i] == other.fElements[i]) {
    ++i;
  }
  return i;
}

void QVHashKey::Display() const {
  std::string line = "\t Key: ";
  for (int i = 0; i < fLength; ++i) {
    line.append("  ").append(std::to_string(fElements[i]));
  }
  QVDisplay_940::DisplayText(1, line);
}

bool operator<(const QVHashKey & a, const QVHashKey & b) {
  if (a.GetLength() != b.GetLength()) return a.GetLength() < b.GetLength();
  const int first = a.Mismatch(b);
  return first < a.GetLength() && a[first] < b[first];
}

}  // namespace QVMath_940
