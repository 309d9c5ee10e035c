// SPDX-License-Identifier: MIT
#include "platform/desktop/shortcuts/x11_global_shortcuts.h"

#include <chrono>
#include <utility>

#include "platform/desktop/x11/x11.h"
#include "platform/hot_key.h"

namespace platform::desktop {
namespace {

using x11::Reply;

constexpr unsigned allModifiers = 0xFF;  // of an event's state; the rest are pointer buttons and the layout
constexpr xcb_timestamp_t shortestRepeatDelay = 100;     // milliseconds
constexpr xcb_timestamp_t longestRepeatInterval = 2000;  // milliseconds
constexpr std::chrono::milliseconds releaseWatchInterval{20};

/// The physical key: its evdev code, 8 higher on X11. The list has the keys that the program names.
std::optional<xcb_keycode_t> keyAt(std::uint32_t virtualKeyCode) {
  switch (virtualKeyCode) {
    case kVK_ANSI_N:
      return 49 + 8;
    case kVK_ANSI_P:
      return 25 + 8;
    default:
      return std::nullopt;
  }
}

}  // namespace

bool KeyRepetition::isRepeated(xcb_timestamp_t time) {
  const bool continued = (held_ && time - pressedAt_ < longestRepeatInterval) || time == releasedAt_;
  const bool repeated = continued && time - firstPressedAt_ >= shortestRepeatDelay;
  if (!repeated) firstPressedAt_ = time;
  held_ = true;
  pressedAt_ = time;
  return repeated;
}

void KeyRepetition::release(xcb_timestamp_t time) {
  held_ = false;
  releasedAt_ = time;
}

X11GlobalShortcuts::X11GlobalShortcuts(RequestQueue& requests, xcb_connection_t* connection)
    : GlobalShortcuts(requests),
      connection_(connection),
      root_(x11::rootWindow(connection)),
      modifiers_(X11Modifiers::ofKeyboard(connection)) {
  releaseWatch_.setInterval(releaseWatchInterval);
  QObject::connect(&releaseWatch_, &QTimer::timeout, [this] { lookForReleases(); });
}

X11GlobalShortcuts::~X11GlobalShortcuts() {
  if (qApp == nullptr) return;                           // and the connection has ended
  for (const HotKey& hotKey : hotKeys_) ungrab(hotKey);  // before our connection ends
}

bool X11GlobalShortcuts::listen(std::uint32_t keyCode, std::uint32_t modifiers, std::function<void()> pressed) {
  const auto key = keyAt(keyCode);
  if (!key) return false;
  HotKey hotKey{*key, modifiers, std::move(pressed), false, {}};
  hotKey.grabbed = grab(hotKey);
  if (!hotKey.grabbed) return false;
  hotKeys_.push_back(std::move(hotKey));
  return true;
}

bool X11GlobalShortcuts::take(xcb_generic_event_t& event) {
  const unsigned type = x11::typeOf(event);
  if (type == XCB_KEY_PRESS) return press(x11::as<xcb_key_press_event_t>(event));
  if (type == XCB_KEY_RELEASE) release(x11::as<xcb_key_release_event_t>(event));
  if (x11::isKeyboardChange(connection_, event)) keyboardChanged();
  return false;
}

unsigned X11GlobalShortcuts::stateFor(const HotKey& hotKey) const {
  unsigned state = 0;
  if ((hotKey.modifiers & cmdKey) != 0) state |= XCB_MOD_MASK_CONTROL;
  if ((hotKey.modifiers & optionKey) != 0) state |= modifiers_.alt;
  return state;
}

/// All or nothing, in one round trip.
bool X11GlobalShortcuts::grab(const HotKey& hotKey) {
  std::vector<xcb_void_cookie_t> requests;
  for (const unsigned locks : modifiers_.lockCombinations()) {
    requests.push_back(xcb_grab_key_checked(connection_, 0, root_, static_cast<std::uint16_t>(stateFor(hotKey) | locks),
                                            hotKey.key, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC));
  }
  bool all = true;
  for (const auto request : requests) {
    const Reply<xcb_generic_error_t> error(xcb_request_check(connection_, request));
    all &= !error;
  }
  if (!all) ungrab(hotKey);
  return all;
}

void X11GlobalShortcuts::ungrab(const HotKey& hotKey) {
  for (const unsigned locks : modifiers_.lockCombinations())
    xcb_ungrab_key(connection_, hotKey.key, root_, static_cast<std::uint16_t>(stateFor(hotKey) | locks));
  xcb_flush(connection_);
}

void X11GlobalShortcuts::keyboardChanged() {
  const auto now = X11Modifiers::ofKeyboard(connection_);
  if (now != modifiers_) {
    for (HotKey& hotKey : hotKeys_) {
      ungrab(hotKey);
      hotKey.grabbed = false;
    }
  }
  modifiers_ = now;
  for (HotKey& hotKey : hotKeys_) hotKey.grabbed = hotKey.grabbed || grab(hotKey);
}

/// Whichever window the event is for: while a popover or a menu of ours has grabbed the keyboard, that window gets it.
bool X11GlobalShortcuts::press(const xcb_key_press_event_t& event) {
  for (HotKey& hotKey : hotKeys_) {
    const unsigned state = event.state & allModifiers & ~modifiers_.locks;
    if (!hotKey.grabbed || event.detail != hotKey.key || state != stateFor(hotKey)) continue;
    if (!hotKey.repetition.isRepeated(event.time)) hotKey.pressed();
    if (event.event != root_) releaseWatch_.start();
    return true;
  }
  return false;
}

void X11GlobalShortcuts::release(const xcb_key_release_event_t& event) {
  for (HotKey& hotKey : hotKeys_) {
    if (event.detail == hotKey.key) hotKey.repetition.release(event.time);
  }
}

/// If the popover or menu that got the press is closed, no window of ours gets the release.
void X11GlobalShortcuts::lookForReleases() {
  const Reply<xcb_query_keymap_reply_t> down(
      xcb_query_keymap_reply(connection_, xcb_query_keymap(connection_), nullptr));
  bool anyDown = false;
  for (HotKey& hotKey : hotKeys_) {
    const bool isDown = down && (down->keys[hotKey.key / 8] & (1U << (hotKey.key % 8U))) != 0;
    if (!isDown) hotKey.repetition.release(XCB_CURRENT_TIME);
    anyDown |= isDown;
  }
  if (!anyDown) releaseWatch_.stop();
}

}  // namespace platform::desktop
