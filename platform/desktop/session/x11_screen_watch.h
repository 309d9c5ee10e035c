// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "platform/desktop/x11/event_filter.h"

namespace platform::desktop {

/// The X11 screen saver, and screen lockers that cover the screen.
class X11ScreenWatch : private x11::EventFilter {
 public:
  explicit X11ScreenWatch(xcb_connection_t* connection);

  std::function<void()> onScreenSaverEnded;

  /// Calls `then` at once, or when the locker that covers the screen and has grabbed the keyboard is gone.
  void whenUnlocked(std::function<void()> then);

 private:
  bool take(xcb_generic_event_t& event) override;
  void runWaiting();
  /// The windows that cover a screen while another program has grabbed the keyboard. Selects the events of their ends.
  std::vector<xcb_window_t> watchLockers();
  bool keyboardIsTaken();
  bool isOfOtherProgram(xcb_window_t window);
  bool coversAScreen(xcb_window_t window);

  xcb_connection_t* connection_;
  xcb_window_t root_;
  std::optional<unsigned> saverEvent_;
  bool saverOn_ = false;
  std::vector<xcb_window_t> lockers_;  ///< whose end is awaited
  std::vector<std::function<void()>> waiting_;
};

}  // namespace platform::desktop
