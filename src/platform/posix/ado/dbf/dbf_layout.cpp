// Reading and checking of the header.
#include "platform/posix/ado/dbf/dbf_layout.h"

#include <algorithm>
#include <array>

#include "platform/posix/ado/dbf/dbf_errors.h"
#include "platform/posix/ado/sql/byte_order.h"
#include "runtime/object.h"
#include "runtime/utf8.h"

namespace vandpublic::ado {
namespace {

constexpr std::size_t kPrologLength = 32;
constexpr std::size_t kDescriptorLength = 32;
constexpr std::size_t kNameLength = 11;
constexpr char kEndOfFields = '\x0D';
constexpr std::size_t kMarkPosition = 29;

// Bits of byte 28.
constexpr std::uint8_t kHasIndex = 0x01;
constexpr std::uint8_t kIsContainer = 0x04;

// Bits of a field's flags, Visual FoxPro only.
constexpr std::uint8_t kSystemField = 0x01;
constexpr std::uint8_t kNullableField = 0x02;
constexpr std::uint8_t kBinaryField = 0x04;
constexpr std::uint8_t kAutoincrementField = 0x08;

struct Version {
  std::uint8_t mark;
  MemoKind memo;
  bool visual_foxpro;
};

// Left out on purpose: 02 (dBASE 2), 04 and 8C (dBASE 7, with another header), E5 (memos of a
// driver of their own).
constexpr std::array kVersions = {
    Version{0x03, MemoKind::None, false},   Version{0x05, MemoKind::None, false},
    Version{0x30, MemoKind::FoxPro, true},  Version{0x31, MemoKind::FoxPro, true},
    Version{0x32, MemoKind::FoxPro, true},  Version{0x43, MemoKind::None, false},
    Version{0x63, MemoKind::None, false},   Version{0x7B, MemoKind::Dbase4, false},
    Version{0x83, MemoKind::Dbase3, false}, Version{0x8B, MemoKind::Dbase4, false},
    Version{0x8E, MemoKind::Dbase4, false}, Version{0xCB, MemoKind::Dbase4, false},
    Version{0xF5, MemoKind::FoxPro, false}, Version{0xFB, MemoKind::None, false},
};

std::uint8_t ByteAt(std::string_view bytes, std::size_t position) {
  return static_cast<std::uint8_t>(bytes[position]);
}

// The size that a field of a fixed-size type must have; nothing for the other types.
std::optional<std::size_t> FixedSize(char type, bool visual_foxpro) {
  switch (type) {
    case 'D':
    case 'T':
    case 'Y':
      return 8;
    case 'L':
      return 1;
    case 'I':
      return 4;
    case 'B':
      if (visual_foxpro) return 8;
      return 10;
    default:
      return std::nullopt;
  }
}

bool IsKnownType(char type) {
  return std::string_view("CNFDLIBYTMGPWVQ0").find(type) != std::string_view::npos;
}

// Two columns of one name are seen in files of careless programs; the later ones get a number.
std::string UniqueName(const std::string& name, const std::vector<DbfField>& fields) {
  const auto taken = [&fields](const std::string& candidate) {
    return std::any_of(fields.begin(), fields.end(),
                       [&](const DbfField& field) { return SameName(field.name, candidate); });
  };
  std::string candidate = name.empty() ? "column" : name;
  for (int number = 2; taken(candidate); ++number) {
    candidate = name + "_" + std::to_string(number);
  }
  return candidate;
}

class LayoutReader {
 public:
  LayoutReader(std::string_view file_name, std::string_view header, const CodePage& code_page)
      : file_name_(file_name), header_(header), code_page_(code_page) {}

  DbfLayout Read(std::uint64_t file_size) {
    ReadProlog(file_size);
    std::size_t position = kPrologLength;
    for (; position < layout_.header_length && header_[position] != kEndOfFields;
         position += kDescriptorLength) {
      if (position + kDescriptorLength > layout_.header_length) Fail("the header is cut short");
      ReadField(header_.substr(position, kDescriptorLength));
    }
    if (layout_.fields.empty()) Fail("there are no fields");
    if (flag_bits_ > 8 * layout_.null_flags_size) Fail("the null flags are missing");
    return std::move(layout_);
  }

