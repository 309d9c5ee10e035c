// SPDX-License-Identifier: MIT
#include "platform/user_defaults.h"

namespace platform {
namespace {

template <typename T>
std::optional<T> valueOf(const std::optional<DefaultsValue>& value) {
  const T* found = value ? std::get_if<T>(&*value) : nullptr;
  return found == nullptr ? std::nullopt : std::optional(*found);
}

}  // namespace

std::optional<DefaultsValue> NSUserDefaults::objectForKey(std::string_view key) const {
  if (auto stored = storedObjectForKey(key)) return stored;
  const auto registered = registered_.find(key);
  return registered == registered_.end() ? std::nullopt : std::optional(registered->second);
}

bool NSUserDefaults::boolForKey(std::string_view key) const { return valueOf<bool>(objectForKey(key)).value_or(false); }

void NSUserDefaults::registerDefaults(const std::map<std::string, DefaultsValue, std::less<>>& values) {
  for (const auto& [key, value] : values) registered_.insert_or_assign(key, value);
}

std::optional<std::string> NSUserDefaults::stringForKey(std::string_view key) const {
  return valueOf<std::string>(objectForKey(key));
}

}  // namespace platform
