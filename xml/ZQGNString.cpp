#include "xml/ZQGNString.h"

#include <climits>
#include <cstdlib>
#include <cstring>

#include "xml/ZQXMLException.h"
#include "zqxml/messages.h"

namespace {

// Below 2 GiB also with the room of a block.
constexpr size_t kMaxLength = INT_MAX / 2;

}  // namespace

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
  return dataBuffers[0].data != nullptr ? dataBuffers[0].data : empty;
}

int ZQGNString::DetachStrReference(char** text) {
  *text = nullptr;
  if (dataBuffers != nullptr) {
    CompactBuffers();
    *text = dataBuffers[0].data;
    dataBuffers[0] = {};
    textLength = 0;
  }
  return 0;
}

void ZQGNString::AddString(const char* text, bool replace) {
  const char* source = text != nullptr ? text : "";
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

void ZQGNString::GenNewDataBuffer(int needed) {
  // The first block tells only whether this is the first use since the last Empty.
  const int next = dataBuffers[0].length > 0 ? currentBuffer + 1 : currentBuffer;
  if (next == numDataBuffers - 1) {
    GenNewDataBufferBlocks();
  }
  DataBuffer& block = dataBuffers[next];
  if (block.capacity <= needed) {
    const int capacity = needed > blockSize ? blockSize + needed : blockSize;
    auto* data = static_cast<char*>(calloc(static_cast<size_t>(capacity), 1));
    if (data == nullptr) {
      throw ZQXMLException(ZQ_MESSAGE_OUT_OF_MEMORY);
    }
    free(block.data);
    block = {capacity, 0, data};
  }
  // Only now that nothing can fail: a text has no empty block within it.
  currentBuffer = next;
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
