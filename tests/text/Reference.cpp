#include "text/Reference.h"

#include <algorithm>
#include <cctype>
#include <sstream>

namespace {

// The characters from 0x80 on, a form per line: for each byte what it may be.
const char* formsOf(int codeSet) {
  switch (codeSet) {
    case 4:
      return "A1-FE A1-FE\n"
             "8E A1-DF\n"
             "8F A1-FE A1-FE\n";
    case 5:
      return "81-9F,E0-EF 40-FC\n"
             "A1-DF\n";
    case 7:
    case 8:
    case 13:
      return "A1-FE A1-FE\n";
    case 9:
      return "A1-FE A1-FE,40-7E\n";
    case 10:
      return "A1-FE A1-FE,40-7E\n"
             "8E A2-B0 A1-FE A1-FE\n";
    case 11:
      return "81-FE 41-5A,61-7A,81-FE\n";
    case 12:
      return "84-D3,D8-DE,E0-F9 41-7E,81-FE\n";
    default:
      return "";
  }
}

std::vector<std::string> divided(const std::string& text, char separator) {
  std::vector<std::string> parts;
  std::istringstream stream(text);
  for (std::string part; std::getline(stream, part, separator);) {
    parts.push_back(part);
  }
  return parts;
}

int byteOf(const std::string& text, size_t place) {
  return place < text.size() ? static_cast<unsigned char>(text[place]) : 0;
}

std::string folded(const std::string& character, int (*change)(int)) {
  return character.size() == 1 ? std::string(1, static_cast<char>(change(byteOf(character, 0))))
                               : character;
}

std::string joined(const Characters& characters) {
  std::string text;
  for (const std::string& character : characters) {
    text += character;
  }
  return text;
}

// The order of characters: longer ones are greater.
int order(const std::string& left, const std::string& right) {
  if (left.size() != right.size()) {
    return left.size() < right.size() ? -1 : 1;
  }
  return left == right ? 0 : left < right ? -1 : 1;
}

int sign(int value) {
  return value < 0 ? -1 : value > 0 ? 1 : 0;
}

bool fitsType(const std::string& character, int type) {
  const int byte = byteOf(character, 0);
  switch (type) {
    case 104:
      return (byte >= 0x20 && byte < 0x7F) || (byte >= 9 && byte <= 13);
    case 105:
      return !(byte >= 'a' && byte <= 'z');
    case 106:
      return !(byte >= 'A' && byte <= 'Z');
    default:
      return true;
  }
}

}  // namespace

Reference::Reference(int codeSet) {
  for (const std::string& line : divided(formsOf(codeSet), '\n')) {
    Form form;
    for (const std::string& place : divided(line, ' ')) {
      Place ranges;
      for (const std::string& range : divided(place, ',')) {
        const auto ends = divided(range, '-');
        ranges.push_back(
            {std::stoi(ends.front(), nullptr, 16), std::stoi(ends.back(), nullptr, 16)});
      }
      form.push_back(ranges);
    }
    forms.push_back(form);
  }
}

bool Reference::fits(const Place& place, int byte) {
  return std::any_of(place.begin(), place.end(), [byte](const Range& range) {
    return byte >= range.first && byte <= range.last;
  });
}

const Reference::Form* Reference::formOf(int firstByte) const {
  for (const Form& form : forms) {
    if (fits(form[0], firstByte)) {
      return &form;
    }
  }
  return nullptr;
}

int Reference::longest() const {
  size_t longest = 1;
  for (const Form& form : forms) {
    longest = std::max(longest, form.size());
  }
  return static_cast<int>(longest);
}

bool Reference::leads(int byte) const {
  const Form* form = formOf(byte);
  return form != nullptr && form->size() > 1;
}

