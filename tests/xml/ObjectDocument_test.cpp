#include "xml/ObjectDocument.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <fstream>
#include <sstream>
#include <string>

#include "fault/FailingAllocations.h"
#include "records/StatusLists.h"
#include "xml/DOMTree.h"
#include "zqxml/zqxml.h"

namespace {

// A small object: a version and a name.
int writeThing(ElementSink& sink, const char* name) {
  sink.signedAttribute(tag_zqDocVersion, 7);
  sink.elementUnlessEmpty(tag_owner, name);
  return 0;
}

int setThingToXML(ZQXMLOutputDoc* doc, uint32_t frame, const char* name, ZQStatusList* status) {
  return writeObjectDocument(doc, frame, tag_form, status,
                             [&](ElementSink& sink) { return writeThing(sink, name); });
}

const std::string kThing =
    "\t<form xmlns=\"urn:quorin:schemas:zqs\" "
    "xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" "
    "xsi:schemaLocation=\"urn:quorin:schemas:zqs zqs.xsd\" zqDocVersion=\"7\">\n"
    "\t\t<owner>a &lt; b</owner>\n\t</form>\n";
const std::string kFramedThing = "<?xml version=\"1.0\" encoding=\"windows-1252\"?>" +
                                 std::string(29, ' ') + "\n<root>\n" + kThing + "</root>\n";

std::string readFile(const std::string& path) {
  std::ostringstream text;
  text << std::ifstream(path, std::ios::binary).rdbuf();
  return text.str();
}

class ObjectDocument : public testing::Test {
 protected:
  ObjectDocument() { mkdtemp(folder); }
  ~ObjectDocument() override {
    unlink(path().c_str());
    rmdir(folder);
  }
  std::string path() const { return std::string(folder) + "/document.xml"; }

