#include "xml/Vocabulary.h"

#include <fstream>

const std::map<std::string, int>& vocabulary() {
  static const std::map<std::string, int> ids = [] {
    std::map<std::string, int> result;
    std::ifstream list(ZQXML_TEST_DATA_DIR "/../examples/vocabulary.txt");
    int id = 0;
    std::string text;
    while (list >> id >> text) {
      result[text] = id;
    }
    return result;
  }();
  return ids;
}
