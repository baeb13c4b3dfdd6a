/// A file that appears whole or not at all.
#pragma once

#include <filesystem>
#include <fstream>
#include <string>

namespace regression {

/// What is written goes to a new file beside the wanted one and takes its place at `Commit`.
/// Without a commit the new file vanishes and the old one stays as it was. A wanted file that is
/// there and is no regular file, such as a pipe or a device, is written to directly.
///
/// Throws `Failure` when the file cannot be written; the constructor already does, so that a
/// program learns of it before it works.
class OutputFile {
 public:
  explicit OutputFile(const std::string & path);
  ~OutputFile();
  OutputFile(const OutputFile &) = delete;
  OutputFile & operator=(const OutputFile &) = delete;

  std::ostream & Stream() { return fStream; }

  void Commit();

 private:
  const std::string fName;         // as the user wrote it
  std::filesystem::path fWanted;   // with symbolic links resolved
  std::filesystem::path fWritten;  // where the bytes go until the commit
  std::ofstream fStream;
};

}  // namespace regression
