// Multi-byte strings: the process state and the bounded copy.

#include "zqxml/multibyte.h"

#include <strings.h>

#include <clocale>
#include <cstring>

#include "text/mbutil_state.h"

unsigned char MBUTIL_Initialized = 0;
unsigned char MBUTIL_I_Am_MultiByte = 1;
unsigned char MBUTIL_I_Am_Japanese = 0;
int nativeCodeSet = 0;
bool codeSetChosenByHost = false;

namespace {

int setCodeSet(int codeSet) {
  const int previous = nativeCodeSet;
  nativeCodeSet = codeSet;
  MBUTIL_I_Am_MultiByte = (codeSet >= 3 && codeSet <= 13 && codeSet != 6) ? 1 : 0;
  MBUTIL_I_Am_Japanese = (codeSet >= 3 && codeSet <= 5) ? 1 : 0;
  MBUTIL_Initialized = 1;
  return previous;
}

}  // namespace

int InitMbutil(void) {
  setlocale(LC_ALL, "");
  const char* name = setlocale(LC_ALL, nullptr);
  if (*name == '/') {
    ++name;
  }
  codeSetChosenByHost = false;
  if (strncasecmp(name, "ja", 2) == 0) return setCodeSet(4);
  if (strncasecmp(name, "ko", 2) == 0) return setCodeSet(13);
  if (strncasecmp(name, "zh_tw", 5) == 0) return setCodeSet(10);
  if (strncasecmp(name, "zh", 2) == 0) return setCodeSet(8);
  return setCodeSet(0);
}

int InitMbutilExt(int codeSet) {
  codeSetChosenByHost = true;
  return setCodeSet(codeSet);
}

char* mbstrncpy(char* target, const char* source, int count) {
  if (target == nullptr || source == nullptr || count <= 0) {
    return target;
  }
  return strncpy(target, source, static_cast<size_t>(count));
}
