/**
 * @file
 * One name per operating system service that the support code uses. Each function is one call of the platform.
 */
#ifndef ZQXML_OS_H
#define ZQXML_OS_H

#include <pthread.h>

#include "zqxml/export.h"

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

ZQXML_END_DECLS

#endif
