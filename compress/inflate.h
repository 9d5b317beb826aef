// What the entries of a huft table mean.
#ifndef ZQXML_COMPRESS_INFLATE_H
#define ZQXML_COMPRESS_INFLATE_H

// Values of `extra`. Below kHuftEndOfBlock it is the number of extra bits of a length or distance;
// above kHuftLiteral it is a link, and the number of index bits of the table there is what it has
// more.
constexpr unsigned char kHuftEndOfBlock = 15;
constexpr unsigned char kHuftLiteral = 16;
constexpr unsigned char kHuftInvalid = 99;

#endif
