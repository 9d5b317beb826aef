// Any text as a definition document of which the objects are listed, from memory and from a file.
// The first byte chooses the native code set among all of them, the rest is the document. With some
// of the inputs an allocation fails.

#include <string>

#include "fuzz/Documents.h"
#include "fuzz/File.h"

namespace {

using fuzz::require;
using fuzz::Text;

const fuzz::File gFile;

// The result of a call, and all that it gives out as a text.
struct Listing {
  int result = 0;
  std::string text;

  void append(uint64_t number) { text += std::to_string(number) + ' '; }
  void append(const char* words) { text += words == nullptr ? "" : words + std::string("; "); }
};

void requireSame(const Listing& one, const Listing& other, const char* what) {
  if (one.result != other.result || one.text != other.text) {
    fprintf(stderr, "%d: %s\n%d: %s\n", one.result, one.text.c_str(), other.result,
            other.text.c_str());
    fuzz::require(false, what);
  }
}

template <typename Arm>
Listing list(uint32_t kind, const char* doc, Arm arm) {
  const ZQXMLInputDoc document = {kind, const_cast<char*>(doc)};
  ZQUnsignedIntList types;
  ZQNameList names;
  ZQUnsignedIntList subTypes;
  ZQStatusList status;
  Listing listing;
  {
    [[maybe_unused]] const auto armed = arm();
    listing.result =
        GetListXMLObjects(fuzz::parser(), &document, &types, &names, &subTypes, &status);
  }
  uint64_t line;
  uint64_t column;
  GetXMLParserPosition(fuzz::parser(), &line, &column);
  listing.append(line);
  listing.append(column);
  require(types.numItems == names.numItems && types.numItems == subTypes.numItems,
          "the lists are of one length");
  for (uint32_t i = 0; i < types.numItems; ++i) {
    require(memchr(names.items[i], '\0', sizeof names.items[i]) != nullptr, "a name has its end");
    require(types.items[i] == ZQXML_CONTAINER || subTypes.items[i] == 0xFFFFFFFF,
            "only containers have a type of their own");
    listing.append(types.items[i]);
    listing.append(subTypes.items[i]);
    listing.append(names.items[i]);
  }
  for (uint32_t i = 0; i < status.numItems; ++i) {
    listing.append(status.items[i].messageType);
    listing.append(static_cast<uint64_t>(status.items[i].messageNum));
    listing.append(status.items[i].appendedText);
  }
  FreeZQUnsignedIntList(&types, 0);
  FreeZQNameList(&names, 0);
  FreeZQUnsignedIntList(&subTypes, 0);
  FreeZQStatusList(&status, 0);
  return listing;
}

Listing list(uint32_t kind, const char* doc) {
  return list(kind, doc, fuzz::unarmed);
}

void checkGoodDocument() {
  static const Text document(std::string("<root><menu><menuName>M</menuName></menu></root>"));
  requireSame(list(ZQXML_INPUT_MEMORY, document), {0, "0 0 1073741832 4294967295 M; "},
              "a document that fails leaves the parser as good as new");
}

void checkFile(const Text& text, const Listing& expected) {
  gFile.store(text.get(), text.length());
  const Listing listing = list(ZQXML_INPUT_FILE, gFile.path().c_str());
  require(listing.result == expected.result, "a file lists as the text in it");
  // A text of the XML parser may tell the name of the document, which a text in memory has not.
  if (listing.text.find(gFile.path()) == std::string::npos) {
    requireSame(listing, expected, "a file lists as the text in it");
  }
}

}  // namespace

void fuzz::run(const uint8_t* data, size_t size) {
  fuzz::beginRun();
  fuzz::Input input(data, size);
  const int codeSet = input.below(1 + ZQ_CONV_TO_CHARSET_ROWS);
  InitMbutilExt(codeSet == 0 ? 0 : _ConvToCharsetTable[codeSet - 1].codeSet);
  const Text text(reinterpret_cast<const char*>(input.data()), input.size());
  const long before = fault::allocationCount();
  const Listing listing = list(ZQXML_INPUT_MEMORY, text);
  const long count = fault::allocationCount() - before;
  const uint32_t digest = fuzz::digestOf(data, size);
  switch (digest >> 24 & 15) {
    case 0:
    case 1:
      checkFile(text, listing);
      break;
    case 2:
    case 3:
      fuzz::withFailure(digest, count, [&](auto arm) {
        const Listing failed = list(ZQXML_INPUT_MEMORY, text, arm);
        if (failed.result == 0) {
          requireSame(failed, listing, "what is listed though memory ran out is all there");
        }
      });
      break;
    case 4:
      // With the zero bytes that a text in memory can't have.
      gFile.store(input.data(), input.size());
      list(ZQXML_INPUT_LOCATION, gFile.path().c_str());
      break;
    case 5:
      checkGoodDocument();
      break;
    default:
      break;
  }
}
