// The base of all element handlers. A handler knows one element and its children, writes straight
// into the record that its parent named by the handler's own Init, and hands a child element over
// to another handler by pushing that.
//
// All handlers of a parser exist from its construction on and are used again for each document.
#ifndef ZQXML_XML_ZQXMLBASEHANDLER_H
#define ZQXML_XML_ZQXMLBASEHANDLER_H

#include <memory>
#include <xercesc/sax2/Attributes.hpp>

#include "xml/ZQXMLException.h"
#include "xml/ZQXMLHandlerInfo.h"
#include "xml/ZQXMLHandlerStack.h"
#include "xml/heap.h"
#include "zqxml/messages.h"

class ZQXMLBaseHandler {
 public:
  explicit ZQXMLBaseHandler(const ZQXMLHandlerInfo* info)
      : handlerInfo(info),
        handlerStack(info->handlerStack),
        objectSelection(info->objectSelection),
        locator(info->locator),
        elementName(info->elementName) {}
  ZQXMLBaseHandler(const ZQXMLBaseHandler&) = delete;
  ZQXMLBaseHandler& operator=(const ZQXMLBaseHandler&) = delete;
  virtual ~ZQXMLBaseHandler() = default;

  // Frees what the handler holds for a record that isn't finished, and leaves the handler reusable.
  virtual void CleanReferences() = 0;

  // An element begins: called before StartElement, to initialise and push the handler of a child.
  virtual void PreProcess(int tag) = 0;

  // An element has ended: called after EndElement, for the handler to pop itself at the end of its
  // own.
  virtual void PostProcess(int tag) = 0;

  virtual void StartElement(int tag, const xercesc::Attributes& attributes) = 0;
  virtual void EndElement(int tag) = 0;

  // Text in the local code page, zero-terminated; one text may come in several pieces. `length` is
  // the number of 16-bit units that the parser delivered.
  virtual void Characters(const char* text, unsigned length) = 0;

  // Whether text that comes now is ignored: no simple element is open.
  bool ignoresText() const { return currentTag == 0; }

 protected:
  // The current element has no place here: throws ZQXMLException 8941 with its name.
  [[noreturn]] void refuseElement() const {
    throw ZQXMLException(ZQ_MESSAGE_ELEMENT_NOT_ALLOWED, elementName, locator);
  }

  // An attribute has no place at the current element: throws ZQXMLException 8942 with its name.
  [[noreturn]] void refuseAttribute(const XMLCh* name) const {
    throw ZQXMLException(ZQ_MESSAGE_ATTRIBUTE_NOT_ALLOWED, &name, locator);
  }

  // Hands the element that begins over to the handler of a child, which fills `record`. What the
  // record owned goes first: of two elements that fill one record the later one counts.
  template <typename Handler, typename Record>
  void giveTo(Handler& child, Record& record, void (*freeRecord)(Record*, ZQBoolean)) {
    releaseRecord(record, freeRecord);
    child.Init(&record);
    handlerStack->Push(&child, locator);
  }

  // A child of a recursive definition, which is made at its first use: made with its parent it
  // would make its own children without end.
  template <typename Handler>
  Handler& lazily(std::unique_ptr<Handler>& child) const {
    if (child == nullptr) {
      child = std::make_unique<Handler>(handlerInfo);
    }
    return *child;
  }

  const ZQXMLHandlerInfo* handlerInfo;
  ZQXMLHandlerStack* handlerStack;
  ZQStructItemList* const* objectSelection;
  const xercesc::Locator* const* locator;
  const XMLCh* const* elementName;
  int currentTag = -1;
};

#endif
