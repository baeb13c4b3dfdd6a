/// Loading another shared object by name and looking up its symbols.
///
///     using QVCommon_940::QVDynamicLoadedLibrary;
///     QVDynamicLoadedLibrary module(QVDynamicLoadedLibrary::QVDecorateDynamicPathName("fit"), 0);
///     auto * run = reinterpret_cast<int (*)()>(module.GetSymbolAddress("RunFit"));
///     if (run == nullptr) report(module.GetErrorString());
///
/// Loading is lazy: the first lookup loads the module, later ones reuse it. NOTHING UNLOADS it, the
/// destructor included, so that addresses stay good to the end of the process. Failures show in the
/// result and in the error text, in the words of the system's loader; nothing is thrown.
///
/// Module names are written with ".dll" on every system. A path that ends in ".dll", where there is
/// no such file, is tried once more with this system's suffix ".so" in its place; a file that is
/// there is loaded under the name it has. A path without a slash is searched by the loader's rules.
///
/// A load binds all symbols at once and gives none of them to other modules. The module's
/// initialisers run on the calling thread; `errno` and the floating-point environment are
/// afterwards what they were before, so that a module built with relaxed arithmetic does not change
/// the caller's.
///
/// Threads: one object from one thread at a time.
#pragma once

#include <string>

#include "QVExport.h"

namespace QVCommon_940 {

class QVCOMMON_API QVDynamicLoadedLibrary {
 public:
  /// Keeps both and loads nothing. No operation reads `flag`.
  QVDynamicLoadedLibrary(const std::string & path, int flag);

  QVDynamicLoadedLibrary(const QVDynamicLoadedLibrary &) = default;
  QVDynamicLoadedLibrary & operator=(const QVDynamicLoadedLibrary &) = default;

  /// The module stays loaded.
  ~QVDynamicLoadedLibrary();

  /// Loads the module unless it is loaded. Empties the error text first. Returns 0, or the system's
  /// error number, which is never 0, with the error text set. An empty path is refused.
  int LoadLibraryNow();

  /// The address of a symbol, loading the module when it is not loaded yet. Empties the error text
  /// first. Returns null with the error text set when the load or the lookup fails; a failed lookup
  /// leaves the module loaded.
  void * GetSymbolAddress(const std::string & name);

  /// The text of the latest load or lookup's failure, empty after a success.
  std::string GetErrorString() const;

  /// The path with ".dll" appended, unless it is longer than 4 characters and already ends in
  /// ".dll", in letters of either case. So ".dll" alone becomes ".dll.dll".
  static std::string QVDecorateDynamicPathName(std::string path);

 private:
  void * fHandle = nullptr;
  [[maybe_unused]] int fFlag;
  [[maybe_unused]] int fSecondWord = 0;
  std::string fPath;
  std::string fErrorText;
};

}  // namespace QVCommon_940
