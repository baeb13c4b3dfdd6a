// Values beside std::variant, named rows beside std::map, rows in memory beside memcpy, and the
// packed keys beside plain loops.

#include <cstdint>
#include <cstring>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <variant>
#include <vector>

#include "MemoryRecordIterator.h"
#include "QVHashKey.h"
#include "QVPackedInt.h"
#include "Value.h"
#include "ValueRecord.h"
#include "contender.h"

using QVCommon_940::MemoryRecordIterator;
using QVCommon_940::Record;
using QVCommon_940::Value;
using QVCommon_940::ValueRecord;

namespace {

constexpr unsigned kSeed = 20240229;
constexpr int kBatch = 100;  // values copied in one turn, so that the loop itself does not count

// --- Values --------------------------------------------------------------------------------------

struct Variant;
using Alternatives = std::variant<std::monostate, bool, std::int64_t, double, std::string,
                                  std::vector<Variant>, std::map<std::string, Variant>>;
struct Variant : Alternatives {
  using Alternatives::Alternatives;
};

// The same with its text behind a pointer, as in a value of 16 bytes.
class OwnedText {
 public:
  explicit OwnedText(const char * text) : fText(std::make_unique<std::string>(text)) {}
  OwnedText(const OwnedText & other) : fText(std::make_unique<std::string>(*other.fText)) {}
  OwnedText & operator=(const OwnedText &) = delete;
  const std::string & Get() const { return *fText; }

 private:
  std::unique_ptr<std::string> fText;
};
using SmallVariant = std::variant<std::monostate, bool, std::int64_t, double, OwnedText>;

// Copies all of `source` into raw storage and destroys the copies.
template <typename T>
void CopyAndDestroy(benchmark::State & state, const std::vector<T> & source) {
  std::allocator<T> allocator;
  T * copies = allocator.allocate(source.size());
  for (auto _ : state) {
    std::uninitialized_copy(source.begin(), source.end(), copies);
    benchmark::DoNotOptimize(copies);
    benchmark::ClobberMemory();
    std::destroy_n(copies, source.size());
  }
  allocator.deallocate(copies, source.size());
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(source.size()));
}

void RegisterValues() {
  AddContender("ValueCopy/number", "qv", [](benchmark::State & state) {
    CopyAndDestroy(state, std::vector<Value>(kBatch, Value(2.5)));
  });
  AddContender("ValueCopy/number", "std_variant", [](benchmark::State & state) {
    CopyAndDestroy(state, std::vector<Variant>(kBatch, Variant(2.5)));
  });
  AddContender("ValueCopy/short_text", "qv", [](benchmark::State & state) {
    CopyAndDestroy(state, std::vector<Value>(kBatch, Value("category")));
  });
  AddContender("ValueCopy/short_text", "std_variant", [](benchmark::State & state) {
    CopyAndDestroy(state, std::vector<Variant>(kBatch, Variant(std::string("category"))));
  });
  AddContender("ValueCopy/short_text", "std_variant_of_16_bytes", [](benchmark::State & state) {
    static_assert(sizeof(SmallVariant) == sizeof(Value));
    CopyAndDestroy(state, std::vector<SmallVariant>(kBatch, SmallVariant(OwnedText("category"))));
  });
  constexpr int kItems = 1000;
  AddContender("ValueCopy/array_of_1000", "qv", [](benchmark::State & state) {
    Value array;
    for (int i = 0; i < kItems; ++i)
      array[i] = 0.5 * i;
    if (!(Value(array) == array)) state.SkipWithError("the copy differs");
    for (auto _ : state) {
      Value copy(array);
      benchmark::DoNotOptimize(copy);
    }
  });
  AddContender("ValueCopy/array_of_1000", "std_variant", [](benchmark::State & state) {
    std::vector<Variant> items;
    for (int i = 0; i < kItems; ++i)
      items.emplace_back(0.5 * i);
    const Variant array(items);
    for (auto _ : state) {
      Variant copy(array);
      benchmark::DoNotOptimize(copy);
    }
  });
}

// --- Named rows ----------------------------------------------------------------------------------

