// The member called for one row after the other, on an object of its own.
#ifndef VANDPUBLIC_CLI_BATCH_ROW_CALL_H
#define VANDPUBLIC_CLI_BATCH_ROW_CALL_H

#include <array>
#include <memory>
#include <string>
#include <string_view>

#include "cli/batch/batch_plan.h"
#include "cli/json_text.h"
#include "frame/clsPublic.h"

namespace vandpublic {

class RowCall {
 public:
  // The object is one that is used for nothing else.
  RowCall(const BatchPlan& plan, std::unique_ptr<clsPublic> object);

  // All arguments as the plan has them; those of the columns are still to be set.
  void Begin();
  // The argument for inputs[i] of the plan. Raises ProtocolError for what does not fit it.
  void SetText(std::size_t i, std::string_view text);
  void SetJson(std::size_t i, const Json& value);
  // Calls the member; an error as `vandpublic call` prints it, "" when it succeeds.
  std::string Run();

  // The result and outputs[i] of the plan after a call: as `vandpublic call` and as the pipe write
  // them.
  std::string ResultText() const;
  std::string OutputText(std::size_t i) const;
  Json ResultJson() const;
  Json OutputJson(std::size_t i) const;

 private:
  template <class Convert>
  void Set(std::size_t i, Convert convert);
  InterfaceType TypeOf(const ColumnUse& use) const;

  const BatchPlan& plan_;
  std::unique_ptr<clsPublic> object_;
  std::array<Variant, kMostParameters> arguments_;
  std::array<Variant*, kMostParameters> pointers_{};
  Variant result_;
};

}  // namespace vandpublic

#endif
