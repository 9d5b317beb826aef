// Makes definition documents of any size out of the objects of the examples, each time the same.
#ifndef ZQXML_BENCH_DOCUMENTGENERATOR_H
#define ZQXML_BENCH_DOCUMENTGENERATOR_H

#include <cstddef>
#include <string>
#include <vector>

// A document of at least `size` bytes. `kinds` are the elements of the objects that it holds
// ("form", "filter", ...); without any it holds all kinds. Each object has a name of its own.
// Throws std::runtime_error if there is no object of the kinds, or if the examples can't be read.
std::string generateDocument(size_t size, const std::vector<std::string>& kinds = {});

#endif
