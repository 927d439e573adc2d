// A code page that converts by table lookup.
#ifndef VANDPUBLIC_PLATFORM_POSIX_TABLE_CODE_PAGE_H
#define VANDPUBLIC_PLATFORM_POSIX_TABLE_CODE_PAGE_H

#include <memory>

#include "platform/code_page.h"
#include "platform/posix/code_page_tables.h"

namespace vandpublic {

// The page is immutable and may be used by any number of threads. Its conversions allocate their
// result and nothing else, and raise nothing but std::bad_alloc and std::length_error.
std::shared_ptr<const CodePage> MakeTableCodePage(int number, CodePageTables tables);

}  // namespace vandpublic

#endif
