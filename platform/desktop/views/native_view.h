// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>
#include <functional>
#include <memory>
#include <optional>
#include <utility>

#include "platform/view.h"

namespace platform {
namespace desktop {

/// A rectangle on the screen that a popover belongs to, in Qt's global coordinates.
struct Anchor {
  QRect rect;
  bool exact;  ///< false for a guess, at which no arrow is to point
};

}  // namespace desktop

/// A view's widget. The view owns it; its QWidget parent, which never deletes it, only shows it.
struct NSView::Native {
  explicit Native(std::unique_ptr<QWidget> owned) : widget(std::move(owned)) {}

  std::unique_ptr<QWidget> widget;
  bool placedByParent = false;  ///< the superview's widget sets its geometry
  bool behindOthers = false;    ///< it is to be stacked below the siblings that exist already
  /// For the status item's button: its place in the tray, or nothing while it is in none.
  std::function<std::optional<desktop::Anchor>()> trayAnchor = [] { return std::nullopt; };
};

}  // namespace platform
