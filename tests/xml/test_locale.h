/// A locale for the time of one test.
///
///     const TestLocale german("de_DE.UTF-8");   // or "de_DE.ISO-8859-1"
///     ASSERT_TRUE(german.IsSet()) << german.Help();
#pragma once

#include <clocale>
#include <cstdlib>
#include <string>

class TestLocale {
 public:
  explicit TestLocale(const char * name) {
    setenv("LOCPATH", QVCOMMON_TEST_LOCALES, 1);
    fIsSet = std::setlocale(LC_ALL, name) != nullptr;
  }
  ~TestLocale() {
    std::setlocale(LC_ALL, "C");
    unsetenv("LOCPATH");
  }
  TestLocale(const TestLocale &) = delete;
  TestLocale & operator=(const TestLocale &) = delete;

  bool IsSet() const { return fIsSet; }
  static std::string Help() {
    return "no such locale in " QVCOMMON_TEST_LOCALES
           ": install the package locales and build again";
  }

 private:
  bool fIsSet = false;
};
