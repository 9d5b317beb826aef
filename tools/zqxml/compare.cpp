#include "compare.h"

#include <algorithm>

namespace {

using Json = nlohmann::ordered_json;

const Json kNone = Json(Json::value_t::discarded);

void compareAt(const Json::json_pointer& path, const Json& left, const Json& right,
               std::vector<Difference>& differences) {
  if (left.is_object() && right.is_object()) {
    for (const auto& [key, value] : left.items()) {
      compareAt(path / key, value, right.contains(key) ? right[key] : kNone, differences);
    }
    for (const auto& [key, value] : right.items()) {
      if (!left.contains(key)) {
        compareAt(path / key, kNone, value, differences);
      }
    }
  } else if (left.is_array() && right.is_array()) {
    for (size_t i = 0; i < std::max(left.size(), right.size()); ++i) {
      compareAt(path / i, i < left.size() ? left[i] : kNone, i < right.size() ? right[i] : kNone,
                differences);
    }
  } else if (left.is_discarded() != right.is_discarded() || left != right) {
    differences.push_back({path.to_string(), left, right});
  }
}

}  // namespace

std::vector<Difference> compare(const Json& left, const Json& right) {
  std::vector<Difference> differences;
  compareAt(Json::json_pointer(), left, right, differences);
  return differences;
}

std::string shown(const Json& json) {
  return json.is_discarded() ? "(none)" : json.dump(-1, ' ', false, Json::error_handler_t::replace);
}
