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
  NSWindowCollectionBehaviorFullScreenAuxiliary = 256,  ///< beside a full-screen window too, where possible
};

class NSWindowDelegate {
 public:
  virtual ~NSWindowDelegate() = default;
  /// The user asks to close the window. With false it stays as it is.
  virtual bool windowShouldClose(NSWindow&) = 0;
};

/// A window with the platform's own title bar and close button. Built hidden; never destroyed by being closed. On
/// native Wayland its place is the compositor's: it can be neither chosen nor kept, nor can a level or a workspace.
class NSWindow : public NSObject {
 public:
  /// `contentRect`: its size is that of the window and of its content, in points. The one look there is has all
  /// NSWindowStyleMask bits, is buffered and not deferred.
  NSWindow(NSRect contentRect, unsigned styleMask, NSBackingStoreType backing, bool defer);
  ~NSWindow() override;

  /// The one look of the title bar, either way: 28 points high, opaque and in the colour of the text's ground, so that
  /// just the title and the buttons stand out.
  void setTitlebarAppearsTransparent(bool);
  /// Has to be false: the window belongs to whoever holds it.
  void setReleasedWhenClosed(bool);
  /// The user cannot make the window smaller, in points.
  void setMinSize(NSSize);
  /// Held weakly.
  void setDelegate(const std::weak_ptr<NSWindowDelegate>&);
  /// Moves the window to the middle of the free room of the first screen.
  void center();
  /// Takes the frame that was last kept under `name`, if there is one, no smaller than the smallest size and whole on a
  /// screen if its own is gone. From now on keeps what the user makes of it, at the latest half a second later or when
  /// the window hides; of a window that fills the screen, the frame before.
  void setFrameAutosaveName(std::string_view name);

  /// The view that fills the window, the title bar included. The title bar covers a scroll view, and is covered by
  /// every other view that is added.
  NSView& contentView();

  /// Shows the window in front of those of its level and gives it the keyboard. `sender` is not used.
  void makeKeyAndOrderFront(NSObject* sender);
  /// Takes the window off the screen. An input method's open composition becomes text, which is no edit.
  void orderOut(NSObject* sender);
  /// Gives a view of this window the keyboard whenever the window has it. Held weakly.
  void makeFirstResponder(NSView&);
  /// None at first, and once it is gone.
  std::shared_ptr<NSView> firstResponder() const;
  /// Whether the window is shown, be it covered or on another workspace, and not minimised.
  bool isVisible() const;
  /// Whether the window has the keyboard; what a grab, a menu or a transient popover borrows does not count.
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
