// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>

#include "platform/desktop/base/singleton.h"

namespace platform::desktop {

class RequestQueue;

/// Hot keys: key combinations that reach the program whichever window has the keyboard.
class GlobalShortcuts : public Singleton<GlobalShortcuts> {
 public:
  /// `requests` outlives this.
  explicit GlobalShortcuts(RequestQueue& requests) : requests_(requests) {}
  virtual ~GlobalShortcuts() = default;

  /// Puts `pressed` into the request queue on each press. Codes and modifiers are those of RegisterEventHotKey. False
  /// if the combination cannot be had.
  bool add(std::uint32_t keyCode, std::uint32_t modifiers, std::function<void()> pressed);

 private:
  virtual bool listen(std::uint32_t keyCode, std::uint32_t modifiers, std::function<void()> pressed) = 0;

  RequestQueue& requests_;
};

}  // namespace platform::desktop
