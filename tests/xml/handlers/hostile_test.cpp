// Documents whose elements stand where they have no business: nothing is freed that isn't owned,
// and nothing is lost.

#include <gtest/gtest.h>

#include <iterator>

#include "fault/FailingAllocations.h"
#include "xml/handlers/ElementReaders.h"

namespace {

constexpr uint32_t kDocuments = 2000;

// Elements with the children that have a place in them; others may come too.
struct Place {
  std::string name;
  std::vector<std::string> children;
};

const std::vector<Place>& places() {
  static const std::vector<std::string> kSources = {
      "value", "field", "process", "arithmetic", "function", "dde", "sql", "filterAPI", "command"};
  static const std::vector<std::string> kTree = {"and",  "or",    "not",    "relationalOperation",
                                                 "left", "right", "fieldID"};
  static const std::vector<Place> kPlaces = {
      {"value",
       {"characterValue", "diaryValue", "integerValue", "nullValue", "byteList", "currency",
        "attachmentValue", "coordinateList", "coordinate", "viewValue", "bytes", "fileName"}},
      {"byteList", {"bytes"}},
      {"currency", {"currencyValue", "code", "conversionDate"}},
      {"attachmentValue", {"attachmentName", "fileName", "attachmentData", "location"}},
      {"coordinateList", {"coordinate"}},
      {"coordinate", {"X", "Y"}},
      {"valueList", {"value"}},
      {"qualification", kTree},
      {"queryQualification", kTree},
      {"and", kTree},
      {"or", kTree},
      {"not", kTree},
      // A host of conditions, of operands and of assignments.
      {"left",
       {"and", "not", "fieldID", "value", "valueList", "arithmeticOperation", "queryValue",
        "statusHistoryValue", "variable", "statusState", "process", "function"}},
      {"right",
       {"or", "relationalOperation", "fieldID", "value", "valueList", "arithmeticOperation",
        "queryValue", "statusHistoryValue", "transactionValueFieldID", "statusInfo", "filterAPI"}},
      {"relationalOperation", {"operation", "left", "right"}},
      {"arithmeticOperation", {"operation", "left", "right"}},
      {"statusHistoryValue", {"statusState", "statusInfo", "fieldID"}},
      {"queryValue",
       {"formName", "serverName", "queryQualification", "valueFieldID", "multipleMatchOption"}},
      {"fieldValue", kSources},
      {"functionParameter", kSources},
      {"inputValue", kSources},
      {"field",
       {"serverName", "formName", "qualification", "fieldID", "statusHistoryValue", "noMatchOption",
        "statusState"}},
      {"process", {"command", "value", "function"}},
      {"arithmetic", {"operation", "left", "right"}},
      {"function", {"functionType", "functionParameterList", "functionParameter"}},
      {"functionParameterList", {"functionParameter"}},
      {"dde", {"serviceName", "topic", "item", "action", "command"}},
      {"sql", {"serverName", "sqlCommand", "valueIndex", "noMatchOption"}},
      {"filterAPI", {"serviceName", "inputValueList", "inputValue", "valueIndex"}},
      {"inputValueList", {"inputValue"}},
      {"setFieldList", {"setField", "inputField"}},
      {"setField", {"fieldID", "fieldValue"}},
      {"oleAutomation", {"automationServerName", "classID", "action", "visible", "comMethodList"}},
      {"comMethodList", {"comMethod"}},
      {"comMethod",
       {"methodName", "methodIdentifier", "methodType", "methodReturnValue", "methodParameterList",
        "comMethod"}},
      {"methodParameterList", {"methodParameter"}},
      {"methodParameter", {"parameterName", "parameterType", "parameterValue", "methodParameter"}},
      {"methodReturnValue", {"valueIdentifier", "transID", "fieldID", "value"}},
      {"parameterValue", {"valueIdentifier", "transID", "fieldID", "value"}},
  };
  return kPlaces;
}

const Place* placeOf(const std::string& name) {
  for (const Place& place : places()) {
    if (place.name == name) {
      return &place;
    }
  }
  return nullptr;
}

// Mostly children that have a place, now and then any other element, at any depth and as often as
// it comes.
class HostileDocument {
 public:
  explicit HostileDocument(uint32_t seed) : random(seed) {}

