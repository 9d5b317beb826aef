// Looks up and hands out the objects of parsed documents.

#include "zqxml/objects.h"

#include <cstdlib>
#include <cstring>

#include "records/verbs.h"
#include "zqxml/copy.h"
#include "zqxml/free.h"
#include "zqxml/messages.h"
#include "zqxml/parser.h"
#include "zqxml/status.h"

namespace {

constexpr int kError = 2;

// Copies a text of a record; should the record lack its zero, all but the last byte is its text.
template <size_t kSize>
void copyText(char* target, const char (&source)[kSize]) {
  const size_t length = strnlen(source, kSize - 1);
  memcpy(target, source, length);
  target[length] = '\0';
}

// The name of a node's object, or null for a node without one.
const ZQNameType* nameOf(const ZQXMLObjectList& node) {
  switch (node.objectType) {
    case ZQXML_FORM:
      return &node.object.schema.name;
    case ZQXML_FILTER:
      return &node.object.filter.name;
    case ZQXML_ACTIVE_LINK:
      return &node.object.activeLink.name;
    case ZQXML_MENU:
      return &node.object.menu.name;
    case ZQXML_ESCALATION:
      return &node.object.escalation.name;
    case ZQXML_DSO_MAPPING:
      return &node.object.dsoMapping.name;
    case ZQXML_CONTAINER:
      return &node.object.container.name;
    case ZQXML_DSO_POOL:
      return &node.object.dsoPool.name;
    case ZQXML_VUI:
      return &node.object.vui.name;
    case ZQXML_FIELD:
      return &node.object.field.fieldName;
    default:
      return nullptr;
  }
}

// Fills the outputs of a Get function, one after the other, up to the first failure. Outputs that
// are null are skipped.
class Outputs {
 public:
  explicit Outputs(ZQStatusList* list) : status(list) {}

  // A record or list, by its Copy function.
  template <typename Record>
  Outputs& copy(unsigned (*copyRecord)(Record*, const Record*), Record* output,
                const Record& source) {
    if (result == 0 && output != nullptr) {
      check(copyRecord(output, &source));
    }
    return *this;
  }

  // A name, into an array of the same size.
  template <size_t kSize>
  Outputs& name(char* output, const char (&source)[kSize]) {
    if (result == 0 && output != nullptr) {
      copyText(output, source);
    }
    return *this;
  }

  // A text; null gives null.
  Outputs& text(char** output, const char* source) {
    if (result == 0 && output != nullptr) {
      *output = source != nullptr ? strdup(source) : nullptr;
      check(source != nullptr && *output == nullptr ? ZQ_MESSAGE_OUT_OF_MEMORY : 0);
    }
    return *this;
  }

  // A number, or a record that owns nothing.
  template <typename Scalar>
  Outputs& scalar(Scalar* output, const Scalar& source) {
    if (result == 0 && output != nullptr) {
      *output = source;
    }
    return *this;
  }

  // What most objects end with.
  struct Head {
    char* owner;
    char* lastChanged;
    ZQTimestamp* modifiedDate;
    char** helpText;
    char** changeDiary;
    ZQPropList* objPropList;
    int32_t* xmlDocVersion;
  };

  template <typename Source>
  Outputs& head(const Head& outputs, const Source& source) {
    return name(outputs.owner, source.owner)
        .name(outputs.lastChanged, source.lastChanged)
        .scalar(outputs.modifiedDate, source.modifiedDate)
        .text(outputs.helpText, source.helpText)
        .text(outputs.changeDiary, source.changeDiary)
        .copy(CopyZQPropList, outputs.objPropList, source.objPropList)
        .scalar(outputs.xmlDocVersion, source.xmlDocVersion);
  }

  int done() const { return result; }

 private:
  void check(unsigned number) {
    if (number != 0) {
      result = ZQAddErrorMessage(status, kError, static_cast<int>(number), "");
    }
  }

