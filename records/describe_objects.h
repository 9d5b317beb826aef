// The description of definition objects and their parts; see records/describe.h.
#ifndef ZQXML_RECORDS_DESCRIBE_OBJECTS_H
#define ZQXML_RECORDS_DESCRIBE_OBJECTS_H

#include "records/description.h"

namespace records {

// Who changed an object, when, and what is told about it.
void visitObjectChanges(auto& v, auto& r) {
  v.chars("owner", r.owner);
  v.chars("lastChanged", r.lastChanged);
  v.scalar("modifiedDate", r.modifiedDate);
  v.text("helpText", r.helpText);
  v.text("changeDiary", r.changeDiary);
  v.record("objPropList", r.objPropList);
}

// What most objects begin with.
void visitObjectHead(auto& v, auto& r) {
  v.chars("name", r.name);
  v.scalar("xmlDocVersion", r.xmlDocVersion);
  visitObjectChanges(v, r);
}

template <>
struct Description<ZQJoinSchema> {
  static void visit(auto& v, auto& r) {
    v.chars("memberA", r.memberA);
    v.chars("memberB", r.memberB);
    v.record("joinQualifier", r.joinQualifier);
    v.scalar("option", r.option);
  }
};

template <>
struct Description<ZQVendorSchema> {
  static void visit(auto& v, auto& r) {
    v.chars("vendorName", r.vendorName);
    v.chars("tableName", r.tableName);
  }
};

template <>
struct Description<ZQViewSchema> {
  static void visit(auto& v, auto& r) {
    v.chars("tableName", r.tableName);
    v.chars("keyField", r.keyField);
  }
};

template <>
struct Description<ZQCompoundSchema> {
  static constexpr uint32_t kTags[] = {0, 1, 2, 3, 4, 5};
  static void visit(auto& v, auto& r) {
    v.tag("schemaType", r.schemaType, kTags);
    switch (r.schemaType) {
      case 2:
        v.record("joinSchema", r.u.joinSchema);
        break;
      case 3:
        v.record("viewSchema", r.u.viewSchema);
        break;
      case 5:
        v.record("vendorSchema", r.u.vendorSchema);
        break;
      default:
        break;
    }
  }
};

template <>
struct Description<ZQAttachLimitsStruct> {
  static void visit(auto& v, auto& r) {
    v.scalar("maxSize", r.maxSize);
    v.scalar("attachmentType", r.attachmentType);
  }
};

template <>
struct Description<ZQCharacterLimitsStruct> {
  static void visit(auto& v, auto& r) {
    v.scalar("maxLength", r.maxLength);
    v.scalar("menuStyle", r.menuStyle);
    v.scalar("qbeMatch", r.qbeMatch);
    v.chars("charMenu", r.charMenu);
    v.text("pattern", r.pattern);
    v.scalar("fullTextOption", r.fullTextOption);
  }
};

template <>
struct Description<ZQColumnLimitsStruct> {
  static void visit(auto& v, auto& r) {
    v.scalar("parent", r.parent);
    v.scalar("dataField", r.dataField);
    v.scalar("dataSource", r.dataSource);
    v.scalar("colLength", r.colLength);
  }
};

template <>
struct Description<ZQCurrencyDetailStruct> {
  static void visit(auto& v, auto& r) {
    v.chars("currencyCode", r.currencyCode);
    v.scalar("decimalPlaces", r.decimalPlaces);
  }
};

template <>
struct Description<ZQCurrencyLimitsStruct> {
  static void visit(auto& v, auto& r) {
    v.text("rangeLow", r.rangeLow);
    v.text("rangeHigh", r.rangeHigh);
    v.scalar("precision", r.precision);
    v.record("functionalCurrencies", r.functionalCurrencies);
    v.record("allowableCurrencies", r.allowableCurrencies);
  }
};

template <>
struct Description<ZQDateLimitsStruct> {
  static void visit(auto& v, auto& r) {
    v.scalar("minDate", r.minDate);
    v.scalar("maxDate", r.maxDate);
  }
};

template <>
struct Description<ZQDecimalLimitsStruct> {
  static void visit(auto& v, auto& r) {
    v.text("rangeLow", r.rangeLow);
    v.text("rangeHigh", r.rangeHigh);
    v.scalar("precision", r.precision);
  }
};

template <>
struct Description<ZQDiaryLimitsStruct> {
  static void visit(auto& v, auto& r) { v.scalar("fullTextOption", r.fullTextOption); }
};

template <>
struct Description<ZQEnumLimitsStruct> {
  static void visit(auto& v, auto& r) {
    v.scalar("listStyle", r.listStyle);
    v.record("valueList", r.valueList);
  }
};

template <>
struct Description<ZQIntegerLimitsStruct> {
  static void visit(auto& v, auto& r) {
    v.scalar("rangeLow", r.rangeLow);
    v.scalar("rangeHigh", r.rangeHigh);
  }
};

template <>
struct Description<ZQRealLimitsStruct> {
  static void visit(auto& v, auto& r) {
    v.scalar("rangeLow", r.rangeLow);
    v.scalar("rangeHigh", r.rangeHigh);
    v.scalar("precision", r.precision);
  }
};

template <>
struct Description<ZQTableLimitsStruct> {
  static void visit(auto& v, auto& r) {
    v.scalar("numColumns", r.numColumns);
    v.record("qualifier", r.qualifier);
    v.scalar("maxRetrieve", r.maxRetrieve);
    v.chars("schema", r.schema);
    v.chars("server", r.server);
  }
};

template <>
struct Description<ZQViewLimitsStruct> {
  static void visit(auto& v, auto& r) { v.scalar("maxLength", r.maxLength); }
};

template <>
struct Description<ZQFieldLimitStruct> {
  static constexpr uint32_t kTags[] = {0, 2, 3, 4, 5, 6, 8, 10, 11, 12, 13, 33, 34, 37, 42, 43};
  static void visit(auto& v, auto& r) {
    v.tag("dataType", r.dataType, kTags);
    switch (r.dataType) {
      case 2:
        v.record("integerLimits", r.u.integerLimits);
        break;
      case 3:
        v.record("realLimits", r.u.realLimits);
        break;
      case 4:
        v.record("characterLimits", r.u.characterLimits);
        break;
      case 5:
        v.record("diaryLimits", r.u.diaryLimits);
        break;
      case 6:
      case 8:
        v.record("enumLimits", r.u.enumLimits);
        break;
      case 10:
        v.record("decimalLimits", r.u.decimalLimits);
        break;
      case 11:
      case 37:
        v.record("attachLimits", r.u.attachLimits);
        break;
      case 12:
        v.record("currencyLimits", r.u.currencyLimits);
        break;
      case 13:
        v.record("dateLimits", r.u.dateLimits);
        break;
      case 33:
        v.record("tableLimits", r.u.tableLimits);
        break;
      case 34:
        v.record("columnLimits", r.u.columnLimits);
        break;
      case 42:
      case 43:
        v.record("viewLimits", r.u.viewLimits);
        break;
      default:
        break;
    }
  }
};

template <>
struct Description<ZQFieldMappingJoin> {
  static void visit(auto& v, auto& r) {
    v.scalar("formIndex", r.formIndex);
    v.scalar("realId", r.realId);
  }
};

template <>
struct Description<ZQFieldMappingStruct> {
  static constexpr uint32_t kTags[] = {1, 2, 3, 4};
  static void visit(auto& v, auto& r) {
    v.tag("fieldType", r.fieldType, kTags);
    switch (r.fieldType) {
      case 2:
        v.record("join", r.u.join);
        break;
      case 3:
      case 4:
        v.chars("name", r.u.name);
        break;
      default:
        break;
    }
  }
};

template <>
struct Description<ZQFieldInfoStruct> {
  static void visit(auto& v, auto& r) {
    v.scalar("fieldId", r.fieldId);
    v.chars("fieldName", r.fieldName);
    v.scalar("modifiedDate", r.modifiedDate);
    v.record("fieldMap", r.fieldMap);
    v.scalar("dataType", r.dataType);
    v.scalar("option", r.option);
    v.scalar("createMode", r.createMode);
    v.record("defaultValue", r.defaultValue);
    v.record("permissions", r.permissions);
    v.record("limit", r.limit);
    v.record("dInstanceList", r.dInstanceList);
    v.chars("owner", r.owner);
    v.chars("lastChanged", r.lastChanged);
    v.text("helpText", r.helpText);
    v.text("changeDiary", r.changeDiary);
    v.scalar("xmlDocVersion", r.xmlDocVersion);
  }
};

template <>
struct Description<ZQVuiInfoStruct> {
  static void visit(auto& v, auto& r) {
    v.scalar("vuiId", r.vuiId);
    v.chars("vuiName", r.vuiName);
    v.scalar("modifiedDate", r.modifiedDate);
    v.record("objPropList", r.objPropList);
    v.chars("owner", r.owner);
    v.chars("locale", r.locale);
    v.scalar("vuiType", r.vuiType);
    v.chars("lastChanged", r.lastChanged);
    v.text("helpText", r.helpText);
    v.text("changeDiary", r.changeDiary);
  }
};

template <>
struct Description<ZQXMLSchema> {
  static void visit(auto& v, auto& r) {
    visitObjectHead(v, r);
    v.record("schema", r.schema);
    v.record("resultListFields", r.resultListFields);
    v.record("sortList", r.sortList);
    v.record("indexList", r.indexList);
    v.chars("defaultVui", r.defaultVui);
    v.record("permissions", r.permissions);
    v.record("subAdmins", r.subAdmins);
    v.record("vuiList", r.vuiList);
    v.record("fieldList", r.fieldList);
    v.scalar("nextFieldId", r.nextFieldId);
    v.scalar("coreVersion", r.coreVersion);
    v.scalar("upgradeVersion", r.upgradeVersion);
  }
};

template <>
struct Description<ZQXMLFilter> {
  static void visit(auto& v, auto& r) {
    visitObjectHead(v, r);
    v.scalar("executionOrder", r.executionOrder);
    v.record("workflowConnect", r.workflowConnect);
    v.scalar("executeOn", r.executeOn);
    v.scalar("enabled", r.enabled);
    v.record("query", r.query);
    v.record("actionList", r.actionList);
    v.record("elseList", r.elseList);
  }
};

template <>
struct Description<ZQSupportFileInfoStruct> {
  static void visit(auto& v, auto& r) {
    v.scalar("fileType", r.fileType);
    v.scalar("fileId", r.fileId);
    v.scalar("timestamp", r.timestamp);
    v.bytes("fileSize", r.fileSize, "fileContent", r.fileContent);
  }
};

template <>
struct Description<ZQXMLActiveLink> {
  static void visit(auto& v, auto& r) {
    visitObjectHead(v, r);
    v.scalar("executionOrder", r.executionOrder);
    v.record("workflowConnect", r.workflowConnect);
    v.record("groupList", r.groupList);
    v.scalar("executeOn", r.executeOn);
    v.scalar("controlFieldId", r.controlFieldId);
    v.scalar("focusFieldId", r.focusFieldId);
    v.scalar("enabled", r.enabled);
    v.record("query", r.query);
    v.record("actionList", r.actionList);
    v.record("elseList", r.elseList);
    v.record("supportFileList", r.supportFileList);
  }
};

template <>
struct Description<ZQXMLEscalation> {
  static void visit(auto& v, auto& r) {
    visitObjectHead(v, r);
    v.record("escalationTime", r.escalationTime);
    v.record("workflowConnect", r.workflowConnect);
    v.scalar("enabled", r.enabled);
    v.record("query", r.query);
    v.record("actionList", r.actionList);
    v.record("elseList", r.elseList);
  }
};

template <>
struct Description<ZQContainerOwnerObjStruct> {
  static void visit(auto& v, auto& r) {
    v.scalar("ownerType", r.ownerType);
    v.chars("ownerName", r.ownerName);
  }
};

template <>
struct Description<ZQReferenceExternal> {
  static void visit(auto& v, auto& r) {
    v.record("accessList", r.accessList);
    v.record("referenceValue", r.referenceValue);
  }
};

template <>
struct Description<ZQReferenceStruct> {
  static constexpr uint32_t kTags[] = {0, 1};
  static void visit(auto& v, auto& r) {
    v.text("label", r.label);
    v.text("description", r.description);
    v.scalar("referenceType", r.referenceType);
    v.tag("dataSource", r.dataSource, kTags);
    switch (r.dataSource) {
      case 0:
        v.chars("referenceName", r.u.referenceName);
        break;
      case 1:
        v.record("external", r.u.external);
        break;
      default:
        break;
    }
  }
};

template <>
struct Description<ZQXMLContainer> {
  static void visit(auto& v, auto& r) {
    visitObjectHead(v, r);
    v.record("permissions", r.permissions);
    v.record("subAdmins", r.subAdmins);
    v.text("label", r.label);
    v.text("description", r.description);
    v.record("ownerObjList", r.ownerObjList);
    v.scalar("containerType", r.containerType);
    v.record("references", r.references);
  }
};

template <>
struct Description<ZQCharMenuDDField> {
  static void visit(auto& v, auto& r) {
    v.scalar("fieldType", r.fieldType);
    v.chars("formName", r.formName);
  }
};

template <>
struct Description<ZQCharMenuDDForm> {
  static void visit(auto& v, auto& r) {
    v.scalar("formType", r.formType);
    v.scalar("includeHidden", r.includeHidden);
  }
};

template <>
struct Description<ZQCharMenuDDStruct> {
  static constexpr uint32_t kTags[] = {1, 2};
  static void visit(auto& v, auto& r) {
    v.chars("serverName", r.serverName);
    v.scalar("nameType", r.nameType);
    v.scalar("valueFormat", r.valueFormat);
    v.tag("structType", r.structType, kTags);
    switch (r.structType) {
      case 1:
        v.record("form", r.u.form);
        break;
      case 2:
        v.record("field", r.u.field);
        break;
      default:
        break;
    }
  }
};

template <>
struct Description<ZQCharMenuFileStruct> {
  static void visit(auto& v, auto& r) {
    v.scalar("fileLocation", r.fileLocation);
    v.text("fileName", r.fileName);
  }
};

template <>
struct Description<ZQCharMenuQueryStruct> {
  static void visit(auto& v, auto& r) {
    v.chars("formName", r.formName);
    v.chars("serverName", r.serverName);
    v.record("qualifier", r.qualifier);
    v.numbers("labelFieldIds", r.labelFieldIds);
    v.scalar("valueFieldId", r.valueFieldId);
    v.scalar("sortOnLabel", r.sortOnLabel);
  }
};

template <>
struct Description<ZQCharMenuSQLStruct> {
  static void visit(auto& v, auto& r) {
    v.chars("serverName", r.serverName);
    v.text("sqlCommand", r.sqlCommand);
    v.numbers("labelIndexes", r.labelIndexes);
    v.scalar("valueIndex", r.valueIndex);
  }
};

template <>
struct Description<ZQCharMenuSSStruct> {
  static void visit(auto& v, auto& r) {
    v.chars("name", r.name);
    v.record("fieldValues1", r.fieldValues1);
    v.record("fieldValues2", r.fieldValues2);
    v.record("qualifiers", r.qualifiers);
    v.text("text1", r.text1);
    v.text("text2", r.text2);
  }
};

template <>
struct Description<ZQCharMenuStruct> {
  static constexpr uint32_t kTags[] = {0, 1, 2, 3, 4, 5, 6};
  static void visit(auto& v, auto& r) {
    v.tag("menuType", r.menuType, kTags);
    switch (r.menuType) {
      case 1:
        v.record("menuList", r.u.menuList);
        break;
      case 2:
        v.record("menuQuery", r.u.menuQuery);
        break;
      case 3:
        v.record("menuFile", r.u.menuFile);
        break;
      case 4:
        v.record("menuSQL", r.u.menuSQL);
        break;
      case 5:
        v.record("menuSS", r.u.menuSS);
        break;
      case 6:
        v.record("menuDD", r.u.menuDD);
        break;
      default:
        break;
    }
  }
};

template <>
struct Description<ZQXMLMenu> {
  static void visit(auto& v, auto& r) {
    v.chars("name", r.name);
    v.scalar("xmlDocVersion", r.xmlDocVersion);
    v.chars("owner", r.owner);
    v.chars("lastChanged", r.lastChanged);
    v.scalar("modifiedDate", r.modifiedDate);
    v.record("objPropList", r.objPropList);
    v.text("changeDiary", r.changeDiary);
    v.text("helpText", r.helpText);
    v.scalar("refreshCode", r.refreshCode);
    v.record("menuDefn", r.menuDefn);
  }
};

template <>
struct Description<ZQXMLVUI> {
  static void visit(auto& v, auto& r) {
    v.chars("name", r.name);
    v.scalar("xmlDocVersion", r.xmlDocVersion);
    v.scalar("modifiedDate", r.modifiedDate);
    v.record("vuiList", r.vuiList);
    v.record("fieldList", r.fieldList);
  }
};

template <>
struct Description<ZQXMLDSOPool> {
  static void visit(auto& v, auto& r) {
    v.chars("name", r.name);
    v.scalar("xmlDocVersion", r.xmlDocVersion);
    v.scalar("enabled", r.enabled);
    v.scalar("defaultPool", r.defaultPool);
    v.scalar("threadCount", r.threadCount);
    v.text("connection", r.connection);
    visitObjectChanges(v, r);
  }
};

template <>
struct Description<ZQXMLDSOMapping> {
  static void visit(auto& v, auto& r) {
    v.chars("name", r.name);
    v.scalar("xmlDocVersion", r.xmlDocVersion);
    v.chars("fromForm", r.fromForm);
    v.chars("fromServer", r.fromServer);
    v.chars("toForm", r.toForm);
    v.chars("toServer", r.toServer);
    v.scalar("enabled", r.enabled);
    v.scalar("updateCode", r.updateCode);
    v.scalar("transferMode", r.transferMode);
    v.scalar("mapType", r.mapType);
    v.scalar("returnMapType", r.returnMapType);
    v.scalar("defaultMap", r.defaultMap);
    v.scalar("duplicateAction", r.duplicateAction);
    v.scalar("patternMatch", r.patternMatch);
    v.scalar("requiredFields", r.requiredFields);
    v.scalar("retryTime", r.retryTime);
    v.text("mapping", r.mapping);
    v.text("returnMapping", r.returnMapping);
    v.text("matchQualification", r.matchQualification);
    visitObjectChanges(v, r);
  }
};

template <>
struct Description<ZQXMLObjectList> {
  static constexpr uint32_t kTags[] = {0,          0x40000001, 0x40000005, 0x40000006,
                                       0x40000008, 0x40000009, 0x4000000A, 0x4000000C,
                                       0x4000000D, 0x4000000E, 0x4000000F};
  static void visit(auto& v, auto& r) {
    v.tag("objectType", r.objectType, kTags);
    switch (r.objectType) {
      case 0x40000001:
        v.record("schema", r.object.schema);
        break;
      case 0x40000005:
        v.record("filter", r.object.filter);
        break;
      case 0x40000006:
        v.record("activeLink", r.object.activeLink);
        break;
      case 0x40000008:
        v.record("menu", r.object.menu);
        break;
      case 0x40000009:
        v.record("escalation", r.object.escalation);
        break;
      case 0x4000000A:
        v.record("dsoMapping", r.object.dsoMapping);
        break;
      case 0x4000000C:
        v.record("container", r.object.container);
        break;
      case 0x4000000D:
        v.record("dsoPool", r.object.dsoPool);
        break;
      case 0x4000000E:
        v.record("vui", r.object.vui);
        break;
      case 0x4000000F:
        v.record("field", r.object.field);
        break;
      default:
        break;
    }
  }
};

template <>
struct Description<ZQCharMenuItemStruct> {
  static constexpr uint32_t kTags[] = {0, 1, 2};
  static void visit(auto& v, auto& r) {
    v.chars("itemLabel", r.itemLabel);
    v.tag("itemType", r.itemType, kTags);
    switch (r.itemType) {
      case 1:
        v.text("itemValue", r.u.itemValue);
        break;
      case 2:
        v.block("childMenu", r.u.childMenu);
        break;
      default:
        break;
    }
  }
};

}  // namespace records

#endif
