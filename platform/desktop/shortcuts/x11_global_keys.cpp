// SPDX-License-Identifier: MIT
#include "platform/desktop/shortcuts/x11_global_keys.h"

#include <xcb/xcb_keysyms.h>

#include <QAbstractNativeEventFilter>
#include <QCoreApplication>
#include <QTimer>
#include <algorithm>
#include <array>
#include <chrono>
#include <initializer_list>
#include <optional>
#include <string_view>
#include <vector>

#include "platform/desktop/x11/x11.h"
#include "platform/hot_key.h"

namespace platform::desktop {
namespace {

using x11::Reply;

constexpr xcb_keysym_t scrollLock = 0xFF14;
constexpr xcb_keysym_t numLock = 0xFF7F;
constexpr xcb_keysym_t leftAlt = 0xFFE9;
constexpr xcb_keysym_t rightAlt = 0xFFEA;
constexpr xcb_keysym_t leftSuper = 0xFFEB;
constexpr xcb_keysym_t rightSuper = 0xFFEC;
constexpr unsigned newKeyboard = 0;  // kinds of events of the keyboard extension
constexpr unsigned newMap = 1;
constexpr int modifierCount = 8;
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

/// Which bits of an event's state are which modifiers on this keyboard.
struct Modifiers {
  unsigned alt = XCB_MOD_MASK_1;
  unsigned locks = XCB_MOD_MASK_LOCK;
  friend bool operator==(const Modifiers&, const Modifiers&) = default;
};

Modifiers readModifiers(xcb_connection_t* connection) {
  const std::unique_ptr<xcb_key_symbols_t, void (*)(xcb_key_symbols_t*)> symbols(xcb_key_symbols_alloc(connection),
                                                                                 xcb_key_symbols_free);
  const Reply<xcb_get_modifier_mapping_reply_t> map(
      xcb_get_modifier_mapping_reply(connection, xcb_get_modifier_mapping(connection), nullptr));
  Modifiers found;
  if (!symbols || !map) return found;
  const auto isOn = [](xcb_keysym_t symbol, std::initializer_list<xcb_keysym_t> wanted) {
    return std::find(wanted.begin(), wanted.end(), symbol) != wanted.end();
  };
  unsigned alt = 0;
  unsigned super = 0;
  unsigned locks = 0;
  const xcb_keycode_t* key = xcb_get_modifier_mapping_keycodes(map.get());
  for (int modifier = 0; modifier < modifierCount; ++modifier) {
    for (int i = 0; i < map->keycodes_per_modifier; ++i, ++key) {
      const xcb_keysym_t symbol = *key == 0 ? XCB_NO_SYMBOL : xcb_key_symbols_get_keysym(symbols.get(), *key, 0);
      const unsigned bit = 1U << static_cast<unsigned>(modifier);
      if (alt == 0 && isOn(symbol, {leftAlt, rightAlt})) alt = bit;
      if (super == 0 && isOn(symbol, {leftSuper, rightSuper})) super = bit;
      if (isOn(symbol, {numLock, scrollLock})) locks |= bit;
    }
  }
  if (alt != 0) found.alt = alt;
  // A modifier that is held as well as locked is one that counts.
  found.locks |= locks & ~(found.alt | super | XCB_MOD_MASK_SHIFT | XCB_MOD_MASK_CONTROL);
  return found;
}

/// Every subset of the bits of `mask`.
std::vector<unsigned> subsetsOf(unsigned mask) {
  std::vector<unsigned> all;
  for (unsigned subset = mask;; subset = (subset - 1) & mask) {
    all.push_back(subset);
    if (subset == 0) return all;
  }
}

/// Tells the presses of one key from the repetitions that a held key sends after a while: presses without a release
/// between them, or a release and a press of the same moment.
class Repetition {
 public:
  bool isRepeated(xcb_timestamp_t time) {
    const bool continued = (held_ && time - pressedAt_ < longestRepeatInterval) || time == releasedAt_;
    const bool repeated = continued && time - firstPressedAt_ >= shortestRepeatDelay;
    if (!repeated) firstPressedAt_ = time;
    held_ = true;
    pressedAt_ = time;
    return repeated;
  }
  void release(xcb_timestamp_t time) {
    held_ = false;
    releasedAt_ = time;
  }

 private:
  bool held_ = false;
  xcb_timestamp_t firstPressedAt_ = 0;
  xcb_timestamp_t pressedAt_ = 0;
  xcb_timestamp_t releasedAt_ = 0;
};

class X11GlobalKeys : public GlobalKeys, public QAbstractNativeEventFilter {
 public:
  explicit X11GlobalKeys(xcb_connection_t* connection)
      : connection_(connection), root_(x11::rootWindow(connection)), modifiers_(readModifiers(connection)) {
    constexpr std::string_view extensionName = "XKEYBOARD";
    const Reply<xcb_query_extension_reply_t> extension(xcb_query_extension_reply(
        connection_, xcb_query_extension(connection_, extensionName.size(), extensionName.data()), nullptr));
    if (extension && extension->present != 0) keyboardEvent_ = extension->first_event;
    releaseWatch_.setInterval(releaseWatchInterval);
    QObject::connect(&releaseWatch_, &QTimer::timeout, [this] { lookForReleases(); });
    qApp->installNativeEventFilter(this);
  }
  X11GlobalKeys(const X11GlobalKeys&) = delete;
  X11GlobalKeys& operator=(const X11GlobalKeys&) = delete;
  ~X11GlobalKeys() override {
    if (qApp == nullptr) return;
    qApp->removeNativeEventFilter(this);
    for (const HotKey& hotKey : hotKeys_) letGo(hotKey);  // before our connection ends
  }