  ZQStatusList* status;
  int result = 0;
};

// Calls `get` with the object of that name and kind.
template <typename Get>
int withObject(const ZQXMLParsedStream* stream, const char* name, uint32_t kind,
               ZQStatusList* status, Get get) {
  const ZQXMLObjectList* node =
      GetXMLObject(stream != nullptr ? stream->objectList : nullptr, name, kind);
  if (node == nullptr) {
    return ZQAddErrorMessage(status, kError, ZQ_MESSAGE_OBJECT_NOT_FOUND, name);
  }
  return get(node->object);
}

using Object = decltype(ZQXMLObjectList::object);

// The names of a set of views, as the list of objects shows them.
bool copyViewNames(ZQNameList& names, const ZQVuiInfoList& views) {
  if (views.numItems == 0) {
    return true;
  }
  names.items = static_cast<ZQNameType*>(calloc(views.numItems, sizeof(ZQNameType)));
  if (names.items == nullptr) {
    return false;
  }
  names.numItems = views.numItems;
  for (uint32_t i = 0; i < views.numItems; ++i) {
    copyText(names.items[i], views.items[i].vuiName);
  }
  return true;
}

}  // namespace

ZQXMLObjectList* GetXMLObject(ZQXMLObjectList* list, const char* name, uint32_t objectType) {
  if (name == nullptr) {
    return nullptr;
  }
  for (ZQXMLObjectList* node = list; node != nullptr; node = node->next) {
    const ZQNameType* nodeName = nameOf(*node);
    if (nodeName != nullptr && node->objectType == objectType &&
        strncmp(*nodeName, name, sizeof *nodeName) == 0) {
      return node;
    }
  }
  return nullptr;
}

int GetNamesFromObjectList(const ZQXMLObjectList* list, ZQStructItemList* parsedObjects,
                           ZQStatusList* status) {
  uint32_t count = 0;
  for (const ZQXMLObjectList* node = list; node != nullptr; node = node->next) {
    ++count;
  }
  if (count == 0 || parsedObjects == nullptr) {
    return 0;
  }
  parsedObjects->numItems = 0;
  parsedObjects->items =
      static_cast<ZQStructItemStruct*>(calloc(count, sizeof(ZQStructItemStruct)));
  if (parsedObjects->items == nullptr) {
    return ZQAddErrorMessage(status, kError, ZQ_MESSAGE_OUT_OF_MEMORY, "");
  }
  parsedObjects->numItems = count;
  ZQStructItemStruct* item = parsedObjects->items;
  for (const ZQXMLObjectList* node = list; node != nullptr; node = node->next, ++item) {
    const ZQNameType* name = nameOf(*node);
    if (name == nullptr) {
      continue;
    }
    item->itemType = node->objectType;
    copyText(item->name, *name);
    if (node->objectType == ZQXML_VUI &&
        !copyViewNames(item->selectedElements, node->object.vui.vuiList)) {
      // The names of the views before it go too.
      const records::Unwinding unwinding;
      FreeZQStructItemList(parsedObjects, 0);
      return ZQAddErrorMessage(status, kError, ZQ_MESSAGE_OUT_OF_MEMORY, "");
    }
  }
  return 0;
}

int GetSchemaFromXML(ZQXMLParsedStream* stream, const char* name, ZQCompoundSchema* schema,
                     ZQPermissionList* permissions, ZQInternalIdList* subAdmins,
                     ZQEntryListFieldList* resultListFields, ZQSortList* sortList,
                     ZQIndexList* indexList, char* defaultVui, uint32_t* nextFieldId,
                     uint32_t* coreVersion, int32_t* upgradeVersion, ZQFieldInfoList* fieldList,
                     ZQVuiInfoList* vuiList, char* owner, char* lastChanged,
                     ZQTimestamp* modifiedDate, char** helpText, char** changeDiary,
                     ZQPropList* objPropList, int32_t* xmlDocVersion, ZQStatusList* status) {
  return withObject(stream, name, ZQXML_FORM, status, [&](const Object& object) {
    const ZQXMLSchema& form = object.schema;
    return Outputs(status)
        .copy(CopyZQCompoundSchema, schema, form.schema)
        .copy(CopyZQPermissionList, permissions, form.permissions)
        .copy(CopyZQInternalIdList, subAdmins, form.subAdmins)
        .copy(CopyZQEntryListFieldList, resultListFields, form.resultListFields)
        .copy(CopyZQSortList, sortList, form.sortList)
        .copy(CopyZQIndexList, indexList, form.indexList)
        .name(defaultVui, form.defaultVui)
        .scalar(nextFieldId, form.nextFieldId)
        .scalar(coreVersion, form.coreVersion)
        .scalar(upgradeVersion, form.upgradeVersion)
        .copy(CopyZQFieldInfoList, fieldList, form.fieldList)
        .copy(CopyZQVuiInfoList, vuiList, form.vuiList)
        .head({owner, lastChanged, modifiedDate, helpText, changeDiary, objPropList, xmlDocVersion},
              form)
        .done();
  });
}

