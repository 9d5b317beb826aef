/**
 * @file
 * Code sets: small numbers that name encodings, and how they are found from names of locales, code pages and MIME
 * charsets.
 *
 * | Number | Code set | Number | Code set |
 * |---|---|---|---|
 * | 0 | Western, windows-1252 | 14 | iso-8859-2 |
 * | 1 | iso-8859-1 | 15 | iso-8859-3 |
 * | 2 | iso-8859-15 | 16 | iso-8859-4 |
 * | 3 | JIS, iso-2022-jp | 17 | iso-8859-5 |
 * | 4 | EUC of Japan, euc-jp | 18 | iso-8859-6 |
 * | 5 | Shift-JIS | 19 | iso-8859-7 |
 * | 7 | GB2312 | 20 | iso-8859-8 |
 * | 8 | EUC_C, euc-cn | 21 | iso-8859-9 |
 * | 9 | Big5 | 22 | iso-8859-10 |
 * | 10 | EUC_H, euc-tw | 23 to 30 | windows-1250, -1251, -1253 to -1258, in that order |
 * | 11 | KSC 5601 of 1987 | 40 | windows-874 |
 * | 12 | KSC 5601 of 1992 | 41, 42 | iso-2022-cn, iso-2022-kr |
 * | 13 | EUC_K, euc-kr | 64, 65 | utf-16, utf-8 |
 *
 * The functions differ from one another in the names that they know and in the numbers that they give; each is a
 * contract of its own. They read the name of the process locale, but none of them sets it, except that
 * mbGetMIMECodeSet() and AccumulateAsciiForStr() choose the native code set if that has not been done before.
 */
#ifndef ZQXML_CODESET_H
#define ZQXML_CODESET_H

#include "zqxml/export.h"

ZQXML_BEGIN_DECLS

/** Size in bytes of the charset that SetCharset() writes. */
#define ZQ_CHARSET_SIZE 22

/** Size in bytes of the code page name that SetCodePage() writes. */
#define ZQ_CODE_PAGE_SIZE 16

/** Number of rows of _ConvToCharsetTable, without the empty one at the end. */
#define ZQ_CONV_TO_CHARSET_ROWS 35

/** A converter, its MIME charset and its code set. */
typedef struct ZQConvToCharset {
    char converter[10];            /**< name of the converter in the ICU family */
    char charset[ZQ_CHARSET_SIZE]; /**< MIME charset */
    int codeSet;                   /**< number of the code set */
} ZQConvToCharset;

/** The charsets of the code sets. Of several rows with one code set the first counts. Ends with an empty row. */
ZQXML_API extern const ZQConvToCharset _ConvToCharsetTable[ZQ_CONV_TO_CHARSET_ROWS + 1];

/**
 * Finds the code set of a code page name such as "SJIS" or "8859_2", by parts that the name contains, in a fixed order
 * and with regard to case.
 *
 * @return the number; 0 for a null name, for one that contains "WESTERN" and for an unknown one
 */
ZQXML_API int mbGetCodeSet(const char *name);

/**
 * Finds the code set of the process locale, by the beginning of its name without regard to case. A locale of UTF-8 has
 * the number of its language.
 *
 * @return the number; 0 for an unknown name and where the categories have different locales
 */
ZQXML_API int mbGetLocaleCodeSet(void);

/** @return the code set of a MIME charset, without regard to case; 0 for null and for an unknown one */
ZQXML_API int mbGetMIMECodeSet(const char *charset);

/** @return the MIME charset of a code set, a constant text; "iso-8859-1" for 0, 4, 5, 8, 10, 13 and unknown numbers */
ZQXML_API const char *mbGetMIMECharset(int codeSet);

/** @return the code set that mail is written in for texts of a code set; 0 for 0 to 2, 31 and up */
ZQXML_API int mbGetCodeSetForMail(int codeSet);

/**
 * Chooses between two code sets of data.
 *
 * @return `second` if the two are related: 4 and 5, 7 and 10, 8 and 9, 12 and 13, 17 and 24; otherwise `first`
 */
ZQXML_API int mbGetCodeSetForData(int first, int second);

/**
 * Finds the code page name of a locale, by the beginning of its name without regard to case.
 *
 * @param locale name of the locale; null and empty are "WESTERN"
 * @param target at least ZQ_CODE_PAGE_SIZE bytes; null does nothing
 * @return the target
 */
ZQXML_API char *SetCodePage(const char *locale, char *target);

/**
 * Finds the charset of a code set in _ConvToCharsetTable.
 *
 * @param target  at least ZQ_CHARSET_SIZE bytes; receives an empty text if there is none. Null does nothing
 * @param codeSet number of the code set
 */
ZQXML_API void SetCharset(char *target, int codeSet);

/**
 * Adds up the bytes of a text in the code set of the process locale. Deliberate: bytes above 127 count as negative.
 *
 * @param text a text in the native code set
 * @return the sum; 0 for a null or empty text; -1 if memory runs out, which may be a sum too
 */
ZQXML_API int AccumulateAsciiForStr(const char *text);

/**
 * Puts the Windows code page into a locale name for a Windows client, in place of an ISO one, or adds it. Deliberate:
 * a name without a code page gets that of the process locale, whatever language the name tells.
 *
 * @param name   name of a locale
 * @param target receives the new name; as long as the name and 8 bytes more. Null does nothing
 * @return the code page in the target, with the "@" part behind it; the terminator of the target if the name has no
 *         code page and gets none; the target for a null name
 */
ZQXML_API char *mbGetCorrectedLocaleForUnix(const char *name, char *target);

ZQXML_END_DECLS

#endif
