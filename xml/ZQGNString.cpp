#include "xml/ZQGNString.h"

#include <unistd.h>

#include <climits>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <memory>
#include <utility>

#include "xml/ZQXMLException.h"
#include "zqxml/messages.h"
#include "zqxml/stream.h"

namespace {

// Below 2 GiB also with the room of a block.
constexpr size_t kMaxLength = INT_MAX / 2;

thread_local uint64_t bytesRead = 0;

}  // namespace

uint64_t textBytesRead() {
  return bytesRead;
}

ZQGNString::ZQGNString(const ZQGNString& other) : ZQGNString(other.blockSize) {
  AppendBlocks(other);
}

ZQGNString& ZQGNString::operator=(const ZQGNString& other) {
  if (this != &other) {
    ZQGNString copy(blockSize);
    copy.AppendBlocks(other);
    std::swap(dataBuffers, copy.dataBuffers);
    std::swap(numDataBuffers, copy.numDataBuffers);
    std::swap(currentBuffer, copy.currentBuffer);
    std::swap(textLength, copy.textLength);
  }
  return *this;
}

ZQGNString::~ZQGNString() {
  for (int i = 0; i < numDataBuffers; ++i) {
    free(dataBuffers[i].data);
  }
  free(dataBuffers);
}

ZQGNString& ZQGNString::operator=(const char* text) {
  AddString(text, true);
  return *this;
}

ZQGNString& ZQGNString::operator+=(const char* text) {
  AddString(text, false);
  return *this;
}

// What lies behind the text of a block is zero at all times, so only the text is cleared: emptying
// costs no more than filling did, also after a long text.
void ZQGNString::Empty() {
  for (int i = 0; i < numDataBuffers && dataBuffers[i].length > 0; ++i) {
    DataBuffer& block = dataBuffers[i];
    memset(block.data, 0, static_cast<size_t>(block.length));
    block.length = 0;
  }
  currentBuffer = 0;
  textLength = 0;
}

bool ZQGNString::IsEmpty() const {
  return dataBuffers == nullptr || dataBuffers[0].length == 0;
}

ZQGNString::operator char*() {
  static char empty[] = "";
  if (dataBuffers == nullptr) {
    return empty;
  }
  CompactBuffers();
  bytesRead += static_cast<uint64_t>(textLength);
  return dataBuffers[0].data != nullptr ? dataBuffers[0].data : empty;
}

int ZQGNString::DetachStrReference(char** text) {
  if (text == nullptr) {
    return 0;
  }
  if (dataBuffers == nullptr || dataBuffers[0].data == nullptr) {
    AddString("", false);
  }
  CompactBuffers();
  *text = dataBuffers[0].data;
  dataBuffers[0] = {};
  textLength = 0;
  return 0;
}

int ZQGNString::AppendToFile(const char* fileName) const {
  ZQFILE* file = ZQfopen(fileName, "a");
  if (file == nullptr) {
    return ZQ_MESSAGE_FILE_OPEN;
  }
  for (int i = 0; i < numDataBuffers && dataBuffers[i].length > 0; ++i) {
    ZQfwrite(dataBuffers[i].data, 1, static_cast<size_t>(dataBuffers[i].length), file);
  }
  ZQfclose(file);
  return 0;
}

int ZQGNString::WriteToFileHandle(int fileHandle) const {
  for (int i = 0; i < numDataBuffers && dataBuffers[i].length > 0; ++i) {
    if (write(fileHandle, dataBuffers[i].data, static_cast<size_t>(dataBuffers[i].length)) == -1) {
      return ZQ_MESSAGE_WRITE_FAILED;
    }
  }
  return 0;
}

void ZQGNString::AppendBlocks(const ZQGNString& other) {
  for (int i = 0; i < other.numDataBuffers && other.dataBuffers[i].length > 0; ++i) {
    AddString(other.dataBuffers[i].data, false);
  }
}

// Callers know the first block alone, by the pointer that the conversion gives.
bool ZQGNString::OwnsText(const char* text) const {
  if (dataBuffers == nullptr || dataBuffers[0].capacity == 0) {
    return false;
  }
  const char* begin = dataBuffers[0].data;
  return !std::less<>()(text, begin) && std::less<>()(text, begin + dataBuffers[0].capacity);
}

