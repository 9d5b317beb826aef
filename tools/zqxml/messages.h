// The messages of the library, from the list that its catalog is made of.
#ifndef ZQXML_TOOLS_MESSAGES_H
#define ZQXML_TOOLS_MESSAGES_H

#include <span>

struct Message {
  int number;
  const char* name;
  const char* text;
  const char* cause;
  const char* cure;
};

std::span<const Message> allMessages();

// Null for a number that the library does not give.
const Message* findMessage(int number);

#endif
