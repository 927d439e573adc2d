// The system's ANSI code pages on Windows.
#ifndef VANDPUBLIC_PLATFORM_WINDOWS_ANSI_CODE_PAGE_H
#define VANDPUBLIC_PLATFORM_WINDOWS_ANSI_CODE_PAGE_H

#include <memory>

#include "platform/code_page.h"

namespace vandpublic {

// The page that this system converts with by default (CP_ACP). Where that is 65001, UTF-8, a
// character takes up to four bytes: members that count or cut by bytes then count those, and
// malformed bytes decode to U+FFFD; an unpaired surrogate is "?".
std::shared_ptr<const CodePage> SystemCodePage();

}  // namespace vandpublic

#endif
