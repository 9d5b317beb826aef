// Peak memory and time of documents of extreme shapes, each of 10 MB and of twice that.
//
// Every measurement runs in a process of its own. The peak is that of the resident memory, less
// what was resident ahead of the parse (the document itself among it).

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <fstream>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include "zqxml/zqxml.h"

namespace {

constexpr size_t kSize = 10'000'000;
constexpr double kLargestGrowth = 2.3;
constexpr int kRounds = 3;
constexpr int kRuns = 2;

// At most 64 MiB and 100 times the size.
constexpr size_t memoryLimit(size_t size) {
  return (size_t{64} << 20) + 100 * size;
}

std::string documentOf(const std::string& content) {
  return "<root>" + content + "</root>";
}

std::string filterOf(const std::string& content) {
  return "<filter><filterName>F</filterName>" + content + "</filter>";
}

// As many pieces as make up the size.
std::string repeated(const std::string& piece, size_t size) {
  std::string text;
  text.reserve(size + piece.size());
  while (text.size() < size) {
    text += piece;
  }
  return text;
}

std::string numbered(const std::string& before, const std::string& after, size_t size) {
  std::string text;
  text.reserve(size + 100);
  for (size_t i = 0; text.size() < size; ++i) {
    text += before + std::to_string(i) + after;
  }
  return text;
}

// A condition whose branches lie inside one another as deep as handlers may.
std::string deepCondition() {
  constexpr int kLevels = 100;
  std::string begin;
  std::string end;
  for (int i = 0; i < kLevels; ++i) {
    begin += "<not>";
    end += "</not>";
  }
  return "<runIfQualification>" + begin +
         "<relationalOperation><operation>equal</operation><left><fieldID>1</fieldID></left>"
         "<right><fieldID>2</fieldID></right></relationalOperation>" +
         end + "</runIfQualification>";
}

struct Shape {
  const char* name;
  std::function<std::string(size_t size)> make;
  // What the parse gives.
  int result;
};

const std::vector<Shape>& shapes() {
  static const std::vector<Shape> kShapes = {
      {"deep", [](size_t size) { return documentOf(repeated(filterOf(deepCondition()), size)); },
       0},
      {"wide",
       [](size_t size) {
         return documentOf(filterOf(
             "<ifActions>" +
             repeated("<action><message><messageType>error</messageType><messageText>Text"
                      "</messageText><messageNumber>10000</messageNumber></message></action>",
                      size) +
             "</ifActions>"));
       },
       0},
      {"one long text",
       [](size_t size) {
         return documentOf(filterOf("<helpText>" + std::string(size, 'x') + "</helpText>"));
       },
       0},
      {"many attributes",
       [](size_t size) {
         return documentOf(filterOf("<helpText" + numbered(" a", "='1'", size) + ">x</helpText>"));
       },
       0},
      {"many objects",
       [](size_t size) {
         return documentOf(numbered("<filter><filterName>F", "</filterName></filter>", size));
       },
       0},
      {"entities",
       [](size_t size) {
         std::string references;
         for (int i = 0; i < 64; ++i) {
           references += "&e" + std::to_string(i) + ";";
         }
         return "<!DOCTYPE root [" + numbered("<!ENTITY e", " 'some text'>", size) + "]>" +
                documentOf(filterOf("<helpText>" + references + "</helpText>"));
       },
       0},
      {"comments",
       [](size_t size) { return documentOf(filterOf(repeated("<!-- a comment -->", size))); }, 0},
      {"CDATA",
       [](size_t size) {
         return documentOf(
             filterOf("<helpText>" + repeated("<![CDATA[<text>]]>", size) + "</helpText>"));
       },
       0},
      {"one huge name",
       [](size_t size) {
         const std::string name(size / 2, 'n');
         return documentOf(filterOf("<" + name + "></" + name + ">"));
       },
       2},
      {"many small texts",
       [](size_t size) {
         return documentOf(filterOf("<workflowConnect><formNameList>" +
                                    repeated("<formName>F</formName>", size) +
                                    "</formNameList></workflowConnect>"));
       },
       0},
  };
  return kShapes;
}

struct Figures {
  void takeBest(const Figures& other) {
    parseSeconds = std::min(parseSeconds, other.parseSeconds);
    listSeconds = std::min(listSeconds, other.listSeconds);
  }

