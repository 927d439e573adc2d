// The words of a command line behind a member's name, matched with its parameters.
#ifndef VANDPUBLIC_CLI_ARGUMENT_WORDS_H
#define VANDPUBLIC_CLI_ARGUMENT_WORDS_H

#include <cstddef>
#include <string>

#include "cli/json_text.h"
#include "cli/text_values.h"
#include "members/member_table.h"

namespace vandpublic {

// The slot of a method or of a property to read; writing one would be lost when the tool ends.
// Raises UsageError.
std::size_t FindCallableSlot(const std::string& name);

class ArgumentWords {
 public:
  explicit ArgumentWords(const MemberInfo& member) : member_(member) {}

  // "name=value" is for the parameter of that name, any other word for the first one that has no
  // value yet. "@FILE" is read. Raises UsageError.
  void Add(const std::string& word);

  bool HaveReadStandardInput() const noexcept { return reader_.HasReadStandardInput(); }

  // The arguments by name, as a request of the pipe has them.
  Json Take() { return std::move(arguments_); }

 private:
  std::size_t NextFree() const;

  const MemberInfo& member_;
  WordReader reader_;
  Json arguments_ = Json::object();
};

}  // namespace vandpublic

#endif
