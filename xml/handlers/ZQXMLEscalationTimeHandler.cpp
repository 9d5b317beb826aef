#include "xml/handlers/ZQXMLEscalationTimeHandler.h"

#include "xml/ZQXMLTagHash.h"
#include "xml/handlers/WordList.h"

namespace {

enum EscalationTimeType : uint32_t { kInterval = 1, kCalendar = 2 };

// A mask has 32 bits; a number beyond them comes round.
uint32_t bit(uint32_t number) {
  return 1U << (number & 31);
}

// Deliberate: the values of both types are written where they stand in the union, whichever type
// the record ends up with.

void loadInterval(ZQEscalationTmStruct& time, const LeafText& leaf) {
  time.escalationTmType = kInterval;
  time.u.interval = signedNumber(leaf.text);
}

void LoadDaysOfMonth(ZQEscalationTmStruct& time, const LeafText& leaf) {
  time.escalationTmType = kCalendar;
  time.u.date.monthday = 0;
  forEachWord(leaf.text, [&time](const char* day) {
    time.u.date.monthday |= bit(static_cast<uint32_t>(signedNumber(day)) - 1);
  });
}

void LoadDaysOfWeek(ZQEscalationTmStruct& time, const LeafText& leaf) {
  time.escalationTmType = kCalendar;
  time.u.date.weekday = 0;
  forEachWord(leaf.text, [&](const char* day) {
    time.u.date.weekday |= ZQXMLHandlerUtils::GetEnumValue(ENUM_DAY_OF_WEEK, day, leaf.locator);
  });
}

void LoadHoursOfDay(ZQEscalationTmStruct& time, const LeafText& leaf) {
  time.escalationTmType = kCalendar;
  time.u.date.hourmask = 0;
  forEachWord(leaf.text, [&time](const char* hour) {
    time.u.date.hourmask |= bit(static_cast<uint32_t>(signedNumber(hour)));
  });
}

void loadMinute(ZQEscalationTmStruct& time, const LeafText& leaf) {
  time.escalationTmType = kCalendar;
  time.u.date.minute = signedNumber(leaf.text);
}

constexpr Leaf<ZQEscalationTmStruct> kLeaves[] = {
    {tag_interval, loadInterval},     {tag_daysOfMonth, LoadDaysOfMonth},
    {tag_daysOfWeek, LoadDaysOfWeek}, {tag_hoursOfDay, LoadHoursOfDay},
    {tag_minute, loadMinute},
};

}  // namespace

ZQXMLEscalationTimeHandler::ZQXMLEscalationTimeHandler(const ZQXMLHandlerInfo* info)
    : ZQXMLBaseHandler(info), leaves(kLeaves) {}

void ZQXMLEscalationTimeHandler::Init(ZQEscalationTmStruct* time) {
  currentTag = 0;
  CleanReferences();
  target = time;
  *target = {};
}

void ZQXMLEscalationTimeHandler::PreProcess(int) {}

void ZQXMLEscalationTimeHandler::StartElement(int tag, const xercesc::Attributes&) {
  currentTag = 0;
  if (tag == tag_escalationTime) {
    leaves.empty();
  } else if (leaves.open(tag)) {
    currentTag = tag;
  } else if (tag != tag_time) {
    refuseElement();
  }
}

void ZQXMLEscalationTimeHandler::Characters(const char* text, unsigned) {
  leaves.append(text);
}

void ZQXMLEscalationTimeHandler::EndElement(int tag) {
  currentTag = 0;
  if (!leaves.close(tag, *target, locator) && tag != tag_time && tag != tag_escalationTime) {
    refuseElement();
  }
}

void ZQXMLEscalationTimeHandler::PostProcess(int tag) {
  if (tag == tag_escalationTime) {
    handlerStack->Pop();
  }
}

void ZQXMLEscalationTimeHandler::CleanReferences() {}
