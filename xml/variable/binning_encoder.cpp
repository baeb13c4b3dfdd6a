#include "QVBinningEncoder.h"

#include <cstddef>
#include <limits>

#include "QVDisplay.h"
#include "QVMV.h"

namespace QVXML_940 {

using QVCommon_940::QVMV;

namespace {

constexpr double kLargest = std::numeric_limits<double>::max();

// The number of bins that the cuts leave.
int BinsBetween(std::vector<double> const & cuts) {
  return static_cast<int>(cuts.size()) + 1;
}

// The first bin from `start` on with a positive count; the number of bins when there is none.
std::size_t NextFilled(std::vector<double> const & counts, std::size_t start) {
  while (start < counts.size() && !(counts[start] > 0.0))
    ++start;
  return start;
}

// Drops the cells that do not exceed the one kept before them, between the missing cells at the
// front and the first largest double, which both stay with all behind it.
void Compact(std::vector<double> & cuts) {
  std::size_t first = 0;
  while (first < cuts.size() && QVMV::IsMissing(cuts[first]))
    ++first;
  std::size_t kept = first;  // cells kept so far
  std::size_t next = first;
  for (; next < cuts.size() && cuts[next] < kLargest; ++next) {
    if (kept == first || cuts[next] > cuts[kept - 1]) cuts[kept++] = cuts[next];
  }
  cuts.erase(cuts.begin() + static_cast<std::ptrdiff_t>(kept),
             cuts.begin() + static_cast<std::ptrdiff_t>(next));
}

}  // namespace

QVBinningEncoder::QVBinningEncoder() : fNumberOfCategories(0) {
}

QVBinningEncoder::QVBinningEncoder(std::vector<double> const & cuts)
    : fNumberOfCategories(BinsBetween(cuts)), fCutpoints(cuts) {
}

QVBinningEncoder::QVBinningEncoder(double low, double high, int n) : fNumberOfCategories(n) {
  if (n < 2) return;
  const double width = (high - low) / n;
  fCutpoints.reserve(static_cast<std::size_t>(n) - 1);
  for (int i = 1; i < n; ++i)
    fCutpoints.push_back(i * width + low);
}

int QVBinningEncoder::Encode(double x) const {
  if (QVMV::IsMissing(x)) return -1;
  int low = 0;
  int high = fNumberOfCategories - 2;
  int middle = 0;
  double cut = 0.0;  // the last cut tried; 0 when there is none to try
  while (low <= high) {
    middle = low + (high - low) / 2;
    cut = fCutpoints[static_cast<std::size_t>(middle)];
    if (cut == x) return middle;
    if (cut > x) {
      high = middle - 1;
    } else {
      low = middle + 1;
    }
  }
  return cut > x ? middle : middle + 1;
}

int QVBinningEncoder::GetNumberOfCategories() const {
  return fNumberOfCategories;
}

std::vector<double> const & QVBinningEncoder::GetBinningCutpoints() const {
  return fCutpoints;
}

void QVBinningEncoder::SetBinningCutpoints(std::vector<double> const & cuts) {
  fCutpoints = cuts;
  fNumberOfCategories = BinsBetween(fCutpoints);
}

bool QVBinningEncoder::ComputeCutpoints(std::vector<double> const & counts,
                                        std::vector<double> & out) const {
  const std::size_t n = counts.size();
  if (n != fCutpoints.size() + 1 || out.size() != fCutpoints.size()) return false;
  std::size_t filled = 0;
  for (double count : counts)
    filled += count > 0.0 ? 1 : 0;
  if (filled == n || filled < 2) return false;

  // Empty bins at the front: no value lies below their cuts.
  std::size_t current = 0;  // the filled bin last met
  if (counts[0] == 0.0) {
    current = NextFilled(counts, 0);
    for (std::size_t cell = 0; cell < current; ++cell)
      out[cell] = QVMV::Missing();
  }

  // Empty bins between two filled ones: all their cuts move to the middle. The cells written lie
  // behind the cuts still to be read, so `out` may be the encoder's own vector.
  for (std::size_t i = current + 1; i + 1 < n; ++i) {
    if (!(counts[i] > 0.0)) {
      const std::size_t next = NextFilled(counts, i);
      const double merged =
          next < n ? (fCutpoints[next - 1] + fCutpoints[current]) * 0.5 : kLargest;
      for (std::size_t cell = current; cell + 1 < n && cell < next; ++cell)
        out[cell] = merged;
      i = next;
    }
    if (i + 1 < n) current = i;
  }

  // An empty bin at the end.
  if (counts[n - 1] == 0.0) out[n - 2] = kLargest;
  return true;
}

QVBinningEncoder * QVBinningEncoder::CreateRebinned(std::vector<double> const & counts) const {
  std::vector<double> cuts = fCutpoints;
  QVBinningEncoder * const rebinned = Clone();
  if (ComputeCutpoints(counts, cuts)) {
    rebinned->fCutpoints.swap(cuts);
    rebinned->fNumberOfCategories = 1;  // meant so: not the number of bins
  }
  return rebinned;
}

void QVBinningEncoder::AdjustBinning(std::vector<double> const & counts) {
  if (!ComputeCutpoints(counts, fCutpoints)) return;
  Compact(fCutpoints);
  fNumberOfCategories = BinsBetween(fCutpoints);
}

QVBinningEncoder * QVBinningEncoder::Clone() const {
  return new QVBinningEncoder(*this);
}

void QVBinningEncoder::Display() const {
  QVDisplay_940::DisplayI("\tQVBinningEncoder: number of bins", fNumberOfCategories);
  QVDisplay_940::DisplayDV("\t\tCutpoints", fCutpoints, false);
}

}  // namespace QVXML_940
