#include "xml/handlers/ZQXMLActionSQLHandler.h"

#include "xml/ZQXMLTagHash.h"

namespace {

constexpr Leaf<ZQSQLStruct> kLeaves[] = {
    {tag_serverName, loadName<&ZQSQLStruct::serverName>},
    {tag_sqlCommand, loadText<&ZQSQLStruct::sqlCommand>},
};

}  // namespace

ZQXMLActionSQLHandler::ZQXMLActionSQLHandler(const ZQXMLHandlerInfo* info)
    : ZQXMLBaseHandler(info), leaves(kLeaves) {}

void ZQXMLActionSQLHandler::Init(ZQSQLStruct* sql) {
  currentTag = 0;
  CleanReferences();
  target = sql;
  *target = {};
}

void ZQXMLActionSQLHandler::PreProcess(int) {}

void ZQXMLActionSQLHandler::StartElement(int tag, const xercesc::Attributes&) {
  currentTag = 0;
  if (tag == tag_sql) {
    leaves.empty();
  } else if (leaves.open(tag)) {
    currentTag = tag;
  } else {
    refuseElement();
  }
}

void ZQXMLActionSQLHandler::Characters(const char* text, unsigned) {
  leaves.append(text);
}

void ZQXMLActionSQLHandler::EndElement(int tag) {
  currentTag = 0;
  if (!leaves.close(tag, *target, locator) && tag != tag_sql) {
    refuseElement();
  }
}

void ZQXMLActionSQLHandler::PostProcess(int tag) {
  if (tag == tag_sql) {
    handlerStack->Pop();
  }
}

void ZQXMLActionSQLHandler::CleanReferences() {}
