// ArrayToColumn, ColumnToArray, FileToColumn and ColumnToFile: binary columns in chunks.
//
// A failure ends these members quietly. A byte count that is a multiple of the chunk size has an
// empty remainder, and a buffer for it cannot be dimensioned: three of the members fail there, with
// everything transferred. That is on purpose, as is the lower bound 1 of the buffers; clients know
// both.
#include <algorithm>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "db/object_ref.h"
#include "frame/trap.h"
#include "platform/database.h"
#include "platform/platform.h"

namespace vandpublic {
namespace {

constexpr Long kChunkSize = 5120;

// The number of whole chunks, and what is left. Both are negative, or 0, for a negative count.
struct ChunkCount {
  explicit ChunkCount(std::int64_t bytes)
      : whole(bytes / kChunkSize), remainder(static_cast<Long>(bytes % kChunkSize)) {}
  std::int64_t whole;
  Long remainder;
};

// Hands `count` bytes to the field: `next` gives each chunk, filling a buffer of its size.
template <class Next>
void AppendInChunks(Field& column, std::int64_t count, Next next) {
  const ChunkCount chunks(count);
  column.AppendChunk(NullValue{});  // starts the content afresh
  const auto append = [&](Long size) {
    ByteArray buffer = ByteArray::WithBounds(1, size);
    next(buffer.Elements());
    column.AppendChunk(Variant(std::move(buffer)));
  };
  for (std::int64_t i = 0; i < chunks.whole; ++i)
    append(kChunkSize);
  append(chunks.remainder);
}

// The next chunk of the field, which must be an array of bytes.
ByteArray TakeChunk(Field& column, Long size) {
  Variant chunk = column.GetChunk(size);
  ByteArray* const bytes = chunk.AsByteArray();
  if (bytes == nullptr) {
    RaiseFault(chunk.IsNull() ? FaultNumber::InvalidUseOfNull : FaultNumber::TypeMismatch);
  }
  return std::move(*bytes);
}

// Takes the next chunk into the front of `target`. One that is too short fills what it can.
std::span<Byte> CopyChunk(Field& column, Long size, std::span<Byte> target) {
  const ByteArray chunk = TakeChunk(column, size);
  const std::size_t wanted = static_cast<std::size_t>(size);
  const std::size_t count = std::min(chunk.Elements().size(), wanted);
  std::copy_n(chunk.Elements().begin(), count, target.begin());
  if (count < wanted) RaiseFault(FaultNumber::SubscriptOutOfRange);
  return target.subspan(count);
}

}  // namespace

bool clsPublic::ArrayToColumn(FieldRef& Col, Variant& Ary) {
  return Trapped(*this, Member::ArrayToColumn, [&] {
    const auto bound = Ary.Bound(1);
    if (!bound) RaiseFault(FaultNumber::SubscriptOutOfRange);
    const ByteArray* const source = Ary.AsByteArray();
    std::size_t done = 0;
    AppendInChunks(ObjectIn(Col), bound->count, [&](std::span<Byte> buffer) {
      if (source == nullptr) RaiseFault(FaultNumber::TypeMismatch);  // an array of something else
      std::copy_n(source->Elements().begin() + static_cast<std::ptrdiff_t>(done), buffer.size(),
                  buffer.begin());
      done += buffer.size();
    });
    return true;
  });
}

Variant clsPublic::ColumnToArray(FieldRef& Col) {
  Variant result = NullValue{};
  Trapped(*this, Member::ColumnToArray, [&] {
    Field& column = ObjectIn(Col);
    const Long size = column.GetActualSize();
    if (size < 1) {
      result = ByteArray::WithBounds(0, 0);
      return;
    }
    result = ByteArray::WithBounds(1, size);
    const ChunkCount chunks(size);
    std::span<Byte> rest = result.Get<ByteArray>()->Elements();
    for (std::int64_t i = 0; i < chunks.whole; ++i)
      rest = CopyChunk(column, kChunkSize, rest);
    if (chunks.remainder > 0) CopyChunk(column, chunks.remainder, rest);
  });
  return result;
}

bool clsPublic::FileToColumn(FieldRef& Col, String& DiskFile, OptionalRef<Long> First_X_Bytes) {
  return Trapped(*this, Member::FileToColumn, [&] {
    const std::unique_ptr<InputFile> file = platform().files->OpenToRead(DiskFile.view());
    const std::int64_t file_size = file->Size();
    if (file_size < 1) return false;
    const std::int64_t count = *First_X_Bytes != 0 ? *First_X_Bytes : file_size;
    AppendInChunks(ObjectIn(Col), count, [&](std::span<Byte> buffer) {
      file->Read(buffer);  // past the end of the file the buffer keeps its zeros
    });
    return true;
  });
}

bool clsPublic::ColumnToFile(FieldRef& Col, String& DiskFile) {
  return Trapped(*this, Member::ColumnToFile, [&] {
    Field& column = ObjectIn(Col);
    const ChunkCount chunks(column.GetActualSize());
    Files& files = *platform().files;
    files.DeleteIfThere(DiskFile.view());
    const std::unique_ptr<OutputFile> file = files.Open(DiskFile.view(), OpenMode::Binary);
    const auto write_chunk = [&](Long size) {
      const ByteArray chunk = TakeChunk(column, size);
      const std::span<const Byte> bytes = chunk.Elements();
      file->Write({reinterpret_cast<const char*>(bytes.data()), bytes.size()});
    };
    for (std::int64_t i = 0; i < chunks.whole; ++i)
      write_chunk(kChunkSize);
    ByteArray::WithBounds(1, chunks.remainder);
    write_chunk(chunks.remainder);
    file->Close();
    return true;
  });
}

}  // namespace vandpublic
