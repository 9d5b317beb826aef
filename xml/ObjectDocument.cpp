#include "xml/ObjectDocument.h"

void openObject(ElementSink& sink, int tag) {
  sink.open(tag);
  sink.attribute(tag_xmlns, "urn:quorin:schemas:zqs");
  sink.attribute(tag_xmlns_xsi, "http://www.w3.org/2001/XMLSchema-instance");
  sink.attribute(tag_xsi_schemaLocation, "urn:quorin:schemas:zqs zqs.xsd");
}
