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

/// Escape for the focus of the program's windows under X11, even while an input method composes, which would take it
/// for itself. It waits its turn behind the keys before it, also those that an input method still thinks about.
class EscapeKey : public QObject, private x11::EventFilter {
 public:
  /// `connection` is Qt's and stays its own.
  explicit EscapeKey(xcb_connection_t* connection);

  bool eventFilter(QObject* window, QEvent* event) override;

 private:
  bool take(xcb_generic_event_t& event) override;
  bool takePress(const xcb_key_press_event_t& press);
  void sendFollower(const xcb_key_press_event_t& press);
  void act();

  xcb_connection_t* connection_;
  std::unique_ptr<xcb_key_symbols_t, decltype(&xcb_key_symbols_free)> symbols_;
  QPointer<QWidget> window_;  ///< where Escape was pressed and has not acted yet
  QTimer deadline_;           ///< for an input method
};

}  // namespace platform::desktop
