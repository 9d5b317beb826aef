#include "xml/writers/automation.h"

#include "xml/ElementSink.h"
#include "xml/ZQXMLTagHash.h"
#include "xml/writers/lists.h"
#include "xml/writers/values.h"

namespace {

int writeCOMValueElement(ElementSink& sink, int tag, const ZQCOMValueStruct& value) {
  return sink.within(tag, [&] { return writeCOMValue(sink, &value); });
}

int writeParameter(ElementSink& sink, const ZQCOMMethodParmStruct& parameter) {
  return sink.within(tag_methodParameter, [&] {
    sink.element(tag_parameterName, parameter.parameterName);
    sink.signedElement(tag_parameterType, parameter.parameterType);
    return writeCOMValueElement(sink, tag_parameterValue, parameter.parameterValue);
  });
}

int writeMethod(ElementSink& sink, const ZQCOMMethodStruct& method) {
  return sink.within(tag_comMethod, [&] {
    sink.element(tag_methodName, method.methodName);
    sink.element(tag_methodIdentifier, method.methodIdentifier);
    sink.signedElement(tag_methodType, method.methodType);
    const int status = writeCOMValueElement(sink, tag_methodReturnValue, method.returnValue);
    if (status != 0) {
      return status;
    }
    return sink.within(tag_methodParameterList, [&] {
      return writeEach(itemsOf(&method.parameters), [&](const ZQCOMMethodParmStruct& parameter) {
        return writeParameter(sink, parameter);
      });
    });
  });
}

}  // namespace

int writeAutomation(ElementSink& sink, const ZQAutomationStruct* automation) {
  if (automation == nullptr) {
    return 0;
  }
  sink.element(tag_automationServerName, automation->automationServerName);
  sink.element(tag_classID, automation->classID);
  sink.element(tag_action, automation->action);
  sink.booleanElement(tag_visible, automation->visible != 0);
  return sink.within(tag_comMethodList, [&] {
    return writeEach(itemsOf(&automation->methods),
                     [&](const ZQCOMMethodStruct& method) { return writeMethod(sink, method); });
  });
}
