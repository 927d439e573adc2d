// Long values that are put together and taken apart.
#include "platform/posix/ado/chunks.h"

#include <gtest/gtest.h>

#include "support/test_component.h"

namespace vandpublic::ado {
namespace {

TEST(Chunks, Of_text_are_added_and_taken) {
  Variant content = NullValue{};
  AddChunk(content, "caf\xC3\xA9");
  AddChunk(content, " au lait");
  EXPECT_EQ(content, Variant(u"caf\u00e9 au lait"));
  std::size_t offset = 0;
  EXPECT_EQ(TakeChunk(content, offset, 5), Variant(u"caf\u00e9 "));
  EXPECT_EQ(TakeChunk(content, offset, 100), Variant(u"au lait"));
  EXPECT_TRUE(TakeChunk(content, offset, 100).IsNull());
  AddChunk(content, NullValue{});
  EXPECT_TRUE(content.IsNull());
  EXPECT_TRUE(TakeChunk(content, offset, 1).IsNull());
}

TEST(Chunks, Of_no_bytes_make_the_value_empty_and_not_null) {
  Variant content = NullValue{};
  AddChunk(content, ByteArray(std::vector<Byte>{}));
  EXPECT_EQ(content, Variant(ByteArray(std::vector<Byte>{})));
  AddChunk(content, ByteArray({1}));
  AddChunk(content, ByteArray(std::vector<Byte>{}));
  EXPECT_EQ(content, Variant(ByteArray({1})));
  std::size_t offset = 5;  // behind the end of a value that was made shorter
  EXPECT_TRUE(TakeChunk(content, offset, 1).IsNull());
}

TEST(Chunks, Must_be_of_the_kind_of_their_column) {
  constexpr Long kInvalid = static_cast<Long>(0x800A0BB9);
  const Column text{"x", DataType::LongVarWChar};
  const Column bytes{"x", DataType::LongVarBinary};
  RequireChunk(text, "x");
  RequireChunk(text, NullValue{});
  RequireChunk(bytes, ByteArray({1}));
  RequireChunk(bytes, NullValue{});
  EXPECT_EQ(RaisedBy([&] { RequireChunk(text, ByteArray({1})); }).number, kInvalid);
  EXPECT_EQ(RaisedBy([&] { RequireChunk(bytes, "x"); }).number, kInvalid);
  EXPECT_EQ(RaisedBy([&] { RequireChunk(text, Long{1}); }).number, kInvalid);
}

}  // namespace
}  // namespace vandpublic::ado
