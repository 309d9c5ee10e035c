// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace platform {

/// A stored value of a type that the program does not read, a list or a date for example.
struct OtherValue {
  friend bool operator==(const OtherValue&, const OtherValue&) = default;
};

using DefaultsValue = std::variant<bool, double, std::string, OtherValue>;

/// The per-user settings. On a desktop: the JSON object in Quillberry/settings.json under $XDG_CONFIG_HOME (if it
/// is absolute, else .config in the home folder); keys that the program does not know survive. A file that holds
/// no JSON object counts as empty, and gets a second name before it is first replaced.
class NSUserDefaults {
 public:
  static NSUserDefaults& standardUserDefaults();

  /// The stored value, else the registered one, else none.
  std::optional<DefaultsValue> objectForKey(std::string_view key) const;
  /// `objectForKey` if it is a Boolean, else false.
  bool boolForKey(std::string_view key) const;
  /// Values for keys that hold no stored one, in this run. Nothing is stored.
  void registerDefaults(const std::map<std::string, DefaultsValue, std::less<>>& values);

  /// Stores the value at once. A failure to persist it is not reported; it holds for this run all the same.
  void setBool(bool value, std::string_view key);

 private:
  friend class NSWindow;  // keeps its frame here, under a key of its own
  std::optional<std::string> stringForKey(std::string_view key) const;
  void setString(std::string_view value, std::string_view key);

  std::optional<DefaultsValue> storedObjectForKey(std::string_view key) const;

  std::map<std::string, DefaultsValue, std::less<>> registered_;
  NSUserDefaults();
  ~NSUserDefaults();
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

}  // namespace platform
