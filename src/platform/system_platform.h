// What an adapter's table of services owes to the parts that are the same on every system, and
// the way a host setting changes that table.
#ifndef VANDPUBLIC_PLATFORM_SYSTEM_PLATFORM_H
#define VANDPUBLIC_PLATFORM_SYSTEM_PLATFORM_H

#include <functional>
#include <memory>

#include "platform/platform.h"

namespace vandpublic {

// Every service of this system, as SystemPlatform hands them out before anything was set. Each
// system's adapters define it.
std::shared_ptr<Platform> MakeSystemPlatform();

// The boxes of this system's desktop, for a host that takes its handler back.
std::shared_ptr<MessageBoxes> MakeSystemMessageBoxes();

// Gives `change` a copy of the current table, which then is the one that objects get from now on.
// Objects keep the table they were created with.
void ChangeSystemPlatform(const std::function<void(Platform&)>& change);

}  // namespace vandpublic

#endif
