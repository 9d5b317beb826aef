// The vocabulary of the definition format as a hash table: every element, attribute and enumeration
// word has a small id, so that handlers switch on integers.
#ifndef ZQXML_XML_ZQXMLTAGHASH_H
#define ZQXML_XML_ZQXMLTAGHASH_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <xercesc/util/XercesDefs.hpp>

// The ids: tag_formName and so on.
enum Tag : int {
#define TAG(id, symbol, text) tag_##symbol = id,
#include "xml/tags.def"
#undef TAG
};

// What Get returns for a text that is no tag.
constexpr int tag_unknown = -1;
constexpr int kTagCount = 656;

// The text of a tag; empty for a number that is no id.
std::string_view tagText(int id);

// The text of a tag as the DOM wants it, zero-terminated; empty for a number that is no id.
const XMLCh* tagXMLText(int id);

class ZQXMLTagHash {
 public:
  // A row of the list that the table is filled from; the end marker has a null text and an id with
  // all bits set.
  struct Entry {
    const char* tag;
    uint32_t id;
  };

  // Filled with the vocabulary. Throws ZQXMLException 300 or 8938.
  ZQXMLTagHash();
  ~ZQXMLTagHash();
  ZQXMLTagHash(const ZQXMLTagHash&) = delete;
  ZQXMLTagHash& operator=(const ZQXMLTagHash&) = delete;

  // The bucket of a text: the sum of its bytes modulo the number of buckets.
  static int GetHashKey(const char* text);

  // Adds an entry at the head of its bucket; the text is not copied. Throws ZQXMLException 300.
  void Insert(const char* text, int id);

  // The id of a text, or tag_unknown, also for null. It is the same for a name as the XML parser
  // delivers it.
  int Get(const char* text) const;
  int Get(const XMLCh* text) const;

  // Adds the entries up to the end marker. Throws ZQXMLException 8938 if the list does not end with
  // exactly that.
  void Initialize();
  void Initialize(const Entry* entries);

  static constexpr size_t kBuckets = 719;
  static constexpr size_t kNameBuckets = 2048;

 private:
  struct ChainNode {
    const char* tag;
    std::u16string name;  // the same as the XML parser delivers it
    int id;
    ChainNode* next;      // in the bucket of the sum of bytes
    ChainNode* nextName;  // in the bucket of the name
  };

  void clear();

  ChainNode* buckets[kBuckets] = {};
  ChainNode* nameBuckets[kNameBuckets] = {};
};

// The one table of the process, read-only once static initialisation is over.
extern const ZQXMLTagHash gTagHash;

#endif
