#include "xml/ZQXMLException.h"

#include <gtest/gtest.h>

#include <string>
#include <type_traits>

#include "fault/FailingAllocations.h"
#include "xml/FixedLocator.h"

namespace {

static_assert(std::is_copy_constructible_v<ZQXMLException>);
static_assert(std::has_virtual_destructor_v<ZQXMLException>);

const FixedLocator kPlace(12, 34);
const xercesc::Locator* const kThere = &kPlace;
const xercesc::Locator* const kAbsent = nullptr;
// No pointer at all, and a pointer to none.
const xercesc::Locator* const* const kNoLocators[] = {nullptr, &kAbsent};

const XMLCh* const kName = u"form\u00e9";
const XMLCh* const kNoName = nullptr;

void expectText(const ZQXMLException& exception, const std::string& text) {
  EXPECT_EQ(exception.GetErrorNumber(), 8941);
  EXPECT_EQ(exception.GetErrorMsg(), text);
}

TEST(XMLException, OfANumberHasNoText) {
  expectText(ZQXMLException(8941), "");
}

TEST(XMLException, OfANumberAndALocatorTellsThePlace) {
  expectText(ZQXMLException(8941, &kThere), "line: 12, column 34");
  for (const auto* locator : kNoLocators) {
    expectText(ZQXMLException(8941, locator), "");
  }
}

TEST(XMLException, OfAnElementNameAndALocatorTellsBoth) {
  expectText(ZQXMLException(8941, &kName, &kThere), "form\xC3\xA9, line: 12, column 34");
  expectText(ZQXMLException(8941, &kNoName, &kThere), ", line: 12, column 34");
  expectText(ZQXMLException(8941, static_cast<const XMLCh* const*>(nullptr), &kThere),
             ", line: 12, column 34");
  for (const auto* locator : kNoLocators) {
    expectText(ZQXMLException(8941, &kName, locator), "");
    expectText(ZQXMLException(8941, &kNoName, locator), "");
  }
}

TEST(XMLException, OfATextAndALocatorTellsBoth) {
  expectText(ZQXMLException(8941, "text", &kThere), "text, line: 12, column 34");
  expectText(ZQXMLException(8941, "", &kThere), ", line: 12, column 34");
  expectText(ZQXMLException(8941, static_cast<const char*>(nullptr), &kThere),
             ", line: 12, column 34");
  for (const auto* locator : kNoLocators) {
    expectText(ZQXMLException(8941, "text", locator), "");
  }
}

TEST(XMLException, OfATextIsThatText) {
  expectText(ZQXMLException(8941, "text %s 100%"), "text %s 100%");
  expectText(ZQXMLException(8941, ""), "");
  expectText(ZQXMLException(8941, static_cast<const char*>(nullptr)), "");
}

TEST(XMLException, OfADOMTextIsThatInAngleBrackets) {
  expectText(ZQXMLException(8941, u"text %s \u20ac"), "<text %s \xE2\x82\xAC>");
  expectText(ZQXMLException(8941, u""), "<>");
  expectText(ZQXMLException(8941, static_cast<const XMLCh*>(nullptr)), "<>");
}

TEST(XMLException, EveryFormIsCutAt254Bytes) {
  for (size_t length = 200; length <= 1000; ++length) {
    const std::string text(length, 'x');
    const std::u16string wide(length, u'x');
    const XMLCh* const name = wide.c_str();
    const std::string placed = (text + ", line: 12, column 34").substr(0, 254);
    expectText(ZQXMLException(8941, text.c_str()), text.substr(0, 254));
    expectText(ZQXMLException(8941, text.c_str(), &kThere), placed);
    expectText(ZQXMLException(8941, &name, &kThere), placed);
    expectText(ZQXMLException(8941, name), ("<" + text + ">").substr(0, 254));
  }
}

TEST(XMLException, TheCutMaySplitACharacter) {
  const std::string text = std::string(253, 'x') + "\xC3\xA9";
  expectText(ZQXMLException(8941, text.c_str()), std::string(253, 'x') + "\xC3");
  const std::u16string wide(500, u'\u20ac');
  std::string encoded;
  for (int i = 0; i < 500; ++i) {
    encoded += "\xE2\x82\xAC";
  }
  expectText(ZQXMLException(8941, wide.c_str()), "<" + encoded.substr(0, 253));
}

TEST(XMLException, PlacesAreTakenAsInt) {
  const FixedLocator far(0x100000001, 0xFFFFFFFF);
  const xercesc::Locator* const locator = &far;
  expectText(ZQXMLException(8941, &locator), "line: 1, column -1");
}

TEST(XMLException, ThePlaceIsReadAtTheMomentOfTheFailure) {
  const FixedLocator first(1, 2);
  const FixedLocator second(3, 4);
  const xercesc::Locator* locator = &first;
  expectText(ZQXMLException(8941, &locator), "line: 1, column 2");
  locator = &second;
  expectText(ZQXMLException(8941, &locator), "line: 3, column 4");
}

TEST(XMLException, ACopyHoldsTheSame) {
  const ZQXMLException original(8941, "text", &kThere);
  const ZQXMLException copy(original);
  expectText(copy, "text, line: 12, column 34");
  ZQXMLException assigned(1);
  assigned = original;
  expectText(assigned, "text, line: 12, column 34");
  try {
    throw original;
  } catch (const ZQXMLException& caught) {
    expectText(caught, "text, line: 12, column 34");
  }
}

TEST(XMLException, IsMadeWithoutMemory) {
  const std::u16string name(300, u'\u00e9');
  const XMLCh* const element = name.c_str();
  std::string expected;
  for (int i = 0; i < 127; ++i) {
    expected += "\xC3\xA9";
  }
  ZQXMLException exception(0);
  {
    const fault::FailingAllocations failing(0, fault::Mode::FromThere);
    exception = ZQXMLException(8941, &element, &kThere);
  }
  expectText(exception, expected);
}

}  // namespace
