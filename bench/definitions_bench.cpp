// The writing of objects beside a DOM tree of the same elements and the XML parser's own
// serializer, and their reading beside the XML parser alone.

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <cstring>
#include <stdexcept>
#include <string>
#include <vector>
#include <xercesc/dom/DOM.hpp>
#include <xercesc/framework/MemBufFormatTarget.hpp>

#include "BareSax2.h"
#include "zqxml/builders.hpp"
#include "zqxml/zqxml.h"

namespace {

enum Contents : int64_t { kMixed, kAssignmentsAlone };

// A filter of about one megabyte: conditions, and assignments of constants, fields and functions,
// with notifications among them unless assignments stand alone.
class LargeFilter {
 public:
  explicit LargeFilter(Contents contents) {
    for (ZQRelOpStruct& relation : relations) {
      relation.operation = 1;
      relation.operandLeft.tag = 1;
      relation.operandLeft.u.fieldId = 536870913;
      relation.operandRight.tag = 2;
      relation.operandRight.u.value = textValue("In \"progress\" & late");
    }
    for (size_t i = 0; i < kNodes; ++i) {
      leaves[i].operation = 4;
      leaves[i].u.relationalOperation = &relations[i];
    }
    nodes[0] = leaves[0];
    for (size_t i = 1; i < kNodes; ++i) {
      nodes[i].operation = 2;
      nodes[i].u.branches = {&leaves[i], &nodes[i - 1]};
    }
    query = nodes[kNodes - 1];

    strcpy(field.serverName, "helpdesk-a");
    strcpy(field.formName, "HD:Ticket");
    field.qualifier = leaves[0];
    field.tag = 1;
    field.u.fieldId = 536870914;
    field.noMatchOption = 2;
    field.multipleMatchOption = 3;
    for (ZQAssignStruct& parameter : parameters) {
      parameter.assignType = 1;
      parameter.u.value.dataType = 2;
      parameter.u.value.u.integerValue = 120;
    }
    for (size_t i = 0; i < kAssignments; ++i) {
      assignments[i].fieldId = 1000;
      ZQAssignStruct& source = assignments[i].assignment;
      if (i % 3 == 0) {
        source.assignType = 1;
        source.u.value = textValue("Ticket has been assigned to the group of the customer.");
      } else if (i % 3 == 1) {
        source.assignType = 2;
        source.u.field = &field;
      } else {
        source.assignType = 5;
        source.u.function = &function;
      }
    }
    if (contents == kAssignmentsAlone) {
      actionList.numItems = kActions / 2;
    }
    for (size_t i = 0; i < kActions; ++i) {
      if (contents == kAssignmentsAlone || i % 2 == 0) {
        actions[i].action = 4;
        actions[i].u.setFields = {kAssignments, assignments};
      } else {
        actions[i].action = 1;
        actions[i].u.notify.user = const_cast<char*>("$1004$");
        actions[i].u.notify.subject = const_cast<char*>("Ticket $1$ is <overdue>");
        actions[i].u.notify.notifyText =
            const_cast<char*>("A ticket of yours is overdue.\nPlease look at it & answer.");
        actions[i].u.notify.fieldIncludeType = 2;
        actions[i].u.notify.fieldIdList = {kIds, ids};
      }
    }
  }

  int set(ZQXMLOutputDoc* doc, unsigned frame = 0) {
    return SetFilterToXML(doc, frame, "HD:Ticket-Large", &order, nullptr, &order, &enabled, &query,
                          &actionList, &actionList, "maren", "tomasz", &date, "Help text.", nullptr,
                          nullptr, &version, nullptr);
  }

  int build(xercesc::DOMDocument* document, xercesc::DOMElement* element) {
    return CreateFilterNode(document, element, "HD:Ticket-Large", &order, nullptr, &order, &enabled,
                            &query, &actionList, &actionList, "maren", "tomasz", &date,
                            "Help text.", nullptr, nullptr, &version);
  }

 private:
  static constexpr size_t kNodes = 40;
  static constexpr uint32_t kAssignments = 40;
  static constexpr uint32_t kActions = 50;
  static constexpr uint32_t kIds = 10;

  static ZQValueStruct textValue(const char* text) {
    ZQValueStruct value = {};
    value.dataType = 4;
    value.u.characterValue = const_cast<char*>(text);
    return value;
  }

