// SPDX-License-Identifier: MIT
#pragma once

namespace platform::desktop {

/// For what the application object owns one of. The vocabulary's calls, which get nothing handed, find it by this;
/// all else is given what it needs when it is made.
template <typename T>
class OneInProcess {
 public:
  /// To be called while the application object lives.
  static T& instance() { return *instance_; }

  OneInProcess(const OneInProcess&) = delete;
  OneInProcess& operator=(const OneInProcess&) = delete;

 protected:
  OneInProcess() { instance_ = static_cast<T*>(this); }
  ~OneInProcess() { instance_ = nullptr; }

 private:
  inline static T* instance_ = nullptr;
};

}  // namespace platform::desktop
