// A clsPublic object as a session calls it: in this process, or wherever a test has it.
#ifndef VANDPUBLIC_CLI_COMPONENT_H
#define VANDPUBLIC_CLI_COMPONENT_H

#include <cstddef>
#include <functional>
#include <memory>
#include <span>
#include <utility>

#include "frame/clsPublic.h"
#include "invoke/late_call.h"
#include "platform/platform.h"

namespace vandpublic {

class Component {
 public:
  virtual ~Component() = default;

  // As InvokeSlot in invoke/late_call.h, what it raises included.
  virtual Variant Invoke(std::size_t slot, std::span<Variant* const> arguments) = 0;
};

// Makes a new one for a client.
using ComponentMaker = std::function<std::unique_ptr<Component>()>;

// The component itself.
class LocalComponent final : public Component {
 public:
  explicit LocalComponent(std::shared_ptr<const Platform> platform)
      : object_(std::move(platform)) {}

  Variant Invoke(std::size_t slot, std::span<Variant* const> arguments) override {
    return InvokeSlot(object_, slot, arguments);
  }

  clsPublic& object() noexcept { return object_; }

 private:
  clsPublic object_;
};

}  // namespace vandpublic

#endif
