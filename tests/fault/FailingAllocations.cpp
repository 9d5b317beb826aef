#include "fault/FailingAllocations.h"

#include <atomic>
#include <cstdlib>
#include <cstring>
#include <new>

namespace {

std::atomic<long> gLiveBlocks{0};

struct ThreadState {
  long count = 0;
  long failAt = -1;
  bool failFromThere = false;
  bool happened = false;
};
thread_local ThreadState tState;

bool nextOneFails() {
  const long index = tState.count++;
  const bool fails = tState.failAt >= 0 &&
                     (tState.failFromThere ? index >= tState.failAt : index == tState.failAt);
  tState.happened = tState.happened || fails;
  return fails;
}

void* counted(void* block) {
  if (block != nullptr) {
    gLiveBlocks.fetch_add(1, std::memory_order_relaxed);
  }
  return block;
}

}  // namespace

extern "C" {

void* __real_malloc(size_t size);
void* __real_calloc(size_t count, size_t size);
void* __real_realloc(void* block, size_t size);
void __real_free(void* block);
char* __real_strdup(const char* text);
char* __real_strndup(const char* text, size_t size);

void* __wrap_malloc(size_t size);
void* __wrap_calloc(size_t count, size_t size);
void* __wrap_realloc(void* block, size_t size);
void __wrap_free(void* block);
char* __wrap_strdup(const char* text);
char* __wrap_strndup(const char* text, size_t size);

void* __wrap_malloc(size_t size) {
  return nextOneFails() ? nullptr : counted(__real_malloc(size));
}

void* __wrap_calloc(size_t count, size_t size) {
  return nextOneFails() ? nullptr : counted(__real_calloc(count, size));
}

void* __wrap_realloc(void* block, size_t size) {
  if (nextOneFails()) {
    return nullptr;
  }
  void* grown = __real_realloc(block, size);
  return block == nullptr ? counted(grown) : grown;
}

void __wrap_free(void* block) {
  if (block != nullptr) {
    gLiveBlocks.fetch_sub(1, std::memory_order_relaxed);
  }
  __real_free(block);
}

char* __wrap_strdup(const char* text) {
  return nextOneFails() ? nullptr : static_cast<char*>(counted(__real_strdup(text)));
}

char* __wrap_strndup(const char* text, size_t size) {
  return nextOneFails() ? nullptr : static_cast<char*>(counted(__real_strndup(text, size)));
}

}  // extern "C"

void* operator new(size_t size) {
  void* block = __wrap_malloc(size);
  if (block == nullptr) {
    throw std::bad_alloc();
  }
  return block;
}

void* operator new(size_t size, const std::nothrow_t&) noexcept {
  return __wrap_malloc(size);
}
void* operator new[](size_t size) {
  return operator new(size);
}
void* operator new[](size_t size, const std::nothrow_t&) noexcept {
  return __wrap_malloc(size);
}
void operator delete(void* block) noexcept {
  __wrap_free(block);
}
void operator delete[](void* block) noexcept {
  __wrap_free(block);
}
void operator delete(void* block, size_t) noexcept {
  __wrap_free(block);
}
void operator delete[](void* block, size_t) noexcept {
  __wrap_free(block);
}

namespace fault {

FailingAllocations::FailingAllocations(long index, Mode mode) {
  tState.failAt = tState.count + index;
  tState.failFromThere = mode == Mode::FromThere;
  tState.happened = false;
}

FailingAllocations::~FailingAllocations() {
  tState.failAt = -1;
}

bool FailingAllocations::happened() {
  return tState.happened;
}

long liveBlocks() {
  return gLiveBlocks.load();
}

long allocationCount() {
  return tState.count;
}

}  // namespace fault
