/// A set of numbered flags: which rows and columns of a matrix are chosen, swept or redundant.
///
///     QVMath_940::QVBitSet inModel(10);          // ten bits, all false
///     inModel.SetRange(2, 4, true);
///     inModel.InSet();                           // 3
///     inModel.IsIn(12);                          // false: outside the set is not an error
///
/// Bits count from 0. An operation that is given a bit outside the set changes nothing and says so
/// in its result.
///
/// Threads: an ordinary value; use one object from one thread at a time.
#pragma once

#include <cstddef>
#include <vector>

#include "QVExport.h"

namespace QVMath_940 {

class QVCOMMON_API QVBitSet {
 public:
  /// The empty set.
  QVBitSet() = default;

  /// `n` bits, all false; a negative `n` gives the empty set.
  explicit QVBitSet(int n);

  /// Size and bits of `bits`.
  QVBitSet(const std::vector<bool> & bits);

  QVBitSet(const QVBitSet &) = default;
  QVBitSet & operator=(const QVBitSet &) = default;

  // --- Whole sets -----------------------------------------------------------------------------

  /// Number of bits.
  int Size() const { return static_cast<int>(fbVec.size()); }

  /// True when the sizes and all bits are equal; two empty sets are equal.
  bool operator==(const QVBitSet & other) const;

  /// Lexicographic order with false before true; a proper prefix is the smaller.
  bool operator<(const QVBitSet & other) const;

  /// Adds one bit at the end; gives the new size.
  int Append(bool value);

  /// Makes all bits false; the size stays.
  void Clear();

  /// Size `n` with EVERY bit set to `value`, the old bits included: the former content is lost.
  /// An `n` below 1 gives the empty set.
  void Resize(int n, bool value);

  /// Appends the former bits `n` more times, so that the size becomes (n + 1) times what it was.
  /// True; false and no change for a negative `n`.
  bool Duplicate(int n);

  // --- Bits -----------------------------------------------------------------------------------

  /// Bit `i`; false outside the set.
  bool IsIn(int i) const { return i >= 0 && i < Size() && fbVec[static_cast<std::size_t>(i)]; }

  /// Sets bit `i`. False and no change outside the set.
  bool Set(int i, bool value);

  /// Takes size and bits of `bits`; true.
  bool Set(const std::vector<bool> & bits);

  /// Sets the bits `lo` to `hi` inclusive. False and no change unless 0 <= lo <= hi < Size().
  bool SetRange(int lo, int hi, bool value);

  /// Sets the listed bits. False and no change at all when any index lies outside the set; true for
  /// an empty list.
  bool SetSubset(std::vector<int> indices, bool value);

  // --- Counts ---------------------------------------------------------------------------------

  /// Number of true bits.
  int InSet() const;

  /// Number of true bits in `lo` to `hi` inclusive; -1 unless 0 <= lo <= hi < Size().
  int InRange(int lo, int hi) const;

  /// Number of true bits among the `count` bits from `start`. The range is tested first: -1 when
  /// `start` or `count` is negative or start + count - 1 is not below Size(). A `count` of 0 that
  /// passes gives 0.
  int InRangeS(int start, int count) const;

  /// True when a bit has become false: some bit among the first min(n, Size()) is true here, and
  /// false or outside the set in `other`.
  bool IsNewFalse(const QVBitSet & other, int n) const;

  // --- Logic ----------------------------------------------------------------------------------

  /// Flips every bit.
  void Negate();

  /// This set becomes a AND b, with the smaller of the two sizes. Either may be this set itself.
  void DoAND(const QVBitSet & a, const QVBitSet & b);

  /// This set becomes a OR b, with the smaller of the two sizes: the longer set's tail is dropped.
  /// Either may be this set itself.
  void DoOR(const QVBitSet & a, const QVBitSet & b);

  /// Bits `lo` to `hi` inclusive as a new set, after `lo` is raised to 0 and `hi` lowered to
  /// Size() - 1; the empty set when `lo` is then above `hi`.
  QVBitSet GetSubset(int lo, int hi) const;

  /// Writes the bits to the display stream.
  void Display() const;

 private:
  bool IsRange(int lo, int hi) const;

  std::vector<bool> fbVec;
};

}  // namespace QVMath_940
