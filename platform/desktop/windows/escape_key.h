// SPDX-License-Identifier: MIT
#pragma once

#include <xcb/xcb_keysyms.h>

#include <QAbstractNativeEventFilter>
#include <QObject>
#include <QPointer>
#include <QTimer>
#include <QWidget>
#include <memory>

namespace platform::desktop {

/// Escape for the focus of the program's windows under X11, even while an input method composes, which would take it
/// for itself. It waits its turn behind the keys before it, also those that an input method still thinks about.
class EscapeKey : public QObject, public QAbstractNativeEventFilter {
 public:
  /// `connection` is Qt's and stays its own.
  explicit EscapeKey(xcb_connection_t* connection);
  EscapeKey(const EscapeKey&) = delete;
  EscapeKey& operator=(const EscapeKey&) = delete;
  ~EscapeKey() override;

  bool nativeEventFilter(const QByteArray& type, void* message, qintptr* result) override;
  bool eventFilter(QObject* window, QEvent* event) override;

 private:
  bool take(const xcb_key_press_event_t& press);
  void sendFollower(const xcb_key_press_event_t& press);
  void act();

  xcb_connection_t* connection_;
  std::unique_ptr<xcb_key_symbols_t, decltype(&xcb_key_symbols_free)> symbols_;
  QPointer<QWidget> window_;  ///< where Escape was pressed and has not acted yet
  QTimer patience_;           ///< with an input method
};

}  // namespace platform::desktop
