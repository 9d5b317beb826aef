#include "xml/ZQXMLTagHash.h"

#include <array>
#include <cstring>
#include <memory>
#include <new>

#include "xml/ZQXMLException.h"
#include "zqxml/messages.h"

namespace {

constexpr uint32_t kEndMarkerId = 0xFFFFFFFF;
// From here on an id isn't one, and ends the list.
constexpr uint32_t kFirstReservedId = 0xFFFFFFFE;

constexpr ZQXMLTagHash::Entry kEntries[] = {
#define TAG(id, symbol, text) {text, id},
#include "xml/tags.def"
#undef TAG
    {nullptr, kEndMarkerId},
};

struct TagTexts {
  std::string_view local;
  const XMLCh* xml = nullptr;
};

// By id. An id that is out of range or given twice leaves another one without text, which the
// assertion finds.
constexpr auto kTextsById = [] {
  std::array<TagTexts, kTagCount + 1> texts{};
#define TAG(id, symbol, text) texts[id] = {text, u##text};
#include "xml/tags.def"
#undef TAG
  return texts;
}();

static_assert(std::size(kEntries) == kTagCount + 1);
static_assert([] {
  for (size_t id = 1; id < kTextsById.size(); ++id) {
    if (kTextsById[id].local.empty()) {
      return false;
    }
  }
  return true;
}());

constexpr XMLCh kNoText[] = u"";

// The bucket of a name. The factors spread the vocabulary over the buckets.
size_t nameKey(const XMLCh* name, size_t length) {
  if (length == 0) {
    return 0;
  }
  const size_t first = name[0];
  const size_t middle = name[length / 2];
  const size_t last = name[length - 1];
  return (length + first * 5 + middle * 41 + last * 181) % ZQXMLTagHash::kNameBuckets;
}

bool isTag(int id) {
  return id >= 1 && id <= kTagCount;
}

}  // namespace

const ZQXMLTagHash gTagHash;

std::string_view tagText(int id) {
  return isTag(id) ? kTextsById[static_cast<size_t>(id)].local : std::string_view();
}

const XMLCh* tagXMLText(int id) {
  return isTag(id) ? kTextsById[static_cast<size_t>(id)].xml : kNoText;
}

ZQXMLTagHash::ZQXMLTagHash() {
  try {
    Initialize();
  } catch (...) {
    clear();
    throw;
  }
}

ZQXMLTagHash::~ZQXMLTagHash() {
  clear();
}

void ZQXMLTagHash::clear() {
  for (ChainNode*& head : buckets) {
    while (head != nullptr) {
      const ChainNode* node = head;
      head = node->next;
      delete node;
    }
  }
}

int ZQXMLTagHash::GetHashKey(const char* text) {
  size_t sum = 0;
  for (; *text != '\0'; ++text) {
    sum += static_cast<unsigned char>(*text);
  }
  return static_cast<int>(sum % kBuckets);
}

void ZQXMLTagHash::Insert(const char* text, int id) {
  ChainNode*& head = buckets[GetHashKey(text)];
  const auto* bytes = reinterpret_cast<const unsigned char*>(text);
  try {
    auto node = std::make_unique<ChainNode>();
    node->tag = text;
    node->name.assign(bytes, bytes + strlen(text));
    node->id = id;
    node->next = head;
    ChainNode*& nameHead = nameBuckets[nameKey(node->name.data(), node->name.size())];
    node->nextName = nameHead;
    nameHead = node.get();
    head = node.release();
  } catch (const std::bad_alloc&) {
    throw ZQXMLException(ZQ_MESSAGE_OUT_OF_MEMORY);
  }
}

int ZQXMLTagHash::Get(const char* text) const {
  if (text == nullptr) {
    return tag_unknown;
  }
  for (const ChainNode* node = buckets[GetHashKey(text)]; node != nullptr; node = node->next) {
    if (strcmp(node->tag, text) == 0) {
      return node->id;
    }
  }
  return tag_unknown;
}

// The names of elements come here, one for every start tag. Most of the time would go into the sum
// of their bytes, so they have buckets of their own, by length and three units. All tags are ASCII,
// so a unit is a byte of a tag.
int ZQXMLTagHash::Get(const XMLCh* text) const {
  if (text == nullptr) {
    return tag_unknown;
  }
  size_t length = 0;
  while (text[length] != 0) {
    ++length;
  }
  for (const ChainNode* node = nameBuckets[nameKey(text, length)]; node != nullptr;
       node = node->nextName) {
    if (node->name.size() == length &&
        memcmp(node->name.data(), text, length * sizeof(XMLCh)) == 0) {
      return node->id;
    }
  }
  return tag_unknown;
}

void ZQXMLTagHash::Initialize() {
  Initialize(kEntries);
}

void ZQXMLTagHash::Initialize(const Entry* entries) {
  const Entry* entry = entries;
  for (; entry->tag != nullptr && entry->id < kFirstReservedId; ++entry) {
    Insert(entry->tag, static_cast<int>(entry->id));
  }
  if (entry->tag != nullptr || entry->id != kEndMarkerId) {
    throw ZQXMLException(ZQ_MESSAGE_XML_START_UP);
  }
}
