#include "QVPackedInt.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

#include "QVHashKey.h"
#include "common/display/display_frame.h"

namespace QVMath_940 {

QVPackedInt::QVPackedInt() = default;

QVPackedInt::QVPackedInt(int size, int lower, const std::vector<int> & numbers) {
  SetForSequence(size, lower, numbers);
}

QVPackedInt::QVPackedInt(const QVPackedInt & other) = default;
QVPackedInt & QVPackedInt::operator=(const QVPackedInt & other) = default;

bool QVPackedInt::SetForSequence(int size, int lower, const std::vector<int> & numbers) {
  fSeqSize = size;
  fLowerBound = lower;
  fNDiffVal = numbers;
  return Setup();
}

// Divides the positions into units. The choice works on logarithms, so that no product can
// overflow while it is being tested.
bool QVPackedInt::Setup() {
  fNUnits = 0;
  fUnitIndices.clear();
  fProducts.clear();
  const bool isUsable =
      fSeqSize > 0 && fNDiffVal.size() >= static_cast<std::size_t>(fSeqSize) &&
      std::all_of(fNDiffVal.begin(), fNDiffVal.end(), [](int number) { return number >= 1; });
  if (!isUsable) {
    fSeqSize = 0;
    fNDiffVal.clear();
    return false;
  }
  const double bound = static_cast<double>(QVHashKey::GetElementUpperBound());
  const double largest = std::log(bound);
  int unit = 0;
  std::int64_t product = 1;
  double sum = 0.0;
  for (std::size_t i = 0; i < static_cast<std::size_t>(fSeqSize); ++i) {
    const int number = fNDiffVal[i];
    const double logNumber = std::log(static_cast<double>(number));
    sum += logNumber;
    // An offset that leaves no bound, or one beyond an int, must not let the product overflow.
    const bool fits = sum <= largest && product * number <= std::numeric_limits<int>::max();
    if (!fits && i > 0) {
      ++unit;
      product = number;
      sum = logNumber;
    } else {
      product *= number;
    }
    fProducts.push_back(static_cast<int>(product));
    fUnitIndices.push_back(unit);
  }
  fNUnits = unit + 1;
  return true;
}

int QVPackedInt::GetNDiffVal(int i) const {
  return i >= 0 && i < static_cast<int>(fNDiffVal.size()) ? fNDiffVal[static_cast<std::size_t>(i)]
                                                          : -1;
}

bool QVPackedInt::IsInRange(const std::vector<int> & sequence) const {
  if (sequence.size() < static_cast<std::size_t>(fSeqSize)) return false;
  for (std::size_t i = 0; i < static_cast<std::size_t>(fSeqSize); ++i) {
    const std::int64_t digit = std::int64_t{sequence[i]} - fLowerBound;
    if (digit < 0 || digit >= fNDiffVal[i]) return false;
  }
  return true;
}

bool QVPackedInt::Pack(const std::vector<int> & sequence, std::vector<int> & packed,
                       bool check) const {
  if (check && !IsInRange(sequence)) return false;
  if (&sequence == &packed) {
    const std::vector<int> copy = sequence;
    return Pack(copy, packed, false);
  }
  packed.resize(static_cast<std::size_t>(fNUnits));
  std::size_t unit = 0;
  std::int64_t code = 0;
  std::int64_t multiplier = 1;
  const std::size_t size = static_cast<std::size_t>(fSeqSize);
  for (std::size_t i = 0; i < size; ++i) {
    code += (std::int64_t{sequence[i]} - fLowerBound) * multiplier;
    if (i + 1 < size && fUnitIndices[i + 1] == static_cast<int>(unit)) {
      multiplier = fProducts[i];
    } else {
      packed[unit] = static_cast<int>(static_cast<std::uint32_t>(code));
      ++unit;
      code = 0;
      multiplier = 1;
    }
  }
  return true;
}

bool QVPackedInt::Unpack(std::vector<int> & sequence, const std::vector<int> & packed) const {
  if (packed.size() < static_cast<std::size_t>(fNUnits)) return false;
  if (&sequence == &packed) {
    const std::vector<int> copy = packed;
    return Unpack(sequence, copy);
  }
  const std::size_t size = static_cast<std::size_t>(fSeqSize);
  if (sequence.size() < size) sequence.resize(size);
  std::int64_t value = 0;
  for (std::size_t i = size; i-- > 0;) {
    const int unit = fUnitIndices[i];
    if (i + 1 == size || fUnitIndices[i + 1] != unit) {
      value = packed[static_cast<std::size_t>(unit)];
    }
    const bool isFirst = i == 0 || fUnitIndices[i - 1] != unit;
    const std::int64_t divisor = isFirst ? 1 : fProducts[i - 1];
    const std::int64_t digit = value / divisor;
    sequence[i] = static_cast<int>(static_cast<std::uint32_t>(fLowerBound + digit));
    value -= digit * divisor;
  }
  return true;
}

void QVPackedInt::Display() const {
  using namespace QVDisplay_940;
  const DisplayFrame frame("QVPackedInt");
  DisplayI("The sequence size", fSeqSize);
  DisplayI("The lower bound", fLowerBound);
  DisplayIV("The vector of numbers of different values", fNDiffVal);
  DisplayI("The number of packed storage units", fNUnits);
  DisplayIV("The vector of packed storage unit indices", fUnitIndices);
  DisplayIV("The vector of products", fProducts);
}

}  // namespace QVMath_940
