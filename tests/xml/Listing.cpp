#include "xml/Listing.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <regex>

#include "records/StatusLists.h"

const char kGoodDocument[] =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<root>\n"
    "\t<form>\n\t\t<formName>Good</formName>\n\t</form>\n"
    "\t<container>\n\t\t<containerName>Box</containerName>\n"
    "\t\t<containerType>packingList</containerType>\n\t</container>\n"
    "</root>\n";
const char kGoodListing[] = "0 | form Good, container Box 3 | ";

namespace {

std::string nameOfKind(uint32_t kind) {
  switch (kind) {
    case 0x40000001:
      return "form";
    case 0x40000005:
      return "filter";
    case 0x40000006:
      return "activeLink";
    case 0x40000008:
      return "menu";
    case 0x40000009:
      return "escalation";
    case 0x4000000A:
      return "distributedMapping";
    case 0x4000000C:
      return "container";
    case 0x4000000D:
      return "distributedPool";
    case 0x4000000E:
      return "vui";
    default:
      return "kind " + std::to_string(kind);
  }
}

std::string catalogText(int number) {
  char text[ZQ_MESSAGE_TEXT_SIZE];
  ZQGetTextForMessage(number, text);
  return text;
}

void expectSame(const Listing& one, const Listing& other, const std::string& what) {
  EXPECT_EQ(one.result, other.result) << what;
  EXPECT_EQ(one.objects, other.objects) << what;
  EXPECT_EQ(one.status, other.status) << what;
  EXPECT_EQ(one.place(), other.place()) << what;
}

}  // namespace

std::string Listing::text() const {
  static const std::regex parserText("8940 (?!Only).+?(?=; [0-9]+/[0-9]+ |$)");
  return std::to_string(result) + " | " + objects + " | " +
         std::regex_replace(status, parserText, "8940 *");
}

ParserHandle::ParserHandle() : ZQXMLParserHandle{} {
  EXPECT_EQ(CreateXMLParserHandle(this, nullptr), 0);
}

ParserHandle::~ParserHandle() {
  FreeZQXMLParserHandleInternal(this, 0);
}

TestFolder::TestFolder() {
  char name[] = "/tmp/zqxml-test-XXXXXX";
  EXPECT_NE(mkdtemp(name), nullptr);
  folder = name;
}

TestFolder::~TestFolder() {
  std::filesystem::remove_all(folder);
}

std::string TestFolder::write(const std::string& name, const std::string& contents) const {
  const std::string path = folder + "/" + name;
  std::ofstream(path, std::ios::binary) << contents;
  return path;
}

Listing listWith(ZQXMLParserHandle* handle, uint32_t docType, const std::string& doc) {
  // On the heap and just as long as it is, so that a read beyond it is seen.
  std::string text = doc;
  text.shrink_to_fit();
  const ZQXMLInputDoc input = {docType, text.data()};
  // What the lists and the status held is to be overwritten and not freed.
  uint32_t oldNumber = 5;
  ZQNameType oldName = "old";
  ZQStatusStruct oldRecord = {};
  ZQUnsignedIntList types = {1, &oldNumber};
  ZQNameList names = {1, &oldName};
  ZQUnsignedIntList subTypes = {1, &oldNumber};
  ZQStatusList status = {1, &oldRecord};

  Listing listing;
  // Of this process alone, whatever else the machine does.
  const std::clock_t begin = std::clock();
  listing.result = GetListXMLObjects(handle, &input, &types, &names, &subTypes, &status);
  listing.seconds = static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC;

  EXPECT_EQ(names.numItems, types.numItems);
  EXPECT_EQ(subTypes.numItems, types.numItems);
  EXPECT_EQ(types.items == nullptr, types.numItems == 0);
  EXPECT_EQ(names.items == nullptr, names.numItems == 0);
  EXPECT_EQ(subTypes.items == nullptr, subTypes.numItems == 0);
  for (uint32_t i = 0; i < types.numItems; ++i) {
    const std::string kind = nameOfKind(types.items[i]);
    listing.objects += (i > 0 ? ", " : "") + kind + " " + names.items[i];
    if (kind == "container") {
      listing.objects += " " + std::to_string(subTypes.items[i]);
    } else {
      EXPECT_EQ(subTypes.items[i], 0xFFFFFFFFU);
    }
  }
  listing.status = describe(status);
  for (uint32_t i = 0; i < status.numItems; ++i) {
    EXPECT_EQ(status.items[i].messageText, catalogText(status.items[i].messageNum));
  }
  EXPECT_EQ(GetXMLParserPosition(handle, &listing.line, &listing.column), 0);
  FreeZQUnsignedIntList(&types, 0);
  FreeZQNameList(&names, 0);
  FreeZQUnsignedIntList(&subTypes, 0);
  FreeZQStatusList(&status, 0);
  return listing;
}

void expectListsGoodDocument(ZQXMLParserHandle* handle) {
  const Listing good = listWith(handle, ZQXML_INPUT_MEMORY, kGoodDocument);
  EXPECT_EQ(good.text(), kGoodListing);
  EXPECT_EQ(good.place(), "0:0");
}

Listing list(const std::string& document) {
  static const TestFolder folder;
  const std::string path = folder.write("document.xml", document);
  ParserHandle handle;
  const Listing listing = listWith(&handle, ZQXML_INPUT_MEMORY, document);
  expectListsGoodDocument(&handle);
  expectSame(listing, listWith(&handle, ZQXML_INPUT_FILE, path), document.substr(0, 1000));
  expectListsGoodDocument(&handle);
  expectSame(listing, listWith(&handle, ZQXML_INPUT_LOCATION, path), document.substr(0, 1000));
  expectListsGoodDocument(&handle);
  return listing;
}

Listing listFile(const std::string& name) {
  ParserHandle handle;
  const Listing listing = listWith(&handle, ZQXML_INPUT_FILE, name);
  expectListsGoodDocument(&handle);
  expectSame(listing, listWith(&handle, ZQXML_INPUT_LOCATION, name), name);
  expectListsGoodDocument(&handle);
  return listing;
}
