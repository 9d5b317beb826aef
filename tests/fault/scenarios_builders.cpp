// Building elements in a DOM tree, printing trees, and the growable text.

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <sstream>
#include <string>

#include "fault/FailingAllocations.h"
#include "fault/Scenario.h"
#include "records/RecordTools.h"
#include "xml/DOMTree.h"
#include "xml/ZQXMLException.h"
#include "xml/writers/Tamer.h"
#include "zqxml/builders.hpp"
#include "zqxml/zqxml.h"

namespace fault {

namespace {

using xercesc::DOMDocument;
using xercesc::DOMElement;

using Build = std::function<int(DOMDocument*, DOMElement*)>;

// A document hands its nodes out of large blocks. With the first one used up nearly, a builder has
// to allocate.
void useUpFirstBlock(const DOMTree& tree) {
  static const int kFitting = [] {
    const DOMTree measured;
    const long before = allocationCount();
    int count = 0;
    for (; allocationCount() == before; ++count) {
      measured->createComment(u"x");
    }
    return count - 1;
  }();
  for (int i = 0; i < kFitting; ++i) {
    tree->createComment(u"x");
  }
}

std::string printed(const DOMTree& tree) {
  ZQGNString text(ZQGNString::BLOCKSIZE_DOCUMENT);
  EXPECT_EQ(PrintDOMNode(0, tree.root(), text), 0);
  return static_cast<char*>(text);
}

// Whether the failures of bytes that can't be encoded are dropped by contract.
enum class Encoding { Told, Dropped };

// Builds beneath the root of a tree; behind a failure the tree is as good as any other, and the
// same record builds in a new one.
void buildNodes(Attempt& attempt, const Build& build, Encoding encoding) {
  std::string whole;
  {
    const DOMTree tree;
    EXPECT_EQ(build(tree.get(), tree.root()), 0);
    whole = printed(tree);
  }
  const DOMTree tree;
  useUpFirstBlock(tree);
  const int result = attempt.call([&] { return build(tree.get(), tree.root()); });
  const std::string text = printed(tree);
  if (!attempt.failed()) {
    EXPECT_EQ(result, 0);
    EXPECT_EQ(text, whole);
  } else if (result != 0) {
    EXPECT_EQ(result, 300);
    EXPECT_LE(text.size(), whole.size());
  } else {
    EXPECT_EQ(encoding, Encoding::Dropped);
    EXPECT_LT(text.size(), whole.size());
  }
}

// A record of a kind, with all that hangs from it.
template <typename Record>
class Tree {
 public:
  explicit Tree(uint32_t seed) {
    memset(static_cast<void*>(&record), 0, sizeof record);
    tools::Builder builder(seed, tools::Fill::Full, 5);
    records::visit(builder, record);
    Tamer().record("", record);
  }
  Tree(const Tree&) = delete;
  Tree& operator=(const Tree&) = delete;
  ~Tree() { tools::freeBlocks(record); }

  Record record;
};

template <typename Record>
using BuildRecord = int (*)(DOMDocument*, DOMElement*, const Record*);

template <typename Record>
bool allocates(BuildRecord<Record> build, uint32_t seed) {
  const Tree<Record> tree(seed);
  const DOMTree target;
  useUpFirstBlock(target);
  const long before = allocationCount();
  build(target.get(), target.root(), &tree.record);
  return allocationCount() > before;
}

// A few records of a kind, with elements enough to allocate.
template <typename Record>
void addBuilder(Scenarios& table, const std::string& function, BuildRecord<Record> build,
                Encoding encoding = Encoding::Told) {
  int records = 3;
  for (uint32_t seed = 1; records > 0; ++seed) {
    if (!allocates(build, seed)) {
      continue;
    }
    --records;
    table.push_back({function + " of record " + std::to_string(seed),
                     {function},
                     [build, encoding, seed](Attempt& attempt) {
                       const Tree<Record> tree(seed);
                       buildNodes(
                           attempt,
                           [&](DOMDocument* document, DOMElement* parent) {
                             return build(document, parent, &tree.record);
                           },
                           encoding);
                     }});
  }
}

void addBuilder(Scenarios& table, const std::string& function, const Build& build,
                Encoding encoding = Encoding::Told) {
  table.push_back({function, {function}, [build, encoding](Attempt& attempt) {
                     buildNodes(attempt, build, encoding);
                   }});
}

// A value of more bytes than are encoded without memory.
struct LongBytes {
  LongBytes() {
    value.dataType = 9;
    value.u.byteList = &list;
  }
  LongBytes(const LongBytes&) = delete;
  LongBytes& operator=(const LongBytes&) = delete;

