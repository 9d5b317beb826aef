#include "xml/handlers/ObjectKinds.h"

#include "records/RecordTools.h"
#include "zqxml/objects.h"
#include "zqxml/parser.h"

namespace {

using Object = AnyObject;

template <auto kMember>
void buildMember(Object& object, uint32_t seed) {
  tools::Builder builder(seed, tools::Fill::Full, 3);
  records::visit(builder, object.*kMember);
}

template <auto kMember>
std::string dumpMember(const Object& object) {
  return tools::Dumper::dump(object.*kMember);
}

template <auto kMember>
void freeMember(const Object& object) {
  tools::freeBlocks(object.*kMember);
}

template <auto kMember>
std::vector<void*> keptBlocksOfMember(const Object& object) {
  return tools::KeptBlocks::of(object.*kMember);
}

// The outputs that are asked for; the others are null.
class Pick {
 public:
  explicit Pick(const std::vector<bool>& which) : chosen(which) {}
  template <typename Output>
  Output* operator()(size_t index, Output* output) const {
    return chosen.at(index) ? output : nullptr;
  }

 private:
  const std::vector<bool>& chosen;
};

int getForm(ZQXMLParsedStream* stream, const char* name, Object& out,
            const std::vector<bool>& which, ZQStatusList* status) {
  const Pick p(which);
  ZQXMLSchema& o = out.schema;
  return GetSchemaFromXML(stream, name, p(0, &o.schema), p(1, &o.permissions), p(2, &o.subAdmins),
                          p(3, &o.resultListFields), p(4, &o.sortList), p(5, &o.indexList),
                          p(6, o.defaultVui), p(7, &o.nextFieldId), p(8, &o.coreVersion),
                          p(9, &o.upgradeVersion), p(10, &o.fieldList), p(11, &o.vuiList),
                          p(12, o.owner), p(13, o.lastChanged), p(14, &o.modifiedDate),
                          p(15, &o.helpText), p(16, &o.changeDiary), p(17, &o.objPropList),
                          p(18, &o.xmlDocVersion), status);
}

int getFilter(ZQXMLParsedStream* stream, const char* name, Object& out,
              const std::vector<bool>& which, ZQStatusList* status) {
  const Pick p(which);
  ZQXMLFilter& o = out.filter;
  return GetFilterFromXML(stream, name, p(0, &o.executionOrder), p(1, &o.workflowConnect),
                          p(2, &o.executeOn), p(3, &o.enabled), p(4, &o.query), p(5, &o.actionList),
                          p(6, &o.elseList), p(7, o.owner), p(8, o.lastChanged),
                          p(9, &o.modifiedDate), p(10, &o.helpText), p(11, &o.changeDiary),
                          p(12, &o.objPropList), p(13, &o.xmlDocVersion), status);
}

int getActiveLink(ZQXMLParsedStream* stream, const char* name, Object& out,
                  const std::vector<bool>& which, ZQStatusList* status) {
  const Pick p(which);
  ZQXMLActiveLink& o = out.activeLink;
  return GetActiveLinkFromXML(
      stream, name, p(0, &o.executionOrder), p(1, &o.workflowConnect), p(2, &o.groupList),
      p(3, &o.executeOn), p(4, &o.controlFieldId), p(5, &o.focusFieldId), p(6, &o.enabled),
      p(7, &o.query), p(8, &o.actionList), p(9, &o.elseList), p(10, &o.supportFileList),
      p(11, o.owner), p(12, o.lastChanged), p(13, &o.modifiedDate), p(14, &o.helpText),
      p(15, &o.changeDiary), p(16, &o.objPropList), p(17, &o.xmlDocVersion), status);
}

int getMenu(ZQXMLParsedStream* stream, const char* name, Object& out,
            const std::vector<bool>& which, ZQStatusList* status) {
  const Pick p(which);
  ZQXMLMenu& o = out.menu;
  return GetMenuFromXML(stream, name, p(0, &o.refreshCode), p(1, &o.menuDefn), p(2, o.owner),
                        p(3, o.lastChanged), p(4, &o.modifiedDate), p(5, &o.helpText),
                        p(6, &o.changeDiary), p(7, &o.objPropList), p(8, &o.xmlDocVersion), status);
}

int getEscalation(ZQXMLParsedStream* stream, const char* name, Object& out,
                  const std::vector<bool>& which, ZQStatusList* status) {
  const Pick p(which);
  ZQXMLEscalation& o = out.escalation;
  return GetEscalationFromXML(stream, name, p(0, &o.escalationTime), p(1, &o.workflowConnect),
                              p(2, &o.enabled), p(3, &o.query), p(4, &o.actionList),
                              p(5, &o.elseList), p(6, o.owner), p(7, o.lastChanged),
                              p(8, &o.modifiedDate), p(9, &o.helpText), p(10, &o.changeDiary),
                              p(11, &o.objPropList), p(12, &o.xmlDocVersion), status);
}

int getMapping(ZQXMLParsedStream* stream, const char* name, Object& out,
               const std::vector<bool>& which, ZQStatusList* status) {
  const Pick p(which);
  ZQXMLDSOMapping& o = out.dsoMapping;
  return GetDSOMappingFromXML(
      stream, name, p(0, o.fromForm), p(1, o.fromServer), p(2, o.toForm), p(3, o.toServer),
      p(4, &o.enabled), p(5, &o.updateCode), p(6, &o.transferMode), p(7, &o.mapType),
      p(8, &o.returnMapType), p(9, &o.defaultMap), p(10, &o.duplicateAction),
      p(11, &o.patternMatch), p(12, &o.requiredFields), p(13, &o.retryTime), p(14, &o.mapping),
      p(15, &o.returnMapping), p(16, &o.matchQualification), p(17, o.owner), p(18, o.lastChanged),
      p(19, &o.modifiedDate), p(20, &o.helpText), p(21, &o.changeDiary), p(22, &o.objPropList),
      p(23, &o.xmlDocVersion), status);
}

int getContainer(ZQXMLParsedStream* stream, const char* name, Object& out,
                 const std::vector<bool>& which, ZQStatusList* status) {
  const Pick p(which);
  ZQXMLContainer& o = out.container;
  return GetContainerFromXML(
      stream, name, p(0, &o.permissions), p(1, &o.subAdmins), p(2, &o.ownerObjList), p(3, &o.label),
      p(4, &o.description), p(5, &o.containerType), p(6, &o.references), p(7, o.owner),
      p(8, o.lastChanged), p(9, &o.modifiedDate), p(10, &o.helpText), p(11, &o.changeDiary),
      p(12, &o.objPropList), p(13, &o.xmlDocVersion), status);
}

int getPool(ZQXMLParsedStream* stream, const char* name, Object& out,
            const std::vector<bool>& which, ZQStatusList* status) {
  const Pick p(which);
  ZQXMLDSOPool& o = out.dsoPool;
  return GetDSOPoolFromXML(stream, name, p(0, &o.enabled), p(1, &o.defaultPool),
                           p(2, &o.threadCount), p(3, &o.connection), p(4, o.owner),
                           p(5, o.lastChanged), p(6, &o.modifiedDate), p(7, &o.helpText),
                           p(8, &o.changeDiary), p(9, &o.objPropList), p(10, &o.xmlDocVersion),
                           status);
}

int getVUI(ZQXMLParsedStream* stream, const char* name, Object& out, const std::vector<bool>& which,
           ZQStatusList* status) {
  const Pick p(which);
  ZQXMLVUI& o = out.vui;
  return GetVUIFromXML(stream, name, p(0, &o.vuiList), p(1, &o.fieldList), p(2, &o.modifiedDate),
                       p(3, &o.xmlDocVersion), status);
}

int getField(ZQXMLParsedStream* stream, const char* name, Object& out,
             const std::vector<bool>& which, ZQStatusList* status) {
  const Pick p(which);
  ZQXMLField& o = out.field;
  return GetFieldFromXML(
      stream, name, p(0, &o.fieldId), p(1, &o.fieldMap), p(2, &o.dataType), p(3, &o.option),
      p(4, &o.createMode), p(5, &o.defaultValue), p(6, &o.permissions), p(7, &o.limit),
      p(8, &o.dInstanceList), p(9, o.owner), p(10, o.lastChanged), p(11, &o.modifiedDate),
      p(12, &o.helpText), p(13, &o.changeDiary), p(14, &o.xmlDocVersion), status);
}

template <auto kMember, auto kName>
ObjectKind kind(uint32_t number, const char* name, decltype(ObjectKind::get) get, size_t outputs) {
  return {number,
          name,
          buildMember<kMember>,
          [](Object& object) -> char* { return object.*kMember.*kName; },
          dumpMember<kMember>,
          freeMember<kMember>,
          keptBlocksOfMember<kMember>,
          get,
          outputs};
}

}  // namespace

