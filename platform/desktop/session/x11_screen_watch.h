// SPDX-License-Identifier: MIT
#pragma once

#include <xcb/xcb.h>

#include <QAbstractNativeEventFilter>
#include <functional>
#include <optional>
#include <vector>

namespace platform::desktop {

/// What happens to an X11 screen as a whole: its saver, and lockers that cover it.
class X11ScreenWatch : public QAbstractNativeEventFilter {
 public:
  explicit X11ScreenWatch(xcb_connection_t* connection);
  X11ScreenWatch(const X11ScreenWatch&) = delete;
  X11ScreenWatch& operator=(const X11ScreenWatch&) = delete;
  ~X11ScreenWatch() override;

  /// The screen saver has ended: the screen was blank, and is not any more.
  std::function<void()> onDisplayOn;

  /// Runs `then` at once, or when the locker that now has the keyboard and covers the screen has gone.
  void whenUncovered(std::function<void()> then);

  bool nativeEventFilter(const QByteArray& type, void* message, qintptr* result) override;

 private:
  void runWaiting();
  /// The windows that cover a screen while another program has the keyboard. Their ends are told from now on.
  std::vector<xcb_window_t> lockers();
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
