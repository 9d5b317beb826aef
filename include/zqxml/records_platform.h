/**
 * @file
 * The records of streams and of the operating system.
 * Include zqxml/records.h.
 */
#ifndef ZQXML_RECORDS_PLATFORM_H
#define ZQXML_RECORDS_PLATFORM_H

#include <stdint.h>

/** An open stream. Its members belong to the stream functions alone. */
typedef struct ZQFILE {
    uint32_t magic;                /**< 0xDEADBEEF while open, 0 after close */
    int count;                     /**< bytes of the buffer that are unread */
    unsigned char pushBackRoom[4]; /**< room for bytes pushed back, directly ahead of the buffer */
    unsigned char buffer[4096];    /**< read buffer */
    unsigned char *nextByte;       /**< next byte to deliver; not owned */
    long position;                 /**< file position of the next byte */
    int fd;                        /**< the descriptor */
    unsigned char appendMode;      /**< whether the mode holds "a" */
    unsigned char eofFlag;         /**< whether the end of the file was met */
    int errorNumber;               /**< last `errno`, 0 for none */
} ZQFILE;

/** A time of the statistics clock. */
typedef struct OSStatsTime {
    long seconds;      /**< whole seconds */
    long microseconds; /**< and microseconds */
} OSStatsTime;

#endif
