#include "xml/writers/objecthead.h"

#include "xml/ElementSink.h"
#include "xml/ZQXMLTagHash.h"
#include "xml/writers/ISOTime.h"
#include "xml/writers/definitionlists.h"

int writeObjectHead(ElementSink& sink, const HeadParts& head) {
  if (head.xmlDocVersion != nullptr) {
    sink.signedAttribute(tag_zqDocVersion, *head.xmlDocVersion);
  }
  sink.elementUnlessEmpty(head.nameTag, head.name);
  sink.elementUnlessEmpty(tag_owner, head.owner);
  sink.elementUnlessEmpty(tag_lastModifiedBy, head.lastChanged);
  if (head.modifiedDate != nullptr) {
    sink.element(tag_modifiedDate, ISOTime(*head.modifiedDate).get());
  }
  sink.elementUnlessNull(tag_helpText, head.helpText);
  if (head.changeDiary != nullptr) {
    sink.within(tag_changeHistory, [&] { writeChangeHistory(sink, head.changeDiary); });
  }
  const ZQPropList* properties = head.objPropList;
  if (properties != nullptr && properties->items != nullptr && properties->numItems != 0) {
    return sink.within(tag_objectProperties, [&] { return writeProperties(sink, properties); });
  }
  return 0;
}
