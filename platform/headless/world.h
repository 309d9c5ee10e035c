// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <set>

#include "platform/headless/headless.h"
#include "platform/timer.h"

namespace platform::headless {

struct PendingTimer {
  double due;
  std::function<void()> block;
};

struct WindowParts {
  WindowState state;
  std::weak_ptr<NSWindowDelegate> delegate;
  std::weak_ptr<NSView> firstResponder;
  std::string autosaveName;
  std::shared_ptr<NSView> content;
};

struct TextViewParts {
  TextViewState state;
  std::u16string text;
  std::u16string composition;
  std::vector<std::u16string> undoStack;
  std::vector<std::u16string> redoStack;
};

/// Everything that exists here. The objects of the program put themselves in and take themselves out.
struct World {
  std::vector<std::string> effects;
  double steadyClock = 0;
  Date wallClock = 0;
  std::vector<std::shared_ptr<PendingTimer>> timers;
  Faults faults;
  std::map<URL, std::string> files;
  std::set<URL> folders;
  std::map<std::string, DefaultsValue, std::less<>> settings;
  std::vector<std::string> log;
  NSOperatingSystemVersion systemVersion{13, 0, 0};
  LoginItem loginItem;
  std::vector<Screen> screens{{{{0, 0}, {1280, 800}}, {{0, 0}, {1280, 800}}}};
  bool active = false;
  bool terminated = false;
  std::weak_ptr<NSApplicationDelegate> delegate;
  NSWindow* window = nullptr;
  WindowParts* windowParts = nullptr;
  NSTextView* textView = nullptr;
  TextViewParts* textViewParts = nullptr;
  NSButton* button = nullptr;
  std::vector<ShownPopover> popovers;
  std::vector<ShownPopover> hiddenPopovers;         ///< with the program, with which they come back
  const NSPopover* keyPopover = nullptr;            ///< has the keyboard in the window's place, while it is shown
  std::optional<std::vector<std::string>> drawing;  ///< while a handler draws
  std::string strokeColor;
  std::shared_ptr<NSMenu> mainMenu;
  StatusItemState statusItem;
  std::map<std::pair<std::uint32_t, std::uint32_t>, std::function<void()>> hotKeys;
  std::string clipboard;

  void record(std::string effect) { effects.push_back(std::move(effect)); }
};

World& world();

std::u16string toUtf16(std::string_view validUtf8);
/// Lone surrogates become U+FFFD.
std::string toUtf8(std::u16string_view);

/// The program becomes the active one, and its window the one of its own with the keyboard.
void giveWindowTheKeyboard();
/// What becomes of the popovers when the program is hidden, and when it comes back.
void hidePopovers();
void bringPopoversBack();

/// Inserts at the caret as an edit.
void insertText(TextViewParts& parts, std::u16string_view text);
/// Ends the composition; its text stays.
void commitComposition(TextViewParts& parts);

}  // namespace platform::headless

namespace platform {

/// A key press carries the characters that it types.
struct NSEvent::Native {
  std::string characters;
};

}  // namespace platform
