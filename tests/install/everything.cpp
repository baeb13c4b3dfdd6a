// Takes every header at once.

#include <cstdio>
#include <qvcommon>

bool OneHeaderIsEnough();

int main() {
  const bool works =
      QVCommon_940::QVMV::IsMissing(QVCommon_940::QVMV::Missing()) && OneHeaderIsEnough();
  std::puts(works ? "the installed library works" : "the installed library gives wrong results");
  return works ? 0 : 1;
}
