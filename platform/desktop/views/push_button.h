// SPDX-License-Identifier: MIT
#pragma once

#include <QPushButton>

#include "platform/color.h"

namespace platform::desktop {

/// A push button with a face in its tint, on which the title is dark or light, whichever is read better.
class PushButton : public QPushButton {
 public:
  explicit PushButton(const QString& title);

  void setTint(const NSColor& tint);
  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;

 private:
  bool reachedByKey_ = false;
  NSColor tint_ = NSColor::labelColor();
};

}  // namespace platform::desktop
