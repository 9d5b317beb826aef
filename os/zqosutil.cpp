// One name per operating system service, so that the other sources don't depend on the thread library by name.

#include "zqxml/os.h"

int OSInitializeCriticalSection(OSCriticalSection* section) {
  return pthread_mutex_init(section, nullptr);
}

int OSEnterCriticalSection(OSCriticalSection* section) { return pthread_mutex_lock(section); }

int OSLeaveCriticalSection(OSCriticalSection* section) { return pthread_mutex_unlock(section); }

int OSDeleteCriticalSection(OSCriticalSection* section) { return pthread_mutex_destroy(section); }
