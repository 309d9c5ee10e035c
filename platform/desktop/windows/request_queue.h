// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <deque>
#include <functional>

#include "platform/desktop/windows/window_system.h"

namespace platform::desktop {

/// Requests from outside the program's windows: hot keys, the tray, D-Bus, changes of screens. Each is run when the
/// window manager has carried out what the one before has asked of it, or after a second (see
/// `WindowSystem::isSettled`). So each request sees the windows as the one before has left them.
class RequestQueue : public QObject {
 public:
  explicit RequestQueue(WindowSystem& windowSystem);

  void add(std::function<void()> request);

 private:
  void passOn();
  /// Lets the event loop do what waits there now before the next request is run.
  void pause();

  WindowSystem& windowSystem_;
  std::deque<std::function<void()>> requests_;
  int pauses_ = 0;
};

}  // namespace platform::desktop
