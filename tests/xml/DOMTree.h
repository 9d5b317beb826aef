// DOM trees for tests, and a slow plain printer of them.
#ifndef ZQXML_TESTS_XML_DOMTREE_H
#define ZQXML_TESTS_XML_DOMTREE_H

#include <random>
#include <string>
#include <xercesc/dom/DOM.hpp>

// Owns a DOM document. The XML platform is started.
class DOMTree {
 public:
  explicit DOMTree(const char* rootName = "root");
  DOMTree(const DOMTree&) = delete;
  DOMTree& operator=(const DOMTree&) = delete;
  ~DOMTree() { document->release(); }

  xercesc::DOMDocument* operator->() const { return document; }
  xercesc::DOMDocument* get() const { return document; }
  xercesc::DOMElement* root() const { return document->getDocumentElement(); }

 private:
  xercesc::DOMDocument* document;
};

std::u16string wide(const std::string& text);

// Adds nodes of every kind below `parent`, with attributes, empty and mixed content and control
// characters.
void growRandomly(xercesc::DOMDocument* document, xercesc::DOMNode* parent, std::mt19937& random,
                  int depth);

// Prints by the rules, node by node, with no care for speed.
std::string printPlainly(int level, const xercesc::DOMNode* node);

#endif
