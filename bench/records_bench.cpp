// Deep copy and free of a condition beside plain allocation of the same blocks.

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <cstring>
#include <type_traits>
#include <utility>
#include <vector>

#include "records/describe.h"
#include "zqxml/copy.h"
#include "zqxml/free.h"

namespace {

template <typename Record>
Record* newRecord() {
  return static_cast<Record*>(calloc(1, sizeof(Record)));
}

// A comparison of a field with a text, such as workflow is full of.
void fillComparison(ZQQualifierStruct& node) {
  auto* relation = newRecord<ZQRelOpStruct>();
  relation->operation = 1;
  relation->operandLeft.tag = 1;
  relation->operandLeft.u.fieldId = 7;
  relation->operandRight.tag = 2;
  relation->operandRight.u.value.dataType = 4;
  relation->operandRight.u.value.u.characterValue = strdup("In progress");
  node.operation = 4;
  node.u.relationalOperation = relation;
}

enum Shape { kBalanced, kLeft, kRight };

// A condition of `numNodes` nodes, an odd number: comparisons, and an "and" above each two of them.
// Its blocks are allocated from the top down, as a reader of documents does.
void fillCondition(ZQQualifierStruct& node, int numNodes, Shape shape) {
  if (numNodes == 1) {
    fillComparison(node);
    return;
  }
  const int half = (numNodes - 1) / 2;
  const int left = shape == kBalanced ? half | 1 : shape == kLeft ? numNodes - 2 : 1;
  node.operation = 1;
  node.u.branches.left = newRecord<ZQQualifierStruct>();
  fillCondition(*node.u.branches.left, left, shape);
  node.u.branches.right = newRecord<ZQQualifierStruct>();
  fillCondition(*node.u.branches.right, numNodes - 1 - left, shape);
}

ZQQualifierStruct newCondition(const benchmark::State& state) {
  ZQQualifierStruct node = {};
  fillCondition(node, static_cast<int>(state.range(0)), static_cast<Shape>(state.range(1)));
  return node;
}

// The sizes of the blocks that hang from a condition.
class BlockSizes {
 public:
  static std::vector<size_t> of(const ZQQualifierStruct& node) {
    BlockSizes sizes;
    records::visit(sizes, node);
    return sizes.sizes_;
  }

  void scalar(const char*, const auto&) {}
  void tag(const char*, const uint32_t&, const auto&) {}
  void chars(const char*, const auto&) {}
  void numbers(const char*, const auto&) {}
  void text(const char*, const char* text) {
    if (text != nullptr) {
      sizes_.push_back(strlen(text) + 1);
    }
  }
  void bytes(const char*, const uint32_t& count, const char*, const unsigned char* bytes) {
    if (bytes != nullptr) {
      sizes_.push_back(count);
    }
  }
  template <typename Element>
  void array(const char*, const uint32_t& count, const char* name, Element* items) {
    if (items == nullptr) {
      return;
    }
    sizes_.push_back(count * sizeof(Element));
    for (uint32_t i = 0; i < count; ++i) {
      records::visitElement(*this, name, std::as_const(items[i]));
    }
  }
  template <typename Record>
  void block(const char*, Record* member) {
    if (member != nullptr) {
      sizes_.push_back(sizeof(Record));
      records::visit(*this, std::as_const(*member));
    }
  }
  void record(const char*, const auto& member) { records::visit(*this, member); }

 private:
  std::vector<size_t> sizes_;
};

void BM_CopyAndFree(benchmark::State& state) {
  ZQQualifierStruct source = newCondition(state);
  for (auto _ : state) {
    ZQQualifierStruct copy;
    if (CopyZQQualifierStruct(&copy, &source) != 0) {
      state.SkipWithError("out of memory");
      break;
    }
    benchmark::DoNotOptimize(copy);
    FreeZQQualifierStruct(&copy, 0);
  }
  state.counters["blocks"] = static_cast<double>(BlockSizes::of(source).size());
  FreeZQQualifierStruct(&source, 0);
}

void BM_MallocAndFree(benchmark::State& state) {
  ZQQualifierStruct source = newCondition(state);
  const std::vector<size_t> sizes = BlockSizes::of(source);
  std::vector<void*> blocks(sizes.size());
  for (auto _ : state) {
    for (size_t i = 0; i < sizes.size(); ++i) {
      blocks[i] = malloc(sizes[i]);
    }
    benchmark::DoNotOptimize(blocks.data());
    benchmark::ClobberMemory();
    for (void* block : blocks) {
      free(block);
    }
  }
  state.counters["blocks"] = static_cast<double>(sizes.size());
  FreeZQQualifierStruct(&source, 0);
}

BENCHMARK(BM_CopyAndFree)->Args({999, kBalanced})->Args({999, kLeft})->Args({999, kRight});
BENCHMARK(BM_MallocAndFree)->Args({999, kBalanced})->Args({999, kLeft})->Args({999, kRight});

}  // namespace
