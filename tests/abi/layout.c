/* The layout of the records is a contract: each size and offset is pinned. */
#include <assert.h>
#include <stddef.h>
#include <zqxml/records.h>

#define SIZE(record, bytes) static_assert(sizeof(record) == (bytes), "size of " #record)
#define AT(record, member, offset) \
    static_assert(offsetof(record, member) == (offset), "place of " #record "." #member)

SIZE(ZQBoolean, 1);
SIZE(ZQNameType, 255);

SIZE(ZQUnsignedIntList, 16);
AT(ZQUnsignedIntList, numItems, 0);
AT(ZQUnsignedIntList, items, 8);

SIZE(ZQNameList, 16);
AT(ZQNameList, numItems, 0);
AT(ZQNameList, items, 8);

SIZE(ZQStatusStruct, 24);
AT(ZQStatusStruct, messageType, 0);
AT(ZQStatusStruct, messageNum, 4);
AT(ZQStatusStruct, messageText, 8);
AT(ZQStatusStruct, appendedText, 16);

SIZE(ZQStatusList, 16);
AT(ZQStatusList, numItems, 0);
AT(ZQStatusList, items, 8);

SIZE(ZQXMLInputDoc, 16);
AT(ZQXMLInputDoc, docType, 0);
AT(ZQXMLInputDoc, doc, 8);

SIZE(ZQXMLOutputDoc, 16);
AT(ZQXMLOutputDoc, docType, 0);
AT(ZQXMLOutputDoc, u, 8);
AT(ZQXMLOutputDoc, u.doc, 8);
AT(ZQXMLOutputDoc, u.fileHandle, 8);

SIZE(ZQXMLParserHandle, 8);
AT(ZQXMLParserHandle, handle, 0);

typedef int layout_is_checked_by_compiling;
