// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "platform/object.h"

namespace platform {

/// Posted by a text view after each edit made through it: typing, deleting, cutting, pasting, dropping, undoing,
/// redoing. Neither `setString` nor an input method's open composition is an edit.
constexpr std::string_view NSTextDidChangeNotification = "NSTextDidChangeNotification";

class NSNotificationCenter {
 public:
  static NSNotificationCenter& defaultCenter();

  /// Performs `action` on `observer` each time `object` posts `name`, with no sender; without an object, each time
  /// anybody posts it. Both are held weakly.
  void addObserver(const std::weak_ptr<NSObject>& observer, Selector action, std::string_view name,
                   const std::optional<std::weak_ptr<NSObject>>& object);

  /// Tells the observers of `name` from `object`, which may be null, in the order in which they were added.
  void postNotificationName(std::string_view name, const NSObject* object);

 private:
  struct Entry {
    std::weak_ptr<NSObject> observer;
    Selector action;
    std::string_view name;
    std::optional<std::weak_ptr<NSObject>> object;
  };
  // A platform's part: somebody observes `name` from now on.
  static void observerAdded(std::string_view name);

  std::vector<Entry> entries_;
};

}  // namespace platform
