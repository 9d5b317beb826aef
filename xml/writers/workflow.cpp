#include "xml/writers/workflow.h"

#include "xml/ElementSink.h"
#include "xml/ZQXMLTagHash.h"
#include "xml/writers/filteractions.h"
#include "xml/writers/lists.h"
#include "xml/writers/maskwords.h"
#include "xml/writers/qualifiers.h"

namespace {

constexpr int kOperations[] = {tag_getEntry, tag_modify, tag_submit,
                               tag_delete,   tag_merge,  tag_guide};
constexpr int kDaysOfWeek[] = {tag_sunday,   tag_monday, tag_tuesday, tag_wednesday,
                               tag_thursday, tag_friday, tag_saturday};

void writeExecuteOn(ElementSink& sink, const uint32_t* executeOn) {
  if (executeOn != nullptr) {
    sink.element(tag_executeOn, maskWords(kOperations, *executeOn).c_str());
  }
}

// Bits beyond the days and the hours are not printed, but they make the element stand.
void writeCalendar(ElementSink& sink, const ZQDayStruct& date) {
  constexpr uint32_t kDays = 31;
  constexpr uint32_t kHours = 24;
  if (date.monthday != 0) {
    sink.element(tag_daysOfMonth, maskNumbers(date.monthday, kDays, 1).c_str());
  }
  if (date.weekday != 0) {
    sink.element(tag_daysOfWeek, maskWords(kDaysOfWeek, date.weekday).c_str());
  }
  if (date.hourmask != 0) {
    sink.element(tag_hoursOfDay, maskNumbers(date.hourmask, kHours, 0).c_str());
  }
  sink.signedElement(tag_minute, date.minute);
}

void writeEscalationTime(ElementSink& sink, const ZQEscalationTmStruct* time) {
  enum Type : uint32_t { kInterval = 1, kCalendar = 2 };
  if (time == nullptr) {
    return;
  }
  sink.within(tag_escalationTime, [&] {
    if (time->escalationTmType == kInterval) {
      sink.signedElement(tag_interval, time->u.interval);
    } else if (time->escalationTmType == kCalendar) {
      sink.within(tag_time, [&] { writeCalendar(sink, time->u.date); });
    }
  });
}

int writeActionList(ElementSink& sink, int tag, const ZQFilterActionList* list) {
  if (itemsOf(list).empty()) {
    return 0;
  }
  return sink.within(tag, [&] { return writeFilterActions(sink, list); });
}

// What filters and escalations end with.
int writeActions(ElementSink& sink, const ZQQualifierStruct* query,
                 const ZQFilterActionList* actionList, const ZQFilterActionList* elseList) {
  int status = writeRunIf(sink, query);
  if (status == 0) {
    status = writeActionList(sink, tag_ifActions, actionList);
  }
  return status != 0 ? status : writeActionList(sink, tag_elseActions, elseList);
}

}  // namespace

int writeFilter(ElementSink& sink, const HeadParts& head, const FilterParts& filter) {
  const int status = writeObjectHead(sink, head);
  if (status != 0) {
    return status;
  }
  writeExecutionOrder(sink, filter.executionOrder);
  writeWorkflowConnect(sink, filter.workflowConnect);
  writeExecuteOn(sink, filter.executeOn);
  writeEnabled(sink, filter.enabled);
  return writeActions(sink, filter.query, filter.actionList, filter.elseList);
}

int writeEscalation(ElementSink& sink, const HeadParts& head, const EscalationParts& escalation) {
  const int status = writeObjectHead(sink, head);
  if (status != 0) {
    return status;
  }
  writeEscalationTime(sink, escalation.escalationTime);
  writeWorkflowConnect(sink, escalation.workflowConnect);
  writeEnabled(sink, escalation.enabled);
  return writeActions(sink, escalation.query, escalation.actionList, escalation.elseList);
}

void writeExecutionOrder(ElementSink& sink, const uint32_t* order) {
  if (order != nullptr) {
    sink.signedElement(tag_executionOrder, *order);
  }
}

// Deliberate: the forms and their count decide, not the type.
void writeWorkflowConnect(ElementSink& sink, const ZQWorkflowConnectStruct* connect) {
  if (connect == nullptr || itemsOf(connect->formList).empty()) {
    return;
  }
  sink.within(tag_workflowConnect, [&] {
    sink.within(tag_formNameList, [&] {
      for (const ZQNameType& name : itemsOf(connect->formList)) {
        sink.arrayElement(tag_formName, name);
      }
    });
  });
}

void writeEnabled(ElementSink& sink, const uint32_t* enabled) {
  if (enabled != nullptr) {
    sink.booleanElement(tag_enabled, *enabled != 0);
  }
}

int writeRunIf(ElementSink& sink, const ZQQualifierStruct* query) {
  return query != nullptr && query->operation != 0
             ? writeQualifierElement(sink, tag_runIfQualification, query)
             : 0;
}
