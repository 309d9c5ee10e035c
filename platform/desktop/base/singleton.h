// SPDX-License-Identifier: MIT
#pragma once

namespace platform::desktop {

/// Base of what the application object owns exactly one of. Calls like NSLocalizedString, which no object is handed to,
/// find it by instance(); whatever is constructed with what it needs does not use this.
template <typename T>
class Singleton {
 public:
  /// Only while the application object lives.
  static T& instance() { return static_cast<T&>(*instance_); }

  Singleton(const Singleton&) = delete;
  Singleton& operator=(const Singleton&) = delete;

 protected:
  Singleton() { instance_ = this; }
  ~Singleton() { instance_ = nullptr; }

 private:
  inline static Singleton* instance_ = nullptr;
};

}  // namespace platform::desktop
