// The object itself: creation, Init and the five settings that steer the error log.
#include "frame/clsPublic.h"

#include "frame/class_state.h"

namespace vandpublic {
namespace {

constexpr std::u16string_view kLogFolder = u"\\LOG";
constexpr std::u16string_view kDefaultLogFileName = u"ERROR.log";

// A text is stored as the empty string when it is absent: properties never read back as absent.
String Stored(const String& value) { return value.IsAbsent() ? String() : value; }

}  // namespace

clsPublic::clsPublic() : clsPublic(SystemPlatform()) {}

clsPublic::clsPublic(std::shared_ptr<const Platform> platform) : state_(std::make_unique<State>()) {
  state_->log_file_path = platform->component_folder + std::u16string(kLogFolder);
  state_->log_file_name = kDefaultLogFileName;
  state_->platform = std::move(platform);
}

clsPublic::~clsPublic() = default;
clsPublic::clsPublic(clsPublic&&) noexcept = default;
clsPublic& clsPublic::operator=(clsPublic&&) noexcept = default;

const Platform& clsPublic::platform() const noexcept { return *state_->platform; }

void clsPublic::Init(const String& istr_AppPath, enumDebugMode iint_DebugMode) {
  AppPath(istr_AppPath);
  // A trailing "\" of the folder is kept, so that two stand before LOG: on purpose.
  LogFilePath(std::u16string(istr_AppPath.view()) + std::u16string(kLogFolder));
  DebugMode(iint_DebugMode);
}

String clsPublic::AppPath() const { return state_->app_path; }
void clsPublic::AppPath(const String& value) { state_->app_path = Stored(value); }

enumDebugMode clsPublic::DebugMode() const { return state_->debug_mode; }
void clsPublic::DebugMode(enumDebugMode value) { state_->debug_mode = value; }

String clsPublic::LogFilePath() const { return state_->log_file_path; }
void clsPublic::LogFilePath(const String& value) {
  state_->log_file_path = TrimSpaces(value.view());
}

String clsPublic::LogFileName() const { return state_->log_file_name; }
void clsPublic::LogFileName(const String& value) {
  state_->log_file_name = TrimSpaces(value.view());
}

String clsPublic::LogFileFullName() const {
  const String folder = LogFilePath();
  std::u16string name(folder.view());
  if (!name.ends_with(u'\\')) name += u'\\';  // only "\" separates, "/" does not
  name += LogFileName().view();
  return name;
}

}  // namespace vandpublic
