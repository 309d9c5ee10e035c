// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

namespace platform {

/// Work for a later turn of the main loop.
class DispatchQueue {
 public:
  static DispatchQueue& main();

  /// Runs `work` on the main thread after what is queued now, never before this call has returned.
  void async(std::function<void()> work);
  /// Runs `work` once, on the main thread, not before `seconds` of the steady clock have passed.
  void asyncAfter(double seconds, std::function<void()> work);
};

}  // namespace platform
