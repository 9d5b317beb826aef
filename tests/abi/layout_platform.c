/* The layout of the records is a contract: each size and offset is pinned. */
#include "layout.h"

#include <zqxml/records.h>

SIZE(ZQFILE, 4144);
ALIGNED(ZQFILE, 8);
AT(ZQFILE, magic, 0);
WIDTH(ZQFILE, magic, 4);
AT(ZQFILE, count, 4);
WIDTH(ZQFILE, count, 4);
AT(ZQFILE, pushBackRoom, 8);
WIDTH(ZQFILE, pushBackRoom, 4);
AT(ZQFILE, buffer, 12);
WIDTH(ZQFILE, buffer, 4096);
AT(ZQFILE, nextByte, 4112);
WIDTH(ZQFILE, nextByte, 8);
AT(ZQFILE, position, 4120);
WIDTH(ZQFILE, position, 8);
AT(ZQFILE, fd, 4128);
WIDTH(ZQFILE, fd, 4);
AT(ZQFILE, appendMode, 4132);
WIDTH(ZQFILE, appendMode, 1);
AT(ZQFILE, eofFlag, 4133);
WIDTH(ZQFILE, eofFlag, 1);
AT(ZQFILE, errorNumber, 4136);
WIDTH(ZQFILE, errorNumber, 4);

SIZE(OSStatsTime, 16);
ALIGNED(OSStatsTime, 8);
AT(OSStatsTime, seconds, 0);
WIDTH(OSStatsTime, seconds, 8);
AT(OSStatsTime, microseconds, 8);
WIDTH(OSStatsTime, microseconds, 8);

typedef int layout_platform_is_checked_by_compiling;
