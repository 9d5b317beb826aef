/**
 * @file
 * Base64 (RFC 2045), quoted-printable and the encoded words of mail subjects (RFC 2047).
 *
 * Texts are zero-terminated. The functions with a target return it, write nothing to it if the target or the text is
 * null, and need it apart from the text unless told otherwise. A code set is a number of zqxml/codeset.h.
 *
 * The functions of Base64 and quoted-printable and convertSubjectToBase64() work on their arguments alone and may be
 * called by any thread; convertSubjectForMail() and getLine() also read the native code set (zqxml/multibyte.h).
 */
#ifndef ZQXML_BASE64_H
#define ZQXML_BASE64_H

#include <stdio.h>

#include "zqxml/export.h"
#include "zqxml/messages.h"

ZQXML_BEGIN_DECLS

/** How many bytes a line of Base64 holds at most; they make 76 characters. */
#define ZQ_BASE64_LINE_BYTES 57

/** @name Base64 */
/** @{ */

/**
 * Encodes bytes as lines of at most 76 characters. A new line character stands behind each, the last one included.
 *
 * @param input  the bytes; null is the same as a length of 0, which gives an empty text
 * @param length their number
 * @param text   receives a heap block with the text, which the caller frees; null after a failure. A null address skips
 *               the work
 * @return 0, or 300 if memory runs out
 */
ZQXML_API int EncodeBase64(const void *input, unsigned length, char **text);

/**
 * Encodes bytes as one line.
 *
 * @param input   the bytes; null is the same as a length of 0
 * @param length  their number, at most ZQ_BASE64_LINE_BYTES
 * @param lineEnd copied behind the characters, also if there are none; null is the same as an empty text
 * @param target  receives the line: 76 bytes, the length of the line end, and one more; null does nothing
 * @return 0; 8936 for a longer length, and then the target is empty
 */
ZQXML_API int EncodeBase64Line(const void *input, unsigned length, const char *lineEnd, char *target);

/**
 * Decodes Base64. Everything but its 64 characters is skipped, wherever it stands: line ends, padding, bytes above 127.
 * At the end two characters make one byte and three make two; a single one makes none. The text isn't tested in any
 * other way.
 *
 * @param text   the text; null is the same as an empty one, which gives a length of 0
 * @param bytes  receives a heap block, also for a length of 0, which the caller frees; null after a failure. No zero
 *               stands behind the bytes. A null address skips it
 * @param length receives the number of bytes, 0 after a failure; a null address skips it
 * @return 0; 300 if memory runs out, or for 4 GiB and more
 */
ZQXML_API int DecodeBase64(const char *text, unsigned char **bytes, unsigned *length);

/** @} */

/** @name Quoted-printable */
/** @{ */

/**
 * Encodes a text. Blanks, tabs, line ends, "=" and everything outside ASCII become "=" and two hexadecimal digits, in
 * upper case. As soon as more than 49 characters stand in a line, be it at the end of the text, a soft line break
 * follows: "=", carriage return, new line. Deliberate: "?" and "_" stay, which mean something else in encoded words.
 *
 * @param target four times the length of the text, and one byte more
 * @param text   the text
 * @return the target
 */
ZQXML_API char *convertToQuotedPrintable(char *target, const char *text);

/**
 * Decodes the first line of a text, up to a carriage return or a new line. An "=" at its end is dropped. What stands
 * behind an "=" without being two hexadecimal digits of either case passes without the "=": "=zz" gives "zz", "=4z"
 * gives "4z". Otherwise bytes above 126 and control characters other than tabs are dropped.
 *
 * @param target the length of the line and one byte more; may be the line itself. "=00" puts a zero byte into it
 * @param line   the line
 * @return the target
 */
ZQXML_API char *convertFromQuotedPrintable(char *target, const char *line);

/** @} */

/** @name Mail */
/** @{ */

/**
 * Writes a subject in JIS as encoded words in Base64. What stands before the first ESC is copied, so a text without
 * one stays as it is. A word ends before an ESC and when it has 71 characters; the words are joined by a new line, a
 * blank and a tab. One that ended for its length is continued by a word that begins with its first group of four
 * characters again, which is the escape sequence. Deliberate: a character may be cut in two by that.
 *
 * @param target  for each byte of the text 18 bytes and the length of the charset; 8 bytes and the length of the
 *                charset more
 * @param text    the text in JIS
 * @param charset MIME name of its charset; null writes nothing
 * @return the target
 */
ZQXML_API char *convertSubjectToBase64(char *target, const char *text, const char *charset);

/**
 * Writes a subject for the head of a mail, in the charset that mbGetMIMECharset() has for a code set of mail.
 *
 * In JIS (3) the text is cut to pieces of at most 20 bytes, between characters of the native code set, also if it is
 * plain ASCII; each is converted and written by convertSubjectToBase64(). In any other code set the text is converted
 * and written as encoded words in quoted-printable, also if it is plain ASCII, with a word for each line of
 * convertToQuotedPrintable(). Pieces and words are joined by a new line, a blank and a tab.
 *
 * @param target      48 times the length of the text, and 64 bytes more. It is empty if memory runs out
 * @param text        the text; an empty one gives an empty one
 * @param mailCodeSet code set of the mail, see mbGetCodeSetForMail()
 * @param codeSet     code set of the text
 * @return the target
 */
ZQXML_API char *convertSubjectForMail(char *target, const char *text, int mailCodeSet, int codeSet);

/** Transfer kind of getLine(): quoted-printable. */
#define ZQ_TRANSFER_QUOTED_PRINTABLE 3

/** Transfer kind of getLine(): lines that aren't read. */
#define ZQ_TRANSFER_UNREAD 4

/**
 * Reads a line as `fgets` does and converts it. What doesn't fit then is lost, but no character of the native code set
 * is cut.
 *
 * In quoted-printable the lines that soft breaks continue are decoded and joined, and get a new line at the end, be it
 * the end of the stream. A line that is longer than the buffer counts as several.
 *
 * @param buffer        receives the line; what is left of it is zeroed
 * @param size          its size in bytes; below 2 nothing is read
 * @param stream        the stream
 * @param codeSet       code set of the stream
 * @param transferKind  ZQ_TRANSFER_QUOTED_PRINTABLE; ZQ_TRANSFER_UNREAD gives the buffer as it is and reads nothing;
 *                      any other number reads plain lines
 * @param targetCodeSet code set of the result, see convertStrExt()
 * @return the buffer, or null: end of the stream, a failure, no memory, a null argument
 */
ZQXML_API char *getLine(char *buffer, int size, FILE *stream, int codeSet, int transferKind, int targetCodeSet);

/** @return the transfer encoding of a mail in a code set, a constant text: "7bit" for JIS (3), otherwise "8bit" */
ZQXML_API const char *getTransferEncodingFromCodeSet(int codeSet);

/** @} */

ZQXML_END_DECLS

#endif
