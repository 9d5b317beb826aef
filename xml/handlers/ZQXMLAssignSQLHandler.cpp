#include "xml/handlers/ZQXMLAssignSQLHandler.h"

#include "xml/ZQXMLTagHash.h"

namespace {

constexpr Leaf<ZQAssignSQLStruct> kLeaves[] = {
    {tag_serverName, loadName<&ZQAssignSQLStruct::serverName>},
    {tag_sqlCommand, loadText<&ZQAssignSQLStruct::sqlCommand>},
    {tag_valueIndex, loadSigned<&ZQAssignSQLStruct::valueIndex>},
    {tag_noMatchOption, loadWord<&ZQAssignSQLStruct::noMatchOption, ENUM_NO_MATCH>},
    {tag_multipleMatchOption, loadWord<&ZQAssignSQLStruct::multipleMatchOption, ENUM_MULTI_MATCH>},
};

}  // namespace

ZQXMLAssignSQLHandler::ZQXMLAssignSQLHandler(const ZQXMLHandlerInfo* info)
    : ZQXMLBaseHandler(info), leaves(kLeaves) {}

void ZQXMLAssignSQLHandler::Init(ZQAssignSQLStruct* sql) {
  currentTag = 0;
  CleanReferences();
  target = sql;
  *target = {};
}

void ZQXMLAssignSQLHandler::PreProcess(int) {}

void ZQXMLAssignSQLHandler::StartElement(int tag, const xercesc::Attributes&) {
  currentTag = 0;
  if (tag == tag_sql) {
    leaves.empty();
  } else if (leaves.open(tag)) {
    currentTag = tag;
  } else {
    refuseElement();
  }
}

void ZQXMLAssignSQLHandler::Characters(const char* text, unsigned) {
  leaves.append(text);
}

void ZQXMLAssignSQLHandler::EndElement(int tag) {
  currentTag = 0;
  if (!leaves.close(tag, *target, locator) && tag != tag_sql) {
    refuseElement();
  }
}

void ZQXMLAssignSQLHandler::PostProcess(int tag) {
  if (tag == tag_sql) {
    handlerStack->Pop();
  }
}

void ZQXMLAssignSQLHandler::CleanReferences() {}
