#include "options.h"

#include <CLI/CLI.hpp>
#include <iostream>

#include "failure.h"

namespace regression {

std::optional<Options> ReadOptions(int argc, char ** argv) {
  Options options;
  CLI::App app("Fits a linear regression to the cases of a CSV file.", "regression");
  app.add_option("DATA.csv", options.data, "The cases, with the columns' names in the first line")
      ->required();
  app.add_option("--target", options.target, "The column to be explained")
      ->required()
      ->type_name("NAME");
  app.add_option("--predictors", options.predictors,
                 "The columns that explain it; without this option all other columns")
      ->delimiter(',')
      ->allow_extra_args(false)
      ->type_name("A,B,...");
  app.add_option("--weight", options.weight, "The column of frequency weights")->type_name("NAME");
  app.add_option("--pmml", options.pmml, "Write the model to FILE as PMML 4.3")->type_name("FILE");
  app.add_option("--predictions", options.predictions,
                 "Write observed and predicted target of each case to FILE as CSV")
      ->type_name("FILE");
  app.add_flag("--statistics", options.statistics,
               "Show the statistics of the fields, and put them into the document with those of "
               "the model");
  try {
    app.parse(argc, argv);
  } catch (const CLI::Success &) {
    std::cout << app.help();
    return std::nullopt;
  } catch (const CLI::ParseError & error) {
    throw Failure(error.what());
  }
  return options;
}

}  // namespace regression
