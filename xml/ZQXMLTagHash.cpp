#include "xml/ZQXMLTagHash.h"

#include <array>
#include <cstring>
#include <new>

#include "xml/ZQXMLException.h"
#include "xml/ZQXMLText.h"
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
  auto* node = new (std::nothrow) ChainNode{text, strlen(text), id, head};
  if (node == nullptr) {
    throw ZQXMLException(ZQ_MESSAGE_OUT_OF_MEMORY);
  }
  head = node;
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

// All tags are ASCII: the name is made a text of bytes on the way, and the rest of the work is
// comparing blocks. No tag of the vocabulary is as long as the buffer, but the table would take
// one.
int ZQXMLTagHash::Get(const XMLCh* text) const {
  if (text == nullptr) {
    return tag_unknown;
  }
  char name[64];
  size_t length = 0;
  size_t sum = 0;
  unsigned seen = 0;
  for (; text[length] != 0; ++length) {
    if (length == sizeof name) {
      return Get(ZQXMLToLocal(text).c_str());
    }
    sum += text[length];
    seen |= text[length];
    name[length] = static_cast<char>(text[length]);
  }
  if (seen > 127) {
    return tag_unknown;
  }
  for (const ChainNode* node = buckets[sum % kBuckets]; node != nullptr; node = node->next) {
    if (node->length == length && memcmp(node->tag, name, length) == 0) {
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
