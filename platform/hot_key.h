// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>

/// Key combinations that reach the program from anywhere.
namespace platform {

using OSType = std::uint32_t;  ///< four characters, the first in the most significant byte
using OSStatus = std::int32_t;

constexpr OSStatus noErr = 0;
constexpr OSStatus eventParameterNotFoundErr = -9870;
constexpr OSStatus eventHotKeyExistsErr = -9878;

constexpr OSType fourCharacters(const char (&text)[5]) {
  OSType code = 0;
  for (int i = 0; i < 4; ++i) code = (code << 8U) | static_cast<unsigned char>(text[i]);
  return code;
}

constexpr OSType kEventClassKeyboard = fourCharacters("keyb");
constexpr std::uint32_t kEventHotKeyPressed = 5;
constexpr OSType kEventParamDirectObject = fourCharacters("----");
constexpr OSType typeEventHotKeyID = fourCharacters("hkid");

/// Virtual key codes name the physical keys of an ANSI keyboard, whatever the layout.
constexpr std::uint32_t kVK_ANSI_P = 35;
constexpr std::uint32_t kVK_ANSI_N = 45;

/// Modifiers of a hot key; the bits add up. On a desktop Command is Ctrl and Option Alt.
enum HotKeyModifiers : std::uint32_t { cmdKey = 0x0100, optionKey = 0x0800 };

/// What a program calls one of its hot keys.
struct EventHotKeyID {
  OSType signature = 0;
  std::uint32_t id = 0;
};

struct EventTypeSpec {
  OSType eventClass;
  std::uint32_t eventKind;
};

using EventRef = const struct HotKeyEvent*;
using EventHotKeyRef = const struct RegisteredHotKey*;
using EventHandlerRef = const struct InstalledHandler*;
using EventHandlerCallRef = const struct HandlerCall*;
using EventTargetRef = const struct EventTarget*;
using EventHandlerUPP = OSStatus (*)(EventHandlerCallRef nextHandler, EventRef event, void* userData);

/// The program as a whole: the one target there is.
EventTargetRef GetApplicationEventTarget();

/// Calls `handler` on the main thread for each press of a hot key, from now on. `types` has `typeCount` entries; the
/// one kind of event there is are presses. `outHandler` may be null.
OSStatus InstallEventHandler(EventTargetRef target, EventHandlerUPP handler, std::size_t typeCount,
                             const EventTypeSpec* types, void* userData, EventHandlerRef* outHandler);

/// Makes a combination the program's own everywhere on the desktop, with exactly these modifiers; the locks do not
/// count. It is pressed once however long it is held. A press is delivered when what the one before brought about is
/// to be seen, or has not come about for a second. `outHotKey` gets a reference that is valid until the process ends;
/// it is left alone on an error, which is eventHotKeyExistsErr when this or another program has the combination, or the
/// desktop gives it away to none.
OSStatus RegisterEventHotKey(std::uint32_t keyCode, std::uint32_t modifiers, EventHotKeyID hotKeyId,
                             EventTargetRef target, std::uint32_t options, EventHotKeyRef* outHotKey);

/// Copies a parameter of an event to `data`. The one there is: the direct object, of typeEventHotKeyID, 8 bytes.
/// Another name or type, or less room, is eventParameterNotFoundErr. `outType` and `outSize` may be null.
OSStatus GetEventParameter(EventRef event, OSType name, OSType type, OSType* outType, std::size_t room,
                           std::size_t* outSize, void* data);

/// Sends a press to the handlers, as if its combination had been pressed; without an id, one that cannot be read.
void sendHotKeyEvent(std::optional<EventHotKeyID> hotKeyId);

/// A platform's part: calls `pressed` on each press of the combination. False if it cannot be had.
bool listenForHotKey(std::uint32_t keyCode, std::uint32_t modifiers, std::function<void()> pressed);

}  // namespace platform
