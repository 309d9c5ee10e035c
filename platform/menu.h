#pragma once

#include "platform/object.h"

namespace platform {

constexpr int NSControlStateValueOff = 0;
constexpr int NSControlStateValueOn = 1;

/// An entry of a menu.
class NSMenuItem : public NSObject {
 public:
  int state() const { return state_; }

  /// NSControlStateValueOn shows the check mark, NSControlStateValueOff none.
  void setState(int state) { state_ = state; }

 private:
  int state_ = NSControlStateValueOff;
};

}  // namespace platform
