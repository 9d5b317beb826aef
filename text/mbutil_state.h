// The process-wide state of the multi-byte functions. It is written at initialisation, without a
// lock.
#ifndef ZQXML_TEXT_MBUTIL_STATE_H
#define ZQXML_TEXT_MBUTIL_STATE_H

#include "zqxml/multibyte.h"

extern unsigned char MBUTIL_Initialized;     // the other values are valid
extern unsigned char MBUTIL_I_Am_MultiByte;  // the native code set is multi-byte
extern unsigned char MBUTIL_I_Am_Japanese;   // the native code set is Japanese
extern int nativeCodeSet;

// The program itself chose the code set, by a call of InitMbutilExt.
extern bool codeSetChosenByHost;

// Each function that depends on the state begins by one of these two.
inline void initialiseMbutil() {
  if (MBUTIL_Initialized == 0) {
    InitMbutil();
  }
}

inline bool isMultiByteProcess() {
  initialiseMbutil();
  return MBUTIL_I_Am_MultiByte != 0;
}

#endif
