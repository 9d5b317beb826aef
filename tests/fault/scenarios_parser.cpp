// Parser handles, the list of the objects of a document, and reading them. The XML parser's own
// allocations fail too.

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "fault/Documents.h"
#include "fault/Scenario.h"
#include "fault/Support.h"
#include "records/RecordTools.h"
#include "records/StatusLists.h"
#include "xml/Listing.h"
#include "xml/objectchain.h"
#include "zqxml/zqxml.h"

namespace fault {

namespace {

// A document as it is handed to the parser: its text, or the name of a file with it.
class Input : public ZQXMLInputDoc {
 public:
  Input(uint32_t kind, const std::string& document) : ZQXMLInputDoc{kind, nullptr} {
    text = kind == ZQXML_INPUT_MEMORY ? document : folder().write(newName(), document);
    doc = text.data();
  }
  Input(const Input&) = delete;
  Input& operator=(const Input&) = delete;

 private:
  // Of a file that no other scenario writes.
  static std::string newName() {
    static int count = 0;
    return "document" + std::to_string(++count) + ".xml";
  }

  std::string text;
};

// What a call gave, as a text.
struct Outcome {
  int result = 0;
  std::string objects;
  std::string status;
};

class Lists {
 public:
  Lists() = default;
  Lists(const Lists&) = delete;
  Lists& operator=(const Lists&) = delete;
  ~Lists() {
    FreeZQUnsignedIntList(&types, 0);
    FreeZQNameList(&names, 0);
    FreeZQUnsignedIntList(&subTypes, 0);
  }

  int fill(ZQXMLParserHandle* handle, const ZQXMLInputDoc& input) {
    return GetListXMLObjects(handle, &input, &types, &names, &subTypes, &status);
  }
  Outcome outcome(int result) const {
    Outcome outcome = {result, "", describe(status)};
    EXPECT_EQ(names.numItems, types.numItems);
    EXPECT_EQ(subTypes.numItems, types.numItems);
    for (uint32_t i = 0; i < types.numItems; ++i) {
      outcome.objects += std::to_string(types.items[i] & 0xFF) + " " + names.items[i] + " " +
                         std::to_string(subTypes.items[i] + 1) + "; ";
    }
    return outcome;
  }

 private:
  ZQUnsignedIntList types = {};
  ZQNameList names = {};
  ZQUnsignedIntList subTypes = {};
  OwnedStatusList status;
};

class Objects {
 public:
  Objects() = default;
  Objects(const Objects&) = delete;
  Objects& operator=(const Objects&) = delete;
  ~Objects() {
    FreeZQStructItemList(&names, 0);
    releaseChain(stream.objectList);
  }

  int fill(ZQXMLParserHandle* handle, const ZQXMLInputDoc& input) {
    return ParseXMLDocument(handle, &input, nullptr, &stream, &names, &status);
  }
  Outcome outcome(int result) const {
    Outcome outcome = {result, "", describe(status)};
    uint32_t count = 0;
    for (const ZQXMLObjectList* node = stream.objectList; node != nullptr; node = node->next) {
      outcome.objects += node->objectType == ZQXML_FILTER
                             ? tools::Dumper::dump(node->object.filter)
                             : tools::Dumper::dump(node->object.escalation);
      if (count < names.numItems) {
        EXPECT_EQ(names.items[count].itemType, node->objectType);
      }
      ++count;
    }
    EXPECT_TRUE(names.numItems == count || (names.numItems == 0 && result != 0));
    return outcome;
  }

