#include "zqxml/builders.hpp"

#include <gtest/gtest.h>

#include <string>

#include "fault/FailingAllocations.h"
#include "xml/DOMTree.h"
#include "xml/OutputContent.h"

namespace {

std::string print(int level, const xercesc::DOMNode* node) {
  ZQGNString text;
  EXPECT_EQ(PrintDOMNode(level, node, text), 0);
  return static_cast<char*>(text);
}

std::string output(const char* content) {
  ZQGNString text;
  EXPECT_EQ(OutputContent(content, text), 0);
  return static_cast<char*>(text);
}

TEST(OutputContent, EscapesMarkupAndControlCharacters) {
  EXPECT_EQ(output("plain 'text' \xC3\xA9 \x7F"), "plain 'text' \xC3\xA9 \x7F");
  EXPECT_EQ(output("&<>\""), "&amp;&lt;&gt;&quot;");
  EXPECT_EQ(output("\x01 \x1F \x08 \x0B"), "&#xF8E0; &#xF8FE; &#xF8E7; &#xF8EA;");
  EXPECT_EQ(output("\t\n\r"), "\t\n\r");
  EXPECT_EQ(output("&amp;"), "&amp;amp;");
  EXPECT_EQ(output(""), "");
  EXPECT_EQ(output(nullptr), "");
}

TEST(OutputContent, AppendsToWhatIsThere) {
  ZQGNString text;
  text += "a";
  OutputContent("<", text);
  OutputContent("b", text);
  EXPECT_STREQ(text, "a&lt;b");
}

TEST(OutputContent, GivesAFailedAllocationAsNumber) {
  const std::string content(3000, '<');
  const long injected = fault::forEachFailure([&content](auto arm) {
    ZQGNString text;
    int result = 0;
    bool failed = false;
    {
      const auto failing = arm();
      result = OutputContent(content.c_str(), text);
      failed = fault::FailingAllocations::happened();
    }
    EXPECT_EQ(result, failed ? 300 : 0);
    return failed;
  });
  EXPECT_GE(injected, 4);
}

TEST(PrintDOMNode, NothingForNull) {
  EXPECT_EQ(print(0, nullptr), "");
}

TEST(PrintDOMNode, AnElementWithoutChildren) {
  const DOMTree tree("form");
  EXPECT_EQ(print(0, tree.root()), "<form/>\n");
  EXPECT_EQ(print(2, tree.root()), "\t\t<form/>\n");
}

TEST(PrintDOMNode, AnElementWithTextStandsOnOneLine) {
  const DOMTree tree("form");
  tree.root()->appendChild(tree->createTextNode(u"a < b"));
  EXPECT_EQ(print(1, tree.root()), "\t<form>a &lt; b</form>\n");
}

TEST(PrintDOMNode, AnEmptyTextNodeIsAChild) {
  const DOMTree tree("code");
  tree.root()->appendChild(tree->createTextNode(u""));
  EXPECT_EQ(print(0, tree.root()), "<code></code>\n");
}

TEST(PrintDOMNode, ElementsInsideStandOneTabDeeper) {
  const DOMTree tree("form");
  tree.root()->appendChild(tree->createElement(u"a"))->appendChild(tree->createElement(u"b"));
  tree.root()->appendChild(tree->createElement(u"c"))->appendChild(tree->createTextNode(u"x"));
  EXPECT_EQ(print(1, tree.root()),
            "\t<form>\n\t\t<a>\n\t\t\t<b/>\n\t\t</a>\n\t\t<c>x</c>\n\t</form>\n");
}

TEST(PrintDOMNode, AnElementBehindATextIsIndentedAllTheSame) {
  const DOMTree tree("root");
  tree.root()->appendChild(tree->createTextNode(u"text"));
  tree.root()->appendChild(tree->createElement(u"a"));
  EXPECT_EQ(print(0, tree.root()), "<root>text\t<a/>\n</root>\n");
}

TEST(PrintDOMNode, ATextBehindAnElementHasNoTabs) {
  const DOMTree tree("root");
  tree.root()->appendChild(tree->createElement(u"a"));
  tree.root()->appendChild(tree->createTextNode(u"text"));
  EXPECT_EQ(print(1, tree.root()), "\t<root>\n\t\t<a/>\ntext\t</root>\n");
}

TEST(PrintDOMNode, AttributesComeByNameAndUnescaped) {
  const DOMTree tree("form");
  tree.root()->setAttribute(u"zqDocVersion", u"1");
  tree.root()->setAttribute(u"xmlns:xsi", u"a<b&c");
  tree.root()->setAttribute(u"xmlns", u"n");
  EXPECT_EQ(print(0, tree.root()), "<form xmlns=\"n\" xmlns:xsi=\"a<b&c\" zqDocVersion=\"1\"/>\n");
}

TEST(PrintDOMNode, OtherNodesHaveNeitherTabsNorLineBreaks) {
  const DOMTree tree("root");
  tree.root()->appendChild(tree->createCDATASection(u"<&"));
  tree.root()->appendChild(tree->createComment(u" c "));
  tree.root()->appendChild(tree->createProcessingInstruction(u"t", u"d"));
  EXPECT_EQ(print(0, tree.root()), "<root>\n<![CDATA[<&]]><!-- c --><?t d?></root>\n");
}

TEST(PrintDOMNode, ADocumentHasItsDeclarationAndItsChildrenAtTheSameLevel) {
  const DOMTree tree("root");
  EXPECT_EQ(print(0, tree.get()), "<?xml version=\"1.0\" encoding=\"ISO-8859-1\" ?>\n<root/>\n");
  EXPECT_EQ(print(1, tree.get()), "<?xml version=\"1.0\" encoding=\"ISO-8859-1\" ?>\n\t<root/>\n");
}

TEST(PrintDOMNode, AttributesAndOtherNodesPrintNothing) {
  const DOMTree tree("root");
  tree.root()->setAttribute(u"a", u"b");
  EXPECT_EQ(print(0, tree.root()->getAttributeNode(u"a")), "");
  xercesc::DOMDocumentFragment* fragment = tree->createDocumentFragment();
  fragment->appendChild(tree->createElement(u"a"));
  EXPECT_EQ(print(0, fragment), "");
}

TEST(PrintDOMNode, StopsAtTheEndOfTheSubtree) {
  const DOMTree tree("root");
  xercesc::DOMNode* first = tree.root()->appendChild(tree->createElement(u"a"));
  tree.root()->appendChild(tree->createElement(u"b"));
  EXPECT_EQ(print(0, first), "<a/>\n");
}

TEST(PrintDOMNode, RandomTreesAsThePlainPrinter) {
  std::mt19937 random(7);
  for (int i = 0; i < 3000; ++i) {
    const DOMTree tree;
    growRandomly(tree.get(), tree.root(), random, 5);
    const int level = static_cast<int>(random() % 4);
    ASSERT_EQ(print(level, tree.root()), printPlainly(level, tree.root())) << i;
    ASSERT_EQ(print(level, tree.get()), printPlainly(level, tree.get())) << i;
  }
}

TEST(PrintDOMNode, ADeepTreeDoesNotNeedTheStack) {
  constexpr int kDepth = 3000;
  const DOMTree tree("a");
  xercesc::DOMNode* node = tree.root();
  for (int i = 1; i < kDepth; ++i) {
    node = node->appendChild(tree->createElement(u"a"));
  }
  const std::string text = print(0, tree.root());
  EXPECT_EQ(text.substr(0, 9), "<a>\n\t<a>\n");
  EXPECT_EQ(text.substr(text.size() - 5), "</a>\n");
}

TEST(PrintDOMNode, GivesAFailedAllocationAsNumber) {
  const DOMTree tree("root");
  for (int i = 0; i < 50; ++i) {
    tree.root()
        ->appendChild(tree->createElement(u"element"))
        ->appendChild(tree->createTextNode(u"some text <"));
  }
  const long injected = fault::forEachFailure([&tree](auto arm) {
    ZQGNString text;
    int result = 0;
    bool failed = false;
    {
      const auto failing = arm();
      result = PrintDOMNode(0, tree.root(), text);
      failed = fault::FailingAllocations::happened();
    }
    EXPECT_EQ(result, failed ? 300 : 0);
    return failed;
  });
  EXPECT_GE(injected, 4);
}

}  // namespace
