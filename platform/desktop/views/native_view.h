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

/// Where a view is on the screen, in Qt's global coordinates. Where it is not known what is there, nothing is to point
/// at it.
struct Anchor {
  QRect rect;
  bool known;
};

}  // namespace desktop

/// A view's widget. The view owns it; Qt's parent only places it.
struct NSView::Native {
  explicit Native(std::unique_ptr<QWidget> owned) : widget(std::move(owned)) {}

  std::unique_ptr<QWidget> widget;
  bool placedByParent = false;  ///< the superview's widget decides where it is
  bool behindOthers = false;    ///< siblings that are there already lie over it
  /// Where the view is if not in a window, as a status item's button in a tray; none while it is in no such place.
  std::function<std::optional<desktop::Anchor>()> placeOutside = [] { return std::nullopt; };
};

}  // namespace platform
