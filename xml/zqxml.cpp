// The exported functions of the parser: handles, and the parse that all readers share.

#include "zqxml/zqxml.h"

#include <memory>
#include <xercesc/util/XercesVersion.hpp>

#include "xml/ApiFrame.h"
#include "xml/XMLParserPair.h"
#include "xml/XMLPlatform.h"
#include "xml/XMLReader.h"
#include "xml/objectchain.h"

namespace {

constexpr int kError = 2;

// Parses a document in the mode that `setUp` gives to the document parser. Returns 2 if that ended
// in an error, and 0 also if there were warnings.
template <typename SetUp>
int parseDocument(ZQXMLParserHandle* handle, const ZQXMLInputDoc* inputDoc, ZQStatusList* status,
                  SetUp setUp) {
  XMLParserPair* pair = parserPairOf(handle);
  if (pair == nullptr) {
    return ZQAddErrorMessage(status, kError, ZQ_MESSAGE_XML_START_UP, "");
  }
  const ZQXMLInputDoc document = inputDoc != nullptr ? *inputDoc : ZQXMLInputDoc{};
  setUp(pair->documentParser);
  int result = 0;
  switch (document.docType) {
    case ZQXML_INPUT_MEMORY:
    case ZQXML_INPUT_FILE:
    case ZQXML_INPUT_LOCATION:
      result = guardedEntry(status, ZQ_MESSAGE_XML_PARSER, [&] {
        pair->parse(document);
        return pair->documentParser.lostSeverity();
      });
      break;
    default:
      result = ZQAddErrorMessageId(status, kError, ZQ_MESSAGE_DOCUMENT_KIND, document.docType);
      break;
  }
  pair->documentParser.endParsing();
  if (result == 0 && status->numItems > 0 && status->items[0].messageType == kError) {
    result = kError;
  }
  return result;
}

// A list that the caller may have left out: then the parse fills one that is thrown away.
template <typename List, void (*Free)(List*, ZQBoolean)>
class OptionalList {
 public:
  explicit OptionalList(List* list) : target(list != nullptr ? list : &own) { *target = {}; }
  OptionalList(const OptionalList&) = delete;
  OptionalList& operator=(const OptionalList&) = delete;
  ~OptionalList() { Free(&own, 0); }
  List* get() const { return target; }

 private:
  List own = {};
  List* target;
};

using OptionalNumbers = OptionalList<ZQUnsignedIntList, FreeZQUnsignedIntList>;
using OptionalNames = OptionalList<ZQNameList, FreeZQNameList>;
using OptionalStatus = OptionalList<ZQStatusList, FreeZQStatusList>;

}  // namespace

int CreateXMLParserHandle(ZQXMLParserHandle* handle, ZQStatusList* status) {
  if (handle == nullptr) {
    return ZQAddErrorMessage(status, kError, ZQ_MESSAGE_XML_START_UP, "");
  }
  handle->handle = nullptr;
  if (const int result = ensureXMLPlatform(status); result != 0) {
    return result;
  }
  // Out here it outlives the exceptions of the reader, whose memory it holds.
  std::unique_ptr<XMLParserPair> pair;
  return guardedEntry(status, ZQ_MESSAGE_XML_START_UP, [&] {
    pair = std::make_unique<XMLParserPair>();
    pair->makeReader();
    handle->handle = pair.release();
    return 0;
  });
}

int GetListXMLObjects(ZQXMLParserHandle* handle, const ZQXMLInputDoc* inputDoc,
                      ZQUnsignedIntList* objectTypes, ZQNameList* objectNames,
                      ZQUnsignedIntList* subTypes, ZQStatusList* status) {
  const OptionalNumbers types(objectTypes);
  const OptionalNames names(objectNames);
  const OptionalNumbers containerTypes(subTypes);
  const OptionalStatus records(status);
  return parseDocument(handle, inputDoc, records.get(), [&](ZQXMLDocumentParser& parser) {
    parser.InitObjectNameParsing(types.get(), names.get(), containerTypes.get(), records.get());
  });
}

int ParseXMLDocument(ZQXMLParserHandle* handle, const ZQXMLInputDoc* inputDoc,
                     ZQStructItemList* objectsToParse, ZQXMLParsedStream* parsedStream,
                     ZQStructItemList* parsedObjects, ZQStatusList* status) {
  ZQXMLParsedStream unseen;
  ZQXMLParsedStream* stream = parsedStream != nullptr ? parsedStream : &unseen;
  stream->objectList = nullptr;
  if (parsedObjects != nullptr) {
    *parsedObjects = {};
  }
  const OptionalStatus records(status);
  int result = parseDocument(handle, inputDoc, records.get(), [&](ZQXMLDocumentParser& parser) {
    parser.InitObjectDefnParsing(objectsToParse, records.get());
  });
  if (result < kError) {
    stream->objectList = parserPairOf(handle)->documentParser.GetObjectList();
    result = GetNamesFromObjectList(stream->objectList, parsedObjects, records.get());
  }
  if (stream == &unseen) {
    releaseChain(unseen.objectList);
  }
  return result < kError ? 0 : result;
}

int GetXMLParserPosition(const ZQXMLParserHandle* handle, uint64_t* line, uint64_t* column) {
  const XMLParserPair* pair = parserPairOf(handle);
  ZQXMLDocumentParser::Position position;
  if (pair != nullptr) {
    position = pair->documentParser.lastPosition();
  }
  if (line != nullptr) {
    *line = position.line;
  }
  if (column != nullptr) {
    *column = position.column;
  }
  return pair != nullptr ? 0 : kError;
}

const char* GetZQXMLVersion(void) {
  return ZQXML_VERSION;
}

const char* GetXMLParserVersion(void) {
  return XERCES_FULLVERSIONDOT;
}
