// The example filters and escalations, read and written back byte for byte.

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>

#include "fault/FailingAllocations.h"
#include "xml/handlers/Parsed.h"
#include "xml/handlers/WorkflowDocument.h"

namespace {

std::string exampleText(const std::string& name) {
  std::ostringstream text;
  text << std::ifstream(std::string(ZQXML_EXAMPLES_DIR) + "/" + name, std::ios::binary).rdbuf();
  return text.str();
}

// The elements of one kind of object, each with its line breaks.
std::string objectsOf(const std::string& document, const std::string& kind) {
  std::string objects;
  const std::string end = "\n\t</" + kind + ">\n";
  for (size_t at = document.find("\n\t<" + kind + " "); at != std::string::npos;
       at = document.find("\n\t<" + kind + " ", at + 1)) {
    objects += document.substr(at + 1, document.find(end, at) + end.size() - at - 1);
  }
  return objects;
}

TEST(WorkflowExamples, AreReadAndWrittenByteForByte) {
  const struct {
    const char* name;
    size_t objects;
  } kRows[] = {{"filters.xml", 7}, {"escalations.xml", 6}, {"assignments.xml", 2}};
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.name);
    const std::string document = exampleText(row.name);
    const Parsed parsed(sharedHandle(), document);
    EXPECT_EQ(parsed.status, "");
    size_t objects = 0;
    for (const ZQXMLObjectList* node = parsed.stream.objectList; node != nullptr;
         node = node->next) {
      ++objects;
    }
    EXPECT_EQ(objects, row.objects);
    EXPECT_EQ(documentOf(parsed.stream), document);
  }
}

// Among objects of all kinds, with text outside of ASCII.
TEST(WorkflowExamples, OfTheWholeApplication) {
  const std::string document = exampleText("helpdesk.xml");
  const std::string declaration = document.substr(0, document.find("?>") + 2);
  for (const char* kind : {"filter", "escalation"}) {
    const std::string objects = objectsOf(document, kind);
    ASSERT_NE(objects, "");
    const Parsed parsed(sharedHandle(), declaration + "<root>\n" + objects + "</root>");
    EXPECT_EQ(parsed.status, "");
    const std::string written = documentOf(parsed.stream);
    EXPECT_EQ(objectsOf(written, kind), objects);
  }
}

// Names of objects choose among many.
TEST(WorkflowExamples, OneOfMany) {
  const std::string document = exampleText("filters.xml");
  const std::string name = "HD:Ticket-CheckClose";
  Selection selection({{ZQXML_FILTER, name.c_str()}});
  const Parsed parsed(sharedHandle(), document, &selection);
  EXPECT_EQ(parsed.outcome(), "0 | filter " + name + " | ");
  const std::string objects = objectsOf(document, "filter");
  EXPECT_EQ(objectText(parsed.stream.objectList->object.filter),
            objects.substr(0, objects.find("\t</filter>\n") + 11));
}

// A handle that has read a document allocates next to nothing but what it hands out.
TEST(WorkflowExamples, AllocationsOfASteadyParse) {
  std::string document = exampleText("filters.xml");
  const size_t end = document.rfind("</root>");
  const std::string objects =
      document.substr(document.find("\t<filter"), end - document.find("\t<filter"));
  for (int i = 0; i < 20; ++i) {
    document.insert(document.rfind("</root>"), objects);
  }
  const ZQXMLInputDoc input = {ZQXML_INPUT_MEMORY, document.data()};
  Parsed(sharedHandle(), document);
  ZQXMLParsedStream stream = {};
  ZQStructItemList parsed = {};
  const long before = fault::allocationCount();
  ASSERT_EQ(ParseXMLDocument(sharedHandle(), &input, nullptr, &stream, &parsed, nullptr), 0);
  const long allocations = fault::allocationCount() - before;
  const long live = fault::liveBlocks();
  FreeZQStructItemList(&parsed, 0);
  freeWhole(stream);
  const long blocks = live - fault::liveBlocks();
  EXPECT_GT(blocks, 1000);
  EXPECT_LE(static_cast<double>(allocations), 2.2 * static_cast<double>(blocks));
}

}  // namespace
