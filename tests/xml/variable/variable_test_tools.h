// What the tests of encoders and variables share: objects through files, failed reads, display
// text.
#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>

#include "IOException.h"
#include "common/display/captured_display.h"

namespace variable_test {

// A file that holds `text` and goes away with this object.
class TemporaryFile {
 public:
  explicit TemporaryFile(std::string const & text)
      : fPath(testing::TempDir() + "qv_" + std::to_string(getpid()) + "_" +
              testing::UnitTest::GetInstance()->current_test_info()->test_suite_name() + "_" +
              testing::UnitTest::GetInstance()->current_test_info()->name()) {
    std::ofstream(fPath, std::ios::binary) << text;
  }
  ~TemporaryFile() { std::remove(fPath.c_str()); }
  TemporaryFile(TemporaryFile const &) = delete;
  TemporaryFile & operator=(TemporaryFile const &) = delete;

  std::string const & Path() const { return fPath; }

 private:
  std::string fPath;
};

// Sends a stream's text into this object as long as it lives.
class Captured {
 public:
  explicit Captured(std::ostream & stream)
      : fStream(stream), fBefore(stream.rdbuf(fText.rdbuf())) {}
  ~Captured() { fStream.rdbuf(fBefore); }
  Captured(Captured const &) = delete;
  Captured & operator=(Captured const &) = delete;

  std::string Text() const { return fText.str(); }

 private:
  std::ostringstream fText;
  std::ostream & fStream;
  std::streambuf * fBefore;
};

// What an object writes, and the lines it tells.
struct Output {
  std::string text;
  int lines;
};

template <class Object>
Output Write(Object const & object, int tabs) {
  std::ostringstream out;
  const int lines = object.WriteObjectXML(out, tabs);
  return {out.str(), lines};
}

// The lines that an object tells when it reads `text`; the read has to succeed.
template <class Object>
int Read(Object & object, std::string const & text) {
  const TemporaryFile file(text);
  std::ifstream in(file.Path());
  try {
    return object.ReadObjectXML(in);
  } catch (QVXML_940::IOException * failure) {
    delete failure;
    ADD_FAILURE() << "could not read " << text;
    return -1;
  }
}

// Whether a read of `text` fails; what it then says on the two streams.
struct Attempt {
  bool failed = false;
  int lines = 0;
  std::string error;
  std::string output;
};

template <class Object>
Attempt TryRead(Object & object, std::string const & text) {
  const TemporaryFile file(text);
  std::ifstream in(file.Path());
  const Captured error(std::cerr);
  const Captured output(std::cout);
  Attempt attempt;
  try {
    attempt.lines = object.ReadObjectXML(in);
  } catch (QVXML_940::IOException * failure) {
    attempt.failed = true;
    delete failure;
  }
  attempt.error = error.Text();
  attempt.output = output.Text();
  return attempt;
}

// What an object shows.
template <class Object>
std::string Shown(Object const & object) {
  CapturedDisplay display;
  object.Display();
  return display.Text();
}

// Cuts `text` off behind every byte and reads what is left into a fresh object: only a text whose
// last line still says "</Obj" is read. Every object left behind has to work on.
template <class MakeObject>
void ExpectEveryTruncationFails(std::string const & text, MakeObject make,
                                std::string const & lastErrorLine) {
  ASSERT_EQ(text.substr(text.size() - 6), "</Obj>");
  for (std::size_t length = 0; length <= text.size(); ++length) {
    auto object = make();
    const Attempt attempt = TryRead(object, text.substr(0, length));
    ASSERT_EQ(attempt.failed, length + 1 < text.size()) << "length " << length;
    if (attempt.failed) {
      ASSERT_GE(attempt.error.size(), lastErrorLine.size());
      ASSERT_EQ(attempt.error.substr(attempt.error.size() - lastErrorLine.size()), lastErrorLine);
    } else {
      ASSERT_EQ(attempt.error, "");
    }
    ASSERT_EQ(attempt.output, "");
    auto copy = object;
    Write(copy, 0);
    Shown(copy);
  }
}

// The line of an integer.
inline std::string IntLine(std::string const & value) {
  std::string line = "<Int value=\"";
  line.append(value).append("\"/>");
  return line;
}

// The text with the first `from` behind `after` replaced.
inline std::string Changed(std::string text, std::string const & after, std::string const & from,
                           std::string const & to) {
  const std::size_t start = text.find(after);
  const std::size_t place =
      start == std::string::npos ? start : text.find(from, start + after.size());
  if (place == std::string::npos) {
    ADD_FAILURE() << "nothing to change: " << from;
    return text;
  }
  return text.replace(place, from.size(), to);
}

}  // namespace variable_test
