/**
 * @file
 * All of the library's plain interface.
 */
#ifndef ZQXML_ZQXML_H
#define ZQXML_ZQXML_H

#include "zqxml/base64.h"
#include "zqxml/calendar.h"
#include "zqxml/codeset.h"
#include "zqxml/compress.h"
#include "zqxml/convert.h"
#include "zqxml/copy.h"
#include "zqxml/datetime.h"
#include "zqxml/definitions.h"
#include "zqxml/free.h"
#include "zqxml/limits.h"
#include "zqxml/messages.h"
#include "zqxml/multibyte.h"
#include "zqxml/objects.h"
#include "zqxml/os.h"
#include "zqxml/parser.h"
#include "zqxml/records.h"
#include "zqxml/status.h"
#include "zqxml/stream.h"

#endif
