/// What the readers and writers of encoders and variables share beyond single values: lists with a
/// count in front, enumerations, an object inside another, and the report of a failed read.
///
/// A count that was read is never trusted: a negative one, or one larger than the file has bytes,
/// is a failed read, and no list is sized before its elements stand there.
#pragma once

#include <fstream>
#include <string>
#include <vector>

#include "IOException.h"
#include "XMLObj.h"
#include "XMLPersistence.h"

namespace QVXML_940 {

/// Writes `line` on the standard error stream and throws a pointer to a new `IOException`.
[[noreturn]] void FailRead(const char * line);

/// The size of the file behind the stream in bytes; -1 when the stream cannot tell (a pipe).
std::streamoff FileSize(std::ifstream & in);

/// Reads the number of elements that follow; false for one that the file could not hold.
bool ParseCount(std::ifstream & in, int & count);

/// Reads `count` values behind one another.
template <class T>
bool ParseList(std::ifstream & in, int count, std::vector<T> & values) {
  values.clear();
  for (int i = 0; i < count; ++i) {
    T value{};
    if (!ParseValue(in, value)) return false;
    values.push_back(value);
  }
  return true;
}

/// Reads an enumeration; every number is a value.
template <class Enum>
bool ParseEnum(std::ifstream & in, Enum & value) {
  int number = 0;
  if (!ParseValue(in, number)) return false;
  value = static_cast<Enum>(number);
  return true;
}

/// Reads an object that stands inside another one and adds its lines. False when that failed: the
/// object has reported it, and its owner is to report in its turn.
template <class Object>
bool ParseObject(std::ifstream & in, Object & object, int & lines) {
  try {
    lines += object.ReadObjectXML(in);
    return true;
  } catch (IOException * failure) {
    delete failure;
    return false;
  }
}

/// Writes the values behind one another; the lines written.
template <class T>
int WriteList(XMLObj const & frame, std::ostream & out, std::vector<T> const & values) {
  for (T const & value : values)
    frame.WriteSubElement(out, value);
  return static_cast<int>(values.size());
}

/// Writes the number of values and then the values; the lines written.
template <class T>
int WriteCountedList(XMLObj const & frame, std::ostream & out, std::vector<T> const & values) {
  frame.WriteSubElement(out, static_cast<int>(values.size()));
  return 1 + WriteList(frame, out, values);
}

/// Lines of an object's frame: the opening and the closing one.
constexpr int kFrameLines = 2;

}  // namespace QVXML_940