  bool listen(std::uint32_t keyCode, std::uint32_t modifiers, std::function<void()> pressed) override {
    const auto key = keyAt(keyCode);
    if (!key) return false;
    HotKey hotKey{*key, modifiers, std::move(pressed), false, {}};
    hotKey.grabbed = grab(hotKey);
    if (!hotKey.grabbed) return false;
    hotKeys_.push_back(std::move(hotKey));
    return true;
  }

  bool nativeEventFilter(const QByteArray& /*type*/, void* message, qintptr* /*result*/) override {
    auto* const event = static_cast<xcb_generic_event_t*>(message);
    const unsigned type = x11::typeOf(*event);
    if (type == XCB_KEY_PRESS) return press(*reinterpret_cast<xcb_key_press_event_t*>(event));
    if (type == XCB_KEY_RELEASE) release(*reinterpret_cast<xcb_key_release_event_t*>(event));
    const bool keyboardChanged =
        keyboardEvent_ && type == *keyboardEvent_ && (event->pad0 == newKeyboard || event->pad0 == newMap);
    if (keyboardChanged || type == XCB_MAPPING_NOTIFY) renew();
    return false;
  }

 private:
  struct HotKey {
    xcb_keycode_t key;
    std::uint32_t modifiers;
    std::function<void()> pressed;
    bool grabbed;
    Repetition repetition;
  };

  unsigned stateFor(const HotKey& hotKey) const {
    unsigned state = 0;
    if ((hotKey.modifiers & cmdKey) != 0) state |= XCB_MOD_MASK_CONTROL;
    if ((hotKey.modifiers & optionKey) != 0) state |= modifiers_.alt;
    return state;
  }

  /// All or nothing, in one round trip.
  bool grab(const HotKey& hotKey) {
    std::vector<xcb_void_cookie_t> requests;
    for (const unsigned locks : subsetsOf(modifiers_.locks)) {
      requests.push_back(xcb_grab_key_checked(connection_, 0, root_,
                                              static_cast<std::uint16_t>(stateFor(hotKey) | locks), hotKey.key,
                                              XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC));
    }
    bool all = true;
    for (const auto request : requests) {
      const Reply<xcb_generic_error_t> error(xcb_request_check(connection_, request));
      all &= !error;
    }
    if (!all) letGo(hotKey);
    return all;
  }

  void letGo(const HotKey& hotKey) {
    for (const unsigned locks : subsetsOf(modifiers_.locks)) {
      xcb_ungrab_key(connection_, hotKey.key, root_, static_cast<std::uint16_t>(stateFor(hotKey) | locks));
    }
    xcb_flush(connection_);
  }

  void renew() {
    const Modifiers now = readModifiers(connection_);
    if (now != modifiers_) {
      for (HotKey& hotKey : hotKeys_) {
        letGo(hotKey);
        hotKey.grabbed = false;
      }
    }
    modifiers_ = now;
    for (HotKey& hotKey : hotKeys_) hotKey.grabbed = hotKey.grabbed || grab(hotKey);
  }

  /// To whichever window it is told: a popover or a menu of ours holds the keyboard, and the grab does not count.
  bool press(const xcb_key_press_event_t& event) {
    for (HotKey& hotKey : hotKeys_) {
      const unsigned state = event.state & allModifiers & ~modifiers_.locks;
      if (!hotKey.grabbed || event.detail != hotKey.key || state != stateFor(hotKey)) continue;
      if (!hotKey.repetition.isRepeated(event.time)) hotKey.pressed();
      if (event.event != root_) releaseWatch_.start();
      return true;
    }
    return false;
  }

  /// Nobody tells us of a release once the popover or menu that was told of the press is gone.
  void lookForReleases() {
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

  void release(const xcb_key_release_event_t& event) {
    for (HotKey& hotKey : hotKeys_) {
      if (event.detail == hotKey.key) hotKey.repetition.release(event.time);
    }
  }

  xcb_connection_t* connection_;
  xcb_window_t root_;
  Modifiers modifiers_;
  std::optional<unsigned> keyboardEvent_;  ///< the one type of all the keyboard extension's events
  std::vector<HotKey> hotKeys_;
  QTimer releaseWatch_;  ///< while a key is down whose release may not be told
};

}  // namespace

std::unique_ptr<GlobalKeys> makeX11GlobalKeys(xcb_connection_t* connection) {
  return std::make_unique<X11GlobalKeys>(connection);
}

}  // namespace platform::desktop
