/**
 * @file
 * Strings of the process's native code set, walked character by character, so that no character is cut in two and
 * nothing is found inside one.
 *
 * The native code set is chosen once for the process: by the first call of a function that needs it (InitMbutil), or
 * before that by the program (InitMbutilExt). Do so before threads start. The numbers of the code sets stand in
 * zqxml/codeset.h. A process is multi-byte if its code set is 3, 4, 5 or one of 7 to 13; in any other the functions
 * are those of the C library.
 *
 * Functions whose name ends in `Ext` or `type` and that take a code set use that one in place of the native one.
 *
 * Nothing here fails because of invalid bytes: each of them counts as a character of one byte. So does what is left of
 * a character that the end of the string cuts off; no function reads beyond the terminator. Indexes, counts and
 * lengths are in bytes. Bytes passed as `int` are taken modulo 256. A null string counts as an empty one where nothing
 * else is told. Source and target of a copy must not overlap.
 */
#ifndef ZQXML_MULTIBYTE_H
#define ZQXML_MULTIBYTE_H

#include <stdio.h>

#include "zqxml/export.h"

ZQXML_BEGIN_DECLS

/**
 * Sets the process locale from the environment (`setlocale(LC_ALL, "")`) and takes the native code set from its name,
 * without regard to case and to a leading "/": a name that begins with "ja" or "jpn" gives 4, "ko" 13, "zh_tw" 10,
 * "zh" 8, anything else 0; also where the locale is one of UTF-8.
 *
 * @return the native code set before the call
 */
ZQXML_API int InitMbutil(void);

/**
 * Sets the native code set, whatever the locale says. A later call switches it for the whole process.
 *
 * @param codeSet number of the code set; any number is taken
 * @return the native code set before the call
 */
ZQXML_API int InitMbutilExt(int codeSet);

/** @return 1 if the native code set is multi-byte, 0 if not */
ZQXML_API int mbIsMultiByte(void);

/** @return 1 if the native code set is one of Japanese (3, 4, 5), 0 if not */
ZQXML_API int mbIsJapanese(void);

/** @name Lengths of characters */
/** @{ */

/** @return 1 if a byte begins a character of several bytes in the native code set, 0 if not */
ZQXML_API int mb_isleadbyte(int byte);

/** As mb_isleadbyte(), in a code set. JIS (3) has no lead bytes. */
ZQXML_API int isleadbyteExt(int byte, int codeSet);

/** @return the length of the longest character of the native code set */
ZQXML_API int mbmaxcharlen(void);

/** @return the length of the longest character of a code set: 1 to 4 */
ZQXML_API int mbmaxcharlenExt(int codeSet);

/**
 * Measures and checks the first character of a text in the native code set.
 *
 * @param text  the text
 * @param count how many of its bytes may be looked at. With 1 only the first byte is tested, and the result is the
 *              length that it promises; bytes beyond the count are taken as fit
 * @return the length; 0 for a null or empty text and for a count below 1; -1 if the bytes are no character. In a code
 *         set other than 4, 5 and 7 to 13 always 1
 */
ZQXML_API int mb_mblen(const char *text, int count);

/** As mb_mblen(), in a code set. */
ZQXML_API int mblenExt(const char *text, int count, int codeSet);

/** @return the length of the first character of a text, 1 if it is invalid or the text is empty */
ZQXML_API int mbbytesinchar(const char *text);

/** As mbbytesinchar(), in a code set. */
ZQXML_API int mbbytesinchartype(const char *text, int codeSet);

/**
 * Moves an index down to the start of the character that it falls into.
 *
 * @param text  the text, walked from its start
 * @param index an index into it
 * @return the start of that character; the length of the text for an index behind its end. In a single-byte process
 *         the index as it is
 */
ZQXML_API int mbidx(const char *text, int index);

/** As mbidx(), in a code set. Before the native code set is chosen this function takes the process for multi-byte. */
ZQXML_API int mbidxtype(const char *text, int index, int codeSet);

/**
 * Steps to the next character.
 *
 * @param text  the text
 * @param index index of the start of a character, not behind the terminator
 * @return the index behind that character, which may be the terminator's; 0 at the terminator, for a null text and for
 *         a negative index
 */
ZQXML_API int mbnextidx(const char *text, int index);

/** As mbnextidx(). @return a pointer in place of the index, null in place of 0 */
ZQXML_API char *mbnextchar(const char *text, int index);

/**
 * Tells whether a byte is printable.
 *
 * @return below 128 and in a single-byte process what `isprint` says; otherwise whether the byte can begin a character;
 *         1 or 0
 */
ZQXML_API int ismbcprint(int byte);

/** @} */

/** @name Copy, compare, case */
/** @{ */

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

/** As mbstrncpy(). @return the bytes copied, without the zeros behind them; 0 for a null target or source */
ZQXML_API int mbstrncpyi(char *target, const char *source, int count);

