// The lists that several objects share, each by its own handler.

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <typeinfo>
#include <vector>

#include "fault/FailingAllocations.h"
#include "records/Members.h"
#include "xml/ZQXMLTagHash.h"
#include "xml/handlers/HandlerReader.h"
#include "xml/handlers/ZQXMLChangeHistHandler.h"
#include "xml/handlers/ZQXMLIndexListHandler.h"
#include "xml/handlers/ZQXMLInternalIDListHandler.h"
#include "xml/handlers/ZQXMLPermListHandler.h"
#include "xml/handlers/ZQXMLPropListHandler.h"
#include "xml/handlers/ZQXMLResultListFieldsHandler.h"
#include "xml/handlers/ZQXMLSortListHandler.h"
#include "xml/handlers/ZQXMLSupportFileListHandler.h"
#include "xml/writers/Written.h"
#include "xml/writers/definitionlists.h"

namespace {

struct Row {
  std::string content, members;
};

// Change histories have a text for a target.
struct DiaryHolder {
  char* diary;
};

class DiaryHandler : public ZQXMLChangeHistHandler {
 public:
  using ZQXMLChangeHistHandler::ZQXMLChangeHistHandler;
  void Init(DiaryHolder* holder) { ZQXMLChangeHistHandler::Init(&holder->diary); }
};

void freeDiary(DiaryHolder* holder, ZQBoolean) {
  free(holder->diary);
}

}  // namespace

template <>
struct records::Description<DiaryHolder> {
  static void visit(auto& v, auto& r) { v.text("changeDiary", r.diary); }
};

