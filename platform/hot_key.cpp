// SPDX-License-Identifier: MIT
#include "platform/hot_key.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <vector>

namespace platform {

struct HotKeyEvent {
  std::optional<EventHotKeyID> hotKey;
};

struct RegisteredHotKey {
  std::uint32_t keyCode;
  std::uint32_t modifiers;
};

namespace {

struct Handler {
  EventHandlerUPP function;
  void* userData;
};

/// For the whole run: neither a handler nor a hot key is ever taken back.
struct Registry {
  std::vector<Handler> handlers;  ///< the last that was installed comes first
  std::vector<std::unique_ptr<RegisteredHotKey>> hotKeys;
};

Registry& registry() {
  static Registry theRegistry;
  return theRegistry;
}

}  // namespace

EventTargetRef GetApplicationEventTarget() { return nullptr; }

OSStatus InstallEventHandler(EventTargetRef /*target*/, EventHandlerUPP handler, std::size_t /*typeCount*/,
                             const EventTypeSpec* /*types*/, void* userData, EventHandlerRef* outHandler) {
  auto& handlers = registry().handlers;
  handlers.insert(handlers.begin(), {handler, userData});
  if (outHandler != nullptr) *outHandler = nullptr;
  return noErr;
}

OSStatus RegisterEventHotKey(std::uint32_t keyCode, std::uint32_t modifiers, EventHotKeyID hotKeyId,
                             EventTargetRef /*target*/, std::uint32_t /*options*/, EventHotKeyRef* outHotKey) {
  const auto& registered = registry().hotKeys;
  const bool ours = std::any_of(registered.begin(), registered.end(), [&](const auto& hotKey) {
    return hotKey->keyCode == keyCode && hotKey->modifiers == modifiers;
  });
  if (ours) return eventHotKeyExistsErr;
  if (!listenForHotKey(keyCode, modifiers, [hotKeyId] { sendHotKeyEvent(hotKeyId); })) return eventHotKeyExistsErr;
  registry().hotKeys.push_back(std::make_unique<RegisteredHotKey>(RegisteredHotKey{keyCode, modifiers}));
  *outHotKey = registry().hotKeys.back().get();
  return noErr;
}

// The last one asked is one that took the event.
void sendHotKeyEvent(std::optional<EventHotKeyID> hotKeyId) {
  const HotKeyEvent event{hotKeyId};
  const auto handlers = registry().handlers;  // a copy: a handler may install another one
  for (const Handler& handler : handlers) {
    if (handler.function(nullptr, &event, handler.userData) == noErr) return;
  }
}

OSStatus GetEventParameter(EventRef event, OSType name, OSType type, OSType* outType, std::size_t room,
                           std::size_t* outSize, void* data) {
  if (event == nullptr || !event->hotKey || name != kEventParamDirectObject || type != typeEventHotKeyID ||
      room < sizeof(EventHotKeyID))
    return eventParameterNotFoundErr;
  std::memcpy(data, &*event->hotKey, sizeof(EventHotKeyID));
  if (outType != nullptr) *outType = typeEventHotKeyID;
  if (outSize != nullptr) *outSize = sizeof(EventHotKeyID);
  return noErr;
}

}  // namespace platform
