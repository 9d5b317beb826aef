#ifndef ZQXML_TEXT_MBUTIL_CODESET_H
#define ZQXML_TEXT_MBUTIL_CODESET_H

#include "zqxml/codeset.h"

// The charset that an XML document declares for texts of a code set: the one of SetCharset, or in
// place of a part of iso-8859 the code page that Windows has for it. `target` is as for SetCharset.
void setDocumentCharset(char* target, int codeSet);

#endif
