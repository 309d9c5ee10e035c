// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <deque>
#include <functional>

#include "platform/desktop/windows/window_system.h"

namespace platform::desktop {

/// What the user asks for from outside the windows of the program: by a hot key, in the tray, over the bus. One after
/// the other: each is passed on once the window manager has done what the one before brought about.
class RequestQueue : public QObject {
 public:
  explicit RequestQueue(WindowSystem& windowSystem);

  void add(std::function<void()> request);

 private:
  void passOn();

  WindowSystem& windowSystem_;
  std::deque<std::function<void()>> requests_;
  bool busy_ = false;  ///< the last one may have put off some of its work
};

}  // namespace platform::desktop
