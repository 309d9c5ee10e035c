// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <utility>

#include "platform/view.h"

namespace platform {

class NSViewController : public NSObject {
 public:
  void setView(std::shared_ptr<NSView> view) { view_ = std::move(view); }
  const std::shared_ptr<NSView>& view() const { return view_; }

 private:
  std::shared_ptr<NSView> view_;
};

enum NSPopoverBehavior {
  NSPopoverBehaviorApplicationDefined = 0,  ///< the program closes it
  NSPopoverBehaviorTransient = 1,           ///< any press outside closes it, and so does Escape
};

/// The edge of the anchor from which a popover hangs, as a view whose y grows upward has it. A button's own y grows
/// downward: its maximum y is its lower edge too.
enum NSRectEdge { NSMinYEdge = 1, NSMaxYEdge = 3 };

/// A bubble with an arrow that points at a view. It takes the keyboard when it is shown. Shown ones are kept until
/// they have closed, and a little longer: a button inside may end its own popover.
class NSPopover : public NSObject {
 public:
  NSPopover();
  ~NSPopover() override;

  void setContentViewController(std::shared_ptr<NSViewController> controller) { controller_ = std::move(controller); }
  void setBehavior(NSPopoverBehavior behavior) { behavior_ = behavior; }
  /// Whether it comes and goes gently. Popovers here appear at once either way.
  void setAnimates(bool animates) { animates_ = animates; }

  /// Shows it at the whole of `anchor`, once in its life; when the program is hidden, once it comes back. It hangs from
  /// the anchor's lower edge, or stands on the upper one where there is no room below: `rect` and `preferredEdge` say
  /// just that wherever it is shown, and are not looked at. A status item's button that is in a tray stands for the
  /// item's place there.
  void showRelativeToRect(NSRect rect, NSView& anchor, NSRectEdge preferredEdge);
  /// Closes it, if it is shown. `sender` is not used.
  void performClose(NSObject* sender);

  const std::shared_ptr<NSViewController>& contentViewController() const { return controller_; }
  NSPopoverBehavior behavior() const { return behavior_; }
  bool animates() const { return animates_; }

 private:
  std::shared_ptr<NSViewController> controller_;
  NSPopoverBehavior behavior_ = NSPopoverBehaviorApplicationDefined;
  bool animates_ = true;
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

}  // namespace platform
