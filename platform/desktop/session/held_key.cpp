// SPDX-License-Identifier: MIT
#include "platform/desktop/session/held_key.h"

#include <chrono>
#include <utility>

namespace platform::desktop {

using namespace std::chrono_literals;

HeldKey::HeldKey() {
  pause_.setSingleShot(true);
  pause_.setInterval(100ms);
  pause_.callOnTimeout([this] {
    if (waiting_) std::exchange(waiting_, {})();
  });
}

void HeldKey::called(std::function<void()> act) {
  const bool isPress = !shortestDelay_.hasExpired() || longestDelay_.hasExpired() || certainRelease_.hasExpired();
  longestDelay_.setRemainingTime(2s);
  certainRelease_ = QDeadlineTimer::Forever;
  if (isPress) {
    const bool isFirst = shortestDelay_.hasExpired();
    act();
    // From now on, since what has come while it acted is handled next. A press within that time does not prolong it: a
    // repeat that is taken for one would let all others through.
    if (isFirst) shortestDelay_.setRemainingTime(150ms);
  } else {
    waiting_ = pause_.isActive() ? nullptr : std::move(act);
    pause_.start();
  }
}

void HeldKey::released() {
  certainRelease_.setRemainingTime(20ms);  // KWin tells of one right before each repeat
}

}  // namespace platform::desktop
