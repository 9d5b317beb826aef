// What the handlers of objects share: the attributes of the object's element, the head of the
// record (name, version, owner, last changed, date, help text, diary, properties), and the question
// whether the caller asked for the object.
//
// An object that wasn't asked for is dropped: from its name on its own elements aren't looked at,
// though children still read theirs, and at its end the record is freed and the node of the chain
// marked as unused.
#ifndef ZQXML_XML_OBJECTHEAD_H
#define ZQXML_XML_OBJECTHEAD_H

#include <array>
#include <cstdint>
#include <xercesc/sax2/Attributes.hpp>

#include "xml/LeafTable.h"
#include "xml/handlers/ZQXMLChangeHistHandler.h"
#include "xml/handlers/ZQXMLPropListHandler.h"
#include "zqxml/records.h"

// Where a record keeps its head, as the records order it differently.
struct ObjectHeadFields {
  template <typename Object>
  static ObjectHeadFields of(Object& object) {
    return {&object.name,         &object.xmlDocVersion, &object.owner,       &object.lastChanged,
            &object.modifiedDate, &object.helpText,      &object.changeDiary, &object.objPropList};
  }

  ZQNameType* name;
  int32_t* xmlDocVersion;
  ZQAccessNameType* owner;
  ZQAccessNameType* lastChanged;
  ZQTimestamp* modifiedDate;
  char** helpText;
  char** changeDiary;
  ZQPropList* objPropList;
};

class ObjectHead {
 public:
  // `nameTag` is the element that names the object, `kind` one of ZQXMLObjectKind.
  ObjectHead(const ZQXMLHandlerInfo* info, uint32_t kind, int nameTag);

  // The record has been cleared. Stores the kind in `objectType`.
  void Init(const ObjectHeadFields& head, uint32_t* objectType);

  // Whether the object is known not to be asked for.
  bool isDropped() const { return dropped; }

  // Frees what half-read children hold.
  void CleanReferences();

  // Hands a child over to its handler, if the element is one of the head's children.
  void PreProcess(int tag);

  // The element of the object begins: takes its attributes. Throws ZQXMLException 8942.
  void openObject(const xercesc::Attributes& attributes);

  // A text element begins, its text comes, it ends; as in LeafTable.
  bool open(int tag) { return leaves.open(tag); }
  void append(const char* text) { leaves.append(text); }
  bool close(int tag);

  // The object ends. One that was dropped is freed by `free` and its node marked as unused.
  template <typename Object>
  void closeObject(Object& object, void (*freeObject)(Object*, ZQBoolean)) {
    if (dropped) {
      releaseRecord(object, freeObject);
      *objectType = 0;
    }
  }

 private:
  const ZQXMLHandlerInfo* info;
  uint32_t kind;
  std::array<Leaf<ObjectHeadFields>, 5> rows;
  LeafTable<ObjectHeadFields> leaves;
  ZQXMLChangeHistHandler changeHistory;
  ZQXMLPropListHandler properties;
  ObjectHeadFields fields = {};
  uint32_t* objectType = nullptr;
  bool dropped = false;
};

#endif
