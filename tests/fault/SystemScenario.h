// Calls of exported functions that read and write, for a harness that makes one system call after
// the other fail in them.
#ifndef ZQXML_TESTS_FAULT_SYSTEMSCENARIO_H
#define ZQXML_TESTS_FAULT_SYSTEMSCENARIO_H

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "fault/FaultySystem.h"
#include "fault/Scenario.h"

namespace fault {

// What goes wrong: calls of a kind fail from an index on or there alone, or all reads and writes
// are short. Nothing if neither is set.
struct SystemFault {
  faulty::Call call = faulty::Call::Open;
  int error = 0;
  int index = 0;
  Mode mode = Mode::Once;
  int shortCount = 0;
};

class SystemAttempt : public Attempt {
 public:
  SystemAttempt() = default;
  explicit SystemAttempt(const SystemFault& wanted) : fault(wanted) {}

  // Whether a call of that kind has failed.
  bool failedTo(faulty::Call call) const { return failed() && fault.call == call; }
  int error() const { return fault.error; }
  int index() const { return fault.index; }
  bool isLasting() const { return fault.mode == Mode::FromThere; }
  bool isShort() const { return fault.shortCount > 0; }

 private:
  void arm() override {
    if (fault.shortCount > 0) {
      shortCounts.emplace(fault.shortCount);
    } else if (fault.error != 0) {
      failure.emplace(fault.call, fault.error, fault.index, fault.mode);
    }
  }
  bool disarm() override {
    const bool happened = failure.has_value() && faulty::Failure::happened();
    failure.reset();
    shortCounts.reset();
    return happened;
  }

  SystemFault fault;
  std::optional<faulty::Failure> failure;
  std::optional<faulty::ShortCounts> shortCounts;
};

struct SystemScenario {
  std::string name;
  std::vector<std::string> functions;
  std::function<void(SystemAttempt&)> run;
};

using SystemScenarios = std::vector<SystemScenario>;

void addSystemDataScenarios(SystemScenarios& table);
void addSystemDocumentScenarios(SystemScenarios& table);
void addSystemStreamScenarios(SystemScenarios& table);
void addSystemTextScenarios(SystemScenarios& table);

}  // namespace fault

#endif
