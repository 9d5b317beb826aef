// Reading definition documents from files and writing them, with failing system calls: those of the
// XML parser and those of the message catalog fail too.

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstring>
#include <functional>
#include <memory>
#include <string>

#include "fault/Documents.h"
#include "fault/Support.h"
#include "fault/SystemScenario.h"
#include "records/StatusLists.h"
#include "xml/Listing.h"
#include "xml/objectchain.h"
#include "zqxml/builders.hpp"
#include "zqxml/zqxml.h"

namespace fault {

namespace {

using faulty::Call;

// How many objects a reading gave, and its result.
struct Outcome {
  int result;
  uint32_t objects;
  std::string status;
};

Outcome list(SystemAttempt* attempt, ZQXMLParserHandle* handle, const ZQXMLInputDoc& input) {
  ZQUnsignedIntList types = {};
  ZQNameList names = {};
  ZQUnsignedIntList subTypes = {};
  OwnedStatusList status;
  const auto call = [&] {
    return GetListXMLObjects(handle, &input, &types, &names, &subTypes, &status);
  };
  const int result = attempt != nullptr ? attempt->call(call) : call();
  const uint32_t count = names.numItems;
  FreeZQUnsignedIntList(&types, 0);
  FreeZQNameList(&names, 0);
  FreeZQUnsignedIntList(&subTypes, 0);
  return {result, count, describe(status)};
}

Outcome parse(SystemAttempt* attempt, ZQXMLParserHandle* handle, const ZQXMLInputDoc& input) {
  ZQXMLParsedStream stream = {};
  OwnedStatusList status;
  const auto call = [&] {
    return ParseXMLDocument(handle, &input, nullptr, &stream, nullptr, &status);
  };
  const int result = attempt != nullptr ? attempt->call(call) : call();
  uint32_t count = 0;
  for (const ZQXMLObjectList* node = stream.objectList; node != nullptr; node = node->next) {
    ++count;
  }
  releaseChain(stream.objectList);
  return {result, count, describe(status)};
}

using Reading = Outcome (*)(SystemAttempt*, ZQXMLParserHandle*, const ZQXMLInputDoc&);

// A file that can't be opened or read gives the parser's own message and no objects; the handle
// reads it afterwards.
void read(SystemAttempt& attempt, Reading reading, const std::string& document, uint32_t objects) {
  ParserHandle handle;
  std::string path = folder().write("document.xml", document);
  const ZQXMLInputDoc input = {ZQXML_INPUT_FILE, path.data()};
  const Outcome outcome = reading(&attempt, &handle, input);
  const bool wasOpened = !attempt.failedTo(Call::Open);
  const bool wasRead = !attempt.failedTo(Call::Read) && !attempt.failedTo(Call::Seek);
  if (!wasOpened || !wasRead) {
    EXPECT_TRUE(outcome.result == 2 || (outcome.result == 0 && outcome.objects == objects))
        << outcome.result;
    EXPECT_EQ(outcome.status.substr(0, 7), outcome.result == 2 ? "2/8940 " : "");
  } else {
    EXPECT_EQ(outcome.result, 0) << outcome.status;
  }
  EXPECT_EQ(outcome.objects, outcome.result == 0 ? objects : 0);
  const Outcome again = reading(nullptr, &handle, input);
  EXPECT_EQ(again.result, 0);
  EXPECT_EQ(again.objects, objects);
}

// What a record in a status list tells is there whatever becomes of the catalog.
void refuse(SystemAttempt& attempt, Reading reading) {
  {
    const faulty::Failure none(Call::CatalogOpen, ENOENT, 0, Mode::FromThere);
    ZQOpenSharedCatalog();
  }
  ParserHandle handle;
  std::string text = "<root><bogus/>";
  const ZQXMLInputDoc input = {ZQXML_INPUT_MEMORY, text.data()};
  const Outcome outcome = reading(&attempt, &handle, input);
  EXPECT_EQ(outcome.result, 2);
  EXPECT_EQ(outcome.objects, 0U);
  EXPECT_EQ(outcome.status.substr(0, 3), "2/8");
}

using Write = std::function<int(ZQXMLOutputDoc*, ZQStatusList*)>;

const Write kWriteFilter = [](ZQXMLOutputDoc* doc, ZQStatusList* status) {
  const uint32_t order = 7;
  const std::string help(20000, 'h');
  return SetFilterToXML(doc, 1, "F", &order, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                        "o", nullptr, nullptr, help.c_str(), nullptr, nullptr, nullptr, status);
};

const Write kWriteEscalation = [](ZQXMLOutputDoc* doc, ZQStatusList* status) {
  const std::string help(20000, 'h');
  return SetEscalationToXML(doc, 1, "E", nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, "o",
                            nullptr, nullptr, help.c_str(), nullptr, nullptr, nullptr, status);
};

const Write kWriteText = [](ZQXMLOutputDoc* doc, ZQStatusList* status) {
  ZQGNString text;
  text += std::string(300, 'x').c_str();
  text += std::string(300, 'y').c_str();
  const int number = WriteToXMLDoc(text, doc);
  return number == 0 ? 0 : ZQAddErrorMessage(status, 2, number, "");
};

const Write kWriteDirectly = [](ZQXMLOutputDoc* doc, ZQStatusList* status) {
  ZQGNString text;
  text += std::string(300, 'x').c_str();
  text += std::string(300, 'y').c_str();
  const int number =
      doc->docType == 2 ? text.AppendToFile(doc->u.doc) : text.WriteToFileHandle(doc->u.fileHandle);
  return number == 0 ? 0 : ZQAddErrorMessage(status, 2, number, "");
};

std::string written(const Write& write) {
  ZQXMLOutputDoc doc = {2, {}};
  std::string path = folder().write("whole", "");
  doc.u.doc = path.data();
  EXPECT_EQ(write(&doc, nullptr), 0);
  return contentOf(path);
}

// Deliberate: the results of the writes aren't looked at, only that of opening.
void writeToFile(SystemAttempt& attempt, const Write& write) {
  const std::string whole = written(write);
  std::string path = folder().write("document.xml", "old");
  ZQXMLOutputDoc doc = {2, {path.data()}};
  OwnedStatusList status;
  const int result = attempt.call([&] { return write(&doc, &status); });
  const std::string found = contentOf(path);
  if (attempt.failedTo(Call::Open)) {
    EXPECT_EQ(result, 2);
    EXPECT_EQ(describe(status), "2/8954 ");
    EXPECT_EQ(found, "old");
  } else {
    EXPECT_EQ(result, 0);
    EXPECT_EQ(describe(status), "");
    if (!attempt.failedTo(Call::Write) && !attempt.failedTo(Call::Seek)) {
      EXPECT_EQ(found, "old" + whole);
    }
  }
}

// A failed write is told; deliberate: a short one is none, and isn't gone on with.
void writeToDescriptor(SystemAttempt& attempt, const Write& write) {
  const std::string whole = written(write);
  const std::string path = folder().write("document.xml", "");
  ZQXMLOutputDoc doc = {4, {}};
  doc.u.fileHandle = open(path.c_str(), O_WRONLY);
  OwnedStatusList status;
  const int result = attempt.call([&] { return write(&doc, &status); });
  EXPECT_EQ(fcntl(doc.u.fileHandle, F_GETFD), 0);
  close(doc.u.fileHandle);
  const std::string found = contentOf(path);
  if (attempt.failedTo(Call::Write)) {
    EXPECT_EQ(result, 2);
    EXPECT_EQ(describe(status), "2/301 ");
    EXPECT_EQ(found, whole.substr(0, found.size()));
  } else {
    EXPECT_EQ(result, 0);
    EXPECT_EQ(describe(status), "");
    if (!attempt.isShort()) {
      EXPECT_EQ(found, whole);
    }
  }
}

void addWriting(SystemScenarios& table, const std::string& name,
                const std::vector<std::string>& functions, const Write& write) {
  table.push_back({name + " to a file", functions,
                   [write](SystemAttempt& attempt) { writeToFile(attempt, write); }});
  table.push_back({name + " to a descriptor", functions,
                   [write](SystemAttempt& attempt) { writeToDescriptor(attempt, write); }});
}

}  // namespace

void addSystemDocumentScenarios(SystemScenarios& table) {
  const std::string example = exampleDocument("filters.xml");
  struct Row {
    const char* function;
    Reading reading;
  };
  for (const Row& row : {Row{"GetListXMLObjects", list}, Row{"ParseXMLDocument", parse}}) {
    const auto add = [&](const char* name, const std::string& document, uint32_t objects) {
      table.push_back({std::string(row.function) + " of " + name,
                       {row.function},
                       [reading = row.reading, document, objects](SystemAttempt& attempt) {
                         read(attempt, reading, document, objects);
                       }});
    };
    add("a filter", documentOfAFilter(), 1);
    add("an escalation", documentOfAnEscalation(), 1);
    add("an example", example, 7);
    add("nothing", "<root/>", 0);
    table.push_back(
        {std::string(row.function) + " of a bad document",
         {row.function},
         [reading = row.reading](SystemAttempt& attempt) { refuse(attempt, reading); }});
  }
  addWriting(table, "SetDocHeaderToXML", {"SetDocHeaderToXML"}, SetDocHeaderToXML);
  addWriting(table, "SetDocFooterToXML", {"SetDocFooterToXML"}, SetDocFooterToXML);
  addWriting(table, "SetFilterToXML", {"SetFilterToXML"}, kWriteFilter);
  addWriting(table, "SetEscalationToXML", {"SetEscalationToXML"}, kWriteEscalation);
  addWriting(table, "WriteToXMLDoc", {"WriteToXMLDoc"}, kWriteText);
  addWriting(table, "ZQGNString", {"ZQGNString::AppendToFile", "ZQGNString::WriteToFileHandle"},
             kWriteDirectly);
}

}  // namespace fault