/**
 * Compares two texts without regard to the case of one-byte characters. Deliberate: of two characters the longer one
 * is the greater, whatever its bytes.
 *
 * @return -1, 0 or 1; 0 if one of them is null
 */
ZQXML_API int mbstricmp(const char *left, const char *right);

/**
 * Compares as mbstricmp() does, up to a count, except that characters of several bytes are compared by their bytes
 * alone. A character that crosses the count is compared whole.
 *
 * @return below, equal to or above 0; 0 if one text is null or the count is below 1
 */
ZQXML_API int mbstrnicmp(const char *left, const char *right, int count);

/**
 * Compares as mbstricmp() does, with regard to case, until at least `count` bytes are passed. Deliberate: in a
 * single-byte process only the first byte is compared, whatever the count.
 *
 * @return -1, 0 or 1; 0 if one text is null
 */
ZQXML_API int mbcharcmp(const char *left, const char *right, int count);

/** Puts the first character of a text in upper case, if it is one byte. @return its length; 0 for null */
ZQXML_API int mbtoupper(char *text);

/** Puts the first character of a text in lower case, if it is one byte. @return its length; 0 for null */
ZQXML_API int mbtolower(char *text);

/** Puts the one-byte characters of a text in upper case. @return the length of the text; 0 for null */
ZQXML_API int mbstrtoupper(char *text);

/** Puts the one-byte characters of a text in lower case. @return the length of the text; 0 for null */
ZQXML_API int mbstrtolower(char *text);

/** @} */

/** @name Search */
/** @{ */

/**
 * Finds the first character that begins with a byte.
 *
 * @return a pointer to it, or null. For a byte of 0 the terminator in a single-byte process, null in a multi-byte one
 */
ZQXML_API char *mbstrchr(const char *text, int c);

/** The same as mbstrchr(). */
ZQXML_API char *mbstrchrEncr(const char *text, int c);

/** As mbstrchr(), for the last such character. */
ZQXML_API char *mbstrrchr(const char *text, int c);

/**
 * Finds a text in another, where a match begins and ends between characters.
 *
 * @return the first match, or null; null for a null haystack; the haystack for a null needle. An empty needle is found
 *         at once in a single-byte process, and not at all in a multi-byte one
 */
ZQXML_API char *mbstrstr(const char *haystack, const char *needle);

/** As mbstrstr(), for the last match. An empty needle is never found. */
ZQXML_API char *mbstrrstr(const char *haystack, const char *needle);

/** Finds the first character that is one of a set. @return a pointer to it, or null */
ZQXML_API char *mbstrpbrk(const char *text, const char *set);

/** @return how many bytes of the text stand before the first character of a set */
ZQXML_API int mbstrcspn(const char *text, const char *set);

/**
 * Takes the next token of a text, which is changed. In a single-byte process this is `strtok`, except that a null
 * text at the very first call gives null.
 *
 * In a multi-byte process it differs from `strtok`: at the start of each call one delimiter is skipped, but no more, so
 * that "a,,b" gives "a" and "b", "a,,,b" gives "a", "" and "b", and "," gives one empty token.
 *
 * @param text       the text, or null to go on where the last call ended
 * @param delimiters the set of characters that end a token
 * @return the token, or null if there is none left
 */
ZQXML_API char *mbstrtok(char *text, const char *delimiters);

/**
 * As mbstrtok(), with the position in a variable of the caller. Deliberate: in a single-byte process it uses the
 * position inside `strtok` all the same and leaves the variable alone.
 *
 * @param text       as for mbstrtok()
 * @param delimiters as for mbstrtok()
 * @param position   where the next call goes on; null behind the last token
 */
ZQXML_API char *mbstrtok_r(char *text, const char *delimiters, char **position);

/** @} */

/** @name Streams and conversion */
/** @{ */

/**
 * Reads a line as `fgets` does, and in a multi-byte process converts it to the native code set. What doesn't fit is
 * lost, but no character is cut; the rest of the buffer is zeroed.
 *
 * @param buffer  receives the line
 * @param size    its size in bytes; below 1 nothing is read
 * @param stream  the stream
 * @param codeSet code set of the stream; 0 converts nothing
 * @return the buffer, or null: end of the file, a failure, or no memory
 */
ZQXML_API char *mbfgets(char *buffer, int size, FILE *stream, int codeSet);

/**
 * Writes a text as `fputs` does, and in a multi-byte process converts it from the native code set.
 *
 * @param text    the text; null writes nothing
 * @param stream  the stream
 * @param codeSet code set of the stream; 0 converts nothing
 * @return 0 or more; -1 for a failure or if memory runs out
 */
ZQXML_API int mbfputs(const char *text, FILE *stream, int codeSet);

/** As mbfreadstringtype(), in the native code set. */
ZQXML_API int mbfreadstring(char *buffer, int count, FILE *stream);

