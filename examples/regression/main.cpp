// regression: fits a linear regression to a CSV file and writes it as PMML.
//
//     regression DATA.csv --target NAME [--predictors A,B,...] [--weight NAME] [--pmml FILE]
//                [--predictions FILE] [--statistics]
//
// The order of the work, a file for each step:
//
//     case_reader     CSV records  -> variable list with encoders, encoded cases
//     univariate      cases        -> statistics of each field
//     design          variables    -> the terms of the model
//     linear_model    cases        -> cross-products, sweep, coefficients and their tests
//     report          model        -> tables on the terminal
//     pmml_document   all of it    -> the tree of the document
//
// Exit status: 0, or 2 with one line on standard error when input or output is of no use, or 130
// when the user stopped the program. Files appear only when all went well.

#include <filesystem>
#include <iostream>
#include <new>
#include <optional>

#include "QVCancelInfo.h"
#include "QVWarnings.h"
#include "XMLWrite.h"
#include "case_reader.h"
#include "failure.h"
#include "interrupt.h"
#include "linear_model.h"
#include "options.h"
#include "output_file.h"
#include "pmml_document.h"
#include "report.h"
#include "univariate.h"

namespace regression {
namespace {

constexpr int kExitFailure = 2;
constexpr int kExitStopped = 130;  // as a shell counts a program that SIGINT ended

/// The file for an output that the user asked for; it must not be the data itself.
std::optional<OutputFile> OpenOutput(const std::string & path, const Options & options) {
  if (path.empty()) return std::nullopt;
  std::error_code ignored;
  if (std::filesystem::equivalent(path, options.data, ignored)) {
    throw Failure("cannot write " + path + ": it is the data");
  }
  return std::optional<OutputFile>(std::in_place, path);
}

void Run(const Options & options) {
  Interrupt interrupt;
  QVMath_940::QVCancelInfo cancel(&interrupt);
  QVCommon_940::QVWarnings warnings;
  if (!options.pmml.empty() && options.pmml == options.predictions) {
    throw Failure("both outputs would go to " + options.pmml);
  }
  std::optional<OutputFile> pmml = OpenOutput(options.pmml, options);
  std::optional<OutputFile> predictions = OpenOutput(options.predictions, options);

  Cases cases = ReadCases(options, cancel);
  const std::vector<QVXML_940::QVUniStats> statistics = ComputeStatistics(cases, cancel);
  const LinearModel model = FitModel(cases, cancel, warnings);

  if (pmml) {
    const auto document =
        MakePmmlDocument(cases, model, options.statistics ? &statistics : nullptr, interrupt);
    QVXML_940::WriteTreeUTF8(pmml->Stream(), nullptr, document.get(), true);
    pmml->Stream() << '\n';
  }
  if (predictions) WritePredictions(predictions->Stream(), cases, model);
  if (options.statistics) PrintStatistics(std::cout, cases, statistics);
  PrintModel(std::cout, cases, model);
  PrintWarnings(std::cout, warnings);
  if (!std::cout.flush()) throw Failure("cannot write to standard output");

  StopIfAsked(cancel);
  if (pmml) pmml->Commit();
  if (predictions) predictions->Commit();
}

}  // namespace
}  // namespace regression

int main(int argc, char ** argv) {
  using namespace regression;
  try {
    if (const std::optional<Options> options = ReadOptions(argc, argv)) Run(*options);
    return 0;
  } catch (const Failure & failure) {
    std::cerr << "regression: " << failure.what() << '\n';
    return kExitFailure;
  } catch (const Stopped &) {
    std::cerr << "regression: stopped\n";
    return kExitStopped;
  } catch (const std::bad_alloc &) {
    std::cerr << "regression: not enough memory\n";
    return kExitFailure;
  }
}
