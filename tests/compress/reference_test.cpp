// The library beside the plain compressor and the plain decoder, over the whole set of inputs.

#include <gtest/gtest.h>

#include "calls.h"
#include "inputs.h"
#include "reference_deflate.h"
#include "reference_inflate.h"

using inputs::Bytes;
using inputs::Input;
using inputs::Kind;

namespace {

void expectSameAsReference(const Input& input, unsigned level) {
  const Bytes expected = reference::compress(input.data, static_cast<int>(level));
  const calls::Result compressed = calls::compress(level, input.data);
  ASSERT_EQ(compressed.status, 0) << input.name << ", level " << level;
  ASSERT_TRUE(compressed.data == expected) << input.name << ", level " << level;
  const calls::Result back = calls::decompress(compressed.data);
  ASSERT_EQ(back.status, 0) << input.name << ", level " << level;
  ASSERT_TRUE(back.data == input.data) << input.name << ", level " << level;
}

}  // namespace

TEST(Reference, InputsAreMany) {
  EXPECT_GE(inputs::all().size(), 200u);
}

class ReferenceLevel : public testing::TestWithParam<unsigned> {};

TEST_P(ReferenceLevel, SameBytesForAllInputs) {
  for (const Input& input : inputs::all()) {
    ASSERT_NO_FATAL_FAILURE(expectSameAsReference(input, GetParam()));
  }
}

TEST_P(ReferenceLevel, SlowDecoderGivesTheInputs) {
  for (const Input& input : inputs::some(60, 70000)) {
    const Bytes stream = calls::streamOf(calls::compress(GetParam(), input.data).data);
    const reference::Decoded decoded = reference::inflate(stream.data(), stream.size());
    ASSERT_EQ(decoded.verdict, reference::Verdict::Valid) << input.name;
    ASSERT_TRUE(decoded.data == input.data) << input.name;
    ASSERT_EQ(decoded.bytesRead, stream.size()) << input.name;
  }
}

INSTANTIATE_TEST_SUITE_P(Levels, ReferenceLevel, testing::Range(1u, 10u));

TEST(Reference, SameBytesForAMegabyte) {
  for (const Kind kind : inputs::kAllKinds) {
    for (const unsigned level : {1u, 3u, 4u, 6u, 9u}) {
      const Input input = {inputs::nameOf(kind), inputs::make(kind, 1 << 20, level)};
      ASSERT_NO_FATAL_FAILURE(expectSameAsReference(input, level));
    }
  }
}

TEST(Reference, SameBytesForLongInputs) {
  constexpr size_t kLength = 20 << 20;
  ASSERT_NO_FATAL_FAILURE(expectSameAsReference({"text", inputs::make(Kind::Text, kLength)}, 1));
  ASSERT_NO_FATAL_FAILURE(expectSameAsReference({"xml", inputs::make(Kind::Xml, kLength)}, 6));
  ASSERT_NO_FATAL_FAILURE(
      expectSameAsReference({"base64", inputs::make(Kind::Base64, kLength)}, 9));
  ASSERT_NO_FATAL_FAILURE(
      expectSameAsReference({"binary", inputs::make(Kind::Binary, kLength / 8)}, 9));
}
