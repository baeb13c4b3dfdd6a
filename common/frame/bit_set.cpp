#include <algorithm>

#include "QVBitSet.h"
#include "QVDisplay.h"
#include "common/display/display_frame.h"

namespace QVMath_940 {
namespace {

int CountTrue(std::vector<bool>::const_iterator first, std::vector<bool>::const_iterator last) {
  return static_cast<int>(std::count(first, last, true));
}

}  // namespace

QVBitSet::QVBitSet(int n) : fbVec(static_cast<std::size_t>(std::max(n, 0)), false) {
}

QVBitSet::QVBitSet(const std::vector<bool> & bits) : fbVec(bits) {
}

// --- Whole sets -------------------------------------------------------------------------------

bool QVBitSet::operator==(const QVBitSet & other) const {
  return fbVec == other.fbVec;
}

bool QVBitSet::operator<(const QVBitSet & other) const {
  return fbVec < other.fbVec;
}

int QVBitSet::Append(bool value) {
  fbVec.push_back(value);
  return Size();
}

void QVBitSet::Clear() {
  std::fill(fbVec.begin(), fbVec.end(), false);
}

void QVBitSet::Resize(int n, bool value) {
  fbVec.assign(static_cast<std::size_t>(std::max(n, 0)), value);
}

bool QVBitSet::Duplicate(int n) {
  if (n < 0) {
    return false;
  }
  const std::size_t size = fbVec.size();
  std::vector<bool> repeated;
  repeated.reserve(size * (static_cast<std::size_t>(n) + 1));
  if (size > 0) {
    for (int copy = 0; copy <= n; ++copy) {
      repeated.insert(repeated.end(), fbVec.begin(), fbVec.end());
    }
  }
  fbVec.swap(repeated);
  return true;
}

// --- Bits -------------------------------------------------------------------------------------

bool QVBitSet::IsRange(int lo, int hi) const {
  return 0 <= lo && lo <= hi && hi < Size();
}

bool QVBitSet::Set(int i, bool value) {
  if (i < 0 || i >= Size()) {
    return false;
  }
  fbVec[static_cast<std::size_t>(i)] = value;
  return true;
}

bool QVBitSet::Set(const std::vector<bool> & bits) {
  fbVec = bits;
  return true;
}

bool QVBitSet::SetRange(int lo, int hi, bool value) {
  if (!IsRange(lo, hi)) {
    return false;
  }
  std::fill(fbVec.begin() + lo, fbVec.begin() + hi + 1, value);
  return true;
}

bool QVBitSet::SetSubset(std::vector<int> indices, bool value) {
  const int size = Size();
  const auto outside = [size](int i) { return i < 0 || i >= size; };
  if (std::any_of(indices.begin(), indices.end(), outside)) {
    return false;
  }
  for (const int i : indices) {
    fbVec[static_cast<std::size_t>(i)] = value;
  }
  return true;
}

// --- Counts -----------------------------------------------------------------------------------

int QVBitSet::InSet() const {
  return CountTrue(fbVec.begin(), fbVec.end());
}

int QVBitSet::InRange(int lo, int hi) const {
  return IsRange(lo, hi) ? CountTrue(fbVec.begin() + lo, fbVec.begin() + hi + 1) : -1;
}

int QVBitSet::InRangeS(int start, int count) const {
  const long long end = static_cast<long long>(start) + count;
  if (start < 0 || count < 0 || end - 1 >= Size()) {
    return -1;
  }
  return count == 0 ? 0 : CountTrue(fbVec.begin() + start, fbVec.begin() + end);
}

bool QVBitSet::IsNewFalse(const QVBitSet & other, int n) const {
  const int end = std::min(n, Size());
  for (int i = 0; i < end; ++i) {
    if (IsIn(i) && !other.IsIn(i)) {
      return true;
    }
  }
  return false;
}

// --- Logic ------------------------------------------------------------------------------------

void QVBitSet::Negate() {
  fbVec.flip();
}

void QVBitSet::DoAND(const QVBitSet & a, const QVBitSet & b) {
  std::vector<bool> both(std::min(a.fbVec.size(), b.fbVec.size()));
  for (std::size_t i = 0; i < both.size(); ++i) {
    both[i] = a.fbVec[i] && b.fbVec[i];
  }
  fbVec.swap(both);
}

void QVBitSet::DoOR(const QVBitSet & a, const QVBitSet & b) {
  std::vector<bool> either(std::min(a.fbVec.size(), b.fbVec.size()));
  for (std::size_t i = 0; i < either.size(); ++i) {
    either[i] = a.fbVec[i] || b.fbVec[i];
  }
  fbVec.swap(either);
}

QVBitSet QVBitSet::GetSubset(int lo, int hi) const {
  const int first = std::max(lo, 0);
  const int last = std::min(hi, Size() - 1);
  if (first > last) {
    return QVBitSet();
  }
  return QVBitSet(std::vector<bool>(fbVec.begin() + first, fbVec.begin() + last + 1));
}

void QVBitSet::Display() const {
  const QVDisplay_940::DisplayFrame frame("QVBitSet");
  QVDisplay_940::DisplayBV("fbVec", fbVec);
}

}  // namespace QVMath_940
