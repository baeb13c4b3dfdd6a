#include "math/matrix/symmetric/sweep_panel.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <new>
#include <stdexcept>
#include <vector>

#include "math/kernels/kernel_table.h"

namespace QVMath_940 {

namespace {

using kernels::ConstRows;
using kernels::kTileCols;
using kernels::kTileRows;
using kernels::PackedRow;
using kernels::Rows;

/// Pivots in a panel: more of them spare passes over the triangle, fewer spare work on the panel.
int PanelWidth(int n) {
  if (n < 160) {
    return 16;
  }
  return n < 400 ? 32 : 64;
}

/// Pivots after which the panel's columns to come are brought up to date.
constexpr int kGroup = 8;

/// Rows of the triangle that one packed part of the panel serves.
constexpr int kBandRows = 256;

class SweepPanel {
 public:
  SweepPanel(double * a, int n, const PivotList & list, QVBitSet & swept, LogPivots * logPivots)
      : fA(a),
        fN(n),
        fWidth(PanelWidth(n)),
        fList(list),
        fSwept(swept),
        fLogPivots(logPivots),
        fDiagonal(static_cast<std::size_t>(n)),
        fIsSwept(static_cast<std::size_t>(n)),
        fPlaceInPanel(static_cast<std::size_t>(n), kNoPivot),
        fB(static_cast<std::size_t>(n) * static_cast<std::size_t>(fWidth)),
        fC(static_cast<std::size_t>(n) * static_cast<std::size_t>(fWidth)),
        fSweptRef(static_cast<std::size_t>(n)),
        fTileB(static_cast<std::size_t>(fWidth) * kTileRows),
        fTileC(static_cast<std::size_t>(fWidth) * kTileRows),
        fBandB(static_cast<std::size_t>(fWidth) * kBandRows),
        fBlockC(static_cast<std::size_t>(fWidth) * kTileCols),
        fPanelRows(static_cast<std::size_t>(fWidth)),
        fPivots(static_cast<std::size_t>(fWidth)),
        fWeights(static_cast<std::size_t>(fWidth)) {}

  void Run() {
    for (int i = 0; i < fN; ++i) {
      fDiagonal[At(i)] = fA[PackedRow(i) + At(i)];
      MarkSwept(i, fSwept.IsIn(i));
    }
    int done = 0;
    while (done < fList.count) {
      const int taken = TakeDistinctRows(done);
      const int * const rows = fPanelRows.data();
      GatherColumns(rows, taken);
      fAccepted = 0;
      fGroupStart = 0;
      for (int q = 0; q < taken; ++q) {
        if (fAccepted - fGroupStart == kGroup) {
          CloseGroup(rows, q, taken);
        }
        TryPivot(rows[q], q);
      }
      if (fAccepted > 0) {
        UpdateTriangle();
        FinishPivotColumns();
        ScatterPivotColumns();
      }
      for (int t = 0; t < fAccepted; ++t) {
        fPlaceInPanel[At(fPivots[At(t)])] = kNoPivot;
      }
      done += taken;
    }
  }

 private:
  static constexpr int kNoPivot = -1;

  static std::size_t At(int i) { return static_cast<std::size_t>(i); }
  double * B(int t) { return fB.data() + At(t) * At(fN); }
  double * C(int t) { return fC.data() + At(t) * At(fN); }
  double * Row(int i) { return fA + PackedRow(i); }
  ConstRows RowsOfB(int t, int from) { return {B(t) + from, fN, 0}; }
  ConstRows RowsOfC(int t, int from) { return {C(t) + from, fN, 0}; }

  /// Fills the panel with rows of the list, from place `first` on, up to one that it has already.
  int TakeDistinctRows(int first) {
    const int most = std::min(fWidth, fList.count - first);
    const auto begin = fPanelRows.begin();
    int taken = 0;
    for (; taken < most; ++taken) {
      const int k = fList.Row(first + taken);
      if (std::find(begin, begin + taken, k) != begin + taken) {
        break;
      }
      fPanelRows[At(taken)] = k;
    }
    return taken;
  }

  /// Copies the columns of the panel's rows, as they stand in the triangle, to the rows of C.
  void GatherColumns(const int * rows, int count) {
    int highest = 0;
    for (int q = 0; q < count; ++q) {
      std::copy_n(Row(rows[q]), rows[q], C(q));
      highest = std::max(highest, rows[q]);
    }
    const int whole = FirstWholeGroup(highest);
    for (int q = 0; q < count; ++q) {
      for (int i = rows[q] + 1; i < whole; ++i) {
        C(q)[i] = Row(i)[rows[q]];
      }
    }
    for (int group = whole; group < fN; group += kTileRows) {
      double * row[kTileRows];
      const int height = PointToRows(group, row);
      for (int q = 0; q < count; ++q) {
        double * const c = C(q) + group;
        for (int r = 0; r < height; ++r) {
          c[r] = row[r][rows[q]];
        }
      }
    }
  }

