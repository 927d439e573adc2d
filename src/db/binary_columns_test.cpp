// The binary-column members on a field that writes down what is done to it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <numeric>

#include "frame/clsPublic.h"
#include "support/recording_database.h"
#include "support/test_component.h"

namespace vandpublic {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<Byte> Pattern(std::size_t size) {
  std::vector<Byte> bytes(size);
  for (std::size_t i = 0; i < size; ++i)
    bytes[i] = static_cast<Byte>(i * 7 + i / 256);
  return bytes;
}

std::string AsFile(const std::vector<Byte>& bytes) { return {bytes.begin(), bytes.end()}; }

constexpr const char* kNullChunk = "Field.AppendChunk type 1";
const Raised kFieldError{-2146825069, "ADODB.Field", "Not allowed."};

// How a byte count travels: the chunks, and whether the member is satisfied.
struct SizeCase {
  std::size_t size;
  std::vector<Long> chunks;
  bool succeeds;
};

const SizeCase kSizes[] = {
    {1, {1}, true},
    {3, {3}, true},
    {5119, {5119}, true},
    {5120, {5120}, false},
    {5121, {5120, 1}, true},
    {10240, {5120, 5120}, false},
    {12000, {5120, 5120, 1760}, true},
};

std::vector<std::string> AppendsOf(const std::vector<Long>& chunks) {
  std::vector<std::string> calls{kNullChunk};
  for (const Long chunk : chunks)
    calls.push_back("Field.AppendChunk 1 to " + std::to_string(chunk));
  return calls;
}

std::vector<std::string> TakesOf(const std::vector<Long>& chunks) {
  std::vector<std::string> calls{"Field.ActualSize"};
  for (const Long chunk : chunks)
    calls.push_back("Field.GetChunk " + std::to_string(chunk));
  return calls;
}

class BinaryColumnsTest : public testing::Test {
 protected:
  void Restart() {
    database_->calls.clear();
    database_->content.clear();
    field_ = database_->MakeField();
  }

