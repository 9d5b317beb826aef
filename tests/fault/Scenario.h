// Calls of exported functions, in a form that lets a harness run each of them again and again, with
// another failure in it each time.
#ifndef ZQXML_TESTS_FAULT_SCENARIO_H
#define ZQXML_TESTS_FAULT_SCENARIO_H

#include <functional>
#include <string>
#include <vector>

namespace fault {

// One run of a scenario, with a failure in it or with none.
class Attempt {
 public:
  Attempt() = default;
  Attempt(const Attempt&) = delete;
  Attempt& operator=(const Attempt&) = delete;
  virtual ~Attempt() = default;

  // Makes the call that is to be tried, with the failure in it. Assertions allocate: they belong
  // behind it.
  template <typename Call>
  auto call(Call body) {
    const Armed armed(*this);
    return body();
  }

  // Whether anything has failed in the call.
  bool failed() const { return hasFailed; }

  // Blocks that the scenario leaves allocated by contract, for good.
  void keeps(long blocks) { keptBlocks += blocks; }
  long kept() const { return keptBlocks; }

 protected:
  virtual void arm() {}
  virtual bool disarm() { return false; }

 private:
  class Armed {
   public:
    explicit Armed(Attempt& attempt) : owner(attempt) { owner.arm(); }
    Armed(const Armed&) = delete;
    Armed& operator=(const Armed&) = delete;
    ~Armed() { owner.hasFailed = owner.disarm() || owner.hasFailed; }

   private:
    Attempt& owner;
  };

  bool hasFailed = false;
  long keptBlocks = 0;
};

// Whether a scenario's calls allocate.
enum class Memory { Needed, NotNeeded };

// Whether each allocation of a call fails in turn, or some, evenly spread, since there are so many.
enum class Failures { Each, Some };

// A scenario prepares what its call needs, makes the call, compares what came of it with what it
// should be, with the failure and without, makes sure that all that took part in the call still
// works, and gives everything back.
struct Scenario {
  std::string name;
  std::vector<std::string> functions;  // the exported names that it tries
  std::function<void(Attempt&)> run;
  Memory memory = Memory::Needed;
  Failures failures = Failures::Each;
};

using Scenarios = std::vector<Scenario>;

// The tables, one for each family of functions.
void addBuilderScenarios(Scenarios& table);
void addCompressScenarios(Scenarios& table);
void addDefinitionScenarios(Scenarios& table);
void addObjectScenarios(Scenarios& table);
void addParserScenarios(Scenarios& table);
void addPlainScenarios(Scenarios& table);
void addRecordScenarios(Scenarios& table);
void addStatusScenarios(Scenarios& table);
void addStreamScenarios(Scenarios& table);
void addTextScenarios(Scenarios& table);

}  // namespace fault

#endif