int GetFilterFromXML(ZQXMLParsedStream* stream, const char* name, uint32_t* executionOrder,
                     ZQWorkflowConnectStruct* workflowConnect, uint32_t* executeOn,
                     uint32_t* enabled, ZQQualifierStruct* query, ZQFilterActionList* actionList,
                     ZQFilterActionList* elseList, char* owner, char* lastChanged,
                     ZQTimestamp* modifiedDate, char** helpText, char** changeDiary,
                     ZQPropList* objPropList, int32_t* xmlDocVersion, ZQStatusList* status) {
  return withObject(stream, name, ZQXML_FILTER, status, [&](const Object& object) {
    const ZQXMLFilter& filter = object.filter;
    return Outputs(status)
        .scalar(executionOrder, filter.executionOrder)
        .copy(CopyZQWorkflowConnectStruct, workflowConnect, filter.workflowConnect)
        .scalar(executeOn, filter.executeOn)
        .scalar(enabled, filter.enabled)
        .copy(CopyZQQualifierStruct, query, filter.query)
        .copy(CopyZQFilterActionList, actionList, filter.actionList)
        .copy(CopyZQFilterActionList, elseList, filter.elseList)
        .head({owner, lastChanged, modifiedDate, helpText, changeDiary, objPropList, xmlDocVersion},
              filter)
        .done();
  });
}

int GetActiveLinkFromXML(ZQXMLParsedStream* stream, const char* name, uint32_t* executionOrder,
                         ZQWorkflowConnectStruct* workflowConnect, ZQInternalIdList* groupList,
                         uint32_t* executeOn, ZQInternalId* controlFieldId,
                         ZQInternalId* focusFieldId, uint32_t* enabled, ZQQualifierStruct* query,
                         ZQActiveLinkActionList* actionList, ZQActiveLinkActionList* elseList,
                         ZQSupportFileInfoList* supportFileList, char* owner, char* lastChanged,
                         ZQTimestamp* modifiedDate, char** helpText, char** changeDiary,
                         ZQPropList* objPropList, int32_t* xmlDocVersion, ZQStatusList* status) {
  return withObject(stream, name, ZQXML_ACTIVE_LINK, status, [&](const Object& object) {
    const ZQXMLActiveLink& link = object.activeLink;
    return Outputs(status)
        .scalar(executionOrder, link.executionOrder)
        .copy(CopyZQWorkflowConnectStruct, workflowConnect, link.workflowConnect)
        .copy(CopyZQInternalIdList, groupList, link.groupList)
        .scalar(executeOn, link.executeOn)
        .scalar(controlFieldId, link.controlFieldId)
        .scalar(focusFieldId, link.focusFieldId)
        .scalar(enabled, link.enabled)
        .copy(CopyZQQualifierStruct, query, link.query)
        .copy(CopyZQActiveLinkActionList, actionList, link.actionList)
        .copy(CopyZQActiveLinkActionList, elseList, link.elseList)
        .copy(CopyZQSupportFileInfoList, supportFileList, link.supportFileList)
        .head({owner, lastChanged, modifiedDate, helpText, changeDiary, objPropList, xmlDocVersion},
              link)
        .done();
  });
}