void ZQGNString::AddString(const char* text, bool replace) {
  const char* source = text != nullptr ? text : "";
  if (OwnsText(source)) {
    const std::unique_ptr<char, decltype(&free)> copy(strdup(source), free);
    if (copy == nullptr) {
      throw ZQXMLException(ZQ_MESSAGE_OUT_OF_MEMORY);
    }
    AddString(copy.get(), replace);
    return;
  }
  const size_t length = strlen(source);
  const size_t replaced = replace ? 0 : static_cast<size_t>(textLength);
  if (length + replaced > kMaxLength) {
    throw ZQXMLException(ZQ_MESSAGE_OUT_OF_MEMORY);
  }
  const int needed = static_cast<int>(length) + 1;
  if (dataBuffers == nullptr) {
    GenNewDataBufferBlocks();
  }
  if (replace) {
    ReserveFirstBlock(needed);
    Empty();
  }
  if (dataBuffers[currentBuffer].capacity - dataBuffers[currentBuffer].length < needed) {
    GenNewDataBuffer(needed);
  }
  DataBuffer& block = dataBuffers[currentBuffer];
  memcpy(block.data + block.length, source, length + 1);
  block.length += static_cast<int>(length);
  textLength += static_cast<int>(length);
}

// Makes room for a text that will replace the present one, which stays if there is no memory.
void ZQGNString::ReserveFirstBlock(int needed) {
  DataBuffer& first = dataBuffers[0];
  if (first.capacity < needed) {
    const DataBuffer block = NewBlock(needed);
    Empty();
    free(first.data);
    first = block;
  }
}

void ZQGNString::GenNewDataBuffer(int needed) {
  // The first block tells only whether this is the first use since the last Empty.
  const int next = dataBuffers[0].length > 0 ? currentBuffer + 1 : currentBuffer;
  if (next == numDataBuffers - 1) {
    GenNewDataBufferBlocks();
  }
  DataBuffer& block = dataBuffers[next];
  if (block.capacity <= needed) {
    const DataBuffer grown = NewBlock(needed);
    free(block.data);
    block = grown;
  }
  // Only now that nothing can fail: a text has no empty block within it.
  currentBuffer = next;
}

// An oversized request still gets the slack of a whole block for what follows.
ZQGNString::DataBuffer ZQGNString::NewBlock(int needed) const {
  const int capacity = needed > blockSize ? blockSize + needed : blockSize;
  auto* data = static_cast<char*>(calloc(static_cast<size_t>(capacity), 1));
  if (data == nullptr) {
    throw ZQXMLException(ZQ_MESSAGE_OUT_OF_MEMORY);
  }
  return {capacity, 0, data};
}

void ZQGNString::GenNewDataBufferBlocks() {
  const int count = numDataBuffers + DATA_BUFFERS_BLKS_INCREMENT;
  // A long text of small pieces has very many blocks: realloc mostly grows their array where it is.
  auto* grown = static_cast<DataBuffer*>(
      realloc(dataBuffers, static_cast<size_t>(count) * sizeof(DataBuffer)));
  if (grown == nullptr) {
    throw ZQXMLException(ZQ_MESSAGE_OUT_OF_MEMORY);
  }
  memset(grown + numDataBuffers, 0, DATA_BUFFERS_BLKS_INCREMENT * sizeof(DataBuffer));
  dataBuffers = grown;
  numDataBuffers = count;
}

void ZQGNString::CompactBuffers() {
  if (dataBuffers[1].length == 0) {
    return;
  }
  const int total = textLength;
  auto* joined = static_cast<char*>(malloc(static_cast<size_t>(total) + 1));
  if (joined == nullptr) {
    throw ZQXMLException(ZQ_MESSAGE_OUT_OF_MEMORY);
  }
  char* end = joined;
  for (int i = 0; i < numDataBuffers && dataBuffers[i].length > 0; ++i) {
    DataBuffer& block = dataBuffers[i];
    memcpy(end, block.data, static_cast<size_t>(block.length));
    end += block.length;
    free(block.data);
    block = {};
  }
  *end = '\0';
  dataBuffers[0] = {total + 1, total, joined};
  currentBuffer = 0;
}
