// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <memory>

namespace platform::desktop {

/// Key combinations that reach the program from anywhere on this kind of display.
class GlobalKeys {
 public:
  static std::unique_ptr<GlobalKeys> forThisDisplay();
  virtual ~GlobalKeys() = default;

  /// Calls `pressed` on each press; see RegisterEventHotKey for the codes and the modifiers. False if the combination
  /// cannot be had.
  virtual bool listen(std::uint32_t keyCode, std::uint32_t modifiers, std::function<void()> pressed) = 0;
};

}  // namespace platform::desktop
