/// A CSV file, record by record.
#pragma once

#include <csv.h>

#include <cstddef>
#include <deque>
#include <string>
#include <vector>

#include "QVCancelInfo.h"
#include "progress.h"

namespace regression {

/// Reads the file in blocks, each through libcsv in its strict mode, and hands out the records one
/// by one. Between two blocks it shows its progress and asks `cancel`.
///
/// Cells come without their quotes; blanks around an unquoted cell are no part of it. Empty lines
/// are passed over, and so is a byte order mark. Throws `Failure` when the file cannot be read or
/// is no CSV, and `Stopped`.
class CsvReader {
 public:
  using Record = std::vector<std::string>;

  CsvReader(const std::string & path, QVMath_940::QVCancelInfo & cancel);
  ~CsvReader();
  CsvReader(const CsvReader &) = delete;
  CsvReader & operator=(const CsvReader &) = delete;

  /// The next record; false behind the last one.
  bool Read(Record & record);

 private:
  bool ReadBlock();
  void Parse(const char * bytes, std::size_t count);
  [[noreturn]] void Fail(const std::string & reason) const;

  // libcsv calls these for each cell and for each end of a record; `self` is the reader.
  static void TakeCell(void * text, std::size_t length, void * self) noexcept;
  static void EndRecord(int lineEnd, void * self) noexcept;

  const std::string fPath;
  QVMath_940::QVCancelInfo & fCancel;
  Progress fProgress;
  csv_parser fParser;
  int fFile = -1;
  double fBytesRead = 0.0;
  double fBytesInAll = 0.0;  // 0 when the file has no size, as a pipe has none
  bool fAtEnd = false;
  Record fOpenRecord;
  std::deque<Record> fRecords;  // read and not handed out yet
};

}  // namespace regression
