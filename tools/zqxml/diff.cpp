// zqxml diff: two documents, object by object and member by member.

#include <algorithm>
#include <map>
#include <memory>
#include <string>
#include <tuple>
#include <vector>

#include "commands.h"
#include "compare.h"
#include "input.h"
#include "objects.h"
#include "output.h"

namespace {

using Json = nlohmann::ordered_json;

struct Options {
  std::string left;
  std::string right;
  bool ignoreMeta = false;
  bool json = false;
  Output output;
};

// Objects of one kind and name are told apart by their number.
using Key = std::tuple<std::string, std::string, int>;

struct Objects {
  std::vector<Key> order;
  std::map<Key, Json> byKey;
};

// Who changed an object, and when.
constexpr const char* kMeta[] = {"owner", "lastChanged", "modifiedDate", "changeDiary"};

Objects objectsIn(const Stream& stream, bool ignoreMeta) {
  Objects objects;
  std::map<std::pair<std::string, std::string>, int> count;
  for (const ZQXMLObjectList* node : objectsOf(stream)) {
    const std::string kind = objectKind(*node);
    const std::string name = objectName(*node);
    const Key key(kind, name, count[{kind, name}]++);
    Json json = objectJson(*node);
    for (const char* member : kMeta) {
      if (ignoreMeta) {
        json.erase(member);
      }
    }
    objects.order.push_back(key);
    objects.byKey[key] = std::move(json);
  }
  return objects;
}

std::string label(const Key& key) {
  const auto& [kind, name, number] = key;
  return kind + " " + onOneLine(name) + (number > 0 ? " (" + std::to_string(number + 1) + ")" : "");
}

Json orNull(const Json& json) {
  return json.is_discarded() ? Json() : json;
}

class Report {
 public:
  void onlyIn(bool left, const Key& key) {
    text += (left ? "- " : "+ ") + label(key) + "\n";
    json.push_back({{"kind", std::get<0>(key)},
                    {"name", std::get<1>(key)},
                    {"change", left ? "removed" : "added"}});
  }

  void changed(const Key& key, const std::vector<Difference>& differences) {
    Json members = Json::array();
    for (const Difference& each : differences) {
      text += "~ " + label(key) + ": " + each.path + ": " + shown(each.left) + " -> " +
              shown(each.right) + "\n";
      members.push_back(
          {{"path", each.path}, {"old", orNull(each.left)}, {"new", orNull(each.right)}});
    }
    json.push_back({{"kind", std::get<0>(key)},
                    {"name", std::get<1>(key)},
                    {"change", "changed"},
                    {"members", members}});
  }

  std::string text;
  Json json = Json::array();
};

int run(const Options& options) {
  useUtf8();
  Parser parser;
  Document leftDocument(options.left);
  Document rightDocument(options.right);
  Stream leftStream;
  Stream rightStream;
  int result = parser.create();
  if (result == kDone) {
    result = std::max(parseObjects(parser, leftDocument, leftStream),
                      parseObjects(parser, rightDocument, rightStream));
  }
  if (result != kDone) {
    return result;
  }
  const Objects left = objectsIn(leftStream, options.ignoreMeta);
  const Objects right = objectsIn(rightStream, options.ignoreMeta);
  Report report;
  for (const Key& key : left.order) {
    const auto match = right.byKey.find(key);
    if (match == right.byKey.end()) {
      report.onlyIn(true, key);
    } else if (const auto differences = compare(left.byKey.at(key), match->second);
               !differences.empty()) {
      report.changed(key, differences);
    }
  }
  for (const Key& key : right.order) {
    if (!left.byKey.contains(key)) {
      report.onlyIn(false, key);
    }
  }
  result = options.json ? options.output.write(report.json) : options.output.write(report.text);
  return result == kDone && !report.json.empty() ? kAnswerIsNo : result;
}

}  // namespace

void addDiff(CLI::App& app, int& exitCode) {
  auto options = std::make_shared<Options>();
  CLI::App* command =
      app.add_subcommand("diff", "Compare two documents, object by object and member by member");
  command->footer(
      "A line per difference: \"-\" and an object that only the first document has, \"+\" and one "
      "that only the second\nhas, \"~\" with object, member (a JSON pointer) and both values. The "
      "order of objects doesn't count. Exits with 1\nif there are differences.");
  command->add_option("OLD", options->left, "The first document; - is standard input")
      ->required()
      ->option_text(" ");
  command->add_option("NEW", options->right, "The second document; - if the first is not")
      ->required()
      ->option_text(" ");
  command->add_flag("--ignore-meta", options->ignoreMeta,
                    "Leave out owner, author, date and history of changes of the objects");
  command->add_flag("--json", options->json, "Print JSON");
  options->output.addOption(*command);
  command->callback([options, &exitCode] {
    checkStandardInputOnce({options->left, options->right});
    exitCode = run(*options);
  });
}
