#include <QTimer>
#include <chrono>
#include <utility>

#include "platform/date.h"
#include "platform/timer.h"

namespace platform {

Date NSDate::now() {
  return std::chrono::duration<double>(std::chrono::system_clock::now().time_since_epoch()).count();
}

struct NSTimer::Impl {
  QTimer timer;
  std::shared_ptr<NSTimer> untilFired;
};

NSTimer::NSTimer() : impl_(std::make_unique<Impl>()) {}
NSTimer::~NSTimer() = default;

std::shared_ptr<NSTimer> NSTimer::scheduledTimerWithTimeInterval(double interval, bool /*repeats*/,
                                                                 std::function<void()> block) {
  std::shared_ptr<NSTimer> timer(new NSTimer);
  Impl& impl = *timer->impl_;
  impl.untilFired = timer;
  impl.timer.setSingleShot(true);
  impl.timer.setTimerType(Qt::PreciseTimer);  // the coarse kind may fire early
  QObject::connect(&impl.timer, &QTimer::timeout, [&impl, block = std::move(block)] {
    // Whoever the block lets go of the timer, it is there until the block has ended.
    const auto self = std::exchange(impl.untilFired, nullptr);
    block();
  });
  impl.timer.start(std::chrono::ceil<std::chrono::milliseconds>(std::chrono::duration<double>(interval)));
  return timer;
}

void NSTimer::invalidate() {
  impl_->timer.stop();
  impl_->untilFired.reset();
}

}  // namespace platform
