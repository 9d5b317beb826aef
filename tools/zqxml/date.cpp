// zqxml date: reads a date as the library does, and tells it in every form that the library knows.

#include <zqxml/zqxml.h>

#include <charconv>
#include <clocale>
#include <cstdio>
#include <ctime>
#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "commands.h"
#include "output.h"

namespace {

using Json = nlohmann::ordered_json;

struct Options {
  std::string text;
  std::string form = "time";
  std::vector<std::string> additions;
  std::optional<std::string> other;
  bool json = false;
  Output output;
};

// A day of the calendar, and the local time if the text had one.
struct Moment {
  int dayNumber = 0;
  std::optional<struct tm> fields;
};

struct Addition {
  int amount = 0;
  int part = 0;
};

// What a text doesn't give is that of the start of today.
struct tm today() {
  const time_t now = time(nullptr);
  struct tm fields = {};
  OSLocalTime(&now, &fields);
  fields.tm_hour = fields.tm_min = fields.tm_sec = 0;
  return fields;
}

std::optional<Moment> read(const std::string& text, const std::string& form) {
  constexpr int kDefaultCutoff = -1;
  Moment moment;
  if (form == "iso") {
    const int failure = ConvertISODateStringToJD(text.c_str(), &moment.dayNumber);
    return failure == 0 ? std::optional(moment) : std::nullopt;
  }
  if (form == "date") {
    const int failure = ConvertDateStringToJD(kDefaultCutoff, text.c_str(), &moment.dayNumber);
    return failure == 0 ? std::optional(moment) : std::nullopt;
  }
  struct tm fields = today();
  if (ParseDateTime(text.c_str(), &fields) == 0) {
    return std::nullopt;
  }
  const int date[3] = {fields.tm_year + 1900, fields.tm_mon + 1, fields.tm_mday};
  DateToJulianDate(date, &moment.dayNumber);
  moment.fields = fields;
  return moment;
}

// "3 months" is an amount and the name of a part that the library can add; the names have no
// plural.
std::optional<Addition> readAddition(const std::string& text) {
  Addition addition;
  const char* const end = text.data() + text.size();
  const char* start = text.data() + (text.starts_with('+') ? 1 : 0);
  const auto [behind, error] = std::from_chars(start, end, addition.amount);
  if (error != std::errc()) {
    return std::nullopt;
  }
  const std::string name(behind + (behind != end && *behind == ' ' ? 1 : 0), end);
  int ignored;
  if (GetNumericDateParts(name.c_str(), &addition.part) != 0 ||
      DateAdd(addition.part, 0, 0, &ignored) != 0) {
    return std::nullopt;
  }
  return addition;
}

void add(Moment& moment, const Addition& addition) {
  DateAdd(addition.part, addition.amount, moment.dayNumber, &moment.dayNumber);
  if (moment.fields) {
    int date[3];
    JulianDateToDate(moment.dayNumber, date);
    moment.fields->tm_year = date[0] - 1900;
    moment.fields->tm_mon = date[1] - 1;
    moment.fields->tm_mday = date[2];
    moment.fields->tm_isdst = -1;
    mktime(&*moment.fields);
  }
}

std::string localText(const Moment& moment) {
  char text[256] = "";
  if (moment.fields) {
    FormatDateTime(text, sizeof text, &*moment.fields);
  } else {
    ConvertJDToDateString(moment.dayNumber, text);
  }
  return text;
}

std::string isoText(const Moment& moment) {
  char text[ZQ_ISO_DATE_SIZE];
  ConvertJDToISODateString(moment.dayNumber, text);
  if (!moment.fields) {
    return text;
  }
  char time[64];
  snprintf(time, sizeof time, "T%02d:%02d:%02d", moment.fields->tm_hour, moment.fields->tm_min,
           moment.fields->tm_sec);
  return std::string(text) + time;
}

Json partsOf(int dayNumber) {
  constexpr struct {
    const char* name;
    ZQDatePart part;
  } parts[] = {{"year", ZQ_DATE_PART_YEAR},
               {"month", ZQ_DATE_PART_MONTH},
               {"day", ZQ_DATE_PART_DAY},
               {"week", ZQ_DATE_PART_WEEK},
               {"weekday", ZQ_DATE_PART_WEEKDAY}};
  Json result;
  for (const auto& [name, part] : parts) {
    int value = 0;
    GetDatePartNum(part, dayNumber, &value);
    result[name] = value;
  }
  char name[16] = "";
  GetDatePartName(ZQ_DATE_PART_WEEKDAY, dayNumber, name);
  result["weekdayName"] = name;
  return result;
}

Json describe(const Moment& moment, const std::optional<Moment>& other) {
  Json result;
  if (moment.fields) {
    struct tm copy = *moment.fields;
    result["time"] = static_cast<long long>(mktime(&copy));
  }
  result["local"] = localText(moment);
  result["iso"] = isoText(moment);
  result["dayNumber"] = moment.dayNumber;
  result["parts"] = partsOf(moment.dayNumber);
  if (other) {
    int days = 0;
    int weeks = 0;
    DateDiff(ZQ_DATE_PART_DAY, moment.dayNumber, other->dayNumber, &days);
    DateDiff(ZQ_DATE_PART_WEEK, moment.dayNumber, other->dayNumber, &weeks);
    result["difference"] = {{"days", days}, {"weeks", weeks}};
  }
  return result;
}

std::string asText(const Json& description) {
  const auto number = [](const Json& value) { return std::to_string(value.get<long long>()); };
  std::string text;
  if (description.contains("time")) {
    text += "Time:       " + number(description["time"]) + "\n";
  }
  const Json& parts = description["parts"];
  text += "Local:      " + description["local"].get<std::string>() +
          "\nISO:        " + description["iso"].get<std::string>() +
          "\nDay number: " + number(description["dayNumber"]) +
          "\nYear:       " + number(parts["year"]) + "\nMonth:      " + number(parts["month"]) +
          "\nDay:        " + number(parts["day"]) + "\nWeek:       " + number(parts["week"]) +
          "\nWeekday:    " + number(parts["weekday"]) + " " +
          parts["weekdayName"].get<std::string>() + "\n";
  if (description.contains("difference")) {
    const Json& difference = description["difference"];
    text += "Difference: " + number(difference["days"]) + " days, " + number(difference["weeks"]) +
            " weeks\n";
  }
  return text;
}

int reportNoDate(const std::string& text) {
  std::cerr << "zqxml: no date: " << text << "\n";
  return kAnswerIsNo;
}

int run(const Options& options) {
  setlocale(LC_ALL, "");
  std::optional<Moment> moment = read(options.text, options.form);
  if (!moment) {
    return reportNoDate(options.text);
  }
  for (const std::string& text : options.additions) {
    add(*moment, readAddition(text).value());
  }
  std::optional<Moment> other;
  if (options.other) {
    other = read(*options.other, options.form);
    if (!other) {
      return reportNoDate(*options.other);
    }
  }
  const Json description = describe(*moment, other);
  return options.json ? options.output.write(description)
                      : options.output.write(asText(description));
}

}  // namespace

