#include "xml/writers/assignments.h"

#include "xml/ElementSink.h"
#include "xml/ZQXMLTagHash.h"
#include "xml/writers/lists.h"
#include "xml/writers/qualifiers.h"
#include "xml/writers/values.h"
#include "xml/writers/words.h"

namespace {

constexpr int kNoMatchOptions[] = {tag_error, tag_setNull, tag_noAction, tag_submit};
constexpr int kMultipleMatchOptions[] = {tag_error,           tag_setNull,   tag_useFirstMatch,
                                         tag_displayPickList, tag_modifyAll, tag_noAction};
constexpr int kDDEActions[] = {tag_execute, tag_poke, tag_request};
constexpr int kFunctions[] = {tag_date,
                              tag_time,
                              tag_month,
                              tag_day,
                              tag_year,
                              tag_workday,
                              tag_hour,
                              tag_minute,
                              tag_second,
                              tag_truncate,
                              tag_round,
                              tag_convert,
                              tag_length,
                              tag_upper,
                              tag_lower,
                              tag_substring,
                              tag_left,
                              tag_right,
                              tag_leftTrim,
                              tag_rightTrim,
                              tag_leftPad,
                              tag_rightPad,
                              tag_replace,
                              tag_strstr,
                              tag_min,
                              tag_max,
                              tag_columnSum,
                              tag_columnCount,
                              tag_columnAvg,
                              tag_columnMin,
                              tag_columnMax,
                              tag_dateAdd,
                              tag_dateDiff,
                              tag_dateName,
                              tag_dateNum,
                              tag_currencyConvert,
                              tag_currencySetDate,
                              tag_currencySetType,
                              tag_currencySetValue};

int writeAssignmentElement(ElementSink& sink, int tag, const ZQAssignStruct& assignment) {
  return sink.within(tag, [&] { return writeAssignment(sink, &assignment); });
}

int writeAssignmentElements(ElementSink& sink, int tag, std::span<const ZQAssignStruct> items) {
  return writeEach(items, [&](const ZQAssignStruct& assignment) {
    return writeAssignmentElement(sink, tag, assignment);
  });
}

void writeMatchOptions(ElementSink& sink, uint32_t noMatch, uint32_t multipleMatch) {
  sink.wordElement(tag_noMatchOption, noMatchWord(noMatch));
  sink.wordElement(tag_multipleMatchOption, multipleMatchWord(multipleMatch));
}

}  // namespace

int noMatchWord(uint32_t option) {
  return wordOf(kNoMatchOptions, option);
}

int multipleMatchWord(uint32_t option) {
  return wordOf(kMultipleMatchOptions, option);
}

int writeAssignment(ElementSink& sink, const ZQAssignStruct* assignment) {
  if (assignment == nullptr) {
    return 0;
  }
  const auto& source = assignment->u;
  switch (assignment->assignType) {
    case 1:
      return writeValueElement(sink, tag_value, &source.value);
    case 2:
      return sink.within(tag_field, [&] { return writeAssignField(sink, source.field); });
    case 3:
      sink.within(tag_process, [&] { sink.element(tag_command, source.process); });
      return 0;
    case 4:
      sink.within(tag_arithmetic, [&] { writeArithOpAssign(sink, source.arithOp); });
      return 0;
    case 5:
      sink.within(tag_function, [&] { writeFunctionAssign(sink, source.function); });
      return 0;
    case 6:
      sink.within(tag_dde, [&] { writeDDE(sink, source.dde); });
      return 0;
    case 7:
      sink.within(tag_sql, [&] { writeAssignSQL(sink, source.sql); });
      return 0;
    case 8:
      sink.within(tag_filterAPI, [&] { writeFilterApi(sink, source.filterApi); });
      return 0;
    default:
      return 0;
  }
}

int writeAssignField(ElementSink& sink, const ZQAssignFieldStruct* field) {
  enum FieldTag : uint32_t { kField = 1, kStatusHistory = 4 };
  if (field == nullptr) {
    return 0;
  }
  sink.arrayElement(tag_serverName, field->serverName);
  sink.arrayElement(tag_formName, field->formName);
  if (field->qualifier.operation != 0) {
    const int status = writeQualifierElement(sink, tag_qualification, &field->qualifier);
    if (status != 0) {
      return status;
    }
  }
  if (field->tag == kField) {
    sink.signedElement(tag_fieldID, field->u.fieldId);
  } else if (field->tag == kStatusHistory) {
    sink.within(tag_statusHistoryValue, [&] { writeStatusHistory(sink, &field->u.statHistory); });
  }
  writeMatchOptions(sink, field->noMatchOption, field->multipleMatchOption);
  return 0;
}