int Reference::length(const std::string& text, size_t start, int count) const {
  if (forms.empty()) {
    return 1;
  }
  if (start >= text.size() || count < 1) {
    return 0;
  }
  const int first = byteOf(text, start);
  if (first < 0x80) {
    return 1;
  }
  const Form* form = formOf(first);
  if (form == nullptr) {
    return -1;
  }
  for (size_t i = 1; i < form->size() && i < static_cast<size_t>(count); ++i) {
    if (!fits((*form)[i], byteOf(text, start + i))) {
      return -1;
    }
  }
  return static_cast<int>(form->size());
}

Characters Reference::split(const std::string& text) const {
  Characters characters;
  for (size_t start = 0; start < text.size(); start += characters.back().size()) {
    const int found = length(text, start, 8);
    characters.push_back(text.substr(start, found > 0 ? static_cast<size_t>(found) : 1));
  }
  return characters;
}

int Reference::index(const std::string& text, int index) const {
  int place = 0;
  for (const std::string& character : split(text)) {
    if (place + static_cast<int>(character.size()) > index) {
      break;
    }
    place += static_cast<int>(character.size());
  }
  return place;
}

std::string Reference::copied(const std::string& text, int count, int* length) const {
  std::string result;
  for (const std::string& character : split(text)) {
    if (static_cast<int>(result.size() + character.size()) > count) {
      break;
    }
    result += character;
  }
  *length = static_cast<int>(result.size());
  result.resize(static_cast<size_t>(count), '\0');
  return result;
}

int Reference::compared(const std::string& left, const std::string& right) const {
  const Characters one = split(left);
  const Characters two = split(right);
  for (size_t i = 0; i < one.size() && i < two.size(); ++i) {
    if (const int result = order(folded(one[i], tolower), folded(two[i], tolower)); result != 0) {
      return result;
    }
  }
  return sign(static_cast<int>(one.size()) - static_cast<int>(two.size()));
}

// The right text is not split: the left one's characters tell how many bytes are compared.
int Reference::comparedUpTo(const std::string& left, const std::string& right, int count) const {
  size_t place = 0;
  while (place < static_cast<size_t>(count) && place < left.size()) {
    const int promised = length(left, place, 1);
    if (promised > 1) {
      const auto bytes = static_cast<size_t>(promised);
      const std::string one = left.substr(place, bytes);
      const std::string two = place < right.size() ? right.substr(place, bytes) : "";
      if (one != two) {
        return one < two ? -1 : 1;
      }
      place += one.size();
    } else {
      const int one = tolower(byteOf(left, place));
      const int two = tolower(byteOf(right, place));
      if (one != two) {
        return sign(one - two);
      }
      ++place;
    }
  }
  return place < static_cast<size_t>(count) && place < right.size() ? -1 : 0;
}

int Reference::comparedExactly(const std::string& left, const std::string& right, int count) const {
  const Characters one = split(left);
  const Characters two = split(right);
  int passed = 0;
  for (size_t i = 0; passed < count; ++i) {
    if (i >= one.size() || i >= two.size()) {
      return sign(static_cast<int>(one.size()) - static_cast<int>(two.size()));
    }
    if (const int result = order(one[i], two[i]); result != 0) {
      return result;
    }
    passed += static_cast<int>(one[i].size());
  }
  return 0;
}

std::string Reference::upper(const std::string& text) const {
  Characters characters = split(text);
  for (std::string& character : characters) {
    character = folded(character, toupper);
  }
  return joined(characters);
}

std::string Reference::lower(const std::string& text) const {
  Characters characters = split(text);
  for (std::string& character : characters) {
    character = folded(character, tolower);
  }
  return joined(characters);
}

int Reference::firstThatBeginsWith(const std::string& text, char byte) const {
  int place = 0;
  for (const std::string& character : split(text)) {
    if (character[0] == byte) {
      return place;
    }
    place += static_cast<int>(character.size());
  }
  return -1;
}

int Reference::lastThatBeginsWith(const std::string& text, char byte) const {
  int place = 0;
  int found = -1;
  for (const std::string& character : split(text)) {
    if (character[0] == byte) {
      found = place;
    }
    place += static_cast<int>(character.size());
  }
  return found;
}

