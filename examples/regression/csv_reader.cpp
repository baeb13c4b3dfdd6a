#include "csv_reader.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <string_view>

#include "failure.h"
#include "interrupt.h"

namespace regression {

namespace {

constexpr std::size_t kBlockSize = 64 * 1024;
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

}  // namespace

CsvReader::CsvReader(const std::string & path, QVMath_940::QVCancelInfo & cancel)
    : fPath(path), fCancel(cancel), fProgress("Reading " + path) {
  fFile = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (fFile < 0) {
    if (errno == EINTR) StopIfAsked(fCancel);
    Fail(std::strerror(errno));
  }
  struct stat status = {};
  if (fstat(fFile, &status) == 0 && S_ISREG(status.st_mode)) {
    fBytesInAll = static_cast<double>(status.st_size);
  }
  csv_init(&fParser, CSV_STRICT | CSV_STRICT_FINI);
}

CsvReader::~CsvReader() {
  csv_free(&fParser);
  close(fFile);
}

bool CsvReader::Read(Record & record) {
  while (fRecords.empty()) {
    if (!ReadBlock()) return false;
  }
  record = std::move(fRecords.front());
  fRecords.pop_front();
  return true;
}

/// One block from the file through the parser; false when there is nothing left.
bool CsvReader::ReadBlock() {
  if (fAtEnd) return false;
  char block[kBlockSize];
  ssize_t count = -1;
  while (count < 0) {
    StopIfAsked(fCancel);
    count = read(fFile, block, sizeof block);
    if (count < 0 && errno != EINTR) Fail(std::strerror(errno));
  }
  if (count == 0) {
    fAtEnd = true;
    if (csv_fini(&fParser, TakeCell, EndRecord, this) != 0) Fail("a quoted cell does not end");
    return true;
  }
  std::string_view bytes(block, static_cast<std::size_t>(count));
  if (fBytesRead == 0.0 && bytes.substr(0, kByteOrderMark.size()) == kByteOrderMark) {
    bytes.remove_prefix(kByteOrderMark.size());
  }
  Parse(bytes.data(), bytes.size());
  fBytesRead += static_cast<double>(count);
  fProgress.Show(fBytesRead, fBytesInAll);
  return true;
}

void CsvReader::Parse(const char * bytes, std::size_t count) {
  if (csv_parse(&fParser, bytes, count, TakeCell, EndRecord, this) != count) {
    Fail(csv_error(&fParser) == CSV_EPARSE ? "a quote stands in the middle of a cell"
                                           : csv_strerror(csv_error(&fParser)));
  }
}

void CsvReader::Fail(const std::string & reason) const {
  throw Failure("cannot read " + fPath + ": " + reason);
}

void CsvReader::TakeCell(void * text, std::size_t length, void * self) noexcept {
  static_cast<CsvReader *>(self)->fOpenRecord.emplace_back(static_cast<const char *>(text), length);
}

void CsvReader::EndRecord(int, void * self) noexcept {
  auto & reader = *static_cast<CsvReader *>(self);
  reader.fRecords.push_back(std::move(reader.fOpenRecord));
  reader.fOpenRecord.clear();
}

}  // namespace regression
