// The receiver of the SAX events of a definition document. It turns each event into calls on the
// handler at the top of its stack, and owns all handlers.
//
// One element flows through these calls: PreProcess on the top handler, which may push a child's
// handler; StartElement on the handler that is on top then; Characters any number of times;
// EndElement; and PostProcess, in which a handler pops itself at the end of its own element. So a
// parent sees of an element that it gave to a child nothing but PreProcess.
#ifndef ZQXML_XML_ZQXMLDOCUMENTPARSER_H
#define ZQXML_XML_ZQXMLDOCUMENTPARSER_H

#include <array>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>
#include <xercesc/sax2/DefaultHandler.hpp>

#include "xml/DocumentLimits.h"
#include "xml/ZQXMLHandlerInfo.h"
#include "xml/ZQXMLHandlerStack.h"
#include "xml/ZQXMLHandlerUtils.h"
#include "xml/ZQXMLTagHash.h"
#include "xml/handlers/ZQXMLGetNamesHandler.h"
#include "xml/handlers/ZQXMLRootHandler.h"
#include "zqxml/records.h"

// Looks tags up for names by their place. For the length of a document the XML parser keeps one
// copy of each name, which every element of that name is delivered with.
class TagCache {
 public:
  // Places may hold other names in the next document.
  void clear() { slots.fill({}); }

  int get(const XMLCh* name) {
    Slot& slot = slots[reinterpret_cast<uintptr_t>(name) / sizeof(void*) % kSlots];
    if (slot.name != name) {
      slot = {name, gTagHash.Get(name)};
    }
    return slot.tag;
  }

 private:
  static constexpr size_t kSlots = 256;

  struct Slot {
    const XMLCh* name;
    int tag;
  };

  std::array<Slot, kSlots> slots = {};
};

class ZQXMLDocumentParser : public xercesc::DefaultHandler, public ZQXMLHandlerUtils {
 public:
  // `limits` hold for its documents and may be null.
  explicit ZQXMLDocumentParser(DocumentLimits* limits = nullptr);
  ~ZQXMLDocumentParser() override;

  // The handlers point into this object.
  ZQXMLDocumentParser(const ZQXMLDocumentParser&) = delete;
  ZQXMLDocumentParser& operator=(const ZQXMLDocumentParser&) = delete;

  // Sets up the next parse, which lists the names of objects; it empties the lists. `status`
  // receives what the XML parser reports and may be null.
  void InitObjectNameParsing(ZQUnsignedIntList* objectTypes, ZQNameList* objectNames,
                             ZQUnsignedIntList* subTypes, ZQStatusList* status);

  // Sets up the next parse, which reads the objects of a document, or those of a selection that
  // isn't null and not empty. A chain that an earlier parse has left is released.
  void InitObjectDefnParsing(ZQStructItemList* selection, ZQStatusList* status);

  // Gives the chain of objects out, and forgets it.
  ZQXMLObjectList* GetObjectList();

  // Forgets the mode and the status list, as the end of a document does; called on every way out of
  // a parse.
  void endParsing();

  // The severity 3 if a report of the XML parser could not be recorded since the last set-up,
  // otherwise 0.
  int lostSeverity() const { return lost; }

  // Where the last message of the last parse arose; 0 and 0 if there was none or it had no place.
  struct Position {
    uint64_t line = 0;
    uint64_t column = 0;
  };
  Position lastPosition() const { return position; }

  void startDocument() override;
  void endDocument() override;
  void startElement(const XMLCh* uri, const XMLCh* localName, const XMLCh* qualifiedName,
                    const xercesc::Attributes& attributes) override;
  void endElement(const XMLCh* uri, const XMLCh* localName, const XMLCh* qualifiedName) override;
  void characters(const XMLCh* text, XMLSize_t length) override;
  void ignorableWhitespace(const XMLCh* text, XMLSize_t length) override;
  void setDocumentLocator(const xercesc::Locator* newLocator) override;
  void warning(const xercesc::SAXParseException& exception) override;
  void error(const xercesc::SAXParseException& exception) override;
  void fatalError(const xercesc::SAXParseException& exception) override;

  struct FreeText {
    void operator()(XMLCh* text) const { free(text); }
  };
  using OwnedText = std::unique_ptr<XMLCh[], FreeText>;

  // Undoes the writer's escape of control characters: a copy of the text in which U+F8E0 to U+F8FE
  // are the characters 0x01 to 0x1F, or null if there is none of them. U+F8E8, U+F8E9 and U+F8EC
  // stay, since tab, line feed and carriage return are never escaped. Throws ZQXMLException 300.
  static OwnedText ConvertSpecialControlChars(const XMLCh* text, XMLSize_t length);

 protected:
  // In reach of a derived class, which may put handlers of its own at work.
  ZQXMLHandlerStack handlerStack;
  ZQXMLHandlerInfo handlerInfo;

 private:
  enum ParseMode { kNoMode = 0, kObjectNames = 1, kObjectDefinitions = 2 };

  void initParsing(ParseMode mode, ZQStatusList* status);
  ZQXMLBaseHandler* documentHandler();

  // Throws ZQXMLException 8944 if there is no handler left, which a second "root" inside "root"
  // brings about.
  ZQXMLBaseHandler* topHandler() const {
    ZQXMLBaseHandler* handler = handlerStack.GetStackTop();
    if (handler == nullptr) {
      throw ZQXMLException(ZQ_MESSAGE_PARSING_FRAME, &locator);
    }
    return handler;
  }

  void countReading();
  void toLocal(const XMLCh* text, XMLSize_t length);
  void report(unsigned severity, const xercesc::SAXParseException& exception);
  template <typename Event>
  void dispatch(const XMLCh* name, Event event);

  int parseMode = kNoMode;
  const xercesc::Locator* locator = nullptr;
  const XMLCh* elementName = nullptr;
  ZQXMLRootHandler rootHandler;
  ZQStructItemList* objectsToParse = nullptr;
  ZQXMLObjectList* objectList = nullptr;
  ZQXMLGetNamesHandler namesHandler;
  ZQStatusList* status = nullptr;
  TagCache tags;
  std::vector<int> openTags;
  std::string localText;
  Position position;
  int lost = 0;
  std::array<unsigned, 3> reports = {};  // recorded, by severity
  uint64_t seenBytesRead = 0;
};

#endif
