#include "kinds.h"

#include <zqxml/parser.h>

const std::vector<Kind>& listedKinds() {
  static const std::vector<Kind> kinds = {
      {"activeLink", ZQXML_ACTIVE_LINK},
      {"container", ZQXML_CONTAINER},
      {"distributedMapping", ZQXML_DSO_MAPPING},
      {"distributedPool", ZQXML_DSO_POOL},
      {"escalation", ZQXML_ESCALATION},
      {"filter", ZQXML_FILTER},
      {"form", ZQXML_FORM},
      {"menu", ZQXML_MENU},
      {"vui", ZQXML_VUI},
  };
  return kinds;
}

std::string kindWord(uint32_t number) {
  for (const Kind& kind : listedKinds()) {
    if (kind.number == number) {
      return kind.word;
    }
  }
  return {};
}

std::string containerTypeWord(uint32_t subType) {
  switch (subType) {
    case 1:
      return "activeLinkGuide";
    case 2:
      return "application";
    case 3:
      return "packingList";
    case 4:
      return "filterGuide";
    case 5:
      return "webService";
    default:
      return {};
  }
}
