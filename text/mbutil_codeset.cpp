// Code sets by their names: of locales, of the library's own code pages, and of MIME charsets.
//
// The tables disagree with one another in places (the same locale can have two numbers, the same
// number two names). They are separate contracts, and none is derived from another.

#include <clocale>
#include <cstring>
#include <string_view>

#include "text/asciicase.h"
#include "text/mbutil_codeset.h"
#include "zqxml/multibyte.h"

const ZQConvToCharset _ConvToCharsetTable[ZQ_CONV_TO_CHARSET_ROWS + 1] = {
    {"LATIN-1", "iso-8859-1", 1},     {"ibm-819", "iso-8859-1", 1},
    {"ibm-912", "iso-8859-2", 14},    {"ibm-913", "iso-8859-3", 15},
    {"ibm-914", "iso-8859-4", 16},    {"ibm-915", "iso-8859-5", 17},
    {"ibm-916", "iso-8859-8", 20},    {"ibm-920", "iso-8859-9", 21},
    {"ibm-923", "iso-8859-15", 2},    {"ibm-943", "shift_jis", 5},
    {"ibm-949", "euc-kr", 11},        {"ibm-964", "euc-tw", 10},
    {"ibm-970", "euc-kr", 13},        {"ibm-1089", "iso-8859-6", 18},
    {"ibm-1162", "windows-874", 40},  {"ibm-1363", "cp949", 12},
    {"ibm-1370", "big5", 9},          {"ibm-1383", "euc-cn", 8},
    {"ibm-1386", "gb2312", 7},        {"ibm-4909", "iso-8859-7", 19},
    {"ibm-5346", "windows-1250", 23}, {"ibm-5347", "windows-1251", 24},
    {"ibm-5348", "windows-1252", 0},  {"ibm-5349", "windows-1253", 25},
    {"ibm-5350", "windows-1254", 26}, {"ibm-5351", "windows-1255", 27},
    {"ibm-5352", "windows-1256", 28}, {"ibm-5353", "windows-1257", 29},
    {"ibm-5354", "windows-1258", 30}, {"ibm-33722", "euc-jp", 4},
    {"ISO-2022", "iso-2022-jp", 3},   {"ISO-2022", "iso-2022-cn", 41},
    {"ISO-2022", "iso-2022-kr", 42},  {"UTF8", "utf-8", 65},
    {"UTF16", "utf-16", 64},          {"", "", 0},
};

