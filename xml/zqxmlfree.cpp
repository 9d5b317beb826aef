// Frees the records that belong to the reader itself: handles and documents.

#include <cstdlib>

#include "xml/XMLParserPair.h"
#include "zqxml/parser.h"

namespace {

constexpr uint32_t kMemory = 1;

}  // namespace

void FreeZQXMLParserHandleInternal(ZQXMLParserHandle* handle, ZQBoolean freeStruct) {
  if (handle == nullptr) {
    return;
  }
  delete parserPairOf(handle);
  handle->handle = nullptr;
  if (freeStruct != 0) {
    free(handle);
  }
}

void FreeZQXMLInputDocInternal(ZQXMLInputDoc* doc, ZQBoolean freeStruct) {
  if (doc == nullptr) {
    return;
  }
  if (doc->docType == kMemory) {
    free(doc->doc);
    doc->doc = nullptr;
  }
  if (freeStruct != 0) {
    free(doc);
  }
}

void FreeZQXMLOutputDocInternal(ZQXMLOutputDoc* doc, ZQBoolean freeStruct) {
  if (doc == nullptr) {
    return;
  }
  if (doc->docType == kMemory) {
    free(doc->u.doc);
    doc->u.doc = nullptr;
  }
  if (freeStruct != 0) {
    free(doc);
  }
}
