#include <algorithm>
#include <cstddef>
#include <string>

#include "QVDisplay.h"
#include "common/display/display_line.h"

namespace QVDisplay_940 {
namespace {

// What stands before the rows: the label when there is one, or the word for no rows.
void WriteRowsLabel(const std::string & label, bool empty) {
  if (empty) {
    WriteLine(label + " <none>");
  } else if (!label.empty()) {
    WriteLine(label);
  }
}

std::string RowLabel(std::size_t row) {
  std::string label = "vec[";
  label += std::to_string(row);
  label += "]";
  return label;
}

// The items of a matrix row: " %g" or " miss" each.
std::string ItemsText(const double * values, std::size_t n) {
  std::string text;
  for (std::size_t j = 0; j < n; ++j) {
    text += " ";
    text += ShortNumber(values[j]);
  }
  return text;
}

std::size_t ToSize(int count) {
  return static_cast<std::size_t>(std::max(count, 0));
}

}  // namespace

std::string RowText(std::size_t row, const double * values, std::size_t n) {
  return "row  " + std::to_string(row) + ": " + ItemsText(values, n);
}

void DisplayRow(int row, const double * values, int n) {
  WriteLine(RowText(ToSize(row), values, values == nullptr ? 0 : ToSize(n)));
}

void DisplayFullRow(int row, const double * values, int n) {
  WriteLine("row " + std::to_string(ToSize(row)) + ": " +
            ItemsText(values, values == nullptr ? 0 : ToSize(n)));
}

void DisplayDVV(std::string label, const std::vector<std::vector<double>> & rows, bool fine) {
  WriteRowsLabel(label, rows.empty());
  for (std::size_t i = 0; i < rows.size(); ++i) {
    DisplayDV(RowLabel(i), rows[i], fine);
  }
}

void DisplaySVV(std::string label, const std::vector<std::vector<std::string>> & rows) {
  WriteRowsLabel(label, rows.empty());
  for (std::size_t i = 0; i < rows.size(); ++i) {
    DisplaySV(RowLabel(i), rows[i]);
  }
}

void DisplayBVV(std::string label, const std::vector<std::vector<bool>> & rows) {
  const std::size_t columns = rows.empty() ? 0 : rows.front().size();
  std::string text = label + " ( number of rows =  " + std::to_string(rows.size()) +
                     ", number of columns =  " + std::to_string(columns) + " )";
  for (const std::vector<bool> & row : rows) {
    text += "\n";
    for (const bool flag : row) {
      text += flag ? " t" : " f";
    }
  }
  WriteLine(text);
}

void DisplayDVTR(std::string label, const std::vector<double> & values, int rows) {
  std::string text = label + " (number of elements = " + std::to_string(values.size()) +
                     ", number of rows = " + std::to_string(rows) + ")";
  const std::size_t wanted = rows > 0 ? static_cast<std::size_t>(rows) : 0;
  std::size_t start = 0;  // of the row in `values`
  for (std::size_t row = 0; row < wanted && start < values.size(); ++row) {
    const std::size_t length = std::min(row + 1, values.size() - start);
    text += "\n";
    text += RowText(row, values.data() + start, length);
    start += length;
  }
  WriteLine(text);
}

void DisplayDVTRS(const std::vector<double> & values, int rows) {
  DisplayDVTR("", values, rows);
}

}  // namespace QVDisplay_940
