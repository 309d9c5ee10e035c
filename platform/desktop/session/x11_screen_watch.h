// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "platform/desktop/x11/event_filter.h"

namespace platform::desktop {

/// What happens to an X11 screen as a whole: its saver, and lockers that cover it.
class X11ScreenWatch : private x11::EventFilter {
 public:
  explicit X11ScreenWatch(xcb_connection_t* connection);

  /// The screen saver has ended: the screen was blank, and is not any more.
  std::function<void()> onDisplayOn;

  /// Runs `then` at once, or when the locker that now has the keyboard and covers the screen has gone.
  void whenUncovered(std::function<void()> then);

 private:
  bool take(xcb_generic_event_t& event) override;
  void runWaiting();
  /// The windows that cover a screen while another program has the keyboard. Has the server tell of their ends.
  std::vector<xcb_window_t> watchLockers();
  bool keyboardIsTaken();
  bool isOfOtherProgram(xcb_window_t window);
  bool coversAScreen(xcb_window_t window);

  xcb_connection_t* connection_;
  xcb_window_t root_;
  std::optional<unsigned> saverEvent_;
  bool saverOn_ = false;
  std::vector<xcb_window_t> covers_;  ///< whose end is being waited for
  std::vector<std::function<void()>> waiting_;
};

}  // namespace platform::desktop