  unsigned char bytes[200] = {1, 2, 3};
  ZQByteList list = {1, sizeof bytes, bytes};
  ZQValueStruct value = {};
};

int buildFilter(DOMDocument* document, DOMElement* element) {
  static const Tree<ZQXMLFilter> tree(4);
  const ZQXMLFilter& o = tree.record;
  char diary[] = "1\4u\4text\3";
  return CreateFilterNode(document, element, o.name, &o.executionOrder, &o.workflowConnect,
                          &o.executeOn, &o.enabled, &o.query, &o.actionList, &o.elseList, o.owner,
                          o.lastChanged, &o.modifiedDate, o.helpText, diary, &o.objPropList,
                          &o.xmlDocVersion);
}

int buildEscalation(DOMDocument* document, DOMElement* element) {
  static const Tree<ZQXMLEscalation> tree(4);
  const ZQXMLEscalation& o = tree.record;
  char diary[] = "1\4u\4text\3";
  return CreateEscalationNode(document, element, o.name, &o.escalationTime, &o.workflowConnect,
                              &o.enabled, &o.query, &o.actionList, &o.elseList, o.owner,
                              o.lastChanged, &o.modifiedDate, o.helpText, diary, &o.objPropList,
                              &o.xmlDocVersion);
}

void addBuilders(Scenarios& table) {
  addBuilder(table, "CreateArithOpAssignNode", CreateArithOpAssignNode);
  addBuilder(table, "CreateArithOpNode", CreateArithOpNode);
  addBuilder(table, "CreateAssignFieldNode", CreateAssignFieldNode);
  addBuilder(table, "CreateAssignSQLNode", CreateAssignSQLNode);
  addBuilder(table, "CreateAssignmentNode", CreateAssignmentNode);
  addBuilder(table, "CreateCOMValueNode", CreateCOMValueNode);
  addBuilder(table, "CreateCallGuideNode", CreateCallGuideNode);
  addBuilder(table, "CreateCoordListNode", CreateCoordListNode);
  addBuilder(table, "CreateDDENode", CreateDDENode);
  addBuilder(table, "CreateEntryListFieldListNode", CreateEntryListFieldListNode);
  addBuilder(table, "CreateFieldAssignNode", CreateFieldAssignNode);
  addBuilder(table, "CreateFieldValueOrArithNode", CreateFieldValueOrArithNode);
  addBuilder(table, "CreateFilterActionListNode", CreateFilterActionListNode);
  addBuilder(table, "CreateFilterApiNode", CreateFilterApiNode);
  addBuilder(table, "CreateFunctionAssignNode", CreateFunctionAssignNode);
  addBuilder(table, "CreateGotoActionNode", CreateGotoActionNode);
  addBuilder(table, "CreateIndexListNode", CreateIndexListNode);
  addBuilder(table, "CreateModifyPermissionListNode", CreateModifyPermissionListNode);
  addBuilder(table, "CreatePropertyListNode", CreatePropertyListNode);
  addBuilder(table, "CreatePushFieldNode", CreatePushFieldNode);
  addBuilder(table, "CreateQualifierNode", CreateQualifierNode);
  addBuilder(table, "CreateQueryValueNode", CreateQueryValueNode);
  addBuilder(table, "CreateSortListNode", CreateSortListNode);
  addBuilder(table, "CreateStatHistoryNode", CreateStatHistoryNode);
  addBuilder(table, "CreateViewPermissionNode", CreateViewPermissionNode);
  addBuilder(table, "CreateFilterNode", Build(buildFilter));
  addBuilder(table, "CreateEscalationNode", Build(buildEscalation));
  addBuilder(table, "CreateValueNode", [](DOMDocument* document, DOMElement* parent) {
    const LongBytes bytes;
    return CreateValueNode(document, parent, &bytes.value, 0);
  });
  // Bytes that can't be encoded are missing here, without a failure.
  table.push_back({"CreateCOMValueNode of bytes", {"CreateCOMValueNode"}, [](Attempt& attempt) {
                     const LongBytes bytes;
                     ZQCOMValueStruct value = {};
                     value.valueType = 2;
                     value.u.value = bytes.value;
                     buildNodes(
                         attempt,
                         [&](DOMDocument* document, DOMElement* parent) {
                           return CreateCOMValueNode(document, parent, &value);
                         },
                         Encoding::Dropped);
                   }});
  table.push_back(
      {"CreateAssignmentNode of bytes deep in it", {"CreateAssignmentNode"}, [](Attempt& attempt) {
         const LongBytes bytes;
         ZQArithOpAssignStruct sum = {};
         sum.operation = 1;
         sum.operandLeft.assignType = 1;
         sum.operandLeft.u.value = bytes.value;
         ZQAssignStruct assignment = {};
         assignment.assignType = 4;
         assignment.u.arithOp = &sum;
         buildNodes(
             attempt,
             [&](DOMDocument* document, DOMElement* parent) {
               return CreateAssignmentNode(document, parent, &assignment);
             },
             Encoding::Dropped);
       }});
  addBuilder(table, "CreateNoMatchOptionTextNode", [](DOMDocument* document, DOMElement* parent) {
    return CreateNoMatchOptionTextNode(document, parent, 1);
  });
  addBuilder(table, "CreateMultipleMatchOptionTextNode",
             [](DOMDocument* document, DOMElement* parent) {
               return CreateMultipleMatchOptionTextNode(document, parent, 1);
             });
  addBuilder(table, "CreateChangeHistoryNode", [](DOMDocument* document, DOMElement* parent) {
    char diary[] =
        "1\4u\4text\3"
        "2\4v\4other\3";
    return CreateChangeHistoryNode(document, parent, diary);
  });
  addBuilder(table, "CreateSupportFileNode", [](DOMDocument* document, DOMElement* parent) {
    const unsigned char bytes[200] = {1, 2, 3};
    return CreateSupportFileNode(document, parent, 1, 7, bytes, sizeof bytes, 0);
  });
}

// A call that tells by an exception that memory has run out: whether it did.
template <typename Call>
bool ranOut(Attempt& attempt, Call call) {
  return attempt.call([&] {
    try {
      call();
      return false;
    } catch (const ZQXMLException& exception) {
      return exception.GetErrorNumber() == 300;
    }
  });
}

const std::string kLong(300, 'x');
const std::string kLonger(900, 'y');

// Changes a text of several blocks; it stays as it was if memory runs out.
void changeText(Attempt& attempt, const std::function<void(ZQGNString&)>& change,
                const std::string& changed) {
  ZQGNString text;
  const std::string whole = "begin" + kLong;
  text += "begin";
  text += kLong.c_str();
  const bool failed = ranOut(attempt, [&] { change(text); });
  EXPECT_EQ(failed, attempt.failed());
  EXPECT_EQ(static_cast<char*>(text), failed ? whole : changed);
  EXPECT_EQ(text.IsEmpty(), false);
  change(text);
}

void detach(Attempt& attempt) {
  ZQGNString text;
  text += "begin";
  text += kLong.c_str();
  char* detached = nullptr;
  const bool failed = ranOut(attempt, [&] { text.DetachStrReference(&detached); });
  EXPECT_EQ(failed, attempt.failed());
  EXPECT_EQ(detached == nullptr, failed);
  if (failed) {
    EXPECT_EQ(text.DetachStrReference(&detached), 0);
  }
  EXPECT_EQ(detached, "begin" + kLong);
  EXPECT_TRUE(text.IsEmpty());
  free(detached);
}

void copyText(Attempt& attempt, bool assigns) {
  ZQGNString text;
  text += "begin";
  text += kLong.c_str();
  ZQGNString target;
  target = "old";
  std::string copied;
  copied.reserve(1000);
  const bool failed = ranOut(attempt, [&] {
    if (assigns) {
      target = text;
    } else {
      ZQGNString copy(text);
      copied.assign(static_cast<char*>(copy));
    }
  });
  EXPECT_EQ(failed, attempt.failed());
  if (assigns) {
    copied = static_cast<char*>(target);
    EXPECT_EQ(copied, failed ? "old" : "begin" + kLong);
  } else {
    EXPECT_EQ(copied, failed ? "" : "begin" + kLong);
  }
  EXPECT_EQ(static_cast<char*>(text), "begin" + kLong);
}

void printTree(Attempt& attempt) {
  const DOMTree tree;
  std::mt19937 random(1);
  growRandomly(tree.get(), tree.root(), random, 4);
  const std::string whole = printPlainly(0, tree.root());
  ZQGNString text;
  const int result = attempt.call([&] { return PrintDOMNode(0, tree.root(), text); });
  EXPECT_EQ(result, attempt.failed() ? 300 : 0);
  if (!attempt.failed()) {
    EXPECT_EQ(static_cast<char*>(text), whole);
  }
  ZQGNString again;
  EXPECT_EQ(PrintDOMNode(0, tree.root(), again), 0);
  EXPECT_EQ(static_cast<char*>(again), whole);
}

void outputContent(Attempt& attempt) {
  ZQGNString text;
  const std::string content = "a<b&\x01" + kLong;
  const int result = attempt.call([&] { return OutputContent(content.c_str(), text); });
  EXPECT_EQ(result, attempt.failed() ? 300 : 0);
  if (!attempt.failed()) {
    EXPECT_EQ(static_cast<char*>(text), "a&lt;b&amp;&#xF8E0;" + kLong);
  }
}

void handOver(Attempt& attempt) {
  ZQGNString text;
  text += "begin";
  text += kLong.c_str();
  ZQXMLOutputDoc doc = {1, {}};
  const int result = attempt.call([&] { return WriteToXMLDoc(text, &doc); });
  EXPECT_EQ(result, attempt.failed() ? 300 : 0);
  if (attempt.failed()) {
    EXPECT_EQ(doc.u.doc, nullptr);
    EXPECT_EQ(static_cast<char*>(text), "begin" + kLong);
    EXPECT_EQ(WriteToXMLDoc(text, &doc), 0);
  }
  EXPECT_EQ(doc.u.doc, "begin" + kLong);
  FreeZQXMLOutputDocInternal(&doc, 0);
}

void plainCalls(Attempt& attempt) {
  ZQGNString text;
  text += kLong.c_str();
  char path[] = "/tmp/zqxml-fault-XXXXXX";
  const int fd = mkstemp(path);
  char date[16];
  int result = attempt.call([&] { return text.WriteToFileHandle(fd); });
  result += attempt.call([&] { return FormatZQDateToISODate(u"gMonth", 2451545, 16, date); });
  attempt.call([&] { text.Empty(); });
  EXPECT_EQ(result, 0);
  EXPECT_STREQ(date, "--01--");
  EXPECT_TRUE(attempt.call([&] { return text.IsEmpty(); }));
  EXPECT_EQ(lseek(fd, 0, SEEK_END), 300);
  close(fd);
  unlink(path);
}

}  // namespace

void addBuilderScenarios(Scenarios& table) {
  addBuilders(table);
  const std::string whole = "begin" + kLong;
  const auto add = [&table](const char* name, const char* function,
                            const std::function<void(ZQGNString&)>& change,
                            const std::string& changed) {
    table.push_back(
        {std::string("ZQGNString ") + name,
         {std::string("ZQGNString::") + function, "ZQGNString::~ZQGNString"},
         [change, changed](Attempt& attempt) { changeText(attempt, change, changed); }});
  };
  add(
      "append", "operator+=", [](ZQGNString& text) { text += kLong.c_str(); }, whole + kLong);
  add(
      "append its own text",
      "operator+=", [](ZQGNString& text) { text += static_cast<char*>(text); }, whole + whole);
  add(
      "replace", "operator=", [](ZQGNString& text) { text = kLonger.c_str(); }, kLonger);
  add(
      "in one piece", "operator char*",
      [](ZQGNString& text) { [[maybe_unused]] const char* piece = text; }, whole);
  table.push_back({"ZQGNString detach", {"ZQGNString::DetachStrReference"}, detach});
  table.push_back({"ZQGNString copy", {"ZQGNString::ZQGNString"}, [](Attempt& attempt) {
                     copyText(attempt, false);
                   }});
  table.push_back({"ZQGNString assign", {"ZQGNString::operator="}, [](Attempt& attempt) {
                     copyText(attempt, true);
                   }});
  table.push_back({"PrintDOMNode", {"PrintDOMNode"}, printTree});
  table.push_back({"OutputContent", {"OutputContent"}, outputContent});
  table.push_back({"WriteToXMLDoc", {"WriteToXMLDoc"}, handOver});
  table.push_back({"Builders without memory",
                   {"ZQGNString::WriteToFileHandle", "ZQGNString::Empty", "ZQGNString::IsEmpty",
                    "FormatZQDateToISODate"},
                   plainCalls,
                   Memory::NotNeeded});
}

}  // namespace fault
