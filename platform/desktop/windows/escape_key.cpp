// SPDX-License-Identifier: MIT
#include "platform/desktop/windows/escape_key.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWindow>
#include <chrono>
#include <utility>

#include "platform/desktop/x11/x11.h"

namespace platform::desktop {
namespace {

constexpr xcb_keysym_t escapeKeysym = 0xFF1B;
constexpr std::chrono::milliseconds longestAnswer{300};

}  // namespace

EscapeKey::EscapeKey(xcb_connection_t* connection) : connection_(connection), symbols_(nullptr, xcb_key_symbols_free) {
  deadline_.setSingleShot(true);
  deadline_.setInterval(longestAnswer);
  connect(&deadline_, &QTimer::timeout, this, &EscapeKey::act);
}

bool EscapeKey::take(xcb_generic_event_t& event) {
  if (x11::isKeyboardChange(connection_, event)) symbols_.reset();
  return x11::typeOf(event) == XCB_KEY_PRESS && takePress(x11::as<xcb_key_press_event_t>(event));
}

bool EscapeKey::isEscape(xcb_keycode_t key) {
  if (!symbols_) symbols_.reset(xcb_key_symbols_alloc(connection_));
  return xcb_key_symbols_get_keysym(symbols_.get(), key, 0) == escapeKeysym;
}

bool EscapeKey::takePress(const xcb_key_press_event_t& press) {
  if (!isEscape(press.detail)) return false;
  QWidget* const window = QWidget::find(press.event);
  if (window == nullptr || !window->isWindow() || QApplication::activePopupWidget() != nullptr) return false;
  if (window_ == nullptr) {
    window_ = window;
    window->windowHandle()->installEventFilter(this);
    deadline_.start();
    sendFollower(press);
  }
  return true;
}

/// Sends a release of the key, which the input method passes on after everything that was typed before.
void EscapeKey::sendFollower(const xcb_key_press_event_t& press) {
  xcb_key_release_event_t follower = press;
  follower.response_type = XCB_KEY_RELEASE;
  xcb_send_event(connection_, 0, press.event, XCB_EVENT_MASK_NO_EVENT, reinterpret_cast<const char*>(&follower));
  xcb_flush(connection_);
}

bool EscapeKey::eventFilter(QObject* /*window*/, QEvent* event) {
  const bool follows =
      event->type() == QEvent::KeyRelease && static_cast<const QKeyEvent&>(*event).key() == Qt::Key_Escape;
  if (follows) act();
  return follows;
}

void EscapeKey::act() {
  deadline_.stop();
  QWidget* const window = std::exchange(window_, nullptr);
  if (window == nullptr) return;
  window->windowHandle()->removeEventFilter(this);
  QWidget* const focus = window->focusWidget() != nullptr ? window->focusWidget() : window;
  QKeyEvent key(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
  QCoreApplication::sendEvent(focus, &key);
}

}  // namespace platform::desktop
