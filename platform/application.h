#pragma once

#include <memory>

#include "platform/object.h"

namespace platform {

class NSApplication;

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
  /// Launches and runs the loop until the program is ended: by a signal, the session or the loss of the display.
  void run();

  /// Makes this the active program, even while the user is in another one if `ignoringOthers` is true.
  void activateIgnoringOtherApps(bool ignoringOthers);
  /// Hides every window. If the program was active, the window that the user came from is active again.
  void hide(NSObject* sender);

 private:
  NSApplication();
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

}  // namespace platform
