// The exported builders of the lists that objects share, and of filter actions.

#include "xml/builders.h"
#include "xml/writers/definitionlists.h"
#include "xml/writers/filteractions.h"

using xercesc::DOMDocument;
using xercesc::DOMElement;

int CreateModifyPermissionListNode(DOMDocument* document, DOMElement* parent,
                                   const ZQPermissionList* list) {
  return buildRecord(document, parent, writeModifyPermissions, list);
}

int CreateViewPermissionNode(DOMDocument* document, DOMElement* parent,
                             const ZQPermissionList* list) {
  return buildRecord(document, parent, writeViewPermissions, list);
}

int CreatePropertyListNode(DOMDocument* document, DOMElement* parent, const ZQPropList* list) {
  return buildRecord(document, parent, writeProperties, list);
}

int CreateSortListNode(DOMDocument* document, DOMElement* parent, const ZQSortList* list) {
  return buildRecord(document, parent, writeSortList, list);
}

int CreateIndexListNode(DOMDocument* document, DOMElement* parent, const ZQIndexList* list) {
  return buildRecord(document, parent, writeIndexList, list);
}

int CreateEntryListFieldListNode(DOMDocument* document, DOMElement* parent,
                                 const ZQEntryListFieldList* list) {
  return buildRecord(document, parent, writeEntryListFields, list);
}

int CreateChangeHistoryNode(DOMDocument* document, DOMElement* parent, char* diary) {
  return buildNodes(document, parent,
                    [diary](ElementSink& sink) { return writeChangeHistory(sink, diary); });
}

int CreateSupportFileNode(DOMDocument* document, DOMElement* parent, uint32_t fileType,
                          ZQInternalId fileId, const unsigned char* fileContent, uint32_t fileSize,
                          ZQTimestamp) {
  return buildNodes(document, parent, [&](ElementSink& sink) {
    return writeSupportFile(sink, fileType, fileId, fileContent, fileSize);
  });
}

int CreateFilterActionListNode(DOMDocument* document, DOMElement* parent,
                               const ZQFilterActionList* list) {
  return buildRecord(document, parent, writeFilterActions, list);
}

int CreateGotoActionNode(DOMDocument* document, DOMElement* parent,
                         const ZQGotoActionStruct* action) {
  return buildRecord(document, parent, writeGoto, action);
}

int CreateCallGuideNode(DOMDocument* document, DOMElement* parent, const ZQCallGuideStruct* guide) {
  return buildRecord(document, parent, writeCallGuide, guide);
}
