/// The command line.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace regression {

struct Options {
  std::string data;                     ///< the CSV file
  std::string target;                   ///< the column to be explained
  std::vector<std::string> predictors;  ///< the columns that explain it; empty: all others
  std::string weight;                   ///< the column of frequency weights; empty: none
  std::string pmml;                     ///< where the document goes; empty: nowhere
  std::string predictions;              ///< where the predictions go; empty: nowhere
  bool statistics = false;              ///< show and export the statistics of the fields
};

/// Reads the command line. Empty when it asked for help, which is then printed; throws `Failure`
/// when it makes no sense.
std::optional<Options> ReadOptions(int argc, char ** argv);

}  // namespace regression
