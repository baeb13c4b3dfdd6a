#include <string>

#include "QVDisplay.h"
#include "common/display/display_line.h"

namespace QVDisplay_940 {
namespace {

constexpr std::size_t kItemsPerLine = 10;

// The items 0 to n - 1, ten on a line, the lines parted by line ends. `appendItem(lines, i)`
// appends item i. Each line begins with `lineStart`: empty for the items that bring their own
// blank.
template <class AppendItem>
std::string ItemLines(std::size_t n, const AppendItem & appendItem, const char * lineStart = "") {
  std::string lines;
  for (std::size_t i = 0; i < n; ++i) {
    if (i % kItemsPerLine == 0) {
      lines += i == 0 ? "" : "\n";
      lines += lineStart;
    }
    appendItem(lines, i);
  }
  return lines;
}

void AppendNumber(std::string & lines, double value) {
  lines += " ";
  lines += ShortNumber(value);
}

std::string Head(const std::string & label, std::ptrdiff_t size) {
  return label + " (size = " + std::to_string(size) + ")";
}

// The head, and the items on the lines below it when there are any.
void WriteList(const std::string & head, const std::string & itemLines) {
  WriteLine(itemLines.empty() ? head : head + "\n" + itemLines);
}

template <class List, class AppendItem>
void WriteList(const std::string & label, const List & values, const AppendItem & appendItem,
               const char * lineStart = "") {
  WriteList(Head(label, static_cast<std::ptrdiff_t>(values.size())),
            ItemLines(values.size(), appendItem, lineStart));
}

std::string NumberLines(const double * values, int n) {
  if (values == nullptr || n <= 0) {
    return "";
  }
  return ItemLines(static_cast<std::size_t>(n), [values](std::string & lines, std::size_t i) {
    AppendNumber(lines, values[i]);
  });
}

}  // namespace

void DisplayDA(std::string label, const double * values, int n, bool withSize) {
  WriteList(withSize ? Head(label, n) : label, NumberLines(values, n));
}

void DisplayDAS(const double * values, int n) {
  WriteLine(NumberLines(values, n));
}

void DisplayDV(std::string label, const std::vector<double> & values, bool fine) {
  if (!fine) {
    WriteList(label, values,
              [&values](std::string & lines, std::size_t i) { AppendNumber(lines, values[i]); });
    return;
  }
  std::string text = Head(label, static_cast<std::ptrdiff_t>(values.size()));
  for (const double value : values) {
    text += "\n = ";
    text += FullNumber(value);
  }
  WriteLine(text);
}

void DisplayIV(std::string label, const std::vector<int> & values) {
  WriteList(label, values, [&values](std::string & lines, std::size_t i) {
    lines += " ";
    lines += std::to_string(values[i]);
  });
}

void DisplayUV(std::string label, const std::vector<unsigned int> & values) {
  WriteList(label, values, [&values](std::string & lines, std::size_t i) {
    lines += " ";
    lines += std::to_string(values[i]);
  });
}

void DisplayBV(std::string label, const std::vector<bool> & values) {
  WriteList(label, values,
            [&values](std::string & lines, std::size_t i) { lines += values[i] ? " t" : " f"; });
}

void DisplaySV(std::string label, const std::vector<std::string> & values) {
  WriteList(label, values, [&values](std::string & lines, std::size_t i) {
    lines += " \"";
    lines += values[i];
    lines += "\"";
  });
}

void DisplayVPD(std::string label, const std::vector<std::pair<double, double>> & values) {
  WriteList(label, values, [&values](std::string & lines, std::size_t i) {
    AppendNumber(lines, values[i].first);
    AppendNumber(lines, values[i].second);
  });
}

void DisplayVPDI(std::string label, const std::vector<std::pair<double, int>> & values) {
  WriteList(label, values, [&values](std::string & lines, std::size_t i) {
    AppendNumber(lines, values[i].first);
    lines += std::to_string(values[i].second);
  });
}

void DisplayVPII(std::string label, const std::vector<std::pair<int, int>> & values) {
  WriteList(
      label, values,
      [&values](std::string & lines, std::size_t i) {
        lines += "(";
        lines += std::to_string(values[i].first);
        lines += ",";
        lines += std::to_string(values[i].second);
        lines += ") ";
      },
      " ");
}

}  // namespace QVDisplay_940
