// The lists that several objects share, each by its own handler.

#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "fault/FailingAllocations.h"
#include "records/Members.h"
#include "xml/ZQXMLTagHash.h"
#include "xml/handlers/ListReader.h"
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

struct DiaryHolder {
  char* diary;
};

// Change histories have a text for a target.
class DiaryHandler : public ZQXMLChangeHistHandler {
 public:
  using ZQXMLChangeHistHandler::ZQXMLChangeHistHandler;
  void Init(DiaryHolder* holder) { ZQXMLChangeHistHandler::Init(&holder->diary); }
};

void freeDiary(DiaryHolder* holder, ZQBoolean) {
  free(holder->diary);
}

std::string shown(const DiaryHolder& holder) {
  ZQXMLFilter filter = {};
  filter.changeDiary = holder.diary;
  return Members::of(filter);
}

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

// Reads the rows within a list element, one after the other by the same handler.
template <typename Handler, typename Record>
void expectRead(const std::string& list, void (*freeRecord)(Record*, ZQBoolean),
                const std::vector<Row>& rows) {
  ListReader<Handler, Record> reader;
  for (const Row& row : rows) {
    SCOPED_TRACE(row.content);
    const std::string document = "<" + list + ">\n" + row.content + "</" + list + ">";
    const auto read = [&reader, freeRecord](const std::string& text) {
      std::string fault;
      Record record = reader.read(text, fault);
      const std::string members = fault.empty() ? shown(record) : fault;
      freeRecord(&record, 0);
      return members;
    };
    EXPECT_EQ(read(document), row.members);
    EXPECT_EQ(read("<" + list + "/>"), read("<" + list + ">text</" + list + ">"));
  }
}

TEST(ListReader, Permissions) {
  expectRead<ZQXMLPermListHandler>(
      "modifyPermissionList", FreeZQPermissionList,
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
          {"<modifyPermission><groupID>7</groupID></modifyPermission>",
           "2/8943 line: 2, column 58"},
          {"<modifyPermission><modifyRights/></modifyPermission>", "2/8943 line: 2, column 53"},
          {"<modifyPermission><modifyRights>all</modifyRights></modifyPermission>",
           "2/8943 line: 2, column 70"},
          // Outside of an entry they have no effect.
          {"<groupID>7</groupID><modifyRights>bogus</modifyRights>", ""},
          {"<groupID>7</groupID><modifyPermission><groupID>8</groupID><modifyRights>none"
           "</modifyRights></modifyPermission><groupID>9</groupID>",
           "groupId=8"},
          {"<bogus/>", "2/8941 bogus, line: 2, column 9"},
          {"<fieldID/>", "2/8941 fieldID, line: 2, column 11"},
          {"<viewPermissionList/>", "2/8941 modifyPermissionList, line: 2, column 45"},
      });
  expectRead<ZQXMLPermListHandler>(
      "viewPermissionList", FreeZQPermissionList,
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
    expectRead<ZQXMLPropListHandler>(
        list, FreeZQPropList,
        {
            {"", ""},
            {"<property><value><integerValue>5</integerValue></value><tag>7</tag></property>",
             "property=7 value{dataType=2 integerValue=5}"},
            {"<property>text<tag>-1</tag>text<value><characterValue>V</characterValue></value>"
             "</property>",
             "property=4294967295 value{dataType=4 characterValue=\"V\"}"},
            {"<property><tag>7</tag></property>", "property=7"},
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
            {"<bogus/>", "2/8941 bogus, line: 2, column 9"},
            {"<property><bogus/></property>", "2/8941 bogus, line: 2, column 19"},
            {"<property><value><bogus/></value></property>", "2/8941 bogus, line: 2, column 26"},
        });
  }
  expectRead<ZQXMLPropListHandler>("properties", FreeZQPropList,
                                   {{"<propertyList/>", "2/8941 properties, line: 2, column 29"}});
}

