#include <cstdlib>
#include <iostream>

#include "Blas1.h"

namespace QVMath_940 {
namespace {

/// The first power of two, counting down from a half, whose half no longer moves 1 when added.
///
/// Every intermediate goes through memory, so that the arithmetic is that of a double at run time.
double MeasuredEpsilon() {
  volatile double candidate = 0.5;
  double epsilon;
  volatile double moved;
  do {
    epsilon = candidate;
    candidate = candidate * 0.5;
    moved = 1.0 + epsilon * 0.5;
  } while (moved > 1.0);
  return epsilon;
}

/// The smallest power of sixteen that a further division by sixteen takes to zero.
double MeasuredTiny() {
  volatile double candidate = 1.0;
  double tiny;
  volatile double next;
  do {
    tiny = candidate;
    candidate = candidate * 0.0625;
    next = tiny * 0.0625;
  } while (next != 0.0);
  return tiny;
}

}  // namespace

double Blas1::DMach(int job) {
  const double epsilon = MeasuredEpsilon();
  const double small = MeasuredTiny() / epsilon * 100.0;
  switch (job) {
    case 1:
      return epsilon;
    case 2:
      return small;
    case 3:
      return 1.0 / small;
    default:
      XErBla("DMACH", 1);
  }
}

void Blas1::XErBla(const char * name, int argument) {
  std::cout << "\nXERBLA - Fatal error!\n"
            << "  On entry to routine " << (name == nullptr ? "" : name) << "\n"
            << "  input parameter number " << argument << " had an illegal value.\n"
            << std::flush;
  std::exit(1);
}

}  // namespace QVMath_940
