// SPDX-License-Identifier: MIT
#pragma once

#include <xcb/xcb_keysyms.h>

#include <QObject>
#include <QPointer>
#include <QTimer>
#include <QWidget>
#include <memory>

#include "platform/desktop/x11/event_filter.h"

namespace platform::desktop {

/// Delivers Escape to the focused widget on X11 even while an input method composes, which would take the key for
/// itself. Escape is delivered after all keys before it, also those that the input method has not answered yet.
class EscapeKey : public QObject, private x11::EventFilter {
 public:
  /// `connection` is Qt's.
  explicit EscapeKey(xcb_connection_t* connection);

  bool eventFilter(QObject* window, QEvent* event) override;

 private:
  bool take(xcb_generic_event_t& event) override;
  bool isEscape(xcb_keycode_t key);
  bool takePress(const xcb_key_press_event_t& press);
  void sendFollower(const xcb_key_press_event_t& press);
  void act();

  xcb_connection_t* connection_;
  std::unique_ptr<xcb_key_symbols_t, decltype(&xcb_key_symbols_free)> symbols_;  ///< none since the keyboard changed
  QPointer<QWidget> window_;  ///< in which Escape was pressed and has not been delivered yet
  QTimer deadline_;           ///< for the input method to answer
};

}  // namespace platform::desktop
