// ParseXMLDocument: the chain of objects, the selection, what is told, and the handle afterwards.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "fault/FailingAllocations.h"
#include "records/Members.h"
#include "records/StatusLists.h"
#include "xml/handlers/Parsed.h"

namespace {

std::string filter(const std::string& name, const std::string& more = "") {
  return "<filter><filterName>" + name + "</filterName>" + more + "</filter>";
}

std::string escalation(const std::string& name, const std::string& more = "") {
  return "<escalation><escalationName>" + name + "</escalationName>" + more + "</escalation>";
}

TEST(ParseXMLDocument, DocumentsAndTheirObjects) {
  const struct {
    std::string document, outcome;
  } kRows[] = {
      {"<root/>", "0 |  | "},
      {"<root></root>", "0 |  | "},
      {"<root a='1' zqDocVersion='x'> text &amp; more <!-- comment --></root>", "0 |  | "},
      {inRoot(filter("A")), "0 | filter A | "},
      {inRoot(filter("A") + escalation("A") + filter("B")),
       "0 | filter A, escalation A, filter B | "},
      {inRoot(filter("A") + " text <!-- c --><?target data?><![CDATA[cdata]]>" + filter("B")),
       "0 | filter A, filter B | "},
      {inRoot("<filter/>"), "0 | filter  | "},
      {inRoot("<filter/><escalation/>"), "0 | filter , escalation  | "},
      // Two of one name.
      {inRoot(filter("A") + filter("A")), "0 | filter A, filter A | "},
      // A name that comes late, and two that join.
      {inRoot("<filter><enabled>true</enabled><filterName>A</filterName></filter>"),
       "0 | filter A | "},
      {inRoot("<filter><filterName>A</filterName><filterName>B</filterName></filter>"),
       "0 | filter AB | "},
  };
  for (const auto& row : kRows) {
    EXPECT_EQ(outcomeOf(row.document), row.outcome) << row.document;
  }
}

TEST(ParseXMLDocument, DocumentsThatAreRefused) {
  const struct {
    std::string document, outcome;
  } kRows[] = {
      // The outermost element is "root", and an object element is none.
      {"<filter/>", "2 |  | 2/8941 filter, line: 1, column 10"},
      {"<filter><filterName>A</filterName></filter>", "2 |  | 2/8941 filter, line: 1, column 9"},
      {"<Root/>", "2 |  | 2/8941 Root, line: 1, column 8"},
      {"<bogus a='1'/>", "2 |  | 2/8941 bogus, line: 1, column 15"},
      // Below it are objects alone.
      {"<root>\n<bogus/></root>", "2 |  | 2/8941 bogus, line: 2, column 9"},
      {"<root>\n <filterName/></root>", "2 |  | 2/8941 filterName, line: 2, column 15"},
      {inRoot(filter("A") + "<value/>"), "2 |  | 2/8941 value, line: 1, column 58"},
      // A second "root" ends the reading of the first.
      {"<root><root/></root>", "2 |  | 2/8944 line: 1, column 21"},
      {"<root><root/><filter/></root>", "2 |  | 2/8944 line: 1, column 23"},
      {inRoot("<filter><filter/></filter>"), "2 |  | 2/8941 filter, line: 1, column 33"},
      // Faults of the XML parser.
      {"", "2 |  | 2/8940 *"},
      {"<root>", "2 |  | 2/8940 *"},
      {inRoot(filter("A")) + "<root/>", "2 |  | 2/8940 *"},
      {"<root><filter></root>", "2 |  | 2/8940 *"},
      {"<root>" + filter("A") + "&bogus;</root>", "2 |  | 2/8940 *"},
  };
  for (const auto& row : kRows) {
    EXPECT_EQ(outcomeOf(row.document), row.outcome) << row.document;
  }
}

// No handler reads these objects, so they are elements like any other.
TEST(ParseXMLDocument, ObjectsWithoutAHandlerAreRefused) {
  for (const char* name : {"activeLink", "container", "distributedMapping", "distributedPool",
                           "field", "form", "menu", "vui"}) {
    const std::string element = name;
    EXPECT_EQ(
        outcomeOf("<root>\n<" + element + "/></root>"),
        "2 |  | 2/8941 " + element + ", line: 2, column " + std::to_string(element.size() + 4));
  }
}

TEST(ParseXMLDocument, AWarningIsToldAndTheResultIs0) {
  const std::string declaration = "<?xml version=\"1.0\" encoding=\"UTF-16\"?>";
  EXPECT_EQ(outcomeOf(declaration + inRoot(filter("A"))), "0 | filter A | 1/8940 *");
  EXPECT_EQ(outcomeOf(declaration + inRoot("<bogus/>")),
            "2 |  | 2/8941 bogus, line: 1, column 54; 1/8940 *");
}

TEST(ParseXMLDocument, Selection) {
  constexpr uint32_t kFilter = ZQXML_FILTER;
  constexpr uint32_t kEscalation = ZQXML_ESCALATION;
  const std::string three = inRoot(filter("A") + filter("B") + filter("C"));
  using Items = std::initializer_list<std::pair<uint32_t, const char*>>;
  const struct {
    std::string document;
    Items items;
    std::string outcome;
  } kRows[] = {
      {three, {{kFilter, "B"}}, "0 | filter B | "},
      // The middle one, the first, the last and all of them are dropped.
      {three, {{kFilter, "A"}, {kFilter, "C"}}, "0 | filter A, filter C | "},
      {three, {{kFilter, "C"}, {kFilter, "B"}}, "0 | filter B, filter C | "},
      {three, {{kFilter, "A"}, {kFilter, "B"}}, "0 | filter A, filter B | "},
      {three, {{kFilter, "C"}}, "0 | filter C | "},
      {three, {{kFilter, "A"}}, "0 | filter A | "},
      {three, {{kFilter, "D"}}, "0 |  | "},
      // Kind and name both count, byte for byte.
      {three, {{kEscalation, "A"}}, "0 |  | "},
      {three, {{kFilter, "a"}, {kFilter, "A "}, {kFilter, ""}}, "0 |  | "},
      {three, {{kFilter, "A"}, {kFilter, "A"}}, "0 | filter A | "},
      {inRoot(filter("A") + escalation("A")), {{kEscalation, "A"}}, "0 | escalation A | "},
      // All of one name.
      {inRoot(filter("A") + filter("B") + filter("A")),
       {{kFilter, "A"}},
       "0 | filter A, filter A | "},
      // An object without a name is never asked for.
      {inRoot("<filter/>" + filter("A") + "<escalation/>"),
       {{kFilter, "B"}},
       "0 | filter , escalation  | "},
      {inRoot("<filter><filterName/></filter>"), {{kFilter, "B"}}, "0 |  | "},
      {inRoot("<filter><filterName/></filter>"), {{kFilter, ""}}, "0 | filter  | "},
      // Two name elements are asked for twice: "A", then "AB".
      {inRoot("<filter><filterName>A</filterName><filterName>B</filterName></filter>"),
       {{kFilter, "AB"}},
       "0 |  | "},
      {inRoot("<filter><filterName>A</filterName><filterName>B</filterName></filter>"),
       {{kFilter, "A"}},
       "0 |  | "},
      {inRoot("<filter><filterName>A</filterName><filterName>B</filterName></filter>"),
       {{kFilter, "A"}, {kFilter, "AB"}},
       "0 | filter AB | "},
  };
  for (const auto& row : kRows) {
    Selection selection(row.items);
    EXPECT_EQ(outcomeOf(row.document, &selection), row.outcome) << row.document;
  }
  Selection none({});
  EXPECT_EQ(outcomeOf(three, &none), "0 | filter A, filter B, filter C | ");
}

// Elements of the object itself aren't looked at behind its name; those of its children are.
TEST(ParseXMLDocument, WhatADroppedObjectMayHold) {
  const struct {
    std::string content, outcome;
  } kRows[] = {
      {"<bogus a='1'><x/>text</bogus>", "0 | filter Z | "},
      {"<enabled>bogus</enabled>", "0 | filter Z | "},
      {"<modifiedDate>bogus</modifiedDate>", "0 | filter Z | "},
      {"<filterName>Z</filterName>", "0 | filter Z | "},
      {"<formNameList/>", "0 | filter Z | "},
      {"<ifActions><action><gotoGuide><label>L</label></gotoGuide></action></ifActions>",
       "0 | filter Z | "},
      {"<changeHistory/><objectProperties/><workflowConnect/>", "0 | filter Z | "},
      {"<ifActions><bogus/></ifActions>", "2 |  | 2/8941 bogus, line: 2, column 20"},
      {"<workflowConnect><bogus/></workflowConnect>", "2 |  | 2/8941 bogus, line: 2, column 26"},
      {"<bogus><ifActions><bogus/></ifActions></bogus>", "2 |  | 2/8941 bogus, line: 2, column 27"},
      {"<objectProperties><property><value><bogus/></value></property></objectProperties>",
       "2 |  | 2/8941 bogus, line: 2, column 44"},
      {"<changeHistory><changeEntry a='1'/></changeHistory>",
       "2 |  | 2/8942 a, line: 2, column 36"},
  };
  for (const auto& row : kRows) {
    Selection selection({{ZQXML_FILTER, "Z"}});
    EXPECT_EQ(outcomeOf(inRoot(filter("A", "\n" + row.content) + filter("Z")), &selection),
              row.outcome)
        << row.content;
  }
}

TEST(ParseXMLDocument, WhatADroppedEscalationMayHold) {
  const struct {
    std::string content, outcome;
  } kRows[] = {
      {"<bogus a='1'><x/>text</bogus>", "0 | escalation Z | "},
      {"<enabled>bogus</enabled>", "0 | escalation Z | "},
      {"<escalationName>Z</escalationName>", "0 | escalation Z | "},
      {"<escalationTime/><escalationTime><interval>5</interval></escalationTime>",
       "0 | escalation Z | "},
      {"<escalationTime><bogus/></escalationTime>", "2 |  | 2/8941 bogus, line: 2, column 25"},
      {"<elseActions><bogus/></elseActions>", "2 |  | 2/8941 bogus, line: 2, column 22"},
  };
  for (const auto& row : kRows) {
    Selection selection({{ZQXML_ESCALATION, "Z"}});
    EXPECT_EQ(outcomeOf(inRoot(escalation("A", "\n" + row.content) + escalation("Z")), &selection),
              row.outcome)
        << row.content;
  }
}

// What stands ahead of a name that isn't asked for is checked, and then thrown away.
TEST(ParseXMLDocument, ALateNameDropsWhatWasRead) {
  const std::string before =
      "<helpText>H</helpText><workflowConnect><formNameList><formName>F</formName></formNameList>"
      "</workflowConnect>";
  const std::string late =
      "<filter zqDocVersion='3'>" + before + "<filterName>A</filterName></filter>";
  Selection selection({{ZQXML_FILTER, "B"}, {ZQXML_ESCALATION, "E"}});
  EXPECT_EQ(recordsOf(inRoot(late + filter("B")), &selection), "0 | filter{name=\"B\"} | ");
  // The node that is used again has nothing of the object before, of another kind too.
  EXPECT_EQ(recordsOf(inRoot(late + escalation("E")), &selection), "0 | escalation{name=\"E\"} | ");
  EXPECT_EQ(recordsOf(inRoot("<filter><enabled>x</enabled><filterName>A</filterName></filter>"),
                      &selection),
            "2 |  | 2/8943 line: 1, column 35");
}

TEST(ParseXMLDocument, DroppedObjectsLeaveNoBlocks) {
  const std::string more =
      "<helpText>H</helpText><ifActions><action><gotoGuide><label>L</label></gotoGuide></action>"
      "</ifActions>";
  const auto blocksOf = [](const std::string& document, ZQStructItemList* selection) {
    Parsed(sharedHandle(), document, selection);
    const long before = fault::liveBlocks();
    long blocks = 0;
    {
      Parsed parsed(sharedHandle(), document, selection);
      // The texts of the parse itself are not to count.
      parsed.objects = {};
      parsed.status = {};
      parsed.objects.shrink_to_fit();
      parsed.status.shrink_to_fit();
      blocks = fault::liveBlocks() - before;
    }
    EXPECT_EQ(fault::liveBlocks(), before);
    return blocks;
  };
  // A node, the help text, the array of actions, the label.
  EXPECT_EQ(blocksOf(inRoot(filter("A", more)), nullptr), 4);
  const std::string three = inRoot(filter("A", more) + filter("B", more) + filter("C", more));
  EXPECT_EQ(blocksOf(three, nullptr), 12);
  Selection outer({{ZQXML_FILTER, "A"}, {ZQXML_FILTER, "C"}});
  EXPECT_EQ(blocksOf(three, &outer), 8);
  Selection middle({{ZQXML_FILTER, "B"}});
  EXPECT_EQ(blocksOf(three, &middle), 4);
  Selection none({{ZQXML_FILTER, "D"}});
  EXPECT_EQ(blocksOf(three, &none), 0);
}

TEST(ParseXMLDocument, NullOutputsAreSkipped) {
  std::string good = inRoot(filter("A", "<helpText>H</helpText>"));
  std::string bad = "<bogus/>";
  const ZQXMLInputDoc goodInput = {ZQXML_INPUT_MEMORY, good.data()};
  const ZQXMLInputDoc badInput = {ZQXML_INPUT_MEMORY, bad.data()};
  ParserHandle handle;
  const auto warmUp = [&handle, &good] {
    const Parsed first(&handle, good);
    const Parsed second(&handle, good);
  };
  warmUp();
  const long before = fault::liveBlocks();
  EXPECT_EQ(ParseXMLDocument(&handle, &goodInput, nullptr, nullptr, nullptr, nullptr), 0);
  EXPECT_EQ(fault::liveBlocks(), before);
  EXPECT_EQ(ParseXMLDocument(&handle, &badInput, nullptr, nullptr, nullptr, nullptr), 2);
  ZQStructItemList parsed = {};
  EXPECT_EQ(ParseXMLDocument(&handle, &goodInput, nullptr, nullptr, &parsed, nullptr), 0);
  ASSERT_EQ(parsed.numItems, 1U);
  EXPECT_STREQ(parsed.items[0].name, "A");
  FreeZQStructItemList(&parsed, 0);
  ZQXMLParsedStream stream = {};
  EXPECT_EQ(ParseXMLDocument(&handle, &goodInput, nullptr, &stream, nullptr, nullptr), 0);
  ASSERT_NE(stream.objectList, nullptr);
  EXPECT_EQ(Members::of(stream.objectList->object.filter), "name=\"A\" helpText=\"H\"");
  FreeZQXMLParsedStreamInternal(&stream, 0);
  EXPECT_EQ(stream.objectList, nullptr);
  warmUp();
  EXPECT_EQ(fault::liveBlocks(), before);
}

TEST(ParseXMLDocument, WithoutAHandleOrADocument) {
  ZQXMLObjectList node = {};
  ZQXMLParsedStream stream = {&node};
  OwnedStatusList status;
  const ZQXMLInputDoc input = {ZQXML_INPUT_MEMORY, nullptr};
  EXPECT_EQ(ParseXMLDocument(nullptr, &input, nullptr, &stream, nullptr, &status), 2);
  EXPECT_EQ(describe(status), "2/8938 ");
  EXPECT_EQ(stream.objectList, nullptr);
  FreeZQStatusList(&status, 0);
  EXPECT_EQ(ParseXMLDocument(sharedHandle(), nullptr, nullptr, &stream, nullptr, &status), 2);
  FreeZQStatusList(&status, 0);
  const ZQXMLInputDoc unknown = {4, nullptr};
  EXPECT_EQ(ParseXMLDocument(sharedHandle(), &unknown, nullptr, &stream, nullptr, &status), 2);
}

// What a failed parse has read goes when the next begins, or with the handle.
TEST(ParseXMLDocument, AFailedParseLeaksNothing) {
  const std::string bad =
      inRoot(filter("A", "<helpText>H</helpText>") +
             "<filter><helpText>H</helpText><ifActions><action><sql><sqlCommand>C</sqlCommand>"
             "<bogus/></sql></action></ifActions></filter>");
  const std::string broken = bad.substr(0, bad.find("<bogus/>"));
  // An entry of a list that hasn't ended belongs to the handler.
  const std::string pending = inRoot(
      "<filter><ifActions><action><pushFieldList><pushField><targetFieldValue><process>"
      "<command>C</command></process></targetFieldValue><targetField><formName>F</formName>"
      "<qualification><and/></qualification></targetField></pushField><pushField/><bogus/>"
      "</pushFieldList></action></ifActions></filter>");
  const long before = fault::liveBlocks();
  for (const auto* document : {&bad, &broken, &pending}) {
    ParserHandle handle;
    for (int i = 0; i < 3; ++i) {
      EXPECT_EQ(Parsed(&handle, *document).result, 2);
    }
  }
  EXPECT_EQ(fault::liveBlocks(), before);
}

TEST(ParseXMLDocument, NamesAreReadByTheSameHandleInBetween) {
  ParserHandle handle;
  EXPECT_EQ(Parsed(&handle, inRoot(filter("A"))).outcome(), "0 | filter A | ");
  EXPECT_EQ(Parsed(&handle, inRoot(filter("A") + "<bogus/>")).result, 2);
  expectListsGoodDocument(&handle);
  EXPECT_EQ(Parsed(&handle, inRoot(filter("B"))).outcome(), "0 | filter B | ");
}

// Names fill their arrays but for the terminator.
TEST(ParseXMLDocument, LongNamesAreCut) {
  const std::string name(254, 'n');
  for (const auto& longer : {name, name + "x", name + name}) {
    EXPECT_EQ(outcomeOf(inRoot(filter(longer))), "0 | filter " + name + " | ");
    Selection selection({{ZQXML_FILTER, name.c_str()}});
    EXPECT_EQ(outcomeOf(inRoot(filter(longer)), &selection), "0 | filter " + name + " | ");
  }
}

TEST(ParseXMLDocument, FailingAllocationsGive300) {
  std::string document = inRoot(
      filter("A",
             "<helpText>H</helpText><changeHistory><changeEntry userName='u'><entry>E</entry>"
             "</changeEntry></changeHistory><objectProperties><property><value><characterValue>V"
             "</characterValue></value><tag>1</tag></property></objectProperties><workflowConnect>"
             "<formNameList><formName>F</formName></formNameList></workflowConnect>"
             "<runIfQualification><not><fieldID>1</fieldID></not></runIfQualification><ifActions>"
             "<action><notify><user>U</user><cc>C</cc><fieldIDList><fieldID>1</fieldID>"
             "</fieldIDList></notify></action><action><setFieldList><setField><fieldID>1</fieldID>"
             "</setField></setFieldList></action><action><pushFieldList><pushField><targetField/>"
             "<targetFieldValue/></pushField></pushFieldList></action></ifActions><elseActions>"
             "<action><runProcess><command>C</command></runProcess></action></elseActions>") +
      filter("B", "<helpText>H</helpText>") + escalation("E"));
  const ZQXMLInputDoc input = {ZQXML_INPUT_MEMORY, document.data()};
  Selection selection({{ZQXML_FILTER, "A"}, {ZQXML_ESCALATION, "E"}});
  Parsed(sharedHandle(), document, &selection);
  const long before = fault::liveBlocks();
  {
    // A handle that is new to it has everything to make, one that isn't next to nothing.
    ParserHandle used;
    Parsed(&used, document, &selection);
    for (const bool fresh : {true, false}) {
      const long injected = fault::forEachFailure([&](auto arm) {
        ParserHandle made;
        ZQXMLParserHandle* handle = fresh ? &made : &used;
        OwnedStatusList status;
        ZQXMLParsedStream stream = {};
        ZQStructItemList parsed = {};
        int result = 0;
        bool failed = false;
        {
          const auto failing = arm();
          result = ParseXMLDocument(handle, &input, &selection, &stream, &parsed, &status);
          failed = fault::FailingAllocations::happened();
        }
        if (!failed) {
          EXPECT_EQ(result, 0);
          EXPECT_EQ(parsed.numItems, 2U);
        } else if (result == 2) {
          EXPECT_EQ(describe(status), "2/300 ");
        } else {
          EXPECT_EQ(result, 3);
          EXPECT_EQ(describe(status), "");
        }
        if (failed) {
          EXPECT_EQ(parsed.numItems, 0U);
          EXPECT_EQ(parsed.items, nullptr);
        }
        FreeZQStructItemList(&parsed, 0);
        FreeZQXMLParsedStreamInternal(&stream, 0);
        EXPECT_EQ(Parsed(handle, inRoot(filter("Z"))).outcome(), "0 | filter Z | ");
        return failed;
      });
      EXPECT_GT(injected, 60);
    }
  }
  EXPECT_EQ(fault::liveBlocks(), before);
}

}  // namespace