 private:
  ZQXMLParsedStream stream = {};
  ZQStructItemList names = {};
  OwnedStatusList status;
};

// One call with a handle that has read nothing yet, or that has read the document before; and then
// the same call without a failure.
template <typename Results>
void read(Attempt& attempt, const Input& input, bool fresh, const Outcome& good) {
  ParserHandle handle;
  if (!fresh) {
    Results results;
    EXPECT_EQ(results.fill(&handle, input), good.result);
  }
  {
    Results results;
    const Outcome outcome =
        results.outcome(attempt.call([&] { return results.fill(&handle, input); }));
    if (!attempt.failed()) {
      EXPECT_EQ(outcome.result, good.result);
      EXPECT_EQ(outcome.objects, good.objects);
      EXPECT_EQ(outcome.status, good.status);
    } else if (outcome.result == 2) {
      EXPECT_TRUE(outcome.objects.empty() || outcome.objects == good.objects);
      // What the document itself was to blame for may have been told before or instead.
      EXPECT_TRUE(outcome.status == "2/300 " || outcome.status.starts_with("2/300 ; ") ||
                  (good.result == 2 && outcome.status == good.status))
          << outcome.status;
    } else if (outcome.result == 3) {
      // No memory for the record either.
      EXPECT_TRUE(outcome.objects.empty() || outcome.objects == good.objects);
      EXPECT_TRUE(outcome.status.empty() || outcome.status == good.status) << outcome.status;
    } else {
      // The XML parser got along without that memory.
      EXPECT_EQ(outcome.result, good.result);
      EXPECT_EQ(outcome.objects, good.objects);
      EXPECT_EQ(outcome.status, good.status);
    }
  }
  Results results;
  const Outcome again = results.outcome(results.fill(&handle, input));
  EXPECT_EQ(again.result, good.result);
  EXPECT_EQ(again.objects, good.objects);
  EXPECT_EQ(again.status, good.status);
}

template <typename Results>
void addReading(Scenarios& table, const std::string& name, const std::string& function,
                uint32_t kind, const std::string& document, bool fresh,
                Failures failures = Failures::Each) {
  const auto input = std::make_shared<Input>(kind, document);
  const auto good = std::make_shared<Outcome>();
  const std::string full = function + " of " + name +
                           (kind == ZQXML_INPUT_MEMORY ? "" : " in a file") +
                           (fresh ? " by a new handle" : "");
  table.push_back({full,
                   {function, "FreeZQXMLParserHandleInternal"},
                   [input, good, fresh](Attempt& attempt) {
                     if (good->objects.empty() && good->status.empty()) {
                       ParserHandle handle;
                       Results results;
                       *good = results.outcome(results.fill(&handle, *input));
                     }
                     read<Results>(attempt, *input, fresh, *good);
                   },
                   Memory::Needed,
                   failures});
}

void createHandle(Attempt& attempt) {
  int other = 0;
  ZQXMLParserHandle handle = {&other};
  OwnedStatusList status;
  const int result = attempt.call([&] { return CreateXMLParserHandle(&handle, &status); });
  if (attempt.failed()) {
    EXPECT_TRUE(result == 2 || result == 3) << result;
    EXPECT_EQ(describe(status), result == 2 ? "2/300 " : "");
    EXPECT_EQ(handle.handle, nullptr);
    EXPECT_EQ(CreateXMLParserHandle(&handle, nullptr), 0);
  } else {
    EXPECT_EQ(result, 0);
  }
  expectListsGoodDocument(&handle);
  FreeZQXMLParserHandleInternal(&handle, 0);
}

// The record of a refusal is all that is allocated.
template <typename Call>
void refuse(Attempt& attempt, Call call, const std::string& record) {
  OwnedStatusList status;
  const int result = attempt.call([&] { return call(&status); });
  EXPECT_EQ(result, attempt.failed() ? 3 : 2);
  EXPECT_EQ(describe(status), attempt.failed() ? "" : record);
}

void handles(Attempt& attempt) {
  ParserHandle handle;
  auto* onHeap = static_cast<ZQXMLParserHandle*>(calloc(1, sizeof(ZQXMLParserHandle)));
  EXPECT_EQ(CreateXMLParserHandle(onHeap, nullptr), 0);
  ZQXMLInputDoc input = {ZQXML_INPUT_MEMORY, strdup("<root/>")};
  ZQXMLOutputDoc output = {1, {strdup("<root/>")}};
  uint64_t line = 1;
  uint64_t column = 1;
  const unsigned limit = GetXMLEntityExpansionLimit();
  const bool good = attempt.call([&] {
    SetXMLEntityExpansionLimit(limit);
    FreeZQXMLInputDocInternal(&input, 0);
    FreeZQXMLOutputDocInternal(&output, 0);
    FreeZQXMLParserHandleInternal(onHeap, 1);
    return InitXMLParser(nullptr) == 0 && GetXMLParserPosition(&handle, &line, &column) == 0 &&
           GetZQXMLVersion() != nullptr && GetXMLParserVersion() != nullptr &&
           GetXMLEntityExpansionLimit() == limit;
  });
  EXPECT_TRUE(good);
  EXPECT_EQ(line + column, 0U);
  EXPECT_EQ(input.doc, nullptr);
  EXPECT_EQ(output.u.doc, nullptr);
}

struct Document {
  const char* name;
  std::string text;
};

}  // namespace

void addParserScenarios(Scenarios& table) {
  table.push_back({"CreateXMLParserHandle",
                   {"CreateXMLParserHandle", "FreeZQXMLParserHandleInternal"},
                   createHandle});
  table.push_back(
      {"CreateXMLParserHandle for no handle", {"CreateXMLParserHandle"}, [](Attempt& attempt) {
         refuse(
             attempt, [](ZQStatusList* status) { return CreateXMLParserHandle(nullptr, status); },
             "2/8938 ");
       }});
  for (const bool parses : {false, true}) {
    const std::string function = parses ? "ParseXMLDocument" : "GetListXMLObjects";
    const auto call = [parses](ZQXMLParserHandle* handle, uint32_t kind, ZQStatusList* status) {
      const ZQXMLInputDoc input = {kind, nullptr};
      return parses ? ParseXMLDocument(handle, &input, nullptr, nullptr, nullptr, status)
                    : GetListXMLObjects(handle, &input, nullptr, nullptr, nullptr, status);
    };
    table.push_back({function + " by a freed handle", {function}, [call](Attempt& attempt) {
                       ZQXMLParserHandle freed = {};
                       refuse(
                           attempt, [&](ZQStatusList* status) { return call(&freed, 1, status); },
                           "2/8938 ");
                     }});
    table.push_back({function + " of an unknown kind", {function}, [call](Attempt& attempt) {
                       ParserHandle handle;
                       refuse(
                           attempt, [&](ZQStatusList* status) { return call(&handle, 9, status); },
                           "2/8952 9");
                     }});
  }
  table.push_back(
      {"Handles and documents",
       {"InitXMLParser", "GetXMLParserPosition", "GetZQXMLVersion", "GetXMLParserVersion",
        "GetXMLEntityExpansionLimit", "SetXMLEntityExpansionLimit", "FreeZQXMLInputDocInternal",
        "FreeZQXMLOutputDocInternal", "FreeZQXMLParserHandleInternal"},
       handles,
       Memory::NotNeeded});

  const std::vector<Document> kListed = {
      {"all kinds", documentOfAllKinds()},
      {"entities",
       "<!DOCTYPE root [<!ENTITY e 'x'><!ELEMENT root ANY><!ATTLIST root a CDATA 'x'>]>"
       "<root><form><formName>&e;</formName></form></root>"},
      {"a long name", "<root><form><formName>" + std::string(3000, 'n') +
                          "</formName></form>"
                          "</root>"},
      {"a document that ends early", "<root><form><formName>A</formName></form>"},
      {"a container without a name", "<root><container/></root>"},
      {"nothing", ""},
  };
  for (const Document& document : kListed) {
    for (const uint32_t kind : {ZQXML_INPUT_MEMORY, ZQXML_INPUT_FILE}) {
      for (const bool fresh : {true, false}) {
        addReading<Lists>(table, document.name, "GetListXMLObjects", kind, document.text, fresh);
      }
    }
  }
  const std::vector<Document> kParsed = {
      {"a filter", documentOfAFilter()},
      {"an escalation", documentOfAnEscalation()},
      {"two filters",
       "<root><filter><filterName>A</filterName></filter><filter><filterName>B"
       "</filterName></filter></root>"},
      {"no objects", "<root/>"},
      {"an unknown element", "<root><filter><filterName>A</filterName><bogus/></filter></root>"},
      {"a wrong word",
       "<root><filter><filterName>A</filterName><enabled>maybe</enabled></filter>"
       "</root>"},
      {"a wrong time",
       "<root><filter><filterName>A</filterName><modifiedDate>yesterday"
       "</modifiedDate></filter></root>"},
      {"a document that ends early", "<root><filter><filterName>A</filterName>"},
  };
  for (const Document& document : kParsed) {
    for (const uint32_t kind : {ZQXML_INPUT_MEMORY, ZQXML_INPUT_FILE}) {
      for (const bool fresh : {true, false}) {
        if (fresh && kind == ZQXML_INPUT_FILE) {
          continue;
        }
        addReading<Objects>(table, document.name, "ParseXMLDocument", kind, document.text, fresh);
      }
    }
  }
  for (const char* name : {"activelinks.xml", "assignments.xml", "containers.xml", "dso.xml",
                           "escalations.xml", "fields.xml", "filters.xml", "form-ticket.xml",
                           "forms.xml", "helpdesk.xml", "menus.xml", "views.xml"}) {
    addReading<Lists>(table, name, "GetListXMLObjects", ZQXML_INPUT_MEMORY, exampleDocument(name),
                      true, Failures::Some);
  }
  for (const char* name : {"assignments.xml", "escalations.xml", "filters.xml"}) {
    addReading<Objects>(table, name, "ParseXMLDocument", ZQXML_INPUT_MEMORY, exampleDocument(name),
                        true, Failures::Some);
  }
}

}  // namespace fault