namespace {

using PermissionReader =
    HandlerReader<ZQXMLPermListHandler, ZQPermissionList, FreeZQPermissionList>;
using PropertyReader = HandlerReader<ZQXMLPropListHandler, ZQPropList, FreeZQPropList>;
using SortReader = HandlerReader<ZQXMLSortListHandler, ZQSortList, FreeZQSortList>;
using IndexReader = HandlerReader<ZQXMLIndexListHandler, ZQIndexList, FreeZQIndexList>;
using IdReader = HandlerReader<ZQXMLInternalIDListHandler, ZQInternalIdList, FreeZQInternalIdList>;
using DiaryReader = HandlerReader<DiaryHandler, DiaryHolder, freeDiary>;
using ResultFieldReader =
    HandlerReader<ZQXMLResultListFieldsHandler, ZQEntryListFieldList, FreeZQEntryListFieldList>;
using FileReader =
    HandlerReader<ZQXMLSupportFileListHandler, ZQSupportFileInfoList, FreeZQSupportFileInfoList>;

std::string shown(const DiaryHolder& holder) {
  return Members::of(holder);
}

// The elements of a list.
template <typename List>
std::string shown(const List& list) {
  std::string text;
  for (uint32_t i = 0; i < list.numItems; ++i) {
    if constexpr (std::is_arithmetic_v<std::remove_reference_t<decltype(*list.items)>>) {
      text += (i > 0 ? ", " : "") + std::to_string(list.items[i]);
    } else {
      text += (i > 0 ? ", " : "") + Members::of(list.items[i]);
    }
  }
  EXPECT_EQ(list.items == nullptr, list.numItems == 0);
  return text;
}

// The record of a document, or what was told.
template <typename Reader>
std::string membersOf(Reader& reader, const std::string& document) {
  const Reading reading = reader.read(document, false);
  return reading.number == 0 ? shown(reader.record())
                             : std::to_string(reading.number) + " " + reading.text;
}

// Reads the rows within a list element, one after the other by the same handler.
template <typename Reader>
void expectRows(const std::string& list, const std::vector<Row>& rows) {
  Reader reader;
  const std::string empty = membersOf(reader, "<" + list + "/>");
  for (const Row& row : rows) {
    const std::string document = "<" + list + ">\n" + row.content + "</" + list + ">";
    EXPECT_EQ(membersOf(reader, document), row.members) << document;
    EXPECT_EQ(membersOf(reader, "<" + list + ">text</" + list + ">"), empty);
  }
}

TEST(ListReader, Permissions) {
  expectRows<PermissionReader>(
      "modifyPermissionList",
      {
          {"", ""},
          {"<modifyPermission><groupID>7</groupID><modifyRights>readOnly</modifyRights>"
           "</modifyPermission>",
           "groupId=7 permissions=1"},
          {"text<modifyPermission>text<modifyRights>readWrite</modifyRights>text<groupID>"
           "4294967295</groupID></modifyPermission><modifyPermission><groupID>-1</groupID>"
           "<modifyRights>none</modifyRights></modifyPermission>",
           "groupId=4294967295 permissions=2, groupId=4294967295"},
          {"<modifyPermission><modifyRights>none</modifyRights></modifyPermission>", ""},
          // Either word, and either element, in either list.
          {"<viewPermission><viewRights>hidden</viewRights></viewPermission>", "permissions=2"},
          {"<modifyPermission><viewRights>visible</viewRights></modifyPermission>",
           "permissions=1"},
          {"<modifyPermission><modifyRights>hidden</modifyRights></modifyPermission>",
           "permissions=2"},
          {"<modifyPermission><modifyRights>read</modifyRights><viewRights>Only</viewRights>"
           "</modifyPermission>",
           "permissions=1"},
          {"<modifyPermission><groupID>7</groupID></modifyPermission>", "8943 line: 2, column 58"},
          {"<modifyPermission><modifyRights/></modifyPermission>", "8943 line: 2, column 53"},
          {"<modifyPermission><modifyRights>all</modifyRights></modifyPermission>",
           "8943 line: 2, column 70"},
          // Outside of an entry they have no effect.
          {"<groupID>7</groupID><modifyRights>bogus</modifyRights>", ""},
          {"<groupID>7</groupID><modifyPermission><groupID>8</groupID><modifyRights>none"
           "</modifyRights></modifyPermission><groupID>9</groupID>",
           "groupId=8"},
          {"<bogus/>", "8941 bogus, line: 2, column 9"},
          {"<fieldID/>", "8941 fieldID, line: 2, column 11"},
          {"<viewPermissionList/>", "8941 modifyPermissionList, line: 2, column 45"},
      });
  expectRows<PermissionReader>(
      "viewPermissionList",
      {
          {"<viewPermission><groupID>7</groupID><viewRights>visible</viewRights></viewPermission>"
           "<viewPermission><groupID>8</groupID><viewRights>hidden</viewRights></viewPermission>"
           "<viewPermission><groupID>9</groupID><viewRights>none</viewRights></viewPermission>",
           "groupId=7 permissions=1, groupId=8 permissions=2, groupId=9"},
          {"<viewPermission><viewRights>readWrite</viewRights></viewPermission>", "permissions=2"},
      });
}

TEST(ListReader, Properties) {
  for (const char* list : {"objectProperties", "commonProperties", "displayProperties",
                           "properties", "propertyList"}) {
    expectRows<PropertyReader>(
        list,
        {
            {"", ""},
            {"<property><value><integerValue>5</integerValue></value><tag>7</tag></property>",
             "property=7 value{dataType=2 integerValue=5}"},
            {"<property>text<tag>-1</tag>text<value><characterValue>V</characterValue></value>"
             "</property>",
             "property=4294967295 value{dataType=4 characterValue=\"V\"}"},
            {"<property><tag>7</tag></property>", "property=7"},
            {"<property><tag>9223372036854775813</tag></property>", "property=4294967295"},
            {"<property/>", ""},
            {"<property><value><characterValue>V</characterValue></value></property>"
             "<property><tag>7</tag></property>",
             "value{dataType=4 characterValue=\"V\"}, property=7"},
            // Of two values the later one counts; two texts join.
            {"<property><value><characterValue>V</characterValue></value><value><diaryValue>W"
             "</diaryValue></value></property>",
             "value{dataType=5 diaryValue=\"W\"}"},
            {"<property><value><characterValue>V</characterValue></value><value/></property>", ""},
            {"<property><tag>1</tag><tag>2</tag></property>", "property=12"},
            // Outside of an entry they have no effect.
            {"<value><characterValue>V</characterValue></value><tag>1</tag>", ""},
            {"<value><characterValue>V</characterValue></value><tag>1</tag><property/>", ""},
            {"<bogus/>", "8941 bogus, line: 2, column 9"},
            {"<property><bogus/></property>", "8941 bogus, line: 2, column 19"},
            {"<property><value><bogus/></value></property>", "8941 bogus, line: 2, column 26"},
        });
  }
  expectRows<PropertyReader>("properties",
                             {{"<propertyList/>", "8941 properties, line: 2, column 29"}});
}

TEST(ListReader, SortEntries) {
  expectRows<SortReader>(
      "sortList",
      {
          {"", ""},
          {"<sort><fieldID>7</fieldID><sortOrder>ascending</sortOrder></sort>",
           "fieldId=7 sortOrder=1"},
          {"text<sort>text<sortOrder>descending</sortOrder><fieldID>4294967295</fieldID></sort>",
           "fieldId=4294967295 sortOrder=2"},
          {"<sort><sortOrder>ascending</sortOrder></sort><sort><sortOrder>descending</sortOrder>"
           "</sort>",
           "sortOrder=1, sortOrder=2"},
          {"<sort><fieldID>7</fieldID></sort>", "8943 line: 2, column 34"},
          {"<sort><sortOrder/></sort>", "8943 line: 2, column 26"},
          {"<sort><sortOrder>up</sortOrder></sort>", "8943 line: 2, column 39"},
          {"<fieldID>7</fieldID><sortOrder>up</sortOrder>", ""},
          {"<bogus/>", "8941 bogus, line: 2, column 9"},
          {"<sort><groupID/></sort>", "8941 groupID, line: 2, column 17"},
          {"<sortList/>", "8941 sortList, line: 2, column 23"},
      });
}

std::string ids(int count) {
  std::string text;
  for (int i = 1; i <= count; ++i) {
    text += "<fieldID>" + std::to_string(i) + "</fieldID>";
  }
  return text;
}

TEST(ListReader, Indexes) {
  const std::string name254(254, 'i');
  const std::string unique = "<uniqueIndex>true</uniqueIndex>";
  const std::string notUnique = "<uniqueIndex>false</uniqueIndex>";
  expectRows<IndexReader>(
      "formIndexList",
      {
          {"", ""},
          {"<formIndex><indexName>I</indexName>" + unique + "<fieldIDList>" + ids(2) +
               "</fieldIDList></formIndex>",
           "numFields=2 fieldIds[1 2] uniqueIndex=1 indexName=\"I\""},
          {"text<formIndex>text<fieldIDList>text<fieldID>4294967295</fieldID></fieldIDList>" +
               notUnique + "<indexName>" + name254 + "x</indexName></formIndex>",
           "numFields=1 fieldIds[4294967295] indexName=\"" + name254 + "\""},
          {"<formIndex>" + ids(16) + unique + "</formIndex>",
           "numFields=16 fieldIds[1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16] uniqueIndex=1"},
          {"<formIndex>\n" + ids(17) + unique + "</formIndex>", "8944 line: 3, column 349"},
          {"<formIndex><fieldIDList>" + ids(16) + "</fieldIDList>\n<fieldIDList>" + ids(1) +
               "</fieldIDList>" + unique + "</formIndex>",
           "8944 line: 3, column 34"},
          // Each index begins afresh.
          {"<formIndex>" + ids(16) + unique + "</formIndex><formIndex>" + ids(1) + notUnique +
               "</formIndex><formIndex><indexName>I</indexName>" + notUnique + "</formIndex>",
           "numFields=16 fieldIds[1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16] uniqueIndex=1, "
           "numFields=1 fieldIds[1], indexName=\"I\""},
          {"<formIndex><indexName>a</indexName>" + unique + "<indexName>b</indexName></formIndex>",
           "uniqueIndex=1 indexName=\"ab\""},
          {"<formIndex><indexName>a<fieldID>1</fieldID>b</indexName>" + unique + "</formIndex>",
           "numFields=1 fieldIds[1] uniqueIndex=1 indexName=\"a\""},
          {"<formIndex><fieldID>1<indexName>a</indexName>2</fieldID>" + unique + "</formIndex>",
           "numFields=1 fieldIds[1] uniqueIndex=1 indexName=\"a\""},
          {"<formIndex/>", "8943 line: 2, column 13"},
          {"<formIndex><uniqueIndex>yes</uniqueIndex></formIndex>", "8943 line: 2, column 54"},
          {"<indexName>I</indexName><uniqueIndex>yes</uniqueIndex>" + ids(2), ""},
          {ids(2) + "<formIndex>" + notUnique + "</formIndex>", ""},
          {"<bogus/>", "8941 bogus, line: 2, column 9"},
          {"<formIndex><groupID/></formIndex>", "8941 groupID, line: 2, column 22"},
          {"<formIndexList/>", "8941 formIndexList, line: 2, column 33"},
      });
}

TEST(ListReader, Ids) {
  for (const char* list : {"accessList", "subAdminAccessList", "fieldIDList"}) {
    expectRows<IdReader>(
        list, {
                  {"", ""},
                  {"<groupID>7</groupID>", "7"},
                  {"<fieldID>7</fieldID>", "7"},
                  {"text<groupID>1 </groupID>text<fieldID>4294967295</fieldID><fieldID>-1</fieldID>"
                   "<groupID/><groupID>x</groupID><fieldID>4294967298</fieldID>",
                   "1, 4294967295, 4294967295, 0, 0, 2"},
                  {"<groupID>1<fieldID>2</fieldID>3</groupID>", "2, 2"},
                  {"<bogus/>", "8941 bogus, line: 2, column 9"},
                  {"<viewID/>", "8941 viewID, line: 2, column 10"},
              });
  }
  expectRows<IdReader>("accessList", {{"<fieldIDList/>", "8941 accessList, line: 2, column 28"}});
}

TEST(ListReader, ChangeHistories) {
  const std::string user30(30, 'u');
  expectRows<DiaryReader>(
      "changeHistory",
      {
          // Without an entry it is an empty text, not none.
          {"", "changeDiary=\"\""},
          {"<changeEntry modifiedDate='2024-03-01T09:15:00Z' userName='maren'><entry>Text.</entry>"
           "</changeEntry>",
           "changeDiary=\"1709284500<4>maren<4>Text.<3>\""},
          {"<changeEntry modifiedDate='1969-12-31T23:59:58Z'/>text<changeEntry userName='u'>text"
           "<entry>two\nlines</entry>text</changeEntry>",
           "changeDiary=\"-2<4><4><3>0<4>u<4>two<10>lines<3>\""},
          {"<changeEntry userName='" + user30 + "x'/>", "changeDiary=\"0<4>" + user30 + "<4><3>\""},
          // Nothing of an entry shows in the next.
          {"<changeEntry modifiedDate='1970-01-01T00:00:09Z' userName='u'><entry>E</entry>"
           "</changeEntry><changeEntry/>",
           "changeDiary=\"9<4>u<4>E<3>0<4><4><3>\""},
          {"<changeEntry><entry>a</entry><entry>b</entry></changeEntry>",
           "changeDiary=\"0<4><4>ab<3>\""},
          {"<entry>E</entry>", "changeDiary=\"\""},
          {"<entry>E</entry><changeEntry/>", "changeDiary=\"0<4><4><3>\""},
          {"<changeEntry bogus='1'/>", "8942 bogus, line: 2, column 25"},
          {"<changeEntry owner='1'/>", "8942 owner, line: 2, column 25"},
          {"<changeEntry version='1'/>", "8942 version, line: 2, column 27"},
          {"<changeEntry modifiedDate='soon'/>", "8957 soon"},
          {"<bogus/>", "8941 bogus, line: 2, column 9"},
          {"<changeEntry><helpText/></changeEntry>", "8941 helpText, line: 2, column 25"},
          {"<changeHistory/>", "8941 changeHistory, line: 2, column 33"},
      });
}

TEST(ListReader, ResultListFields) {
  expectRows<ResultFieldReader>(
      "resultListFields",
      {
          {"", ""},
          {"<resultListField><fieldID>7</fieldID><fieldSeparator>, </fieldSeparator><fieldWidth>20"
           "</fieldWidth></resultListField>",
           "fieldId=7 fieldWidth=20 fieldSeparator=\", \""},
          {"text<resultListField>text<fieldWidth>-1</fieldWidth><fieldSeparator>  "
           "</fieldSeparator><fieldID>4294967295</fieldID></resultListField>",
           "fieldId=4294967295 fieldWidth=4294967295 fieldSeparator=\"  \""},
          {"<resultListField><fieldSeparator>123456789</fieldSeparator></resultListField>"
           "<resultListField><fieldSeparator>123456789012</fieldSeparator></resultListField>"
           "<resultListField/>",
           "fieldSeparator=\"123456789\", fieldSeparator=\"123456789\", "},
          {"<fieldID>7</fieldID>", ""},
          {"<fieldID>7</fieldID><resultListField/>", ""},
          {"<bogus/>", "8941 bogus, line: 2, column 9"},
          {"<resultListField><groupID/></resultListField>", "8941 groupID, line: 2, column 28"},
          {"<resultListFields/>", "8941 resultListFields, line: 2, column 39"},
      });
}

TEST(ListReader, SupportFiles) {
  expectRows<FileReader>(
      "supportFileList",
      {
          {"", ""},
          {"<supportFile/>", ""},
          {"<supportFile><fileType>externalReport</fileType><fileID>7</fileID><content>QUI=\n"
           "</content><modifiedDate>1970-01-01T00:00:09Z</modifiedDate></supportFile>",
           "fileType=1 fileId=7 timestamp=9 fileSize=2 fileContent[65 66]"},
          {"text<supportFile>text<content>QQ==</content><fileID>4294967295</fileID><fileType>none"
           "</fileType></supportFile><supportFile><fileID>1</fileID></supportFile>",
           "fileId=4294967295 fileSize=1 fileContent[65], fileId=1"},
          {"<supportFile><content/></supportFile>", ""},
          {"<supportFile><content>QUI=</content><content/></supportFile>",
           "fileSize=2 fileContent[65 66]"},
          {"<supportFile><content>QU</content><content>JD</content></supportFile>",
           "fileSize=3 fileContent[65 66 67]"},
          {"<supportFile><fileType/></supportFile>", "8943 line: 2, column 25"},
          {"<supportFile><fileType>bogus</fileType></supportFile>", "8943 line: 2, column 40"},
          {"<supportFile><modifiedDate>soon</modifiedDate></supportFile>", "8957 soon"},
          {"<fileID/>", "8941 fileID, line: 2, column 10"},
          {"<supportFile><bogus/></supportFile>", "8941 bogus, line: 2, column 22"},
          {"<supportFile><supportFile/></supportFile>", "8941 supportFile, line: 2, column 42"},
          {"<supportFileList/>", "8941 supportFileList, line: 2, column 37"},
      });
}

// What a handler holds for a list that isn't finished goes with it, and doesn't show in the next.
template <typename Reader>
void expectNoLeak(const std::string& list, const std::string& content) {
  SCOPED_TRACE(list);
  const std::string start = "<" + list + ">";
  const std::string end = "</" + list + ">";
  const std::string good = start + content + content + end;
  const long before = fault::liveBlocks();
  {
    Reader reader;
    const std::string one = membersOf(reader, start + content + end);
    const std::string empty = membersOf(reader, start + end);
    for (size_t cut = start.size(); cut < good.size(); ++cut) {
      EXPECT_EQ(reader.read(good.substr(0, cut) + "<", false).number, 8940);
      EXPECT_EQ(shown(reader.record()), typeid(Reader) == typeid(DiaryReader) ? "" : empty);
      if (cut % 7 == 0) {
        EXPECT_EQ(membersOf(reader, start + content + end), one);
      }
    }
    const long injected = fault::forEachFailure([&](auto arm) {
      bool failed = false;
      int number = 0;
      {
        const auto failing = arm();
        number = reader.read(good, false).number;
        failed = fault::FailingAllocations::happened();
      }
      EXPECT_EQ(number, failed ? 300 : 0);
      return failed;
    });
    EXPECT_GT(injected, 4);
    EXPECT_EQ(membersOf(reader, start + content + end), one);
    // Destroyed with a list half read.
    EXPECT_EQ(reader.read(start + content + "<bogus/>", false).number, 8941);
  }
  EXPECT_EQ(fault::liveBlocks(), before);
}

TEST(ListReader, UnfinishedLists) {
  expectNoLeak<PermissionReader>(
      "viewPermissionList",
      "<viewPermission><groupID>7</groupID><viewRights>hidden</viewRights></viewPermission>");
  expectNoLeak<PropertyReader>(
      "properties",
      "<property><value><characterValue>V</characterValue></value><tag>7</tag></property>");
  expectNoLeak<SortReader>("sortList",
                           "<sort><fieldID>7</fieldID><sortOrder>ascending</sortOrder></sort>");
  expectNoLeak<IndexReader>(
      "formIndexList",
      "<formIndex><uniqueIndex>true</uniqueIndex><fieldID>1</fieldID></formIndex>");
  expectNoLeak<IdReader>("accessList", "<groupID>7</groupID>");
  expectNoLeak<DiaryReader>("changeHistory",
                            "<changeEntry userName='u'><entry>E</entry></changeEntry>");
  expectNoLeak<ResultFieldReader>("resultListFields",
                                  "<resultListField><fieldID>7</fieldID></resultListField>");
  expectNoLeak<FileReader>("supportFileList", "<supportFile><content>QUI=</content></supportFile>");
}

// Each list is written, read, and written again.
template <typename Reader>
void expectRoundTrip(int tag, const typename Reader::Record& record,
                     int (*write)(ElementSink&, const typename Reader::Record*)) {
  const auto written = [tag, write](const typename Reader::Record& source) {
    ZQGNString text(ZQGNString::BLOCKSIZE_DOCUMENT);
    TextSink sink(text, 0);
    sink.open(tag);
    EXPECT_EQ(write(sink, &source), 0);
    sink.close();
    return std::string(static_cast<char*>(text));
  };
  const std::string text = written(record);
  Reader reader;
  EXPECT_EQ(membersOf(reader, text), shown(record));
  EXPECT_EQ(written(reader.record()), text);
}

template <typename List, typename Item, size_t kSize>
List listOf(Item (&items)[kSize]) {
  List list = {};
  list.numItems = kSize;
  list.items = items;
  return list;
}

TEST(ListRoundTrip, ListsOutsideOfFilters) {
  ZQPermissionStruct permissions[] = {{0, 1}, {4294967295, 2}, {7, 0}};
  const auto permissionList = listOf<ZQPermissionList>(permissions);
  expectRoundTrip<PermissionReader>(tag_modifyPermissionList, permissionList,
                                    writeModifyPermissions);
  expectRoundTrip<PermissionReader>(tag_viewPermissionList, permissionList, writeViewPermissions);
  ZQSortStruct sorts[] = {{7, 1}, {4294967295, 2}};
  expectRoundTrip<SortReader>(tag_sortList, listOf<ZQSortList>(sorts), writeSortList);
  ZQIndexStruct indexes[2] = {};
  indexes[0].numFields = 16;
  for (uint32_t i = 0; i < 16; ++i) {
    indexes[0].fieldIds[i] = i * 300000000;
  }
  strcpy(indexes[0].indexName, "a < b");
  indexes[1].uniqueIndex = 1;
  expectRoundTrip<IndexReader>(tag_formIndexList, listOf<ZQIndexList>(indexes), writeIndexList);
  ZQEntryListFieldStruct fields[3] = {{7, 20, "  "}, {8, 4294967295, ", &"}, {9, 0, ""}};
  expectRoundTrip<ResultFieldReader>(tag_resultListFields, listOf<ZQEntryListFieldList>(fields),
                                     writeEntryListFields);
  ZQPropStruct properties[2] = {};
  properties[0].property = 4294967295;
  properties[0].value.dataType = 2;
  properties[0].value.u.integerValue = -5;
  expectRoundTrip<PropertyReader>(tag_displayProperties, listOf<ZQPropList>(properties),
                                  writeProperties);
}

// The date of a support file is read and never written, and another type than the two is written
// empty, which can't be read.
TEST(ListRoundTrip, SupportFiles) {
  unsigned char bytes[] = {0, 255, 10, 65};
  ZQSupportFileInfoStruct files[2] = {{1, 7, 9, 4, bytes}, {0, 4294967295, 0, 0, nullptr}};
  const auto list = listOf<ZQSupportFileInfoList>(files);
  const auto write = [](ElementSink& sink, const ZQSupportFileInfoList* source) {
    for (uint32_t i = 0; i < source->numItems; ++i) {
      const ZQSupportFileInfoStruct& file = source->items[i];
      sink.within(tag_supportFile, [&] {
        return writeSupportFile(sink, file.fileType, file.fileId, file.fileContent, file.fileSize);
      });
    }
    return 0;
  };
  ZQGNString text(ZQGNString::BLOCKSIZE_DOCUMENT);
  TextSink sink(text, 0);
  sink.open(tag_supportFileList);
  write(sink, &list);
  sink.close();
  FileReader reader;
  EXPECT_EQ(membersOf(reader, static_cast<char*>(text)),
            "fileType=1 fileId=7 fileSize=4 fileContent[0 255 10 65], fileId=4294967295");
}

}  // namespace
