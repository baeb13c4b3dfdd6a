#include "math/matrix/symmetric/tiled_product.h"

#include <algorithm>
#include <cmath>

namespace QVMath_940 {

namespace {

using kernels::ConstRows;
using kernels::Kernels;
using kernels::kTileCols;
using kernels::kTileRows;
using kernels::PackedRow;
using kernels::Rows;

/// Values of k that one packed panel serves: kTileCols times as many stay in the first-level cache.
constexpr int kPanelDepth = 128;

/// Rows of the left factor that stay in the second-level cache while all panels pass over them. A
/// multiple of kTileRows.
constexpr int kBandRows = 256;

/// Columns of A S that are made before they are used. A multiple of kTileCols.
constexpr int kStripCols = 8 * kTileCols;

std::size_t At(int i) {
  return static_cast<std::size_t>(i);
}

/// Rows `rows` that are read along k, turned into a panel; a full panel is written line by line.
void PackAlongRows(const double * const * row, int rows, int count, double * panel,
                   std::ptrdiff_t step) {
  constexpr int kLines = 8;
  if (rows < kTileCols) {
    for (int k = 0; k < count; ++k) {
      std::fill(panel + k * step + rows, panel + k * step + kTileCols, 0.0);
    }
  }
  for (int begin = 0; begin < count; begin += kLines) {
    const int end = std::min(begin + kLines, count);
    for (int j = 0; j < rows; ++j) {
      const double * const from = row[j];
      for (int k = begin; k < end; ++k) {
        panel[k * step + j] = from[k];
      }
    }
  }
}

/// `rows` values that stand side by side, and zeros behind them.
void PackLine(const double * values, int rows, double * line) {
  if (rows == kTileCols) {
    std::copy_n(values, kTileCols, line);
    return;
  }
  std::copy_n(values, rows, line);
  std::fill(line + rows, line + kTileCols, 0.0);
}

/// Pointers to `rows` rows, the last one standing in for those that are missing.
template <typename RowOf>
void PointToRows(int rows, RowOf rowOf, const double ** row) {
  for (int r = 0; r < kTileRows; ++r) {
    row[r] = rowOf(std::min(r, rows - 1));
  }
}

/// A panel, and packed columns, from place k on.
ConstRows PanelFrom(const double * panel, int k) {
  return {panel + At(k) * kTileCols, kTileCols, 0};
}
ConstRows PackedFrom(const double * packed, int k) {
  return {packed + At(k) * kTileRows, kTileRows, 0};
}

}  // namespace

// --- The factors --------------------------------------------------------------------------------

void LeftTiles::PackColumns(int, int, int, int, double *, std::size_t) const {
}

void SymmetricFactor::AddRows(int first, int rows, int kBegin, int kEnd, const double * panel,
                              const double * packed, Rows c) const {
  // Before the tile's diagonal block its rows are read along the storage ..
  const int before = std::min(kEnd, first);
  if (kBegin < before) {
    const double * row[kTileRows];
    PointToRows(
        rows, [&](int r) { return fS.Row(first + r) + kBegin; }, row);
    Kernels().tileByRowsFused(before - kBegin, row, 1, {panel, kTileCols, 0}, c);
  }
  // .. in the block on either side of the diagonal ..
  const int blockBegin = std::max(kBegin, first);
  const int blockEnd = std::min(kEnd, first + rows);
  if (blockBegin < blockEnd) {
    double block[kTileRows * kTileRows] = {};
    for (int k = blockBegin; k < blockEnd; ++k) {
      for (int r = 0; r < rows; ++r) {
        block[(k - blockBegin) * kTileRows + r] = fS.Elem(first + r, k);
      }
    }
    Kernels().tileFused(blockEnd - blockBegin, {block, kTileRows, 0},
                        PanelFrom(panel, blockBegin - kBegin), c);
  }
  // .. and behind it down the columns, a piece of each row.
  const int behind = std::max(kBegin, first + rows);
  if (behind < kEnd) {
    const ConstRows pieces =
        packed != nullptr ? PackedFrom(packed, behind - kBegin) : fS.Column(behind, first);
    Kernels().tileFused(kEnd - behind, pieces, PanelFrom(panel, behind - kBegin), c);
  }
}

void SymmetricFactor::PackColumns(int first, int tiles, int kBegin, int kEnd, double * packed,
                                  std::size_t tileStep) const {
  for (int k = std::max(kBegin, first + kTileRows); k < kEnd; ++k) {
    const double * const row = fS.Row(k) + first;
    double * to = packed + At(k - kBegin) * kTileRows;
    for (int i = 0; i < tiles * kTileRows && first + i + kTileRows <= k; i += kTileRows) {
      std::copy_n(row + i, kTileRows, to);
      to += tileStep;
    }
  }
}

void SymmetricFactor::CopyRow(int i, double * row) const {
  CopySymmetricRow(fS, i, 0, fS.n, row);
}

void SymmetricFactor::PackRows(int first, int rows, int kBegin, int kEnd, double * panel,
                               std::ptrdiff_t step) const {
  const int before = std::min(kEnd, first);
  if (kBegin < before) {
    const double * row[kTileCols];
    for (int j = 0; j < rows; ++j) {
      row[j] = fS.Row(first + j) + kBegin;
    }
    PackAlongRows(row, rows, before - kBegin, panel, step);
  }
  for (int k = std::max(kBegin, first); k < kEnd; ++k) {
    double * const line = panel + (k - kBegin) * step;
    if (k >= first + rows - 1) {
      PackLine(fS.Row(k) + first, rows, line);
      continue;
    }
    for (int j = 0; j < kTileCols; ++j) {
      line[j] = j < rows ? fS.Elem(first + j, k) : 0.0;
    }
  }
}

double SymmetricFactor::Dot(int j, int from, int to, const double * v, bool isFused,
                            double sum) const {
  PackedView s = fS;
  s.isFused = isFused;
  return DotRow(s, j, from, to, Along(v + from), sum);
}

void RowsFactor::AddRows(int first, int rows, int kBegin, int kEnd, const double * panel,
                         const double *, Rows c) const {
  const double * row[kTileRows];
  PointToRows(
      rows, [&](int r) { return Place(first + r, kBegin); }, row);
  Kernels().tileByRowsFused(kEnd - kBegin, row, 1, {panel, kTileCols, 0}, c);
}

void RowsFactor::CopyRow(int i, double * row) const {
  std::copy_n(Place(i, fFirstColumn), fCols, row + fFirstColumn);
}

void RowsFactor::PackRows(int first, int rows, int kBegin, int kEnd, double * panel,
                          std::ptrdiff_t step) const {
  const double * row[kTileCols];
  for (int j = 0; j < rows; ++j) {
    row[j] = Place(first + j, kBegin);
  }
  PackAlongRows(row, rows, kEnd - kBegin, panel, step);
}

double RowsFactor::Dot(int j, int from, int to, const double * v, bool isFused, double sum) const {
  return DotWalks(isFused, to - from, Along(Place(j, from)), Along(v + from), sum);
}

void ColumnsFactor::AddRows(int first, int rows, int kBegin, int kEnd, const double * panel,
                            const double * packed, Rows c) const {
  if (rows == kTileRows) {
    const ConstRows pieces =
        packed != nullptr ? PackedFrom(packed, 0) : ConstRows{Place(first, kBegin), fStride, 0};
    Kernels().tileFused(kEnd - kBegin, pieces, {panel, kTileCols, 0}, c);
    return;
  }
  const double * column[kTileRows];
  PointToRows(
      rows, [&](int r) { return Place(first + r, kBegin); }, column);
  Kernels().tileByRowsFused(kEnd - kBegin, column, fStride, {panel, kTileCols, 0}, c);
}

void ColumnsFactor::PackColumns(int first, int tiles, int kBegin, int kEnd, double * packed,
                                std::size_t tileStep) const {
  for (int k = kBegin; k < kEnd; ++k) {
    const double * const row = Place(first, k);
    double * to = packed + At(k - kBegin) * kTileRows;
    for (int i = 0; i < tiles * kTileRows; i += kTileRows) {
      std::copy_n(row + i, kTileRows, to);
      to += tileStep;
    }
  }
}

void ColumnsFactor::CopyRow(int i, double * row) const {
  for (int k = 0; k < fRows; ++k) {
    row[k] = *Place(i, k);
  }
}

void ColumnsFactor::PackRows(int first, int rows, int kBegin, int kEnd, double * panel,
                             std::ptrdiff_t step) const {
  for (int k = kBegin; k < kEnd; ++k) {
    PackLine(Place(first, k), rows, panel + (k - kBegin) * step);
  }
}

double ColumnsFactor::Dot(int j, int from, int to, const double * v, bool isFused,
                          double sum) const {
  return DotWalks(isFused, to - from, {Place(j, from), fStride, 0}, Along(v + from), sum);
}

void LowerFactor::AddRows(int first, int rows, int kBegin, int kEnd, const double * panel,
                          const double *, Rows c) const {
  const int before = std::min(kEnd, first);
  if (kBegin < before) {
    const double * row[kTileRows];
    PointToRows(
        rows, [&](int r) { return fL.Row(first + r) + kBegin; }, row);
    Kernels().tileByRowsFused(before - kBegin, row, 1, {panel, kTileCols, 0}, c);
  }
  const int blockBegin = std::max(kBegin, first);
  for (int r = 0; r < rows; ++r) {
    const int end = std::min(kEnd, first + r + 1);
    if (blockBegin < end) {
      const double * const line = panel + At(blockBegin - kBegin) * kTileCols;
      Kernels().combineFused(end - blockBegin, fL.Row(first + r) + blockBegin, {line, kTileCols, 0},
                             kTileCols, c.start);
    }
    c.start += c.step;
    c.step += c.grow;
  }
}

void LowerFactor::CopyRow(int i, double * row) const {
  std::copy_n(fL.Row(i), i + 1, row);
}

void BlockLowerTransposedFactor::AddRows(int first, int rows, int kBegin, int kEnd,
                                         const double * panel, const double * packed,
                                         Rows c) const {
  const int block = BlockOf(first);
  const bool isOneBlock = rows == kTileRows && first + rows <= block + fL.n;
  // Rows k of L that reach only some of the tile's columns go one by one.
  Rows row = c;
  for (int r = 0; r < rows; ++r) {
    const int i = first + r;
    const int blockOfRow = BlockOf(i);
    const int end = std::min(kEnd, isOneBlock ? first + rows : blockOfRow + fL.n);
    for (int k = std::max(kBegin, i); k < end; ++k) {
      Kernels().axpyFused(kTileCols, fL.Row(k - blockOfRow)[i - blockOfRow],
                          panel + At(k - kBegin) * kTileCols, row.start);
    }
    row.start += row.step;
    row.step += row.grow;
  }
  const int behind = std::max(kBegin, first + rows);
  const int end = std::min(kEnd, block + fL.n);
  if (isOneBlock && behind < end) {
    const ConstRows pieces = packed != nullptr ? PackedFrom(packed, behind - kBegin)
                                               : fL.Column(behind - block, first - block);
    Kernels().tileFused(end - behind, pieces, PanelFrom(panel, behind - kBegin), c);
  }
}

void BlockLowerTransposedFactor::PackColumns(int first, int tiles, int kBegin, int kEnd,
                                             double * packed, std::size_t tileStep) const {
  for (int t = 0; t < tiles; ++t, first += kTileRows, packed += tileStep) {
    const int block = BlockOf(first);
    const int end = std::min(kEnd, block + fL.n);
    for (int k = std::max(kBegin, first + kTileRows); k < end; ++k) {
      std::copy_n(fL.Row(k - block) + first - block, kTileRows,
                  packed + At(k - kBegin) * kTileRows);
    }
  }
}

void BlockLowerTransposedFactor::CopyRow(int i, double * row) const {
  const int block = BlockOf(i);
  for (int k = i; k < block + fL.n; ++k) {
    row[k] = fL.Row(k - block)[i - block];
  }
}

void PairedRows::PackColumns(int first, int tiles, int kBegin, int kEnd, double * packed,
                             std::size_t tileStep) const {
  const int begin = kBegin / 2 - fFirstColumn;
  const int count = kEnd / 2 - kBegin / 2;
  for (int t = 0; t < tiles; ++t, first += kTileRows, packed += tileStep) {
    for (int r = 0; r < kTileRows; ++r) {
      const double * const a = fA + (first + r) * fStride + begin;
      const double * const b = fB + (first + r) * fStride + begin;
      for (int k = 0; k < count; ++k) {
        packed[2 * k * kTileRows + r] = a[k];
        packed[(2 * k + 1) * kTileRows + r] = b[k];
      }
    }
  }
}

void PairedRows::AddRows(int first, int rows, int kBegin, int kEnd, const double * panel,
                         const double * packed, Rows c) const {
  if (packed != nullptr) {
    Kernels().tileFused(kEnd - kBegin, PackedFrom(packed, 0), {panel, kTileCols, 0}, c);
    return;
  }
  for (int r = 0; r < rows; ++r) {
    const std::ptrdiff_t place = (first + r) * fStride + kBegin / 2 - fFirstColumn;
    for (int k = 0; k < kEnd - kBegin; ++k) {
      Kernels().axpyFused(kTileCols, (k % 2 == 0 ? fA : fB)[place + k / 2],
                          panel + At(k) * kTileCols, c.start);
    }
    c.start += c.step;
    c.step += c.grow;
  }
}

void PairedSymmetric::PackRows(int first, int rows, int kBegin, int kEnd, double * panel,
                               std::ptrdiff_t step) const {
  SymmetricFactor(fC).PackRows(first, rows, kBegin / 2, kEnd / 2, panel, 2 * step);
  SymmetricFactor(fD).PackRows(first, rows, kBegin / 2, kEnd / 2, panel + step, 2 * step);
}

// --- Tiles --------------------------------------------------------------------------------------

namespace {

/// The packed parts of both factors for one range of k: all panels of the right one, and, for one
/// band of rows of the left one, its columns where that pays.
class PackedParts {
 public:
  PackedParts(const LeftTiles & a, int rows, const RightPanels & b, int cols, int depth)
      : fA(a),
        fB(b),
        fCols(cols),
        fDepth(At(std::min(kPanelDepth, depth))),
        fTileStep(kTileRows * (fDepth + 1)) {
    const int panels = (cols + kTileCols - 1) / kTileCols;
    fPanels.resize(At(panels) * kTileCols * fDepth);
    if (a.HasColumns() && cols > kFewCols) {
      fColumns.resize(At(std::min(rows, kBandRows) / kTileRows) * fTileStep);
    }
  }