namespace {

struct CodeSetName {
  const char* name;
  int codeSet;
};

// Parts of code page names. The first one that a name contains decides.
constexpr CodeSetName kCodePageParts[] = {
    {"WESTERN", 0},  {"EUC_H", 10},  {"EUC_TW", 10},      {"EUC_C", 8},        {"EUC_ZH", 8},
    {"EUC_K", 13},   {"EUC_J", 4},   {"EUC", 4},          {"SJIS", 5},         {"JIS", 3},
    {"GB", 7},       {"BIG5", 9},    {"KSC_5601_87", 11}, {"KSC_5601_92", 12}, {"1250", 23},
    {"1251", 24},    {"1253", 25},   {"1254", 26},        {"1255", 27},        {"1256", 28},
    {"1257", 29},    {"1258", 30},   {"8859_2", 14},      {"8859_3", 15},      {"8859_4", 16},
    {"8859_5", 17},  {"8859_6", 18}, {"8859_7", 19},      {"8859_8", 20},      {"8859_9", 21},
    {"8859_10", 22},
};

// Beginnings of locale names, without regard to case. The first one decides.
constexpr CodeSetName kLocalePrefixes[] = {
    {"cz", 14},    {"cs", 14},        {"hu", 14},        {"pl", 14},          {"hr", 14},
    {"ro", 14},    {"sh", 14},        {"sl", 14},        {"sq", 14},          {"sk", 14},
    {"ru", 17},    {"bg", 17},        {"mk", 17},        {"sr", 17},          {"el", 19},
    {"tr", 21},    {"et", 16},        {"lt", 16},        {"lv", 16},          {"ja", 4},
    {"ko", 13},    {"zh_CN.big5", 9}, {"zh_TW.Big5", 9}, {"zh_CN.GB2312", 7}, {"zh_TW", 10},
    {"zh.GBK", 8}, {"zh", 7},
};

// What a name is replaced by, if it begins with, contains or equals something.
struct CodePage {
  const char* sought;
  const char* name;
};

// Deliberate: "zh_CH.big5" is spelled so, hence "zh_CN.big5" is taken for "zh".
constexpr CodePage kCodePages[] = {
    {"cz", "8859_2"},
    {"cs", "8859_2"},
    {"hu", "8859_2"},
    {"pl", "8859_2"},
    {"hr", "8859_2"},
    {"ro", "8859_2"},
    {"sh", "8859_2"},
    {"sl", "8859_2"},
    {"sq", "8859_2"},
    {"sk", "8859_2"},
    {"el", "8859_7"},
    {"UTF-8", "UTF8"},
    {"ja", "EUC"},
    {"ko", "EUC_K"},
    {"lt", "8859_4"},
    {"lv", "8859_4"},
    {"et", "8859_4"},
    {"ru", "8859_5"},
    {"bg", "8859_5"},
    {"mk", "8859_5"},
    {"sr", "8859_5"},
    {"tr", "8859_9"},
    {"zh_CH.big5", "BIG5"},
    {"zh_TW.Big5", "BIG5"},
    {"zh_CN.GB2312", "GB2312"},
    {"zh_TW", "EUC_H"},
    {"zh.GBK", "EUC_C"},
    {"zh", "GB2312"},
};

// In the direction from number to name the first row of a number counts.
constexpr CodeSetName kMimeCharsets[] = {
    {"us-ascii", 0},        {"iso-2022-jp", 3},     {"iso-2022-cn", 7},  {"iso-2022-cn-gb", 7},
    {"iso-2022-cn-ext", 7}, {"iso-2022-cn-bg5", 9}, {"iso-2022-kr", 12}, {"cp-1250", 23},
    {"cp-1251", 24},        {"cp-1253", 25},        {"cp-1254", 26},     {"cp-1255", 27},
    {"cp-1256", 28},        {"cp-1257", 29},        {"cp-1258", 30},     {"iso-8859-2", 14},
    {"iso-8859-3", 15},     {"iso-8859-4", 16},     {"iso-8859-5", 17},  {"iso-8859-6", 18},
    {"iso-8859-7", 19},     {"iso-8859-8", 20},     {"iso-8859-9", 21},  {"iso-8859-10", 22},
};

// Deliberate: Shift-JIS and EUC are related, but 10 is with 7 and 8 with 9, across the families.
constexpr int kRelatedForData[][2] = {{4, 5}, {10, 7}, {8, 9}, {13, 12}, {24, 17}};

// The Windows code page in the place of an ISO one. The first part that the name contains decides.
constexpr CodePage kWindowsCodePages[] = {
    {"-13", "cp1257"}, {"_13", "cp1257"}, {"-4", "cp1257"}, {"_4", "cp1257"},
    {"-2", "cp1250"},  {"_2", "cp1250"},  {"-5", "cp1251"}, {"_5", "cp1251"},
    {"-7", "cp1253"},  {"_7", "cp1253"},  {"-9", "cp1254"}, {"_9", "cp1254"},
    {"-15", "cp1252"}, {"_15", "cp1252"}, {"-1", "cp1252"}, {"_1", "cp1252"},
};

// Whole names: iso-8859-15 has no other.
constexpr CodePage kDocumentCharsets[] = {
    {"iso-8859-1", "windows-1252"}, {"iso-8859-2", "windows-1250"}, {"iso-8859-4", "windows-1257"},
    {"iso-8859-5", "windows-1251"}, {"iso-8859-7", "windows-1253"},
};

const char* withoutSlash(const char* name) {
  return *name == '/' ? name + 1 : name;
}

const char* windowsCodePageOfProcess() {
  switch (mbGetLocaleCodeSet()) {
    case 0:
    case 1:
    case 2:
      return "cp1252";
    case 14:
      return "cp1250";
    case 16:
      return "cp1257";
    case 17:
      return "cp1251";
    case 19:
      return "cp1253";
    case 21:
      return "cp1254";
    default:
      return nullptr;
  }
}

// Null if the code part isn't one that is replaced.
const char* windowsCodePageFor(std::string_view codePart) {
  if (codePart.find("8859") == std::string_view::npos) {
    return nullptr;
  }
  for (const CodePage& page : kWindowsCodePages) {
    if (codePart.find(page.sought) != std::string_view::npos) {
      return page.name;
    }
  }
  return nullptr;
}

}  // namespace

