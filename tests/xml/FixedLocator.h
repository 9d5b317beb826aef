// A parser's locator that stands at one place.
#ifndef ZQXML_TESTS_XML_FIXEDLOCATOR_H
#define ZQXML_TESTS_XML_FIXEDLOCATOR_H

#include <xercesc/sax/Locator.hpp>

class FixedLocator : public xercesc::Locator {
 public:
  FixedLocator(XMLFileLoc lineNumber, XMLFileLoc columnNumber)
      : line(lineNumber), column(columnNumber) {}
  const XMLCh* getPublicId() const override { return nullptr; }
  const XMLCh* getSystemId() const override { return nullptr; }
  XMLFileLoc getLineNumber() const override { return line; }
  XMLFileLoc getColumnNumber() const override { return column; }

 private:
  XMLFileLoc line;
  XMLFileLoc column;
};

#endif
