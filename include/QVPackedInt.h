/// Folds sequences of integers with known ranges into as few integers as hold them, in mixed radix,
/// so that a sequence becomes a short `QVHashKey`.
///
///     QVMath_940::QVPackedInt codec(3, 1, {3, 4, 5});  // values 1..3, 1..4, 1..5
///     std::vector<int> packed;
///     codec.Pack({2, 3, 4}, packed, true);             // {43} = (2-1) + (3-1) x 3 + (4-1) x 12
///     std::vector<int> sequence;
///     codec.Unpack(sequence, packed);                  // {2, 3, 4}
///
/// Positions are gathered into one unit as long as the product of their numbers of values stays
/// below `QVHashKey::GetElementUpperBound()`, as their logarithms tell: set the offset of keys
/// first.
///
/// A plain value; different objects may be used from different threads.
#pragma once

#include <vector>

#include "QVExport.h"

namespace QVMath_940 {

class QVCOMMON_API QVPackedInt {
 public:
  /// For sequences of 0 integers.
  QVPackedInt();

  /// As `SetForSequence`, whose result is lost: ask `GetSeqSize`.
  QVPackedInt(int size, int lower, const std::vector<int> & numbers);

  QVPackedInt(const QVPackedInt & other);
  QVPackedInt & operator=(const QVPackedInt & other);

  /// For sequences of `size` integers: position i takes the numbers[i] values from `lower` on.
  /// False when size is below 1, `numbers` is shorter or one of its entries is below 1: the object
  /// is for sequences of 0 integers then.
  bool SetForSequence(int size, int lower, const std::vector<int> & numbers);

  int GetSeqSize() const { return fSeqSize; }
  int GetLowerBound() const { return fLowerBound; }

  /// How many values position i takes; -1 for i out of range.
  int GetNDiffVal(int i) const;

  /// Folds a sequence; `packed` takes one integer for each unit, the first position of a unit being
  /// its lowest digit. With `check` true false, and nothing changed, for a sequence that is too
  /// short or has a value out of range; with `check` false such a sequence is the caller's fault.
  /// An object for 0 integers empties `packed`: true.
  bool Pack(const std::vector<int> & sequence, std::vector<int> & packed, bool check) const;

  /// The sequence again; `sequence` grows to the size of one when it is smaller. False, and nothing
  /// changed, when `packed` has fewer integers than there are units.
  bool Unpack(std::vector<int> & sequence, const std::vector<int> & packed) const;

  void Display() const;

 private:
  bool Setup();
  bool IsInRange(const std::vector<int> & sequence) const;

  int fSeqSize = 0;
  int fLowerBound = 0;
  std::vector<int> fNDiffVal;
  int fNUnits = 0;
  std::vector<int> fUnitIndices;
  std::vector<int> fProducts;  // of the unit's numbers of values, up to and including the position
};

}  // namespace QVMath_940
