// SPDX-License-Identifier: MIT
#include "platform/headless/world.h"
#include "platform/hot_key.h"

namespace platform {

using headless::world;

bool listenForHotKey(std::uint32_t keyCode, std::uint32_t modifiers, std::function<void()> pressed) {
  if (world().faults.takenHotKeys.contains(keyCode)) return false;
  world().record("hot key " + std::to_string(keyCode) + " modifiers " + std::to_string(modifiers));
  world().hotKeys[{keyCode, modifiers}] = std::move(pressed);
  return true;
}

void headless::pressHotKey(std::uint32_t keyCode, std::uint32_t modifiers) {
  const auto hotKey = world().hotKeys.find({keyCode, modifiers});
  if (hotKey != world().hotKeys.end()) hotKey->second();
}

}  // namespace platform
