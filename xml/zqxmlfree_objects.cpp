// Frees the objects of parsed documents.

#include <cstdlib>

#include "records/verbs.h"
#include "xml/objectchain.h"
#include "zqxml/free.h"
#include "zqxml/objects.h"
#include "zqxml/parser.h"

using records::finishFree;
using records::release;

namespace {

// What the objects have in common.
template <typename Object>
void freeHead(Object* object) {
  release(object->helpText);
  release(object->changeDiary);
  FreeZQPropList(&object->objPropList, 0);
}

// Filters and escalations have the same actions, active links their own.
template <typename Object, typename FreeActions>
void freeWorkflow(Object* object, FreeActions freeActions) {
  freeHead(object);
  FreeZQWorkflowConnectStruct(&object->workflowConnect, 0);
  FreeZQQualifierStruct(&object->query, 0);
  freeActions(&object->actionList, ZQBoolean{0});
  freeActions(&object->elseList, ZQBoolean{0});
}

void freeContents(ZQXMLObjectList& node) {
  switch (node.objectType) {
    case ZQXML_FORM:
      FreeZQXMLSchema(&node.object.schema, 0);
      break;
    case ZQXML_FILTER:
      FreeZQXMLFilter(&node.object.filter, 0);
      break;
    case ZQXML_ACTIVE_LINK:
      FreeZQXMLActiveLink(&node.object.activeLink, 0);
      break;
    case ZQXML_MENU:
      FreeZQXMLMenu(&node.object.menu, 0);
      break;
    case ZQXML_ESCALATION:
      FreeZQXMLEscalation(&node.object.escalation, 0);
      break;
    case ZQXML_DSO_MAPPING:
      FreeZQXMLDSOMapping(&node.object.dsoMapping, 0);
      break;
    case ZQXML_DSO_POOL:
      FreeZQXMLDSOPool(&node.object.dsoPool, 0);
      break;
    case ZQXML_VUI:
      FreeZQXMLVUI(&node.object.vui, 0);
      break;
    default:
      break;
  }
}

}  // namespace

void FreeZQXMLSchema(ZQXMLSchema* schema, ZQBoolean freeStruct) {
  if (schema == nullptr) {
    return;
  }
  freeHead(schema);
  FreeZQCompoundSchema(&schema->schema, 0);
  FreeZQEntryListFieldList(&schema->resultListFields, 0);
  FreeZQSortList(&schema->sortList, 0);
  FreeZQIndexList(&schema->indexList, 0);
  FreeZQPermissionList(&schema->permissions, 0);
  FreeZQInternalIdList(&schema->subAdmins, 0);
  FreeZQVuiInfoList(&schema->vuiList, 0);
  FreeZQFieldInfoList(&schema->fieldList, 0);
  finishFree(schema, freeStruct);
}

void FreeZQXMLFilter(ZQXMLFilter* filter, ZQBoolean freeStruct) {
  if (filter == nullptr) {
    return;
  }
  freeWorkflow(filter, FreeZQFilterActionList);
  finishFree(filter, freeStruct);
}

void FreeZQXMLActiveLink(ZQXMLActiveLink* activeLink, ZQBoolean freeStruct) {
  if (activeLink == nullptr) {
    return;
  }
  freeWorkflow(activeLink, FreeZQActiveLinkActionList);
  FreeZQInternalIdList(&activeLink->groupList, 0);
  FreeZQSupportFileInfoList(&activeLink->supportFileList, 0);
  finishFree(activeLink, freeStruct);
}

void FreeZQXMLEscalation(ZQXMLEscalation* escalation, ZQBoolean freeStruct) {
  if (escalation == nullptr) {
    return;
  }
  freeWorkflow(escalation, FreeZQFilterActionList);
  finishFree(escalation, freeStruct);
}

void FreeZQXMLContainer(ZQXMLContainer* container, ZQBoolean freeStruct) {
  if (container == nullptr) {
    return;
  }
  freeHead(container);
  FreeZQPermissionList(&container->permissions, 0);
  FreeZQInternalIdList(&container->subAdmins, 0);
  release(container->label);
  release(container->description);
  FreeZQContainerOwnerObjList(&container->ownerObjList, 0);
  FreeZQReferenceList(&container->references, 0);
  finishFree(container, freeStruct);
}

void FreeZQXMLMenu(ZQXMLMenu* menu, ZQBoolean freeStruct) {
  if (menu == nullptr) {
    return;
  }
  freeHead(menu);
  FreeZQCharMenuStruct(&menu->menuDefn, 0);
  finishFree(menu, freeStruct);
}

void FreeZQXMLVUI(ZQXMLVUI* vui, ZQBoolean freeStruct) {
  if (vui == nullptr) {
    return;
  }
  FreeZQVuiInfoList(&vui->vuiList, 0);
  FreeZQFieldInfoList(&vui->fieldList, 0);
  finishFree(vui, freeStruct);
}

void FreeZQXMLDSOMapping(ZQXMLDSOMapping* mapping, ZQBoolean freeStruct) {
  if (mapping == nullptr) {
    return;
  }
  freeHead(mapping);
  release(mapping->mapping);
  release(mapping->returnMapping);
  release(mapping->matchQualification);
  finishFree(mapping, freeStruct);
}

void FreeZQXMLDSOPool(ZQXMLDSOPool* pool, ZQBoolean freeStruct) {
  if (pool == nullptr) {
    return;
  }
  freeHead(pool);
  release(pool->connection);
  finishFree(pool, freeStruct);
}

void FreeZQXMLObjectList(ZQXMLObjectList* list, ZQBoolean freeNodes) {
  while (list != nullptr) {
    ZQXMLObjectList* next = list->next;
    freeContents(*list);
    if (freeNodes != 0) {
      free(list);
    }
    list = next;
  }
}

void FreeZQXMLParsedStreamInternal(ZQXMLParsedStream* stream, ZQBoolean freeStruct) {
  if (stream == nullptr) {
    return;
  }
  FreeZQXMLObjectList(stream->objectList, 1);
  stream->objectList = nullptr;
  finishFree(stream, freeStruct);
}

void releaseChain(ZQXMLObjectList*& chain) {
  const records::Unwinding unwinding;
  for (ZQXMLObjectList* node = chain; node != nullptr; node = node->next) {
    if (node->objectType == ZQXML_CONTAINER) {
      FreeZQXMLContainer(&node->object.container, 0);
    } else if (node->objectType == ZQXML_FIELD) {
      FreeZQFieldInfoStruct(&node->object.field, 0);
    }
  }
  FreeZQXMLObjectList(chain, 1);
  chain = nullptr;
}
