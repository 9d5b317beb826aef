#include "xml/writers/definitionlists.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <ctime>
#include <string>

#include "xml/ZQXMLTagHash.h"
#include "xml/writers/Written.h"

namespace {

TEST(ListWriter, Permissions) {
  const char* const kModify[] = {"none", "readOnly", "readWrite", "none", "none"};
  const char* const kView[] = {"none", "visible", "hidden", "none", "none"};
  ZQPermissionStruct permissions[] = {
      {0, 0}, {7, 1}, {0x80000000, 2}, {4294967295U, 3}, {5, 4294967295U}};
  ZQPermissionList list = {5, permissions};
  std::string modify;
  std::string view;
  for (size_t i = 0; i < 5; ++i) {
    const std::string group = "<groupID>" + std::to_string(permissions[i].groupId) + "</groupID>";
    modify += "<modifyPermission>" + group + "<modifyRights>" + kModify[i] +
              "</modifyRights></modifyPermission>";
    view +=
        "<viewPermission>" + group + "<viewRights>" + kView[i] + "</viewRights></viewPermission>";
  }
  expectRecord(writeModifyPermissions, CreateModifyPermissionListNode, &list, modify);
  expectRecord(writeViewPermissions, CreateViewPermissionNode, &list, view);
}

TEST(ListWriter, PropertiesHaveTheirValueFirst) {
  ZQPropStruct properties[3] = {};
  properties[0].property = 20;
  properties[0].value.dataType = 4;
  properties[0].value.u.characterValue = mutableText("a");
  properties[1].property = 4294967295U;
  properties[2].property = 5;
  properties[2].value.dataType = 99;
  ZQPropList list = {3, properties};
  expectRecord(writeProperties, CreatePropertyListNode, &list,
               "<property><value><characterValue>a</characterValue></value><tag>20</tag></property>"
               "<property><value><nullValue/></value><tag>-1</tag></property>"
               "<property><value/><tag>5</tag></property>");
}

TEST(ListWriter, PropertiesHandFailuresOn) {
  unsigned char bytes[] = {'M', 'a', 'n'};
  ZQByteList byteList = {0, 3, bytes};
  ZQPropStruct properties[2] = {};
  for (ZQPropStruct& property : properties) {
    property.value.dataType = 9;
    property.value.u.byteList = &byteList;
  }
  const ZQPropList list = {2, properties};
  EXPECT_GE(expectFailuresGive300([&](xercesc::DOMDocument* document, xercesc::DOMElement* parent) {
              return CreatePropertyListNode(document, parent, &list);
            }),
            2);
}

TEST(ListWriter, SortOrderIsAscendingOrDescending) {
  ZQSortStruct sorts[] = {{7, 1}, {4294967295U, 2}, {0, 0}, {1, 4294967295U}};
  ZQSortList list = {4, sorts};
  expectRecord(writeSortList, CreateSortListNode, &list,
               "<sort><fieldID>7</fieldID><sortOrder>ascending</sortOrder></sort>"
               "<sort><fieldID>-1</fieldID><sortOrder>descending</sortOrder></sort>"
               "<sort><fieldID>0</fieldID><sortOrder>descending</sortOrder></sort>"
               "<sort><fieldID>1</fieldID><sortOrder>descending</sortOrder></sort>");
}

std::string ids(uint32_t count) {
  std::string content;
  for (uint32_t i = 0; i < count; ++i) {
    content += "<fieldID>" + std::to_string(i + 1) + "</fieldID>";
  }
  return content.empty() ? "<fieldIDList/>" : "<fieldIDList>" + content + "</fieldIDList>";
}

TEST(ListWriter, IndexesHaveAtMostSixteenFields) {
  struct Case {
    uint32_t numFields;
    uint32_t written;
  };
  for (const Case& each :
       {Case{0, 0}, Case{1, 1}, Case{16, 16}, Case{17, 16}, Case{4294967295U, 16}}) {
    ZQIndexStruct index = {};
    index.numFields = each.numFields;
    for (uint32_t i = 0; i < 16; ++i) {
      index.fieldIds[i] = i + 1;
    }
    ZQIndexList list = {1, &index};
    expectRecord(writeIndexList, CreateIndexListNode, &list,
                 "<formIndex><indexName/><uniqueIndex>false</uniqueIndex>" + ids(each.written) +
                     "</formIndex>");
  }
}

TEST(ListWriter, IndexesHaveNameAndUniqueness) {
  ZQIndexStruct indexes[2] = {};
  memcpy(indexes[0].indexName, "a<b", 4);
  indexes[0].uniqueIndex = 1;
  indexes[0].numFields = 1;
  indexes[0].fieldIds[0] = 4294967295U;
  memset(indexes[1].indexName, 'n', sizeof indexes[1].indexName);
  indexes[1].uniqueIndex = 255;
  ZQIndexList list = {2, indexes};
  expectRecord(writeIndexList, CreateIndexListNode, &list,
               "<formIndex><indexName>a&lt;b</indexName><uniqueIndex>true</uniqueIndex>"
               "<fieldIDList><fieldID>-1</fieldID></fieldIDList></formIndex>"
               "<formIndex><indexName>" +
                   std::string(254, 'n') +
                   "</indexName><uniqueIndex>true</uniqueIndex><fieldIDList/></formIndex>");
}

TEST(ListWriter, ResultListFieldsHaveTheirSeparatorInTheMiddle) {
  ZQEntryListFieldStruct fields[] = {
      {7, 20, "; "},
      {4294967295U, 4294967295U, ""},
      {1, 0, {'0', '1', '2', '3', '4', '5', '6', '7', '8', '9', 'x'}}};
  ZQEntryListFieldList list = {3, fields};
  expectRecord(writeEntryListFields, CreateEntryListFieldListNode, &list,
               "<resultListField><fieldID>7</fieldID><fieldSeparator>; </fieldSeparator>"
               "<fieldWidth>20</fieldWidth></resultListField>"
               "<resultListField><fieldID>-1</fieldID><fieldWidth>4294967295</fieldWidth>"
               "</resultListField>"
               "<resultListField><fieldID>1</fieldID><fieldSeparator>0123456789</fieldSeparator>"
               "<fieldWidth>0</fieldWidth></resultListField>");
}

TEST(ListWriter, IdsAreSigned) {
  ZQInternalId items[] = {1, 4294967295U};
  ZQInternalIdList list = {2, items};
  const auto write = [&](ElementSink& sink) { return writeIds(sink, tag_groupID, &list); };
  expectWritten(write, nullptr, "<groupID>1</groupID><groupID>-1</groupID>");
  list.items = nullptr;
  expectWritten(write, nullptr, "");
}

TEST(ListWriter, EmptyAndNullListsWriteNothing) {
  const ZQPermissionList permissions[] = {{0, nullptr}, {3, nullptr}};
  const ZQPropList properties[] = {{0, nullptr}, {3, nullptr}};
  const ZQSortList sorts[] = {{0, nullptr}, {3, nullptr}};
  const ZQIndexList indexes[] = {{0, nullptr}, {3, nullptr}};
  const ZQEntryListFieldList fields[] = {{0, nullptr}, {3, nullptr}};
  for (size_t i = 0; i < 3; ++i) {
    expectRecord(writeModifyPermissions, CreateModifyPermissionListNode,
                 i < 2 ? &permissions[i] : nullptr, "");
    expectRecord(writeViewPermissions, CreateViewPermissionNode, i < 2 ? &permissions[i] : nullptr,
                 "");
    expectRecord(writeProperties, CreatePropertyListNode, i < 2 ? &properties[i] : nullptr, "");
    expectRecord(writeSortList, CreateSortListNode, i < 2 ? &sorts[i] : nullptr, "");
    expectRecord(writeIndexList, CreateIndexListNode, i < 2 ? &indexes[i] : nullptr, "");
    expectRecord(writeEntryListFields, CreateEntryListFieldListNode, i < 2 ? &fields[i] : nullptr,
                 "");
  }
}

// The history consumes its text, so each road gets a copy.
void expectHistory(const std::string& diary, const std::string& content) {
  SCOPED_TRACE(diary);
  expectWritten(
      [&](ElementSink& sink) {
        std::string copy = diary;
        return writeChangeHistory(sink, copy.data());
      },
      [&](xercesc::DOMDocument* document, xercesc::DOMElement* parent) {
        std::string copy = diary;
        return CreateChangeHistoryNode(document, parent, copy.data());
      },
      content);
}

TEST(ListWriter, ChangeHistories) {
  expectHistory("1705312800\4maren\4Created.\3",
                "<changeEntry modifiedDate=\"2024-01-15T10:00:00Z\" userName=\"maren\">"
                "<entry>Created.</entry></changeEntry>");
  expectHistory(
      "0\4a\4one\3"
      "1\4b\4two & three\n\3",
      "<changeEntry modifiedDate=\"1970-01-01T00:00:00Z\" userName=\"a\">"
      "<entry>one</entry></changeEntry>"
      "<changeEntry modifiedDate=\"1970-01-01T00:00:01Z\" userName=\"b\">"
      "<entry>two &amp; three\n</entry></changeEntry>");
  // All parts may be empty, and each number is taken as far as it goes.
  expectHistory("\4\4\3",
                "<changeEntry modifiedDate=\"1970-01-01T00:00:00Z\" userName=\"\"><entry/>"
                "</changeEntry>");
  expectHistory(" 60x\4u\4t\3",
                "<changeEntry modifiedDate=\"1970-01-01T00:01:00Z\" userName=\"u\">"
                "<entry>t</entry></changeEntry>");
  expectHistory(
      "-1\4u\4t\3"
      "4294967297\4u\4t\3"
      "9223372036854775813\4u\4t\3",
      "<changeEntry modifiedDate=\"1970-01-01T00:00:00Z\" userName=\"u\">"
      "<entry>t</entry></changeEntry>"
      "<changeEntry modifiedDate=\"1970-01-01T00:00:01Z\" userName=\"u\">"
      "<entry>t</entry></changeEntry>"
      "<changeEntry modifiedDate=\"1970-01-01T00:00:00Z\" userName=\"u\">"
      "<entry>t</entry></changeEntry>");
}

TEST(ListWriter, TheUserOfAChangeIsNotEscapedAndNotCut) {
  const std::string user(100, 'u');
  expectHistory("0\4" + user + "\4t\3",
                "<changeEntry modifiedDate=\"1970-01-01T00:00:00Z\" userName=\"" + user +
                    "\"><entry>t</entry></changeEntry>");
  std::string diary = "0\4<&\"'\4t\3";
  EXPECT_EQ(writtenText([&](ElementSink& sink) { return writeChangeHistory(sink, diary.data()); }),
            "<root>\n\t<changeEntry modifiedDate=\"1970-01-01T00:00:00Z\" userName=\"<&\"'\">\n"
            "\t\t<entry>t</entry>\n\t</changeEntry>\n</root>\n");
}

TEST(ListWriter, AHistoryEndsAtTheFirstEntryThatIsNotWhole) {
  const std::string first =
      "<changeEntry modifiedDate=\"1970-01-01T00:00:00Z\" userName=\"a\"><entry>one</entry>"
      "</changeEntry>";
  for (const char* rest : {"", "5", "5\4", "5\4user", "5\4user\4", "5\4user\4text"}) {
    expectHistory(rest, "");
    expectHistory(std::string("0\4a\4one\3") + rest, first);
  }
  expectHistory("5 without any separator", "");
  expectWritten([](ElementSink& sink) { return writeChangeHistory(sink, nullptr); },
                [](xercesc::DOMDocument* document, xercesc::DOMElement* parent) {
                  return CreateChangeHistoryNode(document, parent, nullptr);
                },
                "");
}

TEST(ListWriter, AHistoryIsConsumed) {
  std::string diary =
      "0\4a\4one\3"
      "1\4b\4two";
  const auto write = [&](ElementSink& sink) { return writeChangeHistory(sink, diary.data()); };
  EXPECT_NE(writtenText(write), "<root/>\n");
  // The separators that were found of an entry that is not whole are gone too.
  EXPECT_EQ(diary, std::string("0\0a\0one\0"
                               "1\0b\0two",
                               15));
  EXPECT_EQ(writtenText(write), "<root/>\n");
}

TEST(ListWriter, TimesOfAHistoryAreInTheZoneOfTheMachine) {
  setenv("TZ", "CET-1CEST,M3.5.0,M10.5.0/3", 1);
  expectHistory("1721037600\4u\4t\3",
                "<changeEntry modifiedDate=\"2024-07-15T12:00:00+01:00\" userName=\"u\">"
                "<entry>t</entry></changeEntry>");
  setenv("TZ", "UTC", 1);
  tzset();
}

void expectSupportFile(uint32_t type, uint32_t id, const unsigned char* content, uint32_t size,
                       const std::string& expected) {
  SCOPED_TRACE(expected);
  expectWritten([&](ElementSink& sink) { return writeSupportFile(sink, type, id, content, size); },
                [&](xercesc::DOMDocument* document, xercesc::DOMElement* parent) {
                  return CreateSupportFileNode(document, parent, type, id, content, size,
                                               1700000000);
                },
                expected);
}

TEST(ListWriter, SupportFiles) {
  const unsigned char bytes[] = {'M', 'a', 'n', 0, 0xFF};
  expectSupportFile(0, 7, bytes, 3,
                    "<fileType>none</fileType><fileID>7</fileID><content>TWFu\n</content>");
  expectSupportFile(
      1, 4294967295U, bytes, 5,
      "<fileType>externalReport</fileType><fileID>-1</fileID><content>TWFuAP8=\n</content>");
  for (const uint32_t type : {2U, 4294967295U}) {
    expectSupportFile(type, 0, bytes, 1, "<fileType/><fileID>0</fileID><content>TQ==\n</content>");
  }
  expectSupportFile(1, 0, bytes, 0, "<fileType>externalReport</fileType><fileID>0</fileID>");
  expectSupportFile(1, 0, nullptr, 5, "<fileType>externalReport</fileType><fileID>0</fileID>");
  EXPECT_GT(expectFailuresGive300([&](xercesc::DOMDocument* document, xercesc::DOMElement* parent) {
              return CreateSupportFileNode(document, parent, 1, 2, bytes, 5, 0);
            }),
            0);
}

}  // namespace