  /// The first of the groups of kTileRows rows that lie below row `highest` as a whole.
  int FirstWholeGroup(int highest) const {
    return std::min((highest / kTileRows + 1) * kTileRows, fN);
  }

  int PointToRows(int group, double ** row) {
    const int height = std::min(kTileRows, fN - group);
    for (int r = 0; r < height; ++r) {
      row[r] = Row(group + r);
    }
    return height;
  }

  /// Brings the pivot's column up to date, tests the pivot, and remembers its two vectors. The
  /// column stands in row `place` of C and holds the pivots before `fGroupStart` already.
  void TryPivot(int k, int place) {
    const int t = fAccepted;
    double * const column = B(t);
    std::copy(C(place), C(place) + fN, column);
    AddPivots(fGroupStart, t, k, column);
    RestartAtPivots(fGroupStart, t, k, column);
    const double a = fDiagonal[At(k)];
    column[k] = a;
    const bool wasSwept = fIsSwept[At(k)] != 0;
    if (!wasSwept && !PassesTests(column, k, a)) {
      return;
    }
    const double p = -1.0 / a;
    kernels::Kernels().sweepVectorsFused(At(fN), std::fabs(p), p < 0.0, column, C(t),
                                         fDiagonal.data());
    fDiagonal[At(k)] = p;
    fPivots[At(t)] = k;
    fPlaceInPanel[At(k)] = t;
    fAccepted = t + 1;
    if (fSwept.Set(k, !wasSwept)) {
      MarkSwept(k, !wasSwept);
    }
    if (fLogPivots != nullptr) {
      fLogPivots->Add(a, p);
    }
  }

  void MarkSwept(int i, bool swept) {
    fIsSwept[At(i)] = swept;
    fSweptRef[At(i)] = swept ? fList.ref[i] : 0.0;
  }

  /// Adds the products of pivots `first` to `last` - 1 to a column k: above the diagonal element
  /// (k, j) takes b from row k, below it element (i, k) takes c from row k.
  void AddPivots(int first, int last, int k, double * column) {
    const int count = last - first;
    for (int m = 0; m < count; ++m) {
      fWeights[At(m)] = B(first + m)[k];
    }
    kernels::Kernels().combineFused(count, fWeights.data(), RowsOfC(first, 0), At(k), column);
    for (int m = 0; m < count; ++m) {
      fWeights[At(m)] = C(first + m)[k];
    }
    kernels::Kernels().combineFused(count, fWeights.data(), RowsOfB(first, k + 1), At(fN - k - 1),
                                    column + k + 1);
  }

  /// Where column k crosses one of the pivots `first` to `last` - 1, that pivot's sweep has put a
  /// new value, and only the later ones have added to it.
  void RestartAtPivots(int first, int last, int k, double * column) {
    for (int m = first; m < last; ++m) {
      const int i = fPivots[At(m)];
      double value = C(m)[k];
      for (int later = m + 1; later < last; ++later) {
        value = i > k ? std::fma(B(later)[i], C(later)[k], value)
                      : std::fma(B(later)[k], C(later)[i], value);
      }
      column[i] = value;
    }
  }

  /// Adds the pivots since `fGroupStart` to the panel's columns that are still to come, in tiles.
  void CloseGroup(const int * rows, int from, int to) {
    for (int q = from; q < to; q += kTileRows) {
      AddPivotsToColumns(fGroupStart, fAccepted, rows + q, q, std::min(kTileRows, to - q));
    }
    for (int q = from; q < to; ++q) {
      RestartAtPivots(fGroupStart, fAccepted, rows[q], C(q));
    }
    fGroupStart = fAccepted;
  }

  /// Adds the products of pivots `first` to `last` - 1 to up to eight columns of the panel, those
  /// of rows k[0], k[1], ..., which stand in the rows of C from `place` on.
  void AddPivotsToColumns(int first, int last, const int * k, int place, int columns) {
    const int lowest = *std::min_element(k, k + columns);
    const int highest = *std::max_element(k, k + columns);
    if (columns < kTileRows) {
      for (int r = 0; r < columns; ++r) {
        AddPivots(first, last, k[r], C(place + r));
      }
      return;
    }
    const int above = lowest / kTileCols * kTileCols;
    const int below = fN - (fN - highest - 1) / kTileCols * kTileCols;
    const int count = last - first;
    for (int m = 0; m < count; ++m) {
      for (int r = 0; r < kTileRows; ++r) {
        fTileB[At(m * kTileRows + r)] = B(first + m)[k[r]];
        fTileC[At(m * kTileRows + r)] = C(first + m)[k[r]];
      }
    }
    for (int i = 0; i < above; i += kTileCols) {
      kernels::Kernels().tileFused(count, {fTileB.data(), kTileRows, 0}, RowsOfC(first, i),
                                   {C(place) + i, fN, 0});
    }
    for (int i = below; i < fN; i += kTileCols) {
      kernels::Kernels().tileFused(count, {fTileC.data(), kTileRows, 0}, RowsOfB(first, i),
                                   {C(place) + i, fN, 0});
    }
    for (int r = 0; r < kTileRows; ++r) {
      AddPivotsBetween(first, count, k[r], r, above, below, C(place + r));
    }
  }

