// How SAX events become calls on the handlers of the stack.

#include "xml/ZQXMLDocumentParser.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>
#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/sax/SAXParseException.hpp>
#include <xercesc/sax2/SAX2XMLReader.hpp>
#include <xercesc/util/SecurityManager.hpp>

#include "fault/FailingAllocations.h"
#include "records/StatusLists.h"
#include "xml/FixedLocator.h"
#include "xml/Vocabulary.h"
#include "xml/XMLReader.h"
#include "xml/ZQXMLException.h"
#include "xml/ZQXMLText.h"
#include "zqxml/zqxml.h"

namespace {

using Log = std::vector<std::string>;

// Writes down each call: its handler's name, the operation, the tag, and the element's name as
// messages would show it. An operation can be given more to do.
class RecordingHandler : public ZQXMLBaseHandler {
 public:
  RecordingHandler(const ZQXMLHandlerInfo* info, std::string handlerName, Log* calls)
      : ZQXMLBaseHandler(info), name(std::move(handlerName)), log(calls) {}

  using Action = std::function<void(int tag)>;
  std::map<std::string, Action> actions;

  void CleanReferences() override {}
  void PreProcess(int tag) override { note("Pre", tag); }
  void PostProcess(int tag) override { note("Post", tag); }

  void StartElement(int tag, const xercesc::Attributes& attributes) override {
    currentTag = tag;
    std::string list;
    for (XMLSize_t i = 0; i < attributes.getLength(); ++i) {
      list +=
          " " + ZQXMLToLocal(attributes.getQName(i)) + "=" + ZQXMLToLocal(attributes.getValue(i));
    }
    note("Start", tag, list);
  }

  void EndElement(int tag) override {
    note("End", tag);
    currentTag = 0;
  }

  void Characters(const char* text, unsigned length) override {
    EXPECT_EQ(*elementName, nullptr);
    log->push_back(name + " Text " + text + " " + std::to_string(length));
    text_ += text;
    act("Text", currentTag);
  }

  void setCurrentTag(int tag) { currentTag = tag; }
  int tagNow() const { return currentTag; }
  const std::string& text() const { return text_; }
  void push(ZQXMLBaseHandler* handler) { handlerStack->Push(handler, locator); }
  void pop() { handlerStack->Pop(); }
  std::string place() const {
    return std::to_string((*locator)->getLineNumber()) + ":" +
           std::to_string((*locator)->getColumnNumber());
  }
  bool hasElementName() const { return *elementName != nullptr; }

 private:
  void note(const char* operation, int tag, const std::string& more = "") {
    log->push_back(name + " " + operation + " " + std::to_string(tag) + " " +
                   ZQXMLToLocal(*elementName) + more);
    act(operation, tag);
  }

  void act(const std::string& operation, int tag) {
    if (actions.count(operation) != 0) {
      actions[operation](tag);
    }
  }

  std::string name;
  Log* log;
  std::string text_;
};

// A document parser whose documents are ruled by a handler of the test.
class TestParser : public ZQXMLDocumentParser {
 public:
  explicit TestParser(Log* log)
      : top(&handlerInfo, "top", log), child(&handlerInfo, "child", log) {}

  void startDocument() override {
    ZQXMLDocumentParser::startDocument();
    // The handler of the mode stays below.
    handlerStack.Push(&top, nullptr);
  }

  const ZQXMLHandlerInfo* info() const { return &handlerInfo; }
  ZQXMLHandlerStack* stack() { return &handlerStack; }

  RecordingHandler top;
  RecordingHandler child;
};

class DispatchTest : public testing::Test {
 protected:
  DispatchTest() {
    EXPECT_EQ(InitXMLParser(nullptr), 0);
    reader = makeSAX2Reader(security, memory);
    reader->setContentHandler(&parser);
    reader->setErrorHandler(&parser);
  }

  ~DispatchTest() override {
    FreeZQUnsignedIntList(&types, 0);
    FreeZQNameList(&names, 0);
    FreeZQUnsignedIntList(&subTypes, 0);
  }

