// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "note/note_text_view.h"
#include "platform/application.h"
#include "platform/date.h"
#include "platform/hot_key.h"
#include "platform/menu.h"
#include "platform/object.h"
#include "platform/status_bar.h"
#include "platform/timer.h"
#include "platform/updater.h"
#include "platform/url.h"
#include "platform/window.h"

namespace platform {
class NSImageView;
class NSPopover;
}  // namespace platform

namespace quillberry {

/// The one controller: it owns the note window, the pending save and the settings, and every action of the user
/// ends in one of its operations. All of it runs on the main thread. A behaviour is defined in its own folder:
/// the note file in note/note_file.cpp, showing and hiding in note/visibility.cpp, and so on.
class AppDelegate final : public platform::NSObject,
                          public platform::NSApplicationDelegate,
                          public platform::NSWindowDelegate {
 public:
  /// Starts the updater, reads the settings and makes the support folder; nothing is visible before launch.
  AppDelegate();

  /// The way in for code that is handed no reference; empty until launch sets it.
  inline static std::weak_ptr<AppDelegate> shared;

  void applicationDidFinishLaunching() override;
  void applicationWillTerminate() override;
  bool applicationShouldHandleReopen(platform::NSApplication& app, bool hasVisibleWindows) override;
  /// Saves and hides; answers false, so the window is never closed.
  bool windowShouldClose(platform::NSWindow& window) override;

  /// Brings the note to the front with the keyboard in its text; text, selection and caret stay as they are.
  void showWindow();
  /// Saves the note, then hands the user back to the program they came from.
  void hideWindow();
  /// Hides a note that the user is typing in; shows it, or brings it forward, in every other case.
  void toggleWindow();
  /// Flips keep-on-top, stores it, and applies it.
  void togglePin();

  bool perform(platform::Selector action, platform::NSObject* sender) override;

 private:
  /// The program's folder in the user's data. The first call makes it; whether that succeeds is not asked.
  static const platform::URL& supportDir();

  void buildMainMenu();
  void buildStatusItem();
  void buildNoteWindow();
  void applyPin();

  void loadNote();
  void textChanged();
  void saveNow();
  bool isSavedTextThere() const;

  void registerHotKeys();
  static platform::OSStatus hotKeyPressed(platform::EventHandlerCallRef nextHandler, platform::EventRef event,
                                          void* userData);

  void observeWake();
  /// A wake or an unlock: the note comes forward a moment later, once for a single return to the machine.
  void screenWoke();
  void toggleShowOnWake();

  static bool loginItemsExist();
  void registerAtFirstLaunch();
  void toggleLaunchAtLogin();
  /// The check mark tells what the login-item service says now.
  void showLoginItemStatus();

  void showWelcomeIfFirstRun();
  void presentWelcome();
  void dismissWelcome();
  /// The program's mark, `side` points wide and high.
  static std::shared_ptr<platform::NSImageView> makeLogoMark(double side);
  /// Lists the shortcuts in a popover at the button that was clicked.
  static void showInfo(platform::NSObject* sender);

  std::shared_ptr<AppDelegate> self();

  std::shared_ptr<platform::NSWindow> window;
  std::shared_ptr<NoteTextView> textView;
  std::shared_ptr<platform::NSStatusItem> statusItem;
  std::shared_ptr<platform::NSMenuItem> pinMenuItem;
  std::shared_ptr<platform::NSTimer> saveTimer;
  std::vector<platform::EventHotKeyRef> hotKeyRefs;  ///< in the order of registration; null for one that was refused
  std::shared_ptr<platform::SPUStandardUpdaterController> updaterController;
  std::shared_ptr<platform::NSMenuItem> wakeMenuItem;
  std::shared_ptr<platform::NSMenuItem> loginMenuItem;
  std::shared_ptr<platform::NSPopover> welcomePopover;
  platform::Date lastWakeShow = platform::NSDate::distantPast;
  bool pinned;
  bool showOnWake;
  platform::URL noteURL;
  /// No text was read from `noteURL` at the start: it could not be, or the note is on a disk that is mounted later.
  /// What is there, or turns up there, must not be replaced before it has a second name, unless it is `savedText`.
  bool noteNotRead = false;
  std::optional<std::string> savedText;  ///< what is known to be in the note's file while `noteNotRead`
};

}  // namespace quillberry
