// Reads a typed value: a host element ("value", "referenceValue" or "defaultValue") with a child
// whose name is the type. Of several children the last one decides.
#ifndef ZQXML_XML_HANDLERS_ZQXMLVALUEHANDLER_H
#define ZQXML_XML_HANDLERS_ZQXMLVALUEHANDLER_H

#include <cstdint>

#include "xml/LeafTable.h"
#include "xml/PendingList.h"
#include "xml/ZQXMLBaseHandler.h"
#include "xml/ZQXMLHandlerUtils.h"
#include "zqxml/records.h"

class ZQXMLValueHandler : public ZQXMLBaseHandler, public ZQXMLHandlerUtils {
 public:
  explicit ZQXMLValueHandler(const ZQXMLHandlerInfo* info);

  void Init(ZQValueStruct* value);

  void CleanReferences() override;
  void PreProcess(int tag) override;
  void PostProcess(int tag) override;
  void StartElement(int tag, const xercesc::Attributes& attributes) override;
  void EndElement(int tag) override;
  void Characters(const char* text, unsigned length) override;

 private:
  void ReadByteListAttributes(const xercesc::Attributes& attributes);
  void ReadAttachmentAttributes(const xercesc::Attributes& attributes);
  void AddCoordNode();
  void GenZQValueStruct();
  void GenByteList();
  void GenAttachment();
  void GenCurrency();
  void GenCoordList();

  ZQValueStruct* target = nullptr;
  LeafTable<ZQValueStruct> leaves;
  ZQGNString byteListType;
  ZQGNString originalSize;
  ZQGNString compressedSize;
  uint32_t dataType = 0;
  // What ended last, "fileName" or "attachmentData". Deliberate: it carries over to later
  // attachments that have neither.
  uint32_t locationKind = 0;
  PendingList<ZQCoordStruct> coordinates;
};

#endif