constexpr int kFields = 20;

std::vector<std::string> FieldNames() {
  std::vector<std::string> names;
  for (int i = 0; i < kFields; ++i)
    names.push_back("field" + std::to_string(i * 37 % kFields));
  return names;
}

// One turn looks up every name once.
void RegisterNamedRows() {
  const std::vector<std::string> names = FieldNames();
  AddContender("ValueRecordIndexOf/20", "qv", [names](benchmark::State & state) {
    ValueRecord record;
    for (const std::string & name : names)
      record.Add(name, record.Size() + 0.5);
    for (auto _ : state) {
      for (const std::string & name : names)
        benchmark::DoNotOptimize(record.IndexOf(name));
    }
  });
  AddContender("ValueRecordIndexOf/20", "std_map", [names](benchmark::State & state) {
    std::map<std::string, Value> record;
    for (const std::string & name : names)
      record.emplace(name, record.size() + 0.5);
    for (auto _ : state) {
      for (const std::string & name : names)
        benchmark::DoNotOptimize(record.find(name));
    }
  });
  AddContender("ValueRecordGet/20", "qv", [names](benchmark::State & state) {
    ValueRecord record;
    for (const std::string & name : names)
      record.Add(name, record.Size() + 0.5);
    for (auto _ : state) {
      for (const std::string & name : names)
        benchmark::DoNotOptimize(record.Get(name));
    }
  });
  AddContender("ValueRecordGet/20", "std_map", [names](benchmark::State & state) {
    std::map<std::string, Value> record;
    for (const std::string & name : names)
      record.emplace(name, record.size() + 0.5);
    for (auto _ : state) {
      for (const std::string & name : names) {
        const auto found = record.find(name);
        benchmark::DoNotOptimize(found == record.end() ? Value() : Value(found->second));
      }
    }
  });
}

// --- Rows in memory ------------------------------------------------------------------------------

constexpr int kRows = 1000000;
constexpr int kColumns = 20;

struct Rows {
  Rows() : leading(kRows), block(static_cast<std::size_t>(kRows) * kColumns), trailing(kRows) {
    std::mt19937_64 generator(kSeed);
    std::uniform_real_distribution<double> uniform;
    for (std::vector<double> * numbers : {&leading, &block, &trailing}) {
      for (double & x : *numbers)
        x = uniform(generator);
    }
  }
  std::vector<double> leading, block, trailing;
};

void RegisterRowsInMemory() {
  AddContender("MemoryRecordIterator/1000000x20", "qv", [](benchmark::State & state) {
    const Rows rows;
    MemoryRecordIterator walk(kRows, kColumns, rows.leading.data(), rows.block.data(),
                              rows.trailing.data());
    for (auto _ : state) {
      walk.NewPass();
      while (walk.HasMore()) {
        const Record * row = walk.Next();
        benchmark::DoNotOptimize(row);
        benchmark::ClobberMemory();
      }
    }
  })->Unit(benchmark::kMillisecond);
  AddContender("MemoryRecordIterator/1000000x20", "memcpy", [](benchmark::State & state) {
    const Rows rows;
    std::vector<double> row(kColumns);
    for (auto _ : state) {
      for (int r = 0; r < kRows; ++r) {
        std::memcpy(row.data(), rows.block.data() + static_cast<std::size_t>(r) * kColumns,
                    kColumns * sizeof(double));
        benchmark::DoNotOptimize(row.data());
        benchmark::ClobberMemory();
      }
    }
  })->Unit(benchmark::kMillisecond);
}

// --- Packed keys ---------------------------------------------------------------------------------

constexpr int kLength = 8;
constexpr int kPositions = 10;

QVMath_940::QVHashKey ExampleKey() {
  QVMath_940::QVHashKey key(kLength);
  for (int i = 0; i < kLength; ++i)
    key[i] = 1000 * i + 7;
  key.UpdateHashCode();
  return key;
}

