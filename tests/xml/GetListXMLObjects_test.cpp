// The call itself: documents, arguments, results.

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>

#include "fault/FailingAllocations.h"
#include "records/StatusLists.h"
#include "xml/Listing.h"

namespace {

namespace fs = std::filesystem;

std::string contentsOf(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  std::ostringstream contents;
  contents << file.rdbuf();
  EXPECT_TRUE(file.good()) << path;
  return contents.str();
}

TEST(ListExamples, EachListsItsObjects) {
  const std::map<std::string, std::string> containerTypes = {{"activeLinkGuide", "1"},
                                                             {"application", "2"},
                                                             {"packingList", "3"},
                                                             {"filterGuide", "4"},
                                                             {"webService", "5"}};
  const auto expected = nlohmann::json::parse(
      contentsOf(fs::path(ZQXML_TEST_DATA_DIR) / ".." / "examples" / "names.json"));
  size_t examples = 0;
  for (const auto& file : fs::directory_iterator(ZQXML_EXAMPLES_DIR)) {
    if (file.path().extension() != ".xml") {
      continue;
    }
    ++examples;
    std::string objects;
    for (const auto& object : expected.at(file.path().filename())) {
      objects += (objects.empty() ? "" : ", ") + object.at("kind").get<std::string>() + " " +
                 object.at("name").get<std::string>();
      if (!object.at("containerType").is_null()) {
        objects += " " + containerTypes.at(object.at("containerType"));
      }
    }
    const Listing listing = list(contentsOf(file.path()));
    EXPECT_EQ(listing.text(), "0 | " + objects + " | ") << file.path();
    EXPECT_EQ(listing.place(), "0:0");
    EXPECT_EQ(listFile(file.path()).text(), listing.text());
  }
  EXPECT_EQ(examples, expected.size());
  EXPECT_GT(examples, 0U);
}

TEST(InitXMLParser, MayBeCalledAgain) {
  OwnedStatusList status;
  ZQAddErrorMessage(&status, 1, 300, "old");
  EXPECT_EQ(InitXMLParser(&status), 0);
  EXPECT_EQ(InitXMLParser(&status), 0);
  EXPECT_EQ(InitXMLParser(nullptr), 0);
  EXPECT_EQ(describe(status), "1/300 old");
}

TEST(CreateXMLParserHandle, AddsToTheListAndOverwritesTheHandle) {
  int other = 0;
  ZQXMLParserHandle handle = {&other};
  OwnedStatusList status;
  ZQAddErrorMessage(&status, 1, 300, "old");
  EXPECT_EQ(CreateXMLParserHandle(&handle, &status), 0);
  EXPECT_EQ(describe(status), "1/300 old");
  EXPECT_NE(handle.handle, &other);
  EXPECT_NE(handle.handle, nullptr);
  FreeZQXMLParserHandleInternal(&handle, 0);
  EXPECT_EQ(handle.handle, nullptr);
}

TEST(CreateXMLParserHandle, ANullHandleIs8938) {
  OwnedStatusList status;
  EXPECT_EQ(CreateXMLParserHandle(nullptr, &status), 2);
  EXPECT_EQ(describe(status), "2/8938 ");
  EXPECT_EQ(CreateXMLParserHandle(nullptr, nullptr), 2);
}

TEST(CreateXMLParserHandle, HandlesAreIndependent) {
  ParserHandle first;
  ParserHandle second;
  EXPECT_EQ(listWith(&first, 1, "<root><form>").result, 2);
  const std::string place = [&first] {
    uint64_t line = 0;
    uint64_t column = 0;
    GetXMLParserPosition(&first, &line, &column);
    return std::to_string(line) + ":" + std::to_string(column);
  }();
  expectListsGoodDocument(&second);
  uint64_t line = 0;
  uint64_t column = 0;
  GetXMLParserPosition(&first, &line, &column);
  EXPECT_EQ(std::to_string(line) + ":" + std::to_string(column), place);
}

TEST(FreeParserRecords, HandlesAreFreedAndClearedOnce) {
  const long before = fault::liveBlocks();
  auto* handle = static_cast<ZQXMLParserHandle*>(calloc(1, sizeof(ZQXMLParserHandle)));
  EXPECT_EQ(CreateXMLParserHandle(handle, nullptr), 0);
  FreeZQXMLParserHandleInternal(handle, 0);
  EXPECT_EQ(handle->handle, nullptr);
  FreeZQXMLParserHandleInternal(handle, 0);
  EXPECT_EQ(CreateXMLParserHandle(handle, nullptr), 0);
  expectListsGoodDocument(handle);
  FreeZQXMLParserHandleInternal(handle, 1);
  FreeZQXMLParserHandleInternal(nullptr, 0);
  FreeZQXMLParserHandleInternal(nullptr, 1);
  EXPECT_EQ(fault::liveBlocks(), before);
}

TEST(FreeParserRecords, DocumentsOwnTheirTextForKind1Alone) {
  const long before = fault::liveBlocks();
  char name[] = "name";
  for (const uint32_t kind : {0U, 1U, 2U, 3U, 4U}) {
    ZQXMLInputDoc input = {kind, kind == 1 ? strdup("text") : name};
    ZQXMLOutputDoc output = {};
    output.docType = kind;
    output.u.doc = kind == 1 ? strdup("text") : name;
    for (int i = 0; i < 2; ++i) {
      FreeZQXMLInputDocInternal(&input, 0);
      FreeZQXMLOutputDocInternal(&output, 0);
    }
    if (kind == 1) {
      EXPECT_EQ(input.doc, nullptr);
      EXPECT_EQ(output.u.doc, nullptr);
    }
  }
  for (const uint32_t kind : {1U, 2U}) {
    auto* input = static_cast<ZQXMLInputDoc*>(calloc(1, sizeof(ZQXMLInputDoc)));
    auto* output = static_cast<ZQXMLOutputDoc*>(calloc(1, sizeof(ZQXMLOutputDoc)));
    *input = {kind, kind == 1 ? strdup("text") : name};
    output->docType = kind;
    output->u.doc = kind == 1 ? strdup("text") : name;
    FreeZQXMLInputDocInternal(input, 1);
    FreeZQXMLOutputDocInternal(output, 1);
  }
  FreeZQXMLInputDocInternal(nullptr, 0);
  FreeZQXMLInputDocInternal(nullptr, 1);
  FreeZQXMLOutputDocInternal(nullptr, 0);
  FreeZQXMLOutputDocInternal(nullptr, 1);
  EXPECT_EQ(fault::liveBlocks(), before);
}

TEST(ListArguments, UnknownKindsAre8952WithTheKind) {
  for (const uint32_t kind : {0U, 4U, 5U, 0x80000000U, 0xFFFFFFFFU}) {
    ParserHandle handle;
    const Listing listing = listWith(&handle, kind, kGoodDocument);
    EXPECT_EQ(listing.text(), "2 |  | 2/8952 " + std::to_string(kind));
    EXPECT_EQ(listing.place(), "0:0");
    expectListsGoodDocument(&handle);
  }
}

TEST(ListArguments, ANullDocumentIsOfKind0) {
  ParserHandle handle;
  OwnedStatusList status;
  EXPECT_EQ(GetListXMLObjects(&handle, nullptr, nullptr, nullptr, nullptr, &status), 2);
  EXPECT_EQ(describe(status), "2/8952 0");
  expectListsGoodDocument(&handle);
}

TEST(ListArguments, ANullTextIsTheEmptyDocument) {
  ParserHandle handle;
  const std::string ofEmpty = listWith(&handle, 1, "").status;
  EXPECT_EQ(ofEmpty.substr(0, 7), "2/8940 ");
  for (const uint32_t kind : {1U, 2U, 3U}) {
    OwnedStatusList status;
    const ZQXMLInputDoc input = {kind, nullptr};
    EXPECT_EQ(GetListXMLObjects(&handle, &input, nullptr, nullptr, nullptr, &status), 2);
    ASSERT_EQ(status.numItems, 1U);
    EXPECT_EQ(describe(status).substr(0, 7), "2/8940 ");
    if (kind == 1) {
      EXPECT_EQ(describe(status), ofEmpty);
    }
    expectListsGoodDocument(&handle);
  }
}

TEST(ListArguments, ANullOrFreedHandleIs8938AndTheListsAreCleared) {
  std::string document = kGoodDocument;
  const ZQXMLInputDoc input = {1, document.data()};
  ZQXMLParserHandle freed = {};
  CreateXMLParserHandle(&freed, nullptr);
  FreeZQXMLParserHandleInternal(&freed, 0);
  for (ZQXMLParserHandle* handle : {static_cast<ZQXMLParserHandle*>(nullptr), &freed}) {
    uint32_t number = 1;
    ZQNameType name = "old";
    ZQStatusStruct record = {};
    ZQUnsignedIntList types = {1, &number};
    ZQNameList names = {1, &name};
    ZQUnsignedIntList subTypes = {1, &number};
    ZQStatusList status = {1, &record};
    EXPECT_EQ(GetListXMLObjects(handle, &input, &types, &names, &subTypes, &status), 2);
    EXPECT_EQ(describe(status), "2/8938 ");
    EXPECT_EQ(types.numItems, 0U);
    EXPECT_EQ(types.items, nullptr);
    EXPECT_EQ(names.items, nullptr);
    EXPECT_EQ(subTypes.items, nullptr);
    FreeZQStatusList(&status, 0);
    EXPECT_EQ(GetListXMLObjects(handle, &input, nullptr, nullptr, nullptr, nullptr), 2);
  }
}

TEST(ListArguments, NullOutputsAreSkipped) {
  for (const char* text : {kGoodDocument, "<root><form>", "<root><container/></root>"}) {
    const bool good = text == kGoodDocument;
    std::string document = text;
    const ZQXMLInputDoc input = {1, document.data()};
    for (unsigned given = 0; given < 16; ++given) {
      const long before = fault::liveBlocks();
      {
        ParserHandle handle;
        ZQUnsignedIntList types = {};
        ZQNameList names = {};
        ZQUnsignedIntList subTypes = {};
        OwnedStatusList status;
        EXPECT_EQ(GetListXMLObjects(&handle, &input, (given & 1) != 0 ? &types : nullptr,
                                    (given & 2) != 0 ? &names : nullptr,
                                    (given & 4) != 0 ? &subTypes : nullptr,
                                    (given & 8) != 0 ? &status : nullptr),
                  good ? 0 : 2);
        EXPECT_EQ(types.numItems, good && (given & 1) != 0 ? 2U : 0U);
        EXPECT_EQ(names.numItems, good && (given & 2) != 0 ? 2U : 0U);
        EXPECT_EQ(subTypes.numItems, good && (given & 4) != 0 ? 2U : 0U);
        EXPECT_EQ(status.numItems, !good && (given & 8) != 0 ? 1U : 0U);
        FreeZQUnsignedIntList(&types, 0);
        FreeZQNameList(&names, 0);
        FreeZQUnsignedIntList(&subTypes, 0);
      }
      EXPECT_EQ(fault::liveBlocks(), before);
    }
  }
}

TEST(ListArguments, TheListsAreEmptiedAndNotFreed) {
  ParserHandle handle;
  std::string document = kGoodDocument;
  const ZQXMLInputDoc input = {1, document.data()};
  auto* number = static_cast<uint32_t*>(malloc(sizeof(uint32_t)));
  auto* name = static_cast<ZQNameType*>(calloc(1, sizeof(ZQNameType)));
  ZQStatusList oldStatus = {};
  ZQAddErrorMessage(&oldStatus, 2, 300, "old");
  ZQUnsignedIntList types = {1, number};
  ZQNameList names = {1, name};
  ZQUnsignedIntList subTypes = {1, number};
  ZQStatusList status = oldStatus;
  EXPECT_EQ(GetListXMLObjects(&handle, &input, &types, &names, &subTypes, &status), 0);
  EXPECT_EQ(status.numItems, 0U);
  EXPECT_EQ(status.items, nullptr);
  EXPECT_EQ(types.numItems, 2U);
  EXPECT_NE(types.items, number);
  EXPECT_EQ(describe(oldStatus), "2/300 old");
  *number = 7;
  FreeZQStatusList(&oldStatus, 0);
  free(number);
  free(name);
  FreeZQUnsignedIntList(&types, 0);
  FreeZQNameList(&names, 0);
  FreeZQUnsignedIntList(&subTypes, 0);
}

TEST(ListResult, AWarningIsARecordAndTheResultStays0) {
  // The declaration contradicts the bytes, which the parser warns of and overrules.
  const Listing listing = list(
      "<?xml version=\"1.0\" encoding=\"UTF-16\"?>\n"
      "<root><form><formName>A</formName></form></root>");
  EXPECT_EQ(listing.text(), "0 | form A | 1/8940 *");
  EXPECT_NE(listing.place(), "0:0");
}

TEST(ListResult, AWarningBesideAnErrorStandsBehindIt) {
  EXPECT_EQ(list("<?xml version=\"1.0\" encoding=\"UTF-16\"?>\n<root>").text(),
            "2 |  | 2/8940 *; 1/8940 *");
  EXPECT_EQ(list("<?xml version=\"1.0\" encoding=\"UTF-16\"?><root><container/></root>").text(),
            "2 |  | 2/8943 line: 1, column 58; 1/8940 *");
}

TEST(ListResult, TheParsersTextsCarryNoPlace) {
  const Listing listing = list("<root>\n<a></b></root>");
  EXPECT_EQ(listing.text(), "2 |  | 2/8940 *");
  EXPECT_EQ(listing.status.find("line"), std::string::npos);
  EXPECT_EQ(listing.status.find("column"), std::string::npos);
}

TEST(ListResult, AHandleParsesAnyNumberOfDocumentsInTurn) {
  ParserHandle handle;
  for (int i = 0; i < 200; ++i) {
    EXPECT_EQ(listWith(&handle, 1,
                       "<root><form><formName>" + std::to_string(i) + "</formName></form></root>")
                  .text(),
              "0 | form " + std::to_string(i) + " | ");
    if (i % 3 == 0) {
      EXPECT_EQ(listWith(&handle, 1, "<root><form><formName>").result, 2);
    }
    if (i % 5 == 0) {
      EXPECT_EQ(listWith(&handle, 1,
                         "<!DOCTYPE root [<!ENTITY e 'x'>]><root><form><formName>&e;"
                         "</formName></form></root>")
                    .text(),
                "0 | form x | ");
    }
  }
}

}  // namespace
