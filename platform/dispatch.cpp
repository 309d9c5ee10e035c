// SPDX-License-Identifier: MIT
#include "platform/dispatch.h"

#include <utility>

#include "platform/timer.h"

namespace platform {

DispatchQueue& DispatchQueue::main() {
  static DispatchQueue queue;
  return queue;
}

void DispatchQueue::async(std::function<void()> work) { asyncAfter(0, std::move(work)); }

void DispatchQueue::asyncAfter(double seconds, std::function<void()> work) {
  NSTimer::scheduledTimerWithTimeInterval(seconds, false, std::move(work));
}

}  // namespace platform
