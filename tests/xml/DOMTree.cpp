#include "xml/DOMTree.h"

#include <cstdio>
#include <vector>

#include "xml/ZQXMLText.h"
#include "zqxml/parser.h"

namespace {

using xercesc::DOMNode;

xercesc::DOMDocument* makeDocument(const char* rootName) {
  InitXMLParser(nullptr);
  const std::u16string name = wide(rootName);
  return xercesc::DOMImplementation::getImplementation()->createDocument(nullptr, name.c_str(),
                                                                         nullptr);
}

std::string escaped(const std::string& text) {
  std::string result;
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (c == '&') {
      result += "&amp;";
    } else if (c == '<') {
      result += "&lt;";
    } else if (c == '>') {
      result += "&gt;";
    } else if (c == '"') {
      result += "&quot;";
    } else if (byte >= 1 && byte <= 31 && byte != 9 && byte != 10 && byte != 13) {
      char reference[16];
      snprintf(reference, sizeof reference, "&#x%X;", 0xF8DF + byte);
      result += reference;
    } else {
      result += c;
    }
  }
  return result;
}

std::string childrenPlainly(int level, const DOMNode* node) {
  std::string result;
  for (const DOMNode* child = node->getFirstChild(); child != nullptr;
       child = child->getNextSibling()) {
    result += printPlainly(level, child);
  }
  return result;
}

std::string elementPlainly(int level, const DOMNode* node) {
  const std::string tabs(static_cast<size_t>(level), '\t');
  const std::string name = ZQXMLToLocal(node->getNodeName());
  std::string result = tabs + "<" + name;
  for (XMLSize_t i = 0; i < node->getAttributes()->getLength(); ++i) {
    const DOMNode* attribute = node->getAttributes()->item(i);
    result += " " + ZQXMLToLocal(attribute->getNodeName()) + "=\"" +
              ZQXMLToLocal(attribute->getNodeValue()) + "\"";
  }
  if (!node->hasChildNodes()) {
    return result + "/>\n";
  }
  if (node->getFirstChild()->getNodeType() == DOMNode::TEXT_NODE) {
    return result + ">" + childrenPlainly(level + 1, node) + "</" + name + ">\n";
  }
  return result + ">\n" + childrenPlainly(level + 1, node) + tabs + "</" + name + ">\n";
}

std::u16string randomText(std::mt19937& random) {
  static const std::vector<std::u16string> kPieces = {
      u"",       u"word",   u" ",  u"&",  u"<",  u">",      u"\"",           u"'",
      u"\u0001", u"\u001F", u"\t", u"\n", u"\r", u"\u00E9", u"\u65E5\u672C", u"\U0001F600",
      u"]]",     u"\uF8E1"};
  std::u16string text;
  for (auto i = random() % 5; i > 0; --i) {
    text += kPieces[random() % kPieces.size()];
  }
  return text;
}

std::u16string randomName(std::mt19937& random) {
  static const std::vector<std::u16string> kNames = {
      u"a", u"form", u"xmlns", u"xsi:type", u"zqDocVersion", u"\u00E9l\u00E9ment"};
  return kNames[random() % kNames.size()];
}

}  // namespace

DOMTree::DOMTree(const char* rootName) : document(makeDocument(rootName)) {}

std::u16string wide(const std::string& text) {
  return ZQXMLFromLocal(text.c_str());
}

void growRandomly(xercesc::DOMDocument* document, DOMNode* parent, std::mt19937& random,
                  int depth) {
  for (auto count = random() % 4; count > 0; --count) {
    switch (random() % 7) {
      case 0:
      case 1:
      case 2: {
        xercesc::DOMElement* element = document->createElement(randomName(random).c_str());
        for (auto i = random() % 3; i > 0; --i) {
          element->setAttribute(randomName(random).c_str(), randomText(random).c_str());
        }
        parent->appendChild(element);
        if (depth > 0) {
          growRandomly(document, element, random, depth - 1);
        }
        break;
      }
      case 3:
        parent->appendChild(document->createTextNode(randomText(random).c_str()));
        break;
      case 4:
        parent->appendChild(document->createCDATASection(randomText(random).c_str()));
        break;
      case 5:
        parent->appendChild(document->createComment(randomText(random).c_str()));
        break;
      default:
        parent->appendChild(
            document->createProcessingInstruction(u"target", randomText(random).c_str()));
        break;
    }
  }
}

std::string printPlainly(int level, const DOMNode* node) {
  const std::string name = ZQXMLToLocal(node->getNodeName());
  const std::string value = ZQXMLToLocal(node->getNodeValue());
  switch (node->getNodeType()) {
    case DOMNode::ELEMENT_NODE:
      return elementPlainly(level, node);
    case DOMNode::TEXT_NODE:
      return escaped(value);
    case DOMNode::CDATA_SECTION_NODE:
      return "<![CDATA[" + value + "]]>";
    case DOMNode::ENTITY_REFERENCE_NODE:
      return childrenPlainly(level + 1, node);
    case DOMNode::PROCESSING_INSTRUCTION_NODE:
      return "<?" + name + " " + value + "?>";
    case DOMNode::COMMENT_NODE:
      return "<!--" + value + "-->";
    case DOMNode::DOCUMENT_NODE:
      return "<?xml version=\"1.0\" encoding=\"ISO-8859-1\" ?>\n" + childrenPlainly(level, node);
    default:
      return "";
  }
}
