// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

namespace platform::desktop {

/// What the program does before the process ends, once, whatever ends it. Where the display is lost Qt ends the process
/// itself: on X11 so that exit handlers run, on Wayland at once, after a last warning from any of its threads.
class LastSave {
 public:
  /// One at a time. `save` runs on the main thread.
  explicit LastSave(std::function<void()> save);
  LastSave(const LastSave&) = delete;
  LastSave& operator=(const LastSave&) = delete;
  ~LastSave();

  /// Saves now, unless it has done so before. False if it had.
  bool run();
  /// Saves too when the display is lost, from now on. To be called once Qt has its display.
  static void runAtLossOfDisplay();

 private:
  std::function<void()> save_;
  bool done_ = false;
};

}  // namespace platform::desktop
