/// Generators of uniform numbers that a test can look into.
#pragma once

#include <cstddef>
#include <vector>

#include "QVRNGenerator.h"
#include "QVRandom.h"

/// Gives the listed numbers, over and over.
class ScriptedUser : public QVCommon_940::QVRandom {
 public:
  explicit ScriptedUser(std::vector<double> numbers) : fNumbers(std::move(numbers)) {}
  double GetRandom() override { return fNumbers[drawn++ % fNumbers.size()]; }

  std::size_t drawn = 0;

 private:
  std::vector<double> fNumbers;
};

/// The same in the object style; counts what befalls it.
class ScriptedGenerator : public QVMath_940::QVRNGenerator {
 public:
  explicit ScriptedGenerator(std::vector<double> numbers, int * deletions = nullptr)
      : fNumbers(std::move(numbers)), fDeletions(deletions) {}
  ~ScriptedGenerator() override {
    if (fDeletions != nullptr) ++*fDeletions;
  }
  void SetSeed(double newSeed) override { seed = newSeed; }
  double GetNext() override { return fNumbers[drawn++ % fNumbers.size()]; }

  std::size_t drawn = 0;
  double seed = 0.0;

 private:
  std::vector<double> fNumbers;
  int * fDeletions;
};
