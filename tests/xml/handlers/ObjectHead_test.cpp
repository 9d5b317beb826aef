// The head that objects share, on an object of the test's own whose record orders it unlike those
// of filters and escalations.

#include "xml/ObjectHead.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "xml/handlers/HandlerReader.h"
#include "zqxml/zqxml.h"

namespace {

constexpr auto kPoolLeaves = objectLeaves<ZQXMLDSOPool>({
    {tag_distributedPoolName, loadName<&ZQXMLDSOPool::name>},
    {tag_threadCount, loadUnsigned<&ZQXMLDSOPool::threadCount>},
});

// A handler that has nothing but its head. `kPart` is for an object that is part of another one.
template <const auto& kElement, typename Object, bool kPart = false>
class HeadHandler : public ZQXMLBaseHandler, public ZQXMLHandlerUtils {
 public:
  explicit HeadHandler(const ZQXMLHandlerInfo* info)
      : ZQXMLBaseHandler(info), head(info, kElement) {}

  void Init(Object* object) {
    currentTag = 0;
    head.Init(object, kPart ? nullptr : &objectType);
    EXPECT_EQ(objectType, kPart ? 0 : kElement.kind);
    EXPECT_FALSE(head.isDropped());
  }

  void CleanReferences() override { head.CleanReferences(); }
  void PreProcess(int tag) override { head.PreProcess(tag); }
  void StartElement(int tag, const xercesc::Attributes& attributes) override {
    currentTag = head.StartElement(tag, attributes);
  }
  void Characters(const char* text, unsigned) override { head.Characters(text); }
  void EndElement(int tag) override {
    currentTag = 0;
    head.EndElement(tag);
  }
  void PostProcess(int tag) override { head.PostProcess(tag); }

 private:
  uint32_t objectType = 0;
  ObjectHead<Object> head;
};

constexpr ObjectElement<ZQXMLDSOPool> kPool = {ZQXML_DSO_POOL, tag_distributedPool,
                                               FreeZQXMLDSOPool, kPoolLeaves};
using PoolHandler = HeadHandler<kPool, ZQXMLDSOPool>;
using PoolReader = HandlerReader<PoolHandler, ZQXMLDSOPool, FreeZQXMLDSOPool>;

constexpr auto kViewLeaves = objectLeaves<ZQXMLVUI>({
    {tag_formName, loadName<&ZQXMLVUI::name>},
});
constexpr ObjectElement<ZQXMLVUI> kViews = {ZQXML_VUI, tag_vui, FreeZQXMLVUI, kViewLeaves};
using ViewReader = HandlerReader<HeadHandler<kViews, ZQXMLVUI>, ZQXMLVUI, FreeZQXMLVUI>;

constexpr auto kFieldLeaves = objectLeaves<ZQXMLField>({
    {tag_fieldName, loadName<&ZQXMLField::fieldName>},
});
void freeField(ZQXMLField* field, ZQBoolean) {
  free(field->helpText);
  free(field->changeDiary);
}
constexpr ObjectElement<ZQXMLField> kField = {ZQXML_FIELD, tag_field, freeField, kFieldLeaves};
using FieldReader = HandlerReader<HeadHandler<kField, ZQXMLField>, ZQXMLField, freeField>;
using PartReader = HandlerReader<HeadHandler<kField, ZQXMLField, true>, ZQXMLField, freeField>;

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

TEST(ObjectHead, TakesOnlyWhatTheRecordHas) {
  ViewReader views;
  const std::string good =
      "<vui zqDocVersion='2'><modifiedDate>1970-01-01T00:00:09Z</modifiedDate>"
      "<formName>Form</formName></vui>";
  EXPECT_EQ(views.read(good).number, 0);
  EXPECT_STREQ(views.record().name, "Form");
  EXPECT_EQ(views.record().xmlDocVersion, 2);
  EXPECT_EQ(views.record().modifiedDate, 9);
  for (const char* name :
       {"owner", "lastModifiedBy", "helpText", "changeHistory", "objectProperties"}) {
    expectRefused(views, std::string("<vui><") + name + "/>@</vui>", 8941, name);
  }

  FieldReader fields;
  EXPECT_EQ(fields
                .read("<field><changeHistory/><helpText>h</helpText><owner>o</owner>"
                      "<fieldName>Field</fieldName></field>")
                .number,
            0);
  EXPECT_STREQ(fields.record().fieldName, "Field");
  EXPECT_STREQ(fields.record().helpText, "h");
  EXPECT_STREQ(fields.record().changeDiary, "");
  EXPECT_STREQ(fields.record().owner, "o");
  expectRefused(fields, "<field><objectProperties/>@</field>", 8941, "objectProperties");
}

TEST(ObjectHead, OnlyAnObjectOfItsOwnIsDropped) {
  ZQStructItemStruct item = {ZQXML_FIELD, "B", {}};
  ZQStructItemList selection = {1, &item};
  const std::string document = "<field><fieldName>A</fieldName><unknown/><owner>o</owner></field>";
  FieldReader fields;
  EXPECT_EQ(fields.read(document, true, &selection),
            (Reading{0, "", tools::Dumper::dump(ZQXMLField{})}));
  PartReader parts;
  EXPECT_EQ(parts.read(document, false, &selection).number, 8941);
  EXPECT_EQ(parts.read("<field><fieldName>A</fieldName><owner>o</owner></field>", false, &selection)
                .number,
            0);
  EXPECT_STREQ(parts.record().owner, "o");
}

}  // namespace
