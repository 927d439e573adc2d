// Appending to long values, and handing them out piece by piece.
#include "platform/posix/ado/chunks.h"

#include <algorithm>
#include <string>
#include <vector>

#include "platform/posix/ado/ado_errors.h"
#include "platform/posix/ado/column_values.h"

namespace vandpublic::ado {
namespace {

void AppendBytes(Variant& content, const ByteArray& more) {
  if (content.IsNull()) content = ByteArray(std::vector<Byte>());
  auto& bytes = *content.Get<ByteArray>();
  const Long before = bytes.Count();
  if (more.Count() == 0) return;
  const std::int64_t last = std::int64_t{before} + more.Count() - 1;
  if (last > INT32_MAX) RaiseFault(FaultNumber::OutOfMemory);
  bytes.RedimensionPreserving(static_cast<Long>(last));
  std::ranges::copy(more.Elements(), bytes.Elements().begin() + before);
}

void AppendText(Variant& content, const String& more) {
  if (content.IsNull()) content = String();
  content.Get<String>()->EditUnits([&](std::u16string& units) { units += more.view(); });
}

}  // namespace

void RequireChunk(const Column& column, const Variant& data) {
  if (data.IsNull()) return;
  const bool fits =
      IsBinary(column.type) ? data.AsByteArray() != nullptr : data.Get<String>() != nullptr;
  if (!fits) Raise(ObjectError::InvalidArgument, kFieldSource);
}

void AddChunk(Variant& content, const Variant& data) {
  if (const ByteArray* bytes = data.AsByteArray()) {
    AppendBytes(content, *bytes);
  } else if (const auto* text = data.Get<String>()) {
    AppendText(content, *text);
  } else {
    content = NullValue{};
  }
}

Variant TakeChunk(const Variant& content, std::size_t& offset, std::size_t size) {
  if (const ByteArray* bytes = content.AsByteArray()) {
    const auto all = bytes->Elements();
    const std::size_t start = std::min(offset, all.size());
    const auto piece = all.subspan(start, std::min(size, all.size() - start));
    offset = start + piece.size();
    if (piece.empty()) return NullValue{};
    return ByteArray(std::vector<Byte>(piece.begin(), piece.end()));
  }
  if (const auto* text = content.Get<String>()) {
    const std::u16string_view all = text->view();
    const std::u16string_view piece = all.substr(std::min(offset, all.size()), size);
    offset += piece.size();
    if (piece.empty()) return NullValue{};
    return String(piece);
  }
  return NullValue{};
}

}  // namespace vandpublic::ado
