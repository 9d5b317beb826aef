#include "AllRecords.h"

#include "zqxml/copy.h"
#include "zqxml/free.h"
#include "zqxml/status.h"

namespace {

// A missing function is nullptr.
template <auto function>
constexpr bool kMissing = std::is_null_pointer_v<decltype(function)>;

template <typename Record, auto function>
void freeAny([[maybe_unused]] void* record, [[maybe_unused]] unsigned char freeStruct) {
  if constexpr (!kMissing<function>) {
    function(static_cast<Record*>(record), freeStruct);
  }
}

template <typename Record, auto function>
unsigned copyAny([[maybe_unused]] void* dest, [[maybe_unused]] const void* source) {
  if constexpr (!kMissing<function>) {
    return function(static_cast<Record*>(dest), static_cast<const Record*>(source));
  } else {
    return 0;
  }
}

template <typename Record>
void buildAny(void* record, uint32_t seed, tools::Fill fill, int depth) {
  tools::Builder builder(seed, fill, depth);
  records::visit(builder, *static_cast<Record*>(record));
}

template <typename Record>
std::string dumpAny(const void* record) {
  return tools::Dumper::dump(*static_cast<const Record*>(record));
}

template <typename Record>
std::string dumpCertainOfAny(const void* record) {
  return tools::Dumper::dumpCertain(*static_cast<const Record*>(record));
}

template <typename Record>
std::set<const void*> blocksOfAny(const void* record) {
  return tools::Blocks::of(*static_cast<const Record*>(record));
}

template <typename Record>
std::vector<void*> keptBlocksOfAny(const void* record) {
  return tools::KeptBlocks::of(*static_cast<const Record*>(record));
}

template <typename Record, auto freeFunction, auto copyFunction>
constexpr RecordKind kindOf(const char* name, const char* freeName, const char* copyName) {
  static_assert(std::is_trivial_v<Record> && std::is_standard_layout_v<Record>);
  return {name,
          kMissing<freeFunction> ? "" : freeName,
          kMissing<copyFunction> ? "" : copyName,
          sizeof(Record),
          buildAny<Record>,
          freeAny<Record, freeFunction>,
          copyAny<Record, copyFunction>,
          dumpAny<Record>,
          dumpCertainOfAny<Record>,
          blocksOfAny<Record>,
          keptBlocksOfAny<Record>};
}

const RecordKind kKinds[] = {
#define RECORD(name, freeFunction, copyFunction) \
  kindOf<name, freeFunction, copyFunction>(#name, #freeFunction, #copyFunction),
#include "all_records.def"
#undef RECORD
};

}  // namespace

std::span<const RecordKind> allRecords() {
  return kKinds;
}
