// A module for the loader's tests. Its initialiser disturbs the thread, as modules built with
// relaxed arithmetic do.
#include <cerrno>
#include <cfenv>

#include <xmmintrin.h>

extern "C" {

int gLoadCount = 0;
extern const int kAnswer = 42;

int Add(int a, int b) {
  return a + b;
}
}

namespace {

struct Disturbance {
  Disturbance() {
    ++gLoadCount;
    errno = EDOM;
    std::fesetround(FE_UPWARD);
    std::feraiseexcept(FE_DIVBYZERO);
    _MM_SET_FLUSH_ZERO_MODE(_MM_FLUSH_ZERO_ON);
  }
};

const Disturbance gDisturbance;

}  // namespace
