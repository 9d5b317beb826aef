// The whole vocabulary at each place of filters and escalations that the handlers of definition
// lists, filter actions and these objects read: as a child, with and without a text, and as an
// attribute.

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "xml/Vocabulary.h"
#include "xml/handlers/Parsed.h"

namespace {

// What becomes of an accepted element.
enum class Gives {
  Good,      // it reads, with the text "7" and without
  Word,      // 8943 at its end for both, since neither is one of its words
  WordText,  // 8943 at its end for "7"; without a text it reads
  Time,      // 8957 with its text
  NoMemory,  // 300
  EndsHost,  // its end is that of the host's handler, and the end tag of the host is refused
};

struct Accepted {
  Gives gives;
  const char* names;  // separated by blanks
};

struct Place {
  std::string path;  // the elements below "root" that lead to the place
  std::vector<Accepted> accepted;
};

const std::string kFilter = "filter";
const std::string kEscalation = "escalation";
const std::string kAction = "filter/ifActions/action";

std::vector<Place> places() {
  using enum Gives;
  const Accepted kObjectParts = {
      Good,
      "owner lastModifiedBy helpText changeHistory objectProperties workflowConnect "
      "runIfQualification ifActions elseActions"};
  const Accepted kActions = {
      Good,
      "notify message logToFile fileName setFieldList runProcess command pushFieldList sql goto "
      "callGuide exitGuide gotoGuide action"};
  const Accepted kEnds = {EndsHost, "ifActions elseActions"};
  std::vector<Place> all = {
      {kFilter,
       {kObjectParts,
        {Good, "filterName executionOrder"},
        {Word, "enabled"},
        {WordText, "executeOn"},
        {Time, "modifiedDate"},
        {EndsHost, "filter"}}},
      {kEscalation,
       {kObjectParts,
        {Good, "escalationName escalationTime"},
        {Word, "enabled"},
        {Time, "modifiedDate"},
        {EndsHost, "escalation"}}},
      {"filter/workflowConnect", {{Good, "formNameList formName"}, {EndsHost, "workflowConnect"}}},
      {"filter/workflowConnect/formNameList",
       {{Good, "formNameList formName"}, {EndsHost, "workflowConnect"}}},
      {"filter/changeHistory", {{Good, "changeEntry entry"}, {EndsHost, "changeHistory"}}},
      {"filter/changeHistory/changeEntry",
       {{Good, "changeEntry entry"}, {EndsHost, "changeHistory"}}},
      {"filter/objectProperties",
       {{Good, "property tag value"},
        {EndsHost, "objectProperties commonProperties displayProperties properties propertyList"}}},
      {"filter/objectProperties/property",
       {{Good, "property tag value"},
        {EndsHost, "objectProperties commonProperties displayProperties properties propertyList"}}},
      {"escalation/escalationTime",
       {{Good, "time interval daysOfMonth hoursOfDay minute"},
        {WordText, "daysOfWeek"},
        {EndsHost, "escalationTime"}}},
      {"escalation/escalationTime/time",
       {{Good, "time interval daysOfMonth hoursOfDay minute"},
        {WordText, "daysOfWeek"},
        {EndsHost, "escalationTime"}}},
      {"filter/ifActions", {{Good, "action"}, {EndsHost, "ifActions elseActions"}}},
      {"filter/elseActions", {{Good, "action"}, {EndsHost, "ifActions elseActions"}}},
      {kAction, {kActions, kEnds}},
      {kAction + "/logToFile", {kActions, kEnds}},
      {kAction + "/runProcess", {kActions, kEnds}},
      {kAction + "/notify",
       {{Good,
         "user notifyText priority mechanism mechanismXRef subject behavior permission replyTo cc "
         "bcc organization mailboxName headerTemplate footerTemplate contentTemplate fieldIDList"},
        {Word, "fieldIncludeType"},
        {NoMemory, "from"},
        {EndsHost, "notify"}}},
      {kAction + "/notify/fieldIDList",
       {{Good, "fieldID groupID"}, {EndsHost, "fieldIDList accessList subAdminAccessList"}}},
      {kAction + "/message",
       {{Good, "messageText messageNumber"}, {Word, "messageType"}, {EndsHost, "message"}}},
      {kAction + "/setFieldList",
       {{Good, "setField inputField outputField"},
        {EndsHost, "setFieldList inputFieldList outputFieldList"}}},
      {kAction + "/pushFieldList", {{Good, "pushField"}, {EndsHost, "pushFieldList"}}},
      {kAction + "/pushFieldList/pushField",
       {{Good, "pushField targetField targetFieldValue"}, {EndsHost, "pushFieldList"}}},
      {kAction + "/sql", {{Good, "serverName sqlCommand"}, {EndsHost, "sql"}}},
      {kAction + "/callGuide",
       {{Good, "serverName guideName guideMode loopTableFieldID"}, {EndsHost, "callGuide"}}},
      {kAction + "/exitGuide", {{Word, "closeAll"}, {EndsHost, "exitGuide"}}},
      {kAction + "/gotoGuide", {{Good, "label"}, {EndsHost, "gotoGuide"}}},
  };
  for (const char* below : {"", "/executionOrder"}) {
    all.push_back(
        {kAction + "/goto" + below,
         {{Good, "executionOrder fieldIDReference absoluteOrder offsetForward offsetBackward"},
          {EndsHost, "goto"}}});
  }
  return all;
}

std::vector<std::string> allNames() {
  std::vector<std::string> names = {"bogus"};
  for (const auto& [name, id] : vocabulary()) {
    names.push_back(name);
  }
  EXPECT_EQ(names.size(), 657U);
  return names;
}

// The tags around a place, in one line.
struct Around {
  explicit Around(const std::string& path) {
    std::istringstream elements("root/" + path);
    for (std::string name; std::getline(elements, name, '/');) {
      before += "<" + name + ">";
      after = "</" + name + ">" + after;
      host = name;
    }
  }

