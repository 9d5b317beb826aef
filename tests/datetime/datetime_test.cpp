// FormatDate, FormatTime and FormatDateTime.

#include <cstdlib>

#include "datetime/DateTimeTest.h"
#include "zqxml/datetime.h"

namespace {

class Format : public DateTimeTest {
 protected:
  using Function = size_t(char*, size_t, const struct tm*);

  static std::string format(Function* function) {
    const struct tm fields = makeTime(2004, 1, 5, 22, 15, 16);
    char text[64] = "";
    const size_t length = function(text, sizeof text, &fields);
    EXPECT_EQ(length, std::string(text).size());
    return text;
  }
};

TEST_F(Format, ByTheLocale) {
  const struct {
    const char* locale;
    const char* date;
    const char* time;
  } cases[] = {
      {"C", "01/05/04", "22:15:16"},
      {"de_DE.ISO-8859-1", "05.01.2004", "22:15:16"},
      {"fr_FR.ISO-8859-1", "05/01/2004", "22:15:16"},
      {"en_US.ISO-8859-1", "01/05/2004", "10:15:16 PM"},
      {"ja_JP.EUC-JP",
       "2004\xC7\xAF"
       "01\xB7\xEE"
       "05\xC6\xFC",
       "22\xBB\xFE"
       "15\xCA\xAC"
       "16\xC9\xC3"},
  };
  for (const auto& row : cases) {
    useLocale(row.locale);
    EXPECT_EQ(format(FormatDate), row.date) << row.locale;
    EXPECT_EQ(format(FormatTime), row.time) << row.locale;
    EXPECT_EQ(format(FormatDateTime), std::string(row.date) + " " + row.time) << row.locale;
  }
}

TEST_F(Format, VariablesAreReadAtEachCall) {
  const struct {
    const char* variable;
    Function* function;
    const char* byDefault;
  } cases[] = {{"ZQDATEONLY", FormatDate, "01/05/04"},
               {"ZQTIMEONLY", FormatTime, "22:15:16"},
               {"ZQDATE", FormatDateTime, "01/05/04 22:15:16"}};
  for (const auto& row : cases) {
    EXPECT_EQ(format(row.function), row.byDefault);
    setenv(row.variable, "<%Y>", 1);
    EXPECT_EQ(format(row.function), "<2004>");
    for (const auto& other : cases) {
      if (other.function != row.function) {
        EXPECT_EQ(format(other.function), other.byDefault) << "each has its own variable";
      }
    }
    setenv(row.variable, "%H", 1);
    EXPECT_EQ(format(row.function), "22");
    setenv(row.variable, "", 1);
    EXPECT_EQ(format(row.function), "") << "an empty one is set";
    unsetenv(row.variable);
    EXPECT_EQ(format(row.function), row.byDefault);
  }
}

TEST_F(Format, SizesAndNulls) {
  const struct tm fields = makeTime(2004, 1, 5, 22, 15, 16);
  for (const auto function : {FormatDate, FormatTime}) {
    for (size_t size = 0; size <= 10; ++size) {
      const auto text = std::make_unique<char[]>(size);
      EXPECT_EQ(function(text.get(), size, &fields), size > 8 ? 8u : 0u) << size;
    }
  }
  char text[32];
  for (const auto function : {FormatDate, FormatTime, FormatDateTime}) {
    EXPECT_EQ(function(text, sizeof text, nullptr), 0u);
    EXPECT_EQ(function(nullptr, sizeof text, &fields), 0u);
  }
}

}  // namespace
