// SPDX-License-Identifier: MIT
#pragma once

#include <QDeadlineTimer>
#include <QTimer>
#include <functional>

namespace platform::desktop {

/// The key of a shortcut that the desktop listens for. Many desktops call a shortcut again and again while its key is
/// held; that is one press.
class HeldKey {
 public:
  HeldKey();

  /// To be called for each call of the shortcut. Calls `act` at once if this must be a press: no key repeats so soon,
  /// or so late, or after a release. Else it does so a little later, if no other call follows before that.
  void called(std::function<void()> act);
  /// To be called when the desktop tells that the key is released.
  void released();

 private:
  QDeadlineTimer shortestDelay_;  ///< from the first press to its first repeat
  QDeadlineTimer longestDelay_;
  QDeadlineTimer certainRelease_{QDeadlineTimer::Forever};
  QTimer pause_;  ///< longer than the one between two repeats, unless the machine is very busy
  std::function<void()> waiting_;
};

}  // namespace platform::desktop
