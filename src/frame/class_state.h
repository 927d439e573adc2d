// What one clsPublic object holds.
#ifndef VANDPUBLIC_FRAME_CLASS_STATE_H
#define VANDPUBLIC_FRAME_CLASS_STATE_H

#include <array>
#include <memory>

#include "frame/clsPublic.h"
#include "platform/platform.h"

namespace vandpublic {

inline constexpr std::size_t kTimerSlotCount = 17;

struct clsPublic::State {
  std::shared_ptr<const Platform> platform;
  String app_path;
  enumDebugMode debug_mode = DEBUG_MODE_LOGFILE;
  String log_file_path;
  String log_file_name;
  // Start times as "YYYY-MM-DD HH:NN:SS"; empty where no stopwatch was started.
  std::array<String, kTimerSlotCount> timers;
};

}  // namespace vandpublic

#endif