int GetEscalationFromXML(ZQXMLParsedStream* stream, const char* name,
                         ZQEscalationTmStruct* escalationTime,
                         ZQWorkflowConnectStruct* workflowConnect, uint32_t* enabled,
                         ZQQualifierStruct* query, ZQFilterActionList* actionList,
                         ZQFilterActionList* elseList, char* owner, char* lastChanged,
                         ZQTimestamp* modifiedDate, char** helpText, char** changeDiary,
                         ZQPropList* objPropList, int32_t* xmlDocVersion, ZQStatusList* status) {
  return withObject(stream, name, ZQXML_ESCALATION, status, [&](const Object& object) {
    const ZQXMLEscalation& escalation = object.escalation;
    return Outputs(status)
        .scalar(escalationTime, escalation.escalationTime)
        .copy(CopyZQWorkflowConnectStruct, workflowConnect, escalation.workflowConnect)
        .scalar(enabled, escalation.enabled)
        .copy(CopyZQQualifierStruct, query, escalation.query)
        .copy(CopyZQFilterActionList, actionList, escalation.actionList)
        .copy(CopyZQFilterActionList, elseList, escalation.elseList)
        .head({owner, lastChanged, modifiedDate, helpText, changeDiary, objPropList, xmlDocVersion},
              escalation)
        .done();
  });
}

int GetContainerFromXML(ZQXMLParsedStream* stream, const char* name, ZQPermissionList* permissions,
                        ZQInternalIdList* subAdmins, ZQContainerOwnerObjList* ownerObjList,
                        char** label, char** description, uint32_t* containerType,
                        ZQReferenceList* references, char* owner, char* lastChanged,
                        ZQTimestamp* modifiedDate, char** helpText, char** changeDiary,
                        ZQPropList* objPropList, int32_t* xmlDocVersion, ZQStatusList* status) {
  return withObject(stream, name, ZQXML_CONTAINER, status, [&](const Object& object) {
    const ZQXMLContainer& container = object.container;
    return Outputs(status)
        .copy(CopyZQPermissionList, permissions, container.permissions)
        .copy(CopyZQInternalIdList, subAdmins, container.subAdmins)
        .copy(CopyZQContainerOwnerObjList, ownerObjList, container.ownerObjList)
        .text(label, container.label)
        .text(description, container.description)
        .scalar(containerType, container.containerType)
        .copy(CopyZQReferenceList, references, container.references)
        .head({owner, lastChanged, modifiedDate, helpText, changeDiary, objPropList, xmlDocVersion},
              container)
        .done();
  });
}

int GetMenuFromXML(ZQXMLParsedStream* stream, const char* name, uint32_t* refreshCode,
                   ZQCharMenuStruct* menuDefn, char* owner, char* lastChanged,
                   ZQTimestamp* modifiedDate, char** helpText, char** changeDiary,
                   ZQPropList* objPropList, int32_t* xmlDocVersion, ZQStatusList* status) {
  return withObject(stream, name, ZQXML_MENU, status, [&](const Object& object) {
    const ZQXMLMenu& menu = object.menu;
    return Outputs(status)
        .scalar(refreshCode, menu.refreshCode)
        .copy(CopyZQCharMenuStruct, menuDefn, menu.menuDefn)
        .head({owner, lastChanged, modifiedDate, helpText, changeDiary, objPropList, xmlDocVersion},
              menu)
        .done();
  });
}

int GetVUIFromXML(ZQXMLParsedStream* stream, const char* name, ZQVuiInfoList* vuiList,
                  ZQFieldInfoList* fieldList, ZQTimestamp* modifiedDate, int32_t* xmlDocVersion,
                  ZQStatusList* status) {
  return withObject(stream, name, ZQXML_VUI, status, [&](const Object& object) {
    const ZQXMLVUI& vui = object.vui;
    return Outputs(status)
        .copy(CopyZQVuiInfoList, vuiList, vui.vuiList)
        .copy(CopyZQFieldInfoList, fieldList, vui.fieldList)
        .scalar(modifiedDate, vui.modifiedDate)
        .scalar(xmlDocVersion, vui.xmlDocVersion)
        .done();
  });
}