  char folder[32] = "/tmp/objectdocumentXXXXXX";
  OwnedStatusList status;
};

TEST_F(ObjectDocument, TheFrameIsForOneAlone) {
  for (const uint32_t frame : {0U, 1U, 2U, 0x101U, 0xFFFFFFFFU}) {
    ZQXMLOutputDoc doc = {1, {}};
    EXPECT_EQ(setThingToXML(&doc, frame, "a < b", &status), 0);
    EXPECT_EQ(doc.u.doc, frame == 1 ? kFramedThing : kThing);
    FreeZQXMLOutputDocInternal(&doc, 0);
  }
  EXPECT_EQ(describe(status), "");
}

TEST_F(ObjectDocument, AnEmptyObjectIsOneElement) {
  ZQXMLOutputDoc doc = {1, {}};
  EXPECT_EQ(writeObjectDocument(&doc, 0, tag_vui, &status, [](ElementSink&) { return 0; }), 0);
  EXPECT_STREQ(doc.u.doc,
               "\t<vui xmlns=\"urn:quorin:schemas:zqs\" "
               "xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" "
               "xsi:schemaLocation=\"urn:quorin:schemas:zqs zqs.xsd\"/>\n");
  FreeZQXMLOutputDocInternal(&doc, 0);
}

TEST_F(ObjectDocument, ATreeOfTheSameElementsPrintsTheSame) {
  const DOMTree tree("scratch");
  DOMSink sink(tree.get(), tree.root());
  openObject(sink, tag_form);
  EXPECT_EQ(writeThing(sink, "a < b"), 0);
  sink.close();
  ZQGNString text;
  EXPECT_EQ(PrintDOMNode(1, tree.root()->getFirstChild(), text), 0);
  EXPECT_EQ(static_cast<char*>(text), kThing);
}

TEST_F(ObjectDocument, ObjectsFormOneFile) {
  std::string name = path();
  ZQXMLOutputDoc doc = {2, {name.data()}};
  EXPECT_EQ(SetDocHeaderToXML(&doc, &status), 0);
  EXPECT_EQ(setThingToXML(&doc, 0, "a < b", &status), 0);
  EXPECT_EQ(setThingToXML(&doc, 0, "a < b", &status), 0);
  EXPECT_EQ(SetDocFooterToXML(&doc, &status), 0);
  const std::string end = "</root>\n";
  EXPECT_EQ(readFile(name),
            kFramedThing.substr(0, kFramedThing.size() - end.size()) + kThing + end);
}

TEST_F(ObjectDocument, ADescriptorGetsTheWholeDocument) {
  ZQXMLOutputDoc doc = {4, {}};
  doc.u.fileHandle = open(path().c_str(), O_CREAT | O_WRONLY, 0600);
  EXPECT_EQ(setThingToXML(&doc, 1, "a < b", &status), 0);
  close(doc.u.fileHandle);
  EXPECT_EQ(readFile(path()), kFramedThing);
}

TEST_F(ObjectDocument, ABuilderFailureIsRecordedAndNothingWritten) {
  std::ofstream(path()) << "before";
  std::string name = path();
  char other[] = "untouched";
  for (ZQXMLOutputDoc doc : {ZQXMLOutputDoc{1, {other}}, ZQXMLOutputDoc{2, {name.data()}}}) {
    for (const int number : {300, 8936}) {
      OwnedStatusList list;
      EXPECT_EQ(writeObjectDocument(&doc, 1, tag_form, &list,
                                    [&](ElementSink& sink) {
                                      sink.element(tag_owner, "lost");
                                      return number;
                                    }),
                2);
      EXPECT_EQ(describe(list), "2/" + std::to_string(number) + " ");
    }
  }
  EXPECT_STREQ(other, "untouched");
  EXPECT_EQ(readFile(path()), "before");
}

TEST_F(ObjectDocument, TheResultIsThatOfTheAddition) {
  ZQAddErrorMessage(&status, 1, 8940, "before");
  EXPECT_EQ(setThingToXML(nullptr, 1, "a", &status), 2);
  EXPECT_EQ(describe(status), "2/8952 ; 1/8940 before");
  EXPECT_EQ(setThingToXML(nullptr, 1, "a", nullptr), 2);
}

TEST_F(ObjectDocument, UnknownWaysOutFailInTheEnd) {
  for (const uint32_t kind : {0U, 3U, 5U, 0xFFFFFFFFU}) {
    ZQXMLOutputDoc doc = {kind, {}};
    bool built = false;
    OwnedStatusList list;
    EXPECT_EQ(writeObjectDocument(&doc, 0, tag_form, &list,
                                  [&](ElementSink&) {
                                    built = true;
                                    return 0;
                                  }),
              2);
    EXPECT_TRUE(built);
    EXPECT_EQ(describe(list), "2/8952 ");
  }
}

TEST_F(ObjectDocument, FailuresOfTheWayOut) {
  char absent[] = "/absent/document.xml";
  ZQXMLOutputDoc doc = {2, {absent}};
  EXPECT_EQ(setThingToXML(&doc, 0, "a", &status), 2);
  EXPECT_EQ(describe(status), "2/8954 ");
  doc = {4, {}};
  doc.u.fileHandle = -1;
  EXPECT_EQ(setThingToXML(&doc, 0, "a", &status), 2);
  EXPECT_EQ(describe(status), "2/301 ; 2/8954 ");
}

TEST_F(ObjectDocument, FailingAllocationsGive300AndNothingIsWritten) {
  const std::string longName(20000, 'n');
  const long injected = fault::forEachFailure([&](auto arm) {
    ZQXMLOutputDoc doc = {1, {}};
    ZQStatusList list = {};
    int result = 0;
    bool failed = false;
    {
      const auto failing = arm();
      result = setThingToXML(&doc, 1, longName.c_str(), &list);
      failed = fault::FailingAllocations::happened();
    }
    if (!failed) {
      EXPECT_EQ(result, 0);
    } else if (result == 2) {
      EXPECT_EQ(describe(list), "2/300 ");
    } else {
      EXPECT_EQ(result, 3);
    }
    EXPECT_EQ(doc.u.doc != nullptr, !failed);
    FreeZQXMLOutputDocInternal(&doc, 0);
    FreeZQStatusList(&list, 0);
    return failed;
  });
  EXPECT_GE(injected, 8);
}

}  // namespace
