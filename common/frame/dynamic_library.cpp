#include <dlfcn.h>
#include <unistd.h>

#include <cctype>
#include <cerrno>
#include <cfenv>
#include <filesystem>
#include <system_error>

#include "QVDynamicLoadedLibrary.h"

namespace QVCommon_940 {
namespace {

constexpr char kModuleSuffix[] = ".dll";  // the interface's own, on every system
constexpr char kSystemSuffix[] = ".so";
constexpr std::size_t kModuleSuffixLength = sizeof kModuleSuffix - 1;

/// Puts `errno` and the floating-point environment back at the end of a scope.
class ThreadStateKeeper {
 public:
  ThreadStateKeeper() : fErrno(errno) { std::fegetenv(&fEnvironment); }
  ~ThreadStateKeeper() {
    std::fesetenv(&fEnvironment);
    errno = fErrno;
  }
  ThreadStateKeeper(const ThreadStateKeeper &) = delete;
  ThreadStateKeeper & operator=(const ThreadStateKeeper &) = delete;

 private:
  int fErrno;
  std::fenv_t fEnvironment;
};

/// What one call of the loader gave: a module, or a number that is not 0 and a text.
struct LoadResult {
  void * module = nullptr;
  int errorNumber = 0;
  std::string errorText;
};

bool HasModuleSuffix(const std::string & path) {
  if (path.size() <= kModuleSuffixLength) {
    return false;
  }
  const std::size_t start = path.size() - kModuleSuffixLength;
  for (std::size_t i = 0; i < kModuleSuffixLength; ++i) {
    if (std::tolower(static_cast<unsigned char>(path[start + i])) != kModuleSuffix[i]) {
      return false;
    }
  }
  return true;
}

std::string WithSystemSuffix(const std::string & path) {
  return path.substr(0, path.size() - kModuleSuffixLength) + kSystemSuffix;
}

/// Only a path with a slash names one file; other names the loader searches in places of its own.
bool NamesAFile(const std::string & path) {
  std::error_code ignored;
  return path.find('/') != std::string::npos && std::filesystem::exists(path, ignored);
}

/// The loader's text of the last failure. Reading it clears it.
std::string LoaderText(const std::string & ifNone) {
  const char * text = dlerror();
  return text != nullptr ? text : ifNone;
}

/// The system's number for a failed load, which the loader tells as text alone: that of opening the
/// file, or, where it can be opened, the one for a file that is no module.
int LoadErrorNumber(const std::string & path) {
  if (path.find('/') == std::string::npos) {
    return ENOENT;  // the loader's search found nothing that fits
  }
  return access(path.c_str(), R_OK) != 0 ? errno : ENOEXEC;
}

LoadResult Load(const std::string & path) {
  LoadResult result;
  // The loader reads up to the first zero byte, and takes an empty name for the program itself.
  if (path.empty() || path.find('\0') != std::string::npos) {
    result.errorNumber = EINVAL;
    result.errorText = path.empty() ? "The path of the module is empty"
                                    : "The path of the module holds a zero byte";
    return result;
  }
  result.module = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (result.module == nullptr) {
    result.errorText = LoaderText(path + ": cannot be loaded");
    result.errorNumber = LoadErrorNumber(path);
  }
  return result;
}

}  // namespace

QVDynamicLoadedLibrary::QVDynamicLoadedLibrary(const std::string & path, int flag)
    : fFlag(flag), fPath(path) {
}

QVDynamicLoadedLibrary::~QVDynamicLoadedLibrary() = default;

int QVDynamicLoadedLibrary::LoadLibraryNow() {
  fErrorText.clear();
  if (fHandle != nullptr) {
    return 0;
  }
  const ThreadStateKeeper keeper;
  LoadResult result = Load(fPath);
  if (result.module == nullptr && HasModuleSuffix(fPath) && !NamesAFile(fPath)) {
    const std::string systemPath = WithSystemSuffix(fPath);
    LoadResult second = Load(systemPath);
    // When neither is there, the failure of the name that the caller gave is the one to report.
    if (second.module != nullptr || NamesAFile(systemPath)) {
      result = second;
    }
  }
  fHandle = result.module;
  fErrorText = result.errorText;
  return result.errorNumber;
}

void * QVDynamicLoadedLibrary::GetSymbolAddress(const std::string & name) {
  fErrorText.clear();
  if (LoadLibraryNow() != 0) {
    return nullptr;
  }
  const ThreadStateKeeper keeper;
  void * address = dlsym(fHandle, name.c_str());
  if (address == nullptr) {
    fErrorText = LoaderText(name + ": the symbol has no address");
  }
  return address;
}

std::string QVDynamicLoadedLibrary::GetErrorString() const {
  return fErrorText;
}

std::string QVDynamicLoadedLibrary::QVDecorateDynamicPathName(std::string path) {
  if (!HasModuleSuffix(path)) {
    path += kModuleSuffix;
  }
  return path;
}

}  // namespace QVCommon_940
