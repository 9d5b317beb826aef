#include "AllRecords.h"

#include <cstdlib>
#include <type_traits>

#include "RecordWalk.h"
#include "zqxml/copy.h"
#include "zqxml/free.h"
#include "zqxml/status.h"

namespace {

// Takes those parts out of a record that are deliberately left out, without a failure, when memory
// runs out for them: texts of functional currencies, lists of currencies, and the lists of sort
// entries, indexes and result list fields.
class UntoldParts : public RecordWalk<UntoldParts> {
 public:
  template <typename Record>
  void record(const char*, Record& member) {
    if constexpr (std::is_same_v<Record, ZQFuncCurrencyStruct>) {
      free(member.value);
      member.value = nullptr;
    } else if constexpr (std::is_same_v<Record, ZQCurrencyDetailList> ||
                         std::is_same_v<Record, ZQSortList> ||
                         std::is_same_v<Record, ZQIndexList> ||
                         std::is_same_v<Record, ZQEntryListFieldList>) {
      free(member.items);
      member = {};
    } else {
      records::visit(*this, member);
    }
  }
};

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
void takeOutUntoldPartsOfAny(void* record) {
  UntoldParts().record("", *static_cast<Record*>(record));
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
          takeOutUntoldPartsOfAny<Record>,
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
