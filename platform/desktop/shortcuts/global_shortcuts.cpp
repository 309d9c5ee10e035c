// SPDX-License-Identifier: MIT
#include "platform/desktop/shortcuts/global_shortcuts.h"

#include <utility>

#include "platform/desktop/windows/request_queue.h"
#include "platform/hot_key.h"

namespace platform {

bool desktop::GlobalShortcuts::add(std::uint32_t keyCode, std::uint32_t modifiers, std::function<void()> pressed) {
  return listen(keyCode, modifiers, [this, pressed = std::move(pressed)] { requests_.add(pressed); });
}

bool listenForHotKey(std::uint32_t keyCode, std::uint32_t modifiers, std::function<void()> pressed) {
  return desktop::GlobalShortcuts::instance().add(keyCode, modifiers, std::move(pressed));
}

}  // namespace platform
