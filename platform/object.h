// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string_view>

namespace platform {

/// The name of an action. The characters outlive every use: selectors are made from literals.
struct Selector {
  std::string_view name;

  explicit operator bool() const { return !name.empty(); }
  friend bool operator==(Selector, Selector) = default;
};

/// Whatever can be the target of an action. Always owned by a std::shared_ptr.
class NSObject : public std::enable_shared_from_this<NSObject> {
 public:
  NSObject() = default;
  NSObject(const NSObject&) = delete;
  NSObject& operator=(const NSObject&) = delete;
  virtual ~NSObject() = default;

  /// Runs the action of that name. `sender` may be null and is not kept.
  /// Returns false, and has done nothing, when there is no such action.
  virtual bool perform(Selector, NSObject* /*sender*/) { return false; }
};

}  // namespace platform
