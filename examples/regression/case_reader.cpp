#include "case_reader.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string>

#include "IQVEncoder.h"
#include "QVMV.h"
#include "csv_reader.h"
#include "failure.h"

namespace regression {

using QVCommon_940::QVMV;
using namespace QVXML_940;

namespace {

/// A column of the file that takes part.
struct Column {
  enum Kind { Unknown, Number, Category };

  std::string name;
  VariableRole role;
  std::size_t place = 0;  // in the record
  Kind kind = Unknown;    // until its first value is seen
};

/// The whole cell as a finite number.
bool ReadNumber(const std::string & cell, double & number) {
  const char * begin = cell.data();
  const char * end = begin + cell.size();
  if (begin != end && *begin == '+') ++begin;
  const auto [rest, error] = std::from_chars(begin, end, number);
  return error == std::errc() && rest == end && std::isfinite(number);
}

class CaseReader {
 public:
  CaseReader(const Options & options, QVMath_940::QVCancelInfo & cancel)
      : fPath(options.data), fReader(options.data, cancel) {
    if (!fReader.Read(fHeader)) throw Failure(fPath + " has no first line with column names");
    ChooseColumns(options);
    for (Column & column : fColumns)
      column.place = PlaceOf(column.name);
  }

  Cases Read() {
    CsvReader::Record record;
    while (fReader.Read(record)) {
      ++fRecordNumber;
      TakeRecord(record);
    }
    if (fCases.Size() == 0) throw Failure(fPath + " has no case without a missing value");
    StoreCounts();
    return std::move(fCases);
  }

 private:
  void ChooseColumns(const Options & options) {
    std::vector<std::string> predictors = options.predictors;
    if (predictors.empty()) {
      std::copy_if(fHeader.begin(), fHeader.end(), std::back_inserter(predictors),
                   [&](const std::string & name) {
                     return name != options.target && name != options.weight;
                   });
    }
    if (predictors.empty()) throw Failure(fPath + " has no column for a predictor");
    for (const std::string & name : predictors)
      AddColumn(name, VariableRoleInput);
    AddColumn(options.target, VariableRoleTarget);
    if (!options.weight.empty()) AddColumn(options.weight, VariableRoleFrequencyWeight);
  }

  void AddColumn(const std::string & name, VariableRole role) {
    for (const Column & column : fColumns) {
      if (column.name == name) throw Failure("column '" + name + "' is asked for twice");
    }
    fColumns.push_back({name, role});
  }

  std::size_t PlaceOf(const std::string & name) const {
    const auto found = std::find(fHeader.begin(), fHeader.end(), name);
    if (found == fHeader.end()) throw Failure(fPath + " has no column '" + name + "'");
    if (std::find(found + 1, fHeader.end(), name) != fHeader.end()) {
      throw Failure(fPath + " has more than one column '" + name + "'");
    }
    return static_cast<std::size_t>(found - fHeader.begin());
  }

  /// Encodes a complete case, or counts a dropped one.
  void TakeRecord(const CsvReader::Record & record) {
    if (record.size() != fHeader.size()) {
      throw Failure(fPath + ", case " + std::to_string(fRecordNumber) + ": " +
                    std::to_string(record.size()) + " cells where the first line has " +
                    std::to_string(fHeader.size()));
    }
    std::vector<double> numbers(fColumns.size(), QVMV::Missing());
    bool complete = true;
    for (std::size_t i = 0; i < fColumns.size(); ++i) {
      const std::string & cell = record[fColumns[i].place];
      if (cell.empty()) {
        complete = false;
      } else {
        TakeCell(fColumns[i], cell, numbers[i]);
      }
    }
    if (complete && fCases.width == 0) MakeVariables();  // every column's kind is known now
    if (complete) complete = Encode(record, numbers);
    if (!complete) CountDropped(numbers);
  }

  /// Settles the kind of a column at its first value, and reads its number.
  void TakeCell(Column & column, const std::string & cell, double & number) const {
    const bool isNumber = ReadNumber(cell, number);
    const bool needsNumber = column.kind == Column::Number || column.role != VariableRoleInput;
    if (needsNumber && !isNumber) {
      throw Failure(fPath + ", case " + std::to_string(fRecordNumber) + ", column '" + column.name +
                    "': '" + cell + "' is not a number");
    }
    if (column.kind == Column::Unknown) column.kind = isNumber ? Column::Number : Column::Category;
  }

  void MakeVariables() {
    QVVarList & variables = fCases.variables;
    for (const Column & column : fColumns) {
      if (column.role == VariableRoleFrequencyWeight) {
        variables.SetWeightVar(column.name, "", WRoundingAsIs);
      } else if (column.kind == Column::Number) {
        variables.AddContVar(column.name, "", column.role);
      } else {
        const int place =
            variables.AddCatVar(column.name, "", 0, MeasureLevelStringCategorical, column.role);
        variables.GetVarAt(place)->SetVariableStorage(VariableStorageString);
      }
    }
    variables.SetListwiseDeletion(true);
    fCases.width = fColumns.size();
  }

  /// Appends the case; false when an encoder holds a value for missing, as that of the weight does
  /// with one that is not above 0.
  bool Encode(const CsvReader::Record & record, const std::vector<double> & numbers) {
    std::vector<double> encoded(fColumns.size());
    for (std::size_t i = fColumns.size();
         i-- > 0;) {  // the weight first: a bad one adds no category
      IQVEncoder & encoder = *fCases.variables.GetEncoderAt(static_cast<int>(i));
      encoded[i] = fColumns[i].kind == Column::Category ? encoder.Encode(record[fColumns[i].place])
                                                        : encoder.Encode(numbers[i]);
      if (QVMV::IsMissing(encoded[i])) return false;
    }
    fCases.values.insert(fCases.values.end(), encoded.begin(), encoded.end());
    return true;
  }

  void CountDropped(const std::vector<double> & numbers) {
    ++fDropped;
    if (fColumns.back().role != VariableRoleFrequencyWeight) {
      fDroppedWeight += 1.0;
    } else if (numbers.back() > 0.0) {  // a missing weight is below 0
      fDroppedWeight += numbers.back();
    } else {
      ++fBadWeights;
    }
  }

  void StoreCounts() {
    double weight = 0.0;
    for (std::size_t i = 0; i < fCases.Size(); ++i)
      weight += fCases.Weight(i);
    QVVarList & variables = fCases.variables;
    variables.SetUnWeightedCount(static_cast<double>(fCases.Size()));
    variables.SetWeightedCount(weight);
    variables.SetDroppedCount(fDropped);
    variables.SetBadWeightCount(fBadWeights);
    variables.SetWeightedDroppedCount(fDroppedWeight);
    variables.UpdateNumbersOfCategories();
  }

  const std::string fPath;
  CsvReader fReader;
  CsvReader::Record fHeader;
  std::vector<Column> fColumns;  // in the order of the variables
  std::size_t fRecordNumber = 0;
  double fDropped = 0.0;
  double fBadWeights = 0.0;
  double fDroppedWeight = 0.0;
  Cases fCases;
};

}  // namespace

Cases ReadCases(const Options & options, QVMath_940::QVCancelInfo & cancel) {
  return CaseReader(options, cancel).Read();
}

}  // namespace regression
