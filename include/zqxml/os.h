/**
 * @file
 * One name per operating system service that the support code uses. Each function is one call of the platform, and
 * pointers go to it as they are: none may be null where that isn't told.
 */
#ifndef ZQXML_OS_H
#define ZQXML_OS_H

#include <netdb.h>
#include <pthread.h>
#include <time.h>

#include "zqxml/export.h"
#include "zqxml/records.h"

ZQXML_BEGIN_DECLS

/** A critical section: a plain mutex of the platform. */
typedef pthread_mutex_t OSCriticalSection;

/** Makes a critical section with the default attributes. @return the result of `pthread_mutex_init`, 0 for success */
ZQXML_API int OSInitializeCriticalSection(OSCriticalSection *section);

/** Waits for a critical section and enters it. @return the result of `pthread_mutex_lock`, 0 for success */
ZQXML_API int OSEnterCriticalSection(OSCriticalSection *section);

/** Leaves a critical section. @return the result of `pthread_mutex_unlock`, 0 for success */
ZQXML_API int OSLeaveCriticalSection(OSCriticalSection *section);

/** Deletes a critical section that nobody is in. @return the result of `pthread_mutex_destroy`, 0 for success */
ZQXML_API int OSDeleteCriticalSection(OSCriticalSection *section);

/** A key of thread-local storage: each thread has its own value, null at first. A key of the platform. */
typedef pthread_key_t OSTLSKey;

/** Makes a key; values that are left when a thread ends are not freed. @return that of `pthread_key_create`, 0 for success */
ZQXML_API int OSTLSAlloc(OSTLSKey *key);

/** @return the value of the calling thread, null if it has set none */
ZQXML_API void *OSTLSGetValue(OSTLSKey key);

/** Sets the value of the calling thread. @return the result of `pthread_setspecific`, 0 for success */
ZQXML_API int OSTLSSetValue(OSTLSKey key, const void *value);

/** Deletes a key. @return the result of `pthread_key_delete`, 0 for success */
ZQXML_API int OSTLSFree(OSTLSKey key);

/**
 * Looks up a host by its name, with `gethostbyname`. Deliberate: that call keeps its results in static storage, so the
 * pointers in the record are good until the next call, and threads must not call it at once.
 *
 * @param name   name of the host; null is not found
 * @param result receives the record; null for none
 * @param buffer not used
 * @param size   not used
 * @param error  receives `h_errno` if the call fails; null for none
 * @return `result`, or null if the call fails
 */
ZQXML_API struct hostent *OSGetHostByName(const char *name, struct hostent *result, char *buffer, int size, int *error);

/**
 * Looks up a host by its address, with `gethostbyaddr_r`.
 *
 * @param address the address in network order
 * @param length  its length in bytes
 * @param type    its family, such as `AF_INET`
 * @param result  receives the record
 * @param buffer  receives what the record points to
 * @param size    size of the buffer in bytes
 * @param error   receives the `h_errno` value if the call fails; null for none
 * @return `result`, or null if the call fails or another pointer is null
 */
ZQXML_API struct hostent *OSGetHostByAddr(const void *address, int length, int type, struct hostent *result,
                                          char *buffer, int size, int *error);

/** Breaks a time down for the local time zone. @return the result of `localtime_r`: `result`, or null for a failure */
ZQXML_API struct tm *OSLocalTime(const time_t *time, struct tm *result);

/** Tells the time since the epoch; a null `time` is skipped. @return the result of `gettimeofday`, 0 for success */
ZQXML_API int OSGetStatsTime(OSStatsTime *time);

ZQXML_END_DECLS

#endif
