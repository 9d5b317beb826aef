#include "codesets.h"

#include <strings.h>
#include <zqxml/codeset.h>

namespace {

constexpr CodeSet kCodeSets[] = {
    {0, "WESTERN"},      {1, "8859_1"},       {2, "8859_15"},      {3, "JIS"},     {4, "EUC"},
    {5, "SJIS"},         {7, "GB2312"},       {8, "EUC_C"},        {9, "BIG5"},    {10, "EUC_H"},
    {11, "KSC_5601_87"}, {12, "KSC_5601_92"}, {13, "EUC_K"},       {14, "8859_2"}, {15, "8859_3"},
    {16, "8859_4"},      {17, "8859_5"},      {18, "8859_6"},      {19, "8859_7"}, {20, "8859_8"},
    {21, "8859_9"},      {22, "8859_10"},     {23, "1250"},        {24, "1251"},   {25, "1253"},
    {26, "1254"},        {27, "1255"},        {28, "1256"},        {29, "1257"},   {30, "1258"},
    {40, "874"},         {41, "ISO_2022_CN"}, {42, "ISO_2022_KR"}, {64, "UTF16"},  {65, "UTF8"},
};

}  // namespace

std::span<const CodeSet> allCodeSets() {
  return kCodeSets;
}

std::string charsetOf(int number) {
  char charset[ZQ_CHARSET_SIZE];
  SetCharset(charset, number);
  return charset;
}

const CodeSet* findCodeSet(const std::string& word) {
  for (const CodeSet& set : kCodeSets) {
    const std::string charset = charsetOf(set.number);
    if (word == std::to_string(set.number) || strcasecmp(word.c_str(), set.name) == 0 ||
        (!charset.empty() && strcasecmp(word.c_str(), charset.c_str()) == 0)) {
      return &set;
    }
  }
  return nullptr;
}

std::string faultOfCodeSet(const std::string& word) {
  return findCodeSet(word) != nullptr ? std::string() : "no code set: " + word;
}

const char* nameOf(int number) {
  for (const CodeSet& set : kCodeSets) {
    if (set.number == number) {
      return set.name;
    }
  }
  return "";
}