  const uint32_t order = 6;
  const uint32_t enabled = 1;
  const ZQTimestamp date = 1705312800;
  const int32_t version = 1;
  ZQRelOpStruct relations[kNodes] = {};
  ZQQualifierStruct leaves[kNodes] = {};
  ZQQualifierStruct nodes[kNodes] = {};
  ZQQualifierStruct query = {};
  ZQAssignFieldStruct field = {};
  ZQAssignStruct parameters[2] = {};
  ZQFunctionAssignStruct function = {32, 2, parameters};
  ZQFieldAssignStruct assignments[kAssignments] = {};
  ZQInternalId ids[kIds] = {1, 2, 3, 536870913, 536870914, 536870915, 7, 8, 15, 1000};
  ZQFilterActionStruct actions[kActions] = {};
  ZQFilterActionList actionList = {kActions, actions};
};

LargeFilter& filter(int64_t contents) {
  static LargeFilter mixed(kMixed);
  static LargeFilter assignments(kAssignmentsAlone);
  return contents == kMixed ? mixed : assignments;
}

std::string& documentOfAssignments() {
  static std::string document = [] {
    ZQXMLOutputDoc doc = {1, {}};
    if (filter(kAssignmentsAlone).set(&doc, 1) != 0) {
      throw std::runtime_error("the filter was not written");
    }
    std::string text = doc.u.doc;
    FreeZQXMLOutputDocInternal(&doc, 0);
    return text;
  }();
  return document;
}

void BM_SetFilterToXML(benchmark::State& state) {
  int64_t bytes = 0;
  for (auto _ : state) {
    ZQXMLOutputDoc doc = {1, {}};
    if (filter(state.range(0)).set(&doc) != 0) {
      throw std::runtime_error("the filter was not written");
    }
    benchmark::DoNotOptimize(doc.u.doc);
    bytes += static_cast<int64_t>(strlen(doc.u.doc));
    FreeZQXMLOutputDocInternal(&doc, 0);
  }
  state.SetBytesProcessed(bytes);
}
BENCHMARK(BM_SetFilterToXML)->Arg(kMixed)->Arg(kAssignmentsAlone)->Unit(benchmark::kMillisecond);

void BM_BuildAndSerialize(benchmark::State& state) {
  InitXMLParser(nullptr);
  auto* implementation = static_cast<xercesc::DOMImplementationLS*>(
      xercesc::DOMImplementationRegistry::getDOMImplementation(u"LS"));
  int64_t bytes = 0;
  for (auto _ : state) {
    xercesc::DOMDocument* document =
        xercesc::DOMImplementation::getImplementation()->createDocument(nullptr, u"filter",
                                                                        nullptr);
    xercesc::DOMElement* element = document->getDocumentElement();
    element->setAttribute(u"xmlns", u"urn:quorin:schemas:zqs");
    element->setAttribute(u"xmlns:xsi", u"http://www.w3.org/2001/XMLSchema-instance");
    element->setAttribute(u"xsi:schemaLocation", u"urn:quorin:schemas:zqs zqs.xsd");
    if (filter(state.range(0)).build(document, element) != 0) {
      throw std::runtime_error("the filter was not built");
    }
    xercesc::DOMLSSerializer* serializer = implementation->createLSSerializer();
    xercesc::DOMLSOutput* output = implementation->createLSOutput();
    xercesc::MemBufFormatTarget target;
    output->setByteStream(&target);
    output->setEncoding(u"UTF-8");
    if (!serializer->write(element, output)) {
      throw std::runtime_error("the serializer failed");
    }
    bytes += static_cast<int64_t>(target.getLen());
    output->release();
    serializer->release();
    document->release();
  }
  state.SetBytesProcessed(bytes);
}
BENCHMARK(BM_BuildAndSerialize)->Arg(kMixed)->Arg(kAssignmentsAlone)->Unit(benchmark::kMillisecond);

void BM_ParseAssignments(benchmark::State& state) {
  std::string& document = documentOfAssignments();
  ZQXMLParserHandle handle = {};
  if (CreateXMLParserHandle(&handle, nullptr) != 0) {
    throw std::runtime_error("no parser handle");
  }
  for (auto _ : state) {
    const ZQXMLInputDoc input = {ZQXML_INPUT_MEMORY, document.data()};
    ZQXMLParsedStream stream = {};
    if (ParseXMLDocument(&handle, &input, nullptr, &stream, nullptr, nullptr) != 0 ||
        stream.objectList == nullptr) {
      throw std::runtime_error("the filter was not read");
    }
    // The time of giving the objects back isn't that of the parse.
    state.PauseTiming();
    FreeZQXMLParsedStreamInternal(&stream, 0);
    state.ResumeTiming();
  }
  FreeZQXMLParserHandleInternal(&handle, 0);
  setBytes(state, document);
}
BENCHMARK(BM_ParseAssignments)->Unit(benchmark::kMillisecond);

void BM_BareSax2(benchmark::State& state) {
  parseByBareSax2(state, documentOfAssignments());
}
BENCHMARK(BM_BareSax2)->Unit(benchmark::kMillisecond);

}  // namespace
