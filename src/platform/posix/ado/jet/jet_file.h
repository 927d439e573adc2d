// The pages of a Jet database, and the rows that pages hold.
#ifndef VANDPUBLIC_PLATFORM_POSIX_ADO_JET_JET_FILE_H
#define VANDPUBLIC_PLATFORM_POSIX_ADO_JET_JET_FILE_H

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/code_page.h"
#include "platform/posix/ado/jet/jet_header.h"
#include "platform/posix/descriptor.h"

namespace vandpublic::ado {

// One page, decoded. Held while a view into it is used.
using JetPage = std::shared_ptr<const std::string>;

// A row's place: its page in the upper 24 bits, its number on the page in the lower 8.
struct RowPointer {
  std::uint32_t page = 0;
  std::uint32_t row = 0;

  static RowPointer From(std::uint32_t packed) { return {packed >> 8, packed & 0xFF}; }
};

// The bytes of a row, and what its place says of it.
struct StoredRow {
  std::string_view bytes;
  bool hidden = false;  // deleted, or moved to another page, where it is read
};

// A database file, open for reading. Every page and row is inside the file, or an error.
class JetFile {
 public:
  // `ansi` is the component's code page; a Jet 3 database that says 1252, what it says by default,
  // is taken to be written in it.
  JetFile(const std::string& native_path, const std::shared_ptr<const CodePage>& ansi);

  const JetHeader& header() const noexcept { return header_; }
  // Of Jet 3's texts.
  const CodePage& code_page() const noexcept { return *code_page_; }
  std::uint32_t PageCount() const noexcept { return page_count_; }
  std::uint64_t Size() const noexcept { return size_; }

  JetPage Page(std::uint32_t number) const;

  // The rows of a data page; 0 for a page of another kind.
  std::uint32_t RowCount(const std::string& page) const;
  // Nothing for a row that the page does not have.
  std::optional<StoredRow> Row(const std::string& page, std::uint32_t number) const;

 private:
  struct CachedPage {
    std::uint32_t number = 0;
    JetPage page;
  };

  std::string Read(std::uint64_t position, std::size_t size) const;

  Descriptor descriptor_;
  std::uint64_t size_ = 0;
  JetHeader header_;
  std::uint32_t page_count_ = 0;
  std::shared_ptr<const CodePage> code_page_;
  mutable std::array<CachedPage, 16> cache_;
};

}  // namespace vandpublic::ado

#endif