TEST(ListReader, SortEntries) {
  expectRead<ZQXMLSortListHandler>(
      "sortList", FreeZQSortList,
      {
          {"", ""},
          {"<sort><fieldID>7</fieldID><sortOrder>ascending</sortOrder></sort>",
           "fieldId=7 sortOrder=1"},
          {"text<sort>text<sortOrder>descending</sortOrder><fieldID>4294967295</fieldID></sort>",
           "fieldId=4294967295 sortOrder=2"},
          {"<sort><sortOrder>ascending</sortOrder></sort><sort><sortOrder>descending</sortOrder>"
           "</sort>",
           "sortOrder=1, sortOrder=2"},
          {"<sort><fieldID>7</fieldID></sort>", "2/8943 line: 2, column 34"},
          {"<sort><sortOrder/></sort>", "2/8943 line: 2, column 26"},
          {"<sort><sortOrder>up</sortOrder></sort>", "2/8943 line: 2, column 39"},
          {"<fieldID>7</fieldID><sortOrder>up</sortOrder>", ""},
          {"<bogus/>", "2/8941 bogus, line: 2, column 9"},
          {"<sort><groupID/></sort>", "2/8941 groupID, line: 2, column 17"},
          {"<sortList/>", "2/8941 sortList, line: 2, column 23"},
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
  expectRead<ZQXMLIndexListHandler>(
      "formIndexList", FreeZQIndexList,
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
          {"<formIndex>\n" + ids(17) + unique + "</formIndex>", "2/8944 line: 3, column 349"},
          {"<formIndex><fieldIDList>" + ids(16) + "</fieldIDList>\n<fieldIDList>" + ids(1) +
               "</fieldIDList>" + unique + "</formIndex>",
           "2/8944 line: 3, column 34"},
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
          {"<formIndex/>", "2/8943 line: 2, column 13"},
          {"<formIndex><uniqueIndex>yes</uniqueIndex></formIndex>", "2/8943 line: 2, column 54"},
          {"<indexName>I</indexName><uniqueIndex>yes</uniqueIndex>" + ids(2), ""},
          {ids(2) + "<formIndex>" + notUnique + "</formIndex>", ""},
          {"<bogus/>", "2/8941 bogus, line: 2, column 9"},
          {"<formIndex><groupID/></formIndex>", "2/8941 groupID, line: 2, column 22"},
          {"<formIndexList/>", "2/8941 formIndexList, line: 2, column 33"},
      });
}

TEST(ListReader, Ids) {
  for (const char* list : {"accessList", "subAdminAccessList", "fieldIDList"}) {
    expectRead<ZQXMLInternalIDListHandler>(
        list, FreeZQInternalIdList,
        {
            {"", ""},
            {"<groupID>7</groupID>", "7"},
            {"<fieldID>7</fieldID>", "7"},
            {"text<groupID>1 </groupID>text<fieldID>4294967295</fieldID><fieldID>-1</fieldID>"
             "<groupID/><groupID>x</groupID><fieldID>4294967298</fieldID>",
             "1, 4294967295, 4294967295, 0, 0, 2"},
            {"<groupID>1<fieldID>2</fieldID>3</groupID>", "2, 2"},
            {"<bogus/>", "2/8941 bogus, line: 2, column 9"},
            {"<viewID/>", "2/8941 viewID, line: 2, column 10"},
        });
  }
  expectRead<ZQXMLInternalIDListHandler>(
      "accessList", FreeZQInternalIdList,
      {{"<fieldIDList/>", "2/8941 accessList, line: 2, column 28"}});
}

TEST(ListReader, ChangeHistories) {
  const std::string user30(30, 'u');
  expectRead<DiaryHandler>(
      "changeHistory", freeDiary,
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
          {"<changeEntry bogus='1'/>", "2/8942 bogus, line: 2, column 25"},
          {"<changeEntry owner='1'/>", "2/8942 owner, line: 2, column 25"},
          {"<changeEntry version='1'/>", "2/8942 version, line: 2, column 27"},
          {"<changeEntry modifiedDate='soon'/>", "2/8957 soon"},
          {"<bogus/>", "2/8941 bogus, line: 2, column 9"},
          {"<changeEntry><helpText/></changeEntry>", "2/8941 helpText, line: 2, column 25"},
          {"<changeHistory/>", "2/8941 changeHistory, line: 2, column 33"},
      });
}