 private:
  [[noreturn]] void Fail(std::string_view reason) const { RaiseNotATable(file_name_, reason); }

  void ReadProlog(std::uint64_t file_size) {
    if (header_.size() < kPrologLength) Fail("the file is too short");
    const auto version =
        std::find_if(kVersions.begin(), kVersions.end(),
                     [this](const Version& known) { return known.mark == ByteAt(header_, 0); });
    if (version == kVersions.end()) Fail("this kind of file is not supported");
    layout_.memo = version->memo;
    layout_.visual_foxpro = version->visual_foxpro;
    layout_.record_count = LittleEndian<std::uint32_t>(header_, 4);
    layout_.header_length = LittleEndian<std::uint16_t>(header_, 8);
    layout_.record_length = LittleEndian<std::uint16_t>(header_, 10);
    layout_.has_index = (ByteAt(header_, 28) & kHasIndex) != 0;
    layout_.code_page_mark = ByteAt(header_, kMarkPosition);
    if (layout_.visual_foxpro && (ByteAt(header_, 28) & kIsContainer) != 0) {
      Fail("database containers are not supported");
    }
    if (layout_.header_length <= kPrologLength || layout_.header_length > header_.size()) {
      Fail("the header is cut short");
    }
    const std::uint64_t end =
        layout_.header_length + std::uint64_t{layout_.record_count} * layout_.record_length;
    if (layout_.record_length < 2 || end > file_size) Fail("the file is cut short");
  }

  void ReadField(std::string_view descriptor) {
    DbfField field;
    field.type = descriptor[kNameLength];
    field.offset = next_offset_;
    field.size = ByteAt(descriptor, 16);
    field.decimals = ByteAt(descriptor, 17);
    next_offset_ += field.size;
    if (!IsKnownType(field.type)) Fail("a field has an unknown type");
    const auto fixed_size = FixedSize(field.type, layout_.visual_foxpro);
    // The number of a memo's block is four bytes, or ten digits.
    const bool bad_memo = std::string_view("MGPW").find(field.type) != std::string_view::npos &&
                          field.size != 4 && field.size != 10;
    if (field.size == 0 || (fixed_size && field.size != *fixed_size) || bad_memo ||
        next_offset_ > layout_.record_length) {
      Fail("a field has a wrong size");
    }
    const std::uint8_t flags = layout_.visual_foxpro ? ByteAt(descriptor, 18) : std::uint8_t{0};
    if (field.type == '0' || (flags & kSystemField) != 0) {
      ReadSystemField(field);
      return;
    }
    field.binary = (flags & kBinaryField) != 0;
    field.autoincrement = (flags & kAutoincrementField) != 0;
    // The bits are given out in the order of the fields; a field that can be both short and null
    // has its length bit first.
    if (field.type == 'V' || field.type == 'Q') field.length_bit = flag_bits_++;
    if ((flags & kNullableField) != 0) field.null_bit = flag_bits_++;
    field.name = NameOf(descriptor);
    layout_.fields.push_back(std::move(field));
  }

  void ReadSystemField(const DbfField& field) {
    if (field.type != '0') return;
    layout_.null_flags_offset = field.offset;
    layout_.null_flags_size = field.size;
  }

  std::string NameOf(std::string_view descriptor) const {
    std::string_view name = descriptor.substr(0, kNameLength);
    name = name.substr(0, name.find('\0'));
    name = name.substr(0, name.find_last_not_of(' ') + 1);
    return UniqueName(ToUtf8(code_page_.Decode(name)), layout_.fields);
  }

  std::string_view file_name_;
  std::string_view header_;
  const CodePage& code_page_;
  DbfLayout layout_;
  std::size_t next_offset_ = 1;  // behind the deletion mark
  std::size_t flag_bits_ = 0;
};

}  // namespace

std::uint8_t CodePageMark(std::string_view header) noexcept {
  return header.size() > kMarkPosition ? ByteAt(header, kMarkPosition) : std::uint8_t{0};
}

DbfLayout ReadDbfLayout(std::string_view file_name, std::string_view header,
                        std::uint64_t file_size, const CodePage& code_page) {
  return LayoutReader(file_name, header, code_page).Read(file_size);
}

}  // namespace vandpublic::ado