  void PackRight(int firstCol, int k, int kNext) {
    for (int j = 0; j < fCols; j += kTileCols) {
      fB.PackRows(firstCol + j, std::min(kTileCols, fCols - j), k, kNext,
                  fPanels.data() + At(j) * fDepth, kTileCols);
    }
  }

  void PackBand(int firstRow, int rows, int k, int kNext) {
    if (fColumns.empty()) return;
    fA.PackColumns(firstRow, rows / kTileRows, k, kNext, fColumns.data(), fTileStep);
  }

  /// The panel from column j on.
  const double * Panel(int j) const { return fPanels.data() + At(j) * fDepth; }

  /// The packed columns of `rows` rows, the band's i-th and the next ones.
  const double * Columns(int i, int rows) const {
    return fColumns.empty() || rows < kTileRows ? nullptr
                                                : fColumns.data() + At(i / kTileRows) * fTileStep;
  }

 private:
  /// For as many columns the left factor is read in place.
  static constexpr int kFewCols = 2 * kTileCols;

  const LeftTiles & fA;
  const RightPanels & fB;
  int fCols;
  std::size_t fDepth;
  std::size_t fTileStep;  // no power of two: the tiles of one k shall not share their cache lines
  std::vector<double> fPanels;
  std::vector<double> fColumns;
};

}  // namespace

void AddTilesToRows(const LeftTiles & a, int firstRow, int rows, const RightPanels & b,
                    int firstCol, int cols, int kBegin, int kEnd, double * out) {
  PackedParts parts(a, rows, b, cols, kEnd - kBegin);
  const auto addTile = [&](int band, int i, int j, int k, int kNext) {
    const int height = std::min(kTileRows, rows - i);
    const int width = std::min(kTileCols, cols - j);
    double * const start = out + At(i) * At(cols) + j;
    const double * const columns = parts.Columns(i - band, height);
    if (height == kTileRows && width == kTileCols) {
      a.AddRows(firstRow + i, height, k, kNext, parts.Panel(j), columns, {start, cols, 0});
      return;
    }
    double tile[kTileRows * kTileCols] = {};
    for (int r = 0; r < height; ++r) {
      std::copy_n(start + At(r) * At(cols), width, tile + r * kTileCols);
    }
    a.AddRows(firstRow + i, height, k, kNext, parts.Panel(j), columns, {tile, kTileCols, 0});
    for (int r = 0; r < height; ++r) {
      std::copy_n(tile + r * kTileCols, width, start + At(r) * At(cols));
    }
  };
  for (int k = kBegin; k < kEnd; k += kPanelDepth) {
    const int kNext = std::min(k + kPanelDepth, kEnd);
    parts.PackRight(firstCol, k, kNext);
    for (int band = 0; band < rows; band += kBandRows) {
      const int bandEnd = std::min(band + kBandRows, rows);
      parts.PackBand(firstRow + band, bandEnd - band, k, kNext);
      for (int j = 0; j < cols; j += kTileCols) {
        for (int i = band; i < bandEnd; i += kTileRows) {
          addTile(band, i, j, k, kNext);
        }
      }
    }
  }
}

void AddTilesToTriangle(const LeftTiles & a, const RightPanels & b, int n, int kBegin, int kEnd,
                        double * out) {
  PackedParts parts(a, n, b, n, kEnd - kBegin);
  const auto addTile = [&](int band, int i, int j, int k, int kNext) {
    const int height = std::min(kTileRows, n - i);
    const double * const columns = parts.Columns(i - band, height);
    if (height == kTileRows && i >= j + kTileCols) {
      a.AddRows(i, height, k, kNext, parts.Panel(j), columns, {out + PackedRow(i) + j, i + 1, 1});
      return;
    }
    // At the diagonal, and at the end, only a part of the tile is stored.
    const auto widthOf = [&](int r) { return std::min(kTileCols, i + r - j + 1); };
    double tile[kTileRows * kTileCols] = {};
    for (int r = 0; r < height; ++r) {
      std::copy_n(out + PackedRow(i + r) + j, widthOf(r), tile + r * kTileCols);
    }
    a.AddRows(i, height, k, kNext, parts.Panel(j), columns, {tile, kTileCols, 0});
    for (int r = 0; r < height; ++r) {
      std::copy_n(tile + r * kTileCols, widthOf(r), out + PackedRow(i + r) + j);
    }
  };
  for (int k = kBegin; k < kEnd; k += kPanelDepth) {
    const int kNext = std::min(k + kPanelDepth, kEnd);
    parts.PackRight(0, k, kNext);
    for (int band = 0; band < n; band += kBandRows) {
      const int bandEnd = std::min(band + kBandRows, n);
      parts.PackBand(band, bandEnd - band, k, kNext);
      for (int j = 0; j < bandEnd; j += kTileCols) {
        // A multiple of kTileCols is one of kTileRows.
        for (int i = std::max(band, j); i < bandEnd; i += kTileRows) {
          addTile(band, i, j, k, kNext);
        }
      }
    }
  }
}

// --- Whole products -----------------------------------------------------------------------------

void MultiplyToRows(const LeftFactor & a, int rows, const RightFactor & b, int cols, int inner,
                    bool isFused, double * out) {
  if (isFused) {
    AddTilesToRows(a, 0, rows, b, 0, cols, 0, inner, out);
    return;
  }
  std::vector<double> left(At(inner));
  for (int i = 0; i < rows; ++i) {
    const Span span = a.StoredSpan(i);
    a.CopyRow(i, left.data());
    for (int j = 0; j < cols; ++j, ++out) {
      *out = b.Dot(j, span.begin, span.end, left.data(), false, *out);
    }
  }
}

void MultiplyToTriangle(const LeftFactor & a, const RightFactor & b, int n, int inner, bool isFused,
                        double * out) {
  if (isFused) {
    AddTilesToTriangle(a, b, n, 0, inner, out);
    return;
  }
  std::vector<double> left(At(inner));
  for (int i = 0; i < n; ++i) {
    const Span span = a.StoredSpan(i);
    a.CopyRow(i, left.data());
    for (int j = 0; j <= i; ++j, ++out) {
      *out = b.Dot(j, span.begin, span.end, left.data(), false, *out);
    }
  }
}

namespace {

/// Row i of A S.
void MultiplyRow(const LeftFactor & a, int i, const SymmetricFactor & s, int inner, bool isFused,
                 double * left, double * product) {
  const Span span = a.StoredSpan(i);
  a.CopyRow(i, left);
  for (int k = 0; k < inner; ++k) {
    product[k] = s.Dot(k, span.begin, span.end, left, isFused, 0.0);
  }
}

}  // namespace

void MultiplyBothSides(const LeftFactor & left, const RightFactor & right, int n,
                       const PackedView & s, double * out) {
  const SymmetricFactor middle(s);
  if (!s.isFused) {
    std::vector<double> row(At(s.n));
    std::vector<double> product(At(s.n));
    for (int i = 0; i < n; ++i) {
      MultiplyRow(left, i, middle, s.n, false, row.data(), product.data());
      for (int j = 0; j <= i; ++j, ++out) {
        *out = right.Dot(j, 0, s.n, product.data(), false, *out);
      }
    }
    return;
  }
  // A strip of columns of T = A S at a time, which adds its products to all sums.
  std::vector<double> strip(At(n) * At(std::min(kStripCols, s.n)));
  for (int k = 0; k < s.n; k += kStripCols) {
    const int cols = std::min(kStripCols, s.n - k);
    std::fill_n(strip.begin(), At(n) * At(cols), 0.0);
    AddTilesToRows(left, 0, n, middle, k, cols, 0, s.n, strip.data());
    AddTilesToTriangle(RowsFactor(strip.data(), cols, cols, k), right, n, k, k + cols, out);
  }
}

void MultiplyBothSides(const LeftFactor & left, int n, const PackedView & s, double * out) {
  const SymmetricFactor middle(s);
  if (!s.isFused) {
    std::vector<double> row(At(s.n));
    std::vector<double> product(At(s.n));
    for (int j = 0; j < n; ++j) {
      MultiplyRow(left, j, middle, s.n, false, row.data(), product.data());
      for (int i = j; i < n; ++i) {
        const Span span = left.StoredSpan(i);
        left.CopyRow(i, row.data());
        double & element = out[PackedRow(i) + At(j)];
        element = DotWalks(false, span.end - span.begin, Along(row.data() + span.begin),
                           Along(product.data() + span.begin), element);
      }
    }
    return;
  }
  std::vector<double> strip(At(n) * At(std::min(kStripCols, s.n)));
  for (int k = 0; k < s.n; k += kStripCols) {
    const int cols = std::min(kStripCols, s.n - k);
    std::fill_n(strip.begin(), At(n) * At(cols), 0.0);
    AddTilesToRows(left, 0, n, middle, k, cols, 0, s.n, strip.data());
    AddTilesToTriangle(left, RowsFactor(strip.data(), cols, cols, k), n, k, k + cols, out);
  }
}

namespace {

bool IsFinite(const PackedView & s) {
  const std::size_t size = PackedRow(s.n);
  return std::all_of(s.a, s.a + size, [](double x) { return std::isfinite(x); });
}

void MultiplyBetweenByRows(const PackedView & m, const PackedView & g, const PackedView & n,
                           double * out) {
  const SymmetricFactor gFactor(g);
  std::vector<double> row(At(g.n));
  std::vector<double> mg(At(g.n));
  std::vector<double> ng(At(g.n));
  for (int i = 0; i < g.n; ++i) {
    MultiplyRow(SymmetricFactor(m), i, gFactor, g.n, g.isFused, row.data(), mg.data());
    MultiplyRow(SymmetricFactor(n), i, gFactor, g.n, g.isFused, row.data(), ng.data());
    for (int k = 0; k < g.n; ++k) {
      for (int j = 0; j <= i && mg[At(k)] != 0.0; ++j) {
        out[j] = AddProduct(g.isFused, mg[At(k)], n.Elem(k, j), out[j]);
      }
      for (int j = 0; j <= i && ng[At(k)] != 0.0; ++j) {
        out[j] = AddProduct(g.isFused, ng[At(k)], m.Elem(k, j), out[j]);
      }
    }
    out += i + 1;
  }
}

}  // namespace

void MultiplyBetween(const PackedView & m, const PackedView & g, const PackedView & n,
                     double * out) {
  // A zero that is left out shows only beside an infinity or NaN.
  if (!g.isFused || !IsFinite(m) || !IsFinite(n)) {
    MultiplyBetweenByRows(m, g, n, out);
    return;
  }
  const SymmetricFactor gFactor(g);
  const PairedSymmetric right(n, m);
  const std::size_t most = At(g.n) * At(std::min(kStripCols, g.n));
  std::vector<double> mg(most);
  std::vector<double> ng(most);
  for (int k = 0; k < g.n; k += kStripCols) {
    const int cols = std::min(kStripCols, g.n - k);
    std::fill_n(mg.begin(), At(g.n) * At(cols), 0.0);
    std::fill_n(ng.begin(), At(g.n) * At(cols), 0.0);
    AddTilesToRows(SymmetricFactor(m), 0, g.n, gFactor, k, cols, 0, g.n, mg.data());
    AddTilesToRows(SymmetricFactor(n), 0, g.n, gFactor, k, cols, 0, g.n, ng.data());
    AddTilesToTriangle(PairedRows(mg.data(), ng.data(), cols, k), right, g.n, 2 * k, 2 * (k + cols),
                       out);
  }
}

}  // namespace QVMath_940
