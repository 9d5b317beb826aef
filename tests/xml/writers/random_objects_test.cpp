// Random filters and escalations: the text of a call is that of the tree of its builder.

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "records/RecordTools.h"
#include "xml/DOMTree.h"
#include "xml/ObjectDocument.h"
#include "xml/writers/Tamer.h"
#include "xml/writers/WorkflowCalls.h"
#include "zqxml/zqxml.h"

namespace {

void fillCommon(WorkflowParts& call, const auto& object) {
  call.name = object.name;
  call.workflowConnect = &object.workflowConnect;
  call.enabled = &object.enabled;
  call.query = &object.query;
  call.actionList = &object.actionList;
  call.elseList = &object.elseList;
  call.owner = object.owner;
  call.lastChanged = object.lastChanged;
  call.modifiedDate = &object.modifiedDate;
  call.helpText = object.helpText;
  call.changeDiary = object.changeDiary;
  call.objPropList = &object.objPropList;
  call.xmlDocVersion = &object.xmlDocVersion;
}

FilterCall callOf(const ZQXMLFilter& filter) {
  FilterCall call;
  fillCommon(call, filter);
  call.executionOrder = &filter.executionOrder;
  call.executeOn = &filter.executeOn;
  return call;
}

EscalationCall callOf(const ZQXMLEscalation& escalation) {
  EscalationCall call;
  fillCommon(call, escalation);
  call.escalationTime = &escalation.escalationTime;
  return call;
}

template <typename Call>
std::string treeText(int tag, const Call& call) {
  const DOMTree tree("scratch");
  DOMSink sink(tree.get(), tree.root());
  openObject(sink, tag);
  auto* element = static_cast<xercesc::DOMElement*>(tree.root()->getFirstChild());
  EXPECT_EQ(call.build(tree.get(), element), 0);
  ZQGNString text(ZQGNString::BLOCKSIZE_DOCUMENT);
  EXPECT_EQ(PrintDOMNode(1, element, text), 0);
  return static_cast<char*>(text);
}

template <typename Record>
void expectSameBytes(int tag, tools::Fill fill, uint32_t seeds) {
  size_t longest = 0;
  for (uint32_t seed = 0; seed < seeds; ++seed) {
    Record record = {};
    tools::Builder builder(seed, fill, 10);
    builder.record("", record);
    Tamer().record("", record);
    const auto call = callOf(record);
    ZQXMLOutputDoc doc = {1, {}};
    EXPECT_EQ(call.set(&doc, 0, nullptr), 0);
    const std::string text = doc.u.doc;
    FreeZQXMLOutputDocInternal(&doc, 0);
    EXPECT_EQ(text, treeText(tag, call)) << seed;
    longest = std::max(longest, text.size());
    tools::freeBlocks(record);
  }
  EXPECT_GT(longest, 10000U);
}

TEST(RandomObjects, FiltersByBothRoads) {
  expectSameBytes<ZQXMLFilter>(tag_filter, tools::Fill::Random, 5000);
  expectSameBytes<ZQXMLFilter>(tag_filter, tools::Fill::Full, 100);
}

TEST(RandomObjects, EscalationsByBothRoads) {
  expectSameBytes<ZQXMLEscalation>(tag_escalation, tools::Fill::Random, 5000);
  expectSameBytes<ZQXMLEscalation>(tag_escalation, tools::Fill::Full, 100);
}

}  // namespace
