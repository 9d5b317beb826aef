// Writing definition documents, to memory and to a file.

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <functional>
#include <memory>
#include <string>

#include "fault/Documents.h"
#include "fault/Scenario.h"
#include "fault/Support.h"
#include "records/StatusLists.h"
#include "xml/Listing.h"
#include "xml/handlers/WorkflowDocument.h"
#include "xml/objectchain.h"
#include "zqxml/zqxml.h"

namespace fault {

namespace {

// The first object of a document. Its change history is consumed by each writing, so there is a new
// one for each.
class Parsed {
 public:
  explicit Parsed(const std::string& document) {
    ParserHandle handle;
    std::string text = document;
    const ZQXMLInputDoc input = {ZQXML_INPUT_MEMORY, text.data()};
    EXPECT_EQ(ParseXMLDocument(&handle, &input, nullptr, &stream, nullptr, nullptr), 0);
  }
  Parsed(const Parsed&) = delete;
  Parsed& operator=(const Parsed&) = delete;
  ~Parsed() { releaseChain(stream.objectList); }

  auto& object() { return stream.objectList->object; }

 private:
  ZQXMLParsedStream stream = {};
};

// Writes to a document of a kind; the calls get it, and the status list.
using Write = std::function<int(ZQXMLOutputDoc*, ZQStatusList*)>;
// Makes what a single writing needs.
using Prepare = std::function<Write()>;

// What a writing in memory gives.
std::string written(const Prepare& prepare) {
  ZQXMLOutputDoc doc = {1, {}};
  EXPECT_EQ(prepare()(&doc, nullptr), 0);
  const std::string text = doc.u.doc != nullptr ? doc.u.doc : "";
  FreeZQXMLOutputDocInternal(&doc, 0);
  return text;
}

void expectTold(const Attempt& attempt, int result, const ZQStatusList& status) {
  if (attempt.failed()) {
    EXPECT_TRUE(result == 2 || result == 3) << result;
  } else {
    EXPECT_EQ(result, 0);
  }
  EXPECT_EQ(describe(status), result == 2 ? "2/300 " : "");
}

void writeToMemory(Attempt& attempt, const Prepare& prepare) {
  const std::string whole = written(prepare);
  EXPECT_NE(whole, "");
  ZQXMLOutputDoc doc = {1, {}};
  OwnedStatusList status;
  const Write write = prepare();
  const int result = attempt.call([&] { return write(&doc, &status); });
  expectTold(attempt, result, status);
  EXPECT_EQ(doc.u.doc != nullptr, !attempt.failed());
  if (doc.u.doc != nullptr) {
    EXPECT_EQ(doc.u.doc, whole);
  }
  FreeZQXMLOutputDocInternal(&doc, 0);
}

// A failure leaves the file as it is.
void writeToFile(Attempt& attempt, const Prepare& prepare) {
  const std::string whole = written(prepare);
  char path[] = "/tmp/zqxml-fault-XXXXXX";
  const int fd = mkstemp(path);
  EXPECT_EQ(::write(fd, "before", 6), 6);
  ZQXMLOutputDoc doc = {2, {path}};
  OwnedStatusList status;
  const Write write = prepare();
  const int result = attempt.call([&] { return write(&doc, &status); });
  expectTold(attempt, result, status);
  EXPECT_EQ(contentOf(path), attempt.failed() ? "before" : "before" + whole);
  EXPECT_EQ(lseek(fd, 0, SEEK_SET), 0);
  EXPECT_EQ(ftruncate(fd, 0), 0);
  doc = {4, {}};
  doc.u.fileHandle = fd;
  EXPECT_EQ(prepare()(&doc, nullptr), 0);
  EXPECT_EQ(contentOf(path), whole);
  close(fd);
  unlink(path);
}

// The kind of output is tested last, so all that a document needs has been allocated by then.
void writeToUnknown(Attempt& attempt, const Prepare& prepare) {
  ZQXMLOutputDoc doc = {9, {}};
  OwnedStatusList status;
  const Write write = prepare();
  const int result = attempt.call([&] { return write(&doc, &status); });
  if (attempt.failed()) {
    EXPECT_TRUE(result == 2 || result == 3) << result;
    EXPECT_EQ(describe(status), result == 2 ? "2/300 " : "");
  } else {
    EXPECT_EQ(result, 2);
    EXPECT_EQ(describe(status), "2/8952 ");
  }
}

Prepare filterOf(const std::string& document, unsigned frame) {
  return [document, frame]() -> Write {
    const auto parsed = std::make_shared<Parsed>(document);
    return [parsed, frame](ZQXMLOutputDoc* doc, ZQStatusList* status) {
      ZQXMLFilter& o = parsed->object().filter;
      return SetFilterToXML(doc, frame, o.name, &o.executionOrder, &o.workflowConnect, &o.executeOn,
                            &o.enabled, &o.query, &o.actionList, &o.elseList, o.owner,
                            o.lastChanged, &o.modifiedDate, o.helpText, o.changeDiary,
                            &o.objPropList, &o.xmlDocVersion, status);
    };
  };
}

Prepare escalationOf(const std::string& document, unsigned frame) {
  return [document, frame]() -> Write {
    const auto parsed = std::make_shared<Parsed>(document);
    return [parsed, frame](ZQXMLOutputDoc* doc, ZQStatusList* status) {
      ZQXMLEscalation& o = parsed->object().escalation;
      return SetEscalationToXML(doc, frame, o.name, &o.escalationTime, &o.workflowConnect,
                                &o.enabled, &o.query, &o.actionList, &o.elseList, o.owner,
                                o.lastChanged, &o.modifiedDate, o.helpText, o.changeDiary,
                                &o.objPropList, &o.xmlDocVersion, status);
    };
  };
}

void addWriting(Scenarios& table, const std::string& function, const std::string& what,
                const Prepare& prepare) {
  const std::string name = function + what;
  table.push_back({name + " to memory", {function}, [prepare](Attempt& attempt) {
                     writeToMemory(attempt, prepare);
                   }});
  table.push_back({name + " to a file", {function}, [prepare](Attempt& attempt) {
                     writeToFile(attempt, prepare);
                   }});
  table.push_back({name + " to an unknown kind", {function}, [prepare](Attempt& attempt) {
                     writeToUnknown(attempt, prepare);
                   }});
}

void convertToHex(Attempt& attempt) {
  const unsigned char bytes[] = {0, 255, '%', '0', 'g', '~'};
  char* text = nullptr;
  const int result = attempt.call([&] { return ConvertToHexFormat(bytes, sizeof bytes, &text); });
  EXPECT_EQ(result, attempt.failed() ? 300 : 0);
  if (attempt.failed()) {
    EXPECT_EQ(text, nullptr);
  } else {
    EXPECT_STREQ(text, "!~%30g7e");
  }
  free(text);
}

void formatTimes(Attempt& attempt) {
  char stamp[40];
  char time[40];
  const int result = attempt.call([&] {
    EnableL10nVUITagPrinting();
    return FormatZQTimestampToISODateTime(1709284500, sizeof stamp, stamp) +
           FormatZQTimeOfDayToISOTime(36900, sizeof time, time) + IsL10nVUITagPrintingEnabled(20);
  });
  EXPECT_EQ(result, 0);
  EXPECT_STREQ(stamp, "2024-03-01T09:15:00Z");
  EXPECT_STREQ(time, "10:15:00Z");
}

}  // namespace

void addDefinitionScenarios(Scenarios& table) {
  addWriting(table, "SetDocHeaderToXML", "", []() -> Write { return SetDocHeaderToXML; });
  addWriting(table, "SetDocFooterToXML", "", []() -> Write { return SetDocFooterToXML; });
  for (const unsigned frame : {0U, 1U}) {
    const std::string framed = frame == 1 ? " in a frame" : "";
    addWriting(table, "SetFilterToXML", framed, filterOf(documentOfAFilter(), frame));
    addWriting(table, "SetEscalationToXML", framed, escalationOf(documentOfAnEscalation(), frame));
  }
  addWriting(table, "SetFilterToXML", " of an example",
             filterOf(exampleDocument("filters.xml"), 1));
  addWriting(table, "SetEscalationToXML", " of an example",
             escalationOf(exampleDocument("escalations.xml"), 1));
  table.push_back({"ConvertToHexFormat", {"ConvertToHexFormat"}, convertToHex});
  table.push_back({"Times of definitions",
                   {"FormatZQTimestampToISODateTime", "FormatZQTimeOfDayToISOTime",
                    "EnableL10nVUITagPrinting", "IsL10nVUITagPrintingEnabled"},
                   formatTimes,
                   Memory::NotNeeded});
}

}  // namespace fault
