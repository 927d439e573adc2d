// The regular-expression engine of the Linux build.
#ifndef VANDPUBLIC_PLATFORM_POSIX_REGEXP_PCRE2_H
#define VANDPUBLIC_PLATFORM_POSIX_REGEXP_PCRE2_H

#include <memory>

#include "platform/regexp.h"

namespace vandpublic {

// An engine for the scripting dialect on PCRE2's 16-bit library. Any number of threads may use it
// at the same time. It remembers the last few patterns in compiled form; nothing but the time a
// call takes depends on that.
//
// A match that takes too many steps, too much memory or too long (a second of processor time, and
// one more for each million units of source) raises 28, "Out of stack space"; a result more than
// 2^27 units longer than its source raises 7. No call uses more than 200 KiB of stack, whatever
// its arguments.
std::unique_ptr<RegExpEngine> MakeRegExpEngine();

}  // namespace vandpublic

#endif
