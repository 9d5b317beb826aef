// The head that objects share, on an object of the test's own whose record orders it unlike those
// of filters and escalations.

#include "xml/ObjectHead.h"

#include <gtest/gtest.h>

#include "xml/handlers/HandlerReader.h"
#include "zqxml/zqxml.h"

namespace {

constexpr Leaf<ZQXMLDSOPool> kLeaves[] = {
    {tag_threadCount, loadUnsigned<&ZQXMLDSOPool::threadCount>},
};

class PoolHandler : public ZQXMLBaseHandler, public ZQXMLHandlerUtils {
 public:
  explicit PoolHandler(const ZQXMLHandlerInfo* info)
      : ZQXMLBaseHandler(info),
        head(info, ZQXML_DSO_POOL, tag_distributedPoolName),
        leaves(kLeaves) {}

  void Init(ZQXMLDSOPool* pool) {
    currentTag = 0;
    target = pool;
    *target = {};
    head.Init(ObjectHeadFields::of(*target), &objectType);
    EXPECT_EQ(objectType, static_cast<uint32_t>(ZQXML_DSO_POOL));
    EXPECT_FALSE(head.isDropped());
  }

  void CleanReferences() override { head.CleanReferences(); }
  void PreProcess(int tag) override { head.PreProcess(tag); }
  void StartElement(int tag, const xercesc::Attributes& attributes) override {
    currentTag = tag;
    if (tag == tag_distributedPool) {
      head.openObject(attributes);
      leaves.empty();
    } else if (!head.open(tag) && !leaves.open(tag)) {
      refuseElement();
    }
  }
  void Characters(const char* text, unsigned) override {
    head.append(text);
    leaves.append(text);
  }
  void EndElement(int tag) override {
    currentTag = 0;
    if (!head.close(tag) && !leaves.close(tag, *target, locator) && tag != tag_distributedPool) {
      refuseElement();
    }
  }
  void PostProcess(int tag) override {
    if (tag == tag_distributedPool) {
      handlerStack->Pop();
      head.closeObject(*target, FreeZQXMLDSOPool);
    }
  }

 private:
  ZQXMLDSOPool* target = nullptr;
  uint32_t objectType = 0;
  ObjectHead head;
  LeafTable<ZQXMLDSOPool> leaves;
};

using PoolReader = HandlerReader<PoolHandler, ZQXMLDSOPool, FreeZQXMLDSOPool>;

TEST(ObjectHead, FillsARecordOfAnyOrder) {
  PoolReader pools;
  const Reading reading = pools.read(
      "<distributedPool zqDocVersion='7' version='x' xmlns='a' xmlns:xsi='b' "
      "xsi:schemaLocation='c' xsi:type='d'><helpText>Help</helpText><threadCount>5</threadCount>"
      "<modifiedDate>1970-01-02T00:00:00Z</modifiedDate><lastModifiedBy>bob</lastModifiedBy>"
      "<owner>ann</owner><distributedPoolName>Pool</distributedPoolName><changeHistory>"
      "<changeEntry modifiedDate='1970-01-01T00:00:09Z' userName='cy'><entry>new</entry>"
      "</changeEntry></changeHistory><objectProperties><property><tag>3</tag></property>"
      "</objectProperties></distributedPool>");
  EXPECT_EQ(reading.number, 0) << reading.text;
  const ZQXMLDSOPool& pool = pools.record();
  EXPECT_STREQ(pool.name, "Pool");
  EXPECT_EQ(pool.xmlDocVersion, 7);
  EXPECT_EQ(pool.threadCount, 5U);
  EXPECT_STREQ(pool.owner, "ann");
  EXPECT_STREQ(pool.lastChanged, "bob");
  EXPECT_EQ(pool.modifiedDate, 86400);
  EXPECT_STREQ(pool.helpText, "Help");
  EXPECT_STREQ(pool.changeDiary, "9\4cy\4new\3");
  ASSERT_EQ(pool.objPropList.numItems, 1U);
  EXPECT_EQ(pool.objPropList.items[0].property, 3U);
}

TEST(ObjectHead, RefusesOtherAttributes) {
  PoolReader pools;
  for (const char* name : {"owner", "xmlns:xsd", "xsi:nil", "zqdocversion", "none"}) {
    const Reading reading = pools.read(std::string("<distributedPool ") + name + "=''/>");
    EXPECT_EQ(reading.number, 8942) << name;
    EXPECT_EQ(reading.text.substr(0, reading.text.find(',')), name);
  }
}

TEST(ObjectHead, ALaterChildCountsAndTheEarlierIsFreed) {
  PoolReader pools;
  const Reading reading = pools.read(
      "<distributedPool><helpText>a</helpText><helpText>b</helpText><changeHistory><changeEntry>"
      "<entry>x</entry></changeEntry></changeHistory><changeHistory/><objectProperties><property>"
      "<value><characterValue>y</characterValue></value></property></objectProperties>"
      "<objectProperties/></distributedPool>");
  EXPECT_EQ(reading.number, 0) << reading.text;
  EXPECT_STREQ(pools.record().helpText, "ab");
  EXPECT_STREQ(pools.record().changeDiary, "");
  EXPECT_EQ(pools.record().objPropList.numItems, 0U);
}

}  // namespace