int mbGetCodeSet(const char* name) {
  if (name == nullptr) {
    return 0;
  }
  for (const CodeSetName& part : kCodePageParts) {
    if (strstr(name, part.name) != nullptr) {
      return part.codeSet;
    }
  }
  return 0;
}

int mbGetLocaleCodeSet(void) {
  const char* name = setlocale(LC_ALL, nullptr);
  if (name == nullptr) {
    return 0;
  }
  for (const CodeSetName& row : kLocalePrefixes) {
    if (startsWithIgnoringAsciiCase(withoutSlash(name), row.name)) {
      return row.codeSet;
    }
  }
  return 0;
}

int mbGetMIMECodeSet(const char* charset) {
  if (charset == nullptr) {
    return 0;
  }
  for (const CodeSetName& row : kMimeCharsets) {
    if (mbstricmp(charset, row.name) == 0) {
      return row.codeSet;
    }
  }
  return 0;
}

const char* mbGetMIMECharset(int codeSet) {
  // Big5 shares a charset with GB2312, and the two Korean sets one.
  const int number = codeSet == 9 ? 7 : codeSet == 11 ? 12 : codeSet;
  for (const CodeSetName& row : kMimeCharsets) {
    if (number != 0 && row.codeSet == number) {
      return row.name;
    }
  }
  return "iso-8859-1";
}

int mbGetCodeSetForMail(int codeSet) {
  if (codeSet >= 3 && codeSet <= 6) {
    return 3;
  }
  if (codeSet == 23) {
    return 14;
  }
  if (codeSet == 24) {
    return 17;
  }
  return codeSet >= 7 && codeSet <= 30 ? codeSet : 0;
}

int mbGetCodeSetForData(int first, int second) {
  for (const auto& [one, other] : kRelatedForData) {
    if ((first == one && second == other) || (first == other && second == one)) {
      return second;
    }
  }
  return first;
}

char* SetCodePage(const char* locale, char* target) {
  if (target == nullptr) {
    return nullptr;
  }
  strcpy(target, "WESTERN");
  for (const CodePage& page : kCodePages) {
    if (locale != nullptr && startsWithIgnoringAsciiCase(withoutSlash(locale), page.sought)) {
      strcpy(target, page.name);
      break;
    }
  }
  return target;
}

void SetCharset(char* target, int codeSet) {
  if (target == nullptr) {
    return;
  }
  *target = '\0';
  for (int i = 0; i < ZQ_CONV_TO_CHARSET_ROWS; ++i) {
    if (_ConvToCharsetTable[i].codeSet == codeSet) {
      strcpy(target, _ConvToCharsetTable[i].charset);
      return;
    }
  }
}

void setDocumentCharset(char* target, int codeSet) {
  SetCharset(target, codeSet);
  for (const CodePage& page : kDocumentCharsets) {
    if (strcmp(target, page.sought) == 0) {
      strcpy(target, page.name);
      return;
    }
  }
}

char* mbGetCorrectedLocaleForUnix(const char* name, char* target) {
  if (name == nullptr || target == nullptr) {
    return target;
  }
  const std::string_view whole(name);
  const std::string_view head = whole.substr(0, whole.find('@'));
  const size_t point = head.find('.');
  const bool hasCodePart = point != std::string_view::npos;
  const char* codePage =
      hasCodePart ? windowsCodePageFor(head.substr(point + 1)) : windowsCodePageOfProcess();
  strcpy(target, name);
  if (codePage == nullptr) {
    return target + (hasCodePart ? point + 1 : whole.size());
  }
  char* codePart = target + (hasCodePart ? point : head.size());
  *codePart++ = '.';
  strcpy(codePart, codePage);
  strcat(codePart, name + head.size());
  return codePart;
}
