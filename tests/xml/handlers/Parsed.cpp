#include "xml/handlers/Parsed.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>

#include "records/Members.h"
#include "records/RecordTools.h"
#include "records/StatusLists.h"

namespace {

std::string kindName(uint32_t kind) {
  switch (kind) {
    case ZQXML_FILTER:
      return "filter";
    case ZQXML_ESCALATION:
      return "escalation";
    default:
      return "kind " + std::to_string(kind);
  }
}

void expectReadsGoodDocument(ZQXMLParserHandle* handle) {
  const Parsed good(handle,
                    "<root><filter><filterName>Good</filterName><ifActions><action><gotoGuide>"
                    "<label>L</label></gotoGuide></action></ifActions></filter></root>");
  EXPECT_EQ(good.records(),
            "0 | filter{name=\"Good\" actionList[{action=11 gotoGuide{label=\"L\"}}]} | ");
}

}  // namespace

Selection::Selection(std::initializer_list<std::pair<uint32_t, const char*>> wanted)
    : ZQStructItemList{} {
  for (const auto& [kind, name] : wanted) {
    ZQStructItemStruct& item = kept.emplace_back();
    item = {};
    item.itemType = kind;
    strncpy(item.name, name, sizeof item.name - 1);
  }
  numItems = static_cast<uint32_t>(kept.size());
  items = kept.data();
}

Parsed::Parsed(ZQXMLParserHandle* handle, const std::string& document,
               ZQStructItemList* selection) {
  std::string text = document;
  text.shrink_to_fit();
  const ZQXMLInputDoc input = {ZQXML_INPUT_MEMORY, text.data()};
  // What the outputs held is overwritten, not freed.
  ZQXMLObjectList oldNode = {};
  stream.objectList = &oldNode;
  ZQStructItemStruct oldItem = {};
  ZQStructItemList parsed = {1, &oldItem};
  ZQStatusStruct oldRecord = {};
  ZQStatusList list = {1, &oldRecord};
  result = ParseXMLDocument(handle, &input, selection, &stream, &parsed, &list);
  const ZQXMLObjectList* node = stream.objectList;
  for (uint32_t i = 0; i < parsed.numItems; ++i) {
    const ZQStructItemStruct& item = parsed.items[i];
    EXPECT_EQ(item.selectedElements.numItems, 0U);
    objects += (i > 0 ? ", " : "") + kindName(item.itemType) + " " + item.name;
    if (node == nullptr) {
      ADD_FAILURE() << "more names than nodes";
      continue;
    }
    EXPECT_EQ(node->objectType, item.itemType);
    node = node->next;
  }
  EXPECT_EQ(node, nullptr);
  EXPECT_EQ(parsed.items == nullptr, parsed.numItems == 0);
  if (result != 0) {
    EXPECT_EQ(stream.objectList, nullptr);
  }
  status = describe(list);
  for (uint32_t i = 0; i < list.numItems; ++i) {
    char wanted[ZQ_MESSAGE_TEXT_SIZE];
    ZQGetTextForMessage(list.items[i].messageNum, wanted);
    EXPECT_STREQ(list.items[i].messageText, wanted);
  }
  EXPECT_EQ(GetXMLParserPosition(handle, &line, &column), 0);
  FreeZQStructItemList(&parsed, 0);
  FreeZQStatusList(&list, 0);
}

Parsed::~Parsed() {
  freeWhole(stream);
}

void freeWhole(ZQXMLParsedStream& stream) {
  std::vector<void*> kept;
  for (const ZQXMLObjectList* node = stream.objectList; node != nullptr; node = node->next) {
    const std::vector<void*> blocks = node->objectType == ZQXML_FILTER
                                          ? tools::KeptBlocks::of(node->object.filter)
                                          : tools::KeptBlocks::of(node->object.escalation);
    kept.insert(kept.end(), blocks.begin(), blocks.end());
  }
  FreeZQXMLParsedStreamInternal(&stream, 0);
  for (void* block : kept) {
    free(block);
  }
}

std::string Parsed::outcome() const {
  Listing listing;
  listing.result = result;
  listing.objects = objects;
  listing.status = status;
  return listing.text();
}

std::string Parsed::records() const {
  Listing listing;
  listing.result = result;
  listing.status = status;
  for (const ZQXMLObjectList* node = stream.objectList; node != nullptr; node = node->next) {
    if (!listing.objects.empty()) {
      listing.objects += ", ";
    }
    if (node->objectType == ZQXML_FILTER) {
      listing.objects += "filter{" + Members::of(node->object.filter) + "}";
    } else if (node->objectType == ZQXML_ESCALATION) {
      listing.objects += "escalation{" + Members::of(node->object.escalation) + "}";
    } else {
      listing.objects += kindName(node->objectType);
    }
  }
  return listing.text();
}

ZQXMLParserHandle* sharedHandle() {
  static ParserHandle handle;
  return &handle;
}

std::string outcomeOf(const std::string& document, ZQStructItemList* selection) {
  const std::string outcome = Parsed(sharedHandle(), document, selection).outcome();
  expectReadsGoodDocument(sharedHandle());
  return outcome;
}

std::string recordsOf(const std::string& document, ZQStructItemList* selection) {
  const std::string records = Parsed(sharedHandle(), document, selection).records();
  expectReadsGoodDocument(sharedHandle());
  return records;
}

std::string inRoot(const std::string& content) {
  return "<root>" + content + "</root>";
}

std::string membersOf(const std::string& document) {
  const Parsed parsed(sharedHandle(), document);
  std::string members;
  if (parsed.result != 0) {
    members = parsed.status;
  } else if (parsed.stream.objectList == nullptr) {
    members = "no object";
  } else if (parsed.stream.objectList->objectType == ZQXML_FILTER) {
    members = Members::of(parsed.stream.objectList->object.filter);
  } else {
    members = Members::of(parsed.stream.objectList->object.escalation);
  }
  expectReadsGoodDocument(sharedHandle());
  return members;
}
