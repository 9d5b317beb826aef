// The automation action: its texts, the calls of methods and their parameters.

#include <gtest/gtest.h>

#include "xml/handlers/Arena.h"
#include "xml/handlers/ElementReaders.h"
#include "xml/handlers/ElementTable.h"

namespace {

class Automation : public testing::Test {
 protected:
  template <typename Record>
  Child<Record> textChild(const std::string& element, char* Record::*member) {
    const auto set = [this, member](const std::string& text) {
      return [this, member, text](Record& record) { record.*member = arena.text(text); };
    };
    return {"<" + element + ">a&amp;b</" + element + ">", set("a&b"), set("a&ba&b")};
  }

  ZQCOMValueStruct value(const std::string& text) {
    ZQCOMValueStruct result = {};
    result.valueType = 2;
    result.u.value.dataType = 4;
    result.u.value.u.characterValue = arena.text(text);
    return result;
  }

  static std::string valueElement(const std::string& text) {
    return "<value><characterValue>" + text + "</characterValue></value>";
  }

  // A table of the children of a list's one entry.
  template <typename Reader, typename Entry>
  void expectEntries(Reader& listReader, const std::string& list, const std::string& entry,
                     const std::vector<Child<Entry>>& children) {
    std::vector<Child<typename Reader::Record>> rows;
    for (const Child<Entry>& child : children) {
      const auto onEntry = [this](const typename Child<Entry>::Effect& effect) {
        return [this, effect](typename Reader::Record& record) {
          record.items = arena.make(*record.items);
          effect(*record.items);
        };
      };
      rows.push_back({child.xml, onEntry(child.effect)});
      if (child.twice != nullptr) {
        rows.back().twice = onEntry(child.twice);
      }
    }
    ElementTable<Reader>(listReader, "<" + list + "><" + entry + ">",
                         "</" + entry + "></" + list + ">", rows, {1, arena.make<Entry>()})
        .expectAll();
  }

