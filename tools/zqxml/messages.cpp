#include "messages.h"

namespace {

constexpr Message kMessages[] = {
#include "messages.inc"
};

}  // namespace

std::span<const Message> allMessages() {
  return kMessages;
}

const Message* findMessage(int number) {
  for (const Message& message : kMessages) {
    if (message.number == number) {
      return &message;
    }
  }
  return nullptr;
}
