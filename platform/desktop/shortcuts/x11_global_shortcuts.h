// SPDX-License-Identifier: MIT
#pragma once

#include <QTimer>
#include <optional>
#include <vector>

#include "platform/desktop/shortcuts/global_shortcuts.h"
#include "platform/desktop/shortcuts/x11_modifiers.h"
#include "platform/desktop/x11/event_filter.h"

namespace platform::desktop {

/// Tells presses of one key from its auto-repeat: presses without a release between them, or a release and a press with
/// the same time. Times are the X server's.
class KeyRepetition {
 public:
  bool isRepeated(xcb_timestamp_t time);
  void release(xcb_timestamp_t time);

 private:
  bool held_ = false;
  xcb_timestamp_t firstPressedAt_ = 0;
  xcb_timestamp_t pressedAt_ = 0;
  xcb_timestamp_t releasedAt_ = 0;
};

/// Passive grabs of physical keys on X11, independent of layout, Caps Lock and Num Lock. When Alt or Num Lock moves to
/// another modifier bit, all are grabbed again, and what fails then is tried at the next change of the keyboard. A
/// combination that `add` has refused is not tried again.
class X11GlobalShortcuts : public GlobalShortcuts, private x11::EventFilter {
 public:
  /// `connection` is Qt's.
  X11GlobalShortcuts(RequestQueue& requests, xcb_connection_t* connection);
  ~X11GlobalShortcuts() override;

 private:
  struct HotKey {
    xcb_keycode_t key;
    std::uint32_t modifiers;
    std::function<void()> pressed;
    bool grabbed;
    KeyRepetition repetition;
  };

  bool listen(std::uint32_t keyCode, std::uint32_t modifiers, std::function<void()> pressed) override;
  bool take(xcb_generic_event_t& event) override;
  unsigned stateFor(const HotKey& hotKey) const;
  bool grab(const HotKey& hotKey);
  void ungrab(const HotKey& hotKey);
  void keyboardChanged();
  bool press(const xcb_key_press_event_t& event);
  void release(const xcb_key_release_event_t& event);
  void lookForReleases();

  xcb_connection_t* connection_;
  xcb_window_t root_;
  X11Modifiers modifiers_;
  std::vector<HotKey> hotKeys_;
  QTimer releaseWatch_;  ///< runs while a key is down whose release event may go to another window
};

}  // namespace platform::desktop
