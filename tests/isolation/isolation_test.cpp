// A document can't make the library open anything but itself.

#include <arpa/inet.h>
#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>

#include "isolation/SystemCalls.h"
#include "zqxml/zqxml.h"

namespace {

using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr char kGoodDocument[] = "<root><filter><filterName>F</filterName></filter></root>";

class Isolation : public testing::Test {
 protected:
  Isolation() {
    char pattern[] = "/tmp/isolationXXXXXX";
    folder = mkdtemp(pattern);
    secret = folder + "/secret";
    path = folder + "/document.xml";
    write(secret, "<!ENTITY stolen 'yes'>");
    // What a server does at its start; the catalog stays open from then on.
    ZQOpenSharedCatalog();
    EXPECT_EQ(CreateXMLParserHandle(&handle, nullptr), 0);
  }

  ~Isolation() override {
    FreeZQXMLParserHandleInternal(&handle, 0);
    unlink(secret.c_str());
    unlink(path.c_str());
    rmdir(folder.c_str());
  }

  static void write(const std::string& name, const std::string& text) {
    std::ofstream(name, std::ios::binary) << text;
  }

  // The result of a listing; 10 is added if the same handle does not list a good document
  // afterwards.
  int list(uint32_t docType, std::string doc) {
    ZQXMLInputDoc input = {docType, doc.data()};
    const int result = GetListXMLObjects(&handle, &input, nullptr, nullptr, nullptr, nullptr);
    std::string good = kGoodDocument;
    input = {ZQXML_INPUT_MEMORY, good.data()};
    ZQNameList names;
    const int after = GetListXMLObjects(&handle, &input, nullptr, &names, nullptr, nullptr);
    const bool usable = after == 0 && names.numItems == 1;
    FreeZQNameList(&names, 0);
    return usable ? result : result + 10;
  }

  SystemCalls listMemory(const std::string& document) {
    return watchSystemCalls([&] { return list(ZQXML_INPUT_MEMORY, document); });
  }

  SystemCalls listFile(const std::string& document) {
    write(path, document);
    return watchSystemCalls([&] { return list(ZQXML_INPUT_FILE, path); });
  }

  SystemCalls listName(const std::string& name) {
    return watchSystemCalls([&] { return list(ZQXML_INPUT_FILE, name); });
  }

  // The document parsed from memory and from a file: nothing else is opened, no socket, no program.
  void expectIsolated(const std::string& document, int result) {
    SCOPED_TRACE(document);
    const SystemCalls memory = listMemory(document);
    EXPECT_EQ(memory.result, result);
    EXPECT_THAT(memory.opened, IsEmpty());
    const SystemCalls file = listFile(document);
    EXPECT_EQ(file.result, result);
    EXPECT_THAT(file.opened, Each(path));
    for (const SystemCalls& calls : {memory, file}) {
      EXPECT_EQ(calls.network, 0);
      EXPECT_EQ(calls.programs, 0);
    }
  }

  std::string folder;
  std::string secret;
  std::string path;
  ZQXMLParserHandle handle = {};
};

TEST_F(Isolation, TheFilterSeesWhatIsDone) {
  const SystemCalls calls = watchSystemCalls([this] {
    const int file = open(secret.c_str(), O_RDONLY);
    FILE* stream = fopen("/nowhere/at/all", "r");
    const int refused = socket(AF_INET, SOCK_STREAM, 0);
    return file >= 0 && stream == nullptr && refused < 0 && errno == EACCES ? 7 : 8;
  });
  EXPECT_EQ(calls.result, 7);
  EXPECT_THAT(calls.opened, ElementsAre(secret, "/nowhere/at/all"));
  EXPECT_EQ(calls.network, 1);
}

TEST_F(Isolation, PlainDocuments) {
  expectIsolated(kGoodDocument, 0);
}

TEST_F(Isolation, AnExternalDtdIsSkipped) {
  for (const std::string& address :
       {secret, "file://" + secret, std::string("secret"), std::string("http://127.0.0.1:9/x.dtd"),
        std::string("http://localhost/x.dtd"), std::string("ftp://127.0.0.1/x.dtd")}) {
    expectIsolated("<!DOCTYPE root SYSTEM '" + address + "'><root/>", 0);
    expectIsolated("<!DOCTYPE root PUBLIC '-//x' '" + address + "'><root/>", 0);
  }
}

TEST_F(Isolation, AnExternalEntityIsAnError) {
  for (const std::string& address :
       {secret, "file://" + secret, std::string("http://127.0.0.1:9/x"), std::string("/etc/passwd"),
        std::string("/dev/zero")}) {
    expectIsolated("<!DOCTYPE root [<!ENTITY e SYSTEM '" + address + "'>]><root>&e;</root>", 2);
    expectIsolated("<!DOCTYPE root [<!ENTITY e PUBLIC 'p' '" + address + "'>]><root>&e;</root>", 2);
  }
}

TEST_F(Isolation, AnExternalParameterEntityIsNotRead) {
  for (const std::string& address : {secret, std::string("http://127.0.0.1:9/x")}) {
    const std::string document =
        "<!DOCTYPE root [<!ENTITY % p SYSTEM '" + address + "'>%p;]><root/>";
    const SystemCalls calls = listFile(document);
    EXPECT_THAT(calls.opened, Each(path));
    EXPECT_EQ(calls.network, 0);
    EXPECT_THAT(listMemory(document).opened, IsEmpty());
  }
}

TEST_F(Isolation, SchemasAndStylesheetsAreNotRead) {
  for (const std::string& address : {secret, std::string("http://127.0.0.1:9/x.xsd")}) {
    expectIsolated(
        "<root xmlns='urn:quorin:schemas:zqs' "
        "xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance' "
        "xsi:schemaLocation='urn:quorin:schemas:zqs " +
            address + "'/>",
        0);
    expectIsolated(
        "<root xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance' "
        "xsi:noNamespaceSchemaLocation='" +
            address + "'/>",
        0);
    expectIsolated("<?xml-stylesheet href='" + address + "'?><root/>", 0);
    expectIsolated("<root xmlns:xi='http://www.w3.org/2001/XInclude'><xi:include href='" + address +
                       "'/></root>",
                   0);
  }
}

TEST_F(Isolation, AddressesOfOtherSchemesAndHostsAreRefused) {
  for (const std::string& name :
       {std::string("http://127.0.0.1:9/x.xml"), std::string("https://localhost/x.xml"),
        std::string("ftp://localhost/x.xml"), std::string("HTTP://localhost/x.xml"),
        "file://127.0.0.1" + secret, "file://example" + secret,
        std::string("data:text/xml,<root/>")}) {
    SCOPED_TRACE(name);
    const SystemCalls calls = listName(name);
    EXPECT_EQ(calls.result, 2);
    EXPECT_THAT(calls.opened, IsEmpty());
    EXPECT_EQ(calls.network, 0);
  }
}

TEST_F(Isolation, FileAddressesAreLocalPaths) {
  write(path, kGoodDocument);
  for (const std::string& name : {"file://" + path, "file://localhost" + path, "FILE:" + path}) {
    SCOPED_TRACE(name);
    const SystemCalls calls = listName(name);
    EXPECT_EQ(calls.result, 0);
    EXPECT_THAT(calls.opened, Each(path));
    EXPECT_FALSE(calls.opened.empty());
  }
}

}  // namespace
