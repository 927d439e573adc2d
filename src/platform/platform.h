// The platform's services as the members see them: one table of ports. Adapters fill it; tests
// fill it with stand-ins.
#ifndef VANDPUBLIC_PLATFORM_PLATFORM_H
#define VANDPUBLIC_PLATFORM_PLATFORM_H

#include <memory>
#include <string>

#include "platform/clock.h"
#include "platform/code_page.h"
#include "platform/database.h"
#include "platform/files.h"
#include "platform/message_box.h"
#include "platform/random.h"
#include "platform/regexp.h"
#include "platform/settings_stores.h"

namespace vandpublic {

struct Platform {
  std::shared_ptr<Clock> clock;
  std::shared_ptr<const CodePage> code_page;
  std::shared_ptr<Files> files;
  std::shared_ptr<DatabaseObjects> database;
  std::shared_ptr<MessageBoxes> message_boxes;
  std::shared_ptr<RandomSource> random;
  std::shared_ptr<RegExpEngine> regexp;
  std::shared_ptr<IniFiles> ini_files;
  std::shared_ptr<Registry> registry;
  std::shared_ptr<SystemNames> system_names;
  // The folder that holds the component file, without a final separator but for the root.
  std::u16string component_folder;
};

// The services of this system, made on first use. An object keeps the table it was created with,
// so a later change of a host setting shows in later objects only.
std::shared_ptr<const Platform> SystemPlatform();

}  // namespace vandpublic

#endif
