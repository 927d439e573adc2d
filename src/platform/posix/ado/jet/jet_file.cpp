// Reading pages and finding rows on them.
#include "platform/posix/ado/jet/jet_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <system_error>

#include "platform/posix/ado/jet/jet_errors.h"
#include "platform/posix/ado/sql/byte_order.h"
#include "platform/posix/code_pages.h"

namespace vandpublic::ado {
namespace {

constexpr char kDataPage = 1;

// In a row's entry: the flag of a row that is read elsewhere or not at all, and its position.
constexpr std::uint16_t kHiddenFlag = 0x4000;
constexpr std::uint16_t kPositionMask = 0x1FFF;

// The largest database that the format allows is far below.
constexpr std::uint64_t kMaxSize = std::uint64_t{1} << 34;

constexpr int kDefaultCodePage = 1252;

[[noreturn]] void RaiseCannotOpen(const std::string& path, int error) {
  const bool refused = error == EACCES || error == EPERM;
  RaiseJet(refused ? SourceError::PermissionDenied : SourceError::Failed,
           "Could not open file '" + path + "': " + std::generic_category().message(error) + ".");
}

Descriptor OpenForReading(const std::string& path) {
  Descriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK));
  if (file.get() < 0) RaiseCannotOpen(path, errno);
  return file;
}

std::uint64_t RegularSize(const Descriptor& file, const std::string& path) {
  struct stat status {};
  if (fstat(file.get(), &status) != 0) RaiseCannotOpen(path, errno);
  if (!S_ISREG(status.st_mode)) {
    RaiseJet(SourceError::Failed, "Unrecognized database format '" + path + "'.");
  }
  return std::min(static_cast<std::uint64_t>(status.st_size), kMaxSize);
}

std::shared_ptr<const CodePage> CodePageOf(const JetHeader& header,
                                           const std::shared_ptr<const CodePage>& ansi) {
  if (header.code_page == kDefaultCodePage) return ansi;
  const auto page = FindCodePage(header.code_page);
  return page != nullptr ? page : ansi;
}

}  // namespace

JetFile::JetFile(const std::string& native_path, const std::shared_ptr<const CodePage>& ansi)
    : descriptor_(OpenForReading(native_path)),
      size_(RegularSize(descriptor_, native_path)),
      header_(ReadJetHeader(Read(0, kJetHeaderSize), native_path)),
      page_count_(static_cast<std::uint32_t>(size_ / header_.page_size)),
      code_page_(CodePageOf(header_, ansi)) {}

std::string JetFile::Read(std::uint64_t position, std::size_t size) const {
  std::string bytes(size, '\0');
  std::size_t count = 0;
  while (count < size) {
    const ssize_t got = pread(descriptor_.get(), bytes.data() + count, size - count,
                              static_cast<off_t>(position + count));
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) RaiseCannotOpen("database", errno);
    if (got == 0) break;
    count += static_cast<std::size_t>(got);
  }
  bytes.resize(count);
  return bytes;
}

JetPage JetFile::Page(std::uint32_t number) const {
  CachedPage& slot = cache_[number % cache_.size()];
  if (slot.page != nullptr && slot.number == number) return slot.page;
  if (number == 0 || number >= page_count_) RaiseDamaged("the number of a page");
  std::string bytes = Read(std::uint64_t{number} * header_.page_size, header_.page_size);
  if (bytes.size() != header_.page_size) RaiseDamaged("the length of the file");
  if (header_.page_key != 0) {
    std::array<char, 4> key{};
    PutLittleEndian(header_.page_key ^ number, key.data());
    ApplyRc4({key.data(), key.size()}, bytes.data(), bytes.size());
  }
  slot = {number, std::make_shared<const std::string>(std::move(bytes))};
  return slot.page;
}

std::uint32_t JetFile::RowCount(const std::string& page) const {
  if (page[0] != kDataPage) return 0;
  const std::size_t position = header_.is_jet4 ? 12 : 8;
  const auto count = LittleEndian<std::uint16_t>(page, position);
  if (position + 2 + std::size_t{count} * 2 > page.size()) RaiseDamaged("the rows of a page");
  return count;
}

std::optional<StoredRow> JetFile::Row(const std::string& page, std::uint32_t number) const {
  if (number >= RowCount(page)) return std::nullopt;
  const std::size_t entries = header_.is_jet4 ? 14 : 10;
  const auto entry = LittleEndian<std::uint16_t>(page, entries + std::size_t{number} * 2);
  // Rows are stored from the end of the page towards its beginning.
  const std::size_t end =
      number == 0 ? page.size()
                  : LittleEndian<std::uint16_t>(page, entries + std::size_t{number} * 2 - 2) &
                        kPositionMask;
  const std::size_t start = entry & kPositionMask;
  if (start > end || end > page.size()) RaiseDamaged("the place of a row");
  return StoredRow{std::string_view(page).substr(start, end - start), (entry & kHiddenFlag) != 0};
}

}  // namespace vandpublic::ado
