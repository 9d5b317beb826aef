// The one layout of all documents: how a DOM tree is printed.
#ifndef ZQXML_XML_PRINTDOMNODE_H
#define ZQXML_XML_PRINTDOMNODE_H

#include <xercesc/dom/DOMNode.hpp>

class ZQGNString;

// Appends a node with its subtree, of any depth; `level` counts the tabs ahead of an element. An
// element's attributes come in the order of the DOM's map, unescaped; one that begins with a text
// stands on one line with its text, and without children it ends in "/>". Returns 0, or message
// 300; a null node prints nothing.
int PrintDOMNode(int level, const xercesc::DOMNode* node, ZQGNString& text);

#endif
