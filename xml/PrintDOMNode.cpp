#include "zqxml/builders.hpp"

#include <algorithm>
#include <new>
#include <string>
#include <xercesc/dom/DOMNamedNodeMap.hpp>
#include <xercesc/dom/DOMNode.hpp>
#include <xercesc/util/XMLString.hpp>

#include "xml/OutputContent.h"
#include "xml/ZQXMLException.h"
#include "xml/ZQXMLText.h"
#include "zqxml/messages.h"

namespace {

using xercesc::DOMNode;

// Prints into a buffer that is handed on when it has grown, which costs less than many small
// appends.
class Printer {
 public:
  explicit Printer(ZQGNString& target) : text(target) {}

  void print(int level, const DOMNode* root) {
    const DOMNode* node = root;
    for (;;) {
      printStart(level, node);
      if (printsChildren(node)) {
        level += levelsBelow(node);
        node = node->getFirstChild();
        continue;
      }
      while (node != root && node->getNextSibling() == nullptr) {
        node = node->getParentNode();
        level -= levelsBelow(node);
        printEnd(level, node);
      }
      if (node == root) {
        break;
      }
      node = node->getNextSibling();
    }
    flush();
  }

 private:
  static constexpr size_t kFlushSize = 8000;

  static bool printsChildren(const DOMNode* node) {
    const DOMNode::NodeType type = node->getNodeType();
    const bool isParent = type == DOMNode::ELEMENT_NODE || type == DOMNode::ENTITY_REFERENCE_NODE ||
                          type == DOMNode::DOCUMENT_NODE;
    return isParent && node->getFirstChild() != nullptr;
  }

  static int levelsBelow(const DOMNode* node) {
    return node->getNodeType() == DOMNode::DOCUMENT_NODE ? 0 : 1;
  }

  static bool beginsWithText(const DOMNode* element) {
    return element->getFirstChild()->getNodeType() == DOMNode::TEXT_NODE;
  }

  void printStart(int level, const DOMNode* node) {
    if (line.size() > kFlushSize) {
      flush();
    }
    switch (node->getNodeType()) {
      case DOMNode::ELEMENT_NODE:
        indent(level);
        line += '<';
        append(node->getNodeName());
        appendAttributes(node);
        line += node->getFirstChild() == nullptr ? "/>\n" : beginsWithText(node) ? ">" : ">\n";
        break;
      case DOMNode::TEXT_NODE:
        appendEscaped(local(node->getNodeValue()), line);
        break;
      case DOMNode::CDATA_SECTION_NODE:
        appendBetween("<![CDATA[", node->getNodeValue(), "]]>");
        break;
      case DOMNode::PROCESSING_INSTRUCTION_NODE:
        appendBetween("<?", node->getNodeName(), " ");
        appendBetween("", node->getNodeValue(), "?>");
        break;
      case DOMNode::COMMENT_NODE:
        appendBetween("<!--", node->getNodeValue(), "-->");
        break;
      case DOMNode::DOCUMENT_NODE:
        line += "<?xml version=\"1.0\" encoding=\"ISO-8859-1\" ?>\n";
        break;
      default:
        break;
    }
  }

  // The end of a node that has printed children.
  void printEnd(int level, const DOMNode* node) {
    if (node->getNodeType() != DOMNode::ELEMENT_NODE) {
      return;
    }
    if (!beginsWithText(node)) {
      indent(level);
    }
    appendBetween("</", node->getNodeName(), ">\n");
  }

  void appendAttributes(const DOMNode* element) {
    const xercesc::DOMNamedNodeMap* attributes = element->getAttributes();
    for (XMLSize_t i = 0; i < attributes->getLength(); ++i) {
      const DOMNode* attribute = attributes->item(i);
      appendBetween(" ", attribute->getNodeName(), "=\"");
      appendBetween("", attribute->getNodeValue(), "\"");
    }
  }

  void appendBetween(const char* before, const XMLCh* value, const char* behind) {
    line += before;
    append(value);
    line += behind;
  }

  void append(const XMLCh* value) { line += local(value); }

  void indent(int level) { line.append(static_cast<size_t>(std::max(level, 0)), '\t'); }

  const char* local(const XMLCh* value) {
    ZQXMLToLocal(value, xercesc::XMLString::stringLen(value), transcoded);
    return transcoded.c_str();
  }

  void flush() {
    text += line.c_str();
    line.clear();
  }

  ZQGNString& text;
  std::string line;
  std::string transcoded;
};

}  // namespace

int PrintDOMNode(int level, const DOMNode* node, ZQGNString& text) {
  if (node == nullptr) {
    return 0;
  }
  try {
    Printer(text).print(level, node);
    return 0;
  } catch (const ZQXMLException& exception) {
    return exception.GetErrorNumber();
  } catch (const std::bad_alloc&) {
    return ZQ_MESSAGE_OUT_OF_MEMORY;
  }
}
