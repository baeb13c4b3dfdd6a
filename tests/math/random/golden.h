/// The sequences of tests/data/random, and draws held against them.
#pragma once

#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

/// The lines of tests/data/random/NAME.txt.
inline std::vector<std::vector<double>> GoldenRows(const std::string & name) {
  std::ifstream file(std::string(QVCOMMON_TEST_DATA) + "/random/" + name + ".txt");
  std::vector<std::vector<double>> rows;
  for (std::string line; std::getline(file, line);) {
    std::istringstream numbers(line);
    rows.emplace_back();
    for (double value; numbers >> value;)
      rows.back().push_back(value);
  }
  EXPECT_EQ(rows.size(), 1000u) << name;
  return rows;
}

/// Every draw equals its line, bit for bit.
template <typename Draw>
void ExpectGolden(const std::string & name, Draw draw) {
  int line = 0;
  for (const std::vector<double> & row : GoldenRows(name)) {
    ++line;
    ASSERT_EQ(row.size(), 1u);
    ASSERT_EQ(draw(), row[0]) << name << " line " << line;
  }
}
