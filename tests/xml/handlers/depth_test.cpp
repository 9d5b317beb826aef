// Definitions that nest as deep as the stack of handlers reaches, and deeper.

#include <gtest/gtest.h>

#include <functional>

#include "xml/DocumentText.h"
#include "xml/Listing.h"
#include "xml/handlers/HandlerReader.h"

namespace {

// A filter with a part, on one line.
std::string filterWith(const std::string& part) {
  return "<root><filter><filterName>F</filterName>" + part + "</filter></root>";
}

class Depth : public testing::Test {
 protected:
  ~Depth() override { FreeZQXMLParsedStreamInternal(&stream, 0); }

  // The result, and the first record as "number text".
  int parse(std::string document) {
    FreeZQXMLParsedStreamInternal(&stream, 0);
    stream = {};
    message.clear();
    OwnedStatusList status;
    const ZQXMLInputDoc input = {ZQXML_INPUT_MEMORY, document.data()};
    const int result = ParseXMLDocument(&handle, &input, nullptr, &stream, nullptr, &status);
    if (status.numItems > 0) {
      message = std::to_string(status.items[0].messageNum) + " " + status.items[0].appendedText;
    }
    return result;
  }

  const ZQXMLFilter& filter() const { return stream.objectList->object.filter; }

  // `levels` pass and are counted in the record; at one more the start that finds no room is the
  // last of `element`.
  void expectLimit(size_t levels, const std::function<std::string(size_t)>& documentOf,
                   const std::function<size_t(const ZQXMLFilter&)>& countLevels,
                   const std::string& element) {
    for (const size_t depth : {size_t{1}, size_t{10}, levels - 1, levels}) {
      ASSERT_EQ(parse(documentOf(depth)), 0) << depth << ": " << message;
      EXPECT_EQ(countLevels(filter()), depth);
    }
    for (const size_t depth : {levels + 1, levels + 2, levels + 100}) {
      const std::string document = documentOf(depth);
      size_t at = 0;
      for (size_t i = 0; i < levels + 1; ++i) {
        at = document.find(element, at) + element.size();
      }
      EXPECT_EQ(parse(document), 2);
      EXPECT_EQ(message, "8944 " + Marked::placeAt(at)) << depth;
      EXPECT_EQ(stream.objectList, nullptr);
      // The handle is as good as ever.
      ASSERT_EQ(parse(documentOf(levels)), 0) << message;
      EXPECT_EQ(countLevels(filter()), levels);
    }
  }

  ParserHandle handle;
  ZQXMLParsedStream stream = {};
  std::string message;
};

TEST_F(Depth, Negations) {
  const auto documentOf = [](size_t depth) {
    return filterWith("<runIfQualification>" + repeated("<not>", depth) + "<fieldID>7</fieldID>" +
                      repeated("</not>", depth) + "</runIfQualification>");
  };
  const auto countLevels = [](const ZQXMLFilter& filter) {
    size_t levels = 0;
    const ZQQualifierStruct* node = &filter.query;
    for (; node->operation == 3; node = node->u.notQualifier) {
      ++levels;
    }
    EXPECT_EQ(node->operation, 5U);
    EXPECT_EQ(node->u.fieldId, 7U);
    return levels;
  };
  expectLimit(125, documentOf, countLevels, "<not>");
}

TEST_F(Depth, Branches) {
  for (const std::string side : {"left", "right"}) {
    const auto documentOf = [&](size_t depth) {
      return filterWith("<runIfQualification>" + repeated("<or><" + side + ">", depth) +
                        "<fieldID>7</fieldID>" + repeated("</" + side + "></or>", depth) +
                        "</runIfQualification>");
    };
    const auto countLevels = [&](const ZQXMLFilter& filter) {
      size_t levels = 0;
      const ZQQualifierStruct* node = &filter.query;
      while (node->operation == 2) {
        node = side == "left" ? node->u.branches.left : node->u.branches.right;
        ++levels;
      }
      EXPECT_EQ(node->u.fieldId, 7U);
      return levels;
    };
    expectLimit(125, documentOf, countLevels, "<" + side + ">");
  }
}

TEST_F(Depth, ArithmeticOfConditions) {
  const std::string level = "<arithmeticOperation><operation>negate</operation><right>";
  const auto documentOf = [&](size_t depth) {
    return filterWith("<runIfQualification><relationalOperation><left>" + repeated(level, depth) +
                      "<fieldID>7</fieldID>" + repeated("</right></arithmeticOperation>", depth) +
                      "</left></relationalOperation></runIfQualification>");
  };
  const auto countLevels = [](const ZQXMLFilter& filter) {
    size_t levels = 0;
    const auto* operand = &filter.query.u.relationalOperation->operandLeft;
    for (; operand->tag == 3; operand = &operand->u.arithOp->operandRight) {
      ++levels;
    }
    EXPECT_EQ(operand->u.fieldId, 7U);
    return levels;
  };
  expectLimit(61, documentOf, countLevels, level);
}

// An assignment in the first action.
std::string assigning(const std::string& source) {
  return filterWith("<ifActions><action><setFieldList><setField><fieldValue>" + source +
                    "</fieldValue></setField></setFieldList></action></ifActions>");
}

const ZQAssignStruct& assignmentOf(const ZQXMLFilter& filter) {
  return filter.actionList.items[0].u.setFields.items[0].assignment;
}

TEST_F(Depth, Functions) {
  const auto documentOf = [](size_t depth) {
    return assigning(repeated("<function><functionParameterList><functionParameter>", depth) +
                     "<process><command>c</command></process>" +
                     repeated("</functionParameter></functionParameterList></function>", depth));
  };
  const auto countLevels = [](const ZQXMLFilter& filter) {
    size_t levels = 0;
    const ZQAssignStruct* assignment = &assignmentOf(filter);
    for (; assignment->assignType == 5; assignment = assignment->u.function->parameterList) {
      ++levels;
    }
    EXPECT_STREQ(assignment->u.process, "c");
    return levels;
  };
  expectLimit(61, documentOf, countLevels, "<function>");
}

TEST_F(Depth, ArithmeticOfAssignments) {
  const auto documentOf = [](size_t depth) {
    return assigning(repeated("<arithmetic><left>", depth) +
                     "<process><command>c</command></process>" +
                     repeated("</left><operation>add</operation></arithmetic>", depth));
  };
  const auto countLevels = [](const ZQXMLFilter& filter) {
    size_t levels = 0;
    const ZQAssignStruct* assignment = &assignmentOf(filter);
    for (; assignment->assignType == 4; assignment = &assignment->u.arithOp->operandLeft) {
      ++levels;
    }
    EXPECT_STREQ(assignment->u.process, "c");
    return levels;
  };
  expectLimit(61, documentOf, countLevels, "<arithmetic>");
}

TEST_F(Depth, FilterApiCalls) {
  const auto documentOf = [](size_t depth) {
    return assigning(repeated("<filterAPI><inputValueList><inputValue>", depth) +
                     "<process><command>c</command></process>" +
                     repeated("</inputValue></inputValueList></filterAPI>", depth));
  };
  const auto countLevels = [](const ZQXMLFilter& filter) {
    size_t levels = 0;
    const ZQAssignStruct* assignment = &assignmentOf(filter);
    for (; assignment->assignType == 8; assignment = assignment->u.filterApi->inputValues) {
      ++levels;
    }
    EXPECT_STREQ(assignment->u.process, "c");
    return levels;
  };
  expectLimit(61, documentOf, countLevels, "<filterAPI>");
}

}  // namespace
