/// A file that holds this text, open for reading, for the time of one test.
#pragma once

#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <string>

#include <gtest/gtest.h>

class FileOfText {
 public:
  explicit FileOfText(const std::string & text) {
    std::string path = testing::TempDir() + "xml_persist_test_XXXXXX";
    const int handle = mkstemp(path.data());
    EXPECT_GE(handle, 0);
    close(handle);
    std::ofstream(path, std::ios::binary) << text;
    fStream.open(path, std::ios::binary);
    EXPECT_TRUE(fStream.is_open());
    unlink(path.c_str());  // it goes with the stream
  }

  std::ifstream & Stream() { return fStream; }

 private:
  std::ifstream fStream;
};
