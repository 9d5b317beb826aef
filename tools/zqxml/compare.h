// The differences of two objects, member by member.
#ifndef ZQXML_TOOLS_COMPARE_H
#define ZQXML_TOOLS_COMPARE_H

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

struct Difference {
  std::string path;             // JSON pointer (RFC 6901)
  nlohmann::ordered_json left;  // discarded where there is none
  nlohmann::ordered_json right;
};

std::vector<Difference> compare(const nlohmann::ordered_json& left,
                                const nlohmann::ordered_json& right);

// JSON in one line; bytes that aren't UTF-8 become the replacement character.
std::string shown(const nlohmann::ordered_json& json);

#endif
