#include "output_file.h"

#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <system_error>

#include "failure.h"

namespace regression {

namespace fs = std::filesystem;

namespace {

[[noreturn]] void Fail(const std::string & name, int error) {
  throw Failure("cannot write " + name + ": " + std::strerror(error));
}

}  // namespace

OutputFile::OutputFile(const std::string & path) : fName(path), fWanted(path) {
  std::error_code ignored;
  const fs::file_status status = fs::status(fWanted, ignored);
  if (fs::is_directory(status)) Fail(fName, EISDIR);
  if (fs::exists(status) && access(path.c_str(), W_OK) != 0) Fail(fName, errno);
  if (fs::exists(status) && !fs::is_regular_file(status)) {
    fWritten = fWanted;
  } else {
    fWanted = fs::weakly_canonical(fWanted, ignored);
    fWritten = fWanted;
    fWritten += ".part-" + std::to_string(getpid());
  }
  fStream.open(fWritten, std::ios::binary);
  if (!fStream) Fail(fName, errno);
  if (fs::is_regular_file(status)) fs::permissions(fWritten, status.permissions(), ignored);
}

OutputFile::~OutputFile() {
  if (fWritten == fWanted) return;
  std::error_code ignored;
  fs::remove(fWritten, ignored);
}

void OutputFile::Commit() {
  fStream.close();
  if (!fStream) Fail(fName, errno);
  if (fWritten == fWanted) return;
  std::error_code error;
  fs::rename(fWritten, fWanted, error);
  if (error) Fail(fName, error.value());
  fWritten = fWanted;
}

}  // namespace regression