  size_t peak;
  double parseSeconds;
  double listSeconds;
  int result;
};

// A member of /proc/self/status, in bytes.
size_t memoryFigure(const std::string& member) {
  std::ifstream status("/proc/self/status");
  std::string line;
  while (std::getline(status, line)) {
    if (line.starts_with(member + ":")) {
      return strtoull(line.c_str() + member.size() + 1, nullptr, 10) * 1024;
    }
  }
  throw std::runtime_error("no " + member);
}

double now() {
  timespec time;
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
}

int parse(ZQXMLParserHandle* handle, const ZQXMLInputDoc& input) {
  ZQXMLParsedStream stream;
  ZQStructItemList parsed;
  const int result = ParseXMLDocument(handle, &input, nullptr, &stream, &parsed, nullptr);
  FreeZQStructItemList(&parsed, 0);
  FreeZQXMLParsedStreamInternal(&stream, 0);
  return result;
}

void list(ZQXMLParserHandle* handle, const ZQXMLInputDoc& input) {
  ZQUnsignedIntList types;
  ZQNameList names;
  ZQUnsignedIntList subTypes;
  GetListXMLObjects(handle, &input, &types, &names, &subTypes, nullptr);
  FreeZQUnsignedIntList(&types, 0);
  FreeZQNameList(&names, 0);
  FreeZQUnsignedIntList(&subTypes, 0);
}

Figures measureHere(const Shape& shape, size_t size) {
  std::string document = shape.make(size);
  const ZQXMLInputDoc input = {ZQXML_INPUT_MEMORY, document.data()};
  ZQXMLParserHandle handle;
  if (CreateXMLParserHandle(&handle, nullptr) != 0) {
    throw std::runtime_error("no parser handle");
  }
  std::ofstream("/proc/self/clear_refs") << "5";
  const size_t before = memoryFigure("VmRSS");
  Figures figures = {};
  figures.result = parse(&handle, input);
  figures.peak = memoryFigure("VmHWM") - before;
  figures.parseSeconds = figures.listSeconds = 1e9;
  for (int run = 0; run < kRuns; ++run) {
    const double begin = now();
    parse(&handle, input);
    const double between = now();
    list(&handle, input);
    figures.parseSeconds = std::min(figures.parseSeconds, between - begin);
    figures.listSeconds = std::min(figures.listSeconds, now() - between);
  }
  FreeZQXMLParserHandleInternal(&handle, 0);
  return figures;
}

Figures measure(const Shape& shape, size_t size) {
  int channel[2];
  if (pipe(channel) != 0) {
    throw std::runtime_error("no pipe");
  }
  const pid_t child = fork();
  if (child == 0) {
    const Figures figures = measureHere(shape, size);
    _exit(write(channel[1], &figures, sizeof figures) == sizeof figures ? 0 : 1);
  }
  close(channel[1]);
  Figures figures = {};
  const bool complete = read(channel[0], &figures, sizeof figures) == sizeof figures;
  close(channel[0]);
  int status = 0;
  waitpid(child, &status, 0);
  if (!complete || status != 0) {
    throw std::runtime_error(std::string("the process of a shape ended: ") + shape.name);
  }
  return figures;
}

}  // namespace

int main() {
  std::printf("%-18s %9s %9s %9s %9s %9s %9s\n", "10 MB, then 20 MB", "peak MiB", "x size",
              "parse ms", "growth", "list ms", "growth");
  bool missed = false;
  for (const Shape& shape : shapes()) {
    Figures once = measure(shape, kSize);
    Figures twice = measure(shape, 2 * kSize);
    for (int round = 1; round < kRounds; ++round) {
      once.takeBest(measure(shape, kSize));
      twice.takeBest(measure(shape, 2 * kSize));
    }
    const double parseGrowth = twice.parseSeconds / once.parseSeconds;
    const double listGrowth = twice.listSeconds / once.listSeconds;
    const bool met = once.result == shape.result && twice.result == shape.result &&
                     once.peak <= memoryLimit(kSize) && twice.peak <= memoryLimit(2 * kSize) &&
                     parseGrowth <= kLargestGrowth && listGrowth <= kLargestGrowth;
    missed = missed || !met;
    std::printf("%-18s %9.1f %9.1f %9.0f %9.2f %9.0f %9.2f  %s\n", shape.name,
                static_cast<double>(once.peak) / (1 << 20),
                static_cast<double>(once.peak) / static_cast<double>(kSize),
                1000 * once.parseSeconds, parseGrowth, 1000 * once.listSeconds, listGrowth,
                met ? "ok" : "MISSED");
  }
  return missed ? 1 : 0;
}
