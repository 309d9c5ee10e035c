// SPDX-License-Identifier: MIT
#include "platform/user_defaults.h"

#include "platform/headless/world.h"

namespace platform {

using headless::world;

struct NSUserDefaults::Impl {};

NSUserDefaults::NSUserDefaults() = default;
NSUserDefaults::~NSUserDefaults() = default;

NSUserDefaults& NSUserDefaults::standardUserDefaults() {
  static NSUserDefaults defaults;
  return defaults;
}

std::optional<DefaultsValue> NSUserDefaults::storedObjectForKey(std::string_view key) const {
  const auto setting = world().settings.find(key);
  return setting == world().settings.end() ? std::nullopt : std::optional(setting->second);
}

void NSUserDefaults::setBool(bool value, std::string_view key) {
  world().record("store " + std::string(key) + (value ? "=true" : "=false"));
  world().settings.insert_or_assign(std::string(key), value);
}

void NSUserDefaults::setString(std::string_view value, std::string_view key) {
  world().settings.insert_or_assign(std::string(key), std::string(value));
}

void headless::putSetting(std::string_view key, DefaultsValue value) {
  world().settings.insert_or_assign(std::string(key), std::move(value));
}

}  // namespace platform
