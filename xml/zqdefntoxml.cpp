// The exported builders of values, conditions and assignments.

#include "xml/ZQXMLTagHash.h"
#include "xml/builders.h"
#include "xml/writers/assignments.h"
#include "xml/writers/qualifiers.h"
#include "xml/writers/values.h"

using xercesc::DOMDocument;
using xercesc::DOMElement;

namespace {

int buildWord(DOMDocument* document, DOMElement* parent, int word) {
  return buildNodes(document, parent, [word](ElementSink& sink) {
    if (word != 0) {
      sink.text(tagText(word).data());
    }
    return 0;
  });
}

}  // namespace

int CreateValueNode(DOMDocument* document, DOMElement* parent, const ZQValueStruct* value,
                    ZQBoolean localized) {
  return buildNodes(document, parent,
                    [&](ElementSink& sink) { return writeValue(sink, value, localized != 0); });
}

int CreateCOMValueNode(DOMDocument* document, DOMElement* parent, const ZQCOMValueStruct* value) {
  return buildRecord(document, parent, writeCOMValue, value);
}

int CreateCoordListNode(DOMDocument* document, DOMElement* parent, const ZQCoordList* list) {
  return buildRecord(document, parent, writeCoordinates, list);
}

int CreateQualifierNode(DOMDocument* document, DOMElement* parent,
                        const ZQQualifierStruct* qualifier) {
  return buildRecord(document, parent, writeQualifier, qualifier);
}

int CreateFieldValueOrArithNode(DOMDocument* document, DOMElement* parent,
                                const ZQFieldValueOrArithStruct* operand) {
  return buildRecord(document, parent, writeOperand, operand);
}

int CreateArithOpNode(DOMDocument* document, DOMElement* parent,
                      const ZQArithOpStruct* arithmetic) {
  return buildRecord(document, parent, writeArithmetic, arithmetic);
}

int CreateQueryValueNode(DOMDocument* document, DOMElement* parent,
                         const ZQQueryValueStruct* query) {
  return buildRecord(document, parent, writeQueryValue, query);
}

int CreateStatHistoryNode(DOMDocument* document, DOMElement* parent,
                          const ZQStatHistoryValue* history) {
  return buildRecord(document, parent, writeStatusHistory, history);
}

int CreateAssignmentNode(DOMDocument* document, DOMElement* parent,
                         const ZQAssignStruct* assignment) {
  return buildRecord(document, parent, writeAssignment, assignment);
}

int CreateAssignFieldNode(DOMDocument* document, DOMElement* parent,
                          const ZQAssignFieldStruct* field) {
  return buildRecord(document, parent, writeAssignField, field);
}

int CreateArithOpAssignNode(DOMDocument* document, DOMElement* parent,
                            const ZQArithOpAssignStruct* arithmetic) {
  return buildRecord(document, parent, writeArithOpAssign, arithmetic);
}

int CreateFunctionAssignNode(DOMDocument* document, DOMElement* parent,
                             const ZQFunctionAssignStruct* function) {
  return buildRecord(document, parent, writeFunctionAssign, function);
}

int CreateDDENode(DOMDocument* document, DOMElement* parent, const ZQDDEStruct* dde) {
  return buildRecord(document, parent, writeDDE, dde);
}

int CreateAssignSQLNode(DOMDocument* document, DOMElement* parent, const ZQAssignSQLStruct* sql) {
  return buildRecord(document, parent, writeAssignSQL, sql);
}

int CreateFilterApiNode(DOMDocument* document, DOMElement* parent,
                        const ZQAssignFilterApiStruct* api) {
  return buildRecord(document, parent, writeFilterApi, api);
}

int CreateFieldAssignNode(DOMDocument* document, DOMElement* parent,
                          const ZQFieldAssignStruct* assign) {
  return buildRecord(document, parent, writeFieldAssign, assign);
}

int CreatePushFieldNode(DOMDocument* document, DOMElement* parent, const ZQPushFieldsStruct* push) {
  return buildRecord(document, parent, writePushField, push);
}

int CreateNoMatchOptionTextNode(DOMDocument* document, DOMElement* element, uint32_t option) {
  return buildWord(document, element, noMatchWord(option));
}

int CreateMultipleMatchOptionTextNode(DOMDocument* document, DOMElement* element, uint32_t option) {
  return buildWord(document, element, multipleMatchWord(option));
}
