#include <cstdio>
#include <ctime>

#include "QVDisplay.h"
#include "QVMV.h"
#include "common/display/display_line.h"

namespace QVDisplay_940 {
namespace {

// Room for "%.17g": a sign, 17 digits, a decimal character (of several bytes in some locales) and
// an exponent.
constexpr std::size_t kNumberRoom = 64;

}  // namespace

std::string ShortNumber(double value) {
  if (QVCommon_940::QVMV::IsMissing(value)) {
    return "miss";
  }
  char text[kNumberRoom];
  std::snprintf(text, sizeof text, "%g", value);
  return text;
}

std::string FullNumber(double value) {
  if (QVCommon_940::QVMV::IsMissing(value)) {
    return "miss";
  }
  char text[kNumberRoom];
  std::snprintf(text, sizeof text, "%.17g", value);
  return text;
}

void DisplayB(std::string label, bool value) {
  WriteLine(label + " = " + (value ? "true" : "false"));
}

void DisplayD(std::string label, double value) {
  WriteLine(label + " = " + ShortNumber(value));
}

void DisplayDF(std::string label, double value) {
  WriteLine(label + " = " + FullNumber(value));
}

void DisplayI(std::string label, int value) {
  WriteLine(label + " = " + std::to_string(value));
}

void DisplayS(std::string label, std::string value) {
  WriteLine(label + " = " + value);
}

void DisplayTimeStamp(std::string label) {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  constexpr int kFirstYear = 1900;  // std::tm counts years from here and months from 0
  char text[6 * 12];
  std::snprintf(text, sizeof text, "%d-%02d-%02d-%02d-%02d-%02d", local.tm_year + kFirstYear,
                local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min, local.tm_sec);
  WriteLine(std::string(text) + ": " + label);
}

}  // namespace QVDisplay_940
