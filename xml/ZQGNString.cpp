#include "xml/ZQGNString.h"

#include <climits>
#include <cstdlib>
#include <cstring>

#include "xml/ZQXMLException.h"
#include "zqxml/messages.h"

namespace {

template <typename Item>
Item* allocateZeroed(size_t count) {
  auto* items = static_cast<Item*>(calloc(count, sizeof(Item)));
  if (items == nullptr) {
    throw ZQXMLException(ZQ_MESSAGE_OUT_OF_MEMORY);
  }
  return items;
}

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

void ZQGNString::Empty() {
  for (int i = 0; i < numDataBuffers; ++i) {
    DataBuffer& block = dataBuffers[i];
    block.length = 0;
    if (block.capacity > 0) {
      memset(block.data, 0, static_cast<size_t>(block.capacity));
    }
  }
  currentBuffer = 0;
}

bool ZQGNString::IsEmpty() const {
  return dataBuffers == nullptr || dataBuffers[0].length == 0;
}

int ZQGNString::GetLength() const {
  int length = 0;
  for (int i = 0; i < numDataBuffers && dataBuffers[i].length > 0; ++i) {
    length += dataBuffers[i].length;
  }
  return length;
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
  }
  return 0;
}

void ZQGNString::AddString(const char* text, bool replace) {
  const char* source = text != nullptr ? text : "";
  const size_t length = strlen(source);
  // A text stays below 2 GiB, and so do the sums of a block's size and what it has to hold.
  if (length >= static_cast<size_t>(INT_MAX / 2 - GetLength() / 2 - blockSize)) {
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
    char* data = allocateZeroed<char>(static_cast<size_t>(capacity));
    free(block.data);
    block = {capacity, 0, data};
  }
  // Only now that nothing can fail: a text has no empty block within it.
  currentBuffer = next;
}

void ZQGNString::GenNewDataBufferBlocks() {
  const int count = numDataBuffers + DATA_BUFFERS_BLKS_INCREMENT;
  auto* grown = allocateZeroed<DataBuffer>(static_cast<size_t>(count));
  if (numDataBuffers > 0) {
    memcpy(grown, dataBuffers, static_cast<size_t>(numDataBuffers) * sizeof(DataBuffer));
  }
  free(dataBuffers);
  dataBuffers = grown;
  numDataBuffers = count;
}

void ZQGNString::CompactBuffers() {
  if (dataBuffers[1].length == 0) {
    return;
  }
  const int total = GetLength();
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
