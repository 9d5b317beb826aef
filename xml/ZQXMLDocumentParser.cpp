#include "xml/ZQXMLDocumentParser.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <utility>

#include "xml/ZQGNString.h"
#include "xml/ZQXMLException.h"
#include "xml/ZQXMLTagHash.h"
#include "xml/ZQXMLText.h"
#include "xml/objectchain.h"
#include "zqxml/limits.h"
#include "zqxml/messages.h"
#include "zqxml/status.h"

namespace {

constexpr XMLCh kFirstEscape = 0xF8E0;
constexpr XMLCh kLastEscape = 0xF8FE;
// Added in 16 bits it brings U+F8E0 to U+0001.
constexpr unsigned kEscapeOffset = 0x721;

bool isEscapedControl(XMLCh unit) {
  constexpr XMLCh kTab = 0xF8E8;
  constexpr XMLCh kLineFeed = 0xF8E9;
  constexpr XMLCh kCarriageReturn = 0xF8EC;
  return unit >= kFirstEscape && unit <= kLastEscape && unit != kTab && unit != kLineFeed &&
         unit != kCarriageReturn;
}

}  // namespace

ZQXMLDocumentParser::ZQXMLDocumentParser(DocumentLimits* limits)
    : handlerInfo{&handlerStack, &objectsToParse, &locator, &elementName, limits},
      rootHandler(&handlerInfo),
      namesHandler(&handlerInfo) {}

ZQXMLDocumentParser::~ZQXMLDocumentParser() {
  releaseChain(objectList);
}

void ZQXMLDocumentParser::initParsing(ParseMode mode, ZQStatusList* newStatus) {
  parseMode = mode;
  status = newStatus;
  position = {};
  lost = 0;
  reports = {};
}

void ZQXMLDocumentParser::InitObjectNameParsing(ZQUnsignedIntList* objectTypes,
                                                ZQNameList* objectNames,
                                                ZQUnsignedIntList* subTypes,
                                                ZQStatusList* newStatus) {
  initParsing(kObjectNames, newStatus);
  namesHandler.Init(objectTypes, objectNames, subTypes);
}

void ZQXMLDocumentParser::InitObjectDefnParsing(ZQStructItemList* selection,
                                                ZQStatusList* newStatus) {
  initParsing(kObjectDefinitions, newStatus);
  objectsToParse = selection;
  releaseChain(objectList);
}

ZQXMLObjectList* ZQXMLDocumentParser::GetObjectList() {
  return std::exchange(objectList, nullptr);
}

void ZQXMLDocumentParser::endParsing() {
  status = nullptr;
  parseMode = kNoMode;
  locator = nullptr;
  objectsToParse = nullptr;
}

// Runs what an event does. The name is there for messages as long as that takes, and the place of a
// failure is kept, since the parser's own locator does not outlive the parse.
template <typename Event>
void ZQXMLDocumentParser::dispatch(const XMLCh* name, Event event) {
  elementName = name;
  try {
    event();
  } catch (...) {
    elementName = nullptr;
    if (locator != nullptr) {
      position = {locator->getLineNumber(), locator->getColumnNumber()};
    }
    throw;
  }
  elementName = nullptr;
}

void ZQXMLDocumentParser::startDocument() {
  dispatch(nullptr, [this] {
    handlerStack.Init();
    openTags.clear();
    tags.clear();
    seenBytesRead = textBytesRead();
    handlerStack.Push(documentHandler(), &locator);
  });
}

// The handler that rules documents of the mode. Throws ZQXMLException 8944 if there is none.
ZQXMLBaseHandler* ZQXMLDocumentParser::documentHandler() {
  switch (parseMode) {
    case kObjectNames:
      return &namesHandler;
    case kObjectDefinitions:
      rootHandler.Init(&objectList);
      return &rootHandler;
    default:
      throw ZQXMLException(ZQ_MESSAGE_PARSING_FRAME);
  }
}

void ZQXMLDocumentParser::endDocument() {
  endParsing();
}

void ZQXMLDocumentParser::startElement(const XMLCh*, const XMLCh*, const XMLCh* qualifiedName,
                                       const xercesc::Attributes& attributes) {
  dispatch(qualifiedName, [&] {
    DocumentLimits* limits = handlerInfo.limits;
    if (openTags.size() >= ZQXML_MAX_ELEMENT_DEPTH ||
        (limits != nullptr && !limits->addAttributes(attributes))) {
      throw ZQXMLException(ZQ_MESSAGE_PARSING_FRAME, &locator);
    }
    const int tag = tags.get(qualifiedName);
    openTags.push_back(tag);
    topHandler()->PreProcess(tag);
    topHandler()->StartElement(tag, attributes);
  });
}

