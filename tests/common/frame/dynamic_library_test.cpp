#include "QVDynamicLoadedLibrary.h"

#include <dlfcn.h>
#include <unistd.h>

#include <cerrno>
#include <cfenv>
#include <clocale>
#include <cmath>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <limits>
#include <string>
#include <thread>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using QVCommon_940::QVDynamicLoadedLibrary;
using testing::HasSubstr;

namespace {

const std::string kModules = QVCOMMON_TEST_MODULES;
const std::string kLoadable = kModules + "/loadable.so";
const std::string kAbsent = kModules + "/absent.so";

/// A folder of the test's own, removed at its end.
class Folder {
 public:
  Folder()
      : fPath(std::filesystem::temp_directory_path() /
              ("qvcommon_modules_" + std::to_string(getpid()))) {
    std::filesystem::create_directories(fPath);
  }
  ~Folder() { std::filesystem::remove_all(fPath); }

  std::string File(const std::string & name) const { return (fPath / name).string(); }

  std::string Damaged(const std::string & name) const {
    std::ofstream(File(name)) << "this is no module";
    return File(name);
  }

 private:
  std::filesystem::path fPath;
};

bool IsLoaded(const std::string & path) {
  void * handle = dlopen(path.c_str(), RTLD_NOW | RTLD_NOLOAD);
  if (handle != nullptr) {
    dlclose(handle);
  }
  return handle != nullptr;
}

}  // namespace

// --- Names ------------------------------------------------------------------------------------

TEST(DynamicLibraryName, GetsTheSuffix) {
  const auto decorated = &QVDynamicLoadedLibrary::QVDecorateDynamicPathName;
  EXPECT_EQ(decorated("abc"), "abc.dll");
  EXPECT_EQ(decorated("abc.dl"), "abc.dl.dll");
  EXPECT_EQ(decorated("abc.so"), "abc.so.dll");
  EXPECT_EQ(decorated("abc.dll.x"), "abc.dll.x.dll");
  EXPECT_EQ(decorated("abcdll"), "abcdll.dll");
  EXPECT_EQ(decorated(""), ".dll");
}

TEST(DynamicLibraryName, KeepsASuffixOfEitherCase) {
  const auto decorated = &QVDynamicLoadedLibrary::QVDecorateDynamicPathName;
  EXPECT_EQ(decorated("abc.dll"), "abc.dll");
  EXPECT_EQ(decorated("abc.DLL"), "abc.DLL");
  EXPECT_EQ(decorated("abc.dLl"), "abc.dLl");
  EXPECT_EQ(decorated("a.dll"), "a.dll");
}

TEST(DynamicLibraryName, TheSuffixAloneIsNoSuffix) {
  EXPECT_EQ(QVDynamicLoadedLibrary::QVDecorateDynamicPathName(".dll"), ".dll.dll");
  EXPECT_EQ(QVDynamicLoadedLibrary::QVDecorateDynamicPathName(".DLL"), ".DLL.dll");
}

// --- Loading ----------------------------------------------------------------------------------

TEST(DynamicLibrary, ConstructionLoadsNothing) {
  const QVDynamicLoadedLibrary module(kAbsent, 3);
  EXPECT_EQ(module.GetErrorString(), "");
}

TEST(DynamicLibrary, LoadsAndFindsSymbols) {
  QVDynamicLoadedLibrary module(kLoadable, 0);
  EXPECT_EQ(module.LoadLibraryNow(), 0);
  EXPECT_EQ(module.GetErrorString(), "");
  auto * add = reinterpret_cast<int (*)(int, int)>(module.GetSymbolAddress("Add"));
  ASSERT_NE(add, nullptr);
  EXPECT_EQ(add(2, 3), 5);
  const auto * answer = static_cast<const int *>(module.GetSymbolAddress("kAnswer"));
  ASSERT_NE(answer, nullptr);
  EXPECT_EQ(*answer, 42);
}

TEST(DynamicLibrary, TheFirstLookupLoads) {
  QVDynamicLoadedLibrary module(kLoadable, 0);
  EXPECT_NE(module.GetSymbolAddress("Add"), nullptr);
  EXPECT_TRUE(IsLoaded(kLoadable));
}

TEST(DynamicLibrary, ASecondLoadDoesNotCallTheLoader) {
  // The file is gone by the time of the second load, so that a loader would fail.
  const Folder folder;
  const std::string path = folder.File("once.so");
  std::filesystem::copy_file(kLoadable, path);
  QVDynamicLoadedLibrary module(path, 0);
  ASSERT_EQ(module.LoadLibraryNow(), 0) << module.GetErrorString();
  std::filesystem::remove(path);
  EXPECT_EQ(module.LoadLibraryNow(), 0);
  const auto * count = static_cast<const int *>(module.GetSymbolAddress("gLoadCount"));
  ASSERT_NE(count, nullptr);
  EXPECT_EQ(*count, 1);
}