TEST(ListReader, ResultListFields) {
  expectRead<ZQXMLResultListFieldsHandler>(
      "resultListFields", FreeZQEntryListFieldList,
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
          {"<bogus/>", "2/8941 bogus, line: 2, column 9"},
          {"<resultListField><groupID/></resultListField>", "2/8941 groupID, line: 2, column 28"},
          {"<resultListFields/>", "2/8941 resultListFields, line: 2, column 39"},
      });
}

TEST(ListReader, SupportFiles) {
  expectRead<ZQXMLSupportFileListHandler>(
      "supportFileList", FreeZQSupportFileInfoList,
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
          {"<supportFile><fileType/></supportFile>", "2/8943 line: 2, column 25"},
          {"<supportFile><fileType>bogus</fileType></supportFile>", "2/8943 line: 2, column 40"},
          {"<supportFile><modifiedDate>soon</modifiedDate></supportFile>", "2/8957 soon"},
          {"<fileID/>", "2/8941 fileID, line: 2, column 10"},
          {"<supportFile><bogus/></supportFile>", "2/8941 bogus, line: 2, column 22"},
          {"<supportFile><supportFile/></supportFile>", "2/8941 supportFile, line: 2, column 42"},
          {"<supportFileList/>", "2/8941 supportFileList, line: 2, column 37"},
      });
}

// What a handler holds for a list that isn't finished goes with it, and doesn't show in the next.
template <typename Handler, typename Record>
void expectNoLeak(const std::string& list, const std::string& content,
                  void (*freeRecord)(Record*, ZQBoolean)) {
  SCOPED_TRACE(list);
  const std::string good = "<" + list + ">" + content + content + "</" + list + ">";
  const long before = fault::liveBlocks();
  {
    ListReader<Handler, Record> reader;
    std::string fault;
    Record record = reader.read("<" + list + ">" + content + "</" + list + ">", fault);
    const std::string one = shown(record);
    freeRecord(&record, 0);
    for (size_t cut = good.find('>') + 1; cut < good.size(); ++cut) {
      record = reader.read(good.substr(0, cut) + "<", fault);
      EXPECT_EQ(shown(record), shown(Record{}));
      freeRecord(&record, 0);
      if (cut % 7 == 0) {
        record = reader.read("<" + list + ">" + content + "</" + list + ">", fault);
        EXPECT_EQ(fault, "");
        EXPECT_EQ(shown(record), one);
        freeRecord(&record, 0);
      }
    }
    const long injected = fault::forEachFailure([&](auto arm) {
      bool failed = false;
      OwnedStatusList status;
      int result = 0;
      reader.prepare();
      {
        const auto failing = arm();
        result = reader.parse(good, record, &status);
        failed = fault::FailingAllocations::happened();
      }
      EXPECT_EQ(result != 0, failed);
      EXPECT_EQ(describe(status), result == 2 ? "2/300 " : "");
      freeRecord(&record, 0);
      return failed;
    });
    EXPECT_GT(injected, 4);
    record = reader.read("<" + list + ">" + content + "</" + list + ">", fault);
    EXPECT_EQ(shown(record), one);
    freeRecord(&record, 0);
    // Destroyed with a list half read.
    record = reader.read("<" + list + ">" + content + "<bogus/>", fault);
    EXPECT_NE(fault, "");
    freeRecord(&record, 0);
  }
  EXPECT_EQ(fault::liveBlocks(), before);
}

