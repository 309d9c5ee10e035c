// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>

#include "platform/menu.h"
#include "platform/object.h"

namespace platform {

class NSApplication;
class NSWindow;

enum NSApplicationActivationPolicy {
  NSApplicationActivationPolicyAccessory = 1,  ///< in no taskbar and no pager
};

class NSApplicationDelegate {
 public:
  virtual ~NSApplicationDelegate() = default;
  /// Once, when the loop starts.
  virtual void applicationDidFinishLaunching() = 0;
  /// The process is about to end, whatever the reason. A session that may be about to end calls this too and may
  /// then go on, so it can come more than once.
  virtual void applicationWillTerminate() = 0;
  /// The user started the program again. The result is for the platform's default, which there is none of here.
  virtual bool applicationShouldHandleReopen(NSApplication&, bool hasVisibleWindows) = 0;
};

class NSApplication : public NSObject {
 public:
  /// The one application object. The first call makes it and its caller owns it; later ones find it.
  ///
  /// On a desktop the first call settles that this is the one process on the user's note. If another one has the
  /// note, that one is asked to come forward and the process ends here, with exit code 0; with 1 and a line on
  /// standard error if it cannot be reached, or if there is no display to run on.
  static std::shared_ptr<NSApplication> sharedApplication();
  ~NSApplication() override;

  void setActivationPolicy(NSApplicationActivationPolicy);
  /// Held weakly.
  void setDelegate(const std::weak_ptr<NSApplicationDelegate>&);
  /// Its key equivalents act while a window of the program is active. The menu itself is not shown.
  void setMainMenu(const std::shared_ptr<NSMenu>& menu);
  /// Launches and runs the loop until the program is ended: by a signal, the session or the loss of the display.
  void run();

  /// Makes this the active program, even while the user is in another one if `ignoringOthers` is true.
  void activateIgnoringOtherApps(bool ignoringOthers);
  /// Performs an action on its target; one that is gone does nothing. Without a target: on the first responder of the
  /// active window, on that window, here, or on the delegate, whichever is the first that knows it.
  /// False if nobody did it.
  bool sendAction(Selector action, const std::optional<std::weak_ptr<NSObject>>& target, NSObject* sender);
  /// Ends the program: the delegate is told, then the loop ends.
  void terminate(NSObject* sender);
  /// Knows "terminate".
  bool perform(Selector action, NSObject* sender) override;

  /// Hides every window. If the program was active, the window that the user came from is active again.
  void hide(NSObject* sender);

 private:
  NSApplication();
  // A platform's parts: the window with the keyboard, if it is one of ours, and the delegate, if it is there.
  std::shared_ptr<NSWindow> keyWindow() const;
  std::shared_ptr<NSApplicationDelegate> delegate() const;
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

}  // namespace platform