/**
 * Reads bytes as `fread` does. In a multi-byte process they are ended by a zero, and a character that they would end
 * inside of is left in the stream, which has to be one that can seek; from one that can't it is delivered in parts.
 *
 * @param buffer  one byte more than the count
 * @param count   bytes to read. If it is less than the length of the next character the result is 0
 * @param stream  the stream
 * @param codeSet code set of the stream
 * @return bytes delivered
 */
ZQXML_API int mbfreadstringtype(char *buffer, int count, FILE *stream, int codeSet);

/**
 * Converts a file to the native code set, in blocks of 21,000 bytes. A zero byte cuts its block, and JIS begins each
 * block in the mode of one byte.
 *
 * @param source  name of the file
 * @param target  name of the file to write
 * @param append  0 writes the target anew, otherwise it is continued
 * @param codeSet code set of the source. IsConversionSupport() tells from which ones a file can be converted
 * @return 1, or 0: no such conversion (then no file is opened), a failure, no memory, or a character across two blocks of
 *         a source that can't seek
 */
ZQXML_API int mbconvertfile2native_ex(const char *source, const char *target, int append, int codeSet);

/**
 * Converts a text from the native code set, see convertStrExt().
 *
 * @return 1, or 0 for a null argument
 */
ZQXML_API int mbconvertnativestring(char *target, const char *source, int codeSet);

/**
 * Converts a text. It is copied if the two code sets are the same or there is no converter for them; there are those
 * of 3 to 4 and 5, 4 and 5 to each other and to 3, 9 and 10, 14 and 23, 17 and 24 to each other (zqxml/convert.h).
 *
 * @param source      the text; null writes nothing
 * @param fromCodeSet its code set
 * @param target      receives the converted text. Three times the length of the source and one byte more are enough,
 *                    but 5 times its length and 9 bytes more for conversion to JIS (3). Null does nothing
 * @param toCodeSet   code set of the target
 * @return the target
 */
ZQXML_API char *convertStrExt(const char *source, int fromCodeSet, char *target, int toCodeSet);

/**
 * Converts a text from EUC to Shift-JIS if the native code set is one of the two, otherwise copies it. Deliberate: also
 * if the native code set, and so perhaps the text, is Shift-JIS already.
 *
 * @param source the text
 * @param target as for convertStrExt()
 * @return the target; null for a null argument
 */
ZQXML_API char *UnixCodingToWindowsCodingExt(const char *source, char *target);

/** As UnixCodingToWindowsCodingExt(), from Shift-JIS to EUC. */
ZQXML_API char *WindowsCodingToUnixCodingExt(const char *source, char *target);

/** @return the longer of a text's lengths in the code set of Unix (4, 10) and of Windows (5, 9); 0 for null */
ZQXML_API int MaxStringLengthOnWinAndUnix(const char *text);

/** @return 1 for the pairs that files are converted between: 5 and 4, 9 and 10 in both directions, 3 to 4 and 5; else 0 */
ZQXML_API int IsConversionSupport(int fromCodeSet, int toCodeSet);

/** @return 1 if both code sets write Japanese (3 to 5), Chinese (7 to 10) or Korean (11 to 13), otherwise 0 */
ZQXML_API int sameLanguage(int first, int second);

/** @} */

/** @name Validity */
/** @{ */

#define MBUTIL_PATTERN_PRINTABLE 104 /**< pattern type: characters of one byte are printable or white space */
#define MBUTIL_PATTERN_NO_LOWER 105  /**< pattern type: no lower case letters */
#define MBUTIL_PATTERN_NO_UPPER 106  /**< pattern type: no upper case letters */

/**
 * Checks the first character of a text.
 *
 * @param text    the text
 * @param length  receives the length that the first byte promises, -1 if it can't begin a character, 0 for an empty
 *                text; may be null
 * @param codeSet code set of the text
 * @return 1 if it is valid, as an empty text is; 0 if not
 */
ZQXML_API int mbvalidchar(const char *text, int *length, int codeSet);

/**
 * As mbvalidchar(), and a character of one byte has to fit a pattern, by the classes of 7-bit ASCII whatever the locale.
 * The zero byte of an empty text counts as such a character.
 *
 * @param text    the text
 * @param length  as for mbvalidchar()
 * @param codeSet code set of the text
 * @param type    one of the `MBUTIL_PATTERN` numbers; all others ask nothing
 * @return 1 or 0
 */
ZQXML_API int mbvalidchartype(const char *text, int *length, int codeSet, int type);

/**
 * Checks all characters of a text.
 *
 * @param text    the text; null is invalid
 * @param index   receives the index of the first invalid character, if there is one; null gives 0
 * @param codeSet code set of the text
 * @return 1 if it is valid, 0 if not. Deliberate: in a single-byte process 1, whatever the arguments
 */
ZQXML_API int mbvalidatestring(const char *text, int *index, int codeSet);

/** As mbvalidatestring(), in the native code set and with a pattern type; checked in a single-byte process too. */
ZQXML_API int mbvalidatestringtype(const char *text, int *index, int type);

/** @} */

ZQXML_END_DECLS

#endif
