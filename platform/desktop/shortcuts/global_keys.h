// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>

#include "platform/desktop/one_in_process.h"

namespace platform::desktop {

class RequestQueue;

/// Key combinations that reach the program from anywhere on this kind of display.
class GlobalKeys : public OneInProcess<GlobalKeys> {
 public:
  /// `requests` outlives this.
  explicit GlobalKeys(RequestQueue& requests) : requests_(requests) {}
  virtual ~GlobalKeys() = default;

  /// Calls `pressed` on each press, in its turn among the requests; see RegisterEventHotKey for the codes and the
  /// modifiers. False if the combination cannot be had.
  bool listen(std::uint32_t keyCode, std::uint32_t modifiers, std::function<void()> pressed);

 private:
  /// As above, at once.
  virtual bool grab(std::uint32_t keyCode, std::uint32_t modifiers, std::function<void()> pressed) = 0;

  RequestQueue& requests_;
};

}  // namespace platform::desktop
