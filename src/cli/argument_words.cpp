// Words to named arguments.
#include "cli/argument_words.h"

#include <optional>
#include <vector>

#include "cli/command_line.h"
#include "cli/suggestion.h"
#include "invoke/late_call.h"

namespace vandpublic {

std::size_t FindCallableSlot(const std::string& name) {
  for (const SlotKind kind : {SlotKind::Method, SlotKind::PropertyGet}) {
    if (const auto slot = FindSlot(name, kind)) return *slot;
  }
  std::vector<std::string_view> names;
  for (const MemberInfo& member : MemberTable())
    names.push_back(member.name);
  throw UsageError("unknown member '" + Quoted(name) + "'" + DidYouMean(name, names));
}

void ArgumentWords::Add(const std::string& word) {
  const std::size_t equals = word.find('=');
  const auto named = equals == word.npos
                         ? std::optional<std::size_t>()
                         : FindParameter(member_, std::string_view(word).substr(0, equals));
  const std::size_t index = named ? *named : NextFree();
  if (index >= member_.parameters.size()) {
    throw UsageError("too many arguments: '" + std::string(member_.name) + "' takes " +
                     std::to_string(member_.parameters.size()));
  }
  const Parameter& parameter = member_.parameters[index];
  const std::string name(parameter.name);
  if (arguments_.contains(name)) throw UsageError("argument '" + name + "' is given twice");
  try {
    const std::string text = reader_.Read(named ? word.substr(equals + 1) : word);
    arguments_[name] = JsonFromWord(text, parameter.type);
  } catch (const UsageError& misfit) {
    throw UsageError("argument '" + name + "': " + misfit.what());
  }
}

// The first parameter that has no value yet.
std::size_t ArgumentWords::NextFree() const {
  std::size_t index = 0;
  while (index < member_.parameters.size() && arguments_.contains(member_.parameters[index].name))
    ++index;
  return index;
}

}  // namespace vandpublic