void ZQXMLDocumentParser::endElement(const XMLCh*, const XMLCh*, const XMLCh* qualifiedName) {
  dispatch(qualifiedName, [this] {
    const int tag = openTags.back();
    openTags.pop_back();
    topHandler()->EndElement(tag);
    topHandler()->PostProcess(tag);
    countReading();
  });
}

// Handlers read their texts at the end of elements, and one that is repeated is read whole each
// time. Throws ZQXMLException 8944 if that is more than a document may bring about.
void ZQXMLDocumentParser::countReading() {
  const uint64_t bytes = textBytesRead();
  DocumentLimits* limits = handlerInfo.limits;
  if (limits != nullptr && !limits->addReading(bytes - seenBytesRead)) {
    throw ZQXMLException(ZQ_MESSAGE_PARSING_FRAME, &locator);
  }
  seenBytesRead = bytes;
}

void ZQXMLDocumentParser::characters(const XMLCh* text, XMLSize_t length) {
  const bool fits = handlerInfo.limits == nullptr || handlerInfo.limits->addText(length);
  // White space between elements is half of all text events.
  if (const ZQXMLBaseHandler* top = handlerStack.GetStackTop();
      fits && top != nullptr && top->ignoresText()) {
    return;
  }
  dispatch(nullptr, [&] {
    if (!fits) {
      throw ZQXMLException(ZQ_MESSAGE_PARSING_FRAME, &locator);
    }
    toLocal(text, length);
    topHandler()->Characters(localText.c_str(), static_cast<unsigned>(length));
  });
}

// Makes `localText` the text that a handler gets. Throws ZQXMLException 300.
void ZQXMLDocumentParser::toLocal(const XMLCh* text, XMLSize_t length) {
  try {
    if (!ZQXMLAsciiToLocal(text, length, localText)) {
      const OwnedText converted = ConvertSpecialControlChars(text, length);
      ZQXMLToLocal(converted != nullptr ? converted.get() : text, length, localText);
      // Text gets two bytes for each unit of the piece, and what needs more is cut, be it through a
      // character.
      localText.resize(std::min(localText.size(), 2 * length));
    }
  } catch (const std::bad_alloc&) {
    throw ZQXMLException(ZQ_MESSAGE_OUT_OF_MEMORY);
  }
}

void ZQXMLDocumentParser::ignorableWhitespace(const XMLCh*, XMLSize_t) {}

void ZQXMLDocumentParser::setDocumentLocator(const xercesc::Locator* newLocator) {
  locator = newLocator;
}

void ZQXMLDocumentParser::warning(const xercesc::SAXParseException& exception) {
  report(1, exception);
}

void ZQXMLDocumentParser::error(const xercesc::SAXParseException& exception) {
  report(2, exception);
}

void ZQXMLDocumentParser::fatalError(const xercesc::SAXParseException& exception) {
  report(2, exception);
}

// The place is no part of the text; a handle gives it out separately. Each record is put ahead of
// those before it, so the time would grow with the square of their number.
void ZQXMLDocumentParser::report(unsigned severity, const xercesc::SAXParseException& exception) {
  position = {exception.getLineNumber(), exception.getColumnNumber()};
  if (status == nullptr || reports[severity] == ZQXML_MAX_REPORTS) {
    return;
  }
  ++reports[severity];
  const ZQXMLShortText message(exception.getMessage());
  constexpr int kNotRecorded = 3;
  if (ZQAddErrorMessage(status, severity, ZQ_MESSAGE_XML_PARSER, message.get()) == kNotRecorded) {
    lost = kNotRecorded;
  }
}

ZQXMLDocumentParser::OwnedText ZQXMLDocumentParser::ConvertSpecialControlChars(const XMLCh* text,
                                                                               XMLSize_t length) {
  if (std::none_of(text, text + length, isEscapedControl)) {
    return nullptr;
  }
  OwnedText copy(static_cast<XMLCh*>(malloc((length + 1) * sizeof(XMLCh))));
  if (copy == nullptr) {
    throw ZQXMLException(ZQ_MESSAGE_OUT_OF_MEMORY);
  }
  std::transform(text, text + length, copy.get(), [](XMLCh unit) {
    return isEscapedControl(unit) ? static_cast<XMLCh>(unit + kEscapeOffset) : unit;
  });
  copy[length] = 0;
  return copy;
}
