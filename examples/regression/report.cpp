#include "report.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <ostream>
#include <string>

#include "IQVEncoder.h"
#include "QVMV.h"
#include "number_text.h"

namespace regression {

using QVCommon_940::QVMV;
using QVCommon_940::QVStatus;
using QVCommon_940::QVWarnings;
using namespace QVXML_940;

namespace {

/// `digits` significant digits, or a point for the missing value.
std::string Text(double value, int digits = 7) {
  if (QVMV::IsMissing(value)) return ".";
  char text[64];
  std::snprintf(text, sizeof text, "%.*g", digits, value);
  return text;
}

/// A count of cases or degrees of freedom, with all its digits.
std::string CountText(double value) {
  return Text(value, 15);
}

/// A probability; a very small one is only told to be so.
std::string ProbabilityText(double p) {
  constexpr double kSmallest = 1e-16;
  return !QVMV::IsMissing(p) && p < kSmallest ? "<1e-16" : Text(p, 4);
}

/// Characters, not bytes: the bytes that continue a character of UTF-8 do not count.
std::size_t WidthOf(const std::string & text) {
  return static_cast<std::size_t>(
      std::count_if(text.begin(), text.end(), [](char c) { return (c & 0xC0) != 0x80; }));
}

/// Rows of cells; the first column to the left, the others to the right.
class Table {
 public:
  void Add(std::vector<std::string> row) { fRows.push_back(std::move(row)); }

  void Print(std::ostream & out) const {
    std::vector<std::size_t> widths;
    for (const auto & row : fRows) {
      if (widths.size() < row.size()) widths.resize(row.size(), 0);
      for (std::size_t i = 0; i < row.size(); ++i)
        widths[i] = std::max(widths[i], WidthOf(row[i]));
    }
    for (const auto & row : fRows) {
      for (std::size_t i = 0; i < row.size(); ++i) {
        const std::string filling(widths[i] - WidthOf(row[i]), ' ');
        if (i == 0) {
          out << "  " << row[i] << (row.size() > 1 ? filling : "");
        } else {
          out << "  " << filling << row[i];
        }
      }
      out << '\n';
    }
  }

 private:
  std::vector<std::vector<std::string>> fRows;
};

void PrintCaseCounts(std::ostream & out, const QVVarList & variables) {
  Table table;
  table.Add({"Cases used", CountText(variables.GetUnWeightedCount())});
  table.Add({"Cases dropped", CountText(variables.GetDroppedCount())});
  if (const IQVVariable * weight = variables.GetFreqWeightVariable()) {
    table.Add({"  their weight missing or not above 0", CountText(variables.GetBadWeightCount())});
    table.Add({"Sum of the weights (" + weight->GetVariableName() + ")",
               CountText(variables.GetWeightedCount())});
  }
  table.Print(out);
}

void PrintCoefficients(std::ostream & out, const LinearModel & model) {
  Table table;
  table.Add({"Term", "Estimate", "Std. error", "t", "P(>|t|)"});
  for (const Coefficient & c : model.coefficients) {
    if (c.redundant) {
      table.Add({c.name, "0", "redundant", ".", "."});
    } else {
      table.Add({c.name, Text(c.estimate), Text(c.stdError), Text(c.t, 5),
                 ProbabilityText(c.significance)});
    }
  }
  table.Print(out);
}

void PrintAnalysisOfVariance(std::ostream & out, const LinearModel & model) {
  const double modelMS = model.modelDf > 0.0 ? model.modelSS / model.modelDf : QVMV::Missing();
  const double totalDf = model.modelDf + model.residualDf;
  Table table;
  table.Add({"Source", "Sum of squares", "df", "Mean square", "F", "P(>F)"});
  table.Add({"Model", Text(model.modelSS), CountText(model.modelDf), Text(modelMS),
             Text(model.f, 5), ProbabilityText(model.significance)});
  table.Add(
      {"Residual", Text(model.residualSS), CountText(model.residualDf), Text(model.residualMS)});
  table.Add({"Total", Text(model.totalSS), CountText(totalDf)});
  table.Print(out);
}

}  // namespace

void PrintStatistics(std::ostream & out, const Cases & cases,
                     const std::vector<QVUniStats> & statistics) {
  Table numbers;
  Table categories;
  numbers.Add({"Field", "Mean", "Std. deviation", "Minimum", "Maximum"});
  categories.Add({"Field and category", "Frequency"});
  bool anyCategories = false;
  for (const QVUniStats & stats : statistics) {
    if (!stats.IsCategorical()) {
      const QVUniStats::SummStats & s = stats.GetSummStats();
      numbers.Add(
          {stats.GetVarName(), Text(s.fMean), Text(s.fStdDev), Text(s.fMinimum), Text(s.fMaximum)});
      continue;
    }
    anyCategories = true;
    const int place = cases.variables.FindVariable(stats.GetVarName());
    const IQVEncoder & encoder = *cases.variables.GetEncoderAt(place);
    for (int code = 0; code < encoder.GetNumberOfCategories(); ++code) {
      categories.Add({stats.GetVarName() + " = " + encoder.Decode(code),
                      CountText(stats.GetFrequencies()[static_cast<std::size_t>(code)])});
    }
  }
  out << "Statistics of the fields\n\n";
  numbers.Print(out);
  out << '\n';
  if (anyCategories) {
    categories.Print(out);
    out << '\n';
  }
}

void PrintModel(std::ostream & out, const Cases & cases, const LinearModel & model) {
  out << "Linear regression of " << cases.variables.GetTargetVariable()->GetVariableName()
      << "\n\n";
  PrintCaseCounts(out, cases.variables);
  out << '\n';
  PrintCoefficients(out, model);
  out << '\n';
  PrintAnalysisOfVariance(out, model);
  const double deviation =
      QVMV::IsMissing(model.residualMS) ? QVMV::Missing() : std::sqrt(model.residualMS);
  out << "\n  R squared " << Text(model.rSquared) << ", adjusted " << Text(model.adjustedRSquared)
      << "; residual standard deviation " << Text(deviation) << '\n';
}

void PrintWarnings(std::ostream & out, QVWarnings & warnings) {
  for (const QVStatus & warning : warnings.GetWarnings(true)) {
    switch (warning.GetErrorCode()) {
      case kWarningRedundantTerms: {
        out << "\n  Redundant, a linear combination of the terms before it:";
        const char * separator = " ";
        for (const auto & term : warnings.GetParameters(warning)) {
          out << separator << term.ToString();
          separator = ", ";
        }
        out << '\n';
        break;
      }
      case kWarningNoResidualDf:
        out << "\n  There are not more cases than coefficients: nothing can be tested.\n";
        break;
      default:
        break;
    }
  }
}

void WritePredictions(std::ostream & out, const Cases & cases, const LinearModel & model) {
  const int target = cases.variables.GetTargetIndex();
  out << "observed,predicted\n";
  for (std::size_t i = 0; i < cases.Size(); ++i) {
    const double * values = cases.At(i);
    out << ExactText(values[target]) << ',' << ExactText(model.Predict(values)) << '\n';
  }
}

}  // namespace regression
