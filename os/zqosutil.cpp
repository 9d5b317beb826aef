// One name per operating system service, so that the other sources don't depend on the thread
// library by name.

#include "zqxml/os.h"

#include <sys/time.h>

int OSInitializeCriticalSection(OSCriticalSection* section) {
  return pthread_mutex_init(section, nullptr);
}

int OSEnterCriticalSection(OSCriticalSection* section) {
  return pthread_mutex_lock(section);
}

int OSLeaveCriticalSection(OSCriticalSection* section) {
  return pthread_mutex_unlock(section);
}

int OSDeleteCriticalSection(OSCriticalSection* section) {
  return pthread_mutex_destroy(section);
}

int OSTLSAlloc(OSTLSKey* key) {
  return pthread_key_create(key, nullptr);
}

void* OSTLSGetValue(OSTLSKey key) {
  return pthread_getspecific(key);
}

int OSTLSSetValue(OSTLSKey key, const void* value) {
  return pthread_setspecific(key, value);
}

int OSTLSFree(OSTLSKey key) {
  return pthread_key_delete(key);
}

// Deliberate: by the call with static results; the buffer that other systems need is not used.
struct hostent* OSGetHostByName(const char* name, struct hostent* result, char* /*buffer*/,
                                int /*size*/, int* error) {
  const struct hostent* host = name == nullptr ? nullptr : gethostbyname(name);
  if (host == nullptr) {
    if (error != nullptr) {
      *error = name == nullptr ? HOST_NOT_FOUND : h_errno;
    }
    return nullptr;
  }
  if (result != nullptr) {
    *result = *host;
  }
  return result;
}

struct hostent* OSGetHostByAddr(const void* address, int length, int type, struct hostent* result,
                                char* buffer, int size, int* error) {
  if (address == nullptr || result == nullptr || buffer == nullptr || length < 0 || size < 0) {
    return nullptr;
  }
  struct hostent* host = nullptr;
  int ignored;
  gethostbyaddr_r(address, static_cast<socklen_t>(length), type, result, buffer,
                  static_cast<size_t>(size), &host, error == nullptr ? &ignored : error);
  return host;
}

struct tm* OSLocalTime(const time_t* time, struct tm* result) {
  return localtime_r(time, result);
}

int OSGetStatsTime(OSStatsTime* time) {
  struct timeval now;
  const int result = gettimeofday(&now, nullptr);
  if (time != nullptr) {
    time->seconds = now.tv_sec;
    time->microseconds = now.tv_usec;
  }
  return result;
}