  /// The rest of `AddPivotsToColumns` for one column: rows `above` to `below` - 1.
  void AddPivotsBetween(int first, int count, int k, int r, int above, int below, double * column) {
    for (int m = 0; m < count; ++m) {
      fWeights[At(m)] = fTileB[At(m * kTileRows + r)];
    }
    kernels::Kernels().combineFused(count, fWeights.data(), RowsOfC(first, above), At(k - above),
                                    column + above);
    for (int m = 0; m < count; ++m) {
      fWeights[At(m)] = fTileC[At(m * kTileRows + r)];
    }
    kernels::Kernels().combineFused(count, fWeights.data(), RowsOfB(first, k + 1),
                                    At(below - k - 1), column + k + 1);
  }

  bool PassesTests(const double * column, int k, double a) const {
    if (!PivotIsLarge(a, fList.tol, fList.ref[k])) {
      return false;
    }
    // Rows that do not stand swept have 0.0 for their reference here and pass by themselves, but
    // for an overflow on the way: then the rows are tested one by one.
    if (kernels::Kernels().sweptDiagonalsAbove(At(fN), fDiagonal.data(), column, a, fList.tol,
                                               fSweptRef.data(), kLowestScaledDiagonal)) {
      return true;
    }
    for (int j = 0; j < fN; ++j) {
      if (fIsSwept[At(j)] != 0 &&
          !EarlierPivotStays(fDiagonal[At(j)], column[j], a, fList.tol, fList.ref[j])) {
        return false;
      }
    }
    return true;
  }

  // --- the pass over the triangle ---------------------------------------------------------------

  /// Adds the accepted pivots' products to all rows. Rows and columns of the pivots themselves get
  /// their values later; where they lie side by side, they are left out here.
  void UpdateTriangle() {
    int gapStart = fN;
    int gapEnd = fN;
    if (PivotsAreConsecutive()) {
      gapStart = fPivots[0];
      gapEnd = gapStart + fAccepted;
    }
    UpdateRows(0, gapStart, gapStart, gapEnd);
    UpdateRows(gapEnd, fN, gapStart, gapEnd);
  }

  bool PivotsAreConsecutive() const {
    for (int t = 1; t < fAccepted; ++t) {
      if (fPivots[At(t)] != fPivots[At(t - 1)] + 1) {
        return false;
      }
    }
    return true;
  }

  void UpdateRows(int first, int last, int gapStart, int gapEnd) {
    for (int band = first; band < last; band += kBandRows) {
      const int bandEnd = std::min(band + kBandRows, last);
      PackBand(band, bandEnd);
      UpdateBand(band, bandEnd, 0, std::min(gapStart, bandEnd));
      UpdateBand(band, bandEnd, gapEnd, bandEnd);
    }
  }

  /// The b factors of a band of rows, tile by tile, pivots within.
  void PackBand(int band, int bandEnd) {
    double * out = fBandB.data();
    for (int i = band; i < bandEnd; i += kTileRows) {
      PackTile<kTileRows>(B(0) + i, std::min(kTileRows, bandEnd - i), out);
      out += At(fAccepted) * At(kTileRows);
    }
  }

  /// Copies `count` values of each accepted pivot's vector behind one another, filled up to kSize
  /// with zeros; the vectors stand fN apart.
  template <int kSize>
  void PackTile(const double * from, int count, double * out) const {
    if (count < kSize) {
      std::fill_n(out, At(fAccepted) * At(kSize), 0.0);
      for (int t = 0; t < fAccepted; ++t, from += fN, out += kSize) {
        std::copy_n(from, count, out);
      }
      return;
    }
    for (int t = 0; t < fAccepted; ++t, from += fN, out += kSize) {
      std::memcpy(out, from, kSize * sizeof(double));
    }
  }

