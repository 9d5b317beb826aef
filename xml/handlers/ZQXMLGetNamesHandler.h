// Lists the objects of a definition document without building them. It stays on top of the stack
// for the whole document, refuses no element, and takes the first name element inside an object as
// the object's name.
#ifndef ZQXML_XML_HANDLERS_ZQXMLGETNAMESHANDLER_H
#define ZQXML_XML_HANDLERS_ZQXMLGETNAMESHANDLER_H

#include <cstdint>

#include "xml/ZQGNString.h"
#include "xml/ZQXMLBaseHandler.h"
#include "xml/ZQXMLHandlerUtils.h"
#include "zqxml/records.h"

class ZQXMLGetNamesHandler : public ZQXMLBaseHandler, public ZQXMLHandlerUtils {
 public:
  explicit ZQXMLGetNamesHandler(const ZQXMLHandlerInfo* info) : ZQXMLBaseHandler(info) {}
  ~ZQXMLGetNamesHandler() override { ZQXMLGetNamesHandler::CleanReferences(); }

  // Empties the three lists, which are filled at the end of "root".
  void Init(ZQUnsignedIntList* types, ZQNameList* names, ZQUnsignedIntList* containerTypes);

  void CleanReferences() override;
  void PreProcess(int tag) override;
  void PostProcess(int tag) override;
  void StartElement(int tag, const xercesc::Attributes& attributes) override;
  void EndElement(int tag) override;
  void Characters(const char* text, unsigned length) override;

 private:
  struct Node {
    uint32_t type;
    ZQNameType name;
    int32_t subType;
    Node* next;
  };

  void AddNode();
  void GenStructList();

  ZQGNString objectName;
  uint32_t objectKind = 0;
  ZQGNString subTypeText;
  bool nameOpen = false;
  bool subTypeOpen = false;
  Node* firstNode = nullptr;
  Node* lastNode = nullptr;
  ZQUnsignedIntList* objectTypes = nullptr;
  ZQNameList* objectNames = nullptr;
  ZQUnsignedIntList* subTypes = nullptr;
};

#endif
