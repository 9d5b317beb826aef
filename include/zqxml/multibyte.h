/**
 * @file
 * Strings of the process's native code set, walked character by character, so that no character is cut in two.
 *
 * The native code set is chosen once for the process: by the first call of any function here (InitMbutil), or before
 * that by the program (InitMbutilExt). Do so before threads start.
 */
#ifndef ZQXML_MULTIBYTE_H
#define ZQXML_MULTIBYTE_H

#include "zqxml/export.h"

ZQXML_BEGIN_DECLS

/**
 * Sets the process locale from the environment (`setlocale(LC_ALL, "")`) and takes the native code set from its name:
 * "ja" or "jpn" 4, "ko" 13, "zh_tw" 10, "zh" 8, anything else 0.
 *
 * @return the native code set before the call
 */
ZQXML_API int InitMbutil(void);

/**
 * Sets the native code set, whatever the locale says.
 *
 * @param codeSet number of the code set
 * @return the native code set before the call
 */
ZQXML_API int InitMbutilExt(int codeSet);

/**
 * Copies text as `strncpy` does, but never leaves half a character: what doesn't fit whole is left out, and the rest
 * of the target is zeroed up to `count`. A source that fills the count gets no terminator.
 *
 * @param target at least `count` bytes; null is returned at once
 * @param source zero-terminated text; null copies nothing
 * @param count  size of the target in bytes; a negative count is 0
 * @return the target
 */
ZQXML_API char *mbstrncpy(char *target, const char *source, int count);

ZQXML_END_DECLS

#endif
