// SPDX-License-Identifier: MIT
#pragma once

#include <xcb/xcb.h>

#include <QAbstractNativeEventFilter>
#include <QCoreApplication>

namespace platform::desktop::x11 {

/// Sees each X11 event before Qt does, from construction to destruction.
class EventFilter : public QAbstractNativeEventFilter {
 public:
  EventFilter() { qApp->installNativeEventFilter(this); }
  EventFilter(const EventFilter&) = delete;
  EventFilter& operator=(const EventFilter&) = delete;

  bool nativeEventFilter(const QByteArray& /*type*/, void* message, qintptr* /*result*/) final {
    return take(*static_cast<xcb_generic_event_t*>(message));
  }

 protected:
  /// True if the event is to go no further, not even to Qt.
  virtual bool take(xcb_generic_event_t& event) = 0;
};

/// The event as the struct that its type stands for.
template <typename T>
T& as(xcb_generic_event_t& event) {
  return reinterpret_cast<T&>(event);
}

}  // namespace platform::desktop::x11