const std::vector<ObjectKind>& objectKinds() {
  static const std::vector<ObjectKind> all = {
      kind<&Object::schema, &ZQXMLSchema::name>(ZQXML_FORM, "form", getForm, 19),
      kind<&Object::filter, &ZQXMLFilter::name>(ZQXML_FILTER, "filter", getFilter, 14),
      kind<&Object::activeLink, &ZQXMLActiveLink::name>(ZQXML_ACTIVE_LINK, "active link",
                                                        getActiveLink, 18),
      kind<&Object::menu, &ZQXMLMenu::name>(ZQXML_MENU, "menu", getMenu, 9),
      kind<&Object::escalation, &ZQXMLEscalation::name>(ZQXML_ESCALATION, "escalation",
                                                        getEscalation, 13),
      kind<&Object::dsoMapping, &ZQXMLDSOMapping::name>(ZQXML_DSO_MAPPING, "mapping", getMapping,
                                                        24),
      kind<&Object::container, &ZQXMLContainer::name>(ZQXML_CONTAINER, "container", getContainer,
                                                      14),
      kind<&Object::dsoPool, &ZQXMLDSOPool::name>(ZQXML_DSO_POOL, "pool", getPool, 11),
      kind<&Object::vui, &ZQXMLVUI::name>(ZQXML_VUI, "vui", getVUI, 4),
      kind<&Object::field, &ZQXMLField::fieldName>(ZQXML_FIELD, "field", getField, 15),
  };
  return all;
}
