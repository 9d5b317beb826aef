#include "xml/LeafTable.h"

#include <clocale>

double realNumber(const char* text) {
  static const locale_t kC = newlocale(LC_ALL_MASK, "C", nullptr);
  return strtod_l(text, nullptr, kC);
}
