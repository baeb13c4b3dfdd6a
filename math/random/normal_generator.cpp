// QVRNGNormal.
#include "QVRNGNormal.h"
#include "math/random/standard_normal.h"
#include "math/random/uniform_source.h"

namespace QVMath_940 {

struct QVRNGNormal::Record {
  UniformSource uniform;
  double mean = 0.0;
  double sd = 1.0;
};

QVRNGNormal::QVRNGNormal(double mean, double sd) : fRecord(new Record) {
  SetParameters(mean, sd);
}

QVRNGNormal::QVRNGNormal(const QVRNGNormal & other)
    : QVRNGenerator(other), fRecord(new Record(*other.fRecord)) {
}

QVRNGNormal & QVRNGNormal::operator=(const QVRNGNormal & other) {
  *fRecord = *other.fRecord;
  return *this;
}

QVRNGNormal::~QVRNGNormal() {
  delete fRecord;
}

void QVRNGNormal::SetParameters(double mean, double sd) {
  const bool bad = sd < 0.0;
  fRecord->mean = bad ? 0.0 : mean;
  fRecord->sd = bad ? 1.0 : sd;
}

void QVRNGNormal::SetURNGenerator(QVRNGenerator & generator) {
  fRecord->uniform.Use(generator);
}

void QVRNGNormal::SetSeed(double seed) {
  fRecord->uniform.SetSeed(seed);
}

double QVRNGNormal::GetNext() {
  return StandardNormal(fRecord->uniform) * fRecord->sd + fRecord->mean;
}

double QVRNGNormal::GetNext(double mean, double sd) {
  const double z = StandardNormal(fRecord->uniform);
  return sd < 0.0 ? z : z * sd + mean;
}

}  // namespace QVMath_940