TEST(DynamicLibrary, NothingUnloadsAModule) {
  const Folder folder;
  const std::string path = folder.File("stays.so");
  std::filesystem::copy_file(kLoadable, path);
  int (*add)(int, int) = nullptr;
  {
    QVDynamicLoadedLibrary module(path, 0);
    add = reinterpret_cast<int (*)(int, int)>(module.GetSymbolAddress("Add"));
    ASSERT_NE(add, nullptr);
  }
  EXPECT_TRUE(IsLoaded(path));
  EXPECT_EQ(add(20, 22), 42);
}

TEST(DynamicLibrary, SymbolsAreNotGivenToOtherModules) {
  QVDynamicLoadedLibrary module(kLoadable, 0);
  ASSERT_EQ(module.LoadLibraryNow(), 0);
  EXPECT_EQ(dlsym(RTLD_DEFAULT, "gLoadCount"), nullptr);
  dlerror();
}

TEST(DynamicLibrary, CopiesShareTheModule) {
  QVDynamicLoadedLibrary module(kLoadable, 0);
  ASSERT_EQ(module.LoadLibraryNow(), 0);
  QVDynamicLoadedLibrary copy(module);
  EXPECT_EQ(copy.GetSymbolAddress("Add"), module.GetSymbolAddress("Add"));
}

// --- The suffix of this system ----------------------------------------------------------------

TEST(DynamicLibrary, AModuleNameThatDoesNotExistIsTriedWithTheSystemsSuffix) {
  QVDynamicLoadedLibrary module(
      QVDynamicLoadedLibrary::QVDecorateDynamicPathName(kModules + "/loadable"), 0);
  EXPECT_EQ(module.LoadLibraryNow(), 0) << module.GetErrorString();
  EXPECT_EQ(module.GetErrorString(), "");
  QVDynamicLoadedLibrary upper(kModules + "/loadable.DLL", 0);
  EXPECT_NE(upper.GetSymbolAddress("Add"), nullptr);
}

TEST(DynamicLibrary, AModuleFileThatExistsIsLoadedUnderItsName) {
  const Folder folder;
  std::filesystem::copy_file(kLoadable, folder.File("both.dll"));
  folder.Damaged("both.so");
  QVDynamicLoadedLibrary module(folder.File("both.dll"), 0);
  EXPECT_NE(module.GetSymbolAddress("Add"), nullptr) << module.GetErrorString();
}

TEST(DynamicLibrary, ADamagedModuleFileIsNotReplacedByAnother) {
  const Folder folder;
  folder.Damaged("other.dll");
  std::filesystem::copy_file(kLoadable, folder.File("other.so"));
  QVDynamicLoadedLibrary module(folder.File("other.dll"), 0);
  EXPECT_NE(module.LoadLibraryNow(), 0);
  EXPECT_THAT(module.GetErrorString(), HasSubstr("other.dll"));
}

TEST(DynamicLibrary, WithNeitherFileTheGivenNameIsReported) {
  QVDynamicLoadedLibrary module(kModules + "/absent.dll", 0);
  EXPECT_EQ(module.LoadLibraryNow(), ENOENT);
  EXPECT_THAT(module.GetErrorString(), HasSubstr("absent.dll"));
}

TEST(DynamicLibrary, OnlyTheOtherFileDamagedReportsThatOne) {
  const Folder folder;
  folder.Damaged("half.so");
  QVDynamicLoadedLibrary module(folder.File("half.dll"), 0);
  EXPECT_NE(module.LoadLibraryNow(), 0);
  EXPECT_THAT(module.GetErrorString(), HasSubstr("half.so"));
}

// --- Failures ---------------------------------------------------------------------------------

TEST(DynamicLibrary, FailureTextIsTheLoadersOwn) {
  QVDynamicLoadedLibrary module(kAbsent, 0);
  EXPECT_EQ(module.LoadLibraryNow(), ENOENT);
  ASSERT_EQ(dlopen(kAbsent.c_str(), RTLD_NOW), nullptr);
  EXPECT_EQ(module.GetErrorString(), dlerror());
}

TEST(DynamicLibrary, FailureNumbersAreNeverZero) {
  const Folder folder;
  for (const std::string & path :
       {folder.Damaged("damaged.so"), folder.File(""), kModules + "/unloadable.so",
        std::string("a_name_without_a_slash.dll")}) {
    QVDynamicLoadedLibrary module(path, 0);
    EXPECT_NE(module.LoadLibraryNow(), 0) << path;
    EXPECT_NE(module.GetErrorString(), "") << path;
    EXPECT_EQ(module.GetSymbolAddress("Add"), nullptr) << path;
    EXPECT_NE(module.GetErrorString(), "") << path;
  }
}

