/**
 * @file
 * Converters: Japanese between Shift-JIS, EUC and JIS, Traditional Chinese between Big5 and EUC_H, Cyrillic and Latin-2
 * between ISO and Windows, full-width digits to ASCII.
 *
 * The functions whose name ends in `x` have one pattern: (source, target). They convert a zero-terminated text, which
 * can't overlap the target, and return the target; with a null argument they write nothing. The target needs three
 * times the length of the source and one byte more, but five times the length and 9 bytes more for the two to JIS.
 * Nothing fails: bytes that are no character of the source code set are passed on or become "??", as told at each. A
 * character that the end of the text cuts off is invalid. All but ConvertMBNumberToSBNumber() work on their arguments
 * alone and may be called by any thread.
 */
#ifndef ZQXML_CONVERT_H
#define ZQXML_CONVERT_H

#include <stdio.h>

#include "zqxml/export.h"

ZQXML_BEGIN_DECLS

/** @name Japanese */
/** @{ */

/** Turns a character of Shift-JIS into row and cell of JIS (0x21 to 0x7E), in place; modulo 256 for other bytes. */
ZQXML_API void sjis2jis(unsigned char *first, unsigned char *second);

/** Turns row and cell of JIS into a character of Shift-JIS, in place; modulo 256 for bytes out of range. */
ZQXML_API void jis2sjis(unsigned char *first, unsigned char *second);

/**
 * Turns half-width katakana into a full-width character of Shift-JIS, joining a voicing mark that follows.
 *
 * @param source address of a pointer to what follows the half-width character; moved behind a mark that is joined. Not
 *               used if `kind` asks for no marks
 * @param first  the half-width byte, 0xA1 to 0xDF, on entry; receives the first byte. Any other byte is left alone
 * @param second receives the second byte
 * @param kind   5 if marks follow as in Shift-JIS, 4 as in EUC, behind 0x8E; any other number joins none
 */
ZQXML_API void han2zen(unsigned char **source, unsigned char *first, unsigned char *second, int kind);

/**
 * Follows an escape sequence of JIS.
 *
 * @param source      address of a pointer behind the byte that follows ESC; moved over a third byte of the sequence
 * @param byte        the byte that follows ESC
 * @param twoByteMode set to 1 behind "$" and "K", otherwise to 0
 * @return 1 if the mode has changed, 0 if not
 */
ZQXML_API int SkipESCSeq(unsigned char **source, int byte, int *twoByteMode);

/** @return the length that a text in Shift-JIS has in EUC; 0 for null */
ZQXML_API int eucLength(const char *text);

/** @return the length that a text in EUC has in Shift-JIS; 0 for null */
ZQXML_API int shiftLength(const char *text);

/** @return the length that the first byte of a text in EUC promises; 0 for null or empty, -1 for an invalid byte */
ZQXML_API int bytesInEucChar(const char *text);

/** @return the length that the first byte of a text in Shift-JIS promises; 0 for null or empty, -1 for an invalid byte */
ZQXML_API int bytesInShiftChar(const char *text);

/** Shift-JIS to EUC. Half-width katakana become two bytes. Invalid bytes pass. */
ZQXML_API char *shift2eucx(const char *source, char *target);

/** EUC to Shift-JIS. Characters of three bytes (0x8F), which Shift-JIS lacks, and invalid bytes pass. */
ZQXML_API char *euc2shiftx(const char *source, char *target);

/** Shift-JIS to JIS. Half-width katakana become full-width, each by itself. Invalid bytes pass. */
ZQXML_API char *shift2jisx(const char *source, char *target);

/** EUC to JIS. Half-width katakana become full-width, each by itself. Three-byte characters and invalid bytes pass. */
ZQXML_API char *euc2jisx(const char *source, char *target);

/** JIS to Shift-JIS. ESC "$" and ESC "K" begin characters of two bytes; any other sequence and a line end end them. */
ZQXML_API char *jis2shiftx(const char *source, char *target);

/** JIS to EUC, as jis2shiftx(). */
ZQXML_API char *jis2eucx(const char *source, char *target);

/**
 * Finds out which Japanese code a stream is in, from where it stands until that is clear.
 *
 * @return 3 JIS, 4 EUC, 5 Shift-JIS; at the end of the stream 6 if it is EUC or Shift-JIS, 0 if it has neither
 */
ZQXML_API int DetectJPCodeType(FILE *stream);

/** @} */

/** @name Traditional Chinese */
/** @{ */

/** @return the place of a character in Big5, from 0, 157 to a lead byte; -1 if the two bytes are none */
ZQXML_API int Big5Order(const unsigned char *character);

/** @return the place of a character in a plane of CNS 11643, from 0, 94 to a row; -1 if the two bytes are none */
ZQXML_API int CnsOrder(const unsigned char *character);

/** Writes the two bytes of a place in Big5, without a terminator. The place isn't tested. */
ZQXML_API void Big5Code(int order, unsigned char *target);

/** Writes the two bytes of a place in a plane of CNS 11643, without a terminator. The place isn't tested. */
ZQXML_API void CnsCode(int order, unsigned char *target);

/**
 * Converts a character of Big5 to one of CNS 11643. Deliberate: the plane, 1 or 2, isn't told; and of each run of
 * characters that are consecutive in both code sets the last has no counterpart.
 *
 * @param big5   the two bytes
 * @param target receives two bytes, without a terminator
 * @return 0, or -1 if there is no counterpart: then the target is left alone
 */
ZQXML_API int Big5ToCnsCodeConvert(const unsigned char *big5, unsigned char *target);

/** Big5 to EUC_H. What has no counterpart (see Big5ToCnsCodeConvert()) and invalid characters become "??". */
ZQXML_API char *big2euchx(const char *source, char *target);

/** EUC_H to Big5. What has no counterpart becomes "??"; bytes that lead no character pass. */
ZQXML_API char *euch2bigx(const char *source, char *target);

/** @return the length that a text in EUC_H has in Big5; 0 for null */
ZQXML_API int big5Length(const char *text);

/** @return the length that a text in Big5 has in EUC_H; 0 for null */
ZQXML_API int euchLength(const char *text);

/** @} */

/** @name Code pages of one byte
 *
 * A Windows character that the ISO code set lacks becomes a control code from 1 on, and comes back from it. Deliberate:
 * control codes of an ISO text, among them tab and line ends, become Windows characters too.
 */
/** @{ */

/** iso-8859-5 to windows-1251; codes 1 to 14 carry Windows characters. */
ZQXML_API char *c8859_5To1251x(const char *source, char *target);

/** windows-1251 to iso-8859-5. */
ZQXML_API char *c1251To8859_5x(const char *source, char *target);

/** iso-8859-2 to windows-1250; codes 1 to 10 carry Windows characters. */
ZQXML_API char *c8859_2To1250x(const char *source, char *target);

/** windows-1250 to iso-8859-2. */
ZQXML_API char *c1250To8859_2x(const char *source, char *target);

/** @} */

/**
 * Puts ASCII in the place of full-width digits and of signs that numbers, dates and times have, in a text of the native
 * code set. Code sets 4, 5, 7, 9, 10 and 12 have such; in any other the text is copied.
 *
 * @param source the text; null writes nothing
 * @param target receives the text, at most as long as the source; null does nothing
 * @return 0
 */
ZQXML_API int ConvertMBNumberToSBNumber(const char *source, char *target);

ZQXML_END_DECLS

#endif