int GetDSOMappingFromXML(ZQXMLParsedStream* stream, const char* name, char* fromForm,
                         char* fromServer, char* toForm, char* toServer, uint32_t* enabled,
                         uint32_t* updateCode, uint32_t* transferMode, uint32_t* mapType,
                         uint32_t* returnMapType, uint32_t* defaultMap, uint32_t* duplicateAction,
                         uint32_t* patternMatch, uint32_t* requiredFields, uint32_t* retryTime,
                         char** mapping, char** returnMapping, char** matchQualification,
                         char* owner, char* lastChanged, ZQTimestamp* modifiedDate, char** helpText,
                         char** changeDiary, ZQPropList* objPropList, int32_t* xmlDocVersion,
                         ZQStatusList* status) {
  return withObject(stream, name, ZQXML_DSO_MAPPING, status, [&](const Object& object) {
    const ZQXMLDSOMapping& source = object.dsoMapping;
    return Outputs(status)
        .name(fromForm, source.fromForm)
        .name(fromServer, source.fromServer)
        .name(toForm, source.toForm)
        .name(toServer, source.toServer)
        .scalar(enabled, source.enabled)
        .scalar(updateCode, source.updateCode)
        .scalar(transferMode, source.transferMode)
        .scalar(mapType, source.mapType)
        .scalar(returnMapType, source.returnMapType)
        .scalar(defaultMap, source.defaultMap)
        .scalar(duplicateAction, source.duplicateAction)
        .scalar(patternMatch, source.patternMatch)
        .scalar(requiredFields, source.requiredFields)
        .scalar(retryTime, source.retryTime)
        .text(mapping, source.mapping)
        .text(returnMapping, source.returnMapping)
        .text(matchQualification, source.matchQualification)
        .head({owner, lastChanged, modifiedDate, helpText, changeDiary, objPropList, xmlDocVersion},
              source)
        .done();
  });
}

int GetDSOPoolFromXML(ZQXMLParsedStream* stream, const char* name, uint32_t* enabled,
                      uint32_t* defaultPool, uint32_t* threadCount, char** connection, char* owner,
                      char* lastChanged, ZQTimestamp* modifiedDate, char** helpText,
                      char** changeDiary, ZQPropList* objPropList, int32_t* xmlDocVersion,
                      ZQStatusList* status) {
  return withObject(stream, name, ZQXML_DSO_POOL, status, [&](const Object& object) {
    const ZQXMLDSOPool& pool = object.dsoPool;
    return Outputs(status)
        .scalar(enabled, pool.enabled)
        .scalar(defaultPool, pool.defaultPool)
        .scalar(threadCount, pool.threadCount)
        .text(connection, pool.connection)
        .head({owner, lastChanged, modifiedDate, helpText, changeDiary, objPropList, xmlDocVersion},
              pool)
        .done();
  });
}

int GetFieldFromXML(ZQXMLParsedStream* stream, const char* name, ZQInternalId* fieldId,
                    ZQFieldMappingStruct* fieldMap, uint32_t* dataType, uint32_t* option,
                    uint32_t* createMode, ZQValueStruct* defaultValue,
                    ZQPermissionList* permissions, ZQFieldLimitStruct* limit,
                    ZQDisplayInstanceList* dInstanceList, char* owner, char* lastChanged,
                    ZQTimestamp* modifiedDate, char** helpText, char** changeDiary,
                    int32_t* xmlDocVersion, ZQStatusList* status) {
  return withObject(stream, name, ZQXML_FIELD, status, [&](const Object& object) {
    const ZQXMLField& field = object.field;
    return Outputs(status)
        .scalar(fieldId, field.fieldId)
        .scalar(fieldMap, field.fieldMap)
        .scalar(dataType, field.dataType)
        .scalar(option, field.option)
        .scalar(createMode, field.createMode)
        .copy(CopyZQValueStruct, defaultValue, field.defaultValue)
        .copy(CopyZQPermissionList, permissions, field.permissions)
        .copy(CopyZQFieldLimitStruct, limit, field.limit)
        .copy(CopyZQDisplayInstanceList, dInstanceList, field.dInstanceList)
        .name(owner, field.owner)
        .name(lastChanged, field.lastChanged)
        .scalar(modifiedDate, field.modifiedDate)
        .text(helpText, field.helpText)
        .text(changeDiary, field.changeDiary)
        .scalar(xmlDocVersion, field.xmlDocVersion)
        .done();
  });
}
