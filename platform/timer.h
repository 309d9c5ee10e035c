// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>

namespace platform {

/// A timer on the main loop. Once scheduled it lives until it has fired or is invalidated, whoever holds it.
class NSTimer {
 public:
  /// Runs `block` once, on the main thread, not before `interval` seconds of the steady clock have passed.
  /// The program has no use for repeating timers, so `repeats` has to be false.
  static std::shared_ptr<NSTimer> scheduledTimerWithTimeInterval(double interval, bool repeats,
                                                                 std::function<void()> block);

  /// Stops the timer for good. Harmless when it has fired, fires at this moment or was stopped before.
  void invalidate();

  ~NSTimer();

 private:
  NSTimer();
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

}  // namespace platform
