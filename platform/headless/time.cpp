// SPDX-License-Identifier: MIT
#include <algorithm>

#include "platform/headless/world.h"

namespace platform {

using headless::PendingTimer;
using headless::world;

Date NSDate::now() { return world().wallClock; }

struct NSTimer::Impl {
  std::weak_ptr<PendingTimer> pending;
};

NSTimer::NSTimer() : impl_(std::make_unique<Impl>()) {}
NSTimer::~NSTimer() = default;

std::shared_ptr<NSTimer> NSTimer::scheduledTimerWithTimeInterval(double interval, bool /*repeats*/,
                                                                 std::function<void()> block) {
  std::shared_ptr<NSTimer> timer(new NSTimer);
  auto pending = std::make_shared<PendingTimer>(PendingTimer{world().steadyClock + interval, std::move(block)});
  timer->impl_->pending = pending;
  world().timers.push_back(std::move(pending));
  return timer;
}

void NSTimer::invalidate() {
  if (const auto pending = impl_->pending.lock()) std::erase(world().timers, pending);
}

namespace headless {

void advance(double seconds) {
  auto& timers = world().timers;
  const double until = world().steadyClock + seconds;
  for (;;) {
    const auto next =
        std::min_element(timers.begin(), timers.end(), [](const auto& a, const auto& b) { return a->due < b->due; });
    if (next == timers.end() || (*next)->due > until) break;
    const auto timer = *next;
    timers.erase(next);
    world().steadyClock = std::max(world().steadyClock, timer->due);
    timer->block();
  }
  world().steadyClock = until;
}

void setWallClock(Date date) { world().wallClock = date; }

}  // namespace headless
}  // namespace platform
