// The code pages that tables are written in.
#ifndef VANDPUBLIC_PLATFORM_POSIX_ADO_DBF_DBF_CODE_PAGE_H
#define VANDPUBLIC_PLATFORM_POSIX_ADO_DBF_DBF_CODE_PAGE_H

#include <cstdint>
#include <memory>

#include "platform/code_page.h"

namespace vandpublic::ado {

// The page that the mark in a table's header stands for: a Windows page, or one of the DOS pages
// 437, 737, 850, 852, 857, 860, 861, 863, 865 and 866. For 0, and for marks that nothing is known
// of, `unmarked`, the page of the component. Safe in any thread.
std::shared_ptr<const CodePage> CodePageOfMark(std::uint8_t mark,
                                               const std::shared_ptr<const CodePage>& unmarked);

}  // namespace vandpublic::ado

#endif
