// What the handlers of objects share: the attributes of the object's element, the head of the
// record (name, version, owner, last changed, date, help text, diary, properties), and the question
// whether the caller asked for the object. An object's handler gives its own text elements as rows,
// passes every event on, and adds the children that are its own.
//
// An object that wasn't asked for is dropped: from its name on its own elements aren't looked at,
// though children still read theirs, and at its end the record is freed and the node of the chain
// marked as unused.
#ifndef ZQXML_XML_OBJECTHEAD_H
#define ZQXML_XML_OBJECTHEAD_H

#include <algorithm>
#include <array>
#include <cstdint>
#include <span>
#include <xercesc/sax2/Attributes.hpp>

#include "xml/LeafTable.h"
#include "xml/ZQXMLTagHash.h"
#include "xml/handlers/ZQXMLChangeHistHandler.h"
#include "xml/handlers/ZQXMLPropListHandler.h"
#include "zqxml/records.h"

// The rows of an object: its own, of which the first is its name, and those of the head that its
// record has members for.
template <typename Object, size_t kOwn>
constexpr auto objectLeaves(const Leaf<Object> (&own)[kOwn]) {
  constexpr auto kHead = [] {
    constexpr Leaf<Object> kModifiedDate = {
        tag_modifiedDate, [](Object& object, const LeafText& leaf) {
          ZQXMLHandlerUtils::ConvertISOTimeToUnixTime(leaf.text, &object.modifiedDate);
        }};
    if constexpr (requires { &Object::owner; }) {
      return std::array<Leaf<Object>, 4>{{{tag_owner, loadName<&Object::owner>},
                                          {tag_lastModifiedBy, loadName<&Object::lastChanged>},
                                          kModifiedDate,
                                          {tag_helpText, loadText<&Object::helpText>}}};
    } else {
      return std::array<Leaf<Object>, 1>{kModifiedDate};
    }
  }();
  std::array<Leaf<Object>, kOwn + kHead.size()> leaves = {};
  std::copy(kHead.begin(), kHead.end(), std::copy(std::begin(own), std::end(own), leaves.begin()));
  return leaves;
}

// What an object is.
template <typename Object>
struct ObjectElement {
  uint32_t kind;  // one of ZQXMLObjectKind
  int tag;
  void (*freeObject)(Object*, ZQBoolean);
  std::span<const Leaf<Object>> leaves;  // those of objectLeaves, which outlive the head
};

// What doesn't depend on the record.
class ObjectHeadBase {
 public:
  ObjectHeadBase(const ObjectHeadBase&) = delete;
  ObjectHeadBase& operator=(const ObjectHeadBase&) = delete;

  // Whether the object is known not to be asked for.
  bool isDropped() const { return dropped; }

  // Frees what half-read children hold.
  void CleanReferences();

  // Hands a child over to its handler, if the element is one of the head's children.
  void PreProcess(int tag);

 protected:
  // Where a record keeps what the head reads beside its rows; null for what it doesn't have.
  struct Fields {
    const char* name;
    int32_t* xmlDocVersion;
    char** changeDiary;
    ZQPropList* objPropList;
  };

  ObjectHeadBase(const ZQXMLHandlerInfo* handlerInfo, uint32_t objectKind);
  ~ObjectHeadBase() = default;

  void Init(const Fields& head, uint32_t* type);
  void ReadAttributes(const xercesc::Attributes& attributes);
  void AskForObject();
  [[noreturn]] void refuseElement() const;

  const ZQXMLHandlerInfo* info;
  uint32_t* objectType = nullptr;

 private:
  uint32_t kind;
  ZQXMLChangeHistHandler changeHistory;
  ZQXMLPropListHandler properties;
  Fields fields = {};
  bool dropped = false;
};

template <typename Object>
class ObjectHead : public ObjectHeadBase {
 public:
  ObjectHead(const ZQXMLHandlerInfo* handlerInfo, const ObjectElement<Object>& objectElement)
      : ObjectHeadBase(handlerInfo, objectElement.kind),
        element(objectElement),
        leaves(objectElement.leaves) {}

  // Clears the record and stores the kind in `type`. Without a `type` the object is part of another
  // one, and never dropped.
  void Init(Object* object, uint32_t* type) {
    target = object;
    *target = {};
    ObjectHeadBase::Init(fieldsOf(*target), type);
  }

  // An element begins. Returns its tag if it has a text, else 0. Throws ZQXMLException 8941 for
  // another element than that of the object and those of the rows, and 8942 for an attribute of the
  // object that isn't known.
  int StartElement(int tag, const xercesc::Attributes& attributes) {
    if (isDropped()) {
      return 0;
    }
    if (tag == element.tag) {
      leaves.empty();
      ReadAttributes(attributes);
      return 0;
    }
    if (!leaves.open(tag)) {
      refuseElement();
    }
    return tag;
  }

  void Characters(const char* text) { leaves.append(text); }

  // An element ends: its text goes into the record. At the end of the name it shows whether the
  // object is dropped.
  void EndElement(int tag) {
    if (isDropped()) {
      return;
    }
    if (leaves.close(tag, *target, info->locator)) {
      if (tag == element.leaves.front().tag) {
        AskForObject();
      }
    } else if (tag != element.tag) {
      refuseElement();
    }
  }

  // The handler pops itself at the end of the object. One that was dropped is freed and its node
  // marked as unused.
  void PostProcess(int tag) {
    if (tag != element.tag) {
      return;
    }
    info->handlerStack->Pop();
    if (isDropped()) {
      releaseRecord(*target, element.freeObject);
      *objectType = 0;
    }
  }

 private:
  static Fields fieldsOf(Object& object) {
    Fields fields = {nullptr, &object.xmlDocVersion, nullptr, nullptr};
    if constexpr (requires { object.fieldName; }) {
      fields.name = object.fieldName;
    } else {
      fields.name = object.name;
    }
    if constexpr (requires { object.changeDiary; }) {
      fields.changeDiary = &object.changeDiary;
    }
    if constexpr (requires { object.objPropList; }) {
      fields.objPropList = &object.objPropList;
    }
    return fields;
  }

  ObjectElement<Object> element;
  LeafTable<Object> leaves;
  Object* target = nullptr;
};

#endif
