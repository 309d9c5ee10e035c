// SPDX-License-Identifier: MIT
#include "platform/application.h"

#include <algorithm>
#include <array>

#include "platform/window.h"

namespace platform {

bool NSApplication::sendAction(Selector action, const std::optional<std::weak_ptr<NSObject>>& target,
                               NSObject* sender) {
  if (target) {
    const auto alive = target->lock();
    return alive && alive->perform(action, sender);
  }
  const auto window = keyWindow();
  const std::array<std::shared_ptr<NSObject>, 4> responders{window ? window->firstResponder() : nullptr, window,
                                                            shared_from_this(),
                                                            std::dynamic_pointer_cast<NSObject>(delegate())};
  return std::any_of(responders.begin(), responders.end(),
                     [&](const auto& responder) { return responder && responder->perform(action, sender); });
}

bool NSApplication::perform(Selector action, NSObject* sender) {
  if (action != Selector{"terminate"}) return false;
  terminate(sender);
  return true;
}

}  // namespace platform
