#include "xml/writers/Written.h"

#include <gtest/gtest.h>

#include <vector>

#include "fault/FailingAllocations.h"
#include "xml/DOMTree.h"
#include "xml/ZQXMLTagHash.h"

namespace {

std::string printed(const DOMTree& tree) {
  ZQGNString text(ZQGNString::BLOCKSIZE_DOCUMENT);
  EXPECT_EQ(PrintDOMNode(0, tree.root(), text), 0);
  return static_cast<char*>(text);
}

std::string sunkIntoTree(const Write& write) {
  const DOMTree tree("root");
  DOMSink sink(tree.get(), tree.root());
  EXPECT_EQ(write(sink), 0);
  return printed(tree);
}

}  // namespace

std::string laidOut(const std::string& compact, int level) {
  std::string out;
  std::vector<bool> holdsElements;
  const auto indent = [&] { out.append(static_cast<size_t>(level) + holdsElements.size(), '\t'); };
  for (size_t at = 0; at < compact.size();) {
    if (compact[at] != '<') {
      out += compact[at++];
      continue;
    }
    const size_t end = compact.find('>', at);
    const std::string tag = compact.substr(at, end + 1 - at);
    at = end + 1;
    if (tag[1] == '/') {
      const bool elements = holdsElements.back();
      holdsElements.pop_back();
      if (elements) {
        indent();
      }
      out += tag + "\n";
      continue;
    }
    indent();
    out += tag;
    if (tag[tag.size() - 2] == '/') {
      out += '\n';
      continue;
    }
    holdsElements.push_back(compact[at] == '<' && compact[at + 1] != '/');
    if (holdsElements.back()) {
      out += '\n';
    }
  }
  return out;
}

std::string writtenText(const Write& write) {
  ZQGNString text(ZQGNString::BLOCKSIZE_DOCUMENT);
  TextSink sink(text, 0);
  sink.open(tag_root);
  EXPECT_EQ(write(sink), 0);
  sink.close();
  return static_cast<char*>(text);
}

std::string builtText(const Build& build) {
  const DOMTree tree("root");
  EXPECT_EQ(build(tree.get(), tree.root()), 0);
  return printed(tree);
}

void expectWritten(const Write& write, const Build& build, const std::string& content) {
  const std::string expected =
      laidOut(content.empty() ? "<root/>" : "<root>" + content + "</root>");
  EXPECT_EQ(writtenText(write), expected);
  EXPECT_EQ(sunkIntoTree(write), expected);
  if (build) {
    EXPECT_EQ(builtText(build), expected);
  }
}

long expectFailuresGive300(const Build& build) {
  return fault::forEachFailure([&](auto arm) {
    const DOMTree tree("root");
    int result = 0;
    bool failed = false;
    {
      const auto failing = arm();
      result = build(tree.get(), tree.root());
      failed = fault::FailingAllocations::happened();
    }
    EXPECT_EQ(result, failed ? 300 : 0);
    return failed;
  });
}
