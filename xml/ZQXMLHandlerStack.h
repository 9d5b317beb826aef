// The handlers at work, the innermost on top. Each SAX event goes to the top one.
#ifndef ZQXML_XML_ZQXMLHANDLERSTACK_H
#define ZQXML_XML_ZQXMLHANDLERSTACK_H

#include <xercesc/sax/Locator.hpp>

#include "xml/ZQXMLException.h"
#include "zqxml/limits.h"
#include "zqxml/messages.h"

class ZQXMLBaseHandler;

class ZQXMLHandlerStack {
 public:
  void Init() { top = -1; }

  // Throws ZQXMLException 8944 with the place if the stack is full.
  void Push(ZQXMLBaseHandler* handler, const xercesc::Locator* const* locator = nullptr) {
    if (top + 1 >= ZQXML_MAX_HANDLERS) {
      throw ZQXMLException(ZQ_MESSAGE_PARSING_FRAME, locator);
    }
    stack[++top] = handler;
  }

  void Pop() {
    if (top >= 0) {
      --top;
    }
  }

  // The top handler; null if the stack is empty.
  ZQXMLBaseHandler* GetStackTop() const { return top >= 0 ? stack[top] : nullptr; }

 private:
  int top = -1;
  ZQXMLBaseHandler* stack[ZQXML_MAX_HANDLERS] = {};
};

#endif
