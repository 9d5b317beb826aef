#include "xml/XMLPlatform.h"

#include <atomic>
#include <cstddef>
#include <new>
#include <xercesc/util/PanicHandler.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/XMLUni.hpp>

#include "xml/ApiFrame.h"
#include "xml/ZQXMLException.h"
#include "zqxml/os.h"
#include "zqxml/parser.h"
#include "zqxml/status.h"

namespace {

constexpr unsigned kError = 2;

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

// Where the XML parser finds no way on it would end the process.
class ThrowingPanicHandler : public xercesc::PanicHandler {
 public:
  void panic(PanicReasons reason) override {
    throw ZQXMLException(ZQ_MESSAGE_XML_START_UP, getPanicReasonString(reason));
  }
};
ThrowingPanicHandler panicHandler;

// More than the start takes.
constexpr size_t kStartMemory = size_t{512} * 1024;

// A start that fails halfway can be neither gone on with nor undone: nothing of the XML parser may
// be touched any more.
bool isHalfStarted = false;

void startPlatform() {
  // Where memory is short it shall fail here, so that the next call can try again.
  ::operator delete(::operator new(kStartMemory));
  isHalfStarted = true;
  xercesc::XMLPlatformUtils::Initialize(xercesc::XMLUni::fgXercescDefaultLocale, nullptr,
                                        &panicHandler);
  isHalfStarted = false;
}

}  // namespace

int ensureXMLPlatform(ZQStatusList* status) {
  if (platformXMLInitialized.load(std::memory_order_acquire) == 1) {
    return 0;
  }
  OSEnterCriticalSection(&platformXMLInitializationLock);
  int result = 0;
  if (isHalfStarted) {
    result = ZQAddErrorMessage(status, kError, ZQ_MESSAGE_XML_START_UP, "");
  } else if (platformXMLInitialized.load(std::memory_order_relaxed) != 1) {
    result = guardedEntry(status, ZQ_MESSAGE_XML_START_UP, [] {
      startPlatform();
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
