// SPDX-License-Identifier: MIT
#include <QTimer>
#include <chrono>
#include <unordered_map>
#include <utility>

#include "platform/date.h"
#include "platform/timer.h"

namespace platform {

Date NSDate::now() {
  return std::chrono::duration<double>(std::chrono::system_clock::now().time_since_epoch()).count();
}

namespace {

/// The timers that are still to fire. Never destroyed: what a timer's block holds could use static objects that are
/// destroyed earlier.
std::unordered_map<const NSTimer*, std::shared_ptr<NSTimer>>& scheduled() {
  static auto& timers = *new std::unordered_map<const NSTimer*, std::shared_ptr<NSTimer>>;
  return timers;
}

}  // namespace

struct NSTimer::Impl {
  QTimer timer;
};

NSTimer::NSTimer() : impl_(std::make_unique<Impl>()) {}
NSTimer::~NSTimer() = default;

std::shared_ptr<NSTimer> NSTimer::scheduledTimerWithTimeInterval(double interval, bool /*repeats*/,
                                                                 std::function<void()> block) {
  std::shared_ptr<NSTimer> timer(new NSTimer);
  QTimer& ticking = timer->impl_->timer;
  ticking.setSingleShot(true);
  ticking.setTimerType(Qt::PreciseTimer);  // the coarse kind may fire early
  QObject::connect(&ticking, &QTimer::timeout, [timer = timer.get(), block = std::move(block)] {
    // Keeps the timer until its block has ended.
    const auto self = scheduled().extract(timer);
    block();
  });
  ticking.start(std::chrono::ceil<std::chrono::milliseconds>(std::chrono::duration<double>(interval)));
  scheduled().emplace(timer.get(), timer);
  return timer;
}

void NSTimer::invalidate() {
  impl_->timer.stop();
  const auto self = scheduled().extract(this);
}

}  // namespace platform