  std::shared_ptr<RecordingDatabase> database_ = std::make_shared<RecordingDatabase>();
  TestComponent component_{.services = {.database = database_}};
  FakeFiles& files_ = *component_.services.files;
  FieldRef field_ = database_->MakeField();
  FieldRef unset_;
  String file_ = "f";
};

TEST_F(BinaryColumnsTest, Array_goes_to_the_column_in_chunks_after_a_null_value) {
  for (const SizeCase& test : kSizes) {
    SCOPED_TRACE(test.size);
    Restart();
    Variant array = ByteArray(Pattern(test.size));
    EXPECT_EQ(component_.object.ArrayToColumn(field_, array), test.succeeds);
    EXPECT_EQ(database_->calls, AppendsOf(test.chunks));
    EXPECT_EQ(database_->content, Pattern(test.size));
  }
}

TEST_F(BinaryColumnsTest, Array_may_have_any_lower_bound_and_be_referred_to) {
  ByteArray bytes({1, 2, 3, 4, 5}, -3);
  Variant array = Variant::Referring(bytes);
  EXPECT_TRUE(component_.object.ArrayToColumn(field_, array));
  EXPECT_THAT(database_->content, ElementsAre(1, 2, 3, 4, 5));
}

TEST_F(BinaryColumnsTest, What_is_no_array_of_bytes_leaves_the_column_alone) {
  const Variant values[] = {Variant(), Variant(NullValue{}), Variant(Long{5}), Variant(u"AB"),
                            Variant(ByteArray())};
  for (Variant value : values)
    EXPECT_FALSE(component_.object.ArrayToColumn(field_, value));
  EXPECT_THAT(database_->calls, IsEmpty());
}

TEST_F(BinaryColumnsTest, Array_without_elements_only_empties_the_column) {
  Variant array = ByteArray(std::vector<Byte>());
  EXPECT_FALSE(component_.object.ArrayToColumn(field_, array));
  EXPECT_THAT(database_->calls, ElementsAre(kNullChunk));
}

TEST_F(BinaryColumnsTest, Array_of_something_else_only_empties_the_column) {
  Variant numbers = ArrayShape{3, {{0, 4}}};
  EXPECT_FALSE(component_.object.ArrayToColumn(field_, numbers));
  Variant table = ByteTable({0, 2}, {0, 2});
  EXPECT_FALSE(component_.object.ArrayToColumn(field_, table));
  EXPECT_THAT(database_->calls, ElementsAre(kNullChunk, kNullChunk));
}

TEST_F(BinaryColumnsTest, Chunk_that_is_refused_is_the_last) {
  Variant array = ByteArray(Pattern(12000));
  database_->FailOn("Field.AppendChunk 1 to 5120", kFieldError);
  EXPECT_FALSE(component_.object.ArrayToColumn(field_, array));
  EXPECT_THAT(database_->calls, ElementsAre(kNullChunk, "Field.AppendChunk 1 to 5120"));
}

TEST_F(BinaryColumnsTest, Column_becomes_an_array_with_subscripts_from_1) {
  for (const SizeCase& test : kSizes) {
    SCOPED_TRACE(test.size);
    Restart();
    database_->content = Pattern(test.size);
    const Variant result = component_.object.ColumnToArray(field_);
    EXPECT_EQ(database_->calls, TakesOf(test.chunks));
    EXPECT_EQ(result, Variant(ByteArray(Pattern(test.size), 1)));
  }
}

TEST_F(BinaryColumnsTest, Empty_column_becomes_one_zero_byte_at_subscript_0) {
  EXPECT_EQ(component_.object.ColumnToArray(field_), Variant(ByteArray({0})));
  database_->actual_size = -1;
  EXPECT_EQ(component_.object.ColumnToArray(field_), Variant(ByteArray({0})));
}

TEST_F(BinaryColumnsTest, Column_that_fails_gives_null_before_the_array_is_made) {
  database_->content = Pattern(10);
  database_->FailOn("Field.ActualSize", kFieldError);
  EXPECT_TRUE(component_.object.ColumnToArray(field_).IsNull());
  EXPECT_TRUE(component_.object.ColumnToArray(unset_).IsNull());
}

TEST_F(BinaryColumnsTest, Column_that_fails_later_gives_what_was_filled) {
  database_->content = Pattern(12000);
  database_->FailOn("Field.GetChunk 1760", kFieldError);
  std::vector<Byte> expected = Pattern(10240);
  expected.resize(12000);
  EXPECT_EQ(component_.object.ColumnToArray(field_), Variant(ByteArray(expected, 1)));
}

TEST_F(BinaryColumnsTest, Column_with_less_than_it_says_gives_what_was_filled) {
  database_->content = Pattern(5000);
  database_->actual_size = 6000;
  std::vector<Byte> expected = Pattern(5000);
  expected.resize(6000);
  EXPECT_EQ(component_.object.ColumnToArray(field_), Variant(ByteArray(expected, 1)));
}

TEST_F(BinaryColumnsTest, Chunks_that_are_null_or_no_bytes_end_the_reading) {
  database_->content = Pattern(5120);
  database_->actual_size = 6000;
  std::vector<Byte> expected = Pattern(5120);
  expected.resize(6000);
  EXPECT_EQ(component_.object.ColumnToArray(field_), Variant(ByteArray(expected, 1)));
  database_->gives_text = true;
  field_ = database_->MakeField();
  EXPECT_EQ(component_.object.ColumnToArray(field_),
            Variant(ByteArray(std::vector<Byte>(6000), 1)));
  EXPECT_FALSE(component_.object.ColumnToFile(field_, file_));
}

TEST_F(BinaryColumnsTest, File_goes_to_the_column_in_chunks_after_a_null_value) {
  for (const SizeCase& test : kSizes) {
    SCOPED_TRACE(test.size);
    Restart();
    files_.contents[u"f"] = AsFile(Pattern(test.size));
    EXPECT_EQ(component_.object.FileToColumn(field_, file_), test.succeeds);
    EXPECT_EQ(database_->calls, AppendsOf(test.chunks));
    EXPECT_EQ(database_->content, Pattern(test.size));
    EXPECT_THAT(files_.closed, ElementsAre(u"f"));
    files_.closed.clear();
  }
}

struct FirstBytesCase {
  Long first;
  std::vector<Long> chunks;
  bool succeeds;
};

TEST_F(BinaryColumnsTest, First_bytes_of_a_file_are_as_many_as_asked_for) {
  const FirstBytesCase cases[] = {
      {100, {100}, true}, {0, {1000}, true},  {5120, {5120}, false}, {6000, {5120, 880}, true},
      {-1, {}, false},    {-5120, {}, false}, {-12000, {}, false},
  };
  files_.contents[u"f"] = AsFile(Pattern(1000));
  for (const FirstBytesCase& test : cases) {
    SCOPED_TRACE(test.first);
    Restart();
    Long first = test.first;
    EXPECT_EQ(component_.object.FileToColumn(field_, file_, first), test.succeeds);
    EXPECT_EQ(database_->calls, AppendsOf(test.chunks));
    // Past the end of the file there are zeros.
    std::vector<Byte> expected = Pattern(1000);
    expected.resize(
        static_cast<std::size_t>(std::accumulate(test.chunks.begin(), test.chunks.end(), Long{0})));
    EXPECT_EQ(database_->content, expected);
  }
}

TEST_F(BinaryColumnsTest, Empty_or_missing_file_leaves_the_column_alone) {
  EXPECT_FALSE(component_.object.FileToColumn(field_, file_));
  files_.contents[u"f"] = "";
  EXPECT_FALSE(component_.object.FileToColumn(field_, file_));
  Long first = 100;
  EXPECT_FALSE(component_.object.FileToColumn(field_, file_, first));
  EXPECT_THAT(database_->calls, IsEmpty());
}

TEST_F(BinaryColumnsTest, File_that_fails_is_closed) {
  files_.contents[u"f"] = AsFile(Pattern(12000));
  files_.FailRead(2, FaultNumber::DeviceIoError);
  EXPECT_FALSE(component_.object.FileToColumn(field_, file_));
  EXPECT_THAT(database_->calls, ElementsAre(kNullChunk, "Field.AppendChunk 1 to 5120"));
  EXPECT_FALSE(component_.object.FileToColumn(unset_, file_));
  EXPECT_THAT(files_.closed, ElementsAre(u"f", u"f"));
}

TEST_F(BinaryColumnsTest, Column_replaces_a_file_chunk_by_chunk) {
  for (const SizeCase& test : kSizes) {
    SCOPED_TRACE(test.size);
    Restart();
    files_.contents[u"f"] = std::string(20000, 'x');
    database_->content = Pattern(test.size);
    EXPECT_EQ(component_.object.ColumnToFile(field_, file_), test.succeeds);
    EXPECT_EQ(database_->calls, TakesOf(test.chunks));
    EXPECT_EQ(files_.contents[u"f"], AsFile(Pattern(test.size)));
  }
}

TEST_F(BinaryColumnsTest, Empty_column_leaves_an_empty_file) {
  files_.contents[u"f"] = "old";
  EXPECT_FALSE(component_.object.ColumnToFile(field_, file_));
  EXPECT_EQ(files_.contents[u"f"], "");
}

TEST_F(BinaryColumnsTest, Unset_column_leaves_the_file_alone) {
  files_.contents[u"f"] = "old";
  EXPECT_FALSE(component_.object.ColumnToFile(unset_, file_));
  EXPECT_EQ(files_.contents[u"f"], "old");
}

TEST_F(BinaryColumnsTest, Column_that_fails_on_the_way_to_a_file_leaves_what_was_written) {
  database_->content = Pattern(12000);
  database_->FailOn("Field.GetChunk 1760", kFieldError);
  EXPECT_FALSE(component_.object.ColumnToFile(field_, file_));
  EXPECT_EQ(files_.contents[u"f"], AsFile(Pattern(10240)));
  files_.FailWrite(1, FaultNumber::DiskFull);
  field_ = database_->MakeField();
  EXPECT_FALSE(component_.object.ColumnToFile(field_, file_));
  EXPECT_EQ(files_.contents[u"f"], "");
  EXPECT_THAT(files_.given_up, IsEmpty());
}

TEST_F(BinaryColumnsTest, Nothing_is_ever_logged) {
  Variant nothing;
  component_.object.ArrayToColumn(unset_, nothing);
  component_.object.ColumnToArray(unset_);
  component_.object.FileToColumn(unset_, file_);
  component_.object.ColumnToFile(unset_, file_);
  EXPECT_EQ(component_.Log(), "");
}

}  // namespace
}  // namespace vandpublic