TEST(DynamicLibrary, NumbersAreTheSystems) {
  const Folder folder;
  EXPECT_EQ(QVDynamicLoadedLibrary(kAbsent, 0).LoadLibraryNow(), ENOENT);
  EXPECT_EQ(QVDynamicLoadedLibrary("a_name_without_a_slash", 0).LoadLibraryNow(), ENOENT);
  EXPECT_EQ(QVDynamicLoadedLibrary(folder.Damaged("x.so"), 0).LoadLibraryNow(), ENOEXEC);
  EXPECT_EQ(QVDynamicLoadedLibrary(folder.Damaged("y.so") + "/z.so", 0).LoadLibraryNow(), ENOTDIR);
}

TEST(DynamicLibrary, AnUndefinedSymbolIsNamed) {
  QVDynamicLoadedLibrary module(kModules + "/unloadable.so", 0);
  EXPECT_EQ(module.LoadLibraryNow(), ENOEXEC);
  EXPECT_THAT(module.GetErrorString(), HasSubstr("FunctionThatExistsNowhere"));
}

TEST(DynamicLibrary, AnEmptyPathIsRefused) {
  QVDynamicLoadedLibrary module("", 0);
  EXPECT_NE(module.LoadLibraryNow(), 0);
  EXPECT_NE(module.GetErrorString(), "");
  EXPECT_EQ(module.GetSymbolAddress("main"), nullptr);
}

TEST(DynamicLibrary, APathWithAZeroByteIsRefused) {
  QVDynamicLoadedLibrary module(std::string("\0x", 2), 0);
  EXPECT_NE(module.LoadLibraryNow(), 0);
  EXPECT_NE(module.GetErrorString(), "");
}

TEST(DynamicLibrary, AFailedLookupLeavesTheModuleLoaded) {
  QVDynamicLoadedLibrary module(kLoadable, 0);
  EXPECT_EQ(module.GetSymbolAddress("Subtract"), nullptr);
  EXPECT_THAT(module.GetErrorString(), HasSubstr("undefined symbol: Subtract"));
  EXPECT_TRUE(IsLoaded(kLoadable));
  EXPECT_NE(module.GetSymbolAddress("Add"), nullptr);
  EXPECT_EQ(module.GetErrorString(), "");
}

TEST(DynamicLibrary, TheErrorTextIsThatOfTheLatestCall) {
  QVDynamicLoadedLibrary module(kLoadable, 0);
  EXPECT_EQ(module.GetSymbolAddress("Subtract"), nullptr);
  EXPECT_NE(module.GetErrorString(), "");
  EXPECT_EQ(module.LoadLibraryNow(), 0);
  EXPECT_EQ(module.GetErrorString(), "");
}

TEST(DynamicLibrary, AFailedLoadCanBeTriedAgain) {
  const Folder folder;
  const std::string path = folder.File("later.so");
  QVDynamicLoadedLibrary module(path, 0);
  EXPECT_NE(module.LoadLibraryNow(), 0);
  std::filesystem::copy_file(kLoadable, path);
  EXPECT_EQ(module.LoadLibraryNow(), 0) << module.GetErrorString();
}

// --- State of thread and process --------------------------------------------------------------

TEST(DynamicLibrary, ThreadAndProcessStateIsUntouched) {
  const Folder folder;
  const std::string path = folder.File("state.so");
  std::filesystem::copy_file(kLoadable, path);
  // In a thread of its own: neither the tests before nor those behind share its state.
  std::thread([&path] {
    std::fesetround(FE_DOWNWARD);
    std::feclearexcept(FE_ALL_EXCEPT);
    std::feraiseexcept(FE_UNDERFLOW);
    const std::string locale = std::setlocale(LC_ALL, nullptr);
    const auto directory = std::filesystem::current_path();
    struct sigaction fault;
    sigaction(SIGSEGV, nullptr, &fault);
    errno = EXDEV;
    QVDynamicLoadedLibrary module(path, 0);
    EXPECT_EQ(module.LoadLibraryNow(), 0);
    EXPECT_EQ(module.GetSymbolAddress("Subtract"), nullptr);
    QVDynamicLoadedLibrary absent(kAbsent, 0);
    EXPECT_NE(absent.LoadLibraryNow(), 0);
    EXPECT_EQ(errno, EXDEV);
    EXPECT_EQ(std::fegetround(), FE_DOWNWARD);
    EXPECT_EQ(std::fetestexcept(FE_ALL_EXCEPT), FE_UNDERFLOW);
    volatile double tiny = std::numeric_limits<double>::min();
    EXPECT_NE(tiny * 0.5, 0.0);  // small numbers are not flushed to zero
    EXPECT_EQ(dlerror(), nullptr);
    EXPECT_EQ(std::setlocale(LC_ALL, nullptr), locale);
    EXPECT_EQ(std::filesystem::current_path(), directory);
    struct sigaction faultAfter;
    sigaction(SIGSEGV, nullptr, &faultAfter);
    EXPECT_EQ(faultAfter.sa_handler, fault.sa_handler);
    const auto * count = static_cast<const int *>(module.GetSymbolAddress("gLoadCount"));
    ASSERT_NE(count, nullptr);
    EXPECT_EQ(*count, 1);  // the disturbing initialiser did run
  }).join();
}
