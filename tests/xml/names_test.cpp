// Documents by name: local paths and "file:" addresses, and nothing else.

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <string>
#include <thread>

#include "xml/Listing.h"

namespace {

namespace fs = std::filesystem;

class DocumentNames : public testing::Test {
 protected:
  DocumentNames() : path(folder.write("document.xml", kGoodDocument)) {}

  static std::string percentEncoded(const std::string& text, bool upperCase) {
    std::string result;
    for (const char c : text) {
      char encoded[4];
      snprintf(encoded, sizeof encoded, upperCase ? "%%%02X" : "%%%02x",
               static_cast<unsigned char>(c));
      result += c == '/' ? "/" : encoded;
    }
    return result;
  }

  TestFolder folder;
  std::string path;
};

TEST_F(DocumentNames, LocalPathsAreOpened) {
  const std::string relative = fs::relative(path);
  for (const std::string& name : {path, relative, "./" + relative, "/" + path, "//" + path}) {
    EXPECT_EQ(listFile(name).text(), kGoodListing) << name;
  }
}

TEST_F(DocumentNames, FileAddressesAreOpened) {
  for (const std::string& name :
       {"file://" + path, "file:" + path, "file://localhost" + path, "FILE://" + path,
        "File://LocalHost" + path, "file:" + std::string(fs::relative(path)),
        "file://" + percentEncoded(path, true), "file:" + percentEncoded(path, false)}) {
    EXPECT_EQ(listFile(name).text(), kGoodListing) << name;
  }
}

TEST_F(DocumentNames, AnAddressIsDecodedAndAPathIsNot) {
  const std::string spaced = folder.write("a b%20\xC3\xA9#?.xml", kGoodDocument);
  EXPECT_EQ(listFile(spaced).text(), kGoodListing);
  EXPECT_EQ(listFile("file://" + folder.path() + "/a%20b%2520%C3%A9%23%3F.xml").text(),
            kGoodListing);
  // In an address %20 is a blank.
  EXPECT_EQ(listFile("file://" + folder.path() + "/a%20b%20%C3%A9%23%3F.xml").text(),
            "2 |  | 2/8940 *");
  // What is no code stays as it is.
  folder.write("100%.xml", kGoodDocument);
  folder.write("%zz%4.xml", kGoodDocument);
  EXPECT_EQ(listFile("file://" + folder.path() + "/100%.xml").text(), kGoodListing);
  EXPECT_EQ(listFile("file://" + folder.path() + "/%zz%4.xml").text(), kGoodListing);
  EXPECT_EQ(listFile("file://" + path + "%00.xml").text(), "2 |  | 2/8940 *");
}

TEST_F(DocumentNames, UnusualPathsAreOpened) {
  for (const char* name : {"\xC3\xA9t\xC3\xA9.xml", "with blank.xml", "a&b<c>\"'.xml",
                           "\xFF\xFE.xml", "%41.xml", "#x.xml", "100%", "a;b", "-", "x\ny.xml"}) {
    EXPECT_EQ(listFile(folder.write(name, kGoodDocument)).text(), kGoodListing) << name;
  }
}

TEST_F(DocumentNames, OtherSchemesAndHostsAreRefused) {
  for (const std::string& name :
       {std::string("http://127.0.0.1:9/x.xml"), std::string("https://localhost/x.xml"),
        std::string("ftp://127.0.0.1/x.xml"), std::string("HTTP://localhost/x.xml"),
        std::string("data:text/xml,<root/>"), std::string("jar:file:/x"), std::string("urn:x"),
        "file://otherhost" + path, "file://127.0.0.1" + path, "file://localhost:80" + path,
        "file://user@localhost" + path, std::string("x:"), std::string("a+b-c.d:e")}) {
    const Listing listing = listFile(name);
    EXPECT_EQ(
        listing.text(),
        "2 |  | 2/8940 Only local paths and \"file:\" addresses of this host are opened: " + name)
        << name;
    EXPECT_EQ(listing.place(), "0:0");
  }
}

TEST_F(DocumentNames, AColonInAPathIsNoScheme) {
  EXPECT_EQ(listFile(folder.write("a:b.xml", kGoodDocument)).text(), kGoodListing);
  const std::string relative = fs::relative(folder.path() + "/a:b.xml");
  EXPECT_EQ(listFile(relative).text(), kGoodListing);
  // A scheme consists of letters, digits, "+", "-" and ".".
  const fs::path folderBefore = fs::current_path();
  fs::current_path(folder.path());
  fs::create_directory("sub");
  for (const char* name :
       {"a_b:c.xml", "sub/a:b.xml", "two words:c.xml", "a\xC3\xA9:c.xml", "7up:c.xml", ":c.xml"}) {
    folder.write(name, kGoodDocument);
    EXPECT_EQ(listFile(name).text(), kGoodListing) << name;
  }
  fs::current_path(folderBefore);
}

TEST_F(DocumentNames, WhatCannotBeOpenedOrReadIs8940WithoutAPlace) {
  fs::create_directory(folder.path() + "/directory");
  for (const std::string& name :
       {std::string(), std::string("/nowhere"), folder.path() + "/nowhere.xml",
        folder.path() + "/directory", folder.path(), path + "/", path + "/x.xml",
        "file://" + folder.path() + "/nowhere.xml", std::string("file:"), std::string("file://"),
        std::string("file://localhost"), std::string("/"), std::string("."),
        "/" + std::string(10000, 'x'), std::string(300, 'x')}) {
    const Listing listing = listFile(name);
    EXPECT_EQ(listing.text(), "2 |  | 2/8940 *") << name;
    EXPECT_EQ(listing.place(), "0:0") << name;
  }
}

TEST_F(DocumentNames, AnEmptyFileIsAnEmptyDocument) {
  EXPECT_EQ(listFile(folder.write("empty.xml", "")).text(), "2 |  | 2/8940 *");
  EXPECT_EQ(listFile("/dev/null").text(), "2 |  | 2/8940 *");
}

TEST_F(DocumentNames, APipeIsRead) {
  const std::string pipe = folder.path() + "/pipe";
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  ParserHandle handle;
  std::thread writer([&] { folder.write("pipe", kGoodDocument); });
  EXPECT_EQ(listWith(&handle, ZQXML_INPUT_FILE, pipe).text(), kGoodListing);
  writer.join();
}

TEST_F(DocumentNames, ALinkIsFollowed) {
  fs::create_symlink(path, folder.path() + "/link.xml");
  fs::create_symlink(folder.path() + "/nowhere.xml", folder.path() + "/broken.xml");
  EXPECT_EQ(listFile(folder.path() + "/link.xml").text(), kGoodListing);
  EXPECT_EQ(listFile(folder.path() + "/broken.xml").text(), "2 |  | 2/8940 *");
}

TEST_F(DocumentNames, NoFileStaysOpen) {
  ParserHandle handle;
  const auto openFiles = [] {
    const fs::directory_iterator files("/proc/self/fd");
    return std::distance(begin(files), end(files));
  };
  const std::string bad = folder.write("bad.xml", "<root><form>");
  const auto before = openFiles();
  for (int i = 0; i < 100; ++i) {
    for (const std::string& name : {path, bad, folder.path(), std::string("/nowhere")}) {
      listWith(&handle, ZQXML_INPUT_FILE, name);
    }
  }
  EXPECT_EQ(openFiles(), before);
}

}  // namespace
