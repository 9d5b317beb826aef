#include "xml/XMLPlatform.h"

#include <atomic>
#include <xercesc/util/PlatformUtils.hpp>

#include "xml/ApiFrame.h"
#include "zqxml/os.h"
#include "zqxml/parser.h"

namespace {

// Tested without the lock first, so that all calls but the first ones cost one read.
std::atomic<unsigned char> platformXMLInitialized;
OSCriticalSection platformXMLInitializationLock;

class ZQXMLStaticInitializer {
 public:
  ZQXMLStaticInitializer() {
    OSInitializeCriticalSection(&platformXMLInitializationLock);
    platformXMLInitialized = 0;
  }
  ~ZQXMLStaticInitializer() { OSDeleteCriticalSection(&platformXMLInitializationLock); }
};
const ZQXMLStaticInitializer staticInitializer;

}  // namespace

int ensureXMLPlatform(ZQStatusList* status) {
  if (platformXMLInitialized.load(std::memory_order_acquire) == 1) {
    return 0;
  }
  OSEnterCriticalSection(&platformXMLInitializationLock);
  int result = 0;
  if (platformXMLInitialized.load(std::memory_order_relaxed) != 1) {
    result = guardedEntry(status, ZQ_MESSAGE_XML_START_UP, [] {
      xercesc::XMLPlatformUtils::Initialize();
      platformXMLInitialized.store(1, std::memory_order_release);
      return 0;
    });
  }
  OSLeaveCriticalSection(&platformXMLInitializationLock);
  return result;
}

int InitXMLParser(ZQStatusList* status) {
  return ensureXMLPlatform(status);
}
