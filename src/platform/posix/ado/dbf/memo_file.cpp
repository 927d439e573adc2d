// The three formats of memo files.
#include "platform/posix/ado/dbf/memo_file.h"

#include <algorithm>
#include <array>

#include "platform/posix/ado/dbf/dbf_errors.h"
#include "platform/posix/ado/sql/byte_order.h"

namespace vandpublic::ado {
namespace {

constexpr std::uint32_t kDefaultBlockSize = 512;
constexpr char kEndMark = '\x1A';
constexpr std::size_t kBlockHeader = 8;
constexpr std::size_t kFoxProHeader = 512;
constexpr std::string_view kDbase4Mark("\xFF\xFF\x08\x00", 4);
constexpr std::size_t kReadAtOnce = 4096;

// Releases the lock on the header before the file is closed.
class HeaderLock {
 public:
  explicit HeaderLock(const RegularFile& file) : file_(file) { file_.Lock(0, kFoxProHeader); }
  HeaderLock(const HeaderLock&) = delete;
  HeaderLock& operator=(const HeaderLock&) = delete;
  ~HeaderLock() { file_.Unlock(0, kFoxProHeader); }

 private:
  const RegularFile& file_;
};

}  // namespace

MemoFile::MemoFile(const std::string& path, MemoKind kind, FileAccess access)
    : file_(path, access), kind_(kind), block_size_(BlockSize()) {}

void MemoFile::Fail() const {
  RaiseDbf(SourceError::Failed,
           "Memo file " + std::string(file_.Name()) + " is missing or is invalid.");
}

std::uint32_t MemoFile::BlockSize() const {
  const std::string header = file_.Read(0, kFoxProHeader);
  if (kind_ == MemoKind::FoxPro) {
    if (header.size() < kBlockHeader) Fail();
    const auto size = BigEndian<std::uint16_t>(header, 6);
    if (size == 0) Fail();
    return size;
  }
  if (kind_ == MemoKind::Dbase4 && header.size() >= 22) {
    const auto size = LittleEndian<std::uint16_t>(header, 20);
    if (size != 0) return size;
  }
  return kDefaultBlockSize;
}

std::string MemoFile::Read(std::uint32_t block) const {
  const std::uint64_t position = std::uint64_t{block} * block_size_;
  if (position >= file_.Size()) Fail();
  if (kind_ == MemoKind::Dbase3) return ReadToEndMark(position);

  const std::string header = file_.Read(position, kBlockHeader);
  if (header.size() < kBlockHeader) Fail();
  if (kind_ == MemoKind::FoxPro) {
    return ReadCounted(position + kBlockHeader, BigEndian<std::uint32_t>(header, 4));
  }
  // The length counts the block's header too.
  const auto length = LittleEndian<std::uint32_t>(header, 4);
  if (!header.starts_with(kDbase4Mark) || length < kBlockHeader) Fail();
  return ReadCounted(position + kBlockHeader, length - kBlockHeader);
}

std::string MemoFile::ReadToEndMark(std::uint64_t position) const {
  std::string content;
  for (;;) {
    const std::string piece = file_.Read(position + content.size(), kReadAtOnce);
    const std::size_t end = piece.find(kEndMark);
    content.append(piece, 0, end);
    if (end != std::string::npos || piece.size() < kReadAtOnce) return content;
  }
}

// The length is checked against the file before memory is asked for.
std::string MemoFile::ReadCounted(std::uint64_t position, std::uint64_t length) const {
  const std::uint64_t size = file_.Size();
  if (position > size || length > size - position) Fail();
  return file_.Read(position, static_cast<std::size_t>(length));
}

std::uint32_t MemoFile::Append(std::string_view content, Content kind) const {
  if (content.size() > UINT32_MAX) {
    RaiseDbf(SourceError::ValueTooLarge, "String is too long to fit.");
  }
  const HeaderLock lock(file_);
  const std::string header = file_.Read(0, kBlockHeader);
  if (header.size() < kBlockHeader) Fail();
  // Behind the blocks that are counted and those that are there: a program that died between its
  // two writes has left more blocks than it counted.
  const auto rounded_up = [this](std::uint64_t size) {
    return (size + block_size_ - 1) / block_size_;
  };
  const std::uint64_t block = std::max({std::uint64_t{BigEndian<std::uint32_t>(header, 0)},
                                        rounded_up(file_.Size()), rounded_up(kFoxProHeader)});
  std::string bytes(kBlockHeader, '\0');
  PutBigEndian(static_cast<std::uint32_t>(kind), bytes.data());
  PutBigEndian(static_cast<std::uint32_t>(content.size()), bytes.data() + 4);
  bytes.append(content);
  const std::uint64_t blocks = rounded_up(bytes.size());
  bytes.resize(static_cast<std::size_t>(blocks * block_size_), '\0');
  if (block + blocks > UINT32_MAX) Fail();

  file_.Write(block * block_size_, bytes);
  std::array<char, 4> next_free{};
  PutBigEndian(static_cast<std::uint32_t>(block + blocks), next_free.data());
  file_.Write(0, {next_free.data(), next_free.size()});
  return static_cast<std::uint32_t>(block);
}

}  // namespace vandpublic::ado
