// Free and copy of records that stand in others only and have no function of their own in the
// interface.
#ifndef ZQXML_RECORDS_PARTS_H
#define ZQXML_RECORDS_PARTS_H

#include "zqxml/records.h"

namespace records {

// They free what is held by value, so their flag is always 0.
void freePushFields(ZQPushFieldsStruct* field, ZQBoolean freeStruct);
void freeNotify(ZQFilterActionNotify* notify, ZQBoolean freeStruct);
void freeMacro(ZQActiveLinkMacroStruct* macro, ZQBoolean freeStruct);
void freeMessage(ZQMessageStruct* message, ZQBoolean freeStruct);
void freeCharacteristics(ZQFieldCharacteristics* characteristics, ZQBoolean freeStruct);
void freeCurrencyDetailList(ZQCurrencyDetailList* list, ZQBoolean freeStruct);
// Unlike FreeZQQualifierList, it leaves an empty list.
void freeQualifierList(ZQQualifierList* list, ZQBoolean freeStruct);

// A copy that fails owns nothing, where CopyZQValueStruct may leave an empty currency behind.
unsigned copyValue(ZQValueStruct* dest, const ZQValueStruct* source);
unsigned copyQualifierList(ZQQualifierList* dest, const ZQQualifierList* source);

}  // namespace records

#endif