int writeArithOpAssign(ElementSink& sink, const ZQArithOpAssignStruct* arithmetic) {
  if (arithmetic == nullptr) {
    return 0;
  }
  writeArithmeticOperation(sink, arithmetic->operation);
  if (arithmetic->operation != kNegate) {
    const int status = writeAssignmentElement(sink, tag_left, arithmetic->operandLeft);
    if (status != 0) {
      return status;
    }
  }
  return writeAssignmentElement(sink, tag_right, arithmetic->operandRight);
}

int writeFunctionAssign(ElementSink& sink, const ZQFunctionAssignStruct* function) {
  if (function == nullptr) {
    return 0;
  }
  sink.wordElement(tag_functionType, wordOf(kFunctions, function->functionCode));
  if (function->numItems == 0) {
    return 0;
  }
  return sink.within(tag_functionParameterList, [&] {
    return writeAssignmentElements(sink, tag_functionParameter,
                                   itemsOf(function->parameterList, function->numItems));
  });
}

int writeDDE(ElementSink& sink, const ZQDDEStruct* dde) {
  if (dde == nullptr) {
    return 0;
  }
  sink.elementUnlessNull(tag_serviceName, dde->serviceName);
  sink.elementUnlessNull(tag_topic, dde->topic);
  sink.elementUnlessNull(tag_item, dde->item);
  sink.wordElement(tag_action, wordOf(kDDEActions, dde->action));
  sink.elementUnlessNull(tag_pathToProgram, dde->pathToProgram);
  sink.elementUnlessNull(tag_command, dde->command);
  return 0;
}

int writeAssignSQL(ElementSink& sink, const ZQAssignSQLStruct* sql) {
  if (sql == nullptr) {
    return 0;
  }
  sink.arrayElement(tag_serverName, sql->serverName);
  sink.element(tag_sqlCommand, sql->sqlCommand);
  sink.signedElement(tag_valueIndex, sql->valueIndex);
  writeMatchOptions(sink, sql->noMatchOption, sql->multipleMatchOption);
  return 0;
}

int writeFilterApi(ElementSink& sink, const ZQAssignFilterApiStruct* api) {
  if (api == nullptr) {
    return 0;
  }
  sink.arrayElement(tag_serviceName, api->serviceName);
  if (api->numItems != 0 && api->inputValues != nullptr) {
    const int status = sink.within(tag_inputValueList, [&] {
      return writeAssignmentElements(sink, tag_inputValue,
                                     itemsOf(api->inputValues, api->numItems));
    });
    if (status != 0) {
      return status;
    }
  }
  sink.signedElement(tag_valueIndex, api->valueIndex);
  return 0;
}

int writeFieldAssign(ElementSink& sink, const ZQFieldAssignStruct* assign) {
  if (assign == nullptr) {
    return 0;
  }
  sink.signedElement(tag_fieldID, assign->fieldId);
  return writeAssignmentElement(sink, tag_fieldValue, assign->assignment);
}

int writePushField(ElementSink& sink, const ZQPushFieldsStruct* push) {
  if (push == nullptr) {
    return 0;
  }
  const int status =
      sink.within(tag_targetField, [&] { return writeAssignField(sink, &push->field); });
  return status != 0 ? status
                     : writeAssignmentElement(sink, tag_targetFieldValue, push->assignment);
}

int writeFieldAssignList(ElementSink& sink, int tag, const ZQFieldAssignList* list) {
  return writeEach(itemsOf(list), [&](const ZQFieldAssignStruct& assign) {
    return sink.within(tag, [&] { return writeFieldAssign(sink, &assign); });
  });
}

int writePushFieldList(ElementSink& sink, const ZQPushFieldsList* list) {
  return writeEach(itemsOf(list), [&](const ZQPushFieldsStruct& push) {
    return sink.within(tag_pushField, [&] { return writePushField(sink, &push); });
  });
}