TEST(ListReader, UnfinishedLists) {
  expectNoLeak<ZQXMLPermListHandler>(
      "viewPermissionList",
      "<viewPermission><groupID>7</groupID><viewRights>hidden</viewRights></viewPermission>",
      FreeZQPermissionList);
  expectNoLeak<ZQXMLPropListHandler>(
      "properties",
      "<property><value><characterValue>V</characterValue></value><tag>7</tag></property>",
      FreeZQPropList);
  expectNoLeak<ZQXMLSortListHandler>(
      "sortList", "<sort><fieldID>7</fieldID><sortOrder>ascending</sortOrder></sort>",
      FreeZQSortList);
  expectNoLeak<ZQXMLIndexListHandler>(
      "formIndexList", "<formIndex><uniqueIndex>true</uniqueIndex><fieldID>1</fieldID></formIndex>",
      FreeZQIndexList);
  expectNoLeak<ZQXMLInternalIDListHandler>("accessList", "<groupID>7</groupID>",
                                           FreeZQInternalIdList);
  expectNoLeak<DiaryHandler>("changeHistory",
                             "<changeEntry userName='u'><entry>E</entry></changeEntry>", freeDiary);
  expectNoLeak<ZQXMLResultListFieldsHandler>(
      "resultListFields", "<resultListField><fieldID>7</fieldID></resultListField>",
      FreeZQEntryListFieldList);
  expectNoLeak<ZQXMLSupportFileListHandler>("supportFileList",
                                            "<supportFile><content>QUI=</content></supportFile>",
                                            FreeZQSupportFileInfoList);
}

// Each list is written, read, and written again.
template <typename Handler, typename Record>
void expectRoundTrip(int tag, const Record& record, int (*write)(ElementSink&, const Record*),
                     void (*freeRecord)(Record*, ZQBoolean)) {
  const auto written = [tag, write](const Record& source) {
    ZQGNString text(ZQGNString::BLOCKSIZE_DOCUMENT);
    TextSink sink(text, 0);
    sink.open(tag);
    EXPECT_EQ(write(sink, &source), 0);
    sink.close();
    return std::string(static_cast<char*>(text));
  };
  const std::string text = written(record);
  ListReader<Handler, Record> reader;
  std::string fault;
  Record read = reader.read(text, fault);
  EXPECT_EQ(fault, "");
  EXPECT_EQ(shown(read), shown(record));
  EXPECT_EQ(written(read), text);
  freeRecord(&read, 0);
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
  expectRoundTrip<ZQXMLPermListHandler>(tag_modifyPermissionList, permissionList,
                                        writeModifyPermissions, FreeZQPermissionList);
  expectRoundTrip<ZQXMLPermListHandler>(tag_viewPermissionList, permissionList,
                                        writeViewPermissions, FreeZQPermissionList);
  ZQSortStruct sorts[] = {{7, 1}, {4294967295, 2}};
  expectRoundTrip<ZQXMLSortListHandler>(tag_sortList, listOf<ZQSortList>(sorts), writeSortList,
                                        FreeZQSortList);
  ZQIndexStruct indexes[2] = {};
  indexes[0].numFields = 16;
  for (uint32_t i = 0; i < 16; ++i) {
    indexes[0].fieldIds[i] = i * 300000000;
  }
  strcpy(indexes[0].indexName, "a < b");
  indexes[1].uniqueIndex = 1;
  expectRoundTrip<ZQXMLIndexListHandler>(tag_formIndexList, listOf<ZQIndexList>(indexes),
                                         writeIndexList, FreeZQIndexList);
  ZQEntryListFieldStruct fields[3] = {{7, 20, "  "}, {8, 4294967295, ", &"}, {9, 0, ""}};
  expectRoundTrip<ZQXMLResultListFieldsHandler>(tag_resultListFields,
                                                listOf<ZQEntryListFieldList>(fields),
                                                writeEntryListFields, FreeZQEntryListFieldList);
  ZQPropStruct properties[2] = {};
  properties[0].property = 4294967295;
  properties[0].value.dataType = 2;
  properties[0].value.u.integerValue = -5;
  expectRoundTrip<ZQXMLPropListHandler>(tag_displayProperties, listOf<ZQPropList>(properties),
                                        writeProperties, FreeZQPropList);
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
  ListReader<ZQXMLSupportFileListHandler, ZQSupportFileInfoList> reader;
  std::string fault;
  ZQSupportFileInfoList read = reader.read(static_cast<char*>(text), fault);
  EXPECT_EQ(shown(read),
            "fileType=1 fileId=7 fileSize=4 fileContent[0 255 10 65], fileId=4294967295");
  FreeZQSupportFileInfoList(&read, 0);
}

}  // namespace
