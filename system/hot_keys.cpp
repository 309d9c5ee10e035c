// SPDX-License-Identifier: MIT
#include "platform/hot_key.h"

#include <array>

#include "app/app_delegate.h"
#include "platform/dispatch.h"

namespace quillberry {

using namespace platform;

namespace {

constexpr OSType signature = fourCharacters("QBRY");
constexpr std::uint32_t modifiers = cmdKey | optionKey;
constexpr std::uint32_t showHideKey = 1;
constexpr std::uint32_t keepOnTopKey = 2;

struct HotKey {
  std::uint32_t id;
  std::uint32_t keyCode;
};
constexpr std::array hotKeys{HotKey{showHideKey, kVK_ANSI_N}, HotKey{keepOnTopKey, kVK_ANSI_P}};

}  // namespace

void AppDelegate::registerHotKeys() {
  constexpr EventTypeSpec presses{kEventClassKeyboard, kEventHotKeyPressed};
  InstallEventHandler(GetApplicationEventTarget(), &AppDelegate::hotKeyPressed, 1, &presses, nullptr, nullptr);
  for (const HotKey& hotKey : hotKeys) {
    // Stays null for a combination that another program has; the menu reaches the same actions.
    EventHotKeyRef reference = nullptr;
    RegisterEventHotKey(hotKey.keyCode, modifiers, {signature, hotKey.id}, GetApplicationEventTarget(), 0, &reference);
    hotKeyRefs.push_back(reference);
  }
}

OSStatus AppDelegate::hotKeyPressed(EventHandlerCallRef /*nextHandler*/, EventRef event, void* /*userData*/) {
  EventHotKeyID pressed;
  GetEventParameter(event, kEventParamDirectObject, typeEventHotKeyID, nullptr, sizeof pressed, nullptr, &pressed);
  DispatchQueue::main().async([id = pressed.id] {
    const auto controller = shared.lock();
    if (!controller) return;
    if (id == showHideKey) controller->toggleWindow();
    if (id == keepOnTopKey) controller->togglePin();
  });
  return noErr;
}

}  // namespace quillberry
