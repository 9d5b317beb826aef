#include "DocumentGenerator.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace {

struct Object {
  std::string kind;
  std::string text;
};

std::string readFile(const std::filesystem::path& path) {
  std::ifstream stream(path, std::ios::binary);
  std::ostringstream text;
  text << stream.rdbuf();
  if (!stream) {
    throw std::runtime_error("can't read " + path.string());
  }
  return text.str();
}

// The objects of a document in the writers' layout: each begins and ends on a line of its own, one
// tab deep.
void appendObjects(const std::string& document, std::vector<Object>& objects) {
  size_t begin = document.find("\n\t<");
  while (begin != std::string::npos) {
    ++begin;
    const size_t nameBegin = begin + 2;
    const size_t nameEnd = document.find_first_of(" >", nameBegin);
    const std::string kind = document.substr(nameBegin, nameEnd - nameBegin);
    const std::string endTag = std::string("\n\t</").append(kind).append(">\n");
    const size_t end = document.find(endTag, begin);
    if (end == std::string::npos) {
      throw std::runtime_error("an example has an object without end");
    }
    objects.push_back({kind, document.substr(begin, end + endTag.size() - begin)});
    begin = document.find("\n\t<", end + endTag.size() - 1);
  }
}

// All objects of the examples but those outside ASCII, so that a document can have the plain
// header.
std::vector<Object> exampleObjects() {
  std::vector<std::filesystem::path> paths;
  for (const auto& entry : std::filesystem::directory_iterator(ZQXML_EXAMPLES_DIR)) {
    if (entry.path().extension() == ".xml") {
      paths.push_back(entry.path());
    }
  }
  std::sort(paths.begin(), paths.end());
  std::vector<Object> objects;
  for (const auto& path : paths) {
    appendObjects(readFile(path), objects);
  }
  std::erase_if(objects, [](const Object& object) {
    return std::any_of(object.text.begin(), object.text.end(),
                       [](char c) { return static_cast<unsigned char>(c) > 127; });
  });
  return objects;
}

// The object with a number behind its name, which is the text of its first name element.
std::string numbered(const Object& object, size_t number) {
  const size_t nameEnd = object.text.find("Name>", object.text.find("Name>") + 1);
  const size_t endTag = object.text.rfind("</", nameEnd);
  std::string text = object.text;
  return text.insert(endTag, std::to_string(number).insert(0, 1, '-'));
}

}  // namespace

std::string generateDocument(size_t size, const std::vector<std::string>& kinds) {
  std::vector<Object> objects = exampleObjects();
  if (!kinds.empty()) {
    std::erase_if(objects, [&kinds](const Object& object) {
      return std::find(kinds.begin(), kinds.end(), object.kind) == kinds.end();
    });
  }
  if (objects.empty()) {
    throw std::runtime_error("the examples have no object of these kinds");
  }
  const std::string spaces(29, ' ');
  std::string document =
      "<?xml version=\"1.0\" encoding=\"windows-1252\"?>" + spaces + "\n<root>\n";
  document.reserve(size + size / 8);
  for (size_t i = 0; document.size() < size; ++i) {
    document += numbered(objects[i % objects.size()], i);
  }
  return document + "</root>\n";
}