  Arena arena;
  AutomationReader reader;
  MethodListReader methods;
  ParameterListReader parameters;
};

TEST_F(Automation, ChildrenInAnyOrder) {
  ElementTable<AutomationReader>(
      reader, "<oleAutomation>x", "</oleAutomation>",
      {textChild("automationServerName", &ZQAutomationStruct::automationServerName),
       textChild("classID", &ZQAutomationStruct::classID),
       textChild("action", &ZQAutomationStruct::action),
       {"<comMethodList><comMethod><methodName>m</methodName></comMethod></comMethodList>",
        [&](ZQAutomationStruct& a) {
          ZQCOMMethodStruct method = {};
          method.methodName = arena.text("m");
          a.methods = {1, arena.make(method)};
        }}})
      .expectAll();
  for (const auto& [text, number] : {std::pair("true", 1), std::pair("false", 0)}) {
    ZQAutomationStruct expected = {};
    expected.visible = static_cast<ZQBoolean>(number);
    const std::string document =
        std::string("<oleAutomation><visible>") + text + "</visible></oleAutomation>";
    expectRead(reader, document, expected);
    expectRead(reader, inPieces(document), expected);
  }
  for (const std::string text : {"", "True", "yes", "1"}) {
    expectRefused(reader, "<oleAutomation><visible>" + text + "</visible>@</oleAutomation>", 8943);
  }
}

TEST_F(Automation, EmptyTextsAreNoNullPointers) {
  ZQAutomationStruct expected = {};
  expected.automationServerName = expected.classID = expected.action = arena.text("");
  expectRead(reader,
             "<oleAutomation><automationServerName/><classID/><action/><comMethodList/>"
             "</oleAutomation>",
             expected);
  expectRead(reader, "<oleAutomation/>", {});
}

TEST_F(Automation, ListsReplaceOneAnother) {
  expectRead(reader,
             "<oleAutomation><comMethodList><comMethod><methodName>m</methodName></comMethod>"
             "</comMethodList><comMethodList/></oleAutomation>",
             {});
}

TEST_F(Automation, MethodsInAnyOrder) {
  using Effect = Child<ZQCOMMethodStruct>::Effect;
  const auto type = [](int32_t number) -> Effect {
    return [number](ZQCOMMethodStruct& m) { m.methodType = number; };
  };
  expectEntries<MethodListReader, ZQCOMMethodStruct>(
      methods, "comMethodList", "comMethod",
      {textChild("methodName", &ZQCOMMethodStruct::methodName),
       textChild("methodIdentifier", &ZQCOMMethodStruct::methodIdentifier),
       {"<methodType>-4</methodType>", type(-4), type(-4)},
       {"<methodReturnValue>" + valueElement("r") + "</methodReturnValue>",
        [&](ZQCOMMethodStruct& m) { m.returnValue = value("r"); }},
       {"<methodParameterList><methodParameter/></methodParameterList>", [&](ZQCOMMethodStruct& m) {
          m.parameters = {1, arena.make<ZQCOMMethodParmStruct>()};
        }}});
}

TEST_F(Automation, ParametersInAnyOrder) {
  using Effect = Child<ZQCOMMethodParmStruct>::Effect;
  const auto type = [](int32_t number) -> Effect {
    return [number](ZQCOMMethodParmStruct& p) { p.parameterType = number; };
  };
  expectEntries<ParameterListReader, ZQCOMMethodParmStruct>(
      parameters, "methodParameterList", "methodParameter",
      {textChild("parameterName", &ZQCOMMethodParmStruct::parameterName),
       {"<parameterType>4</parameterType>", type(4), type(44)},
       {"<parameterValue>" + valueElement("p") + "</parameterValue>",
        [&](ZQCOMMethodParmStruct& p) { p.parameterValue = value("p"); }}});
}

TEST_F(Automation, EntriesKeepNothingOfOneAnother) {
  ZQCOMMethodStruct first = {};
  first.methodName = arena.text("a");
  first.methodType = 3;
  ZQCOMMethodStruct third = {};
  third.methodIdentifier = arena.text("");
  expectRead(methods,
             "<comMethodList>x<comMethod>x<methodName>a</methodName>x<methodType>3</methodType>"
             "</comMethod>x<comMethod/><comMethod><methodIdentifier/><methodType/></comMethod>"
             "</comMethodList>",
             arena.list<ZQCOMMethodList>({first, {}, third}));
  expectRead(methods, "<comMethodList/>", {});
  ZQCOMMethodParmStruct parameter = {};
  parameter.parameterName = arena.text("b");
  expectRead(parameters,
             "<methodParameterList>x<methodParameter>x<parameterName>b</parameterName>"
             "</methodParameter><methodParameter/></methodParameterList>",
             arena.list<ZQCOMMethodParmList>({parameter, {}}));
  expectRead(parameters, "<methodParameterList>text</methodParameterList>", {});
}

// What belongs to an entry has no place outside one, neither ahead of the first nor behind the
// last.
TEST_F(Automation, PartsOutsideAnEntryAreRefused) {
  const auto refused = [](auto& listReader, const std::string& list, const std::string& entry,
                          std::initializer_list<std::string> children) {
    const std::string start = "<" + list + ">";
    const std::string end = "</" + list + ">";
    for (const std::string& child : children) {
      const std::string element = "<" + child + ">@</" + child + ">";
      expectRefused(listReader, start + element + end, 8941, child);
      expectRefused(listReader, start + "<" + entry + "/>" + element + end, 8941, child);
    }
  };
  refused(
      methods, "comMethodList", "comMethod",
      {"methodName", "methodIdentifier", "methodType", "methodReturnValue", "methodParameterList"});
  refused(parameters, "methodParameterList", "methodParameter",
          {"parameterName", "parameterType", "parameterValue"});
  // The end of a text whose entry another one has closed.
  expectRefused(methods,
                "<comMethodList><comMethod><methodName>a<comMethod/></methodName>@</comMethod>"
                "</comMethodList>",
                8941, "methodName");
  expectRefused(methods,
                "<comMethodList><comMethod><methodReturnValue><parameterValue/>"
                "</methodReturnValue>@</comMethod></comMethodList>",
                8941, "methodReturnValue");
}

}  // namespace