  void setUp() { parser.InitObjectNameParsing(&types, &names, &subTypes, &status); }

  void parseAsSetUp(const std::string& document) {
    const xercesc::MemBufInputSource source(reinterpret_cast<const XMLByte*>(document.data()),
                                            document.size(), "", false);
    reader->parse(source);
  }

  void parse(const std::string& document) {
    setUp();
    log.clear();
    parseAsSetUp(document);
  }

  // The exception that ends the parse of a document, as "number text".
  std::string failureOf(const std::string& document) {
    try {
      parse(document);
      return "none";
    } catch (const ZQXMLException& exception) {
      return std::to_string(exception.GetErrorNumber()) + " " + exception.GetErrorMsg();
    }
  }

  static std::string tagOf(const char* text) { return std::to_string(vocabulary().at(text)); }

  Log log;
  TestParser parser{&log};
  xercesc::SecurityManager security;
  ReaderMemory memory;
  std::unique_ptr<xercesc::SAX2XMLReader> reader;
  ZQUnsignedIntList types = {};
  ZQNameList names = {};
  ZQUnsignedIntList subTypes = {};
  OwnedStatusList status;
};

TEST_F(DispatchTest, OneElementFlowsThroughTheCallsInOrder) {
  parse("<form>text</form>");
  const std::string form = tagOf("form");
  EXPECT_EQ(log, Log({"top Pre " + form + " form", "top Start " + form + " form", "top Text text 4",
                      "top End " + form + " form", "top Post " + form + " form"}));
}

TEST_F(DispatchTest, AParentSeesOnlyPreProcessOfAChildsElement) {
  const int field = vocabulary().at("field");
  parser.top.actions["Pre"] = [&](int tag) {
    if (tag == field) {
      parser.top.push(&parser.child);
    }
  };
  parser.child.actions["Post"] = [&](int tag) {
    if (tag == field) {
      parser.child.pop();
    }
  };
  parse("<form><field>a<fieldID>7</fieldID></field><formName>N</formName></form>");
  const std::string f = tagOf("form") + " form";
  const std::string c = tagOf("field") + " field";
  const std::string i = tagOf("fieldID") + " fieldID";
  const std::string n = tagOf("formName") + " formName";
  EXPECT_EQ(log, Log({"top Pre " + f, "top Start " + f,      // the parent's own element
                      "top Pre " + c, "child Start " + c,    // the child was pushed
                      "child Text a 1",                      //
                      "child Pre " + i, "child Start " + i,  // PreProcess of what is within
                      "child Text 7 1",                      //
                      "child End " + i, "child Post " + i,   //
                      "child End " + c, "child Post " + c,   // the child pops itself
                      "top Pre " + n, "top Start " + n,      //
                      "top Text N 1",                        //
                      "top End " + n, "top Post " + n,       //
                      "top End " + f, "top Post " + f}));
}

TEST_F(DispatchTest, PostProcessGoesToTheHandlerOnTopAfterEndElement) {
  // A handler that pops itself as early as in EndElement leaves PostProcess to its parent.
  parser.top.actions["Start"] = [&](int) { parser.top.push(&parser.child); };
  parser.child.actions["End"] = [&](int) { parser.child.pop(); };
  parse("<form/>");
  const std::string f = tagOf("form") + " form";
  EXPECT_EQ(log, Log({"top Pre " + f, "top Start " + f, "child End " + f, "top Post " + f}));
}

TEST_F(DispatchTest, EveryTagIsHandedDownByItsId) {
  for (const auto& [text, id] : vocabulary()) {
    parse("<" + text + "/>");
    const std::string call = std::to_string(id) + " " + text;
    EXPECT_EQ(log,
              Log({"top Pre " + call, "top Start " + call, "top End " + call, "top Post " + call}));
  }
}

TEST_F(DispatchTest, AnUnknownElementHasTag1BelowZero) {
  for (const std::string name : {"bogus", "Form", "x:form", "form\xC3\xA9", "\xE2\x82\xAC"}) {
    if (name == "\xE2\x82\xAC") {
      continue;  // no name of XML
    }
    parse("<" + name + "/>");
    EXPECT_EQ(log, Log({"top Pre -1 " + name, "top Start -1 " + name, "top End -1 " + name,
                        "top Post -1 " + name}));
  }
}

TEST_F(DispatchTest, EndTagsHaveTheIdOfTheirStart) {
  parse("<form><bogus><field/></bogus><menu></menu></form>");
  Log ends;
  for (const std::string& call : log) {
    if (call.find(" End ") != std::string::npos) {
      ends.push_back(call);
    }
  }
  EXPECT_EQ(ends,
            Log({"top End " + tagOf("field") + " field", "top End -1 bogus",
                 "top End " + tagOf("menu") + " menu", "top End " + tagOf("form") + " form"}));
}

TEST_F(DispatchTest, AttributesArePassedOn) {
  parse("<form a='1' xsi:type=\"x&amp;y\" xmlns='urn:n' xmlns:q='urn:q'/>");
  EXPECT_EQ(log[1],
            "top Start " + tagOf("form") + " form a=1 xsi:type=x&y xmlns=urn:n xmlns:q=urn:q");
}

TEST_F(DispatchTest, TheNameOfAnElementIsThereOnlyDuringItsEvents) {
  parse("<form>a<bogus/></form>");
  EXPECT_FALSE(parser.top.hasElementName());
  EXPECT_EQ(parser.top.text(), "a");
  for (const char* operation : {"Pre", "Start", "End", "Post", "Text"}) {
    parser.top.actions.clear();
    parser.top.actions[operation] = [](int) { throw ZQXMLException(8941); };
    EXPECT_EQ(failureOf("<form>a</form>"), "8941 ") << operation;
    EXPECT_FALSE(parser.top.hasElementName()) << operation;
  }
}

TEST_F(DispatchTest, ThePlaceOfATagIsJustBehindIt) {
  Log places;
  for (const char* operation : {"Pre", "Start", "End", "Post"}) {
    parser.top.actions[operation] = [&, operation](int) {
      places.push_back(operation + (" " + parser.top.place()));
    };
  }
  parse("<form>\n<bogus/>\n</form >");
  EXPECT_EQ(places, Log({"Pre 1:7", "Start 1:7", "Pre 2:9", "Start 2:9", "End 2:9", "Post 2:9",
                         "End 3:9", "Post 3:9"}));
}

TEST_F(DispatchTest, ATextComesUpToEachReferenceAndSection) {
  parse("<form>a&lt;b<![CDATA[c]]>d</form>");
  EXPECT_EQ(parser.top.text(), "a<bcd");
  parse("<form>" + std::string(200000, 'x') + "</form>");
  EXPECT_EQ(log[2], "top Text " + std::string(200000, 'x') + " 200000");
}

TEST_F(DispatchTest, TheLengthIsThatOfTheUnits) {
  parse("<form>\xC3\xA9\xC3\xA9</form>");
  EXPECT_EQ(log[2], "top Text \xC3\xA9\xC3\xA9 2");
  parse("<form>\xF0\x9F\x98\x80</form>");
  EXPECT_EQ(log[2], "top Text \xF0\x9F\x98\x80 2");
  parse("<form>\xE2\x82\xAC\xE2\x82\xAC\xE2\x82\xAC</form>");
  EXPECT_EQ(log[2], "top Text \xE2\x82\xAC\xE2\x82\xAC 3");
}

TEST_F(DispatchTest, TextIsDroppedWhileTheCurrentTagIs0) {
  parser.top.actions["Start"] = [&](int) { parser.top.setCurrentTag(0); };
  parse("<form> a<bogus>b</bogus>c</form>");
  EXPECT_EQ(parser.top.text(), "");
  parser.top.actions["Start"] = [&](int) { parser.top.setCurrentTag(-1); };
  parse("<form> a<bogus>b</bogus>c</form>");
  // Behind the end of "bogus" the tag is 0.
  EXPECT_EQ(parser.top.text(), " ab");
}

TEST_F(DispatchTest, TextGoesToAHandlerThatWasNeverUsed) {
  EXPECT_EQ(parser.child.tagNow(), -1);
  parser.top.actions["Pre"] = [&](int) { parser.top.push(&parser.child); };
  parser.child.actions["Start"] = [&](int) { parser.child.setCurrentTag(-1); };
  parse("<form>x</form>");
  EXPECT_EQ(parser.child.text(), "x");
}

TEST_F(DispatchTest, IgnorableWhiteSpaceIsIgnored) {
  setUp();
  parser.startDocument();
  parser.top.setCurrentTag(1);
  parser.ignorableWhitespace(u"  ", 2);
  EXPECT_TRUE(log.empty());
}

TEST_F(DispatchTest, APieceNeedNotBeTerminated) {
  setUp();
  parser.startDocument();
  parser.top.setCurrentTag(1);
  for (const std::u16string& text :
       {std::u16string(u"abc"), std::u16string(u"\uf8e1\u00e9\u20ac"), std::u16string()}) {
    const std::unique_ptr<char16_t[]> exact(new char16_t[text.size()]);
    text.copy(exact.get(), text.size());
    parser.characters(exact.get(), text.size());
  }
  EXPECT_EQ(log, Log({"top Text abc 3", "top Text \x02\xC3\xA9\xE2\x82\xAC 3", "top Text  0"}));
}

TEST_F(DispatchTest, EscapedControlCharactersAreTurnedBack) {
  setUp();
  parser.startDocument();
  for (int unit = 0xF8D0; unit <= 0xF90F; ++unit) {
    const char16_t text[] = {u'a', static_cast<char16_t>(unit), u'b'};
    const auto converted = ZQXMLDocumentParser::ConvertSpecialControlChars(text, 3);
    const bool kept = unit == 0xF8E8 || unit == 0xF8E9 || unit == 0xF8EC;
    if (unit < 0xF8E0 || unit > 0xF8FE || kept) {
      EXPECT_EQ(converted, nullptr) << unit;
      continue;
    }
    ASSERT_NE(converted, nullptr) << unit;
    // 16-bit arithmetic: U+F8E0 and 0x721 is U+0001.
    EXPECT_EQ(converted[0], u'a');
    EXPECT_EQ(converted[1], static_cast<char16_t>(unit + 0x721));
    EXPECT_EQ(converted[1], unit - 0xF8DF);
    EXPECT_EQ(converted[2], u'b');
    EXPECT_EQ(converted[3], 0);
    EXPECT_EQ(text[1], unit);
  }
  EXPECT_EQ(ZQXMLDocumentParser::ConvertSpecialControlChars(u"", 0), nullptr);
  // One that is to be mapped beside one that is not.
  const auto both = ZQXMLDocumentParser::ConvertSpecialControlChars(u"\uf8e8\uf8fe", 2);
  ASSERT_NE(both, nullptr);
  EXPECT_EQ(std::u16string(both.get()), u"\uf8e8\x1f");
  // Only `length` units count.
  EXPECT_EQ(ZQXMLDocumentParser::ConvertSpecialControlChars(u"ab\uf8e0", 2), nullptr);
}

TEST_F(DispatchTest, NoMemoryForATextIs300) {
  setUp();
  parser.startDocument();
  parser.top.setCurrentTag(1);
  const std::u16string text = u"\uf8e0" + std::u16string(500, u'\u00e9');
  int number = 0;
  {
    const fault::FailingAllocations failing(0);
    try {
      parser.characters(text.data(), text.size());
    } catch (const ZQXMLException& exception) {
      number = exception.GetErrorNumber();
      EXPECT_STREQ(exception.GetErrorMsg(), "");
    }
  }
  EXPECT_EQ(number, 300);
  EXPECT_TRUE(log.empty());
}

TEST_F(DispatchTest, AnEmptyStackStaysEmpty) {
  ZQXMLHandlerStack stack;
  for (int i = 0; i < 2; ++i) {
    stack.Pop();
    EXPECT_EQ(stack.GetStackTop(), nullptr);
  }
  stack.Push(&parser.top);
  EXPECT_EQ(stack.GetStackTop(), &parser.top);
  stack.Pop();
  EXPECT_EQ(stack.GetStackTop(), nullptr);
}

TEST_F(DispatchTest, TheStackHolds128Handlers) {
  EXPECT_EQ(ZQXML_MAX_HANDLERS, 128);
  const FixedLocator place(3, 4);
  const xercesc::Locator* locator = &place;
  ZQXMLHandlerStack stack;
  EXPECT_EQ(stack.GetStackTop(), nullptr);
  stack.Init();
  for (int round = 0; round < 2; ++round) {
    for (int i = 0; i < 128; ++i) {
      ZQXMLBaseHandler* handler = i % 2 == 0 ? &parser.top : &parser.child;
      stack.Push(handler, &locator);
      EXPECT_EQ(stack.GetStackTop(), handler);
    }
    for (int i = 0; i < 3; ++i) {
      try {
        stack.Push(&parser.top, &locator);
        ADD_FAILURE() << "129 handlers";
      } catch (const ZQXMLException& exception) {
        EXPECT_EQ(exception.GetErrorNumber(), 8944);
        EXPECT_STREQ(exception.GetErrorMsg(), "line: 3, column 4");
      }
      EXPECT_EQ(stack.GetStackTop(), &parser.child);
    }
    for (int i = 127; i >= 0; --i) {
      EXPECT_EQ(stack.GetStackTop(), i % 2 == 0 ? &parser.top : &parser.child);
      stack.Pop();
    }
    EXPECT_EQ(stack.GetStackTop(), nullptr);
    stack.Pop();
    EXPECT_EQ(stack.GetStackTop(), nullptr);
  }
  stack.Push(&parser.top, &locator);
  stack.Init();
  EXPECT_EQ(stack.GetStackTop(), nullptr);
}

TEST_F(DispatchTest, The129thHandlerEndsTheParse) {
  // Two are at work before the first element.
  parser.top.actions["Pre"] = [&](int) { parser.top.push(&parser.top); };
  parser.top.actions["Post"] = [&](int) { parser.top.pop(); };
  const auto nested = [](int depth) {
    std::string document;
    for (int i = 0; i < depth; ++i) {
      document += "<a>";
    }
    for (int i = 0; i < depth; ++i) {
      document += "</a>";
    }
    return document;
  };
  EXPECT_EQ(failureOf(nested(126)), "none");
  EXPECT_EQ(failureOf(nested(127)), "8944 line: 1, column " + std::to_string(127 * 3 + 1));
  EXPECT_EQ(failureOf(nested(126)), "none");
}

TEST_F(DispatchTest, AnEmptyStackIs8944InEveryEvent) {
  const auto empty = [&](int) { parser.stack()->Init(); };
  parser.top.actions["Pre"] = empty;
  EXPECT_EQ(failureOf("<form/>"), "8944 line: 1, column 8");
  parser.top.actions.clear();
  parser.top.actions["Start"] = empty;
  EXPECT_EQ(failureOf("<form/>"), "8944 line: 1, column 8");
  EXPECT_EQ(failureOf("<form>\ntext</form>"), "8944 line: 2, column 5");
  EXPECT_EQ(failureOf("<form><a/></form>"), "8944 line: 1, column 11");
  parser.top.actions.clear();
  parser.top.actions["End"] = empty;
  EXPECT_EQ(failureOf("<form></form>"), "8944 line: 1, column 14");
}

TEST_F(DispatchTest, AModeThatIsNotKnownIs8944WithoutAText) {
  try {
    parser.startDocument();
    ADD_FAILURE() << "started";
  } catch (const ZQXMLException& exception) {
    EXPECT_EQ(exception.GetErrorNumber(), 8944);
    EXPECT_STREQ(exception.GetErrorMsg(), "");
  }
}

TEST_F(DispatchTest, ASecondParseWithoutSetUpIs8944WithoutAText) {
  parse("<form/>");
  try {
    parseAsSetUp("<form/>");
    ADD_FAILURE() << "parsed";
  } catch (const ZQXMLException& exception) {
    EXPECT_EQ(exception.GetErrorNumber(), 8944);
    EXPECT_STREQ(exception.GetErrorMsg(), "");
  }
  parse("<form/>");
  EXPECT_EQ(log.size(), 4U);
}

TEST_F(DispatchTest, TheEndOfADocumentForgetsTheStatusList) {
  setUp();
  parser.startDocument();
  parser.endDocument();
  parser.fatalError(xercesc::SAXParseException(u"late", u"", u"", 1, 1));
  EXPECT_EQ(status.numItems, 0U);
}

TEST_F(DispatchTest, AFailedParseLeavesTheNextOneWhole) {
  for (const char* operation : {"Pre", "Start", "Text", "End", "Post"}) {
    parser.top.actions.clear();
    parser.top.actions[operation] = [](int) { throw ZQXMLException(8941, "here"); };
    EXPECT_EQ(failureOf("<form><field>x</field></form>"), "8941 here") << operation;
    parser.top.actions.clear();
    parse("<form/>");
    EXPECT_EQ(log.size(), 4U) << operation;
  }
}

TEST_F(DispatchTest, ExceptionsOfAnyClassPass) {
  parser.top.actions["Start"] = [](int) { throw 5; };
  EXPECT_THROW(parse("<form/>"), int);
  parser.top.actions["Start"] = [](int) { throw std::bad_alloc(); };
  EXPECT_THROW(parse("<form/>"), std::bad_alloc);
  parser.top.actions.clear();
  parse("<form/>");
  EXPECT_EQ(log.size(), 4U);
}

TEST_F(DispatchTest, ErrorCallbacksAddTheirRecordsAndDoNotThrow) {
  setUp();
  const xercesc::SAXParseException exception(u"caf\u00e9 text", u"", u"", 12, 34);
  parser.warning(exception);
  EXPECT_EQ(describe(status), "1/8940 caf\xC3\xA9 text");
  parser.error(exception);
  EXPECT_EQ(describe(status), "2/8940 caf\xC3\xA9 text; 1/8940 caf\xC3\xA9 text");
  FreeZQStatusList(&status, 0);
  parser.fatalError(xercesc::SAXParseException(std::u16string(1000, u'x').c_str(), u"", u"", 5, 6));
  EXPECT_EQ(describe(status), "2/8940 " + std::string(255, 'x'));
  EXPECT_EQ(parser.lastPosition().line, 5U);
  EXPECT_EQ(parser.lastPosition().column, 6U);
}

TEST_F(DispatchTest, ErrorCallbacksWithoutAListAddNothing) {
  parser.InitObjectNameParsing(&types, &names, &subTypes, nullptr);
  const xercesc::SAXParseException exception(u"text", u"", u"", 12, 34);
  parser.warning(exception);
  parser.error(exception);
  parser.fatalError(exception);
  EXPECT_EQ(parser.lastPosition().line, 12U);
}

TEST_F(DispatchTest, ARecordThatCannotBeMadeIsRemembered) {
  const xercesc::SAXParseException exception(u"text", u"", u"", 12, 34);
  for (const long index : {0L, 1L, 2L}) {
    setUp();
    EXPECT_EQ(parser.lostSeverity(), 0);
    {
      const fault::FailingAllocations failing(index);
      parser.fatalError(exception);
    }
    EXPECT_EQ(parser.lostSeverity(), 3);
    EXPECT_EQ(status.numItems, 0U);
  }
}

}  // namespace
