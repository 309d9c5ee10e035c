// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/geometry.h"
#include "platform/object.h"
#include "platform/view.h"

namespace platform {

class NSWindow;

enum NSWindowStyleMask : unsigned {
  NSWindowStyleMaskTitled = 1,
  NSWindowStyleMaskClosable = 2,
  NSWindowStyleMaskResizable = 8,
  NSWindowStyleMaskFullSizeContentView = 0x8000,
};

enum NSBackingStoreType { NSBackingStoreBuffered = 2 };

constexpr int NSNormalWindowLevel = 0;    ///< among the ordinary windows
constexpr int NSFloatingWindowLevel = 3;  ///< above the ordinary windows

enum NSWindowCollectionBehavior : unsigned {
  NSWindowCollectionBehaviorCanJoinAllSpaces = 1,       ///< on every workspace
  NSWindowCollectionBehaviorManaged = 4,                ///< on its own workspace
  NSWindowCollectionBehaviorFullScreenAuxiliary = 256,  ///< beside a full-screen window too
};

class NSWindowDelegate {
 public:
  virtual ~NSWindowDelegate() = default;
  /// The user asks to close the window. With false it stays as it is.
  virtual bool windowShouldClose(NSWindow&) = 0;
};

/// A window with the platform's own title bar and close button. Built hidden; never destroyed by being closed.
class NSWindow : public NSObject {
 public:
  /// `contentRect`: its size is the size of the content, in points. `styleMask`: the NSWindowStyleMask bits.
  NSWindow(NSRect contentRect, unsigned styleMask, NSBackingStoreType backing, bool defer);
  ~NSWindow() override;

  /// True draws nothing of the title bar but the title and the buttons; the content shows through.
  void setTitlebarAppearsTransparent(bool);
  /// Has to be false: the window belongs to whoever holds it.
  void setReleasedWhenClosed(bool);
  /// The user cannot make the window smaller, in points.
  void setMinSize(NSSize);
  /// Held weakly.
  void setDelegate(const std::weak_ptr<NSWindowDelegate>&);
  /// Moves the window to the middle of the free room of its screen.
  void center();
  /// Takes the frame that was last kept under `name`, if there is one, and keeps each change from now on. A frame
  /// whose screen is gone appears whole on one that is there.
  void setFrameAutosaveName(std::string_view name);

  /// The view that fills the window, the title bar included. Its first subview runs under the title bar, those
  /// added later lie over it.
  NSView& contentView();

  /// Shows the window in front of those of its level and gives it the keyboard. `sender` is not used.
  void makeKeyAndOrderFront(NSObject* sender);
  /// Takes the window off the screen. An input method's open composition becomes text, which is no edit.
  void orderOut(NSObject* sender);
  /// Gives a view of this window the keyboard whenever the window has it.
  void makeFirstResponder(NSView&);
  /// None at first.
  std::shared_ptr<NSView> firstResponder() const;
  /// Whether the window is on the screen, covered or not.
  bool isVisible() const;
  /// Whether the window has the keyboard.
  bool isKeyWindow() const;

  /// These hold also for a window that is hidden now.
  void setLevel(int level);
  void setCollectionBehavior(unsigned behavior);
  void setTitle(std::string_view title);

 private:
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

}  // namespace platform
