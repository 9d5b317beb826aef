// What handlers, builders and converters throw: a message number and a short text. It is thrown by
// value, caught at the exported entry alone, and becomes a status record there.
#ifndef ZQXML_XML_ZQXMLEXCEPTION_H
#define ZQXML_XML_ZQXMLEXCEPTION_H

#include <xercesc/sax/Locator.hpp>
#include <xercesc/util/XercesDefs.hpp>

class ZQXMLException {
 public:
  explicit ZQXMLException(int number);

  // "line: %d, column %d" of the moment of the failure, or the empty text if there is no locator.
  // As everywhere in the parsing frame a locator is a pointer to the parser's own pointer to it.
  ZQXMLException(int number, const xercesc::Locator* const* locator);

  // "%s, line: %d, column %d" with the name of the current element, which may be absent; empty
  // without a locator.
  ZQXMLException(int number, const XMLCh* const* elementName,
                 const xercesc::Locator* const* locator);

  // "%s, line: %d, column %d" with a text of the local code page; empty without a locator.
  ZQXMLException(int number, const char* text, const xercesc::Locator* const* locator);

  // The text alone.
  ZQXMLException(int number, const char* text);

  // The text of a DOM tree in angle brackets.
  ZQXMLException(int number, const XMLCh* domText);

  ZQXMLException(const ZQXMLException&) = default;
  ZQXMLException& operator=(const ZQXMLException&) = default;
  virtual ~ZQXMLException() = default;

  int GetErrorNumber() const { return errorNumber; }
  const char* GetErrorMsg() const { return errorMsg; }

 private:
  void format(const char* text, const xercesc::Locator* const* locator);

  int errorNumber;
  char errorMsg[256] = {};
};

#endif
