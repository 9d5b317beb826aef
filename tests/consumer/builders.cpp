// A program outside the tree: builds a condition beneath an element of its own, and prints it.
#include <zqxml/zqxml.h>
#include <cstdio>
#include <xercesc/dom/DOM.hpp>
#include <zqxml/builders.hpp>

int main() {
  if (InitXMLParser(nullptr) != 0) {
    return 1;
  }
  xercesc::DOMDocument* document =
      xercesc::DOMImplementation::getImplementation()->createDocument(nullptr, u"left", nullptr);
  ZQValueStruct value = {};
  value.dataType = 3;
  value.u.realValue = 1.5;
  ZQFieldValueOrArithStruct operand = {};
  operand.tag = 2;
  operand.u.value = value;
  int result = CreateFieldValueOrArithNode(document, document->getDocumentElement(), &operand);
  ZQGNString text(ZQGNString::BLOCKSIZE_DOCUMENT);
  result |= PrintDOMNode(0, document->getDocumentElement(), text);
  ZQGNString escaped;
  result |= OutputContent("<end>\n", escaped);
  text += escaped;
  ZQXMLOutputDoc doc = {};
  doc.docType = 1;
  result |= WriteToXMLDoc(text, &doc);
  std::fputs(doc.u.doc, stdout);
  FreeZQXMLOutputDocInternal(&doc, 0);
  document->release();
  return result;
}