void addDate(CLI::App& app, int& exitCode) {
  auto options = std::make_shared<Options>();
  CLI::App* command =
      app.add_subcommand("date", "Read a date, calculate with it, and tell it in all forms");
  command->add_option("TEXT", options->text, "The date")->required()->option_text(" ");
  command
      ->add_option("--as", options->form,
                   "What TEXT is: time, a date and time as people type it (default); date, one in "
                   "the order of the locale, or a day number; iso, an ISO date")
      ->check(CLI::IsMember({"time", "date", "iso"}))
      ->option_text("FORM");
  command
      ->add_option("--add", options->additions,
                   "Add years, months, days or weeks, as in \"3 month\"; may be repeated")
      ->check([](const std::string& text) {
        return readAddition(text) ? std::string()
                                  : "not an amount and a year, month, day or week: " + text;
      })
      ->expected(1)
      ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll)
      ->option_text("AMOUNT");
  command
      ->add_option("--diff", options->other,
                   "Tell also how many days and weeks later this date is, of the same form")
      ->option_text("TEXT");
  command->add_flag("--json", options->json, "Print JSON");
  options->output.addOption(*command);
  command->footer(
      "The locale and the variables ZQDATE and TZ decide as they do for a program of the library. "
      "Weeks are\nthose of ISO 8601, and of --diff those that begin on Sunday. Exits with 1 if "
      "TEXT "
      "is no date.");
  command->callback([options, &exitCode] { exitCode = run(*options); });
}