void RegisterKeys() {
  AddContender("HashKeyHash/8", "qv", [](benchmark::State & state) {
    QVMath_940::QVHashKey key = ExampleKey();
    for (auto _ : state) {
      key.UpdateHashCode();
      benchmark::DoNotOptimize(key);
    }
  });
  AddContender("HashKeyHash/8", "plain_loop", [](benchmark::State & state) {
    static const unsigned primes[kLength] = {3, 5, 7, 11, 13, 17, 19, 23};
    const QVMath_940::QVHashKey key = ExampleKey();
    std::vector<int> elements(kLength);
    for (int i = 0; i < kLength; ++i)
      elements[i] = key[i];
    const auto hash = [&elements] {
      unsigned code = 0;
      for (int i = 0; i < kLength; ++i)
        code ^= primes[i] * static_cast<unsigned>(elements[i]);
      return static_cast<int>(code);
    };
    if (hash() != key.GetHashcode()) state.SkipWithError("another hash code");
    for (auto _ : state) {
      benchmark::DoNotOptimize(elements.data());
      benchmark::ClobberMemory();
      benchmark::DoNotOptimize(hash());
    }
  });
  AddContender("HashKeyCompare/8", "qv", [](benchmark::State & state) {
    QVMath_940::QVHashKey a = ExampleKey(), b = a;
    for (auto _ : state) {
      benchmark::DoNotOptimize(a);
      benchmark::DoNotOptimize(a == b);
    }
  });
  AddContender("HashKeyCompare/8", "plain_loop", [](benchmark::State & state) {
    std::vector<int> a(kLength, 7), b = a;
    for (auto _ : state) {
      benchmark::DoNotOptimize(a.data());
      benchmark::ClobberMemory();
      bool equal = true;
      for (int i = 0; i < kLength && equal; ++i)
        equal = a[i] == b[i];
      benchmark::DoNotOptimize(equal);
    }
  });
  static const std::vector<int> numbers = {3, 4, 5, 2, 7, 3, 4, 5, 2, 7};
  static const std::vector<int> sequence = {2, 3, 4, 1, 6, 2, 0, 1, 1, 3};
  AddContender("PackedIntPack/10", "qv", [](benchmark::State & state) {
    const QVMath_940::QVPackedInt codec(kPositions, 0, numbers);
    std::vector<int> packed;
    for (auto _ : state) {
      benchmark::DoNotOptimize(codec.Pack(sequence, packed, false));
      benchmark::DoNotOptimize(packed.data());
    }
  });
  AddContender("PackedIntPack/10", "plain_loop", [](benchmark::State & state) {
    std::vector<int> values = sequence;
    for (auto _ : state) {
      benchmark::DoNotOptimize(values.data());
      benchmark::ClobberMemory();
      int code = 0;
      for (int i = kPositions - 1; i >= 0; --i)
        code = code * numbers[i] + values[i];
      benchmark::DoNotOptimize(code);
    }
  });
  AddContender("PackedIntUnpack/10", "qv", [](benchmark::State & state) {
    const QVMath_940::QVPackedInt codec(kPositions, 0, numbers);
    std::vector<int> packed, unpacked;
    codec.Pack(sequence, packed, true);
    codec.Unpack(unpacked, packed);
    if (unpacked != sequence) state.SkipWithError("another sequence");
    for (auto _ : state) {
      benchmark::DoNotOptimize(codec.Unpack(unpacked, packed));
      benchmark::DoNotOptimize(unpacked.data());
    }
  });
  AddContender("PackedIntUnpack/10", "plain_loop", [](benchmark::State & state) {
    int code = 0;
    for (int i = kPositions - 1; i >= 0; --i)
      code = code * numbers[i] + sequence[i];
    std::vector<int> values(kPositions);
    for (auto _ : state) {
      benchmark::DoNotOptimize(code);
      int rest = code;
      for (int i = 0; i < kPositions; ++i) {
        values[i] = rest % numbers[i];
        rest /= numbers[i];
      }
      benchmark::DoNotOptimize(values.data());
      benchmark::ClobberMemory();
    }
    if (values != sequence) state.SkipWithError("another sequence");
  });
}

}  // namespace

void RegisterBenchmarks() {
  RegisterValues();
  RegisterNamedRows();
  RegisterRowsInMemory();
  RegisterKeys();
}