int Reference::firstOf(const std::string& text, const std::string& set) const {
  const Characters members = split(set);
  int place = 0;
  for (const std::string& character : split(text)) {
    if (std::find(members.begin(), members.end(), character) != members.end()) {
      return place;
    }
    place += static_cast<int>(character.size());
  }
  return -1;
}

// Whether whole characters from `start` on make up the needle.
bool Reference::isFound(const Characters& characters, size_t start,
                        const std::string& needle) const {
  std::string text;
  for (size_t i = start; i < characters.size() && text.size() < needle.size(); ++i) {
    text += characters[i];
  }
  return text == needle && !needle.empty();
}

int Reference::find(const std::string& haystack, const std::string& needle) const {
  const Characters characters = split(haystack);
  int place = 0;
  for (size_t i = 0; i < characters.size(); ++i) {
    if (isFound(characters, i, needle)) {
      return place;
    }
    place += static_cast<int>(characters[i].size());
  }
  return -1;
}

int Reference::findLast(const std::string& haystack, const std::string& needle) const {
  const Characters characters = split(haystack);
  int place = 0;
  int found = -1;
  for (size_t i = 0; i < characters.size(); ++i) {
    if (isFound(characters, i, needle)) {
      found = place;
    }
    place += static_cast<int>(characters[i].size());
  }
  return found;
}

int Reference::firstInvalid(const std::string& text) const {
  return firstInvalid(text, 0);
}

int Reference::firstInvalid(const std::string& text, int type) const {
  int place = 0;
  for (const std::string& character : split(text)) {
    const bool isValid = length(text, static_cast<size_t>(place), 8) > 0;
    if (!isValid || (character.size() == 1 && !fitsType(character, type))) {
      return place;
    }
    place += static_cast<int>(character.size());
  }
  return -1;
}

std::vector<std::string> Reference::tokens(const std::string& text,
                                           const std::string& delimiters) const {
  const Characters members = split(delimiters);
  const auto delimits = [&members](const std::string& character) {
    return std::find(members.begin(), members.end(), character) != members.end();
  };
  std::vector<std::string> result;
  Characters rest = split(text);
  while (!rest.empty()) {
    if (delimits(rest[0])) {
      rest.erase(rest.begin());
    }
    const auto end = std::find_if(rest.begin(), rest.end(), delimits);
    result.push_back(joined({rest.begin(), end}));
    if (end == rest.end()) {
      break;
    }
    rest.erase(rest.begin(), end + 1);
  }
  return result;
}

int Reference::delivered(const std::string& text, int count) const {
  if (static_cast<int>(text.size()) < count) {
    return static_cast<int>(text.size());
  }
  int place = 0;
  while (place < count) {
    const int left = count - place;
    const int found = length(text, static_cast<size_t>(place), left);
    const int step = found > 0 ? found : left == 1 ? 2 : 1;
    if (step > left) {
      break;
    }
    place += step;
  }
  return place;
}

std::string Reference::randomCharacter(std::mt19937& random) const {
  const auto below = [&random](size_t limit) {
    return static_cast<size_t>(random() % static_cast<unsigned>(limit));
  };
  const size_t kind = below(16);
  if (kind < 5 || (forms.empty() && kind < 12)) {
    constexpr char kAscii[] = "aAbBzZ,;\\/ \n1|@~";
    return {kAscii[below(sizeof kAscii - 1)]};
  }
  if (kind < 6 || forms.empty()) {
    return {static_cast<char>(1 + below(255))};
  }
  std::string character;
  for (const Place& place : forms[below(forms.size())]) {
    const Range range = place[below(place.size())];
    // Few different ones, so that texts have something in common, and the ends of each range.
    const int spread = std::min(range.last - range.first, 2);
    const int step = static_cast<int>(below(static_cast<size_t>(spread) + 1));
    character += static_cast<char>(below(2) == 0 ? range.first + step : range.last - step);
  }
  if (kind == 15) {
    character.resize(1 + below(character.size()));
  } else if (kind == 14) {
    character.back() = static_cast<char>(1 + below(255));
  }
  return character;
}