  void UpdateBand(int band, int bandEnd, int firstColumn, int lastColumn) {
    for (int j = firstColumn; j < lastColumn; j += kTileCols) {
      const int width = std::min(kTileCols, lastColumn - j);
      PackTile<kTileCols>(C(0) + j, width, fBlockC.data());
      const int firstTile = std::max(0, (j - band) / kTileRows);
      for (int i = band + firstTile * kTileRows; i < bandEnd; i += kTileRows) {
        const ConstRows b{fBandB.data() + At(i - band) * At(fAccepted), kTileRows, 0};
        const ConstRows c{fBlockC.data(), kTileCols, 0};
        if (width == kTileCols && j + kTileCols <= i + 1 && i + kTileRows <= bandEnd) {
          kernels::Kernels().tileFused(fAccepted, b, c, {Row(i) + j, i + 1, 1});
        } else {
          UpdateEdgeTile(b, c, i, std::min(kTileRows, bandEnd - i), j, width);
        }
      }
    }
  }

  /// A tile that the diagonal or the last row or column cuts, by way of a whole one.
  void UpdateEdgeTile(ConstRows b, ConstRows c, int i, int height, int j, int width) {
    double tile[kTileRows * kTileCols] = {};
    for (int r = 0; r < height; ++r) {
      const int stored = std::clamp(i + r + 1 - j, 0, width);
      std::copy_n(Row(i + r) + j, stored, tile + r * kTileCols);
    }
    kernels::Kernels().tileFused(fAccepted, b, c, {tile, kTileCols, 0});
    for (int r = 0; r < height; ++r) {
      const int stored = std::clamp(i + r + 1 - j, 0, width);
      std::copy_n(tile + r * kTileCols, stored, Row(i + r) + j);
    }
  }

  // --- the pivots' own rows and columns ---------------------------------------------------------

  /// Turns each pivot's scaled column into its final one: the later pivots' products are added.
  void FinishPivotColumns() {
    for (int group = 0; group < fAccepted; group += kTileRows) {
      const int groupEnd = std::min(group + kTileRows, fAccepted);
      for (int t = group; t < groupEnd; ++t) {
        AddPivots(t + 1, groupEnd, fPivots[At(t)], C(t));
      }
      if (groupEnd < fAccepted) {
        AddPivotsToColumns(groupEnd, fAccepted, fPivots.data() + group, group, kTileRows);
      }
    }
  }

  /// Writes them back. Where two pivots meet, the later one's value stands: the rows are written in
  /// the order of the pivots, and then the columns where the row is no later pivot.
  void ScatterPivotColumns() {
    int highest = 0;
    for (int t = 0; t < fAccepted; ++t) {
      const int k = fPivots[At(t)];
      std::copy_n(C(t), k, Row(k));
      Row(k)[k] = fDiagonal[At(k)];
      highest = std::max(highest, k);
    }
    const int whole = FirstWholeGroup(highest);
    for (int t = 0; t < fAccepted; ++t) {
      const int k = fPivots[At(t)];
      for (int i = k + 1; i < whole; ++i) {
        if (fPlaceInPanel[At(i)] < t) {
          Row(i)[k] = C(t)[i];
        }
      }
    }
    for (int group = whole; group < fN; group += kTileRows) {
      double * row[kTileRows];
      const int height = PointToRows(group, row);
      for (int t = 0; t < fAccepted; ++t) {
        const int k = fPivots[At(t)];
        const double * const c = C(t) + group;
        for (int r = 0; r < height; ++r) {
          row[r][k] = c[r];
        }
      }
    }
  }

  double * fA;
  int fN;
  int fWidth;
  PivotList fList;
  QVBitSet & fSwept;
  LogPivots * fLogPivots;
  int fAccepted = 0;
  int fGroupStart = 0;            // the panel's columns to come hold the pivots before this one
  std::vector<double> fDiagonal;  // current after each pivot
  std::vector<char> fIsSwept;
  std::vector<int> fPlaceInPanel;  // of each row: its number among the accepted pivots
  std::vector<double> fB;          // row t: the signed column of pivot t
  std::vector<double> fC;          // row t: the scaled column of pivot t
  std::vector<double> fSweptRef;   // the reference of the swept rows, 0.0 of the others
  std::vector<double> fTileB;
  std::vector<double> fTileC;
  std::vector<double> fBandB;
  std::vector<double> fBlockC;
  std::vector<int> fPanelRows;
  std::vector<int> fPivots;  // those of them that were accepted, in order
  std::vector<double> fWeights;
};

}  // namespace

bool SweepByPanels(double * a, int n, const PivotList & list, QVBitSet & swept,
                   LogPivots * logPivots) {
  try {
    SweepPanel(a, n, list, swept, logPivots).Run();
    return true;
  } catch (const std::bad_alloc &) {
    return false;
  } catch (const std::length_error &) {
    return false;
  }
}

}  // namespace QVMath_940