  std::string of(const std::string& name, int depth = 0) {
    std::string document = "<" + name;
    if (name == "byteList" && random() % 8 != 0) {
      document += " type=\"JPEG\"";
    }
    document += ">";
    const Place* place = placeOf(name);
    const size_t count = place == nullptr ? (random() % 20 == 0 ? 1 : 0) : random() % 5;
    if (place == nullptr) {
      document += textOf(name);
    }
    for (size_t i = 0; i < count && depth < 9; ++i) {
      const bool stray = place == nullptr || random() % 25 == 0;
      document += of(stray ? places()[random() % places().size()].name
                           : place->children[random() % place->children.size()],
                     depth + 1);
    }
    return document + (random() % 8 == 0 ? "text" : "") + "</" + name + ">";
  }

 private:
  std::string textOf(const std::string& name) {
    if (name == "operation") {
      return random() % 2 == 0 ? "negate" : "add";
    }
    if (name == "statusInfo") {
      return "user";
    }
    if (name == "noMatchOption" || name == "multipleMatchOption") {
      return "error";
    }
    if (name == "action") {
      return "poke";
    }
    if (name == "functionType") {
      return "min";
    }
    if (name == "visible") {
      return "true";
    }
    return std::to_string(random() % 100000);
  }

  std::mt19937 random;
};

// Reads many documents; the blocks of the program are all given back, and a good document is read
// as ever behind each.
template <typename Reader>
void expectHarmless(const std::string& host, const std::string& goodDocument) {
  const long before = fault::liveBlocks();
  size_t accepted = 0;
  size_t refused = 0;
  {
    Reader reader;
    const Reading good = reader.read(goodDocument);
    EXPECT_EQ(good.number, 0) << good.text;
    for (uint32_t seed = 0; seed < kDocuments && !testing::Test::HasFailure(); ++seed) {
      const std::string document = HostileDocument(seed).of(host);
      // The dump touches all that the record claims to own.
      const Reading reading = reader.read(document);
      (reading.number == 0 ? accepted : refused) += 1;
      EXPECT_TRUE(reading.number == 0 || reading.number == 8941 || reading.number == 8943 ||
                  reading.number == 8944)
          << document;
      EXPECT_EQ(reader.read(goodDocument), good) << document;
    }
  }
  EXPECT_EQ(fault::liveBlocks(), before);
  // Neither all nor nothing.
  EXPECT_GT(accepted, kDocuments / 40) << host;
  EXPECT_GT(refused, kDocuments / 40) << host;
}

class Hostile : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    EXPECT_FALSE(places().empty());
    ValueReader reader;
    EXPECT_EQ(reader.read("<value/>").number, 0);
  }
};

TEST_F(Hostile, Values) {
  expectHarmless<ValueReader>("value", "<value><characterValue>a</characterValue></value>");
  expectHarmless<ValueListReader>("valueList", "<valueList><value/></valueList>");
  expectHarmless<COMValueReader>("parameterValue",
                                 "<parameterValue><transID>1</transID></parameterValue>");
}

TEST_F(Hostile, Conditions) {
  expectHarmless<QualReader>("qualification", "<qualification><not/></qualification>");
  expectHarmless<OperandReader>("left", "<left><valueList/></left>");
  expectHarmless<QueryReader>("queryValue", "<queryValue><formName>F</formName></queryValue>");
}

TEST_F(Hostile, Assignments) {
  expectHarmless<AssignReader>("fieldValue", "<fieldValue><dde/></fieldValue>");
  expectHarmless<AssignFieldReader>("field", "<field><qualification/></field>");
  expectHarmless<FieldAssignListReader>("setFieldList", "<setFieldList><setField/></setFieldList>");
}

TEST_F(Hostile, Automation) {
  expectHarmless<AutomationReader>("oleAutomation", "<oleAutomation><action/></oleAutomation>");
}

}  // namespace
