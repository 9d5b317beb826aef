#include "objects.h"

#include <fnmatch.h>
#include <strings.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <memory>

#include "commands.h"
#include "kinds.h"
#include "messages.h"
#include "output.h"
#include "recordjson.h"

namespace {

constexpr int kUtf8CodeSet = 65;

using Text = std::unique_ptr<char, decltype(&free)>;

// Writers consume a diary.
Text copyOf(const char* text) {
  return Text(text != nullptr ? strdup(text) : nullptr, free);
}

int write(const ZQXMLFilter& filter, ZQXMLOutputDoc* document, ZQStatusList* status) {
  return SetFilterToXML(document, 0, filter.name, &filter.executionOrder, &filter.workflowConnect,
                        &filter.executeOn, &filter.enabled, &filter.query, &filter.actionList,
                        &filter.elseList, filter.owner, filter.lastChanged, &filter.modifiedDate,
                        filter.helpText, copyOf(filter.changeDiary).get(), &filter.objPropList,
                        &filter.xmlDocVersion, status);
}

int write(const ZQXMLEscalation& escalation, ZQXMLOutputDoc* document, ZQStatusList* status) {
  return SetEscalationToXML(document, 0, escalation.name, &escalation.escalationTime,
                            &escalation.workflowConnect, &escalation.enabled, &escalation.query,
                            &escalation.actionList, &escalation.elseList, escalation.owner,
                            escalation.lastChanged, &escalation.modifiedDate, escalation.helpText,
                            copyOf(escalation.changeDiary).get(), &escalation.objPropList,
                            &escalation.xmlDocVersion, status);
}

// What is done with the object of a node, by its kind.
template <typename Visit>
auto withObject(const ZQXMLObjectList& node, Visit visit) {
  switch (node.objectType) {
    case ZQXML_ESCALATION:
      return visit(node.object.escalation);
    default:
      return visit(node.object.filter);
  }
}

// A part of a document in memory, which `put` writes.
template <typename Put>
int append(std::string& text, const std::string& what, Put put) {
  StatusList status;
  Owned<ZQXMLOutputDoc, FreeZQXMLOutputDocInternal> part;
  part->docType = 1;
  if (put(&part, &status) == 0) {
    text += part->u.doc;
    return kDone;
  }
  const int number = status->numItems > 0 ? status->items[0].messageNum : ZQ_MESSAGE_OUT_OF_MEMORY;
  const Message* message = findMessage(number);
  std::cerr << "zqxml: " << what << ": " << (message != nullptr ? message->text : "") << " ["
            << number << "]\n";
  return kDocumentFault;
}

}  // namespace

void useUtf8() {
  InitMbutilExt(kUtf8CodeSet);
}

Selector::Selector(const std::string& text) {
  const size_t colon = text.find(':');
  const std::string word = text.substr(0, colon);
  pattern = colon == std::string::npos ? "*" : text.substr(colon + 1);
  if (word == "*") {
    return;
  }
  for (const Kind& each : listedKinds()) {
    if (strcasecmp(each.word, word.c_str()) == 0) {
      kind = each.number;
    }
  }
  if (kind == 0) {
    throw CLI::ValidationError("-s", "\"" + word + "\" is no kind of object");
  }
}

bool Selector::selects(const ZQXMLObjectList& node) const {
  return (kind == 0 || kind == node.objectType) &&
         fnmatch(pattern.c_str(), objectName(node).c_str(), 0) == 0;
}

std::string objectKind(const ZQXMLObjectList& node) {
  return kindWord(node.objectType);
}

std::string objectName(const ZQXMLObjectList& node) {
  return withObject(node, [](const auto& object) { return std::string(object.name); });
}

nlohmann::ordered_json objectJson(const ZQXMLObjectList& node) {
  nlohmann::ordered_json json = {{"kind", objectKind(node)}};
  json.update(withObject(node, [](const auto& object) { return recordJson(object); }));
  return json;
}

std::vector<const ZQXMLObjectList*> objectsOf(const Stream& stream,
                                              const std::vector<Selector>& selection) {
  std::vector<const ZQXMLObjectList*> objects;
  for (const ZQXMLObjectList* node = stream->objectList; node != nullptr; node = node->next) {
    const auto selects = [node](const Selector& selector) { return selector.selects(*node); };
    if (selection.empty() || std::any_of(selection.begin(), selection.end(), selects)) {
      objects.push_back(node);
    }
  }
  return objects;
}

int parseObjects(Parser& parser, Document& document, Stream& stream) {
  if (!document.isReadable()) {
    return kFileFault;
  }
  StatusList status;
  const ZQXMLInputDoc input = document.input();
  const int severity =
      ParseXMLDocument(parser.handle(), &input, nullptr, &stream, nullptr, &status);
  if (severity != 0 || status->numItems > 0) {
    parser.reportFaults(document, status);
  }
  return severity == 0 ? kDone : kDocumentFault;
}

int writeObjects(const std::vector<const ZQXMLObjectList*>& objects, std::string& text) {
  std::string document;
  int result = append(document, "header", SetDocHeaderToXML);
  for (const ZQXMLObjectList* node : objects) {
    if (result == kDone) {
      result = append(document, objectKind(*node) + " " + onOneLine(objectName(*node)),
                      [node](ZQXMLOutputDoc* part, ZQStatusList* status) {
                        return withObject(
                            *node, [&](const auto& object) { return write(object, part, status); });
                      });
    }
  }
  if (result == kDone) {
    result = append(document, "footer", SetDocFooterToXML);
  }
  if (result == kDone) {
    char* encoded = nullptr;
    SetEncodingForXMLDoc(document.c_str(), kUtf8CodeSet, &encoded);
    const Text owner(encoded, free);
    text = encoded != nullptr ? encoded : document;
  }
  return result;
}
