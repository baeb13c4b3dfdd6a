/// A key of integers that carries its hash code.
///
///     QVMath_940::QVHashKey key(2);
///     key[0] = 4;
///     key[1] = 17;
///     key.UpdateHashCode();          // the hash is not kept up by writing elements
///     counts[key] += 1.0;            // operator< orders keys: shorter ones first
///
/// Beware: two keys with the same elements are unequal while one of them carries a stale hash. The
/// number added to each element before hashing (`SetElementOffset`) is shared by all keys of the
/// process; set it before any key is hashed, and from one thread only.
///
/// A key owns its elements; copies are deep.
#pragma once

#include "QVExport.h"

namespace QVMath_940 {

class QVCOMMON_API QVHashKey {
 public:
  /// Length 0, hash code 0.
  QVHashKey();

  /// n elements, all 0 (none for a negative n), and their hash code.
  explicit QVHashKey(int n);

  /// Deep copies, the hash code as it stands included.
  QVHashKey(const QVHashKey & other);
  void operator=(const QVHashKey & other);

  ~QVHashKey();

  /// Element i. No bounds test. Writing does not update the hash code.
  int & operator[](int i) { return fElements[i]; }
  const int & operator[](int i) const { return fElements[i]; }

  int GetLength() const { return fLength; }

  /// The stored hash code.
  int GetHashcode() const { return fHashCode; }

  /// Computes the hash code anew: the exclusive or over all i of the (i mod 49)-th odd prime times
  /// (element i + offset), in 32-bit wrap-around arithmetic; 0 for an empty key.
  void UpdateHashCode();

  /// The number added to each element before it is hashed, 0 at first.
  static void SetElementOffset(int offset);
  static int GetElementOffset();

  /// 9377657 less the offset: an element below it cannot overflow 31 bits when it is hashed.
  static int GetElementUpperBound();

  /// Hash codes first, then lengths, then elements.
  bool operator==(const QVHashKey & other) const;

  /// How many leading elements are equal, at most the smaller length.
  int Mismatch(const QVHashKey & other) const;

  /// Shows the elements on one line.
  void Display() const;

 private:
  int ComputeHashCode() const;

  static const int PRIME_FACTOR[49];
  static int ADD_LOWER_BOUND;

  int * fElements = nullptr;
  int fLength = 0;
  int fHashCode = 0;
};

/// The shorter key is the smaller; at equal length the first different element decides.
QVCOMMON_API bool operator<(const QVHashKey & a, const QVHashKey & b);

}  // namespace QVMath_940
