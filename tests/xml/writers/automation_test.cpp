#include "xml/writers/automation.h"

#include <gtest/gtest.h>

#include <string>

#include "xml/writers/Written.h"

namespace {

void expectAutomation(const ZQAutomationStruct* automation, const std::string& content) {
  expectWritten([&](ElementSink& sink) { return writeAutomation(sink, automation); }, nullptr,
                content);
}

const std::string kNoValue = "<valueIdentifier/><transID>0</transID>";

TEST(AutomationWriter, AnActionWithoutMethods) {
  ZQAutomationStruct automation = {};
  expectAutomation(&automation,
                   "<automationServerName/><classID/><action/><visible>false</visible>"
                   "<comMethodList/>");
  automation.automationServerName = mutableText("a & b");
  automation.classID = mutableText("{1}");
  automation.action = mutableText("run");
  const std::string head =
      "<automationServerName>a &amp; b</automationServerName><classID>{1}</classID>"
      "<action>run</action>";
  for (const int visible : {1, 2, 255}) {
    automation.visible = static_cast<ZQBoolean>(visible);
    expectAutomation(&automation, head + "<visible>true</visible><comMethodList/>");
  }
  automation.methods.numItems = 3;
  expectAutomation(&automation, head + "<visible>true</visible><comMethodList/>");
  expectAutomation(nullptr, "");
}

TEST(AutomationWriter, Methods) {
  ZQCOMMethodParmStruct parameters[2] = {};
  parameters[0] = {mutableText("p"), -7, {}};
  parameters[0].parameterValue.valueType = 2;
  parameters[0].parameterValue.u.value.dataType = 4;
  parameters[0].parameterValue.u.value.u.characterValue = mutableText("v");
  ZQCOMMethodStruct methods[2] = {};
  methods[0] = {mutableText("m"), mutableText("id"), INT32_MIN, {}, {2, parameters}};
  methods[0].returnValue.valueIdentifier = mutableText("r");
  methods[0].returnValue.transId = 5;
  methods[0].returnValue.valueType = 1;
  methods[0].returnValue.u.fieldId = 4294967295U;
  ZQAutomationStruct automation = {};
  automation.methods = {2, methods};
  expectAutomation(
      &automation,
      "<automationServerName/><classID/><action/><visible>false</visible><comMethodList>"
      "<comMethod><methodName>m</methodName><methodIdentifier>id</methodIdentifier>"
      "<methodType>-2147483648</methodType><methodReturnValue><valueIdentifier>r</valueIdentifier>"
      "<transID>5</transID><fieldID>-1</fieldID></methodReturnValue><methodParameterList>"
      "<methodParameter><parameterName>p</parameterName><parameterType>-7</parameterType>"
      "<parameterValue>" +
          kNoValue +
          "<value><characterValue>v</characterValue></value></parameterValue></methodParameter>"
          "<methodParameter><parameterName/><parameterType>0</parameterType><parameterValue>" +
          kNoValue +
          "</parameterValue></methodParameter></methodParameterList></comMethod>"
          "<comMethod><methodName/><methodIdentifier/><methodType>0</methodType>"
          "<methodReturnValue>" +
          kNoValue + "</methodReturnValue><methodParameterList/></comMethod></comMethodList>");
}

}  // namespace
