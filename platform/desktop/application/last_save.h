// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

namespace platform::desktop {

/// Saves once before the process ends, whatever ends it. When the display connection is lost, Qt ends the process
/// itself: on X11 by exit(), which runs exit handlers; on Wayland by _exit(), after a last qWarning from any thread.
class LastSave {
 public:
  /// One at a time. `save` runs on the main thread.
  explicit LastSave(std::function<void()> save);
  LastSave(const LastSave&) = delete;
  LastSave& operator=(const LastSave&) = delete;
  ~LastSave();

  /// Saves, unless that has been done already; then it returns false.
  bool run();
  /// From now on saves also when the display connection is lost. To be called once Qt has a display.
  static void runAtLossOfDisplay();

 private:
  std::function<void()> save_;
  bool done_ = false;
};

}  // namespace platform::desktop