  std::string before;
  std::string after;
  std::string host;
};

std::string placeBehind(size_t characters) {
  return "line: 1, column " + std::to_string(characters + 1);
}

void expectStatus(const std::string& document, const std::string& status) {
  {
    const Parsed parsed(sharedHandle(), document);
    ASSERT_EQ(parsed.status, status) << document;
    ASSERT_EQ(parsed.result, status.empty() ? 0 : 2) << document;
  }
  if (!status.empty()) {
    ASSERT_EQ(Parsed(sharedHandle(), "<root><filter/></root>").outcome(), "0 | filter  | ")
        << "behind " << document;
  }
}

// What is told of an element with a text at a place.
std::string statusOf(const Around& around, const std::string& name, const std::string& text,
                     const Gives* gives) {
  const std::string start = around.before + "<" + name + ">";
  const std::string whole = start + text + "</" + name + ">";
  const std::string hostEnd = placeBehind(whole.size() + around.host.size() + 3);
  if (gives == nullptr) {
    return "2/8941 " + name + ", " + placeBehind(start.size());
  }
  switch (*gives) {
    case Gives::Good:
      return "";
    case Gives::WordText:
      return text.empty() ? "" : "2/8943 " + placeBehind(whole.size());
    case Gives::Word:
      return "2/8943 " + placeBehind(whole.size());
    case Gives::Time:
      return "2/8957 " + text;
    case Gives::NoMemory:
      return "2/300 ";
    case Gives::EndsHost:
      return "2/8941 " + around.host + ", " + hostEnd;
  }
  return "";
}

std::map<std::string, Gives> acceptedAt(const Place& place) {
  std::map<std::string, Gives> accepted;
  for (const Accepted& row : place.accepted) {
    std::istringstream names(row.names);
    for (std::string name; names >> name;) {
      EXPECT_TRUE(vocabulary().contains(name)) << name;
      EXPECT_TRUE(accepted.emplace(name, row.gives).second) << name;
    }
  }
  return accepted;
}

TEST(WorkflowTagSweep, Children) {
  const std::vector<std::string> names = allNames();
  for (const Place& place : places()) {
    const Around around(place.path);
    const std::map<std::string, Gives> accepted = acceptedAt(place);
    for (const std::string& name : names) {
      const auto row = accepted.find(name);
      for (const std::string text : {"", "7"}) {
        expectStatus(around.before + "<" + name + ">" + text + "</" + name + ">" + around.after,
                     statusOf(around, name, text, row != accepted.end() ? &row->second : nullptr));
      }
    }
  }
}

// Texts that stand in no element of their own are dropped.
TEST(WorkflowTagSweep, TextsInHosts) {
  for (const Place& place : places()) {
    const Around around(place.path);
    EXPECT_EQ(recordsOf(around.before + "7<!-- -->&lt;" + around.after),
              recordsOf(around.before + around.after))
        << place.path;
  }
}

TEST(WorkflowTagSweep, Attributes) {
  const std::map<std::string, std::set<std::string>> lists = {
      {"filter",
       {"zqDocVersion", "version", "xmlns", "xmlns:xsi", "xsi:schemaLocation", "xsi:type"}},
      {"escalation",
       {"zqDocVersion", "version", "xmlns", "xmlns:xsi", "xsi:schemaLocation", "xsi:type"}},
      {"changeEntry", {"userName"}},
  };
  const std::vector<std::string> names = allNames();
  for (const Place& place : places()) {
    const Around around(place.path);
    const auto list = lists.find(around.host);
    const std::string start = around.before.substr(0, around.before.size() - 1);
    for (const std::string& name : names) {
      const std::string attribute = " " + name + "=\"7\"";
      std::string status;
      if (list != lists.end() && !list->second.contains(name)) {
        status = "2/8942 " + name + ", " + placeBehind(start.size() + attribute.size() + 1);
      }
      if (around.host == "changeEntry" && name == "modifiedDate") {
        status = "2/8957 7";
      }
      expectStatus(start + attribute + ">" + around.after, status);
    }
  }
}

}  // namespace
