// Reads a condition tree. Its host, at whose end the handler pops itself, is "qualification",
// "qualifier", "queryQualification", "dataQualification", "joinQualifier" or "runIfQualification",
// and inside a tree "left", "right" or "not".
//
// The handler of the next level is made when the first level that needs it begins, so that a parser
// holds as many of them as its deepest document had levels.
#ifndef ZQXML_XML_HANDLERS_ZQXMLQUALHANDLER_H
#define ZQXML_XML_HANDLERS_ZQXMLQUALHANDLER_H

#include <cstdint>
#include <memory>

#include "xml/LeafTable.h"
#include "xml/ZQXMLBaseHandler.h"
#include "xml/ZQXMLHandlerUtils.h"
#include "zqxml/records.h"

class ZQXMLQualRelOpHandler;

class ZQXMLQualHandler : public ZQXMLBaseHandler, public ZQXMLHandlerUtils {
 public:
  explicit ZQXMLQualHandler(const ZQXMLHandlerInfo* info);
  ~ZQXMLQualHandler() override;

  void Init(ZQQualifierStruct* qualifier);

  void CleanReferences() override;
  void PreProcess(int tag) override;
  void PostProcess(int tag) override;
  void StartElement(int tag, const xercesc::Attributes& attributes) override;
  void EndElement(int tag) override;
  void Characters(const char* text, unsigned length) override;

 private:
  void SetOperation(uint32_t operation);
  bool HasBranches() const;
  ZQQualifierBranches& Branches();
  void GiveBranchTo(ZQQualifierStruct*& branch);

  ZQQualifierStruct* target = nullptr;
  LeafTable<ZQQualifierStruct> leaves;
  int hostTag = 0;
  // Branches that came ahead of "and" or "or".
  ZQQualifierBranches stray = {};
  std::unique_ptr<ZQXMLQualHandler> child;
  std::unique_ptr<ZQXMLQualRelOpHandler> relation;
};

#endif
