// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "platform/application.h"
#include "platform/button.h"
#include "platform/date.h"
#include "platform/frame_autosave.h"
#include "platform/login_item.h"
#include "platform/menu.h"
#include "platform/popover.h"
#include "platform/process_info.h"
#include "platform/text_view.h"
#include "platform/url.h"
#include "platform/user_defaults.h"
#include "platform/window.h"

/// The knobs of the platform in memory: what a test makes happen and what it can see. One process, one world.
namespace platform::headless {

/// What the program did, in order: "store pinned=false", "window level 3", "window order out", "application hide",
/// "write /home/user/.local/share/Quillberry/note.txt 5 bytes" …
const std::vector<std::string>& effects();
void clearEffects();

/// Moves the steady clock; timers that come due run in order, each at its own time.
void advance(double seconds);
/// The wall clock goes its own way.
void setWallClock(Date);

// --- Files: nothing exists at first but the folder above the user's data folder.

struct Faults {
  bool noFolder = false;                   ///< folders cannot be made
  bool noRead = false;                     ///< files that exist cannot be read
  bool noLink = false;                     ///< no file gets a second name
  std::optional<std::size_t> roomInBytes;  ///< a longer write is cut short, as on a full disk
  bool noSymbols = false;                  ///< the system has no symbols but "info.circle"
  bool noStatusButton = false;             ///< status items have no button
  std::set<std::uint32_t> takenHotKeys;    ///< codes of keys whose combinations other programs hold
};
Faults& faults();

void putFile(const URL&, std::string contents);
std::optional<std::string> fileAt(const URL&);
/// Every file there is.
const std::map<URL, std::string>& files();

// --- Settings

void putSetting(std::string_view key, DefaultsValue value);

// --- The system

/// What the program logged, a message each.
const std::vector<std::string>& log();
/// 13.0 unless told otherwise.
void setSystemVersion(NSOperatingSystemVersion);

struct LoginItem {
  SMAppServiceStatus status = SMAppServiceStatusNotRegistered;
  SMAppServiceStatus statusAfterRegistration = SMAppServiceStatusEnabled;
  std::optional<std::string> failure;  ///< what both calls answer; the status stays
  int registrations = 0;               ///< calls, failed ones too
  int unregistrations = 0;
};
LoginItem& loginItem();

// --- Windows and the user

struct WindowState {
  NSRect frame;
  NSSize minSize;
  unsigned styleMask = 0;
  bool transparentTitlebar = false;
  bool releasedWhenClosed = true;
  bool visible = false;
  int level = NSNormalWindowLevel;
  unsigned behavior = 0;
  std::string title;
};
/// The state of the one window that the program has made.
const WindowState& windowState();
NSWindow& window();
/// What the user does to the window.
void pressCloseButton();
void moveWindow(NSRect frame);

struct TextViewState {
  bool verticallyResizable = false;
  bool horizontallyResizable = true;
  NSSize minSize;
  NSSize maxSize;
  NSTextContainer container;
  bool richText = true;
  bool allowsUndo = false;
  NSFont font;
  NSSize inset;
  bool substitutes = true;  ///< one of the four substitutions is on
  NSRange selection;        ///< in UTF-16 units
};
const TextViewState& textViewState();
NSTextView& textView();
/// The only button of the window's content.
NSButton& button();

struct ShownPopover {
  std::shared_ptr<NSPopover> popover;
  NSView* anchor;
  NSRect rect;
};
/// Those on the screen, the latest last.
const std::vector<ShownPopover>& shownPopovers();
void pressOutsidePopovers();
/// The button of that title below a view; null if there is none.
NSButton* buttonIn(const NSView& view, std::string_view title);
/// What an image's drawing handler draws, one operation a line.
std::vector<std::string> drawingOf(const NSImage& image);

// --- Menus, the status item and hot keys

struct StatusItemState {
  double position = 0;  ///< the one that the item took when it got its name
  std::shared_ptr<NSButton> button;
  std::shared_ptr<NSMenu> menu;
};
StatusItemState& statusItem();
const std::shared_ptr<NSMenu>& mainMenu();

/// The item of that title in a menu and those below it; it has to be there.
NSMenuItem& menuItem(const NSMenu& menu, std::string_view title);
/// Presses a key with modifiers in the window: the main menu has it first.
bool pressKeyEquivalent(std::string_view key, unsigned modifiers);
/// The combination is pressed somewhere on the desktop.
void pressHotKey(std::uint32_t keyCode, std::uint32_t modifiers);
std::string& clipboard();

/// Presses a key that types nothing in the window, as its first responder sees it.
void pressKey(unsigned short keyCode);
/// Types at the caret, one key press for the whole of `text`.
void type(std::string_view text);
void undo();
void redo();
/// An input method composes `text` at the caret, in place of what it composed before.
void compose(std::string_view text);

/// Another program becomes the active one.
void activateOtherProgram();
bool programIsActive();
/// The user starts the program again.
bool reopen();
/// The session or a signal ends the program, or the session may be about to.
void terminate();

}  // namespace platform::headless
