// generate_documents SIZE [KIND...]: prints a definition document of at least SIZE bytes.

#include <cstdlib>
#include <exception>
#include <iostream>

#include "DocumentGenerator.h"

int main(int argc, char** argv) {
  if (argc < 2) {
    std::cerr << "usage: generate_documents SIZE [KIND...]\n";
    return 3;
  }
  try {
    std::cout << generateDocument(std::strtoull(argv[1], nullptr, 10),
                                  std::vector<std::string>(argv + 2, argv + argc));
  } catch (const std::exception& error) {
    std::cerr << "generate_documents: " << error.what() << "\n";
    return 2;
  }
  return 0;
}
