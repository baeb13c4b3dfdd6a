// Different objects may be used by different threads at the same time. Each test does a piece of
// work alone, then on several threads at once, each with its own objects, and wants the same result
// everywhere. Under the thread sanitizer it also shows that no state is shared behind the objects.

#include <gtest/gtest.h>

#include <functional>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "QVBitSet.h"
#include "QVProvMeans.h"
#include "QVSymMatrix.h"
#include "XMLElement.h"
#include "XMLString.h"
#include "XMLWrite.h"

namespace {

using Figures = std::vector<double>;

template <typename Result>
void ExpectSameOnEveryThread(const std::function<Result()> & work) {
  constexpr std::size_t Threads = 4;
  const Result alone = work();
  std::vector<Result> results(Threads);
  std::vector<std::thread> threads;
  for (Result & result : results)
    threads.emplace_back([&work, &result] { result = work(); });
  for (std::thread & thread : threads)
    thread.join();
  for (const Result & result : results)
    EXPECT_EQ(result, alone);
}

// A smooth made-up variable: the i-th value of series k.
double Value(int i, int k) {
  return (i * 7 + k * 13) % 29 + 0.25 * k;
}

}  // namespace

TEST(Threads, EachSweepsItsOwnMatrix) {
  ExpectSameOnEveryThread<Figures>([] {
    constexpr int Order = 80;  // large enough for the special kernels
    QVMath_940::QVSymMatrix matrix(Order, true);
    for (int i = 0; i < 2 * Order; ++i) {
      Figures row;
      for (int k = 0; k < Order; ++k)
        row.push_back(Value(i, k) + (i == k ? 100.0 : 0.0));
      matrix.UpdateXX(row, 1.0);
    }
    QVMath_940::QVBitSet swept;
    matrix.SweepOnAll(1e-10, swept, true, true, true, nullptr);
    Figures diagonal;
    matrix.GetDiagonal(diagonal);
    return diagonal;
  });
}

TEST(Threads, EachAccumulatesItsOwnCases) {
  ExpectSameOnEveryThread<Figures>([] {
    constexpr int Variables = 70;  // large enough for the special kernels
    QVMath_940::QVProvMeans first(Variables, true), second(Variables, true);
    for (int i = 0; i < 100; ++i) {
      Figures row;
      for (int k = 0; k < Variables; ++k)
        row.push_back(Value(i, k));
      (i < 40 ? first : second).Update(row, 1.0 + i % 3);
    }
    first.Merge(second);
    return first.GetXProds().AsVector();
  });
}

TEST(Threads, EachWritesItsOwnTree) {
  ExpectSameOnEveryThread<std::string>([] {
    using namespace QVXML_940;
    std::ostringstream out;
    XMLElement * root = XMLElement::Create("Table");
    for (int i = 0; i < 200; ++i) {
      XMLElement * row = XMLElement::Create("Row");
      row->AddAttribute("label", "caf\xC3\xA9 < " + std::to_string(i));
      row->AddAttribute("value", Value(i, 3));
      root->AddElement(row);
    }
    WriteTreeUTF8(out, nullptr, root, true);
    delete root;
    return out.str();
  });
}
